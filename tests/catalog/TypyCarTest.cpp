// The installed line type files: every line type the layer catalogue names is defined in
// TG_zakladni_cary.lin, every shape TG_IS.lin draws is in TG_IS.shx, and each definition keeps to
// what the host's loader accepts.
#include "SourceDir.h"
#include <gtest/gtest.h>

#include <cwchar>
#include <cwctype>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "CTogFunkce.h"
#include "CTogSet.h"

namespace {

const std::string kLin = toguSourceDir() + "/data/LIN/";

std::string ReadBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

std::wstring Trim(std::wstring s)
{
    while (!s.empty() && std::iswspace(s.back()))
        s.pop_back();
    size_t i = 0;
    while (i < s.size() && std::iswspace(s[i]))
        ++i;
    return s.substr(i);
}

/// Splits at the commas that stand outside brackets and quotes.
std::vector<std::wstring> SplitTop(const std::wstring& s)
{
    std::vector<std::wstring> parts(1);
    int depth = 0;
    bool quoted = false;
    for (wchar_t c : s) {
        if (c == L'"')
            quoted = !quoted;
        else if (!quoted && c == L'[')
            ++depth;
        else if (!quoted && c == L']')
            --depth;
        if (c == L',' && depth == 0 && !quoted)
            parts.emplace_back();
        else
            parts.back() += c;
    }
    for (auto& p : parts)
        p = Trim(p);
    return parts;
}

bool IsNumber(const std::wstring& s)
{
    if (s.empty())
        return false;
    wchar_t* end = nullptr;
    std::wcstod(s.c_str(), &end);
    return *end == L'\0';
}

/// One element in brackets: a text ("V",STYLE,...) or a shape (NAME,FILE.shx,...).
struct Complex {
    bool text = false;
    std::wstring what; // the text without its quotes, or the shape's name
    std::wstring from; // the text style or the shape file
};

struct LineType {
    std::wstring name;
    std::wstring description;
    std::vector<std::wstring> patterns;
    int line = 0;
};

/// The line types of a .lin file, read as UTF-8 as the system reads it.
std::vector<LineType> ReadLin(const std::string& file)
{
    std::string bytes = ReadBytes(kLin + file);
    EXPECT_FALSE(bytes.empty()) << file;
    EXPECT_NE(bytes.substr(0, 3), "\xEF\xBB\xBF") << file << ": a byte order mark hides the first line";
    std::wstring text = CTogFunkce::ZUtf8(bytes);
    EXPECT_EQ(text.find(L'\uFFFD'), std::wstring::npos) << file << " is not UTF-8";

    std::vector<LineType> types;
    size_t start = 0;
    int lineNo = 0;
    while (start <= text.size()) {
        size_t end = text.find(L'\n', start);
        std::wstring line = Trim(text.substr(start, end == std::wstring::npos ? std::wstring::npos : end - start));
        start = end == std::wstring::npos ? text.size() + 1 : end + 1;
        ++lineNo;
        if (line.empty() || line[0] == L';')
            continue;
        if (line[0] == L'*') {
            size_t comma = line.find(L',');
            LineType t;
            t.name = Trim(line.substr(1, comma == std::wstring::npos ? std::wstring::npos : comma - 1));
            t.description = comma == std::wstring::npos ? L"" : line.substr(comma + 1);
            t.line = lineNo;
            types.push_back(t);
        } else if (types.empty()) {
            ADD_FAILURE() << file << ":" << lineNo << ": a pattern before the first line type";
        } else {
            types.back().patterns.push_back(line);
        }
    }
    return types;
}

/// Checks one pattern line as the host's loader reads it, and gives its elements in brackets.
std::vector<Complex> CheckPattern(const std::string& file, const LineType& t)
{
    std::vector<Complex> complexes;
    const std::string where = file + ":" + std::to_string(t.line) + " " + CTogFunkce::DoUtf8(t.name);
    if (t.patterns.size() != 1) {
        ADD_FAILURE() << where << ": " << t.patterns.size() << " pattern lines instead of one";
        return complexes;
    }
    std::vector<std::wstring> parts = SplitTop(t.patterns[0]);
    EXPECT_EQ(parts[0], L"A") << where << ": the alignment field";
    int dashes = 0;
    for (size_t i = 1; i < parts.size(); ++i) {
        const std::wstring& p = parts[i];
        if (!p.empty() && p.front() == L'[') {
            EXPECT_GT(i, 1u) << where << ": a pattern begins with a dash";
            EXPECT_EQ(p.back(), L']') << where;
            std::vector<std::wstring> inner = SplitTop(p.substr(1, p.size() - 2));
            if (inner.size() < 2) {
                ADD_FAILURE() << where << ": " << CTogFunkce::DoUtf8(p);
                continue;
            }
            Complex c;
            c.text = inner[0].size() >= 2 && inner[0].front() == L'"' && inner[0].back() == L'"';
            c.what = c.text ? inner[0].substr(1, inner[0].size() - 2) : inner[0];
            c.from = inner[1];
            for (size_t k = 2; k < inner.size(); ++k) {
                const std::wstring& param = inner[k];
                bool known = param.size() > 2 && param[1] == L'=' && std::wstring(L"SRAXY").find(std::towupper(param[0])) != std::wstring::npos;
                EXPECT_TRUE(known && IsNumber(param.substr(2))) << where << ": " << CTogFunkce::DoUtf8(param);
            }
            complexes.push_back(c);
        } else {
            EXPECT_TRUE(IsNumber(p)) << where << ": " << CTogFunkce::DoUtf8(p);
            if (i == 1) {
                EXPECT_GE(std::wcstod(p.c_str(), nullptr), 0.0) << where << ": the A alignment starts with a dash or dot";
            }
            ++dashes;
        }
    }
    EXPECT_GE(dashes, 2) << where;
    EXPECT_LE(dashes, 12) << where << ": the host takes at most 12 dashes";
    EXPECT_LE(t.description.size(), 47u) << where << ": the host keeps 47 characters of a description";
    return complexes;
}

/// The shape names of a compiled shape file, read straight from its index and definitions.
std::set<std::string> ShapeNames(const std::string& file)
{
    std::string d = ReadBytes(kLin + file);
    std::set<std::string> names;
    const std::string signature("AutoCAD-86 shapes 1.0\r\n\x1a", 24);
    if (d.compare(0, signature.size(), signature) != 0) {
        ADD_FAILURE() << file << ": not a shape file";
        return names;
    }
    auto word = [&d](size_t at) { return static_cast<unsigned char>(d.at(at)) | static_cast<unsigned char>(d.at(at + 1)) << 8; };
    size_t count = word(28);
    size_t at = 30 + 4 * count;
    for (size_t i = 0; i < count; ++i) {
        size_t length = word(30 + 4 * i + 2);
        std::string record = d.substr(at, length);
        names.insert(record.substr(0, record.find('\0')));
        EXPECT_EQ(record.back(), '\0') << file << ": shape " << word(30 + 4 * i) << " has no end code";
        at += length;
    }
    EXPECT_EQ(d.substr(at), "EOF") << file;
    return names;
}

} // namespace

TEST(TypyCar, EveryLineTypeOfTheLayerCatalogueIsInTheBasicFile)
{
    std::set<std::wstring> defined;
    for (const LineType& t : ReadLin("TG_zakladni_cary.lin"))
        defined.insert(t.name);
    size_t named = 0;
    for (const auto& [klic, h] : StdHladiny()) {
        std::wstring typ = h.typCary.kwszPtr();
        if (typ == kSouvislaCara)
            continue;
        ++named;
        EXPECT_TRUE(defined.count(typ)) << CTogFunkce::DoUtf8(typ) << " of layer " << CTogFunkce::DoUtf8(h.nazev.kwszPtr());
    }
    EXPECT_GT(named, 0u);
    EXPECT_TRUE(defined.count(L"TEČKOVANÁ")) << "the name keeps its diacritics in the file";
}

TEST(TypyCar, EachFileHoldsTheNamesItsLoaderSendsToIt)
{
    // A name beginning with "_" is loaded from TG_IS.lin, every other from TG_zakladni_cary.lin.
    auto zakladni = ReadLin("TG_zakladni_cary.lin");
    auto is = ReadLin("TG_IS.lin");
    EXPECT_GE(is.size(), 5u);
    for (const LineType& t : zakladni)
        EXPECT_NE(t.name.front(), L'_') << CTogFunkce::DoUtf8(t.name);
    for (const LineType& t : is)
        EXPECT_EQ(t.name.front(), L'_') << CTogFunkce::DoUtf8(t.name);

    // Both files go into one map of names keyed without diacritics: no key may stand twice.
    std::map<std::wstring, int> keys;
    for (const auto* list : {&zakladni, &is}) {
        for (const LineType& t : *list) {
            std::wstring key = t.name;
            CTogFunkce::BezDiakritiky(key.data());
            EXPECT_EQ(++keys[key], 1) << CTogFunkce::DoUtf8(t.name) << " is defined twice";
        }
    }
}

TEST(TypyCar, BasicLinesWriteTheirLettersInTheSmallTextStyle)
{
    int withText = 0;
    for (const LineType& t : ReadLin("TG_zakladni_cary.lin")) {
        for (const Complex& c : CheckPattern("TG_zakladni_cary.lin", t)) {
            EXPECT_TRUE(c.text) << CTogFunkce::DoUtf8(t.name) << ": shapes belong to TG_IS.lin";
            EXPECT_EQ(c.from, L"TG_TXT_MALY") << CTogFunkce::DoUtf8(t.name);
            EXPECT_FALSE(c.what.empty()) << CTogFunkce::DoUtf8(t.name);
            ++withText;
        }
    }
    EXPECT_GT(withText, 0);
    EXPECT_NE(NajdiStdTextStyl(L"TG_TXT_MALY"), nullptr) << "the style the loader creates first";
}

TEST(TypyCar, EveryShapeOfTheNetworkLinesIsInTheShapeFile)
{
    std::set<std::string> shapes = ShapeNames("TG_IS.shx");
    ASSERT_FALSE(shapes.empty());
    for (const LineType& t : ReadLin("TG_IS.lin")) {
        auto complexes = CheckPattern("TG_IS.lin", t);
        EXPECT_FALSE(complexes.empty()) << CTogFunkce::DoUtf8(t.name) << " draws no symbol";
        for (const Complex& c : complexes) {
            EXPECT_FALSE(c.text) << CTogFunkce::DoUtf8(t.name);
            EXPECT_EQ(c.from, L"TG_IS.shx") << CTogFunkce::DoUtf8(t.name);
            EXPECT_TRUE(shapes.count(CTogFunkce::DoUtf8(c.what)))
                << CTogFunkce::DoUtf8(t.name) << " uses shape " << CTogFunkce::DoUtf8(c.what);
        }
    }
}
