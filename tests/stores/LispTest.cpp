// The AutoLISP functions of the stores, called as the command line calls them: argument rules and
// their messages, answers, the kind check shown in the exception box.
#include <string>

#include "CTogRegistry.h"
#include "CTogXRecord.h"
#include "SystemSRegistrem.h"
#include "sim/app/LispCall.h"

namespace {

const std::wstring kSpatne = L"\n!!!špatný typ nebo počet argumentů";

} // namespace

class Lisp : public SystemSRegistrem {
protected:
    void SetUp() override
    {
        CTogRegistry::UlozNastaveno(1); // no first-run question
    }

    /// Runs the line and gives what it added to the transcript.
    std::wstring Volej(const std::wstring& radek)
    {
        std::wstring pred = Zaznam();
        sim::app::runLispLine(radek);
        return Zaznam().substr(pred.size());
    }
};

TEST_F(Lisp, ValuesGoToTheDrawingAndComeBack)
{
    Spust();
    ASSERT_NE(Nacti(), nullptr);
    EXPECT_EQ(Volej(L"(togu_ulozdox_int \"pocet\" 12)"), L"T\n");
    EXPECT_EQ(Volej(L"(togu_ulozdox_int \"velky\" 100000)"), L"T\n");
    EXPECT_EQ(Volej(L"(togu_ulozdox_string \"DlgKacena_POPISPOD\" \"Úroveň\")"), L"T\n");
    EXPECT_EQ(Volej(L"(togu_ulozdox_real \"roztec\" 2.5)"), L"T\n");
    EXPECT_EQ(Volej(L"(togu_ulozdox_point \"bod\" '(1.0 2.0 3.0))"), L"T\n");
    EXPECT_EQ(Volej(L"(togu_ulozdox_point \"bod2\" '(4.0 5.0))"), L"T\n");

    EXPECT_EQ(Volej(L"(togu_nactizx_int \"pocet\")"), L"12\n");
    EXPECT_EQ(Volej(L"(togu_nactizx_int \"velky\")"), L"100000\n");
    EXPECT_EQ(Volej(L"(togu_nactizx_string \"DlgKacena_POPISPOD\")"), L"\"Úroveň\"\n");
    EXPECT_EQ(Volej(L"(togu_nactizx_real \"roztec\")"), L"2.5\n");
    EXPECT_EQ(Volej(L"(togu_nactizx_point \"bod\")"), L"(1.0 2.0 3.0)\n");
    EXPECT_EQ(Volej(L"(togu_nactizx_point \"bod2\")"), L"(4.0 5.0 0.0)\n");
    // The group's entry is reached by its whole key.
    AcString popis;
    EXPECT_TRUE(CTogXRecord::NactiZX(L"POPISPOD", popis, L"DlgKacena"));
    EXPECT_EQ(popis, L"Úroveň");

    EXPECT_EQ(Volej(L"(togu_nactizx_int \"neni\")"), L"nil\n") << "no entry: nil, and nothing printed";
}

TEST_F(Lisp, WrongArgumentsPrintTheMessageAndStoreNothing)
{
    Spust();
    ASSERT_NE(Nacti(), nullptr);
    for (const wchar_t* radek :
         {L"(togu_ulozdox_int \"a\" 2.5)", L"(togu_ulozdox_int \"a\")", L"(togu_ulozdox_int 1 2)",
          L"(togu_ulozdox_string \"a\" 1)", L"(togu_ulozdox_real \"a\" 1)", L"(togu_ulozdox_point \"a\" \"b\")",
          L"(togu_nactizx_int)", L"(togu_nactizx_string 5)", L"(togu_nactizx_real nil)", L"(togu_nactizx_point 1.0)"})
        EXPECT_EQ(Volej(radek), kSpatne + L"nil\n") << sim::toUtf8(radek);
    resbuf* chain = nullptr;
    EXPECT_FALSE(CTogXRecord::NactiChain(L"a", chain));
}

TEST_F(Lisp, ReadingAnotherKindShowsTheBoxAndAnswersNil)
{
    Spust("ok\n");
    ASSERT_NE(Nacti(), nullptr);
    ASSERT_EQ(Volej(L"(togu_ulozdox_int \"x\" 1)"), L"T\n");
    std::wstring vypis = Volej(L"(togu_nactizx_string \"x\")");
    EXPECT_NE(vypis.find(L"[Program vyvolal výjimku] Očekávaný typ proměnné XRecord neodpovídá"),
              std::wstring::npos)
        << sim::toUtf8(vypis);
    EXPECT_TRUE(vypis.ends_with(L"nil\n")) << sim::toUtf8(vypis);
}

TEST_F(Lisp, SwitchesOfTheSettings)
{
    CTogRegistry::UlozGlobPrepinace(static_cast<Adesk::Int16>(2 | 4));
    Spust();
    ASSERT_NE(Nacti(), nullptr);
    EXPECT_EQ(Volej(L"(togu_nastaveni 1)"), L"1\n"); // text as MTEXT
    EXPECT_EQ(Volej(L"(togu_nastaveni 2)"), L"0\n"); // object snaps
    EXPECT_EQ(Volej(L"(togu_nastaveni 3)"), L"0\n"); // multiple selection
    EXPECT_EQ(Volej(L"(togu_nastaveni 4)"), L"1\n"); // reset layers
    EXPECT_EQ(Volej(L"(togu_nastaveni 5)"), L"\n!!!Argument je mimo rozsah, přípustné je 1 až 4nil\n");
    EXPECT_EQ(Volej(L"(togu_nastaveni 0)"), L"\n!!!Argument je mimo rozsah, přípustné je 1 až 4nil\n");
    std::wstring dlouha = L"\n!!!Špatný typ nebo počet argumentů, prototyp funkce je (togu_nastaveni [int "
                          L"typNastaveni])\nargumenty 1 - text/mtext, 2 - uchopení, 3 - multivýběr, 4 - resetovat "
                          L"hladiny, 5 - nastavovat BYLAYER";
    EXPECT_EQ(Volej(L"(togu_nastaveni)"), dlouha + L"nil\n");
    EXPECT_EQ(Volej(L"(togu_nastaveni 1.0)"), dlouha + L"nil\n");
}

TEST_F(Lisp, PathsOfTheInstallation)
{
    CTogRegistry::UlozRetezec(CTogRegistry::kKlicProduktu, L"InstallPath", L"C:\\Togu\\Utility");
    CTogRegistry::UlozRetezec(CTogRegistry::kKlicVyrobce, L"CommonInstallPath", L"C:\\Togu\\Spolecne\\");
    CTogRegistry::UlozRetezec(CTogRegistry::kKlicVyrobce, L"CommonDataPath", L"D:\\Data");
    Spust();
    ASSERT_NE(Nacti(), nullptr);
    auto cesta = [](const wchar_t* text) { return sim::app::formatLispString(text) + L"\n"; };
    EXPECT_EQ(Volej(L"(togu_nacti_cestu \"a.lin\")"), cesta(L"C:\\Togu\\Utility\\a.lin"));
    EXPECT_EQ(Volej(L"(togu_nacti_cestu \"a.lin\" 3)"), cesta(L"C:\\Togu\\Spolecne\\a.lin"));
    EXPECT_EQ(Volej(L"(togu_nacti_cestu \"TG_IS.lin\" \"LIN\" 4)"), cesta(L"D:\\Data\\LIN\\TG_IS.lin"));
    EXPECT_EQ(Volej(L"(togu_nacti_cestu \"x.tgp\" \"Materialy\" \"Std\" 4)"),
              cesta(L"D:\\Data\\Materialy\\Std\\x.tgp"));
    // Anything else than a string or an integer ends the list: the type stays 1.
    EXPECT_EQ(Volej(L"(togu_nacti_cestu \"a.lin\" 2.0 4)"), cesta(L"C:\\Togu\\Utility\\a.lin"));

    const std::wstring typ = L"\nChybně zadaná hodnota typu - očekává se 1 až 4nil\n";
    EXPECT_EQ(Volej(L"(togu_nacti_cestu \"a.lin\" 5)"), typ);
    EXPECT_EQ(Volej(L"(togu_nacti_cestu \"a.lin\" \"LIN\" 0)"), typ);
    EXPECT_EQ(Volej(L"(togu_nacti_cestu 1)"),
              L"\n!!!Špatný typ nebo počet argumentů, prototyp funkce je (togu_nacti_cestu strSoubor [strAdresar] "
              L"[Podadresar] [int typCesty])nil\n");
}

TEST_F(Lisp, MissingPathValueShowsTheBox)
{
    Spust("ok\n");
    ASSERT_NE(Nacti(), nullptr);
    std::wstring vypis = Volej(L"(togu_nacti_cestu \"a.lin\" 2)");
    EXPECT_NE(vypis.find(L"[Program vyvolal výjimku] Nelze načíst Install/Data Path z registru Windows"),
              std::wstring::npos)
        << sim::toUtf8(vypis);
    EXPECT_TRUE(vypis.ends_with(L"nil\n"));
}
