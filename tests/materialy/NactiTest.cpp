// Which catalogue file is read and written, with the messages a user sees: missing files and their
// fallbacks, damaged files, and the warning about bad values with its remembered answer.
#include <gmock/gmock.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include <htmlhelp.h>

#include "Bajty.h"
#include "SourceDir.h"
#include "CTogBaseNastav.h"
#include "CTogRegistry.h"
#include "CTogSezMaterialu.h"
#include "sim/core/Session.h"
#include "stores/SystemSRegistrem.h"

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

/// "PE" with DN 15 whose inner diameter is 0 and DN 20 whose wall is 0.
Bajty SpatneHodnoty()
{
    Stavitel s;
    s.u8(3).u8(5).u8(1).u8(0).ukonceny(L"").ukonceny(L"").wide(L"PE").wide(L"").wide(L"");
    s.f32(0.01f).i16(4).i16(1).i16(3).i16(4).u8(0);
    s.u8(7).i16(3).f32(0.0f).f32(2.0f).i32(0).ukonceny(L"").ukonceny(L"");
    s.u8(7).i16(4).f32(20.0f).f32(0.0f).i32(0).ukonceny(L"").ukonceny(L"");
    s.u8(0xFF).u8(0xFF);
    return s.b;
}

Bajty JedenMaterial(const std::wstring& nazev)
{
    CTogSezMaterialu s;
    s.Vloz(std::make_unique<CTogMaterial>(&s, nazev.c_str()))->PridejProfil(5);
    return Uloz(s);
}

class Katalog : public SystemSRegistrem {
protected:
    void SetUp() override
    {
        m_koren = fs::temp_directory_path() / ("togu-katalog-" + std::to_string(::getpid()));
        fs::remove_all(m_koren);
        fs::create_directories(m_koren / "inst" / "Materialy");
        fs::create_directories(m_koren / "data");
        CTogRegistry::UlozRetezec(CTogRegistry::kKlicVyrobce, L"CommonInstallPath",
                                  sim::fromUtf8((m_koren / "inst").string()).c_str());
        CTogRegistry::UlozRetezec(CTogRegistry::kKlicVyrobce, L"CommonDataPath",
                                  sim::fromUtf8((m_koren / "data").string()).c_str());
    }
    void TearDown() override
    {
        SystemSRegistrem::TearDown();
        fs::remove_all(m_koren);
    }
    void Zapis(const fs::path& soubor, const Bajty& b)
    {
        fs::create_directories(soubor.parent_path());
        std::ofstream(soubor, std::ios::binary).write(reinterpret_cast<const char*>(b.data()),
                                                      static_cast<std::streamsize>(b.size()));
    }
    std::string Text() const { return sim::toUtf8(Zaznam()); }
    fs::path Standard() const { return m_koren / "inst" / "Materialy" / "Potrubi_std_2026.tgp"; }
    fs::path Uzivatel() const { return m_koren / "data" / "Materialy" / "Potrubi_2026.tgp"; }

    fs::path m_koren;
};

} // namespace

TEST_F(Katalog, MissingStandardFileAsksForAReinstall)
{
    Spust("ok\n");
    CTogSezMaterialu seznam;
    EXPECT_FALSE(seznam.Nacti(true));
    EXPECT_THAT(Text(), HasSubstr("Nelze otevřít soubor:\n" + m_koren.string()));
    EXPECT_THAT(Text(), HasSubstr("Potrubi_std_2026.tgp\n\nDoporučujeme přeinstalovat programTogovy Utility"));
}

TEST_F(Katalog, StandardFileCountsAsChangedSoTheNextSaveWritesTheUsersFile)
{
    Spust();
    Zapis(Standard(), JedenMaterial(L"Std"));
    CTogSezMaterialu seznam;
    ASSERT_TRUE(seznam.Nacti(true));
    EXPECT_FALSE(seznam.Ulozeno);
    EXPECT_EQ(seznam.NajdiMaterial(L"Std")->Poradi, -2);
    ASSERT_TRUE(seznam.Uloz());
    EXPECT_TRUE(seznam.Ulozeno);
    EXPECT_TRUE(fs::exists(Uzivatel()));
    EXPECT_EQ(fs::file_size(Uzivatel()), fs::file_size(Standard()));
}

TEST_F(Katalog, OldUserFileIsReadAndTheNewNameWritten)
{
    Spust();
    Zapis(m_koren / "data" / "Materialy" / "Potrubi.tgp", JedenMaterial(L"Stary"));
    CTogSezMaterialu seznam;
    ASSERT_TRUE(seznam.Nacti(false));
    EXPECT_TRUE(seznam.Ulozeno);
    ASSERT_NE(seznam.NajdiMaterial(L"Stary"), nullptr);
    seznam.Ulozeno = false;
    ASSERT_TRUE(seznam.Uloz());
    EXPECT_TRUE(fs::exists(Uzivatel()));
    EXPECT_TRUE(fs::exists(m_koren / "data" / "Materialy" / "Potrubi.tgp"));
}

TEST_F(Katalog, NoUserFileLoadsTheStandardOneWithAWarningAndSavesIt)
{
    Spust("ok\n");
    Zapis(Standard(), JedenMaterial(L"Std"));
    CTogSezMaterialu seznam;
    ASSERT_TRUE(seznam.Nacti(false));
    EXPECT_THAT(Text(), HasSubstr("Potrubi_2026.tgp\nBude načten standardní soubor"));
    EXPECT_TRUE(fs::exists(Uzivatel()));
    EXPECT_TRUE(seznam.Ulozeno);
}

TEST_F(Katalog, EmptyListWritesNoFile)
{
    Spust();
    CTogSezMaterialu seznam;
    EXPECT_TRUE(seznam.Uloz());
    EXPECT_FALSE(fs::exists(Uzivatel()));
}

TEST_F(Katalog, DamagedFilesFailWithTheMessageAndKeepTheList)
{
    Bajty cely = JedenMaterial(L"Novy");
    Bajty kratky(cely.begin(), cely.end() - 3);
    Bajty lzivy = cely;
    lzivy[11] = 0xFF; // the name's length: FF, then the first unit read as a WORD length
    Bajty verze4 = cely;
    verze4[0] = 4;
    struct Pripad {
        Bajty bajty;
        std::string zprava;
    };
    const Pripad pripady[] = {
        {kratky, "[Neočekávaná výjimka] Chyba při čtení ze souboru"},
        {lzivy, "[Neočekávaná výjimka] Chyba při čtení ze souboru"},
        {verze4, "[Program vyvolal výjimku] Nelze načíst, soubor byl uložen vyšší verzí programu, aktualizujte program"},
    };
    for (const Pripad& p : pripady) {
        m_session.reset(); // one session at a time
        Spust("ok\n");
        Zapis(Uzivatel(), p.bajty);
        CTogSezMaterialu seznam;
        seznam.Vloz(std::make_unique<CTogMaterial>(&seznam, L"Byl"));
        EXPECT_FALSE(seznam.Nacti(false));
        EXPECT_THAT(Text(), HasSubstr(p.zprava));
        EXPECT_NE(seznam.NajdiMaterial(L"Byl"), nullptr);
        EXPECT_EQ(seznam.NajdiMaterial(L"Novy"), nullptr);
    }
}

TEST_F(Katalog, BadValuesAreReplacedWithAWarningThatCanBeSilenced)
{
    Spust("Ok +tick\n");
    CTogBaseNastav nastaveni;
    g_pNastaveni = &nastaveni;
    Zapis(Uzivatel(), SpatneHodnoty());
    CTogSezMaterialu seznam;
    ASSERT_TRUE(seznam.Nacti(false));
    CTogMaterial* m = seznam.NajdiMaterial(L"PE");
    EXPECT_EQ(m->Profil(3)->Vnitrni, 15.0f);
    EXPECT_EQ(m->Profil(4)->Stena, 0.0f); // a wall of 0 is a value, not a fault
    EXPECT_THAT(Text(), HasSubstr("[Togovy Utility pro AutoCad] Nalezena chybná hodnota při načítání materiálu\n"
                                  "U materiálu PE byly načteny chybné hodnoty u profilu DN DN 15, \nbudou nastaveny"));
    EXPECT_FALSE(nastaveni.JeZodpovezeno(kOtazkaMaterial));

    // Remembered until the next read, which forgets the answer first and asks again.
    seznam.Vymaz(false);
    m_session.reset(); // one session at a time
    m_session = std::make_unique<sim::Session>(std::make_unique<sim::ScriptInput>("Ok\n"));
    ASSERT_TRUE(seznam.Nacti(false));
    EXPECT_THAT(Text(), HasSubstr("Nalezena chybná hodnota"));
    g_pNastaveni = nullptr;
}

TEST_F(Katalog, HelpViewerShowsTheFileAndTheContext)
{
    Spust();
    HtmlHelpW(nullptr, L"c:\\Program Files\\Togvarnik\\Common\\Materialy\\Materiály - help.chm", HH_HELP_CONTEXT, 5);
    EXPECT_THAT(Text(), HasSubstr("[Nápověda] c:\\Program Files\\Togvarnik\\Common\\Materialy\\Materiály - help.chm, "
                                  "kontext 5"));
}

TEST_F(Katalog, TheShippedStandardCatalogueReadsWithoutAWord)
{
    Spust();
    CTogRegistry::UlozRetezec(CTogRegistry::kKlicVyrobce, L"CommonInstallPath",
                              sim::fromUtf8(toguSourceDir() + "/data").c_str());
    CTogSezMaterialu seznam;
    ASSERT_TRUE(seznam.Nacti(true));
    EXPECT_EQ(Text(), "");
    CTogMaterial* ppr = seznam.NajdiMaterial(L"PPR3, PN 16");
    ASSERT_NE(ppr, nullptr);
    EXPECT_TRUE(ProjdeFiltrem(*ppr, FiltrMaterialu(kSkupinaZTI, kPouzitiVoda)));
    EXPECT_STREQ(ppr->Profil(4)->Popisek, L"25x3.5");
    EXPECT_EQ(seznam.NajdiMaterial(L"PE 100, SDR 11")->NajdiProfil(63.0)->DnIndex, 8);
    EXPECT_EQ(seznam.NajdiMaterial(L"Beton vejčitý")->Tvar, kTvarVejce);
    for (const auto& [nazev, m] : seznam.Materialy) {
        EXPECT_FALSE(m->Profily.empty()) << sim::toUtf8(nazev);
        EXPECT_NE(m->PnIndex, -1) << sim::toUtf8(nazev);
        EXPECT_NE(m->SdrIndex, -1) << sim::toUtf8(nazev);
    }
}
