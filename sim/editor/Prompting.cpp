// The shared loop of prompts: one answer per line, Escape, messages, points of the current UCS.
#include "sim/editor/Prompting.h"

#include "sim/core/Session.h"
#include "sim/editor/Ucs.h"

namespace sim::editor {

void showMessage(std::wstring_view text)
{
    auto* s = Session::currentOrNull();
    if (!s)
        return;
    const auto& t = s->transcript();
    if (!t.empty() && t.back() != L'\n')
        s->print(L"\n");
    s->print(text);
    s->print(L"\n");
}

std::optional<std::wstring> askLine(std::wstring_view prompt)
{
    auto* s = Session::currentOrNull();
    if (!s)
        return std::nullopt;
    auto answer = s->ask(prompt);
    if (!answer || trimmed(*answer) == L"^C") {
        if (answer)
            showMessage(L"*Cancel*");
        return std::nullopt;
    }
    return answer;
}

AcGePoint3d resolvePoint(const PointText& p, const AcGePoint3d* base, int flags)
{
    AcGePoint3d from = base ? *base : toUcs(editorState().lastPoint);
    AcGePoint3d r;
    if (p.polar) {
        AcGePoint3d o = p.relative ? from : AcGePoint3d::kOrigin;
        r.set(o.x + p.xyz.x * std::cos(p.xyz.y), o.y + p.xyz.x * std::sin(p.xyz.y), o.z);
    } else if (p.relative) {
        r = from + p.xyz.asVector();
    } else if (p.world) {
        r = toUcs(p.xyz);
    } else {
        r = p.xyz;
    }
    if (flags & RSG_2D)
        r.z = 0.0;
    return r;
}

void rememberPoint(const AcGePoint3d& ucs) { editorState().lastPoint = toWcs(ucs); }

bool numberAllowed(double v, int flags)
{
    bool noZero = flags & RSG_NOZERO, noNeg = flags & RSG_NONEG;
    if ((noZero && v == 0.0) || (noNeg && v < 0.0)) {
        showMessage(noZero && noNeg ? L"Value must be positive and nonzero."
                    : noZero        ? L"Value must be nonzero."
                                    : L"Value must be positive.");
        return false;
    }
    return true;
}

} // namespace sim::editor
