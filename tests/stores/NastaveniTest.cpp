// The settings object and the load and unload steps that make and destroy it: defaults of an empty
// registry, values stored by an earlier run, one instance only, remembered answers, the first-run
// question.
#include <string>

#include "CTogBaseNastav.h"
#include "CTogException.h"
#include "CTogRegistry.h"
#include "SystemSRegistrem.h"
#include "sim/app/CommandStack.h"
#include "accmd.h"

namespace {

const std::wstring kNastaveni = L"HKEY_CURRENT_USER\\Software\\Togvarnik\\Togovy Utility\\Nastaveni";
const std::wstring kSpolecny = L"HKEY_CURRENT_USER\\Software\\Togvarnik\\Common";
const std::wstring kOtazka = L"[Togovy Utility pro AutoCad] První spuštění - není nastavena např. předpona pro "
                             L"hladiny\nSpustit dialog nastavení Utilit?";

} // namespace

using Nastaveni = SystemSRegistrem;

TEST_F(Nastaveni, EmptyRegistryGivesTheDefaultsAndUnloadStoresThem)
{
    Spust();
    {
        CTogBaseNastav nastaveni;
        EXPECT_EQ(nastaveni.Glob_prepinace, 344u);
        EXPECT_EQ(nastaveni.NASTAVENO, 0);
        EXPECT_EQ(nastaveni.Predpony().globalni, L"TU");
        for (std::uint32_t bit : {8u, 16u, 64u, 256u})
            EXPECT_TRUE(nastaveni.Prepinac(bit)) << bit;
        for (std::uint32_t bit : {1u, 2u, 4u, 32u, 128u})
            EXPECT_FALSE(nastaveni.Prepinac(bit)) << bit;
        nastaveni.Predpony().globalni = L"KAN";
    }
    auto prepinace = m_registr.value(kNastaveni, L"Glob_prepinace");
    ASSERT_TRUE(prepinace);
    EXPECT_EQ(prepinace->type, static_cast<std::uint32_t>(REG_BINARY));
    EXPECT_EQ(prepinace->data, (std::vector<std::uint8_t>{0x58, 0x01}));
    auto nastaveno = m_registr.value(kNastaveni, L"NASTAVENO");
    ASSERT_TRUE(nastaveno);
    EXPECT_EQ(nastaveno->data, (std::vector<std::uint8_t>{0}));
    AcString predpona;
    EXPECT_TRUE(CTogRegistry::NactiRetezec(HKEY_CURRENT_USER, CTogRegistry::kKlicSpolecny, L"PREDPONA", predpona));
    EXPECT_EQ(predpona, L"KAN");
}

TEST_F(Nastaveni, StoredValuesReplaceTheDefaults)
{
    Spust();
    CTogRegistry::UlozGlobPrepinace(0);
    CTogRegistry::UlozNastaveno(1);
    {
        CTogBaseNastav nastaveni;
        EXPECT_EQ(nastaveni.Glob_prepinace, 0u) << "a stored 0 turns every switch off";
        EXPECT_EQ(nastaveni.NASTAVENO, 1);
    }
    // The word is 16 bits, sign-extended, and its low 16 bits are stored again.
    CTogRegistry::UlozGlobPrepinace(static_cast<Adesk::Int16>(0x8001));
    {
        CTogBaseNastav nastaveni;
        EXPECT_EQ(nastaveni.Glob_prepinace, 0xFFFF8001u);
        EXPECT_TRUE(nastaveni.Prepinac(kVicenasobnyVyber));
    }
    EXPECT_EQ(m_registr.value(kNastaveni, L"Glob_prepinace")->data, (std::vector<std::uint8_t>{0x01, 0x80}));
}

TEST_F(Nastaveni, OnlyOneInstanceAtATime)
{
    Spust();
    auto prvni = std::make_unique<CTogBaseNastav>();
    prvni->Glob_prepinace = 3;
    try {
        CTogBaseNastav druhy;
        FAIL() << "a second instance was made";
    } catch (const CTogException& e) {
        EXPECT_EQ(std::string(e.what()).rfind("CTogBaseNastav: Pouze jedna instance třídy je povolena.\n", 0), 0u)
            << e.what();
    }
    // The refused one stored nothing over the first one's values.
    EXPECT_FALSE(m_registr.value(kNastaveni, L"Glob_prepinace"));
    prvni.reset();
    EXPECT_EQ(m_registr.value(kNastaveni, L"Glob_prepinace")->data, (std::vector<std::uint8_t>{3, 0}));
    EXPECT_NO_THROW(CTogBaseNastav());
}

TEST_F(Nastaveni, AnAnsweredQuestionIsNotAskedAgain)
{
    Spust();
    CTogBaseNastav nastaveni;
    EXPECT_TRUE(nastaveni.JeZodpovezeno(kOtazkaMaterial));
    nastaveni.ZapamatujOdpoved(kOtazkaMaterial, 0);
    EXPECT_FALSE(nastaveni.JeZodpovezeno(kOtazkaMaterial)) << "the presence of the key decides, not its value";
    nastaveni.ZapamatujOdpoved(kOtazkaMaterial, 5);
    EXPECT_FALSE(nastaveni.JeZodpovezeno(kOtazkaMaterial));
    EXPECT_TRUE(nastaveni.JeZodpovezeno(kOtazkaOdemknoutHladinu));
}

TEST_F(Nastaveni, LoadWithAnEmptyRegistryAsksAfterTheBanner)
{
    Spust("no\n");
    ASSERT_NE(Nacti(), nullptr);
    ASSERT_NE(g_pNastaveni, nullptr);
    size_t banner = Zaznam().find(L"načten soubor: ");
    size_t otazka = Zaznam().find(kOtazka);
    ASSERT_NE(otazka, std::wstring::npos) << sim::toUtf8(Zaznam());
    EXPECT_LT(banner, otazka);
    EXPECT_EQ(Zaznam().find(L"110 pole ["), std::wstring::npos) << "No opens no dialog";
    EXPECT_FALSE(m_session->waitingPrompt().has_value());

    ASSERT_TRUE(sim::app::dynamicLinker().unload(*m_aplikace));
    EXPECT_EQ(g_pNastaveni, nullptr);
    // No, and the question comes at the next load again.
    EXPECT_EQ(m_registr.value(kNastaveni, L"NASTAVENO")->data, (std::vector<std::uint8_t>{0}));
}

TEST_F(Nastaveni, YesOpensTheSettingsDialog)
{
    Spust("yes\n");
    ASSERT_NE(Nacti(), nullptr);
    size_t otazka = Zaznam().find(kOtazka);
    ASSERT_NE(otazka, std::wstring::npos);
    EXPECT_NE(Zaznam().find(L"110 pole [TU]", otazka), std::wstring::npos) << sim::toUtf8(Zaznam());
    EXPECT_EQ(g_pNastaveni->NASTAVENO, 0) << "the dialog wasn't confirmed";
}

TEST_F(Nastaveni, NoQuestionOnceTheSettingsWereMade)
{
    CTogRegistry::UlozNastaveno(1);
    Spust();
    ASSERT_NE(Nacti(), nullptr);
    EXPECT_EQ(Zaznam().find(L"První spuštění"), std::wstring::npos) << sim::toUtf8(Zaznam());
    EXPECT_FALSE(m_session->waitingPrompt().has_value());
}

TEST_F(Nastaveni, TusetRunsTheSettingsDialog)
{
    CTogRegistry::UlozNastaveno(1);
    Spust();
    ASSERT_NE(Nacti(), nullptr);
    std::wstring pred = Zaznam();
    sim::app::commandStack().lookupGlobalCmd(L"tuset")->functionAddr()();
    const std::wstring dialog = Zaznam().substr(pred.size());
    EXPECT_NE(dialog.find(L"110 pole [TU]"), std::wstring::npos) << sim::toUtf8(dialog);
    EXPECT_NE(dialog.find(L"ukončen: Storno"), std::wstring::npos) << "the script ran out";
}

TEST_F(Nastaveni, ASecondLoadIsRefusedAndTheFirstSettingsStay)
{
    CTogRegistry::UlozNastaveno(1);
    Spust("ok\n");
    ASSERT_NE(Nacti(), nullptr);
    CTogBaseNastav* prvni = g_pNastaveni;
    prvni->Glob_prepinace = 5;
    std::wstring pred = Zaznam();
    EXPECT_EQ(acrxEntryPoint(AcRx::kInitAppMsg, nullptr), AcRx::kRetOK);
    std::wstring vypis = Zaznam().substr(pred.size());
    EXPECT_NE(vypis.find(L"[Program vyvolal výjimku] CTogBaseNastav: Pouze jedna instance třídy je povolena."),
              std::wstring::npos)
        << sim::toUtf8(vypis);
    EXPECT_EQ(vypis.find(L"Úspěšně načteny"), std::wstring::npos) << "the load stopped at the settings object";
    EXPECT_EQ(g_pNastaveni, prvni);
    EXPECT_EQ(g_pNastaveni->Glob_prepinace, 5u);
}
