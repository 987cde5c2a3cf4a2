// The host's prompts: acedInitGet and the acedGet* calls of points, numbers, text and keywords.
#include <cmath>
#include <cwchar>

#include "acedads.h"
#include "sim/editor/Prompting.h"

using namespace sim::editor;

namespace {

constexpr double kTwoPi = 2.0 * M_PI;

/// Copies text into a caller's buffer of bufLen characters (terminator included).
int copyOut(std::wstring_view text, ACHAR* out, size_t bufLen)
{
    if (!out || bufLen == 0)
        return RTERROR;
    size_t n = text.size() < bufLen ? text.size() : bufLen - 1;
    std::wmemcpy(out, text.data(), n);
    out[n] = 0;
    return n < text.size() ? RTINPUTTRUNCATED : RTNORM;
}

const ACHAR* orEmpty(const ACHAR* s) { return s ? s : L""; }

/// A point prompt: the typed point (UCS) or a keyword.
int getPoint(const ads_point base, const ACHAR* prompt, ads_point result, const InitGet& rules,
             std::wstring_view invalid)
{
    AcGePoint3d b = base ? asPnt3d(base) : AcGePoint3d();
    AcGePoint3d got;
    int rc = promptLoop(orEmpty(prompt), rules, invalid, [&](std::wstring_view t) {
        auto p = parsePoint(t);
        if (!p)
            return Take::NotValue;
        got = resolvePoint(*p, base ? &b : nullptr, rules.flags);
        return Take::Accepted;
    });
    if (rc == RTNORM) {
        rememberPoint(got);
        asPnt3d(result) = got;
    }
    return rc;
}

/// The second point of a distance or an angle shown by two points.
int secondPoint(const AcGePoint3d& first, int flags, AcGePoint3d& second)
{
    ads_point b = {first.x, first.y, first.z}, r;
    InitGet rules;
    rules.flags = (flags & RSG_2D) | RSG_NONULL;
    int rc = getPoint(b, L"Specify second point: ", r, rules, L"Invalid point.");
    if (rc == RTNORM)
        second = asPnt3d(r);
    return rc;
}

double normalAngle(double a)
{
    a = std::fmod(a, kTwoPi);
    return a < 0 ? a + kTwoPi : a;
}

int getAngle(const ads_point pt, const ACHAR* prompt, ads_real* result)
{
    if (!result)
        return RTERROR;
    InitGet rules = takeInitGet();
    std::optional<double> typed;
    std::optional<AcGePoint3d> shown;
    AcGePoint3d b = pt ? asPnt3d(pt) : AcGePoint3d();
    int rc = promptLoop(orEmpty(prompt), rules, L"Requires valid numeric angle or second point.", [&](std::wstring_view t) {
        if (auto v = parseReal(t)) {
            if (!numberAllowed(*v, rules.flags & RSG_NOZERO))
                return Take::Refused;
            typed = *v * M_PI / 180.0;
            return Take::Accepted;
        }
        if (auto p = parsePoint(t)) {
            shown = resolvePoint(*p, pt ? &b : nullptr, rules.flags);
            return Take::Accepted;
        }
        return Take::NotValue;
    });
    if (rc != RTNORM)
        return rc;
    if (typed) {
        *result = normalAngle(*typed);
        return RTNORM;
    }
    AcGePoint3d from = b, to = *shown;
    if (!pt) {
        from = *shown;
        rc = secondPoint(from, rules.flags, to);
        if (rc != RTNORM)
            return rc;
    }
    *result = normalAngle(std::atan2(to.y - from.y, to.x - from.x));
    return RTNORM;
}

} // namespace

int acedInitGet(int val, const ACHAR* kwl)
{
    InitGet g;
    g.flags = val;
    g.keywords = KeywordList::parse(orEmpty(kwl));
    editorState().pendingInitGet = std::move(g);
    return RTNORM;
}

int acedGetPoint(const ads_point pt, const ACHAR* prompt, ads_point result)
{
    if (!result)
        return RTERROR;
    InitGet rules = takeInitGet();
    return getPoint(pt, prompt, result, rules,
                    rules.keywords.empty() ? L"Invalid point." : L"Point or option keyword required.");
}

int acedGetCorner(const ads_point pt, const ACHAR* prompt, ads_point result)
{
    if (!pt || !result)
        return RTERROR;
    return acedGetPoint(pt, prompt, result);
}

int acedGetDist(const ads_point pt, const ACHAR* prompt, ads_real* result)
{
    if (!result)
        return RTERROR;
    InitGet rules = takeInitGet();
    AcGePoint3d b = pt ? asPnt3d(pt) : AcGePoint3d();
    std::optional<double> typed;
    std::optional<AcGePoint3d> shown;
    auto distance = [&](const AcGePoint3d& p, const AcGePoint3d& q) {
        return (rules.flags & RSG_2D) ? std::hypot(q.x - p.x, q.y - p.y) : p.distanceTo(q);
    };
    int rc = promptLoop(orEmpty(prompt), rules, L"Requires numeric distance or two points.", [&](std::wstring_view t) {
        if (auto v = parseReal(t)) {
            if (!numberAllowed(*v, rules.flags))
                return Take::Refused;
            typed = *v;
            return Take::Accepted;
        }
        if (auto p = parsePoint(t)) {
            AcGePoint3d q = resolvePoint(*p, pt ? &b : nullptr, rules.flags);
            if (pt && !numberAllowed(distance(b, q), rules.flags & RSG_NOZERO))
                return Take::Refused;
            shown = q;
            return Take::Accepted;
        }
        return Take::NotValue;
    });
    if (rc != RTNORM)
        return rc;
    if (typed) {
        *result = *typed;
        return RTNORM;
    }
    AcGePoint3d from = b, to = *shown;
    if (!pt) {
        from = *shown;
        rc = secondPoint(from, rules.flags, to);
        if (rc != RTNORM)
            return rc;
    }
    *result = distance(from, to);
    return RTNORM;
}

int acedGetAngle(const ads_point pt, const ACHAR* prompt, ads_real* result) { return getAngle(pt, prompt, result); }

// ANGBASE is always 0 here, so an orientation is an angle.
int acedGetOrient(const ads_point pt, const ACHAR* prompt, ads_real* result) { return getAngle(pt, prompt, result); }

int acedGetReal(const ACHAR* prompt, ads_real* result)
{
    if (!result)
        return RTERROR;
    InitGet rules = takeInitGet();
    double v = 0.0;
    int rc = promptLoop(orEmpty(prompt), rules, L"Requires numeric value.", [&](std::wstring_view t) {
        auto r = parseReal(t);
        if (!r)
            return Take::NotValue;
        if (!numberAllowed(*r, rules.flags))
            return Take::Refused;
        v = *r;
        return Take::Accepted;
    });
    if (rc == RTNORM)
        *result = v;
    return rc;
}

int acedGetInt(const ACHAR* prompt, int* result)
{
    if (!result)
        return RTERROR;
    InitGet rules = takeInitGet();
    int v = 0;
    int rc = promptLoop(orEmpty(prompt), rules, L"Requires an integer value.", [&](std::wstring_view t) {
        auto r = parseInt(t);
        if (!r)
            return Take::NotValue;
        if (*r < -32768 || *r > 32767) {
            showMessage(L"Requires an integer between -32768 and 32767.");
            return Take::Refused;
        }
        if (!numberAllowed(*r, rules.flags))
            return Take::Refused;
        v = *r;
        return Take::Accepted;
    });
    if (rc == RTNORM)
        *result = v;
    return rc;
}

int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result, size_t bufLen)
{
    if (!result || bufLen == 0)
        return RTERROR;
    takeInitGet(); // the host's string prompt takes no keywords, but the acedInitGet is spent
    editorState().lastInput.reset();
    auto line = askLine(orEmpty(prompt));
    if (!line)
        return RTCAN;
    std::wstring_view text = *line;
    // Without spaces allowed the blank ends the answer, as at the host's command line.
    if (!cronly) {
        size_t blank = text.find_first_of(L" \t");
        if (blank != std::wstring_view::npos)
            text = text.substr(0, blank);
    }
    return copyOut(text, result, bufLen);
}

int acedGetKword(const ACHAR* prompt, ACHAR* result, size_t bufLen)
{
    if (!result || bufLen == 0)
        return RTERROR;
    InitGet rules = takeInitGet();
    int rc = promptLoop(orEmpty(prompt), rules, L"Invalid option keyword.", [](std::wstring_view) { return Take::NotValue; });
    if (rc == RTKWORD) {
        rc = copyOut(*editorState().lastInput, result, bufLen);
        return rc == RTNORM ? RTNORM : rc;
    }
    if (rc == RTNONE)
        result[0] = 0;
    return rc;
}

int acedGetInput(ACHAR* str, size_t bufLen)
{
    const auto& last = editorState().lastInput;
    if (!last)
        return RTERROR;
    return copyOut(*last, str, bufLen);
}
