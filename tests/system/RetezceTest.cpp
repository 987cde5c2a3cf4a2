// The string helpers: folding of diacritics, the name key, Czech upper case, trimming, checked copy.
#include <gtest/gtest.h>

#include "CTogException.h"
#include "CTogFunkce.h"

namespace {

std::wstring Slozeno(std::wstring text)
{
    CTogFunkce::BezDiakritiky(text.data());
    return text;
}

} // namespace

TEST(BezDiakritiky, FoldsCzechTextToPlainLetters)
{
    EXPECT_EQ(Slozeno(L"Příliš žluťoučký kůň"), L"Prilis zlutoucky kun");
    EXPECT_EQ(Slozeno(L"ĚŠČŘŽÝÁÍÉÚŮĎŤŇ ěščřžýáíéúůďťň"), L"ESCRZYAIEUUDTN escrzyaieuudtn");
    // Slovak, Polish, Hungarian and German letters of the table; ß folds to a single s.
    EXPECT_EQ(Slozeno(L"ĽľĹĺÔôŁłŃńŐőŰűŞşŢţĂăÄäÖöÜüß"), L"LlLlOoLlNnOoUuSsTtAaAaOoUus");
}

TEST(BezDiakritiky, LeavesLettersOutsideTheTable)
{
    EXPECT_EQ(Slozeno(L"ÿåñõãÅÑøæœ€"), L"ÿåñõãÅÑøæœ€");
    EXPECT_EQ(Slozeno(L""), L"");
    EXPECT_EQ(CTogFunkce::BezDiakritiky(nullptr), nullptr);
}

TEST(KlicNazvu, IgnoresCaseAndDiacritics)
{
    EXPECT_EQ(CTogFunkce::KlicNazvu(L"Vodovodní přípojka"), AcString(L"VODOVODNI PRIPOJKA"));
    EXPECT_EQ(CTogFunkce::KlicNazvu(L"kóty"), CTogFunkce::KlicNazvu(L"KOTY"));
    // Letters outside the fold table keep their diacritics and still change case.
    EXPECT_EQ(CTogFunkce::KlicNazvu(L"señor"), AcString(L"SEÑOR"));
}

TEST(NaVelka, UpperCasesCzechTextInPlace)
{
    std::wstring text = L"příliš žluťoučký kůň úpěl ďábelské ódy";
    EXPECT_EQ(CTogFunkce::NaVelka(text.data()), text.data());
    EXPECT_EQ(text, L"PŘÍLIŠ ŽLUŤOUČKÝ KŮŇ ÚPĚL ĎÁBELSKÉ ÓDY");

    AcString s(L"čerpací šachta 2");
    EXPECT_STREQ(CTogFunkce::NaVelka(s), L"ČERPACÍ ŠACHTA 2");
    EXPECT_EQ(s, AcString(L"ČERPACÍ ŠACHTA 2"));
    AcString prazdny;
    EXPECT_STREQ(CTogFunkce::NaVelka(prazdny), L"");
}

TEST(NaVelkyZnak, UpperCasesOneCzechLetter)
{
    EXPECT_EQ(CTogFunkce::NaVelkyZnak(L'ř'), L'Ř');
    EXPECT_EQ(CTogFunkce::NaVelkyZnak(L'ů'), L'Ů');
    EXPECT_EQ(CTogFunkce::NaVelkyZnak(L'a'), L'A');
    EXPECT_EQ(CTogFunkce::NaVelkyZnak(L'7'), L'7');
}

TEST(OrizniOddelovace, TrimsSeparatorsAtBothEndsOnly)
{
    EXPECT_EQ(CTogFunkce::OrizniOddelovace(L"__abc- "), AcString(L"abc"));
    EXPECT_EQ(CTogFunkce::OrizniOddelovace(L"-.-.."), AcString(L""));
    EXPECT_EQ(CTogFunkce::OrizniOddelovace(L""), AcString(L""));
    EXPECT_EQ(CTogFunkce::OrizniOddelovace(L"._TU_kóty_."), AcString(L"TU_kóty"));
    EXPECT_EQ(CTogFunkce::OrizniOddelovace(L"x"), AcString(L"x"));
    // Other characters are no separators: a tab or a slash stays.
    EXPECT_EQ(CTogFunkce::OrizniOddelovace(L"\tab/"), AcString(L"\tab/"));
}

TEST(KopirujRetezec, CopiesWhatFitsAndThrowsOnAShortBuffer)
{
    ACHAR cil[6] = L"xxxxx";
    CTogFunkce::KopirujRetezec(cil, 6, L"abcde");
    EXPECT_STREQ(cil, L"abcde");
    try {
        CTogFunkce::KopirujRetezec(cil, 6, L"abcdef");
        FAIL() << "a text of 6 characters doesn't fit into 6 places";
    } catch (const CTogException& e) {
        std::string text = e.what();
        EXPECT_EQ(text.rfind("Nepodařilo se zkopírovat C type řetězec - chyba: \nZdroj: ", 0), 0u) << text;
        EXPECT_EQ(text.find("Zdroj: 0,"), std::string::npos) << "the code is the failed status";
    }
}

TEST(Utf8, RoundTripsCzechTextAndReplacesBrokenBytes)
{
    std::wstring text = L"Hladina je zamčená – ĚŠČŘŽ";
    EXPECT_EQ(CTogFunkce::ZUtf8(CTogFunkce::DoUtf8(text)), text);
    EXPECT_EQ(CTogFunkce::DoUtf8(L"ř"), "\xC5\x99");
    // A lone lead byte, a cut sequence at the end and an overlong form each give U+FFFD.
    EXPECT_EQ(CTogFunkce::ZUtf8("a\xC5" "b"), L"a\uFFFDb");
    EXPECT_EQ(CTogFunkce::ZUtf8("a\xE2\x80"), L"a\uFFFD\uFFFD");
    EXPECT_EQ(CTogFunkce::ZUtf8("\xC0\xAF"), L"\uFFFD\uFFFD");
}
