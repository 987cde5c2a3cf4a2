// The host commands of the drawing-file module, prompting as the host's command line does with file
// dialogs off (FILEDIA 0, ATTDIA 0).
#include "sim/dxf/HostCommands.h"

#include <cmath>
#include <cwchar>
#include <filesystem>
#include <string>
#include <vector>

#include "acdocman.h"
#include "acedads.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbobjptr.h"
#include "sim/core/Session.h"
#include "sim/db/DatabaseAccess.h"
#include "sim/db/Documents.h"
#include "dbapserv.h"
#include "dbdict.h"
#include "dblayout.h"
#include "dblaymgr.h"
#include "sim/db/FileAccess.h"
#include "sim/db/Geometry.h"
#include "sim/dxf/DxfFile.h"
#include "sim/editor/HostCommands.h"
#include "sim/editor/Ucs.h"
#include "sim/editor/commands/Commands.h"

namespace sim::dxf {

namespace {

using sim::editor::commands::appendToSpace;
using sim::editor::commands::say;

constexpr size_t kLine = 2048;

/// A failure the run reports: shown on the command line and remembered by the session.
void failed(const std::wstring& message)
{
    say(L"%ls", message.c_str());
    if (auto* s = sim::Session::currentOrNull())
        s->fail(message);
}

bool getString(const std::wstring& prompt, std::wstring& out, bool spaces = true)
{
    ACHAR buf[kLine] = L"";
    if (acedGetString(spaces ? 1 : 0, prompt.c_str(), buf, kLine) != RTNORM)
        return false;
    out = buf;
    return true;
}

std::wstring keyword()
{
    ACHAR kw[64] = L"";
    acedGetInput(kw, 64);
    return kw;
}

bool fileExists(const std::wstring& path)
{
    std::error_code ec;
    return std::filesystem::is_regular_file(sim::toUtf8(sim::db::normalizePath(dxfPath(path))), ec);
}

/// A name without a file extension gets the drawing's.
std::wstring withExtension(const std::wstring& name)
{
    std::filesystem::path p(sim::toUtf8(sim::db::normalizePath(name)));
    return p.has_extension() ? name : name + L".dxf";
}

void save(AcApDocument* doc, const std::wstring& path)
{
    if (doc->database()->saveAs(path.c_str()) != Acad::eOk) {
        failed(L"Error writing " + path + L": " + sim::fromUtf8(lastFileError()));
        return;
    }
    sim::db::setDocumentFileName(doc, path);
}

/// A point of the current UCS, in world coordinates.
bool getPoint(const ads_point base, const wchar_t* prompt, ads_point out, AcGePoint3d* wcs = nullptr)
{
    if (acedGetPoint(base, prompt, out) != RTNORM)
        return false;
    if (wcs)
        *wcs = sim::editor::toWcs(asPnt3d(out));
    return true;
}

AcGeVector3d ucsNormal() { return (sim::editor::ucsToWcs() * AcGeVector3d::kZAxis).normal(); }

// --- insert -------------------------------------------------------------------------------------

/// The block of the drawing of the name; null when there is none.
AcDbObjectId blockNamed(AcDbDatabase* db, const std::wstring& name)
{
    AcDbObjectId id;
    auto* table = AcDbBlockTable::cast(sim::db::objectOf(db->blockTableId()));
    if (!table || table->getAt(name.c_str(), id) != Acad::eOk)
        return AcDbObjectId::kNull;
    return id;
}

/// The file a block name or path stands for, found as the host's findFile finds it (a name without
/// an extension is a drawing's); empty when none.
std::wstring findDrawing(AcDbDatabase* db, const std::wstring& file)
{
    std::filesystem::path p(sim::toUtf8(sim::db::normalizePath(file)));
    std::wstring name = p.has_extension() ? file : file + L".dwg";
    ACHAR found[4096];
    if (acdbHostApplicationServices()->findFile(found, 4096, name.c_str(), db) == Acad::eOk)
        return found;
    return std::wstring();
}

/// Brings a drawing file in as a block of the name; null (the drawing untouched) on failure.
AcDbObjectId blockFromFile(AcDbDatabase* db, const std::wstring& name, const std::wstring& file)
{
    std::wstring found = findDrawing(db, file);
    if (found.empty()) {
        failed(L"\"" + file + L"\": Can't find file in search path.");
        return AcDbObjectId::kNull;
    }
    AcDbDatabase side(false, true);
    if (side.readDwgFile(found.c_str()) != Acad::eOk) {
        failed(sim::fromUtf8(lastFileError()));
        return AcDbObjectId::kNull;
    }
    side.closeInput(true);
    AcDbObjectId id;
    if (Acad::ErrorStatus es = db->insert(id, name.c_str(), &side); es != Acad::eOk) {
        failed(L"Cannot insert \"" + found + L"\" as the block " + name + L".");
        return AcDbObjectId::kNull;
    }
    return id;
}

/// The attributes of a new reference: one per definition that is not constant, with the value
/// asked for when ATTREQ is on.
void addAttributes(AcDbObjectId refId, AcDbObjectId blockId)
{
    std::vector<const AcDbAttributeDefinition*> defs;
    if (auto* btr = AcDbBlockTableRecord::cast(sim::db::objectOf(blockId)))
        for (AcDbObjectId id : sim::db::entityIds(btr))
            if (auto* def = AcDbAttributeDefinition::cast(sim::db::objectOf(id)); def && !def->isErased() && !def->isConstant())
                defs.push_back(def);
    if (defs.empty())
        return;
    resbuf rb;
    bool ask = acedGetVar(L"ATTREQ", &rb) != RTNORM || rb.resval.rint != 0;
    std::vector<std::wstring> values;
    if (ask)
        say(L"Enter attribute values");
    for (const AcDbAttributeDefinition* def : defs) {
        std::wstring value = def->textStringConst();
        if (ask) {
            std::wstring answer;
            std::wstring prompt = std::wstring(L"\n") + def->promptConst() + (value.empty() ? L": " : L" <" + value + L">: ");
            if (!getString(prompt, answer))
                return;
            if (!answer.empty())
                value = answer;
        }
        values.push_back(value);
    }
    AcDbObjectPointer<AcDbBlockReference> ref(refId, AcDb::kForWrite);
    if (ref.openStatus() != Acad::eOk)
        return;
    for (size_t i = 0; i < defs.size(); ++i) {
        auto* attr = new AcDbAttribute;
        attr->setAttributeFromBlock(defs[i], ref->blockTransform());
        attr->setTextString(values[i].c_str());
        if (ref->appendAttribute(attr) == Acad::eOk)
            attr->close();
        else
            delete attr;
    }
}

// --- arc ----------------------------------------------------------------------------------------

/// The centre of the circle through three points of a plane (z of a); false when they are in line.
bool circumcentre(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c, AcGePoint3d& centre)
{
    double d = 2.0 * (a.x * (b.y - c.y) + b.x * (c.y - a.y) + c.x * (a.y - b.y));
    if (std::fabs(d) < 1e-12)
        return false;
    double a2 = a.x * a.x + a.y * a.y, b2 = b.x * b.x + b.y * b.y, c2 = c.x * c.x + c.y * c.y;
    centre.set((a2 * (b.y - c.y) + b2 * (c.y - a.y) + c2 * (a.y - b.y)) / d,
               (a2 * (c.x - b.x) + b2 * (a.x - c.x) + c2 * (b.x - a.x)) / d, a.z);
    return true;
}

double angleOf(const AcGePoint3d& centre, const AcGePoint3d& p) { return std::atan2(p.y - centre.y, p.x - centre.x); }

/// An arc about a centre of the normal's plane (all in its object coordinates), counter-clockwise.
void makeArc(const AcGeVector3d& n, const AcGePoint3d& centre, double radius, double start, double end)
{
    if (!(radius > 0.0)) {
        say(L"Arc does not exist.");
        return;
    }
    appendToSpace(new AcDbArc(sim::db::geom::ocsToWcs(n, centre), n, radius, sim::db::geom::normalizeAngle(start),
                              sim::db::geom::normalizeAngle(end)));
}

} // namespace

namespace commands {

void saveAs()
{
    AcApDocument* doc = acDocManagerPtr()->curDocument();
    if (!doc)
        return;
    std::wstring current = doc->fileName();
    std::wstring name;
    if (!getString(L"\nSave drawing as <" + current + L">: ", name))
        return;
    std::wstring path = name.empty() ? current : withExtension(name);
    if (!name.empty() && fileExists(path)) {
        acedInitGet(0, L"Yes No");
        ACHAR answer[16] = L"";
        say(L"A drawing with this name already exists.");
        int rc = acedGetKword(L"\nDo you want to replace it? [Yes/No] <N>: ", answer, 16);
        if (rc != RTNORM || std::wstring(answer) != L"Yes")
            return;
    }
    save(doc, path);
}

void qsave()
{
    AcApDocument* doc = acDocManagerPtr()->curDocument();
    if (!doc)
        return;
    // A drawing that has no file yet is saved as the user names it.
    if (!fileExists(doc->fileName())) {
        saveAs();
        return;
    }
    save(doc, doc->fileName());
}

void insert()
{
    AcDbDatabase* db = sim::editor::workingDb();
    if (!db)
        return;
    std::wstring answer;
    if (!getString(L"\nEnter block name or [?]: ", answer) || answer.empty())
        return;
    if (answer == L"?") {
        if (auto* table = AcDbBlockTable::cast(sim::db::objectOf(db->blockTableId())))
            for (AcDbObjectId id : sim::db::recordIds(table))
                if (auto* btr = AcDbBlockTableRecord::cast(sim::db::objectOf(id)); btr && !btr->isErased() && !btr->isLayout() &&
                                                                                    !btr->isAnonymous())
                    say(L"%ls", sim::db::recordName(btr).c_str());
        return;
    }
    // "name=file" brings a file in under a name; a name the drawing lacks is looked for as a file.
    std::wstring name = answer, file;
    if (size_t eq = answer.find(L'='); eq != std::wstring::npos) {
        name = answer.substr(0, eq);
        file = answer.substr(eq + 1);
    }
    std::filesystem::path asPath(sim::toUtf8(sim::db::normalizePath(name)));
    if (file.empty() && (asPath.has_parent_path() || asPath.has_extension())) {
        file = name;
        name = sim::fromUtf8(asPath.stem().string());
    }
    AcDbObjectId block = file.empty() ? blockNamed(db, name) : AcDbObjectId::kNull;
    if (block.isNull())
        block = blockNamed(db, name).isNull() ? blockFromFile(db, name, file.empty() ? name : file) : blockNamed(db, name);
    if (block.isNull())
        return;

    ads_point p;
    AcGePoint3d position;
    if (!getPoint(nullptr, L"\nSpecify insertion point: ", p, &position))
        return;
    double sx = 1.0, sy = 1.0, rotation = 0.0;
    acedInitGet(RSG_NOZERO, nullptr);
    int rc = acedGetReal(L"\nEnter X scale factor <1>: ", &sx);
    if (rc == RTNONE)
        sx = 1.0;
    else if (rc != RTNORM)
        return;
    acedInitGet(RSG_NOZERO, nullptr);
    rc = acedGetReal(L"\nEnter Y scale factor <use X scale factor>: ", &sy);
    if (rc == RTNONE)
        sy = sx;
    else if (rc != RTNORM)
        return;
    rc = acedGetAngle(p, L"\nSpecify rotation angle <0>: ", &rotation);
    if (rc == RTNONE)
        rotation = 0.0;
    else if (rc != RTNORM)
        return;

    auto* ref = new AcDbBlockReference(position, block);
    ref->setNormal(ucsNormal());
    ref->setScaleFactors(AcGeScale3d(sx, sy, sx));
    ref->setRotation(rotation);
    AcDbObjectId refId = appendToSpace(ref);
    if (!refId.isNull())
        addAttributes(refId, block);
}

void arc()
{
    AcGeVector3d n = ucsNormal();
    auto ocs = [&](const AcGePoint3d& wcs) { return sim::db::geom::wcsToOcs(n, wcs); };
    ads_point a, b, c;
    AcGePoint3d pa, pb, pc;
    acedInitGet(0, L"Center");
    int rc = acedGetPoint(nullptr, L"\nSpecify start point of arc or [Center]: ", a);
    if (rc == RTKWORD) {
        keyword();
        if (!getPoint(nullptr, L"\nSpecify center point of arc: ", a, &pa) ||
            !getPoint(a, L"\nSpecify start point of arc: ", b, &pb))
            return;
        AcGePoint3d centre = ocs(pa), start = ocs(pb);
        centre.z = start.z;
        double from = angleOf(centre, start);
        acedInitGet(0, L"Angle");
        rc = acedGetPoint(a, L"\nSpecify end point of arc or [Angle]: ", c);
        double to = 0.0;
        if (rc == RTKWORD) {
            keyword();
            double included = 0.0;
            if (acedGetAngle(a, L"\nSpecify included angle: ", &included) != RTNORM)
                return;
            to = from + included;
            if (included < 0)
                std::swap(from, to);
        } else if (rc == RTNORM) {
            to = angleOf(centre, ocs(sim::editor::toWcs(asPnt3d(c))));
        } else {
            return;
        }
        makeArc(n, centre, centre.distanceTo(start), from, to);
        return;
    }
    if (rc != RTNORM)
        return;
    pa = sim::editor::toWcs(asPnt3d(a));
    if (!getPoint(a, L"\nSpecify second point of arc: ", b, &pb) || !getPoint(b, L"\nSpecify end point of arc: ", c, &pc))
        return;
    AcGePoint3d s = ocs(pa), m = ocs(pb), e = ocs(pc), centre;
    if (!circumcentre(s, m, e, centre)) {
        say(L"Arc does not exist.");
        return;
    }
    // Counter-clockwise from start to end when the middle point turns left; else the other way.
    bool ccw = (m.x - s.x) * (e.y - s.y) - (m.y - s.y) * (e.x - s.x) > 0;
    double from = angleOf(centre, s), to = angleOf(centre, e);
    if (ccw)
        makeArc(n, centre, centre.distanceTo(s), from, to);
    else
        makeArc(n, centre, centre.distanceTo(s), to, from);
}

void mtext()
{
    AcDbDatabase* db = sim::editor::workingDb();
    if (!db)
        return;
    AcDbObjectId style = db->textstyle();
    double height = db->textsize();
    {
        AcDbObjectPointer<AcDbTextStyleTableRecord> rec(style);
        const ACHAR* styleName = L"";
        if (rec.openStatus() == Acad::eOk) {
            rec->getName(styleName);
            if (rec->textSize() > 0)
                height = rec->textSize();
        }
        say(L"Current text style:  \"%ls\"  Text height:  %g  Annotative:  No", styleName, height);
    }
    ads_point first, corner;
    AcGePoint3d location;
    if (!getPoint(nullptr, L"\nSpecify first corner: ", first, &location))
        return;
    double rotation = 0.0, width = 0.0;
    AcDbMText::AttachmentPoint attachment = AcDbMText::kTopLeft;
    for (;;) {
        acedInitGet(0, L"Height Justify Line Rotation Style Width Columns");
        int rc = acedGetCorner(first, L"\nSpecify opposite corner or [Height/Justify/Line spacing/Rotation/Style/Width/Columns]: ",
                               corner);
        if (rc == RTNORM) {
            AcGePoint3d a = asPnt3d(first), b = asPnt3d(corner);
            width = std::fabs((b.x - a.x) * std::cos(rotation) + (b.y - a.y) * std::sin(rotation));
            break;
        }
        if (rc != RTKWORD)
            return;
        std::wstring kw = keyword();
        if (kw == L"Height") {
            acedInitGet(RSG_NOZERO | RSG_NONEG, nullptr);
            wchar_t prompt[64];
            std::swprintf(prompt, 64, L"\nSpecify height <%g>: ", height);
            double h = height;
            if (int r = acedGetDist(first, prompt, &h); r == RTNORM)
                height = h;
            else if (r != RTNONE)
                return;
        } else if (kw == L"Justify") {
            static const wchar_t* kinds[] = {L"TL", L"TC", L"TR", L"ML", L"MC", L"MR", L"BL", L"BC", L"BR"};
            acedInitGet(0, L"TL TC TR ML MC MR BL BC BR");
            ACHAR just[8] = L"";
            int r = acedGetKword(L"\nEnter justification [TL/TC/TR/ML/MC/MR/BL/BC/BR] <TL>: ", just, 8);
            if (r != RTNORM && r != RTNONE)
                return;
            for (int i = 0; i < 9; ++i)
                if (std::wstring(just) == kinds[i])
                    attachment = static_cast<AcDbMText::AttachmentPoint>(i + 1);
        } else if (kw == L"Rotation") {
            double r = rotation;
            int rr = acedGetAngle(first, L"\nSpecify rotation angle <0>: ", &r);
            if (rr == RTNORM)
                rotation = r;
            else if (rr != RTNONE)
                return;
        } else if (kw == L"Style") {
            std::wstring s;
            if (!getString(L"\nEnter style name or [?] <Standard>: ", s))
                return;
            AcDbObjectId id;
            auto* table = AcDbTextStyleTable::cast(sim::db::objectOf(db->textStyleTableId()));
            if (!s.empty() && table && table->getAt(s.c_str(), id) == Acad::eOk)
                style = id;
            else if (!s.empty())
                say(L"Cannot find text style \"%ls\".", s.c_str());
        } else if (kw == L"Width") {
            acedInitGet(RSG_NONEG, nullptr);
            if (acedGetDist(first, L"\nSpecify width: ", &width) != RTNORM)
                return;
            break;
        }
    }
    // The contents: one line per answer until an empty one; lines become paragraphs.
    std::wstring contents, line;
    while (getString(L"\nMText: ", line) && !line.empty())
        contents += (contents.empty() ? L"" : L"\\P") + line;
    if (contents.empty())
        return;
    auto* m = new AcDbMText;
    m->setNormal(ucsNormal());
    m->setLocation(location);
    m->setDirection(sim::editor::ucsToWcs() * AcGeVector3d(std::cos(rotation), std::sin(rotation), 0.0));
    m->setTextHeight(height);
    m->setWidth(width);
    m->setAttachment(attachment);
    m->setTextStyle(style);
    m->setContents(contents.c_str());
    appendToSpace(m);
}

void layout()
{
    AcDbDatabase* db = sim::editor::workingDb();
    if (!db)
        return;
    AcDbLayoutManager* manager = acdbHostApplicationServices()->layoutManager();
    acedInitGet(0, L"Copy Delete New Template Rename SAveas Set ?");
    ACHAR kw[64] = L"";
    int rc = acedGetKword(L"\nEnter layout option [Copy/Delete/New/Template/Rename/SAveas/Set/?] <set>: ", kw, 64);
    if (rc != RTNORM && rc != RTNONE)
        return;
    std::wstring option = rc == RTNONE ? L"Set" : kw;
    if (option == L"?") {
        AcDbDictionary* dict = AcDbDictionary::cast(sim::db::objectOf(db->layoutDictionaryId()));
        if (dict)
            for (const auto& [key, id] : sim::db::dictionaryEntries(dict))
                if (auto* l = AcDbLayout::cast(sim::db::objectOf(id)); l && !l->isErased()) {
                    const ACHAR* name = nullptr;
                    l->getLayoutName(name);
                    say(L"Layout: %ls", name ? name : L"");
                }
        return;
    }
    if (option != L"Set") {
        failed(L"The " + option + L" option of LAYOUT is not available here.");
        return;
    }
    AcString current;
    manager->getActiveLayoutName(current, true, db);
    std::wstring name;
    if (!getString(L"\nEnter layout to make current <" + std::wstring(current.constPtr()) + L">: ", name))
        return;
    if (name.empty())
        return;
    if (manager->setCurrentLayout(name.c_str(), db) != Acad::eOk) {
        say(L"Layout \"%ls\" not found.", name.c_str());
        return;
    }
    // A layout tab opens on its paper; the model tab on its viewport.
    resbuf viewport{};
    viewport.restype = RTSHORT;
    viewport.resval.rint = db->tilemode() ? 2 : 1;
    acedSetVar(L"CVPORT", &viewport);
}

} // namespace commands

void addHostCommands()
{
    sim::editor::HostCommands::add(L"SAVEAS", commands::saveAs);
    sim::editor::HostCommands::add(L"QSAVE", commands::qsave);
    sim::editor::HostCommands::add(L"SAVE", commands::saveAs);
    sim::editor::HostCommands::add(L"INSERT", commands::insert);
    sim::editor::HostCommands::add(L"-INSERT", commands::insert);
    sim::editor::HostCommands::add(L"ARC", commands::arc);
    sim::editor::HostCommands::add(L"MTEXT", commands::mtext);
    sim::editor::HostCommands::add(L"-MTEXT", commands::mtext);
    sim::editor::HostCommands::add(L"LAYOUT", commands::layout);
    sim::editor::HostCommands::add(L"-LAYOUT", commands::layout);
}

} // namespace sim::dxf
