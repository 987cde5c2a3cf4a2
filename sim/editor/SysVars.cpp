// The system variables the platform knows: where each value lives, its type and its range.
#include "sim/editor/SysVars.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

#include <memory>

#include "acedads.h"
#include "dbAnnotationScale.h"
#include "dbObjectContextManager.h"
#include "sim/db/ArrowBlocks.h"
#include "sim/editor/DbNames.h"
#include "sim/editor/InputParse.h"
#include "sim/editor/Keywords.h"
#include "sim/editor/Ucs.h"

namespace sim::editor {

namespace {

using Getter = std::optional<VarValue> (*)(AcDbDatabase&);
using Setter = bool (*)(AcDbDatabase&, const VarValue&);

struct VarDef {
    const wchar_t* name;
    VarType type;
    bool readOnly;
    VarValue initial;      ///< for a variable the editor holds
    Getter get = nullptr;  ///< null: the editor holds the value
    Setter set = nullptr;
    int lo = 0, hi = 0;    ///< the range of an integer when lo < hi
};

const int* asInt(const VarValue& v) { return std::get_if<int>(&v); }
const std::wstring* asText(const VarValue& v) { return std::get_if<std::wstring>(&v); }
std::optional<double> asReal(const VarValue& v)
{
    if (auto d = std::get_if<double>(&v))
        return *d;
    if (auto i = std::get_if<int>(&v))
        return *i;
    return std::nullopt;
}

bool positiveReal(const VarValue& v, double& out)
{
    auto d = asReal(v);
    if (!d || !(*d > 0.0))
        return false;
    out = *d;
    return true;
}

bool flag(const VarValue& v, bool& out)
{
    auto i = asInt(v);
    if (!i || (*i != 0 && *i != 1))
        return false;
    out = *i == 1;
    return true;
}

std::wstring colorText(const AcCmColor& c)
{
    if (c.isByLayer())
        return L"BYLAYER";
    if (c.isByBlock())
        return L"BYBLOCK";
    if (c.isByColor())
        return L"RGB:" + std::to_wstring(c.red()) + L"," + std::to_wstring(c.green()) + L"," + std::to_wstring(c.blue());
    return std::to_wstring(c.colorIndex());
}

std::optional<AcCmColor> parseColor(std::wstring_view text)
{
    static const wchar_t* names[] = {L"RED", L"YELLOW", L"GREEN", L"CYAN", L"BLUE", L"MAGENTA", L"WHITE"};
    std::wstring t = upperCase(trimmed(text));
    AcCmColor c;
    if (t == L"BYLAYER") {
        c.setByLayer();
        return c;
    }
    if (t == L"BYBLOCK") {
        c.setByBlock();
        return c;
    }
    for (int i = 0; i < 7; ++i)
        if (t == names[i]) {
            c.setColorIndex(static_cast<Adesk::UInt16>(i + 1));
            return c;
        }
    auto n = parseInt(t);
    if (!n || *n < 1 || *n > 255)
        return std::nullopt;
    c.setColorIndex(static_cast<Adesk::UInt16>(*n));
    return c;
}

std::optional<VarValue> text(std::wstring s) { return VarValue(std::move(s)); }

// What DIMBLK may name: nothing (the closed filled arrow), a predefined arrow the host can build,
// or a block of the drawing.
bool setDimblk(const VarValue& v)
{
    auto t = asText(v);
    AcDbDatabase* db = workingDb();
    if (!t || !db)
        return false;
    std::wstring name(trimmed(*t));
    if (name == L".")
        name.clear();
    if (!sim::db::predefinedArrowName(name).empty()) {
        if (sim::db::arrowBlock(db, name).isNull())
            return false;
        // The variable names a predefined arrow in capitals, with its underscore.
        name = upperCase(name[0] == L'_' ? name : L"_" + name);
    } else if (!name.empty()) {
        AcDbBlockTablePointer table(db);
        if (table.openStatus() != Acad::eOk || !table->has(name.c_str()))
            return false;
    }
    editorState().vars[L"DIMBLK"] = name;
    return true;
}

std::optional<VarValue> ucsAxis(int column)
{
    AcGeMatrix3d m = ucsToWcs();
    return VarValue(AcGePoint3d(m(0, column), m(1, column), m(2, column)));
}

std::wstring fileName(AcDbDatabase& db, bool folder)
{
    const ACHAR* path = nullptr;
    std::wstring p = db.getFilename(path) == Acad::eOk && path ? path : L"Drawing1.dwg";
    size_t slash = p.find_last_of(L"\\/");
    if (folder)
        return slash == std::wstring::npos ? L"" : p.substr(0, slash + 1);
    return slash == std::wstring::npos ? p : p.substr(slash + 1);
}

const std::vector<VarDef>& table()
{
    using T = VarType;
    static const std::vector<VarDef> defs = {
        {L"ACADVER", T::String, true, std::wstring(L"24.0s (LMS Tech)")},
        {L"ANGBASE", T::Real, true, 0.0},
        {L"ANGDIR", T::Short, true, 0},
        {L"ATTDIA", T::Short, false, 0, nullptr, nullptr, 0, 1},
        {L"ATTREQ", T::Short, false, 1, nullptr, nullptr, 0, 1},
        {L"AUNITS", T::Short, true, 0},
        {L"CANNOSCALE", T::String, false, 0,
         [](AcDbDatabase& db) {
             std::unique_ptr<AcDbAnnotationScale> scale(db.cannoscale());
             AcString name;
             if (scale)
                 scale->getName(name);
             return text(name.constPtr());
         },
         [](AcDbDatabase& db, const VarValue& v) {
             auto t = asText(v);
             AcDbObjectContextCollection* scales =
                 db.objectContextManager()->contextCollection(ACDB_ANNOTATIONSCALES_COLLECTION);
             if (!t || !scales)
                 return false;
             std::unique_ptr<AcDbObjectContext> scale(scales->getContext(AcString(std::wstring(trimmed(*t)).c_str())));
             return scale && scales->setCurrentContext(scale.get()) == Acad::eOk;
         }},
        {L"CECOLOR", T::String, false, 0, [](AcDbDatabase& db) { return text(colorText(db.cecolor())); },
         [](AcDbDatabase& db, const VarValue& v) {
             auto t = asText(v);
             auto c = t ? parseColor(*t) : std::nullopt;
             return c && db.setCecolor(*c) == Acad::eOk;
         }},
        {L"CELTSCALE", T::Real, false, 0, [](AcDbDatabase& db) { return std::optional<VarValue>(db.celtscale()); },
         [](AcDbDatabase& db, const VarValue& v) {
             double d;
             return positiveReal(v, d) && db.setCeltscale(d) == Acad::eOk;
         }},
        {L"CELTYPE", T::String, false, 0, [](AcDbDatabase& db) { return text(recordName(db.celtype())); },
         [](AcDbDatabase& db, const VarValue& v) {
             auto t = asText(v);
             AcDbObjectId id = t ? recordId<AcDbLinetypeTableRecord>(&db, *t) : AcDbObjectId::kNull;
             return !id.isNull() && db.setCeltype(id) == Acad::eOk;
         }},
        {L"CELWEIGHT", T::Short, false, 0, [](AcDbDatabase& db) { return std::optional<VarValue>(static_cast<int>(db.celweight())); },
         [](AcDbDatabase& db, const VarValue& v) {
             auto i = asInt(v);
             static const int ok[] = {-3, -2, -1, 0, 5, 9, 13, 15, 18, 20, 25, 30, 35, 40, 50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
             return i && std::find(std::begin(ok), std::end(ok), *i) != std::end(ok) &&
                    db.setCelweight(static_cast<AcDb::LineWeight>(*i)) == Acad::eOk;
         }},
        {L"CLAYER", T::String, false, 0, [](AcDbDatabase& db) { return text(recordName(db.clayer())); },
         [](AcDbDatabase& db, const VarValue& v) {
             auto t = asText(v);
             AcDbObjectId id = t ? recordId<AcDbLayerTableRecord>(&db, *t) : AcDbObjectId::kNull;
             if (id.isNull())
                 return false;
             AcDbObjectPointer<AcDbLayerTableRecord> layer(id);
             return layer.openStatus() == Acad::eOk && !layer->isFrozen() && db.setClayer(id) == Acad::eOk;
         }},
        {L"CMDDIA", T::Short, false, 1, nullptr, nullptr, 0, 1},
        {L"CMDECHO", T::Short, false, 1, nullptr, nullptr, 0, 1},
        {L"CVPORT", T::Short, false, 2, nullptr, nullptr, 1, 2},
        {L"DIMBLK", T::String, false, std::wstring()},
        {L"DIMSTYLE", T::String, true, 0, [](AcDbDatabase& db) { return text(recordName(db.dimstyle())); }},
        {L"DWGNAME", T::String, true, 0, [](AcDbDatabase& db) { return text(fileName(db, false)); }},
        {L"DWGPREFIX", T::String, true, 0, [](AcDbDatabase& db) { return text(fileName(db, true)); }},
        {L"ELEVATION", T::Real, true, 0.0},
        {L"ERRNO", T::Short, false, 0},
        {L"EXPERT", T::Short, false, 0, nullptr, nullptr, 0, 5},
        {L"FILEDIA", T::Short, false, 1, nullptr, nullptr, 0, 1},
        {L"INSUNITS", T::Short, false, 0, [](AcDbDatabase& db) { return std::optional<VarValue>(static_cast<int>(db.insunits())); },
         [](AcDbDatabase& db, const VarValue& v) {
             auto i = asInt(v);
             return i && *i >= 0 && *i <= 20 && db.setInsunits(static_cast<AcDb::UnitsValue>(*i)) == Acad::eOk;
         }},
        {L"INSUNITSDEFSOURCE", T::Short, false, 4, nullptr, nullptr, 0, 20},
        {L"INSUNITSDEFTARGET", T::Short, false, 4, nullptr, nullptr, 0, 20},
        {L"LASTPOINT", T::Point3d, false, 0, [](AcDbDatabase&) { return std::optional<VarValue>(toUcs(editorState().lastPoint)); },
         [](AcDbDatabase&, const VarValue& v) {
             auto p = std::get_if<AcGePoint3d>(&v);
             if (p)
                 editorState().lastPoint = toWcs(*p);
             return p != nullptr;
         }},
        {L"LTSCALE", T::Real, false, 0, [](AcDbDatabase& db) { return std::optional<VarValue>(db.ltscale()); },
         [](AcDbDatabase& db, const VarValue& v) {
             double d;
             return positiveReal(v, d) && db.setLtscale(d) == Acad::eOk;
         }},
        {L"LUNITS", T::Short, true, 2},
        {L"MSLTSCALE", T::Short, false, 0, [](AcDbDatabase& db) { return std::optional<VarValue>(db.msltscale() ? 1 : 0); },
         [](AcDbDatabase& db, const VarValue& v) {
             bool b;
             return flag(v, b) && db.setMsltscale(b) == Acad::eOk;
         }},
        {L"OSMODE", T::Short, false, 4133, nullptr, nullptr, 0, 32767},
        {L"PICKBOX", T::Short, false, 3, nullptr, nullptr, 0, 50},
        {L"PICKFIRST", T::Short, false, 1, nullptr, nullptr, 0, 1},
        {L"PSLTSCALE", T::Short, false, 0, [](AcDbDatabase& db) { return std::optional<VarValue>(db.psltscale() ? 1 : 0); },
         [](AcDbDatabase& db, const VarValue& v) {
             bool b;
             return flag(v, b) && db.setPsltscale(b) == Acad::eOk;
         }},
        {L"SCREENSIZE", T::Point2d, true, AcGePoint3d(1600.0, 900.0, 0.0)},
        {L"TEXTSIZE", T::Real, false, 0, [](AcDbDatabase& db) { return std::optional<VarValue>(db.textsize()); },
         [](AcDbDatabase& db, const VarValue& v) {
             double d;
             return positiveReal(v, d) && db.setTextsize(d) == Acad::eOk;
         }},
        {L"TEXTSTYLE", T::String, false, 0, [](AcDbDatabase& db) { return text(recordName(db.textstyle())); },
         [](AcDbDatabase& db, const VarValue& v) {
             auto t = asText(v);
             AcDbObjectId id = t ? recordId<AcDbTextStyleTableRecord>(&db, *t) : AcDbObjectId::kNull;
             return !id.isNull() && db.setTextstyle(id) == Acad::eOk;
         }},
        {L"TILEMODE", T::Short, false, 0, [](AcDbDatabase& db) { return std::optional<VarValue>(db.tilemode() ? 1 : 0); },
         [](AcDbDatabase& db, const VarValue& v) {
             bool b;
             if (!flag(v, b) || db.setTilemode(b) != Acad::eOk)
                 return false;
             editorState().vars[L"CVPORT"] = b ? 2 : 1;
             return true;
         }},
        {L"UCSNAME", T::String, true, 0, [](AcDbDatabase& db) {
             bool paper = !db.tilemode() && std::get<int>(*getVar(L"CVPORT")) == 1;
             return text(recordName(paper ? db.pucsname() : db.ucsname()));
         }},
        {L"UCSORG", T::Point3d, true, 0, [](AcDbDatabase&) { return ucsAxis(3); }},
        {L"UCSXDIR", T::Point3d, true, 0, [](AcDbDatabase&) { return ucsAxis(0); }},
        {L"UCSYDIR", T::Point3d, true, 0, [](AcDbDatabase&) { return ucsAxis(1); }},
        {L"VIEWCTR", T::Point3d, true, 0, [](AcDbDatabase&) { return std::optional<VarValue>(toUcs(viewCenter())); }},
        {L"VIEWSIZE", T::Real, true, 0, [](AcDbDatabase&) { return std::optional<VarValue>(viewSize()); }},
        {L"WORLDUCS", T::Short, true, 0, [](AcDbDatabase&) {
             return std::optional<VarValue>(ucsToWcs().isEqualTo(AcGeMatrix3d::kIdentity) ? 1 : 0);
         }},
    };
    return defs;
}

const VarDef* findDef(std::wstring_view name)
{
    std::wstring up = upperCase(trimmed(name));
    for (const auto& d : table())
        if (up == d.name)
            return &d;
    return nullptr;
}

bool sameKind(VarType type, const VarValue& v)
{
    switch (type) {
    case VarType::Short: return std::holds_alternative<int>(v);
    case VarType::Real: return std::holds_alternative<double>(v) || std::holds_alternative<int>(v);
    case VarType::String: return std::holds_alternative<std::wstring>(v);
    case VarType::Point2d:
    case VarType::Point3d: return std::holds_alternative<AcGePoint3d>(v);
    }
    return false;
}

} // namespace

std::optional<VarInfo> findVar(std::wstring_view name)
{
    const VarDef* d = findDef(name);
    if (!d)
        return std::nullopt;
    return VarInfo{d->name, d->type, d->readOnly};
}

std::vector<std::wstring> varNames()
{
    std::vector<std::wstring> names;
    for (const auto& d : table())
        names.push_back(d.name);
    std::sort(names.begin(), names.end());
    return names;
}

std::optional<VarValue> getVar(std::wstring_view name)
{
    const VarDef* d = findDef(name);
    if (!d)
        return std::nullopt;
    if (d->get) {
        AcDbDatabase* db = workingDb();
        if (!db)
            return std::nullopt;
        return d->get(*db);
    }
    const auto& vars = editorState().vars;
    auto it = vars.find(d->name);
    return it != vars.end() ? it->second : d->initial;
}

bool setVar(std::wstring_view name, const VarValue& value)
{
    const VarDef* d = findDef(name);
    if (!d || d->readOnly || !sameKind(d->type, value))
        return false;
    if (std::wstring_view(d->name) == L"DIMBLK")
        return setDimblk(value);
    if (d->set) {
        AcDbDatabase* db = workingDb();
        return db && d->set(*db, value);
    }
    VarValue v = value;
    if (d->type == VarType::Real)
        v = *asReal(value);
    if (d->type == VarType::Short) {
        int i = std::get<int>(v);
        if (i < -32768 || i > 32767 || (d->lo < d->hi && (i < d->lo || i > d->hi)))
            return false;
    }
    if (d->type == VarType::Point2d)
        std::get<AcGePoint3d>(v).z = 0.0;
    editorState().vars[d->name] = v;
    return true;
}

std::wstring formatVar(const VarValue& value)
{
    wchar_t buf[128];
    if (auto i = std::get_if<int>(&value))
        return std::to_wstring(*i);
    if (auto d = std::get_if<double>(&value)) {
        std::swprintf(buf, 128, L"%.4f", *d);
        return buf;
    }
    if (auto s = std::get_if<std::wstring>(&value))
        return *s;
    const auto& p = std::get<AcGePoint3d>(value);
    std::swprintf(buf, 128, L"%.4f,%.4f,%.4f", p.x, p.y, p.z);
    return buf;
}

std::optional<VarValue> parseVar(VarType type, std::wstring_view text)
{
    switch (type) {
    case VarType::Short:
        if (auto i = parseInt(text))
            return VarValue(*i);
        return std::nullopt;
    case VarType::Real:
        if (auto d = parseReal(text))
            return VarValue(*d);
        return std::nullopt;
    case VarType::String:
        return VarValue(std::wstring(trimmed(text)));
    case VarType::Point2d:
    case VarType::Point3d:
        if (auto p = parsePoint(text); p && !p->relative && !p->polar)
            return VarValue(p->xyz);
        return std::nullopt;
    }
    return std::nullopt;
}

double viewSize()
{
    AcDbDatabase* db = workingDb();
    if (db) {
        AcDbViewportTableRecordPointer vp(L"*Active", db);
        if (vp.openStatus() == Acad::eOk && vp->height() > 0.0)
            return vp->height();
        double f = 1.0;
        if (acdbGetUnitsConversion(AcDb::kUnitsMillimeters, db->insunits(), f) == Acad::eOk)
            return 297.0 * f;
    }
    return 297.0;
}

AcGePoint3d viewCenter()
{
    if (AcDbDatabase* db = workingDb()) {
        AcDbViewportTableRecordPointer vp(L"*Active", db);
        if (vp.openStatus() == Acad::eOk)
            return AcGePoint3d(vp->centerPoint().x, vp->centerPoint().y, 0.0);
    }
    return AcGePoint3d::kOrigin;
}

double pixelSize()
{
    auto screen = getVar(L"SCREENSIZE");
    double h = screen ? std::get<AcGePoint3d>(*screen).y : 900.0;
    return viewSize() / (h > 0 ? h : 900.0);
}

} // namespace sim::editor

using namespace sim::editor;

int acedGetVar(const ACHAR* sym, struct resbuf* result)
{
    if (!sym || !result)
        return RTERROR;
    auto info = findVar(sym);
    auto v = info ? getVar(sym) : std::nullopt;
    if (!v)
        return RTERROR;
    result->rbnext = nullptr;
    switch (info->type) {
    case VarType::Short:
        result->restype = RTSHORT;
        result->resval.rlong = 0;
        result->resval.rint = static_cast<short>(std::get<int>(*v));
        break;
    case VarType::Real:
        result->restype = RTREAL;
        result->resval.rreal = std::get<double>(*v);
        break;
    case VarType::String:
        result->restype = RTSTR;
        acutNewString(std::get<std::wstring>(*v).c_str(), result->resval.rstring);
        break;
    case VarType::Point2d:
    case VarType::Point3d: {
        const auto& p = std::get<AcGePoint3d>(*v);
        result->restype = info->type == VarType::Point2d ? RTPOINT : RT3DPOINT;
        result->resval.rpoint[0] = p.x;
        result->resval.rpoint[1] = p.y;
        result->resval.rpoint[2] = info->type == VarType::Point2d ? 0.0 : p.z;
        break;
    }
    }
    return RTNORM;
}

int acedSetVar(const ACHAR* sym, const struct resbuf* val)
{
    if (!sym || !val)
        return RTERROR;
    VarValue v;
    switch (val->restype) {
    case RTSHORT: v = static_cast<int>(val->resval.rint); break;
    case RTLONG: v = static_cast<int>(val->resval.rlong); break;
    case RTREAL: v = val->resval.rreal; break;
    case RTSTR: v = std::wstring(val->resval.rstring ? val->resval.rstring : L""); break;
    case RTPOINT: v = AcGePoint3d(val->resval.rpoint[0], val->resval.rpoint[1], 0.0); break;
    case RT3DPOINT: v = AcGePoint3d(val->resval.rpoint[0], val->resval.rpoint[1], val->resval.rpoint[2]); break;
    default: return RTERROR;
    }
    return setVar(sym, v) ? RTNORM : RTERROR;
}
