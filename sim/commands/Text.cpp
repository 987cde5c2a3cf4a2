// _TEXT: single-line texts in the plane of the UCS, with the host's justifications, height and
// rotation prompts, one text per answer until an empty answer.
#include <cmath>
#include <cwchar>
#include <string>

#include "acedads.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "sim/editor/DbNames.h"
#include "sim/editor/Keywords.h"
#include "sim/editor/Ucs.h"
#include "sim/commands/Commands.h"

namespace sim::commands {

using namespace sim::editor;

namespace {

struct Justify {
    const wchar_t* keyword;
    AcDb::TextHorzMode horz;
    AcDb::TextVertMode vert;
    const wchar_t* prompt;
};

const Justify kJustify[] = {
    {L"Left", AcDb::kTextLeft, AcDb::kTextBase, L"\nSpecify start point of text: "},
    {L"Center", AcDb::kTextCenter, AcDb::kTextBase, L"\nSpecify center point of baseline: "},
    {L"Right", AcDb::kTextRight, AcDb::kTextBase, L"\nSpecify right endpoint of text baseline: "},
    {L"Align", AcDb::kTextAlign, AcDb::kTextBase, L"\nSpecify first endpoint of text baseline: "},
    {L"Middle", AcDb::kTextMid, AcDb::kTextBase, L"\nSpecify middle point of text: "},
    {L"Fit", AcDb::kTextFit, AcDb::kTextBase, L"\nSpecify first endpoint of text baseline: "},
    {L"TL", AcDb::kTextLeft, AcDb::kTextTop, L"\nSpecify top-left point of text: "},
    {L"TC", AcDb::kTextCenter, AcDb::kTextTop, L"\nSpecify top-center point of text: "},
    {L"TR", AcDb::kTextRight, AcDb::kTextTop, L"\nSpecify top-right point of text: "},
    {L"ML", AcDb::kTextLeft, AcDb::kTextVertMid, L"\nSpecify middle-left point of text: "},
    {L"MC", AcDb::kTextCenter, AcDb::kTextVertMid, L"\nSpecify middle point of text: "},
    {L"MR", AcDb::kTextRight, AcDb::kTextVertMid, L"\nSpecify middle-right point of text: "},
    {L"BL", AcDb::kTextLeft, AcDb::kTextBottom, L"\nSpecify bottom-left point of text: "},
    {L"BC", AcDb::kTextCenter, AcDb::kTextBottom, L"\nSpecify bottom-center point of text: "},
    {L"BR", AcDb::kTextRight, AcDb::kTextBottom, L"\nSpecify bottom-right point of text: "},
};
constexpr const wchar_t* kJustifyKeywords = L"Left Center Right Align Middle Fit TL TC TR ML MC MR BL BC BR";

// The rotation offered as default, as the host keeps it between texts.
double g_rotation = 0.0;

const Justify* justifyOf(const std::wstring& keyword)
{
    for (const auto& j : kJustify)
        if (keyword == j.keyword)
            return &j;
    return nullptr;
}

std::wstring askKeyword()
{
    ACHAR kw[32] = L"";
    acedGetInput(kw, 32);
    return kw;
}

/// The fixed height of a style, or 0.
double styleHeight(AcDbObjectId style)
{
    AcDbObjectPointer<AcDbTextStyleTableRecord> rec(style);
    return rec.openStatus() == Acad::eOk ? rec->textSize() : 0.0;
}

} // namespace

void text()
{
    AcDbDatabase* db = workingDb();
    if (!db)
        return;
    AcDbObjectId style = db->textstyle();
    const Justify* just = &kJustify[0];
    double shownHeight = styleHeight(style) > 0 ? styleHeight(style) : db->textsize();
    say(L"Current text style:  \"%ls\"  Text height:  %.4f  Annotative:  No  Justify:  %ls",
               recordName(style).c_str(), shownHeight, just->keyword);
    ads_point first;
    for (;;) {
        acedInitGet(0, (std::wstring(L"Justify Style ") + kJustifyKeywords).c_str());
        int rc = acedGetPoint(nullptr, just == &kJustify[0] ? L"\nSpecify start point of text or [Justify/Style]: " : just->prompt, first);
        if (rc == RTNORM)
            break;
        if (rc != RTKWORD)
            return;
        std::wstring kw = askKeyword();
        if (kw == L"Style") {
            ACHAR name[256];
            std::wstring prompt = L"\nEnter style name or [?] <" + recordName(style) + L">: ";
            if (acedGetString(0, prompt.c_str(), name, 256) != RTNORM)
                return;
            if (name[0] == 0)
                continue;
            AcDbObjectId id = recordId<AcDbTextStyleTableRecord>(db, name);
            if (id.isNull())
                say(L"Cannot find text style \"%ls\".", name);
            else
                style = id;
            continue;
        }
        if (kw == L"Justify") {
            acedInitGet(0, kJustifyKeywords);
            ACHAR option[8];
            if (acedGetKword(L"\nEnter an option [Left/Center/Right/Align/Middle/Fit/TL/TC/TR/ML/MC/MR/BL/BC/BR]: ", option, 8) != RTNORM)
                return;
            kw = option;
        }
        if (const Justify* j = justifyOf(kw))
            just = j;
    }
    AcGePoint3d at = asPnt3d(first), second = at;
    bool twoPoints = just->horz == AcDb::kTextAlign || just->horz == AcDb::kTextFit;
    double rotation = g_rotation;
    if (twoPoints) {
        ads_point p;
        if (acedGetPoint(first, L"\nSpecify second endpoint of text baseline: ", p) != RTNORM)
            return;
        second = asPnt3d(p);
        rotation = std::atan2(second.y - at.y, second.x - at.x);
    }
    double height = styleHeight(style);
    if (height <= 0 && just->horz != AcDb::kTextAlign) {
        height = db->textsize();
        wchar_t prompt[64];
        std::swprintf(prompt, 64, L"\nSpecify height <%.4f>: ", height);
        acedInitGet(RSG_NOZERO | RSG_NONEG, nullptr);
        int rc = acedGetDist(first, prompt, &height);
        if (rc == RTNONE)
            height = db->textsize();
        else if (rc != RTNORM)
            return;
        db->setTextsize(height);
    }
    if (height <= 0)
        height = db->textsize();
    if (!twoPoints) {
        wchar_t prompt[64];
        std::swprintf(prompt, 64, L"\nSpecify rotation angle of text <%.0f>: ", g_rotation * 180.0 / M_PI);
        int rc = acedGetAngle(first, prompt, &rotation);
        if (rc == RTNONE)
            rotation = g_rotation;
        else if (rc != RTNORM)
            return;
        g_rotation = rotation;
    }
    // The text lies in the UCS plane; its rotation is measured from the X axis of its own plane.
    AcGeMatrix3d ucs = ucsToWcs();
    AcGeVector3d normal = (ucs * AcGeVector3d::kZAxis).normal();
    AcGeVector3d ucsX = ecsToWcs(normal).inverse() * (ucs * AcGeVector3d::kXAxis);
    double planeRotation = rotation + std::atan2(ucsX.y, ucsX.x);
    AcGeVector3d down(std::sin(rotation) * height * 5.0 / 3.0, -std::cos(rotation) * height * 5.0 / 3.0, 0.0);
    for (;;) {
        ACHAR line[1024];
        if (acedGetString(1, L"\nEnter text: ", line, 1024) != RTNORM || line[0] == 0)
            return;
        auto* t = new AcDbText(toWcs(at), line, style, height, planeRotation);
        t->setNormal(normal);
        if (just != &kJustify[0]) {
            t->setHorizontalMode(just->horz);
            t->setVerticalMode(just->vert);
            t->setAlignmentPoint(toWcs(twoPoints ? second : at));
            t->adjustAlignment(db);
        }
        // setDatabaseDefaults (on append) would put the current style in place of the chosen one.
        AcDbObjectId id = appendToSpace(t);
        if (id.isNull())
            return;
        AcDbObjectPointer<AcDbText> placed(id, AcDb::kForWrite);
        if (placed.openStatus() == Acad::eOk)
            placed->setTextStyle(style);
        at += down;
        second += down;
    }
}

} // namespace sim::commands
