// The material editor: the checks of edited cells with the bounds of the neighbouring DN rows, its
// states and their commits, generated series, the URS codes, and OK that puts the copy in place.
#include <gmock/gmock.h>

#include "CTgDlgMatEdituj.h"
#include "CTgDlgMatVyber.h"
#include "KatalogNaDisku.h"
#include "TabulkyMaterialu.h"

using ::testing::HasSubstr;

namespace {

/// A profile of the row with the inner diameter and the wall.
struct Trubka {
    CTogSezMaterialu seznam;
    CTogMaterial* material;
    CTogProfil* profil;
    Trubka(int dn, float vnitrni, float stena)
    {
        material = seznam.Vloz(std::make_unique<CTogMaterial>(&seznam, L"T"));
        material->PnIndex = 0;
        material->SdrIndex = 0;
        material->PridejProfil(dn, &profil);
        profil->Vnitrni = vnitrni;
        profil->Stena = stena;
    }
};

} // namespace

TEST(BunkyEditoru, VnejsiPrumerPosuneStenuKMeziSousednihoDN)
{
    // DN 100 (row 11): an inner diameter under 0.9 x 80 is moved up to 80 by the wall.
    Trubka t(11, 100.0f, 5.0f);
    EXPECT_EQ(CTgDlgMatEdituj::ZkontrolujBunku(*t.profil, CTgDlgMatEdituj::kOD, 82.0), L"");
    EXPECT_FLOAT_EQ(t.profil->Vnitrni, 80.0f);
    EXPECT_FLOAT_EQ(t.profil->Stena, 1.0f);
    // Within the bounds the wall stays.
    Trubka u(11, 100.0f, 5.0f);
    EXPECT_EQ(CTgDlgMatEdituj::ZkontrolujBunku(*u.profil, CTgDlgMatEdituj::kOD, 112.0), L"");
    EXPECT_FLOAT_EQ(u.profil->Stena, 5.0f);
    EXPECT_FLOAT_EQ(u.profil->Vnitrni, 102.0f);
    EXPECT_STREQ(u.profil->Popisek, L"112x5.0") << "the label follows";
}

TEST(BunkyEditoru, StenaAVnitrniPrumerHlidajiDiruAMeze)
{
    Trubka t(11, 100.0f, 5.0f); // OD 110
    EXPECT_EQ(CTgDlgMatEdituj::ZkontrolujBunku(*t.profil, CTgDlgMatEdituj::kStena, 55.0),
              L"OD - 2x stěna je menší než 0, trubka nemá díru");
    EXPECT_FLOAT_EQ(t.profil->Stena, 5.0f) << "a refused value changes nothing";
    // A wall that leaves the hole under the previous row's DN moves the outer diameter.
    EXPECT_EQ(CTgDlgMatEdituj::ZkontrolujBunku(*t.profil, CTgDlgMatEdituj::kStena, 20.0), L"");
    EXPECT_FLOAT_EQ(t.profil->Vnitrni, 80.0f);
    EXPECT_FLOAT_EQ(t.profil->Vnejsi(), 120.0f);

    Trubka u(11, 100.0f, 5.0f);
    EXPECT_EQ(CTgDlgMatEdituj::ZkontrolujBunku(*u.profil, CTgDlgMatEdituj::kID, 70.0),
              L"Zadaný průměr neodpovídá zadanému DN, nejprve změňte DN");
    EXPECT_EQ(CTgDlgMatEdituj::ZkontrolujBunku(*u.profil, CTgDlgMatEdituj::kID, 96.0), L"");
    EXPECT_FLOAT_EQ(u.profil->Stena, 7.0f) << "the outer diameter stays";
}

TEST(BunkyEditoru, KrajniRadkyNemajiMeze)
{
    for (int dn : {0, 1, 27}) {
        Trubka t(dn, 20.0f, 2.0f);
        EXPECT_EQ(CTgDlgMatEdituj::ZkontrolujBunku(*t.profil, CTgDlgMatEdituj::kID, 3.0), L"") << dn;
        EXPECT_FLOAT_EQ(t.profil->Vnitrni, 3.0f);
    }
    // The commit of an outer diameter takes its whole number.
    Trubka t(5, 20.0f, 2.0f);
    CTgDlgMatEdituj::PrevezmiBunku(*t.profil, CTgDlgMatEdituj::kOD, 32.7);
    EXPECT_FLOAT_EQ(t.profil->Vnejsi(), 32.0f);
}

using Editor = KatalogNaDisku;

TEST_F(Editor, NovyMaterialRadaABunkaAzPoOkVSeznamu)
{
    Spust("click 11066\nset 11084 PE 100\nselect 11073 3\nselect 11074 4\nclick 11082\n"
          "click 11085\nselect 11057 5\nselect 11045 5\nok\n"
          "edit 4100 0 1 33\nset 11081 M1\nset 11072 A1\nok\n",
          {{L"Ocel", 1}});
    CTogSezMaterialu& katalog = g_pNastaveni->Katalog();
    CTgDlgMatEdituj dlg(&katalog, kFiltrVse, nullptr);
    EXPECT_EQ(katalog.NajdiMaterial(L"PE 100"), nullptr) << "the editor works on a copy";
    ASSERT_EQ(dlg.DoModal(), IDOK) << Text();
    CTogMaterial* pe = katalog.NajdiMaterial(L"PE 100");
    ASSERT_NE(pe, nullptr) << Text();
    EXPECT_EQ(pe->Popis, L"PE 100") << "an empty description takes the name";
    ASSERT_EQ(pe->Profily.size(), 1u) << "DN 25 to DN 25";
    const CTogProfil& p = *pe->Profily.at(5);
    EXPECT_FLOAT_EQ(p.Vnejsi(), 33.0f);
    EXPECT_STREQ(p.UrsMontaz, L"M1");
    EXPECT_STREQ(p.UrsMaterial, L"A1");
    EXPECT_EQ(dlg.m_material, pe) << "the selection is looked up in the real list";
    // Saved on OK.
    CTogSezMaterialu znovu;
    ASSERT_TRUE(znovu.Nacti(false));
    EXPECT_NE(znovu.NajdiMaterial(L"PE 100"), nullptr);
}

TEST_F(Editor, StejnyNazevZustaneVUpravachAEscVratiHodnoty)
{
    Spust("click 11066\nset 11084 Ocel\nselect 11073 1\nselect 11074 1\nclick 11082\nclick 11083\n"
          "click 11067\nset 11070 Někdo\n^C\ncancel\n",
          {{L"Ocel", 1}});
    CTogSezMaterialu& katalog = g_pNastaveni->Katalog();
    CTgDlgMatEdituj dlg(&katalog, kFiltrVse, nullptr);
    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_THAT(Text(), HasSubstr("Tento název již existuje u jiného materiálu, možná jen není zobrazen\n(přepněte filtry)"));
    // Esc in state 3 shows the stored values again.
    const size_t esc = Zaznam().rfind(L": ^C");
    ASSERT_NE(esc, std::wstring::npos);
    EXPECT_NE(Zaznam().find(L"11070 pole [] [zakázáno]", esc), std::wstring::npos) << Text();
    EXPECT_EQ(katalog.NajdiMaterial(L"Ocel")->Vyrobce, L"");
}

TEST_F(Editor, KodyURSDvouProfiluZustanouOddelene)
{
    Spust("set 11081 M15\nset 11072 A15\ncell 4100 1 0\nset 11081 M20\ncell 4100 0 0\nok\n", {{L"Ocel", 1}});
    CTogSezMaterialu& katalog = g_pNastaveni->Katalog();
    CTgDlgMatEdituj dlg(&katalog, kFiltrVse, katalog.NajdiMaterial(L"Ocel"));
    ASSERT_EQ(dlg.DoModal(), IDOK);
    const CTogMaterial* m = katalog.NajdiMaterial(L"Ocel");
    EXPECT_STREQ(m->Profily.at(3)->UrsMontaz, L"M15");
    EXPECT_STREQ(m->Profily.at(3)->UrsMaterial, L"A15");
    EXPECT_STREQ(m->Profily.at(4)->UrsMontaz, L"M20");
    EXPECT_STREQ(m->Profily.at(4)->UrsMaterial, L"");
}

TEST_F(Editor, AktualniMaterialZustaneZamirenyNaKatalog)
{
    Spust("click 11064\nok\n", {{L"PPR3, PN 16", 1}});
    CTogMaterial* aktualni = g_pNastaveni->AktualniMaterial();
    ASSERT_NE(aktualni, nullptr);
    g_pNastaveni->EditujMaterialy();
    // The current material could not be deleted; after OK the link points into the new list.
    CTogMaterial* po = g_pNastaveni->AktualniMaterial();
    ASSERT_NE(po, nullptr);
    EXPECT_EQ(po, g_pNastaveni->Katalog().NajdiMaterial(L"PPR3, PN 16"));
    EXPECT_EQ(po->Odkazy.size(), 1u);
}

using Vyber = KatalogNaDisku;

TEST_F(Vyber, SeznamPodleAbecedyFiltrADvojklik)
{
    Spust("click 11031\ndblclick 11063 1\n", {{L"čedič", 2}, {L"Cu", 1}, {L"chrom", 2}, {L"beton", 3}});
    CTogSezMaterialu& katalog = g_pNastaveni->Katalog();
    CTgDlgMatVyber dlg(&katalog, kFiltrVse, nullptr, false);
    ASSERT_EQ(dlg.DoModal(), IDOK);
    // Czech order: c, č, h, ch; the filter "Inženýrské sítě" leaves Cu out.
    EXPECT_THAT(Text(), HasSubstr("    0 >beton |  | \n    1  Cu |  | \n    2  čedič |  | \n    3  chrom |  | \n"));
    EXPECT_THAT(Text(), HasSubstr("    0 >beton |  | \n    1  čedič |  | \n    2  chrom |  | \n"));
    ASSERT_NE(dlg.m_material, nullptr);
    EXPECT_EQ(dlg.m_material->Nazev, L"čedič");
}

TEST_F(Vyber, ProfilJeTrebaVybratAOkBezMaterialuNepusti)
{
    Spust("dblclick 11063 1\nok\ndblclick 4100 2\nclick 11022\nok\nok\ncancel\n", {{L"Ocel", 1}, {L"PE", 2}});
    CTogSezMaterialu& katalog = g_pNastaveni->Katalog();
    CTgDlgMatVyber profil(&katalog, kFiltrVse, katalog.NajdiMaterial(L"PE"), true);
    ASSERT_EQ(profil.DoModal(), IDOK) << Text();
    EXPECT_THAT(Text(), HasSubstr("Je třeba vybrat profil z vedlejšího seznamu"));
    ASSERT_NE(profil.m_profil, nullptr);
    EXPECT_EQ(profil.m_profil->DnIndex, 5);
    EXPECT_EQ(profil.m_material->Nazev, L"PE");
    // A filter that no material passes: OK finds nothing selected.
    CTgDlgMatVyber prazdny(&katalog, kFiltrVse, nullptr, false);
    for (auto& [n, m] : katalog.Materialy)
        m->Pouziti = 1;
    EXPECT_EQ(prazdny.DoModal(), IDCANCEL);
    EXPECT_THAT(Text(), HasSubstr("Není vybrána žádný materiál"));
}

TEST_F(Editor, NacteniSouboruPridaMaterialyAPoskozenySouborOhlasi)
{
    namespace fs = std::filesystem;
    const fs::path jiny = m_koren / "jiny.tgp";
    {
        // A catalogue of its own, and a copy of it cut short.
        CTogSezMaterialu seznam;
        CTogMaterial* m = seznam.Vloz(std::make_unique<CTogMaterial>(&seznam, L"Kamenina"));
        m->PnIndex = 0;
        m->SdrIndex = 0;
        m->GenerujRadu(10, 12);
        CFile f(sim::fromUtf8(jiny.string()).c_str(), CFile::modeCreate | CFile::modeWrite);
        CArchive ar(&f, CArchive::store);
        seznam.Serialize(ar);
        ar.Close();
        f.Close();
    }
    fs::copy_file(jiny, m_koren / "kratky.tgp");
    fs::resize_file(m_koren / "kratky.tgp", fs::file_size(jiny) - 10);
    const std::string skript = "click 11058\n" + jiny.string() + "\nyes\nclick 11058\n" + (m_koren / "kratky.tgp").string() +
                               "\nno\nok\nok\n";
    Spust(skript, {{L"Ocel", 1}});
    CTogSezMaterialu& katalog = g_pNastaveni->Katalog();
    CTgDlgMatEdituj dlg(&katalog, kFiltrVse, nullptr);
    ASSERT_EQ(dlg.DoModal(), IDOK) << Text();
    EXPECT_THAT(Text(), HasSubstr("Chyba při čtení ze souboru"));
    // Yes cleared the list before the first file; the damaged one leaves the list as it was.
    EXPECT_EQ(katalog.NajdiMaterial(L"Ocel"), nullptr);
    const CTogMaterial* kamenina = katalog.NajdiMaterial(L"Kamenina");
    ASSERT_NE(kamenina, nullptr) << Text();
    EXPECT_EQ(kamenina->Profily.size(), 3u);
}
