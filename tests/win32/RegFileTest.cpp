// The .reg file format: what the registry editor writes is read back with the same types and bytes,
// and a damaged line is reported with its file and number.
#include <gtest/gtest.h>

#include "sim/win32/RegFile.h"

using namespace sim::win32;

namespace {

RegStore sampleStore()
{
    RegStore s;
    const std::wstring key = L"HKEY_CURRENT_USER\\Software\\Togvarnik\\Togovy Utility\\Nastaveni";
    s.setValue(key, L"PREDPONA", regString(L"ZT \"x\" C:\\Data\\ žluťoučký"));
    s.setValue(key, L"NASTAVENO", RegValue{3, {0x01}});
    s.setValue(key, L"Glob_prepinace", RegValue{3, {0x08, 0x01}});
    s.setValue(key, L"CurMatPop", RegValue{3, {0x58, 0x01, 0x00, 0x00}});
    s.setValue(key, L"CurMatDrsnost", RegValue{3, {0, 0, 0, 0, 0, 0, 0xF0, 0x3F}});
    s.setValue(key, L"Pocet", regDword(0x158));
    s.setValue(key, L"Velky", RegValue{11, {1, 2, 3, 4, 5, 6, 7, 8}});
    s.setValue(key, L"Cesta", regString(L"%APPDATA%\\Togu", 2));
    s.setValue(key, L"Seznam", RegValue{7, {'a', 0, 0, 0, 'b', 0, 0, 0, 0, 0}});
    s.setValue(key, L"", regString(L"výchozí"));
    s.setValue(key, L"Prazdny", RegValue{3, {}});
    s.setValue(key, L"Dlouhy", RegValue{3, std::vector<std::uint8_t>(100, 0xAB)});
    // A REG_SZ without its terminator must not come back with one.
    s.setValue(key, L"BezNuly", RegValue{1, {'a', 0}});
    s.create(L"HKEY_CURRENT_USER\\Software\\Togvarnik\\Prazdny klic");
    return s;
}

} // namespace

TEST(RegFile, RoundTripKeepsTypesBytesAndSpelling)
{
    RegStore original = sampleStore();
    std::string text = formatRegFile(original);
    RegStore back = parseRegFile(text, L"user.reg");
    EXPECT_EQ(back, original);
    EXPECT_EQ(formatRegFile(back), text);
}

TEST(RegFile, WritesTheRegistryEditorsForms)
{
    RegStore s;
    s.setValue(L"HKEY_LOCAL_MACHINE\\Software\\Togvarnik", L"CommonDataPath", regString(L"C:\\Togu\\"));
    s.setValue(L"HKEY_LOCAL_MACHINE\\Software\\Togvarnik\\Togovy Utility", L"Bin", RegValue{3, {1, 2}});
    s.setValue(L"HKEY_LOCAL_MACHINE\\Software\\Togvarnik\\Togovy Utility", L"Pocet", regDword(0x158));
    s.setValue(L"HKEY_LOCAL_MACHINE\\Software\\Togvarnik\\Togovy Utility", L"Q", RegValue{11, {1, 0, 0, 0, 0, 0, 0, 0}});
    EXPECT_EQ(formatRegFile(s), "Windows Registry Editor Version 5.00\n"
                                "\n"
                                "[HKEY_LOCAL_MACHINE\\Software\\Togvarnik]\n"
                                "\"CommonDataPath\"=\"C:\\\\Togu\\\\\"\n"
                                "\n"
                                "[HKEY_LOCAL_MACHINE\\Software\\Togvarnik\\Togovy Utility]\n"
                                "\"Bin\"=hex:01,02\n"
                                "\"Pocet\"=dword:00000158\n"
                                "\"Q\"=hex(b):01,00,00,00,00,00,00,00\n");
}

TEST(RegFile, ReadsWhatWindowsWrites)
{
    // UTF-16LE with its mark, CR LF, comments, a wrapped list, the default value, removals.
    std::wstring text = L"Windows Registry Editor Version 5.00\r\n\r\n; komentář\r\n"
                        L"[HKEY_CURRENT_USER\\Software\\Togvarnik\\Common]\r\n"
                        L"\"PREDPONA\"=\"AB\"\r\n"
                        L"@=\"výchozí\"\r\n"
                        L"\"Dlouhy\"=hex:01,02,\\\r\n  03,04\r\n"
                        L"\"Pryc\"=dword:1\r\n"
                        L"\"Pryc\"=-\r\n"
                        L"[HKEY_CURRENT_USER\\Software\\Stare]\r\n"
                        L"[-HKEY_CURRENT_USER\\Software\\Stare]\r\n";
    std::string bytes = "\xFF\xFE";
    for (wchar_t c : text) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8);
    }
    RegStore s = parseRegFile(bytes, L"user.reg");
    const std::wstring key = L"hkey_current_user\\software\\togvarnik\\common";
    ASSERT_NE(s.value(key, L"predpona"), nullptr);
    EXPECT_EQ(s.value(key, L"predpona")->name, L"PREDPONA");
    EXPECT_EQ(s.value(key, L"PREDPONA")->value, regString(L"AB"));
    EXPECT_EQ(s.value(key, L"")->value, regString(L"výchozí"));
    EXPECT_EQ(s.value(key, L"Dlouhy")->value, (RegValue{3, {1, 2, 3, 4}}));
    EXPECT_EQ(s.value(key, L"Pryc"), nullptr);
    EXPECT_EQ(s.find(L"HKEY_CURRENT_USER\\Software\\Stare"), nullptr);

    // UTF-8 with a byte order mark, and a file of blanks.
    RegStore u = parseRegFile("\xEF\xBB\xBFWindows Registry Editor Version 5.00\n[HKEY_CURRENT_USER\\A]\n\"ř\"=\"ů\"\n", L"u");
    EXPECT_EQ(u.value(L"HKEY_CURRENT_USER\\A", L"Ř")->value, regString(L"ů"));
    EXPECT_TRUE(parseRegFile("  \n\n", L"u").keys().empty());
}

TEST(RegFile, DamagedLinesNameFileAndLine)
{
    const std::string header = "Windows Registry Editor Version 5.00\n";
    struct Case {
        std::string text;
        int line;
    } cases[] = {
        {"REGEDIT4\n", 1},
        {header + "\"A\"=\"x\"\n", 2},                                  // value before any key
        {header + "[HKEY_CURRENT_USER\\A\n", 2},                        // unclosed key
        {header + "[Software\\A]\n", 2},                                // no root
        {header + "[HKEY_CURRENT_USER\\A]\n\"A\"=\"C:\\Data\"\n", 3},   // single backslash
        {header + "[HKEY_CURRENT_USER\\A]\n\"A\"=\"open\n", 3},         // no closing quote
        {header + "[HKEY_CURRENT_USER\\A]\n\"A\"=dword:123456789\n", 3},
        {header + "[HKEY_CURRENT_USER\\A]\n\"A\"=hex:01,zz\n", 3},
        {header + "[HKEY_CURRENT_USER\\A]\n\"A\"=hex(q):01\n", 3},
        {header + "[HKEY_CURRENT_USER\\A]\n\"A\"=hex:01,\\\n", 3},       // continuation at the end
        {header + "[HKEY_CURRENT_USER\\A]\n\n\"A\" \"x\"\n", 4},
        {header + "[HKEY_CURRENT_USER\\A]\nA=1\n", 3},
    };
    for (const auto& c : cases) {
        try {
            parseRegFile(c.text, L"/reg/user.reg");
            ADD_FAILURE() << "accepted: " << c.text;
        } catch (const RegFileError& e) {
            EXPECT_EQ(e.line(), c.line) << c.text;
            EXPECT_EQ(e.file(), L"/reg/user.reg");
            EXPECT_NE(std::string(e.what()).find("/reg/user.reg, řádek " + std::to_string(c.line) + ": "), std::string::npos)
                << e.what();
        }
    }
}

TEST(RegFile, TextBeyondTheBasicPlaneIsOneSurrogatePair)
{
    const std::wstring text = L"a\U0001F600";
    RegValue v = regString(text);
    const std::vector<std::uint8_t> expected{'a', 0, 0x3D, 0xD8, 0x00, 0xDE, 0, 0};
    EXPECT_EQ(v.data, expected);
    EXPECT_EQ(sim::win32::fromUtf16le(v.data.data(), v.data.size() - 2), text);
}
