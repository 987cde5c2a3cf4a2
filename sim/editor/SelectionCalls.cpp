// The calls on selection sets: their length and members, how each member was selected, adding and
// removing members, and the pickfirst set.
#include "acedads.h"
#include "sim/editor/DbNames.h"
#include "sim/editor/EditorState.h"

using namespace sim::editor;

namespace {

const Selected* member(const ads_name ss, Adesk::Int32 i)
{
    SelectionSet* set = findSet(ss);
    if (!set || i < 0 || static_cast<size_t>(i) >= set->size())
        return nullptr;
    return &set->items()[static_cast<size_t>(i)];
}

resbuf* append(resbuf*& head, resbuf*& tail, int type)
{
    resbuf* rb = acutNewRb(type);
    (tail ? tail->rbnext : head) = rb;
    tail = rb;
    return rb;
}

/// A new set holding the same members; its name goes to out.
void copySet(const SelectionSet& from, ads_name out) { newSet(out) = from; }

} // namespace

int acedSSFree(const ads_name sname)
{
    if (!findSet(sname))
        return RTERROR;
    editorState().sets.erase(sname[1]);
    return RTNORM;
}

int acedSSLength(const ads_name sname, Adesk::Int32* len)
{
    SelectionSet* set = findSet(sname);
    if (!set || !len)
        return RTERROR;
    *len = static_cast<Adesk::Int32>(set->size());
    return RTNORM;
}

int acedSSName(const ads_name ss, Adesk::Int32 i, ads_name entres)
{
    const Selected* s = member(ss, i);
    if (!s || !entres)
        return RTERROR;
    adsNameOf(s->entity, entres);
    return RTNORM;
}

int acedSSNameX(struct resbuf** rbpp, const ads_name ss, Adesk::Int32 i, unsigned int /*flags*/)
{
    const Selected* s = member(ss, i);
    if (!s || !rbpp)
        return RTERROR;
    resbuf *head = nullptr, *tail = nullptr;
    append(head, tail, RTSHORT)->resval.rint = static_cast<short>(s->method);
    adsNameOf(s->innermost.isNull() ? s->entity : s->innermost, append(head, tail, RTENAME)->resval.rlname);
    append(head, tail, RTLONG)->resval.rlong = s->gsMarker;
    if (s->method == SelectMethod::Pick) {
        append(head, tail, RTLB);
        append(head, tail, RTSHORT)->resval.rint = 0;
        resbuf* p = append(head, tail, RT3DPOINT);
        p->resval.rpoint[0] = s->pickPoint.x;
        p->resval.rpoint[1] = s->pickPoint.y;
        p->resval.rpoint[2] = s->pickPoint.z;
        append(head, tail, RTLE);
    }
    for (AcDbObjectId c : s->containers)
        adsNameOf(c, append(head, tail, RTENAME)->resval.rlname);
    *rbpp = head;
    return RTNORM;
}

int acedSSAdd(const ads_name ename, const ads_name sname, ads_name result)
{
    if (!result)
        return RTERROR;
    AcDbObjectId id;
    if (ename && acdbGetObjectId(id, ename) != Acad::eOk)
        return RTERROR;
    Selected s;
    s.entity = s.innermost = id;
    if (!sname) {
        SelectionSet& set = newSet(result);
        if (ename)
            set.add(s);
        return RTNORM;
    }
    SelectionSet* set = findSet(sname);
    if (!set || !ename)
        return RTERROR;
    set->add(s);
    ads_name_set(sname, result);
    return RTNORM;
}

int acedSSDel(const ads_name ename, const ads_name ss)
{
    SelectionSet* set = findSet(ss);
    AcDbObjectId id;
    if (!set || !ename || acdbGetObjectId(id, ename) != Acad::eOk)
        return RTERROR;
    return set->remove(id) ? RTNORM : RTERROR;
}

int acedSSMemb(const ads_name ename, const ads_name ss)
{
    SelectionSet* set = findSet(ss);
    AcDbObjectId id;
    if (!set || !ename || acdbGetObjectId(id, ename) != Acad::eOk)
        return RTERROR;
    return set->contains(id) ? RTNORM : RTERROR;
}

int acedSSSetFirst(const ads_name pset, const ads_name /*unused*/)
{
    if (!pset) {
        editorState().pickfirst = SelectionSet{};
        return RTNORM;
    }
    SelectionSet* set = findSet(pset);
    if (!set)
        return RTERROR;
    editorState().pickfirst = *set;
    return RTNORM;
}

int acedSSGetFirst(struct resbuf** gset, struct resbuf** pset)
{
    const SelectionSet& first = editorState().pickfirst;
    for (resbuf** out : {gset, pset}) {
        if (!out)
            continue;
        *out = nullptr;
        if (first.empty())
            continue;
        *out = acutNewRb(RTPICKS);
        copySet(first, (*out)->resval.rlname);
    }
    return RTNORM;
}
