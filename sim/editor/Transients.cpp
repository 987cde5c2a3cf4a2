// The platform's transient manager: a list of what the system shows over the drawing.
#include "sim/editor/Transients.h"

#include <algorithm>

#include "sim/core/Session.h"

namespace sim::editor {

namespace {

std::vector<Transient>& list()
{
    static std::vector<Transient> shown;
    return shown;
}

// The transcript shows a transient when it appears and when it goes, one line each.
std::wstring kindOf(AcGiDrawable* d)
{
    const ACHAR* kind = d->isA()->dxfName();
    return kind ? kind : d->isA()->name();
}

void tell(const std::wstring& line)
{
    if (Session* s = Session::currentOrNull()) {
        const std::wstring& t = s->transcript();
        s->print((t.empty() || t.back() == L'\n' ? L"" : L"\n") + line + L"\n");
    }
}

std::vector<Transient>::iterator findShown(AcGiDrawable* d)
{
    return std::find_if(list().begin(), list().end(), [d](const Transient& t) { return t.drawable == d; });
}

class TransientManager : public AcGiTransientManager {
public:
    bool addTransient(AcGiDrawable* pDrawable, AcGiTransientDrawingMode mode, int subDrawingMode,
                      const AcArray<int>& viewportNumbers) override
    {
        if (pDrawable == nullptr || findShown(pDrawable) != list().end())
            return false;
        list().push_back({pDrawable, mode, subDrawingMode, std::vector<int>(viewportNumbers.begin(), viewportNumbers.end())});
        tell(L"[náhled] " + kindOf(pDrawable));
        return true;
    }

    bool eraseTransient(AcGiDrawable* pDrawable, const AcArray<int>& viewportNumbers) override
    {
        auto it = findShown(pDrawable);
        if (pDrawable == nullptr || it == list().end())
            return false;
        for (int vp : viewportNumbers)
            it->viewports.erase(std::remove(it->viewports.begin(), it->viewports.end(), vp), it->viewports.end());
        // An empty list, or no viewport left, takes it off the screen.
        if (viewportNumbers.isEmpty() || it->viewports.empty()) {
            tell(L"[náhled pryč] " + kindOf(pDrawable));
            list().erase(it);
        }
        return true;
    }

    bool eraseTransients(AcGiTransientDrawingMode mode, int subDrawingMode, const AcArray<int>&) override
    {
        for (const Transient& t : list())
            if (t.mode == mode && t.subMode == subDrawingMode)
                tell(L"[náhled pryč] " + kindOf(t.drawable));
        auto end = std::remove_if(list().begin(), list().end(),
                                  [&](const Transient& t) { return t.mode == mode && t.subMode == subDrawingMode; });
        bool any = end != list().end();
        list().erase(end, list().end());
        return any;
    }

    void updateTransient(AcGiDrawable*, const AcArray<int>&) override {}
};

} // namespace

const std::vector<Transient>& transients() { return list(); }

void clearTransients() { list().clear(); }

std::wstring describeTransients()
{
    std::wstring out;
    for (const Transient& t : list()) {
        const ACHAR* kind = t.drawable->isA()->dxfName();
        out += kind ? kind : t.drawable->isA()->name();
        out += L" in viewports";
        for (int vp : t.viewports)
            out += L" " + std::to_wstring(vp);
        out += L"\n";
    }
    return out;
}

} // namespace sim::editor

AcGiTransientManager* acgiGetTransientManager()
{
    static sim::editor::TransientManager manager;
    return &manager;
}
