// _UCS: the world UCS, a new one by origin and points on its X axis and XY plane, rotations about
// the axes, the previous one, and named ones saved, restored and deleted.
#include <cmath>
#include <cwchar>
#include <string>

#include "acedads.h"
#include "dbobjptr.h"
#include "sim/editor/DbNames.h"
#include "sim/editor/EditorState.h"
#include "sim/editor/InputParse.h"
#include "sim/editor/SysVars.h"
#include "sim/editor/Ucs.h"
#include "sim/commands/Commands.h"

namespace sim::commands {

using namespace sim::editor;

namespace {

bool paperSpace(AcDbDatabase& db)
{
    auto cvport = getVar(L"CVPORT");
    return !db.tilemode() && cvport && std::get<int>(*cvport) == 1;
}

AcDbObjectId currentName(AcDbDatabase& db) { return paperSpace(db) ? db.pucsname() : db.ucsname(); }
void setName(AcDbDatabase& db, AcDbObjectId id) { paperSpace(db) ? db.setPucsname(id) : db.setUcsname(id); }

/// The new UCS from its origin and axes in world coordinates.
void apply(const AcGePoint3d& o, const AcGeVector3d& x, const AcGeVector3d& y)
{
    AcGeMatrix3d m;
    m.setCoordSystem(o, x, y, x.crossProduct(y));
    if (!setCurrentUcs(m))
        say(L"Invalid UCS: the axes do not span a plane.");
}

/// Rotation about an axis of the current UCS (0 X, 1 Y, 2 Z), by an angle asked for.
void rotate(int axis)
{
    static const wchar_t* names[] = {L"X", L"Y", L"Z"};
    wchar_t prompt[64];
    std::swprintf(prompt, 64, L"\nSpecify rotation angle about %ls axis <90>: ", names[axis]);
    double angle = M_PI / 2;
    int rc = acedGetAngle(nullptr, prompt, &angle);
    if (rc != RTNORM && rc != RTNONE)
        return;
    if (rc == RTNONE)
        angle = M_PI / 2;
    AcGeMatrix3d ucs = ucsToWcs();
    AcGePoint3d o;
    AcGeVector3d x, y, z;
    ucs.getCoordSystem(o, x, y, z);
    AcGeVector3d about = axis == 0 ? x : axis == 1 ? y : z;
    AcGeMatrix3d r = AcGeMatrix3d::rotation(angle, about);
    apply(o, r * x, r * y);
}

void byPoints(AcDbDatabase&, const AcGePoint3d& originUcs)
{
    AcGeMatrix3d ucs = ucsToWcs();
    AcGePoint3d o;
    AcGeVector3d x, y, z;
    ucs.getCoordSystem(o, x, y, z);
    AcGePoint3d origin = ucs * originUcs;
    ads_point p;
    int rc = acedGetPoint(asDblArray(originUcs), L"\nSpecify point on X-axis or <Accept>: ", p);
    if (rc == RTNORM) {
        AcGeVector3d nx = ucs * asPnt3d(p) - origin;
        if (nx.isZeroLength()) {
            say(L"Point is the origin: the X axis stays.");
        } else {
            // Keep the XY plane if the new X axis lies in it; the next point may tilt it.
            AcGeVector3d ny = z.crossProduct(nx);
            if (ny.isZeroLength())
                ny = nx.crossProduct(x).crossProduct(nx);
            x = nx.normal();
            y = ny.normal();
        }
        rc = acedGetPoint(asDblArray(originUcs), L"\nSpecify point on the XY plane or <Accept>: ", p);
        if (rc == RTNORM) {
            AcGeVector3d inPlane = ucs * asPnt3d(p) - origin;
            AcGeVector3d nz = x.crossProduct(inPlane);
            if (!nz.isZeroLength())
                y = nz.crossProduct(x).normal();
        }
    }
    if (rc == RTCAN)
        return;
    apply(origin, x, y);
}

std::wstring askName(const wchar_t* prompt)
{
    ACHAR buf[256];
    if (acedGetString(1, prompt, buf, 256) != RTNORM)
        return {};
    return std::wstring(trimmed(buf));
}

void save(AcDbDatabase& db)
{
    std::wstring name = askName(L"\nEnter name to save current UCS or [?]: ");
    if (name.empty())
        return;
    AcGeMatrix3d ucs = ucsToWcs();
    AcGePoint3d o;
    AcGeVector3d x, y, z;
    ucs.getCoordSystem(o, x, y, z);
    AcDbObjectId id = recordId<AcDbUCSTableRecord>(&db, name);
    if (!id.isNull()) {
        acedInitGet(0, L"Yes No");
        ACHAR kw[8] = L"No";
        if (acedGetKword((L"\nUCS \"" + name + L"\" already exists.  Replace it? <N>: ").c_str(), kw, 8) != RTNORM ||
            std::wstring_view(kw) != L"Yes")
            return;
        AcDbObjectPointer<AcDbUCSTableRecord> rec(id, AcDb::kForWrite);
        if (rec.openStatus() != Acad::eOk)
            return;
        rec->setOrigin(o);
        rec->setXAxis(x);
        rec->setYAxis(y);
    } else {
        AcDbUCSTablePointer table(&db, AcDb::kForWrite);
        if (table.openStatus() != Acad::eOk)
            return;
        auto* rec = new AcDbUCSTableRecord;
        if (rec->setName(name.c_str()) != Acad::eOk || table->add(id, rec) != Acad::eOk) {
            delete rec;
            say(L"Invalid UCS name.");
            return;
        }
        rec->setOrigin(o);
        rec->setXAxis(x);
        rec->setYAxis(y);
        rec->close();
    }
    setName(db, id);
}

void restore(AcDbDatabase& db)
{
    std::wstring name = askName(L"\nEnter name of UCS to restore or [?]: ");
    if (name.empty())
        return;
    AcDbObjectId id = recordId<AcDbUCSTableRecord>(&db, name);
    AcDbObjectPointer<AcDbUCSTableRecord> rec(id);
    if (id.isNull() || rec.openStatus() != Acad::eOk) {
        say(L"Cannot find UCS \"%ls\".", name.c_str());
        return;
    }
    apply(rec->origin(), rec->xAxis(), rec->yAxis());
    setName(db, id);
}

void remove(AcDbDatabase& db)
{
    std::wstring name = askName(L"\nEnter UCS name(s) to delete <none>: ");
    if (name.empty())
        return;
    AcDbObjectId id = recordId<AcDbUCSTableRecord>(&db, name);
    AcDbObjectPointer<AcDbUCSTableRecord> rec(id, AcDb::kForWrite);
    if (id.isNull() || rec.openStatus() != Acad::eOk) {
        say(L"Cannot find UCS \"%ls\".", name.c_str());
        return;
    }
    rec->erase();
    if (currentName(db) == id)
        setName(db, AcDbObjectId::kNull);
    say(L"Deleted 1 UCS.");
}

} // namespace

void ucs()
{
    AcDbDatabase* db = workingDb();
    if (!db)
        return;
    bool world = ucsToWcs().isEqualTo(AcGeMatrix3d::kIdentity);
    std::wstring name = recordName(currentName(*db));
    say(L"Current ucs name:  %ls", world ? L"*WORLD*" : name.empty() ? L"*NO NAME*" : name.c_str());
    // Save, Restore and Delete are the old options, still taken without being offered.
    acedInitGet(0, L"NAmed Previous World X Y Z Save Restore Delete");
    ads_point p;
    int rc = acedGetPoint(nullptr, L"\nSpecify origin of UCS or [NAmed/Previous/World/X/Y/Z] <World>: ", p);
    if (rc == RTNORM) {
        byPoints(*db, asPnt3d(p));
        return;
    }
    std::wstring option = L"World";
    if (rc == RTKWORD) {
        ACHAR kw[16];
        acedGetInput(kw, 16);
        option = kw;
    } else if (rc != RTNONE) {
        return;
    }
    if (option == L"NAmed") {
        acedInitGet(0, L"Restore Save Delete ?");
        ACHAR kw[16];
        if (acedGetKword(L"\nEnter an option [Restore/Save/Delete/?]: ", kw, 16) != RTNORM)
            return;
        option = kw;
    }
    if (option == L"World") {
        apply(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis);
    } else if (option == L"Previous") {
        auto& previous = editorState().previousUcs;
        if (previous.empty()) {
            say(L"No previous UCS.");
            return;
        }
        AcGeMatrix3d m = previous.back();
        previous.pop_back();
        setCurrentUcs(m);
        previous.pop_back(); // going back is not itself a step to go back to
    } else if (option == L"X" || option == L"Y" || option == L"Z") {
        rotate(option[0] - L'X');
    } else if (option == L"Save") {
        save(*db);
    } else if (option == L"Restore") {
        restore(*db);
    } else if (option == L"Delete") {
        remove(*db);
    } else if (option == L"?") {
        say(L"Current ucs name:  %ls", world ? L"*WORLD*" : name.empty() ? L"*NO NAME*" : name.c_str());
    }
}

} // namespace sim::commands
