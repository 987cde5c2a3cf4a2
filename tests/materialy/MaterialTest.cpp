// The material and profile model: parameters, profile series, DN changes, merging, comparing and
// the holders that keep used materials alive.
#include <gtest/gtest.h>
#include <gmock/gmock.h>

#include <memory>

#include "CTogSezMaterialu.h"

using ::testing::HasSubstr;

namespace {

/// A list with one material "PE" in mode D x t, SDr 11, PN 10.
struct SMaterialem : ::testing::Test {
    CTogSezMaterialu seznam;
    CTogMaterial* m = nullptr;

    void SetUp() override
    {
        m = seznam.Vloz(std::make_unique<CTogMaterial>(&seznam, L"PE"));
        ParametryMaterialu p = m->Parametry();
        p.PnIndex = 2;
        p.SdrIndex = 4;
        p.TypPopisu = kPopisDxT;
        m->NastavParametry(p);
        seznam.Ulozeno = true;
    }
};

std::string Zprava(const std::function<void()>& f)
{
    try {
        f();
    } catch (const CTogException& e) {
        return e.what();
    }
    return {};
}

} // namespace

TEST_F(SMaterialem, ProfilesAndSeries)
{
    CTogProfil* p = nullptr;
    ASSERT_TRUE(m->PridejProfil(11, &p));
    EXPECT_FALSE(seznam.Ulozeno);
    EXPECT_FLOAT_EQ(p->Stena, 10.0f);
    EXPECT_STREQ(p->Popisek, L"110x10.0");
    EXPECT_FALSE(m->PridejProfil(11));
    EXPECT_FALSE(m->PridejProfil(28));

    m->GenerujRadu(5, 5);
    EXPECT_EQ(m->Profily.size(), 1u);
    m->GenerujRadu(3, 8);
    EXPECT_EQ(m->Profily.size(), 6u);
    m->GenerujRadu(8, 3);
    EXPECT_TRUE(m->Profily.empty());
    EXPECT_THAT(Zprava([&] { m->GenerujRadu(26, 28); }), HasSubstr("Nelze přidat profil"));

    m->GenerujRadu(0, 2);
    int start = 1;
    EXPECT_EQ(m->PrvniVolneDN(start), 3);
    EXPECT_EQ(start, 3);
    m->GenerujRadu(0, 27);
    start = 0;
    EXPECT_EQ(m->PrvniVolneDN(start), -1);
}

TEST_F(SMaterialem, ChangingDn)
{
    m->PridejProfil(8);
    m->PridejProfil(9);
    CTogProfil* p = m->Profil(8);
    seznam.Ulozeno = true;
    EXPECT_FALSE(p->ZmenDN(8, true));
    EXPECT_TRUE(seznam.Ulozeno);
    EXPECT_FALSE(p->ZmenDN(9, true));
    ASSERT_TRUE(p->ZmenDN(10, true));
    EXPECT_EQ(m->Profil(10), p);
    EXPECT_EQ(m->Profil(8), nullptr);
    EXPECT_EQ(p->DnIndex, 10);
    EXPECT_EQ(p->Vnitrni, 80.0f);
    EXPECT_FALSE(seznam.Ulozeno);
}

TEST_F(SMaterialem, ParametersAndWhenLabelsAreRebuilt)
{
    m->PridejProfil(11);
    CTogProfil* p = m->Profil(11);
    p->Stena = 4.0f; // changed behind the model's back: the label is stale until a rebuild
    ParametryMaterialu par = m->Parametry();
    par.Drsnost = 0.5;
    m->NastavParametry(par);
    EXPECT_STREQ(p->Popisek, L"110x10.0");
    EXPECT_FLOAT_EQ(m->Drsnost, 0.5f);

    par.TypPopisu = kPopisJiny;
    par.Prefix = L"PE";
    m->NastavParametry(par);
    EXPECT_STREQ(p->Popisek, L"PE98");

    par.Drsnost = ParametryMaterialu::kDrsnostZTextu;
    par.DrsnostText = L"0,007";
    m->NastavParametry(par);
    EXPECT_FLOAT_EQ(m->Drsnost, 0.007f);

    par.Vyrobce = L"1234567890123456789012345";
    m->NastavParametry(par);
    EXPECT_EQ(m->Vyrobce, L"1234567890123456789012345");
    par.Vyrobce += L"6";
    EXPECT_THAT(Zprava([&] { m->NastavParametry(par); }), HasSubstr("Příliš dlouhý výrobce"));

    ParametryMaterialu jiny = m->Parametry();
    jiny.Nazev = L"PE 100";
    EXPECT_THAT(Zprava([&] { m->NastavParametry(jiny); }), HasSubstr("Jméno materiálu v předané struktuře nesouhlasí"));
    jiny = m->Parametry();
    jiny.SdrIndex = -1;
    EXPECT_THAT(Zprava([&] { m->NastavParametry(jiny); }), HasSubstr("SDR nebo PN nenalezeno v seznamu"));
    jiny.SdrIndex = 4; // the failed call kept what it had stored before its check
    jiny.Suffix = L"1234567";
    EXPECT_THAT(Zprava([&] { m->NastavParametry(jiny); }), HasSubstr("Chyba při kopírování řetězce v paměti"));
}

TEST_F(SMaterialem, NearestProfile)
{
    EXPECT_EQ(m->NajdiProfil(100.0), nullptr);
    m->PridejProfil(10); // OD 90
    m->PridejProfil(11); // OD 110
    EXPECT_EQ(m->NajdiProfil(105.0)->DnIndex, 11);
    EXPECT_EQ(m->NajdiProfil(100.0)->DnIndex, 10); // a tie goes to the smaller DN
    m->TypPopisu = kPopisDN;                      // by inner diameter now
    EXPECT_EQ(m->NajdiProfil(90.0)->DnIndex, 11);
}

TEST_F(SMaterialem, CopiesKeepEveryStoredField)
{
    m->Tvar = kTvarVejce;
    m->PridejProfil(21);
    CTogProfil* p = m->Profil(21);
    p->Sirka = 500;
    p->NastavUrsMaterial(L"831263121");
    p->NastavUrsMontaz(L"871373121");
    EXPECT_THAT(Zprava([&] { p->NastavUrsMontaz(L"1234567890"); }), HasSubstr("Chyba při kopírování řetězce"));

    CTogSezMaterialu kopie(seznam);
    CTogMaterial* k = kopie.NajdiMaterial(L"PE");
    ASSERT_NE(k, nullptr);
    EXPECT_EQ(k->Seznam, &kopie);
    EXPECT_EQ(k->Tvar, kTvarVejce);
    EXPECT_EQ(k->SdrIndex, 4);
    CTogProfil* kp = k->Profil(21);
    EXPECT_EQ(kp->Material, k);
    EXPECT_EQ(kp->Sirka, 500);
    EXPECT_STREQ(kp->UrsMaterial, L"831263121");
    EXPECT_STREQ(kp->UrsMontaz, L"871373121");
    EXPECT_TRUE(k->Shodny(*m));
}

TEST_F(SMaterialem, ComparingAndMerging)
{
    m->GenerujRadu(8, 10);
    CTogMaterial druhy(nullptr, L"PE");
    druhy.Popis = m->Popis;
    druhy.KopirujProfily(*m);
    EXPECT_TRUE(druhy.Shodny(*m));
    druhy.Profil(9)->Vnitrni += 0.0009f;
    EXPECT_TRUE(druhy.Shodny(*m));
    druhy.Profil(9)->Vnitrni += 0.01f;
    EXPECT_FALSE(druhy.Shodny(*m));
    druhy.PridejProfil(12);

    m->SlucProfily(druhy, false);
    EXPECT_EQ(m->Profily.size(), 4u);
    EXPECT_NE(m->Profil(9)->Vnitrni, druhy.Profil(9)->Vnitrni);
    m->SlucProfily(druhy, true);
    EXPECT_EQ(m->Profil(9)->Vnitrni, druhy.Profil(9)->Vnitrni);
}

TEST_F(SMaterialem, HoldersKeepAMaterialAndFollowItsCopy)
{
    CTogOdkaz<CTogMaterial> aktualni;
    aktualni = m;
    ASSERT_EQ(m->Odkazy.size(), 1u);
    EXPECT_FALSE(seznam.VymazMaterial(L"PE"));
    EXPECT_THAT(Zprava([&] { PridejOdkaz(m->Odkazy, &aktualni); }),
                HasSubstr("Předaný odkaz již existuje v seznamu odkazů"));

    // The editor's way: work on a copy, assign it back, re-aim the holders.
    CTogSezMaterialu pracovni(seznam);
    pracovni.NajdiMaterial(L"PE")->PridejProfil(3);
    seznam = pracovni;
    pracovni.VymazOdkazy();
    seznam.ZnovuZamerOdkazy();
    CTogMaterial* novy = seznam.NajdiMaterial(L"PE");
    EXPECT_EQ(aktualni.get(), novy);
    EXPECT_EQ(novy->Odkazy.size(), 1u);
    EXPECT_NE(novy->Profil(3), nullptr);

    // A holder re-assigned leaves the old list; a deleted target nulls its holders.
    seznam.Vloz(std::make_unique<CTogMaterial>(&seznam, L"PP"));
    aktualni = seznam.NajdiMaterial(L"PP");
    EXPECT_TRUE(novy->Odkazy.empty());
    seznam.Vymaz(false);
    EXPECT_EQ(aktualni.get(), nullptr);
}

TEST(Filtr, GroupAndMediaMustBothMatch)
{
    CTogMaterial bezMasek(nullptr, L"X", 0, 0); // zero masks take the defaults
    EXPECT_TRUE(ProjdeFiltrem(bezMasek, FiltrMaterialu(kSkupinaSite, kPouzitiTeplovody)));
    CTogMaterial m(nullptr, L"KG", kSkupinaSite, kPouzitiKanalizace);
    EXPECT_TRUE(ProjdeFiltrem(m, kFiltrVse));
    EXPECT_FALSE(ProjdeFiltrem(m, FiltrMaterialu(kSkupinaZTI, kPouzitiVse)));
    EXPECT_FALSE(ProjdeFiltrem(m, FiltrMaterialu(kSkupinyVse, kPouzitiVoda)));
    EXPECT_TRUE(ProjdeFiltrem(m, FiltrMaterialu(kSkupinaSite, kPouzitiKanalizace | kPouzitiVoda)));
}
