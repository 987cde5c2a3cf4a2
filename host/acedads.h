// The host's editor calls: prompts for points, distances, numbers, text and keywords; entity picks and
// selection sets; system variables; coordinate systems and the current UCS.
#pragma once
#include "acadstrc.h"
#include "acutads.h"
#include "gemat3d.h"
#include "windows.h"

// ---- Prompts -------------------------------------------------------------------------------------
// Every prompt answers RTNORM with a value, RTNONE for Enter, RTCAN for Escape, RTKWORD when the
// answer was a keyword of the preceding acedInitGet (read it with acedGetInput), or RTERROR.
// Points are in the current UCS, typed "x,y", "x,y,z", "@dx,dy" (from the base point, else the last
// point), "@dist<angle" or "*x,y" (world). A wrong answer shows the host's message and asks again.

/// Sets the input flags (RSG_*) and the keyword list of the next prompt only. Keywords are separated
/// by blanks; a lone "_" separates the local keywords from their global names, in the same order.
int acedInitGet(int val, const ACHAR* kwl);
/// pt: the base point, or null.
int acedGetPoint(const ads_point pt, const ACHAR* prompt, ads_point result);
/// The other corner of a rectangle from the base point pt.
int acedGetCorner(const ads_point pt, const ACHAR* prompt, ads_point result);
/// A distance typed or shown by two points (from pt when given).
int acedGetDist(const ads_point pt, const ACHAR* prompt, ads_real* result);
/// An angle in radians: typed in degrees or shown by two points (from pt when given).
int acedGetAngle(const ads_point pt, const ACHAR* prompt, ads_real* result);
/// As acedGetAngle, measured from east whatever ANGBASE says.
int acedGetOrient(const ads_point pt, const ACHAR* prompt, ads_real* result);
int acedGetReal(const ACHAR* prompt, ads_real* result);
/// An integer from -32768 to 32767.
int acedGetInt(const ACHAR* prompt, int* result);
/// Text. cronly non-zero allows blanks; otherwise the text ends at the first blank. bufLen counts the
/// terminator; a longer answer is cut and answers RTINPUTTRUNCATED. Keywords of acedInitGet do not apply.
int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result, size_t bufLen);
/// One of the keywords of the preceding acedInitGet (its global name when the list has global names).
int acedGetKword(const ACHAR* prompt, ACHAR* result, size_t bufLen);
/// The keyword (or, under RSG_OTHER, the arbitrary text) of the last prompt that answered RTKWORD;
/// RTERROR when there is none.
int acedGetInput(ACHAR* str, size_t bufLen);

// ---- Picks and selection sets ---------------------------------------------------------------------
// A selection set is an ads_name that the host keeps until acedSSFree. Entities are picked by a point
// (the nearest within the pick box, of equally near ones the last drawn) or by a handle such as "#1F".
// At "Select objects: " each answer is a point, handles ("#1F #20"), "all", "w x1,y1 x2,y2",
// "c x1,y1 x2,y2", "l" (last), "p" (previous), "r" / "a" (remove / add); Enter ends it.

/// One entity by a pick; ptres is the pick point (UCS). RTNONE for Enter, RTERROR when the pick hits
/// nothing, RTKWORD for a keyword of acedInitGet.
int acedEntSel(const ACHAR* str, ads_name entres, ads_point ptres);
/// The innermost entity under a pick. xformres takes the model-to-world transform of its containers,
/// refstkres their entity names innermost first (null for a top-level entity; free with acutRelRb).
/// pickflag non-zero takes ptres as the pick instead of asking.
int acedNEntSelP(const ACHAR* str, ads_name entres, ads_point ptres, int pickflag, ads_matrix xformres,
                 struct resbuf** refstkres);
/// As acedNEntSelP, with the transform as four rows of three (the AutoLISP form).
int acedNEntSel(const ACHAR* str, ads_name entres, ads_point ptres, ads_point xformres[4],
                struct resbuf** refstkres);
/// Selects entities. str: null or "" prompts "Select objects: " (or picks at pt1 when pt1 is given);
/// "_I" the pickfirst set; ":S" a single answer; ":N" nested picks; ":$" prompts given by pt1 as two
/// strings (adding, removing); "X" all; "W"/"C" window/crossing from pt1 to pt2. A leading "_" is
/// allowed. filter: a chain of DXF groups (0 type, 8 layer, -4 "<or" ... "or>"), or null.
/// RTERROR when nothing was selected.
int acedSSGet(const ACHAR* str, const void* pt1, const void* pt2, const struct resbuf* filter, ads_name ss);
int acedSSFree(const ads_name sname);
int acedSSLength(const ads_name sname, Adesk::Int32* len);
/// The i-th entity of the set (the top-level entity, also for nested picks).
int acedSSName(const ads_name ss, Adesk::Int32 i, ads_name entres);
/// How the i-th entity was selected, as a chain the caller frees with acutRelRb:
/// (RTSHORT method, RTENAME entity, RTLONG gs marker, pick data, RTENAME container ...).
/// method: 0 not by a pick, 1 pick, 2 window, 3 crossing. Pick data for a pick: RTLB RTSHORT 0
/// RT3DPOINT point (WCS) RTLE. The entity of a nested pick is the innermost one, followed by its
/// containers innermost first, outermost last. The gs marker of a polyline segment is its index + 1.
int acedSSNameX(struct resbuf** rbpp, const ads_name ss, Adesk::Int32 i, unsigned int flags = 0);
/// Adds ename to sname and names the set in result. With sname null a new set is made; with both
/// null the new set is empty.
int acedSSAdd(const ads_name ename, const ads_name sname, ads_name result);
int acedSSDel(const ads_name ename, const ads_name ss);
/// RTNORM when ename is in the set, else RTERROR.
int acedSSMemb(const ads_name ename, const ads_name ss);
/// Makes the set the pickfirst set (its entities selected and gripped); null clears it.
int acedSSSetFirst(const ads_name pset, const ads_name unused);
/// The gripped set and the pickfirst set as chains of one RTPICKS each (null when empty).
int acedSSGetFirst(struct resbuf** gset, struct resbuf** pset);

// ---- System variables -----------------------------------------------------------------------------

/// Integers come as RTSHORT, reals as RTREAL, points as RTPOINT/RT3DPOINT, text as RTSTR (the caller
/// frees the string with acutDelString, or with the buffer by acutRelRb). RTERROR for an unknown name.
int acedGetVar(const ACHAR* sym, struct resbuf* result);
/// Integers may come as RTSHORT or RTLONG. RTERROR for an unknown or read-only name, a wrong type or
/// a value out of range; the variable keeps its value then.
int acedSetVar(const ACHAR* sym, const struct resbuf* val);

// ---- Coordinate systems ---------------------------------------------------------------------------

/// Transforms pt. from/to: RTSHORT 0 WCS, 1 UCS, 2 display (plan view of the WCS); RT3DPOINT an
/// extrusion direction (its entity coordinate system); RTENAME an entity's coordinate system.
/// disp non-zero transforms a displacement (no translation).
int acedTrans(const ads_point pt, const struct resbuf* from, const struct resbuf* to, int disp, ads_point result);
/// The current UCS as the transform from UCS to WCS coordinates.
Acad::ErrorStatus acedGetCurrentUCS(AcGeMatrix3d& mat);
/// Makes the coordinate system of mat (origin, X and Y axes) the current, unnamed UCS.
Acad::ErrorStatus acedSetCurrentUCS(const AcGeMatrix3d& mat);

// ---- Dragging and display -------------------------------------------------------------------------

/// Drags the set with the cursor: scnf gets the cursor point (UCS) and fills the transform that moves
/// the set there. The script's next answer is the end point: scnf is called once with it and the
/// entities are transformed. p takes the end point. RTNONE for Enter, RTCAN for Escape.
int acedDragGen(const ads_name ss, const ACHAR* pmt, int cursor, int (*scnf)(ads_point pt, ads_matrix mt), ads_point p);
void acedUpdateDisplay();
int acedRedraw(const ads_name ent, int mode);
/// A pixel of the drawing window (x right, y down, as a CPoint or POINT) as a point of the view plane
/// (display coordinates). windnum names the viewport; there is one here.
bool acedCoordFromPixelToWorld(const POINT& ptIn, ads_point ptOut);
bool acedCoordFromPixelToWorld(int windnum, POINT ptIn, ads_point ptOut);
