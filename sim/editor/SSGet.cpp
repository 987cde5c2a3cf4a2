// acedSSGet in its modes, and the single picks acedEntSel and acedNEntSel(P).
#include <cwchar>
#include <string>
#include <vector>

#include "acedads.h"
#include "sim/editor/DbNames.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "sim/editor/Picking.h"
#include "sim/editor/Prompting.h"
#include "sim/editor/SelectionFilter.h"
#include "sim/editor/Ucs.h"

using namespace sim::editor;

namespace {

/// The parts of an acedSSGet mode string: the method word and the colon options.
struct Mode {
    std::wstring method; ///< "", "I", "X", "W", "C", "L", "P"
    bool single = false;  ///< ":S"
    bool nested = false;  ///< ":N"
    bool prompts = false; ///< ":$"
};

Mode parseMode(const ACHAR* str)
{
    Mode m;
    std::wstring s = upperCase(str ? str : L"");
    size_t i = 0;
    while (i < s.size() && (s[i] == L'_' || s[i] == L'.' || s[i] == L'+'))
        ++i;
    size_t colon = s.find(L':', i);
    m.method = s.substr(i, colon == std::wstring::npos ? std::wstring::npos : colon - i);
    for (; colon != std::wstring::npos; colon = s.find(L':', colon + 1)) {
        wchar_t opt = colon + 1 < s.size() ? s[colon + 1] : 0;
        m.single = m.single || opt == L'S';
        m.nested = m.nested || opt == L'N';
        m.prompts = m.prompts || opt == L'$';
    }
    return m;
}

std::vector<std::wstring_view> words(std::wstring_view s)
{
    std::vector<std::wstring_view> out;
    size_t i = 0;
    while (i < s.size()) {
        while (i < s.size() && s[i] == L' ')
            ++i;
        size_t start = i;
        while (i < s.size() && s[i] != L' ')
            ++i;
        if (i > start)
            out.push_back(s.substr(start, i - start));
    }
    return out;
}

/// Builds a selection under the mode's rules: filter, nesting, and what it tells the user.
class Selector {
public:
    Selector(AcDbDatabase& db, const SelectionFilter& filter, bool nested) : m_db(db), m_filter(filter), m_nested(nested) {}

    bool passes(const AcDbEntity& e) const { return m_filter.accepts(factsOf(e)); }
    bool passes(AcDbObjectId id) const
    {
        AcDbObjectPointer<AcDbEntity> e(id);
        return e.openStatus() == Acad::eOk && passes(*e);
    }

    /// A pick at p (WCS): true when an entity was under it (whether taken or not).
    bool pick(const AcGePoint3d& p)
    {
        auto hit = pickAt(m_db, p, [this](const AcDbEntity& e) { return passes(e); });
        if (!hit) {
            // Tell a miss from an entity that the filter refused.
            bool refused = pickAt(m_db, p).has_value();
            report(0, refused ? 1 : 0);
            return refused;
        }
        Selected s;
        s.entity = hit->entity;
        s.method = SelectMethod::Pick;
        s.pickPoint = p;
        s.gsMarker = hit->gsMarker;
        if (m_nested) {
            s.innermost = hit->innermost;
            s.containers = hit->containers;
        } else {
            s.innermost = hit->entity;
        }
        take({s});
        return true;
    }

    /// Entities chosen otherwise (handles, window, all): the filter picks among them.
    void takeIds(const std::vector<AcDbObjectId>& ids, SelectMethod method)
    {
        std::vector<Selected> items;
        int refused = 0;
        for (AcDbObjectId id : ids) {
            if (!passes(id)) {
                ++refused;
                continue;
            }
            Selected s;
            s.entity = s.innermost = id;
            s.method = method;
            items.push_back(s);
        }
        take(items, refused);
    }

    void setRemoving(bool r) { m_removing = r; }
    SelectionSet& set() { return m_set; }

private:
    void take(const std::vector<Selected>& items, int refused = 0)
    {
        int changed = 0;
        for (const auto& s : items)
            changed += m_removing ? m_set.remove(s.entity) : m_set.add(s);
        report(static_cast<int>(items.size()), refused, static_cast<int>(items.size()) - changed);
    }

    void report(int found, int refused, int duplicates = 0)
    {
        std::wstring msg = std::to_wstring(found + refused) + L" found";
        if (m_removing)
            msg += L", " + std::to_wstring(found - duplicates) + L" removed";
        else if (duplicates)
            msg += L" (" + std::to_wstring(duplicates) + L" duplicate)";
        if (found + refused > 0 && static_cast<size_t>(found) != m_set.size())
            msg += L", " + std::to_wstring(m_set.size()) + L" total";
        showMessage(msg);
        if (refused)
            showMessage(std::to_wstring(refused) + (refused == 1 ? L" was filtered out." : L" were filtered out."));
    }

    AcDbDatabase& m_db;
    const SelectionFilter& m_filter;
    bool m_nested;
    bool m_removing = false;
    SelectionSet m_set;
};

std::optional<AcGePoint3d> wcsPoint(std::wstring_view text)
{
    auto p = parsePoint(text);
    if (!p)
        return std::nullopt;
    return toWcs(resolvePoint(*p, nullptr, 0));
}

/// Handles typed at a selection prompt ("#1F #20"): nothing unless every word is one.
std::optional<std::vector<AcDbObjectId>> handleIds(AcDbDatabase& db, std::wstring_view text)
{
    std::vector<AcDbObjectId> ids;
    for (auto w : words(text)) {
        auto h = parseHandle(w);
        if (!h)
            return std::nullopt;
        AcDbObjectId id;
        if (db.getAcDbObjectId(id, false, *h) == Acad::eOk && inCurrentSpace(db, id))
            ids.push_back(id);
    }
    return ids;
}

std::vector<AcDbObjectId>& previousIds() { return editorState().previousSelection; }

std::vector<AcDbObjectId> lastEntity(AcDbDatabase& db)
{
    auto all = allInSpace(db);
    if (all.empty())
        return {};
    return {all.back()};
}

/// The prompted selection: one answer per line until Enter (or after one answer under ":S").
int promptedSelection(AcDbDatabase& db, Selector& sel, const Mode& mode, const ACHAR* addPrompt, const ACHAR* removePrompt)
{
    InitGet rules = takeInitGet();
    editorState().lastInput.reset();
    bool removing = false;
    for (;;) {
        auto line = askLine(removing ? removePrompt : addPrompt);
        if (!line)
            return RTCAN;
        std::wstring_view t = trimmed(*line);
        if (t.empty())
            break;
        std::wstring up = upperCase(t);
        auto parts = words(up);
        bool attempted = true;
        if (auto p = wcsPoint(t)) {
            sel.pick(*p);
        } else if (auto ids = handleIds(db, t)) {
            sel.takeIds(*ids, SelectMethod::Other);
        } else if (auto kw = rules.keywords.match(t)) {
            editorState().lastInput = *kw;
            return RTKWORD;
        } else if (up == L"ALL" || up == L"_ALL") {
            sel.takeIds(allInSpace(db), SelectMethod::Other);
        } else if ((parts[0] == L"W" || parts[0] == L"C" || parts[0] == L"_W" || parts[0] == L"_C") && parts.size() == 3 &&
                   wcsPoint(parts[1]) && wcsPoint(parts[2])) {
            bool crossing = parts[0].back() == L'C';
            sel.takeIds(inWindow(db, *wcsPoint(parts[1]), *wcsPoint(parts[2]), crossing),
                        crossing ? SelectMethod::Crossing : SelectMethod::Window);
        } else if (up == L"L" || up == L"LAST" || up == L"_L") {
            sel.takeIds(lastEntity(db), SelectMethod::Other);
        } else if (up == L"P" || up == L"PREVIOUS" || up == L"_P") {
            sel.takeIds(previousIds(), SelectMethod::Other);
        } else if (!mode.single && (up == L"R" || up == L"REMOVE" || up == L"_R")) {
            removing = true;
            attempted = false;
        } else if (!mode.single && (up == L"A" || up == L"ADD" || up == L"_A")) {
            removing = false;
            attempted = false;
        } else if (rules.flags & RSG_OTHER) {
            editorState().lastInput = std::wstring(t);
            return RTKWORD;
        } else {
            showMessage(L"*Invalid selection*");
            showMessage(L"Expects a point or Window/Last/Crossing/ALL/Add/Remove/Previous");
            attempted = false;
        }
        sel.setRemoving(removing);
        if (mode.single && attempted)
            break;
    }
    return RTNORM;
}

int finish(Selector& sel, int rc, ads_name ss)
{
    if (rc != RTNORM)
        return rc;
    if (sel.set().empty())
        return RTERROR;
    previousIds().clear();
    for (const auto& s : sel.set().items())
        previousIds().push_back(s.entity);
    newSet(ss) = sel.set();
    return RTNORM;
}

/// The first point the user would see of an entity picked by its handle (UCS).
AcGePoint3d shownPoint(AcDbObjectId id)
{
    AcDbObjectPointer<AcDbEntity> e(id);
    AcGePoint3d p;
    if (e.openStatus() == Acad::eOk) {
        if (auto* c = AcDbCurve::cast(e.object()))
            c->getStartPoint(p);
        else if (auto* t = AcDbText::cast(e.object()))
            p = t->position();
        else if (auto* r = AcDbBlockReference::cast(e.object()))
            p = r->position();
    }
    return toUcs(p);
}

/// One pick for acedEntSel and acedNEntSelP: the hit and the pick point (UCS).
int singlePick(const ACHAR* prompt, Hit& hit, AcGePoint3d& pickUcs)
{
    AcDbDatabase* db = workingDb();
    if (!db)
        return RTERROR;
    InitGet rules = takeInitGet();
    return promptLoop(prompt ? prompt : L"\nSelect object: ", rules, L"*Invalid selection*", [&](std::wstring_view t) {
        if (auto p = parsePoint(t)) {
            pickUcs = resolvePoint(*p, nullptr, 0);
            auto h = pickAt(*db, toWcs(pickUcs));
            if (!h)
                return Take::Failed;
            hit = *h;
            return Take::Accepted;
        }
        if (auto ids = handleIds(*db, t)) {
            if (ids->size() != 1)
                return Take::Failed;
            hit = Hit{};
            hit.entity = hit.innermost = ids->front();
            pickUcs = shownPoint(hit.entity);
            return Take::Accepted;
        }
        return Take::NotValue;
    });
}

} // namespace

int acedSSGet(const ACHAR* str, const void* pt1, const void* pt2, const struct resbuf* filter, ads_name ss)
{
    if (!ss)
        return RTERROR;
    ads_name_clear(ss);
    AcDbDatabase* db = workingDb();
    auto f = SelectionFilter::parse(filter);
    if (!db || !f)
        return RTERROR;
    Mode mode = parseMode(str);
    Selector sel(*db, *f, mode.nested);
    const auto* p1 = static_cast<const double*>(pt1);
    const auto* p2 = static_cast<const double*>(pt2);
    if (mode.method == L"I") {
        takeInitGet();
        std::vector<AcDbObjectId> ids;
        for (const auto& s : editorState().pickfirst.items())
            if (!s.entity.isErased())
                ids.push_back(s.entity);
        for (AcDbObjectId id : ids)
            if (sel.passes(id)) {
                Selected s;
                s.entity = s.innermost = id;
                sel.set().add(s);
            }
        return finish(sel, RTNORM, ss);
    }
    if (mode.method == L"X") {
        takeInitGet();
        sel.takeIds(allInSpace(*db), SelectMethod::Other);
        return finish(sel, RTNORM, ss);
    }
    if (mode.method == L"W" || mode.method == L"C") {
        takeInitGet();
        if (!p1 || !p2)
            return RTERROR;
        bool crossing = mode.method == L"C";
        sel.takeIds(inWindow(*db, toWcs(asPnt3d(p1)), toWcs(asPnt3d(p2)), crossing),
                    crossing ? SelectMethod::Crossing : SelectMethod::Window);
        return finish(sel, RTNORM, ss);
    }
    if (mode.method == L"L") {
        takeInitGet();
        sel.takeIds(lastEntity(*db), SelectMethod::Other);
        return finish(sel, RTNORM, ss);
    }
    if (mode.method == L"P") {
        takeInitGet();
        sel.takeIds(previousIds(), SelectMethod::Other);
        return finish(sel, RTNORM, ss);
    }
    if (!mode.method.empty())
        return RTERROR;
    if (p1 && !mode.prompts) {
        takeInitGet();
        sel.pick(toWcs(asPnt3d(p1)));
        return finish(sel, RTNORM, ss);
    }
    const ACHAR* addPrompt = L"\nSelect objects: ";
    const ACHAR* removePrompt = L"\nRemove objects: ";
    if (mode.prompts) {
        const auto* prompts = static_cast<const ACHAR* const*>(pt1);
        if (!prompts || !prompts[0] || !prompts[1])
            return RTERROR;
        addPrompt = prompts[0];
        removePrompt = prompts[1];
    }
    return finish(sel, promptedSelection(*db, sel, mode, addPrompt, removePrompt), ss);
}

int acedEntSel(const ACHAR* str, ads_name entres, ads_point ptres)
{
    if (!entres || !ptres)
        return RTERROR;
    Hit hit;
    AcGePoint3d p;
    int rc = singlePick(str, hit, p);
    if (rc == RTNORM) {
        adsNameOf(hit.entity, entres);
        asPnt3d(ptres) = p;
    }
    return rc;
}

int acedNEntSelP(const ACHAR* str, ads_name entres, ads_point ptres, int pickflag, ads_matrix xformres, struct resbuf** refstkres)
{
    if (!entres || !ptres)
        return RTERROR;
    if (refstkres)
        *refstkres = nullptr;
    Hit hit;
    AcGePoint3d p = asPnt3d(ptres);
    int rc = RTNORM;
    if (pickflag) {
        AcDbDatabase* db = workingDb();
        auto h = db ? pickAt(*db, toWcs(p)) : std::nullopt;
        if (!h)
            return RTERROR;
        hit = *h;
    } else {
        rc = singlePick(str, hit, p);
        if (rc != RTNORM)
            return rc;
    }
    adsNameOf(hit.innermost, entres);
    asPnt3d(ptres) = p;
    if (xformres)
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j)
                xformres[i][j] = hit.innerToWorld(static_cast<unsigned>(i), static_cast<unsigned>(j));
    if (refstkres && !hit.containers.empty()) {
        resbuf* tail = nullptr;
        for (AcDbObjectId c : hit.containers) {
            resbuf* rb = acutNewRb(RTENAME);
            adsNameOf(c, rb->resval.rlname);
            (tail ? tail->rbnext : *refstkres) = rb;
            tail = rb;
        }
    }
    return rc;
}

int acedNEntSel(const ACHAR* str, ads_name entres, ads_point ptres, ads_point xformres[4], struct resbuf** refstkres)
{
    ads_matrix m;
    int rc = acedNEntSelP(str, entres, ptres, 0, m, refstkres);
    // The AutoLISP form: four rows, the X, Y and Z axes and the origin.
    if (rc == RTNORM && xformres)
        for (int row = 0; row < 4; ++row)
            for (int k = 0; k < 3; ++k)
                xformres[row][k] = m[k][row];
    return rc;
}
