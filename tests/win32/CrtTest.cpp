// The C runtime's calls on Czech text: the "cs-CZ" locale, case conversion, collation, checked copies
// and numbers.
#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "sim/win32/Locale.h"
#include "tchar.h"
#include "windows.h"

TEST(Locale, CzechUpperCaseAsWindowsDoesIt)
{
    EXPECT_TRUE(sim::win32::czechLocaleName() == "cs_CZ.UTF-8" || sim::win32::czechLocaleName() == "C.UTF-8");
    _locale_t cs = _create_locale(LC_CTYPE, "cs-CZ");
    ASSERT_NE(cs, nullptr);
    wchar_t text[] = L"Příliš žluťoučký kůň úpěl ďábelské ódy, ß";
    EXPECT_EQ(_wcsupr_s_l(text, _countof(text), cs), 0);
    EXPECT_STREQ(text, L"PŘÍLIŠ ŽLUŤOUČKÝ KŮŇ ÚPĚL ĎÁBELSKÉ ÓDY, ß");
    EXPECT_EQ(_towupper_l(L'á', cs), static_cast<wint_t>(L'Á'));
    EXPECT_EQ(_towupper_l(L'ř', cs), static_cast<wint_t>(L'Ř'));
    EXPECT_EQ(_towupper_l(L'ů', cs), static_cast<wint_t>(L'Ů'));
    EXPECT_EQ(_towupper_l(L'ß', cs), static_cast<wint_t>(L'ß'));

    // A string not ended within its size is refused and emptied.
    wchar_t unended[3] = {L'a', L'b', L'c'};
    EXPECT_EQ(_wcsupr_s_l(unended, 3, cs), EINVAL);
    EXPECT_EQ(unended[0], L'\0');
    EXPECT_EQ(_wcsupr_s_l(nullptr, 3, cs), EINVAL);
    _free_locale(cs);

    EXPECT_EQ(_create_locale(LC_CTYPE, "no such locale"), nullptr);
    EXPECT_EQ(_create_locale(LC_CTYPE, nullptr), nullptr);
}

TEST(Locale, SwitchingTheProcessLocaleAndBack)
{
    // As the system upper-cases one character: remember, switch to cs-CZ, convert, switch back.
    std::wstring old = _wsetlocale(LC_CTYPE, nullptr);
    ASSERT_NE(_wsetlocale(LC_CTYPE, L"cs-CZ"), nullptr);
    EXPECT_STREQ(_wsetlocale(LC_CTYPE, nullptr), L"cs-CZ");
    EXPECT_EQ(towupper(L'ř'), static_cast<wint_t>(L'Ř'));
    wchar_t word[] = L"kóty";
    EXPECT_EQ(_wcsupr_s(word), 0);
    EXPECT_STREQ(word, L"KÓTY");
    EXPECT_EQ(_wcsicmp(L"Kóty", L"KÓTY"), 0);
    ASSERT_NE(_wsetlocale(LC_CTYPE, old.c_str()), nullptr);
    EXPECT_EQ(std::wstring(_wsetlocale(LC_CTYPE, nullptr)), old);
    EXPECT_EQ(_wsetlocale(LC_CTYPE, L"not a locale"), nullptr);
}

TEST(Locale, CzechCollationIsTheSameOnEveryMachine)
{
    _locale_t cs = _create_locale(LC_ALL, "cs-CZ");
    ASSERT_NE(cs, nullptr);
    // č after c, ch after h, ř after r; á only between otherwise equal words; case ignored or lower first.
    const wchar_t* ordered[] = {L"cukr", L"čaj", L"hrad", L"chata", L"ibis", L"rys", L"řeka", L"sova", L"šipka", L"zub", L"žába"};
    for (size_t i = 0; i + 1 < std::size(ordered); ++i) {
        EXPECT_LT(_wcsicoll_l(ordered[i], ordered[i + 1], cs), 0) << i;
        EXPECT_GT(_wcsicoll_l(ordered[i + 1], ordered[i], cs), 0) << i;
    }
    EXPECT_LT(_wcsicoll_l(L"rad", L"ráda", cs), 0);
    EXPECT_LT(_wcsicoll_l(L"rada", L"ráda", cs), 0);
    EXPECT_LT(_wcsicoll_l(L"ráda", L"radar", cs), 0);
    EXPECT_EQ(_wcsicoll_l(L"PP-R Ø 20", L"pp-r ø 20", cs), 0);
    EXPECT_LT(_wcscoll_l(L"pe", L"PE", cs), 0);
    _free_locale(cs);
}

TEST(Crt, CheckedCopiesReportAndEmpty)
{
    wchar_t small[5];
    EXPECT_EQ(wcscpy_s(small, L"abcd"), 0);
    EXPECT_STREQ(small, L"abcd");
    EXPECT_EQ(wcscpy_s(small, L"abcde"), ERANGE);
    EXPECT_STREQ(small, L"");
    EXPECT_EQ(wcscpy_s(small, 5, nullptr), EINVAL);
    EXPECT_EQ(wcsncpy_s(small, L"abcdef", 3), 0);
    EXPECT_STREQ(small, L"abc");
    EXPECT_EQ(wcsncpy_s(small, L"abcdef", _TRUNCATE), STRUNCATE);
    EXPECT_STREQ(small, L"abcd");
    EXPECT_EQ(wcscpy_s(small, L"ab"), 0);
    EXPECT_EQ(wcscat_s(small, L"cd"), 0);
    EXPECT_STREQ(small, L"abcd");
    EXPECT_EQ(wcscat_s(small, L"e"), ERANGE);
    EXPECT_STREQ(small, L"");

    wchar_t buf[8];
    EXPECT_EQ(swprintf_s(buf, L"%ls=%d", L"DN", 100), 6);
    EXPECT_STREQ(buf, L"DN=100");
    EXPECT_EQ(swprintf_s(buf, L"%ls", L"too long text"), -1);
    EXPECT_STREQ(buf, L"");
    EXPECT_EQ(_snwprintf_s(buf, _TRUNCATE, L"%ls", L"too long text"), -1);
    EXPECT_STREQ(buf, L"too lon");
    EXPECT_EQ(_stprintf_s(buf, _T("%d"), 42), 2);
}

TEST(Crt, Numbers)
{
    EXPECT_EQ(_wtoi(L"  -42abc"), -42);
    EXPECT_EQ(_wtoi(L"abc"), 0);
    EXPECT_EQ(_wtoi(L"99999999999"), INT_MAX);
    EXPECT_DOUBLE_EQ(_wtof(L"12.34"), 12.34);
    EXPECT_DOUBLE_EQ(_wtof(L"12,34"), 12.0) << "a decimal comma ends the number";
    wchar_t buf[12];
    EXPECT_EQ(_itow_s(-2147483647 - 1, buf, 10), 0);
    EXPECT_STREQ(buf, L"-2147483648");
    EXPECT_EQ(_itow_s(-1, buf, 16), 0);
    EXPECT_STREQ(buf, L"ffffffff");
    wchar_t tiny[3];
    EXPECT_EQ(_itow_s(123, tiny, 10), ERANGE);
    EXPECT_STREQ(tiny, L"");
    EXPECT_EQ(_itow_s(5, buf, 1), EINVAL);
}
