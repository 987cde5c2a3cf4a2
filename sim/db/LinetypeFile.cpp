// acdbLoadLineTypeFile: line types from a .lin file, with the texts and shapes of complex line types
// resolved against the drawing's text styles and the shape file's names.
#include <cmath>
#include <cstdint>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>
#include <vector>

#include "dbapserv.h"
#include "dbsymtb.h"
#include "sim/core/Session.h"
#include "sim/db/ImpDatabase.h"
#include "sim/db/Names.h"

namespace {

struct LinDef {
    std::wstring name;
    std::wstring description;
    std::wstring pattern; ///< the line after the header, "A,..."
};

std::optional<std::string> readFile(const std::wstring& path)
{
    std::ifstream in(sim::toUtf8(path), std::ios::binary);
    if (!in)
        return std::nullopt;
    std::ostringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

std::wstring trim(const std::wstring& s)
{
    size_t a = s.find_first_not_of(L" \t\r\n");
    size_t b = s.find_last_not_of(L" \t\r\n");
    return a == std::wstring::npos ? std::wstring() : s.substr(a, b - a + 1);
}

std::vector<LinDef> parseLin(const std::wstring& text)
{
    std::vector<LinDef> defs;
    std::wistringstream in(text);
    std::wstring line;
    LinDef* open = nullptr;
    while (std::getline(in, line)) {
        line = trim(line);
        if (line.empty() || line.rfind(L";;", 0) == 0)
            continue;
        if (line[0] == L'*') {
            size_t comma = line.find(L',');
            defs.push_back({trim(line.substr(1, comma == std::wstring::npos ? std::wstring::npos : comma - 1)),
                            comma == std::wstring::npos ? std::wstring() : trim(line.substr(comma + 1)), std::wstring()});
            open = &defs.back();
        } else if (open && open->pattern.empty()) {
            open->pattern = line;
            open = nullptr;
        }
    }
    return defs;
}

/// The fields of a pattern line; a bracketed element and a quoted text stay whole.
std::vector<std::wstring> splitFields(const std::wstring& s)
{
    std::vector<std::wstring> out;
    std::wstring cur;
    int depth = 0;
    bool quoted = false;
    for (wchar_t c : s) {
        if (c == L'"')
            quoted = !quoted;
        else if (!quoted && c == L'[')
            ++depth;
        else if (!quoted && c == L']')
            --depth;
        if (c == L',' && depth == 0 && !quoted) {
            out.push_back(trim(cur));
            cur.clear();
        } else {
            cur += c;
        }
    }
    out.push_back(trim(cur));
    return out;
}

bool matches(const wchar_t* pattern, const wchar_t* name)
{
    if (!*pattern)
        return !*name;
    if (*pattern == L'*')
        return matches(pattern + 1, name) || (*name && matches(pattern, name + 1));
    if (!*name)
        return false;
    if (*pattern != L'?' && sim::db::upperCase(*pattern) != sim::db::upperCase(*name))
        return false;
    return matches(pattern + 1, name + 1);
}

std::wstring baseName(const std::wstring& path)
{
    std::wstring p = sim::db::normalizePath(path);
    size_t slash = p.find_last_of(L'/');
    return slash == std::wstring::npos ? p : p.substr(slash + 1);
}

/// Shape names and numbers of a compiled shape file.
std::optional<std::map<std::wstring, int>> shapeNames(const std::string& bytes)
{
    const std::string magic = "AutoCAD-86 shapes 1.0\r\n\x1a";
    if (bytes.compare(0, magic.size(), magic) != 0 || bytes.size() < magic.size() + 6)
        return std::nullopt;
    auto u16 = [&](size_t at) {
        return static_cast<unsigned>(static_cast<unsigned char>(bytes[at])) |
               (static_cast<unsigned>(static_cast<unsigned char>(bytes[at + 1])) << 8);
    };
    size_t pos = magic.size();
    unsigned count = u16(pos + 4);
    pos += 6;
    if (bytes.size() < pos + count * 4)
        return std::nullopt;
    std::vector<std::pair<unsigned, unsigned>> index;
    for (unsigned i = 0; i < count; ++i, pos += 4)
        index.emplace_back(u16(pos), u16(pos + 2));
    std::map<std::wstring, int> names;
    for (auto [number, length] : index) {
        if (pos + length > bytes.size())
            return std::nullopt;
        size_t end = bytes.find('\0', pos);
        if (end != std::string::npos && end < pos + length)
            names[sim::fromUtf8(bytes.substr(pos, end - pos))] = static_cast<int>(number);
        pos += length;
    }
    return names;
}

/// A value of a complex element: "S=0.25", "R=90", "R=1.5r".
double angleValue(std::wstring v)
{
    double unit = M_PI / 180.0;
    if (!v.empty() && (v.back() == L'r' || v.back() == L'R')) {
        unit = 1.0;
        v.pop_back();
    } else if (!v.empty() && (v.back() == L'g' || v.back() == L'G')) {
        unit = M_PI / 200.0;
        v.pop_back();
    } else if (!v.empty() && (v.back() == L'd' || v.back() == L'D')) {
        v.pop_back();
    }
    return std::wcstod(v.c_str(), nullptr) * unit;
}

class Loader {
public:
    Loader(AcDbDatabase* db, AcDbImpDatabase* imp, std::wstring linFile) : m_db(db), m_imp(imp), m_linFile(std::move(linFile)) {}

    /// A new record for a definition, or the failure.
    Acad::ErrorStatus build(const LinDef& def, AcDbLinetypeTableRecord*& out)
    {
        out = nullptr;
        auto rec = std::make_unique<AcDbLinetypeTableRecord>();
        if (rec->setName(def.name.c_str()) != Acad::eOk)
            return Acad::eInvalidInput;
        rec->setComments(def.description.c_str());
        std::vector<std::wstring> fields = splitFields(def.pattern);
        if (fields.empty() || sim::db::upperCase(fields[0].empty() ? L' ' : fields[0][0]) != L'A')
            return Acad::eInvalidInput;
        double total = 0.0;
        for (size_t i = 1; i < fields.size(); ++i) {
            const std::wstring& f = fields[i];
            if (f.empty())
                continue;
            if (f.front() == L'[') {
                if (rec->numDashes() == 0)
                    return Acad::eInvalidInput;
                if (Acad::ErrorStatus es = complexElement(*rec, rec->numDashes() - 1, f.substr(1, f.size() - 2)); es != Acad::eOk)
                    return es;
                continue;
            }
            int n = rec->numDashes();
            rec->setNumDashes(n + 1);
            double len = std::wcstod(f.c_str(), nullptr);
            rec->setDashLengthAt(n, len);
            total += std::fabs(len);
        }
        rec->setPatternLength(total);
        out = rec.release();
        return Acad::eOk;
    }

private:
    Acad::ErrorStatus complexElement(AcDbLinetypeTableRecord& rec, int dash, const std::wstring& body)
    {
        std::vector<std::wstring> parts = splitFields(body);
        if (parts.size() < 2)
            return Acad::eInvalidInput;
        bool isText = parts[0].size() >= 2 && parts[0].front() == L'"' && parts[0].back() == L'"';
        if (isText) {
            AcDbObjectId style = styleByName(parts[1]);
            if (style.isNull())
                return Acad::eKeyNotFound;
            rec.setShapeStyleAt(dash, style);
            rec.setShapeNumberAt(dash, 0);
            rec.setTextAt(dash, parts[0].substr(1, parts[0].size() - 2).c_str());
        } else {
            AcDbObjectId style = shapeStyle(parts[1]);
            if (style.isNull())
                return Acad::eKeyNotFound;
            std::optional<int> number = shapeNumber(style, parts[1], parts[0]);
            if (!number)
                return Acad::eKeyNotFound;
            rec.setShapeStyleAt(dash, style);
            rec.setShapeNumberAt(dash, *number);
        }
        rec.setShapeScaleAt(dash, 1.0);
        for (size_t i = 2; i < parts.size(); ++i) {
            size_t eq = parts[i].find(L'=');
            if (eq == std::wstring::npos)
                continue;
            wchar_t key = sim::db::upperCase(parts[i][0]);
            std::wstring value = trim(parts[i].substr(eq + 1));
            if (key == L'S')
                rec.setShapeScaleAt(dash, std::wcstod(value.c_str(), nullptr));
            else if (key == L'R')
                rec.setShapeRotationAt(dash, angleValue(value));
            else if (key == L'A') {
                rec.setShapeRotationAt(dash, angleValue(value));
                rec.setShapeIsUcsOrientedAt(dash, true);
            } else if (key == L'U') {
                rec.setShapeRotationAt(dash, angleValue(value));
                rec.setShapeIsUprightAt(dash, true);
            } else if (key == L'X' || key == L'Y') {
                AcGeVector2d off = rec.shapeOffsetAt(dash);
                (key == L'X' ? off.x : off.y) = std::wcstod(value.c_str(), nullptr);
                rec.setShapeOffsetAt(dash, off);
            }
        }
        return Acad::eOk;
    }

    AcDbTextStyleTable* styles() const
    {
        return AcDbTextStyleTable::cast(m_imp->find(m_imp->tables[sim::db::kTextStyleTable].handle()));
    }

    AcDbObjectId styleByName(const std::wstring& name) const
    {
        AcDbObjectId id;
        AcDbTextStyleTable* t = styles();
        return t && t->getAt(name.c_str(), id) == Acad::eOk ? id : AcDbObjectId::kNull;
    }

    /// The style that loads a shape file of that file name.
    AcDbObjectId shapeStyle(const std::wstring& file) const
    {
        AcDbTextStyleTable* t = styles();
        if (!t)
            return AcDbObjectId::kNull;
        for (AcDbObjectId id : AcDbImpDatabase::records(t)) {
            auto* rec = AcDbTextStyleTableRecord::cast(m_imp->find(id.handle()));
            if (!rec || rec->isErased() || !rec->isShapeFile())
                continue;
            const ACHAR* fn = nullptr;
            rec->fileName(fn);
            if (sim::db::sameName(baseName(fn), baseName(file)))
                return id;
        }
        return AcDbObjectId::kNull;
    }

    std::optional<int> shapeNumber(AcDbObjectId style, const std::wstring& file, const std::wstring& shape)
    {
        auto* rec = AcDbTextStyleTableRecord::cast(m_imp->find(style.handle()));
        const ACHAR* fn = nullptr;
        rec->fileName(fn);
        // The style's file, else the name in the line type beside the .lin file, else the search.
        std::vector<std::wstring> tries{sim::db::normalizePath(fn)};
        std::wstring dir = sim::db::normalizePath(m_linFile);
        if (size_t slash = dir.find_last_of(L'/'); slash != std::wstring::npos)
            tries.push_back(dir.substr(0, slash + 1) + baseName(file));
        ACHAR found[1024];
        if (acdbHostApplicationServices()->findFile(found, 1024, baseName(file).c_str(), m_db) == Acad::eOk)
            tries.push_back(found);
        for (const std::wstring& path : tries) {
            std::optional<std::string> bytes = readFile(path);
            if (!bytes)
                continue;
            std::optional<std::map<std::wstring, int>> names = shapeNames(*bytes);
            if (!names)
                return std::nullopt;
            for (const auto& [name, number] : *names)
                if (sim::db::sameName(name, shape))
                    return number;
            return std::nullopt;
        }
        return std::nullopt;
    }

    AcDbDatabase* m_db;
    AcDbImpDatabase* m_imp;
    std::wstring m_linFile;
};

} // namespace

Acad::ErrorStatus acdbLoadLineTypeFile(const ACHAR* ltname, const ACHAR* fname, AcDbDatabase* pDb)
{
    if (!pDb)
        pDb = acdbHostApplicationServices()->workingDatabase();
    AcDbImpDatabase* imp = AcDbImpDatabase::of(pDb);
    if (!ltname || !*ltname || !fname || !*fname)
        return Acad::eInvalidInput;
    if (!imp)
        return Acad::eNoDatabase;
    auto* table = AcDbLinetypeTable::cast(imp->find(imp->tables[sim::db::kLinetypeTable].handle()));
    if (!table)
        return Acad::eNoDatabase;
    ACHAR path[1024];
    if (acdbHostApplicationServices()->findFile(path, 1024, fname, pDb) != Acad::eOk)
        return Acad::eFileNotFound;
    std::optional<std::string> bytes = readFile(path);
    if (!bytes)
        return Acad::eFileAccessErr;
    if (bytes->rfind("\xEF\xBB\xBF", 0) == 0)
        bytes->erase(0, 3);

    Loader loader(pDb, imp, path);
    Acad::ErrorStatus result = Acad::eKeyNotFound;
    bool any = false;
    for (const LinDef& def : parseLin(sim::fromUtf8(*bytes))) {
        if (!matches(ltname, def.name.c_str()))
            continue;
        any = true;
        if (table->has(def.name.c_str())) {
            if (result == Acad::eKeyNotFound || result == Acad::eOk)
                result = Acad::eDuplicateRecordName;
            continue;
        }
        AcDbLinetypeTableRecord* rec = nullptr;
        Acad::ErrorStatus es = loader.build(def, rec);
        if (es != Acad::eOk) {
            result = es;
            continue;
        }
        AcDbObjectId id;
        if (imp->addObject(rec, table->objectId(), id, AcDbHandle(), false) != Acad::eOk) {
            delete rec;
            continue;
        }
        imp->touch(table);
        AcDbImpDatabase::records(table).push_back(id);
        if (result == Acad::eKeyNotFound)
            result = Acad::eOk;
    }
    return any ? result : Acad::eKeyNotFound;
}
