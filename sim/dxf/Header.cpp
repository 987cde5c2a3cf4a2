// The HEADER section.
#include "sim/dxf/Header.h"

#include <cstring>
#include <functional>

#include "sim/core/Session.h"
#include "sim/db/FileAccess.h"
#include "sim/dxf/DxfError.h"
#include "sim/dxf/EntityFields.h"

namespace sim::dxf {

namespace {

using sim::db::TableKind;

/// What applying the variables gathers before it can set them (a UCS needs all three parts).
struct Ucs {
    std::optional<AcGePoint3d> origin;
    std::optional<AcGeVector3d> x, y;
};
struct Gathered {
    Ucs model, paper;
};

struct Var {
    std::string_view name;
    std::function<void(TagWriter&, AcDbDatabase&, WriteContext&)> write;
    std::function<void(AcDbDatabase&, const std::vector<Tag>&, ReadContext&, Gathered&)> apply;
};

const Tag* first(const std::vector<Tag>& g, int code)
{
    for (const Tag& t : g)
        if (t.code == code)
            return &t;
    return nullptr;
}

AcGePoint3d point(const std::vector<Tag>& g, int code)
{
    AcGePoint3d p;
    if (const Tag* t = first(g, code))
        p.x = t->real;
    if (const Tag* t = first(g, code + 10))
        p.y = t->real;
    if (const Tag* t = first(g, code + 20))
        p.z = t->real;
    return p;
}

Var realVar(std::string_view name, double (AcDbDatabase::*get)() const, Acad::ErrorStatus (AcDbDatabase::*set)(double))
{
    return {name, [get](TagWriter& w, AcDbDatabase& db, WriteContext&) { w.real(40, (db.*get)()); },
            [set](AcDbDatabase& db, const std::vector<Tag>& g, ReadContext&, Gathered&) {
                if (const Tag* t = first(g, 40))
                    (db.*set)(t->real);
            }};
}

Var boolVar(std::string_view name, bool (AcDbDatabase::*get)() const, Acad::ErrorStatus (AcDbDatabase::*set)(bool))
{
    return {name, [get](TagWriter& w, AcDbDatabase& db, WriteContext&) { w.integer(70, (db.*get)() ? 1 : 0); },
            [set](AcDbDatabase& db, const std::vector<Tag>& g, ReadContext&, Gathered&) {
                if (const Tag* t = first(g, 70))
                    (db.*set)(t->integer != 0);
            }};
}

/// A variable that names a record of a table.
Var nameVar(std::string_view name, int code, TableKind table, AcDbObjectId (AcDbDatabase::*get)() const,
            Acad::ErrorStatus (AcDbDatabase::*set)(AcDbObjectId), bool optional = false)
{
    return {name,
            [=](TagWriter& w, AcDbDatabase& db, WriteContext& cx) {
                AcDbObjectId id = (db.*get)();
                if (!id.isNull() || optional)
                    w.write(code, cx.name(id));
            },
            [=](AcDbDatabase& db, const std::vector<Tag>& g, ReadContext& cx, Gathered&) {
                const Tag* t = first(g, code);
                if (!t)
                    return;
                if (t->value.empty() && optional)
                    (db.*set)(AcDbObjectId::kNull);
                else if (AcDbObjectId id = cx.find(table, t->value); !id.isNull())
                    (db.*set)(id);
            }};
}

Var ucsVar(std::string_view name, bool paper, int part)
{
    return {name,
            [=](TagWriter& w, AcDbDatabase& db, WriteContext&) {
                if (part == 0)
                    w.point(10, paper ? db.pucsorg() : db.ucsorg());
                else if (part == 1)
                    w.point(10, paper ? db.pucsxdir() : db.ucsxdir());
                else
                    w.point(10, paper ? db.pucsydir() : db.ucsydir());
            },
            [=](AcDbDatabase&, const std::vector<Tag>& g, ReadContext&, Gathered& gathered) {
                Ucs& u = paper ? gathered.paper : gathered.model;
                AcGePoint3d p = point(g, 10);
                if (part == 0)
                    u.origin = p;
                else if (part == 1)
                    u.x = AcGeVector3d(p.x, p.y, p.z);
                else
                    u.y = AcGeVector3d(p.x, p.y, p.z);
            }};
}

const std::vector<Var>& vars()
{
    static const std::vector<Var> v = [] {
        std::vector<Var> out;
        out.push_back({"$ACADVER", [](TagWriter& w, AcDbDatabase&, WriteContext&) { w.write(1, "AC1032"); },
                       [](AcDbDatabase&, const std::vector<Tag>&, ReadContext&, Gathered&) {}});
        out.push_back({"$INSUNITS", [](TagWriter& w, AcDbDatabase& db, WriteContext&) { w.integer(70, db.insunits()); },
                       [](AcDbDatabase& db, const std::vector<Tag>& g, ReadContext&, Gathered&) {
                           if (const Tag* t = first(g, 70))
                               if (auto units = enumValue(t->integer, AcDb::kUnitsUndefined, AcDb::kUnitsMax))
                                   db.setInsunits(*units);
                       }});
        out.push_back(realVar("$LTSCALE", &AcDbDatabase::ltscale, &AcDbDatabase::setLtscale));
        out.push_back(realVar("$CELTSCALE", &AcDbDatabase::celtscale, &AcDbDatabase::setCeltscale));
        out.push_back(realVar("$TEXTSIZE", &AcDbDatabase::textsize, &AcDbDatabase::setTextsize));
        out.push_back(boolVar("$MSLTSCALE", &AcDbDatabase::msltscale, &AcDbDatabase::setMsltscale));
        out.push_back(boolVar("$PSLTSCALE", &AcDbDatabase::psltscale, &AcDbDatabase::setPsltscale));
        out.push_back(boolVar("$TILEMODE", &AcDbDatabase::tilemode, &AcDbDatabase::setTilemode));
        out.push_back(nameVar("$CLAYER", 8, sim::db::kLayerTable, &AcDbDatabase::clayer, &AcDbDatabase::setClayer));
        out.push_back(nameVar("$CELTYPE", 6, sim::db::kLinetypeTable, &AcDbDatabase::celtype, &AcDbDatabase::setCeltype));
        out.push_back(nameVar("$TEXTSTYLE", 7, sim::db::kTextStyleTable, &AcDbDatabase::textstyle, &AcDbDatabase::setTextstyle));
        out.push_back(nameVar("$DIMSTYLE", 2, sim::db::kDimStyleTable, &AcDbDatabase::dimstyle, &AcDbDatabase::setDimstyle));
        out.push_back(nameVar("$UCSNAME", 2, sim::db::kUCSTable, &AcDbDatabase::ucsname, &AcDbDatabase::setUcsname, true));
        out.push_back(nameVar("$PUCSNAME", 2, sim::db::kUCSTable, &AcDbDatabase::pucsname, &AcDbDatabase::setPucsname, true));
        out.push_back({"$CMLEADERSTYLE",
                       [](TagWriter& w, AcDbDatabase& db, WriteContext&) {
                           if (!db.cmleaderstyle().isNull())
                               w.handle(340, db.cmleaderstyle().handle());
                       },
                       [](AcDbDatabase& db, const std::vector<Tag>& g, ReadContext& cx, Gathered&) {
                           if (const Tag* t = first(g, 340); t && t->integer)
                               db.setCmleaderstyle(cx.id(t->handle()));
                       }});
        out.push_back({"$CANNOSCALE", [](TagWriter& w, AcDbDatabase& db, WriteContext&) { w.text(2, sim::db::cannoscaleName(&db)); },
                       [](AcDbDatabase& db, const std::vector<Tag>& g, ReadContext&, Gathered&) {
                           if (const Tag* t = first(g, 2))
                               sim::db::setCannoscaleName(&db, decodeText(t->value));
                       }});
        out.push_back({"$CECOLOR", [](TagWriter& w, AcDbDatabase& db, WriteContext&) {
                           AcCmColor c = db.cecolor();
                           if (c.isByLayer())
                               w.integer(62, 256);
                           else
                               writeColor(w, c);
                       },
                       [](AcDbDatabase& db, const std::vector<Tag>& g, ReadContext&, Gathered&) {
                           const Tag* index = first(g, 62);
                           db.setCecolor(readColor(index ? static_cast<int>(index->integer) : 256, first(g, 420)));
                       }});
        out.push_back({"$CELWEIGHT", [](TagWriter& w, AcDbDatabase& db, WriteContext&) { w.integer(370, db.celweight()); },
                       [](AcDbDatabase& db, const std::vector<Tag>& g, ReadContext&, Gathered&) {
                           if (const Tag* t = first(g, 370))
                               if (auto lw = enumValue(t->integer, AcDb::kLnWtByLwDefault, AcDb::kLnWt211))
                                   db.setCelweight(*lw);
                       }});
        out.push_back(ucsVar("$UCSORG", false, 0));
        out.push_back(ucsVar("$UCSXDIR", false, 1));
        out.push_back(ucsVar("$UCSYDIR", false, 2));
        out.push_back(ucsVar("$PUCSORG", true, 0));
        out.push_back(ucsVar("$PUCSXDIR", true, 1));
        out.push_back(ucsVar("$PUCSYDIR", true, 2));
        out.push_back({"$FINGERPRINTGUID",
                       [](TagWriter& w, AcDbDatabase& db, WriteContext&) {
                           ACHAR* guid = nullptr;
                           db.getFingerprintGuid(guid);
                           w.text(2, guid ? guid : L"");
                           delete[] guid;
                       },
                       [](AcDbDatabase& db, const std::vector<Tag>& g, ReadContext&, Gathered&) {
                           if (const Tag* t = first(g, 2); t && !t->value.empty())
                               db.setFingerprintGuid(sim::fromUtf8(t->value).c_str());
                       }});
        out.push_back({"$HANDSEED", [](TagWriter& w, AcDbDatabase& db, WriteContext&) { w.handle(5, db.handseed()); },
                       [](AcDbDatabase&, const std::vector<Tag>&, ReadContext&, Gathered&) {}});
        return out;
    }();
    return v;
}

int varIndex(std::string_view name)
{
    const auto& v = vars();
    for (size_t i = 0; i < v.size(); ++i)
        if (v[i].name == name)
            return static_cast<int>(i);
    return -1;
}

} // namespace

void readHeader(TagReader& reader, sim::db::RawTags& extras, HeaderValues& values)
{
    for (;;) {
        const Tag* t = reader.peek();
        if (!t || t->code == 0)
            return;
        Tag name = reader.take();
        if (name.code != 9)
            throw DxfError(name.line, "a header variable must begin with group 9, not " + std::to_string(name.code));
        extras.push_back({9, std::string(name.value)});
        int index = varIndex(name.value);
        std::vector<Tag> groups;
        while ((t = reader.peek()) && t->code != 0 && t->code != 9)
            groups.push_back(reader.take());
        if (index < 0) {
            for (const Tag& g : groups)
                extras.push_back({g.code, std::string(g.value)});
            continue;
        }
        if (name.value == "$HANDSEED")
            if (const Tag* h = first(groups, 5))
                values.handseed = h->handle();
        values.values.push_back({static_cast<size_t>(index), std::move(groups)});
    }
}

void applyHeader(AcDbDatabase& db, const HeaderValues& values, ReadContext& cx)
{
    Gathered gathered;
    for (const auto& v : values.values)
        vars()[v.var].apply(db, v.groups, cx, gathered);
    auto setUcs = [&](const Ucs& u, bool paper) {
        if (!u.origin && !u.x && !u.y)
            return;
        AcGePoint3d o = u.origin.value_or(paper ? db.pucsorg() : db.ucsorg());
        AcGeVector3d x = u.x.value_or(paper ? db.pucsxdir() : db.ucsxdir());
        AcGeVector3d y = u.y.value_or(paper ? db.pucsydir() : db.ucsydir());
        if (paper)
            db.setPucs(o, x, y);
        else
            db.setUcs(o, x, y);
    };
    setUcs(gathered.model, false);
    setUcs(gathered.paper, true);
}

void sniffHeader(std::string_view text, std::string& version, std::string& codePage)
{
    // The two variables stand near the start; the value is the second line after the name.
    auto valueOf = [&](std::string_view name) {
        size_t at = text.substr(0, 1 << 16).find(name);
        if (at == std::string_view::npos)
            return std::string();
        size_t line1 = text.find('\n', at);
        if (line1 == std::string_view::npos)
            return std::string();
        size_t line2 = text.find('\n', line1 + 1);
        if (line2 == std::string_view::npos)
            return std::string();
        size_t end = text.find('\n', line2 + 1);
        std::string_view v = text.substr(line2 + 1, end == std::string_view::npos ? std::string_view::npos : end - line2 - 1);
        while (!v.empty() && (v.back() == '\r' || v.back() == ' '))
            v.remove_suffix(1);
        while (!v.empty() && v.front() == ' ')
            v.remove_prefix(1);
        return std::string(v);
    };
    version = valueOf("$ACADVER");
    codePage = valueOf("$DWGCODEPAGE");
}

void writeHeader(AcDbDatabase& db, const sim::db::RawTags& extras, TagWriter& w, WriteContext& cx)
{
    const auto& v = vars();
    std::vector<bool> written(v.size(), false);
    auto writeVar = [&](size_t i) {
        written[i] = true;
        TagRecorder value; // a variable without a value (no current multileader style) is left out
        v[i].write(value, db, cx);
        if (value.tags.empty())
            return;
        w.write(9, v[i].name);
        w.raw(value.tags);
    };
    writeVar(0); // $ACADVER first
    for (size_t i = 0; i < extras.size(); ++i) {
        const sim::db::RawTag& t = extras[i];
        if (t.code == 9) {
            int index = varIndex(t.value);
            if (index >= 0) {
                if (!written[static_cast<size_t>(index)])
                    writeVar(static_cast<size_t>(index));
                continue;
            }
        }
        w.write(t.code, t.value);
    }
    for (size_t i = 0; i < v.size(); ++i)
        if (!written[i])
            writeVar(i);
}

} // namespace sim::dxf
