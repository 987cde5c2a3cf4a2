// The host commands that read and write drawing files (_SAVEAS, _QSAVE, _INSERT from a file), build
// arcs and multiline texts, and switch layouts, prompting as the host's command line does with file
// dialogs off (FILEDIA 0, ATTDIA 0).
#include <cmath>
#include <cwchar>
#include <filesystem>
#include <optional>
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
#include "sim/commands/Commands.h"
#include "sim/editor/Ucs.h"

namespace sim::commands {

using namespace sim::dxf;
using namespace sim::editor;

namespace {

constexpr size_t kLine = 2048;
constexpr double kPi = 3.14159265358979323846;

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
        failed(sim::fromUtf8(lastFileError()));
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


/// An arc about a centre from a start point (object coordinates), counter-clockwise: the end
/// point's direction, an included angle or a chord length (the minor arc for a positive length).
template <class Ocs>
void arcFromCentre(const AcGeVector3d& n, AcGePoint3d centre, const AcGePoint3d& start, const ads_point centreInput, Ocs ocs)
{
    centre.z = start.z;
    double radius = centre.distanceTo(start), from = angleOf(centre, start);
    ads_point c;
    acedInitGet(0, L"Angle Length");
    int rc = acedGetPoint(centreInput, L"\nSpecify end point of arc (hold Ctrl to switch direction) or [Angle/chord Length]: ", c);
    if (rc == RTNORM) {
        makeArc(n, centre, radius, from, angleOf(centre, ocs(c)));
        return;
    }
    if (rc != RTKWORD)
        return;
    double included = 0.0;
    if (keyword() == L"Angle") {
        if (acedGetAngle(centreInput, L"\nSpecify included angle (hold Ctrl to switch direction): ", &included) != RTNORM)
            return;
        // An angle past a half turn reads as a clockwise one.
        if (included > kPi)
            included -= 2.0 * kPi;
    } else {
        double chord = 0.0;
        acedInitGet(RSG_NOZERO, nullptr);
        if (acedGetDist(centreInput, L"\nSpecify length of chord (hold Ctrl to switch direction): ", &chord) != RTNORM)
            return;
        if (std::fabs(chord) > 2.0 * radius) {
            say(L"Arc does not exist.");
            return;
        }
        included = 2.0 * std::asin(std::fabs(chord) / (2.0 * radius));
        if (chord < 0)
            included = 2.0 * kPi - included;
    }
    if (included >= 0)
        makeArc(n, centre, radius, from, from + included);
    else
        makeArc(n, centre, radius, from + included, from);
}

/// An arc counter-clockwise from start to end: about a centre, with an included angle, with a
/// tangent direction at the start, or with a radius (the minor arc; a negative one the major).
template <class Ocs>
void arcFromEnds(const AcGeVector3d& n, const AcGePoint3d& start, AcGePoint3d end, const ads_point startInput,
                 const ads_point endInput, Ocs ocs)
{
    end.z = start.z;
    double chord = start.distanceTo(end);
    if (chord == 0.0) {
        say(L"Arc does not exist.");
        return;
    }
    ads_point c;
    acedInitGet(0, L"Angle Direction Radius");
    int rc = acedGetPoint(startInput, L"\nSpecify center point of arc (hold Ctrl to switch direction) or [Angle/Direction/Radius]: ", c);
    AcGePoint3d mid((start.x + end.x) / 2, (start.y + end.y) / 2, start.z);
    AcGeVector3d along = (end - start).normalize(), left(-along.y, along.x, 0.0);
    // The arc of an included angle (signed, counter-clockwise positive) from start to end.
    auto byAngle = [&](double included) {
        if (std::fabs(included) < 1e-12 || std::fabs(included) >= 2.0 * kPi) {
            say(L"Arc does not exist.");
            return;
        }
        double radius = chord / (2.0 * std::sin(std::fabs(included) / 2.0));
        double h = chord / (2.0 * std::tan(included / 2.0)); // towards the left for a positive angle
        AcGePoint3d centre = mid + left * h;
        if (included > 0)
            makeArc(n, centre, radius, angleOf(centre, start), angleOf(centre, end));
        else
            makeArc(n, centre, radius, angleOf(centre, end), angleOf(centre, start));
    };
    if (rc == RTNORM) {
        AcGePoint3d centre = ocs(c);
        centre.z = start.z;
        makeArc(n, centre, centre.distanceTo(start), angleOf(centre, start), angleOf(centre, end));
        return;
    }
    if (rc != RTKWORD)
        return;
    std::wstring kw = keyword();
    if (kw == L"Angle") {
        double included = 0.0;
        if (acedGetAngle(startInput, L"\nSpecify included angle (hold Ctrl to switch direction): ", &included) != RTNORM)
            return;
        byAngle(included > kPi ? included - 2.0 * kPi : included);
    } else if (kw == L"Direction") {
        double direction = 0.0;
        if (acedGetAngle(startInput, L"\nSpecify tangent direction for the start point of arc (hold Ctrl to switch direction): ",
                         &direction) != RTNORM)
            return;
        // The chord turns from the tangent by half the included angle.
        double chordAngle = std::atan2(along.y, along.x);
        double half = sim::db::geom::normalizeAngle(chordAngle - direction);
        if (half > kPi)
            half -= 2.0 * kPi;
        byAngle(2.0 * half);
    } else {
        double radius = 0.0;
        acedInitGet(RSG_NOZERO, nullptr);
        if (acedGetDist(endInput, L"\nSpecify radius of arc: ", &radius) != RTNORM)
            return;
        if (std::fabs(radius) < chord / 2.0) {
            say(L"Arc does not exist.");
            return;
        }
        double included = 2.0 * std::asin(chord / (2.0 * std::fabs(radius)));
        byAngle(radius > 0 ? included : 2.0 * kPi - included);
    }
}

} // namespace


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

    // Options at the insertion point set the base point, scales and rotation before the point.
    std::optional<AcGePoint3d> base;
    std::optional<double> presetX, presetY, presetZ, presetRotation;
    ads_point p;
    for (;;) {
        acedInitGet(0, L"Basepoint Scale X Y Z Rotate");
        int rc = acedGetPoint(nullptr, L"\nSpecify insertion point or [Basepoint/Scale/X/Y/Z/Rotate]: ", p);
        if (rc == RTNORM)
            break;
        if (rc != RTKWORD)
            return;
        std::wstring kw = keyword();
        double v = 1.0;
        if (kw == L"Basepoint") {
            ads_point bp;
            if (acedGetPoint(nullptr, L"\nSpecify base point: ", bp) != RTNORM)
                return;
            base = asPnt3d(bp);
            continue;
        }
        if (kw == L"Rotate") {
            v = 0.0;
            int r = acedGetAngle(nullptr, L"\nSpecify rotation angle <0>: ", &v);
            if (r == RTNONE)
                v = 0.0;
            else if (r != RTNORM)
                return;
            presetRotation = v;
            continue;
        }
        const wchar_t* prompt = kw == L"Scale" ? L"\nSpecify scale factor for XYZ axes <1>: "
                                : kw == L"X"   ? L"\nSpecify X scale factor <1>: "
                                : kw == L"Y"   ? L"\nSpecify Y scale factor <1>: "
                                               : L"\nSpecify Z scale factor <1>: ";
        acedInitGet(RSG_NOZERO, nullptr);
        int r = acedGetReal(prompt, &v);
        if (r == RTNONE)
            v = 1.0;
        else if (r != RTNORM)
            return;
        if (kw == L"Scale")
            presetX = presetY = presetZ = v;
        else
            (kw == L"X" ? presetX : kw == L"Y" ? presetY : presetZ) = v;
    }
    AcGePoint3d position = sim::editor::toWcs(asPnt3d(p));
    double sx = presetX.value_or(1.0), sy = presetY.value_or(sx), sz = presetZ.value_or(sx), rotation = 0.0;
    if (!presetX && !presetY && !presetZ) {
        acedInitGet(RSG_NOZERO, L"Corner XYZ");
        int rc = acedGetReal(L"\nEnter X scale factor, specify opposite corner, or [Corner/XYZ] <1>: ", &sx);
        if (rc == RTKWORD) {
            std::wstring kw = keyword();
            if (kw == L"Corner") {
                ads_point corner;
                if (acedGetCorner(p, L"\nSpecify opposite corner: ", corner) != RTNORM)
                    return;
                sx = corner[0] - p[0];
                sy = corner[1] - p[1];
                if (sx == 0.0 || sy == 0.0) {
                    say(L"Value must be nonzero.");
                    return;
                }
                sz = sx;
            } else {
                double* axes[] = {&sx, &sy, &sz};
                const wchar_t* prompts[] = {L"\nSpecify X scale factor or [Corner] <1>: ",
                                            L"\nEnter Y scale factor <use X scale factor>: ",
                                            L"\nSpecify Z scale factor <use X scale factor>: "};
                for (int i = 0; i < 3; ++i) {
                    acedInitGet(RSG_NOZERO, nullptr);
                    int r = acedGetReal(prompts[i], axes[i]);
                    if (r == RTNONE)
                        *axes[i] = i == 0 ? 1.0 : sx;
                    else if (r != RTNORM)
                        return;
                }
            }
        } else {
            if (rc == RTNONE)
                sx = 1.0;
            else if (rc != RTNORM)
                return;
            sz = sx;
            acedInitGet(RSG_NOZERO, nullptr);
            rc = acedGetReal(L"\nEnter Y scale factor <use X scale factor>: ", &sy);
            if (rc == RTNONE)
                sy = sx;
            else if (rc != RTNORM)
                return;
        }
    }
    if (presetRotation) {
        rotation = *presetRotation;
    } else {
        int rc = acedGetAngle(p, L"\nSpecify rotation angle <0>: ", &rotation);
        if (rc == RTNONE)
            rotation = 0.0;
        else if (rc != RTNORM)
            return;
    }
    auto* ref = new AcDbBlockReference(position, block);
    ref->setNormal(ucsNormal());
    ref->setScaleFactors(AcGeScale3d(sx, sy, sz));
    ref->setRotation(rotation);
    // A base point of the block's own lands on the insertion point instead of its origin.
    if (base) {
        AcGePoint3d landed = ref->blockTransform() * *base;
        ref->setPosition(position + (position - landed));
    }
    AcDbObjectId refId = appendToSpace(ref);
    if (!refId.isNull())
        addAttributes(refId, block);
}

void arc()
{
    AcGeVector3d n = ucsNormal();
    auto ocs = [&](const ads_point p) {
        AcGePoint3d o = sim::db::geom::wcsToOcs(n, sim::editor::toWcs(asPnt3d(p)));
        return o;
    };
    ads_point a, b, c;
    acedInitGet(0, L"Center");
    int rc = acedGetPoint(nullptr, L"\nSpecify start point of arc or [Center]: ", a);
    if (rc == RTKWORD) {
        keyword();
        if (acedGetPoint(nullptr, L"\nSpecify center point of arc: ", a) != RTNORM ||
            acedGetPoint(a, L"\nSpecify start point of arc: ", b) != RTNORM)
            return;
        arcFromCentre(n, ocs(a), ocs(b), a, ocs);
        return;
    }
    if (rc != RTNORM)
        return;
    AcGePoint3d start = ocs(a);
    acedInitGet(0, L"Center End");
    rc = acedGetPoint(a, L"\nSpecify second point of arc or [Center/End]: ", b);
    if (rc == RTKWORD) {
        std::wstring kw = keyword();
        if (kw == L"Center") {
            if (acedGetPoint(a, L"\nSpecify center point of arc: ", b) != RTNORM)
                return;
            arcFromCentre(n, ocs(b), start, b, ocs);
            return;
        }
        if (acedGetPoint(a, L"\nSpecify end point of arc: ", c) != RTNORM)
            return;
        arcFromEnds(n, start, ocs(c), a, c, ocs);
        return;
    }
    if (rc != RTNORM || acedGetPoint(b, L"\nSpecify end point of arc: ", c) != RTNORM)
        return;
    AcGePoint3d m = ocs(b), e = ocs(c), centre;
    if (!circumcentre(start, m, e, centre)) {
        say(L"Arc does not exist.");
        return;
    }
    // Counter-clockwise from start to end when the middle point turns left; else the other way.
    bool ccw = (m.x - start.x) * (e.y - start.y) - (m.y - start.y) * (e.x - start.x) > 0;
    double from = angleOf(centre, start), to = angleOf(centre, e);
    if (ccw)
        makeArc(n, centre, centre.distanceTo(start), from, to);
    else
        makeArc(n, centre, centre.distanceTo(start), to, from);
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

} // namespace sim::commands
