// The .tgp format byte for byte: the current writer, streams of every older version, the string
// forms and their length encodings, and damaged streams.
#include <gtest/gtest.h>
#include <gmock/gmock.h>

#include "Bajty.h"
#include "CTogSezMaterialu.h"
#include "RetezceArchivu.h"

using ::testing::ElementsAreArray;
using ::testing::HasSubstr;

namespace {

/// The failure a damaged stream gives: "eof", a CTogException's text, or "" when it read through.
std::string Selhani(CObject& objekt, const Bajty& bajty)
{
    try {
        Nacti(objekt, bajty);
    } catch (CException* e) {
        e->Delete();
        return "eof";
    } catch (const CTogException& e) {
        return e.what();
    }
    return {};
}

/// "PE" with DN 15 and DN 20, spelled out by hand as the writer must store it.
Bajty SeznamPE()
{
    Stavitel s;
    s.u8(3);                                      // list version
    s.u8(5).u8(1).u8(0).ukonceny(L"").ukonceny(L""); // material version, D x t, outer, prefix, suffix
    s.wide(L"PE").wide(L"").wide(L"X");           // Nazev, PodrobnyPopis, Vyrobce
    s.f32(0.25f).i16(4).i16(1).i16(2).i16(4).u8(0); // Drsnost, Pouziti, Skupina, PN, SDr, Tvar
    s.u8(7).i16(3).f32(16.0f).f32(2.0f).i32(0).ukonceny(L"A1").ukonceny(L"");
    s.u8(7).i16(4).f32(20.5f).f32(2.25f).i32(7).ukonceny(L"").ukonceny(L"B");
    s.u8(0xFF); // end of the profiles
    s.u8(0xFF); // end of the list
    return s.b;
}

} // namespace

TEST(Soubor, EmptyListIsVersionAndEnd)
{
    CTogSezMaterialu seznam;
    EXPECT_THAT(Uloz(seznam), ElementsAreArray({0x03, 0xFF}));
}

TEST(Soubor, MaterialWithTwoProfilesByteForByte)
{
    CTogSezMaterialu seznam;
    CTogMaterial* m = seznam.Vloz(std::make_unique<CTogMaterial>(&seznam, L"PE", 1, 4));
    m->Vyrobce = L"X";
    m->Popis = L"Popis se neukládá";
    m->Drsnost = 0.25f;
    m->PnIndex = 2;
    m->SdrIndex = 4;
    CTogProfil* p = nullptr;
    m->PridejProfil(3, &p);
    p->Vnitrni = 16.0f;
    p->Stena = 2.0f;
    p->NastavUrsMaterial(L"A1");
    m->PridejProfil(4, &p);
    p->Vnitrni = 20.5f;
    p->Stena = 2.25f;
    p->Sirka = 7;
    p->NastavUrsMontaz(L"B");
    EXPECT_EQ(Uloz(seznam), SeznamPE());

    CTogSezMaterialu zpet;
    ASSERT_EQ(Selhani(zpet, SeznamPE()), "");
    CTogMaterial* z = zpet.NajdiMaterial(L"PE");
    ASSERT_NE(z, nullptr);
    EXPECT_EQ(z->Popis, L"PE"); // not stored: it reads as the name
    EXPECT_FALSE(z->Shodny(*m));
    z->Popis = m->Popis;
    EXPECT_TRUE(z->Shodny(*m));
    EXPECT_EQ(z->Profil(4)->Sirka, 7);
    EXPECT_STREQ(z->Profil(4)->UrsMontaz, L"B");
    EXPECT_STREQ(z->Profil(3)->Popisek, L"20x2.0");
    EXPECT_EQ(z->Poradi, 0);
    EXPECT_TRUE(zpet.Ulozeno);
}

TEST(Soubor, OldestVersionsWithCountsAndSingleByteText)
{
    Stavitel s;
    s.u8(1).u64(1);                       // list version 1, one material
    s.u8(1).u8(0);                        // material version 1; 0 means D x t
    s.ansi("KG").ansi("Kanaliza\xE8n\xED").ansi("");
    s.f32(0.4f).i16(0).i16(0).i16(3).i16(0); // media and groups 0 read as all
    s.u64(2);                             // two profiles, no end record
    s.u8(1).i16(15).f32(0.0f).f32(5.0f).i32(0).pevny(L"123", 10).pevny(L"x", 10);
    s.u8(1).i16(14).f32(190.0f).f32(5.0f).i32(0).pevny(L"", 10).pevny(L"", 10);
    s.i32(0).i32(0).i32(0);               // the old tail
    CTogSezMaterialu seznam;
    ASSERT_EQ(Selhani(seznam, s.b), "");
    CTogMaterial* m = seznam.NajdiMaterial(L"KG");
    ASSERT_NE(m, nullptr);
    // Single bytes in the code page of the machine that wrote them: one character each.
    EXPECT_EQ(m->PodrobnyPopis.GetLength(), 11);
    EXPECT_EQ(std::wstring(m->PodrobnyPopis.GetString()).substr(0, 8), L"Kanaliza");
    EXPECT_EQ(m->TypPopisu, kPopisDxT);
    EXPECT_EQ(m->Pouziti, 31);
    EXPECT_EQ(m->Skupina, 3);
    EXPECT_EQ(m->Popis, L"KG");
    // DN index 15 of a version-1 profile is row 16, "DN 250"; 14 stays.
    ASSERT_NE(m->Profil(16), nullptr);
    ASSERT_NE(m->Profil(14), nullptr);
    EXPECT_STREQ(m->Profil(16)->UrsMaterial, L"123");
}

TEST(Soubor, VersionsTwoAndThree)
{
    Stavitel s;
    s.u8(2);                                           // list version 2: no count, end record, tail
    s.u8(3).u8(2).u8(1).pevny(L"Ø", 6).pevny(L"mm", 6); // material version 3: fixed prefix and suffix
    s.wide(L"Beton").wide(L"").wide(L"");
    s.f32(1.0f).i16(1).i16(2).i16(0).i16(0);
    s.u8(2).i16(15).f32(300.0f).f32(50.0f).i32(0).pevny(L"", 10).pevny(L"DN 250", 14); // shifted to 16
    s.u8(3).i16(15).f32(200.0f).f32(40.0f).i32(0).pevny(L"", 10).pevny(L"DN 225", 14); // stays 15
    s.u8(0xFF);
    s.u8(2).u8(1).wide(L"Ocel").wide(L"").wide(L"").f32(0.05f).i16(4).i16(1).i16(0).i16(0).u8(0xFF); // 1 = DN
    s.u8(0xFF).i32(0).i32(0).i32(0);
    CTogSezMaterialu seznam;
    ASSERT_EQ(Selhani(seznam, s.b), "");
    CTogMaterial* m = seznam.NajdiMaterial(L"Beton");
    ASSERT_NE(m, nullptr);
    EXPECT_EQ(m->TypPopisu, kPopisJiny);
    EXPECT_TRUE(m->VnitrniPrumer);
    EXPECT_STREQ(m->Prefix, L"Ø");
    EXPECT_STREQ(m->Suffix, L"mm");
    EXPECT_STREQ(m->Profil(16)->Popisek, L"Ø300mm");
    EXPECT_STREQ(m->Profil(15)->Popisek, L"Ø200mm");
    EXPECT_EQ(seznam.NajdiMaterial(L"Ocel")->TypPopisu, kPopisDN);
    EXPECT_EQ(seznam.NajdiMaterial(L"Ocel")->Poradi, 1);
}

TEST(Soubor, VersionsFourToSeven)
{
    Stavitel s;
    s.u8(3);
    s.u8(4).u8(0).u8(0).ukonceny(L"").ukonceny(L"").wide(L"M4").wide(L"").wide(L"");
    s.f32(1.0f).i16(1).i16(1).i16(0).i16(0);
    s.u8(4).i16(3).f32(15.0f).f32(2.0f).i32(0).ukonceny(L"U4").ukonceny(L"DN 15");
    s.u8(5).i16(4).f32(20.0f).f32(2.0f).i32(0).i32(11).ukonceny(L"U5").ukonceny(L"M5").ukonceny(L"DN 20");
    s.u8(6).i16(5).f32(25.0f).f32(2.0f).i32(0).i32(12).ukonceny(L"U6").ukonceny(L"M6");
    s.u8(7).i16(6).f32(32.0f).f32(2.0f).i32(13).ukonceny(L"U7").ukonceny(L"M7");
    s.u8(0xFF);
    s.u8(5).u8(1).u8(0).ukonceny(L"").ukonceny(L"").wide(L"M5").wide(L"").wide(L"");
    s.f32(1.0f).i16(1).i16(1).i16(0).i16(0).u8(4).u8(0xFF);
    s.u8(6).u8(1).u8(0).ukonceny(L"").ukonceny(L"").wide(L"M6").wide(L"").wide(L"");
    s.f32(1.0f).i16(1).i16(1).i16(0).i16(0).u8(2).u8(0xFF).wide(L"Vejčitý");
    s.u8(0xFF);
    CTogSezMaterialu seznam;
    ASSERT_EQ(Selhani(seznam, s.b), "");
    CTogMaterial* m4 = seznam.NajdiMaterial(L"M4");
    ASSERT_EQ(m4->Profily.size(), 4u);
    EXPECT_STREQ(m4->Profil(3)->UrsMaterial, L"U4");
    EXPECT_STREQ(m4->Profil(3)->UrsMontaz, L"");
    EXPECT_EQ(m4->Profil(4)->Sirka, 11);
    EXPECT_STREQ(m4->Profil(4)->UrsMontaz, L"M5");
    EXPECT_EQ(m4->Profil(5)->Sirka, 12);
    EXPECT_STREQ(m4->Profil(6)->UrsMontaz, L"M7");
    EXPECT_EQ(m4->Profil(6)->Sirka, 13);
    EXPECT_EQ(m4->Tvar, kTvarKruh);
    EXPECT_EQ(seznam.NajdiMaterial(L"M5")->Tvar, kTvarObdelnik);
    EXPECT_EQ(seznam.NajdiMaterial(L"M5")->Popis, L"M5");
    EXPECT_EQ(seznam.NajdiMaterial(L"M6")->Popis, L"Vejčitý");
}

TEST(Soubor, NewerVersionsAndDamagedValuesAreRefused)
{
    const std::string verze = "Nelze načíst, soubor byl uložen vyšší verzí programu";
    CTogSezMaterialu seznam;
    EXPECT_THAT(Selhani(seznam, {4, 0xFF}), HasSubstr(verze));
    Bajty material = SeznamPE();
    material[1] = 7;
    EXPECT_THAT(Selhani(seznam, material), HasSubstr(verze));
    Bajty profil = SeznamPE();
    profil[39] = 8;
    ASSERT_EQ(SeznamPE()[39], 7);
    EXPECT_THAT(Selhani(seznam, profil), HasSubstr(verze));
    Bajty dn = SeznamPE();
    dn[40] = 28;
    EXPECT_THAT(Selhani(seznam, dn), HasSubstr("neplatné DN"));
    Stavitel bezNuly;
    bezNuly.u8(3).u8(5).u8(1).u8(0).pevny(L"ABCDEFG", 6);
    EXPECT_THAT(Selhani(seznam, bezNuly.b), HasSubstr("Načítaný řetězec není ukončen nulou"));
    // Two records of one DN.
    Stavitel dvakrat;
    dvakrat.u8(3).u8(5).u8(1).u8(0).ukonceny(L"").ukonceny(L"").wide(L"D").wide(L"").wide(L"");
    dvakrat.f32(1.0f).i16(1).i16(1).i16(0).i16(0).u8(0);
    for (int i = 0; i < 2; ++i)
        dvakrat.u8(7).i16(3).f32(16.0f).f32(2.0f).i32(0).ukonceny(L"").ukonceny(L"");
    EXPECT_THAT(Selhani(seznam, dvakrat.b), HasSubstr("Nelze vložit nový profil"));
}

TEST(Soubor, ReadingMergesIntoTheList)
{
    CTogSezMaterialu seznam;
    CTogMaterial* m = seznam.Vloz(std::make_unique<CTogMaterial>(&seznam, L"PE"));
    m->Vyrobce = L"Můj";
    m->PridejProfil(3);
    const float vnitrni = m->Profil(3)->Vnitrni;
    ASSERT_EQ(Selhani(seznam, SeznamPE()), "");
    EXPECT_EQ(m->Vyrobce, L"Můj");
    EXPECT_EQ(m->Profil(3)->Vnitrni, vnitrni);
    ASSERT_NE(m->Profil(4), nullptr);
    EXPECT_EQ(m->Profil(4)->Vnitrni, 20.5f);

    // A second load of the same file changes nothing but the running numbers.
    CTogSezMaterialu jednou;
    Selhani(jednou, SeznamPE());
    Bajty prvni = Uloz(jednou);
    jednou.NajdiMaterial(L"PE")->Poradi = 5;
    Selhani(jednou, SeznamPE());
    EXPECT_EQ(Uloz(jednou), prvni);
    EXPECT_EQ(jednou.NajdiMaterial(L"PE")->Poradi, 0);
}

TEST(Soubor, EveryTruncationFailsCleanlyAndKeepsWhatCameBefore)
{
    Bajty cely = SeznamPE();
    for (size_t n = 0; n < cely.size(); ++n) {
        CTogSezMaterialu seznam;
        seznam.Vloz(std::make_unique<CTogMaterial>(&seznam, L"A"));
        Bajty cast(cely.begin(), cely.begin() + static_cast<std::ptrdiff_t>(n));
        EXPECT_EQ(Selhani(seznam, cast), "eof") << "cut at " << n;
        EXPECT_NE(seznam.NajdiMaterial(L"A"), nullptr);
    }
}

TEST(RetezceArchivu, LengthEncodingsOnBothSidesOfTheLimits)
{
    struct Pripad {
        int delka;
        Bajty hlavicka;
    };
    const Pripad pripady[] = {
        {254, {0xFF, 0xFE, 0xFF, 0xFE}},
        {255, {0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0x00}},
        {65533, {0xFF, 0xFE, 0xFF, 0xFF, 0xFD, 0xFF}},
        {65534, {0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0x00, 0x00}},
    };
    for (const Pripad& p : pripady) {
        std::wstring text(static_cast<size_t>(p.delka), L'ř');
        CMemFile soubor;
        {
            CArchive ar(&soubor, CArchive::store);
            ar << CString(text.c_str());
        }
        auto delka = static_cast<size_t>(soubor.GetLength());
        BYTE* data = soubor.Detach();
        Bajty b(data, data + delka);
        std::free(data);
        ASSERT_EQ(b.size(), p.hlavicka.size() + 2 * text.size());
        EXPECT_EQ(Bajty(b.begin(), b.begin() + static_cast<std::ptrdiff_t>(p.hlavicka.size())), p.hlavicka);

        CMemFile cteni(b.data(), static_cast<UINT>(b.size()));
        CArchive ar(&cteni, CArchive::load);
        CString zpet;
        ar >> zpet;
        EXPECT_EQ(std::wstring(zpet.GetString()), text) << p.delka;
    }
}

TEST(RetezceArchivu, UntaggedFormsAndLyingLengths)
{
    auto cti = [](Bajty b, CString& s) {
        CMemFile f(b.data(), static_cast<UINT>(b.size()));
        CArchive ar(&f, CArchive::load);
        try {
            ar >> s;
        } catch (CException* e) {
            e->Delete();
            return false;
        }
        return true;
    };
    CString s;
    Bajty dlouhy{0xFF, 0x2C, 0x01};
    dlouhy.resize(3 + 300, 'a');
    ASSERT_TRUE(cti(dlouhy, s));
    EXPECT_EQ(s.GetLength(), 300);
    Bajty ctyrbajtovy{0xFF, 0xFF, 0xFF, 0x03, 0x00, 0x00, 0x00, 'a', 'b', 'c'};
    ASSERT_TRUE(cti(ctyrbajtovy, s));
    EXPECT_EQ(s, L"abc");
    // A length far beyond the file: refused before any memory is asked for.
    EXPECT_FALSE(cti({0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 'a', 0}, s));
    EXPECT_FALSE(cti({0xFF, 0xFE, 0xFF, 0x03, 'a', 0}, s));
}
