// The registry store on the platform's .reg files: value kinds and lengths, the machine file before
// the user's, path values with and without their backslash, long strings, keys made on write.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>

#include "CTogException.h"
#include "CTogRegistry.h"
#include "sim/core/Session.h"
#include "sim/win32/Registry.h"

namespace fs = std::filesystem;
using sim::win32::Registry;

namespace {

const std::wstring kUzivatel = L"HKEY_CURRENT_USER\\Software\\Togvarnik\\";
const std::wstring kStroj = L"HKEY_LOCAL_MACHINE\\Software\\Togvarnik\\";

class Registr : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_slozka = fs::temp_directory_path() / ("togu-stores-" + std::to_string(::getpid()) + "-" +
                                                ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(m_slozka);
        fs::create_directories(m_slozka);
        m_registr = Registry::open(m_slozka);
    }
    void TearDown() override
    {
        m_registr.reset();
        fs::remove_all(m_slozka);
    }

    /// Sets text values in the machine file (its HKEY_CURRENT_USER keys are the user's defaults).
    void Stroj(const std::vector<sim::win32::MachineValue>& hodnoty)
    {
        sim::win32::writeMachineFile(m_slozka, hodnoty);
        m_registr->reload();
    }

    /// Stores a raw value in the user's key, as another program would.
    void Uzivatel(const std::wstring& klic, const wchar_t* nazev, DWORD typ, const void* data, DWORD velikost)
    {
        HKEY h = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, klic.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &h, nullptr),
                  ERROR_SUCCESS);
        ASSERT_EQ(RegSetValueExW(h, nazev, 0, typ, static_cast<const BYTE*>(data), velikost), ERROR_SUCCESS);
        RegCloseKey(h);
    }

    std::string Zprava(const std::function<void()>& akce)
    {
        try {
            akce();
        } catch (const CTogException& e) {
            return e.what();
        }
        return "(no exception)";
    }

    fs::path m_slozka;
    std::unique_ptr<Registry> m_registr;
};

const wchar_t* const kNastaveni = L"Software\\Togvarnik\\Togovy Utility\\Nastaveni";

} // namespace

TEST_F(Registr, BinaryValuesKeepTheirKindAndLength)
{
    ASSERT_TRUE(CTogRegistry::UlozGlobPrepinace(static_cast<Adesk::Int16>(0x8158)));
    ASSERT_TRUE(CTogRegistry::UlozNastaveno(1));
    ASSERT_TRUE(CTogRegistry::UlozCurMatDrsnost(0.0015));
    ASSERT_TRUE(CTogRegistry::UlozCurMatPop(-7));

    auto hodnota = m_registr->value(kUzivatel + L"Togovy Utility\\Nastaveni", L"Glob_prepinace");
    ASSERT_TRUE(hodnota);
    EXPECT_EQ(hodnota->type, static_cast<std::uint32_t>(REG_BINARY));
    EXPECT_EQ(hodnota->data, (std::vector<std::uint8_t>{0x58, 0x81}));
    EXPECT_EQ(m_registr->value(kUzivatel + L"Togovy Utility\\Nastaveni", L"NASTAVENO")->data.size(), 1u);
    EXPECT_EQ(m_registr->value(kUzivatel + L"Togovy Utility\\Nastaveni", L"CurMatDrsnost")->data.size(), 8u);

    Adesk::Int16 prepinace = 0;
    Adesk::UInt8 nastaveno = 0;
    double drsnost = 0;
    Adesk::Int32 pop = 0;
    EXPECT_TRUE(CTogRegistry::NactiGlobPrepinace(prepinace));
    EXPECT_TRUE(CTogRegistry::NactiNastaveno(nastaveno));
    EXPECT_TRUE(CTogRegistry::NactiCurMatDrsnost(drsnost));
    EXPECT_TRUE(CTogRegistry::NactiCurMatPop(pop));
    EXPECT_EQ(prepinace, static_cast<Adesk::Int16>(0x8158));
    EXPECT_EQ(nastaveno, 1);
    EXPECT_EQ(drsnost, 0.0015);
    EXPECT_EQ(pop, -7);
}

TEST_F(Registr, AValueOfAnotherKindOrLengthLeavesTheVariableAlone)
{
    DWORD dword = 5;
    Uzivatel(kNastaveni, L"CurMatPop", REG_DWORD, &dword, sizeof(dword));
    Adesk::Int32 pop = 42;
    EXPECT_FALSE(CTogRegistry::NactiCurMatPop(pop)) << "REG_DWORD is not the store's kind";
    EXPECT_EQ(pop, 42);

    // Stored longer than the variable.
    double dlouha = 1.5;
    Uzivatel(kNastaveni, L"Glob_prepinace", REG_BINARY, &dlouha, sizeof(dlouha));
    Adesk::Int16 prepinace = 344;
    EXPECT_FALSE(CTogRegistry::NactiGlobPrepinace(prepinace));
    EXPECT_EQ(prepinace, 344);

    const wchar_t text[] = L"x";
    Uzivatel(kNastaveni, L"NASTAVENO", REG_SZ, text, sizeof(text));
    Adesk::UInt8 nastaveno = 0;
    EXPECT_FALSE(CTogRegistry::NactiNastaveno(nastaveno));

    // Missing value and missing key.
    EXPECT_FALSE(CTogRegistry::NactiCurMatDrsnost(dlouha));
    Adesk::Int32 nic = 3;
    EXPECT_FALSE(CTogRegistry::NactiHodnotu(L"Presah", L"NeniTakovaSkupina", nic));
    EXPECT_EQ(nic, 3);
}

TEST_F(Registr, SavingToANewGroupMakesItsKey)
{
    ASSERT_FALSE(m_registr->keyExists(kUzivatel + L"Togovy Utility\\DlgRamecek"));
    EXPECT_TRUE(CTogRegistry::UlozHodnotu(L"Presah", L"DlgRamecek", Adesk::Int32(12)));
    EXPECT_TRUE(m_registr->keyExists(kUzivatel + L"Togovy Utility\\DlgRamecek"));
    Adesk::Int32 presah = 0;
    EXPECT_TRUE(CTogRegistry::NactiHodnotu(L"Presah", L"DlgRamecek", presah));
    EXPECT_EQ(presah, 12);
    // And it survives a reopening of the files.
    m_registr.reset();
    m_registr = Registry::open(m_slozka);
    presah = 0;
    EXPECT_TRUE(CTogRegistry::NactiHodnotu(L"Presah", L"DlgRamecek", presah));
    EXPECT_EQ(presah, 12);
}

TEST_F(Registr, StringsUpTo499CharactersAreRead)
{
    AcString text;
    EXPECT_FALSE(CTogRegistry::NactiRetezec(HKEY_CURRENT_USER, CTogRegistry::kKlicSpolecny, L"PREDPONA", text));

    ASSERT_TRUE(CTogRegistry::UlozRetezec(CTogRegistry::kKlicSpolecny, L"PREDPONA", L"VOD"));
    EXPECT_TRUE(CTogRegistry::NactiRetezec(HKEY_CURRENT_USER, CTogRegistry::kKlicSpolecny, L"PREDPONA", text));
    EXPECT_EQ(text, L"VOD");

    std::wstring dlouhy(499, L'ř');
    ASSERT_TRUE(CTogRegistry::UlozRetezec(CTogRegistry::kKlicSpolecny, L"Dlouhy", dlouhy.c_str()));
    EXPECT_TRUE(CTogRegistry::NactiRetezec(HKEY_CURRENT_USER, CTogRegistry::kKlicSpolecny, L"Dlouhy", text));
    EXPECT_EQ(std::wstring(text.kwszPtr()), dlouhy);

    std::wstring prilis(500, L'a');
    ASSERT_TRUE(CTogRegistry::UlozRetezec(CTogRegistry::kKlicSpolecny, L"Dlouhy", prilis.c_str()));
    EXPECT_FALSE(CTogRegistry::NactiRetezec(HKEY_CURRENT_USER, CTogRegistry::kKlicSpolecny, L"Dlouhy", text));
    EXPECT_EQ(std::wstring(text.kwszPtr()), dlouhy) << "a failed read leaves the text alone";

    // A binary value under the name isn't a string.
    ASSERT_TRUE(CTogRegistry::UlozHodnotu(L"PREDPONA", L"Nastaveni", Adesk::Int32(1)));
    text = L"beze změny";
    EXPECT_FALSE(CTogRegistry::NactiRetezec(HKEY_CURRENT_USER, kNastaveni, L"PREDPONA", text));
    EXPECT_EQ(text, L"beze změny");
}

TEST_F(Registr, AFailedWriteThrowsWithTheStatus)
{
    ASSERT_TRUE(CTogRegistry::UlozRetezec(CTogRegistry::kKlicSpolecny, L"PREDPONA", L"TU"));
    ASSERT_TRUE(CTogRegistry::UlozNastaveno(0));
    // The user file can't be replaced any more: every save fails with ERROR_WRITE_FAULT (29).
    fs::remove(m_slozka / Registry::kUserFile);
    fs::create_directory(m_slozka / Registry::kUserFile);
    fs::create_directory(m_slozka / Registry::kUserFile / "x");

    std::string zprava = Zprava([] { CTogRegistry::UlozRetezec(CTogRegistry::kKlicSpolecny, L"PREDPONA", L"AB"); });
    EXPECT_EQ(zprava.rfind("Nelze uložit TCHAR hodnotu do klíče registru\nZdroj: 29, Line ", 0), 0u) << zprava;
    zprava = Zprava([] { CTogRegistry::UlozNastaveno(1); });
    EXPECT_EQ(zprava.rfind("Nelze uložit DWORD hodnotu do klíče registru\nZdroj: 29, Line ", 0), 0u) << zprava;
    zprava = Zprava([] { CTogRegistry::UlozHodnotu(L"Presah", L"DlgRamecek", Adesk::Int32(1)); });
    EXPECT_EQ(zprava.rfind("Nelze otevřít klíč,nastavení nebude uloženo\nZdroj: 29, Line ", 0), 0u) << zprava;

    AcString predpona;
    EXPECT_TRUE(CTogRegistry::NactiRetezec(HKEY_CURRENT_USER, CTogRegistry::kKlicSpolecny, L"PREDPONA", predpona));
    EXPECT_EQ(predpona, L"TU");
}

TEST_F(Registr, PathValueFromTheMachineFileWinsOverTheUsers)
{
    Stroj({{kStroj + L"Togovy Utility", L"InstallPath", L"C:\\Stroj\\Togu\\"}});
    ASSERT_TRUE(CTogRegistry::UlozRetezec(CTogRegistry::kKlicProduktu, L"InstallPath", L"D:\\Uzivatel\\Togu\\"));
    EXPECT_EQ(CTogRegistry::NactiCestu(CTogRegistry::kKlicProduktu, TypCesty::Install), L"C:\\Stroj\\Togu\\");
}

TEST_F(Registr, PathValueOfTheUserAloneWorks)
{
    ASSERT_TRUE(CTogRegistry::UlozRetezec(CTogRegistry::kKlicVyrobce, L"CommonDataPath", L"D:\\Data"));
    EXPECT_EQ(CTogRegistry::NactiCestu(CTogRegistry::kKlicVyrobce, TypCesty::CommonData), L"D:\\Data\\");
    EXPECT_EQ(CTogRegistry::CestaKAdresari(CTogRegistry::kKlicVyrobce, L"LIN", TypCesty::CommonData, true, false),
              L"D:\\Data\\LIN\\");
    EXPECT_EQ(CTogRegistry::CestaKAdresari(CTogRegistry::kKlicVyrobce, L"LIN", TypCesty::CommonData, false, false),
              L"D:\\Data\\LIN");
}

TEST_F(Registr, PathsAreTheSameWithOrWithoutTheStoredBackslash)
{
    ASSERT_TRUE(CTogRegistry::UlozRetezec(CTogRegistry::kKlicProduktu, L"InstallPath", L"C:\\Togu"));
    ASSERT_TRUE(CTogRegistry::UlozRetezec(CTogRegistry::kKlicProduktu, L"DataPath", L"C:\\Togu\\"));
    const ACHAR* produkt = CTogRegistry::kKlicProduktu;
    for (bool sLomitkem : {true, false})
        EXPECT_EQ(CTogRegistry::CestaKAdresari(produkt, L"BLOKY", TypCesty::Install, sLomitkem, false),
                  CTogRegistry::CestaKAdresari(produkt, L"BLOKY", TypCesty::Data, sLomitkem, false));
    EXPECT_EQ(CTogRegistry::CestaKAdresari(produkt, L"", TypCesty::Install, false, false), L"C:\\Togu");
}

TEST_F(Registr, NoPathValueAnywhereThrows)
{
    ASSERT_TRUE(CTogRegistry::UlozRetezec(CTogRegistry::kKlicProduktu, L"DataPath", L"C:\\Togu\\"));
    std::string zprava = Zprava([] { CTogRegistry::NactiCestu(CTogRegistry::kKlicProduktu, TypCesty::Install); });
    EXPECT_EQ(zprava.rfind("Nelze načíst Install/Data Path z registru Windows (z HKLM ani z HKCU), chyba instalace "
                           "programu\nZdroj: Line ",
                           0),
              0u)
        << zprava;
    // The maker key holds no "DataPath" of the product: the types don't mix.
    EXPECT_NE(Zprava([] { CTogRegistry::NactiCestu(CTogRegistry::kKlicVyrobce, TypCesty::Data); }), "(no exception)");
}

TEST_F(Registr, FolderIsMadeOnlyWhenAsked)
{
    std::wstring koren = sim::fromUtf8(m_slozka.string());
    for (auto& c : koren)
        if (c == L'/')
            c = L'\\';
    ASSERT_TRUE(CTogRegistry::UlozRetezec(CTogRegistry::kKlicProduktu, L"DataPath", koren.c_str()));

    const ACHAR* produkt = CTogRegistry::kKlicProduktu;
    AcString cesta = CTogRegistry::CestaKAdresari(produkt, L"Materialy", TypCesty::Data, false, false);
    EXPECT_EQ(cesta, (koren + L"\\Materialy").c_str());
    EXPECT_FALSE(fs::exists(m_slozka / "Materialy"));

    cesta = CTogRegistry::CestaKAdresari(produkt, L"Materialy", TypCesty::Data, true, true);
    EXPECT_EQ(cesta, (koren + L"\\Materialy\\").c_str());
    EXPECT_TRUE(fs::is_directory(m_slozka / "Materialy"));
    // An existing folder is simply given back.
    EXPECT_NO_THROW(CTogRegistry::CestaKAdresari(produkt, L"Materialy", TypCesty::Data, false, true));

    // One level only: a missing parent fails.
    std::string zprava = Zprava(
        [] { CTogRegistry::CestaKAdresari(CTogRegistry::kKlicProduktu, L"A\\B", TypCesty::Data, false, true); });
    EXPECT_EQ(zprava.rfind("Adresář nelze založit\n", 0), 0u) << zprava;
    EXPECT_FALSE(fs::exists(m_slozka / "A"));
}
