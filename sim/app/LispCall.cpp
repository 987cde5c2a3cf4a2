// AutoLISP calls from the command line, and the host calls an application answers them with.
#include "sim/app/LispCall.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <exception>
#include <limits>
#include <utility>
#include <vector>

#include "acedlisp.h"
#include "rxregsvc.h"
#include "sim/app/Documents.h"
#include "sim/app/LispFunctions.h"
#include "sim/app/Loader.h"
#include "sim/core/ResBuf.h"
#include "sim/core/Session.h"

namespace sim::app {

namespace {

// ---- Parsing ------------------------------------------------------------------------------------

bool isSpace(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n'; }
bool endsAtom(wchar_t c) { return isSpace(c) || c == L'(' || c == L')' || c == L'"' || c == L'\'' || c == L';'; }

std::wstring upper(std::wstring_view s)
{
    std::wstring out(s);
    for (auto& c : out)
        if (c >= L'a' && c <= L'z')
            c = static_cast<wchar_t>(c - L'a' + L'A');
    return out;
}

/// A number as AutoLISP reads it. Integers beyond 32 bits become reals, as AutoLISP makes them.
struct Number {
    bool integer;
    long long i;
    double r;
};

std::optional<Number> parseNumber(std::wstring_view atom)
{
    bool digits = false;
    bool realForm = false;
    for (size_t k = 0; k < atom.size(); ++k) {
        wchar_t c = atom[k];
        if (c >= L'0' && c <= L'9')
            digits = true;
        else if (c == L'.' || c == L'e' || c == L'E')
            realForm = true;
        else if ((c == L'+' || c == L'-') && (k == 0 || atom[k - 1] == L'e' || atom[k - 1] == L'E'))
            continue;
        else
            return std::nullopt;
    }
    if (!digits)
        return std::nullopt;
    std::wstring text(atom);
    wchar_t* end = nullptr;
    if (!realForm) {
        errno = 0;
        long long v = std::wcstoll(text.c_str(), &end, 10);
        if (*end == 0 && errno == 0 && v >= std::numeric_limits<Adesk::Int32>::min() &&
            v <= std::numeric_limits<Adesk::Int32>::max())
            return Number{true, v, 0.0};
    }
    double r = std::wcstod(text.c_str(), &end);
    if (*end != 0 || !std::isfinite(r))
        return std::nullopt;
    return Number{false, 0, r};
}

class Parser {
public:
    explicit Parser(std::wstring_view text) : m_text(text) {}

    std::optional<LispCall> parse(std::wstring& error)
    {
        skipSpace();
        if (!take(L'('))
            return fail(error, L"malformed list on input");
        skipSpace();
        LispCall call;
        if (!at(L')')) {
            if (at(L'"') || at(L'\'') || at(L'('))
                return fail(error, L"bad function: only a function name can open the list");
            call.name = atom();
        }
        // The arguments are owned by the call only once they are all read.
        resbuf* head = nullptr;
        resbuf* tail = nullptr;
        struct Free {
            resbuf*& head;
            ~Free() { acutRelRb(head); }
        } free{head};
        for (;;) {
            skipSpace();
            if (done())
                return fail(error, L"malformed list on input");
            if (take(L')'))
                break;
            resbuf* rb = argument(error);
            if (!rb)
                return std::nullopt;
            (tail ? tail->rbnext : head) = rb;
            tail = rb;
        }
        skipSpace();
        if (!done() && !at(L';'))
            return fail(error, L"extra input after the list: only one expression per line");
        call.args = Chain(std::exchange(head, nullptr));
        return call;
    }

private:
    std::optional<LispCall> fail(std::wstring& error, std::wstring message)
    {
        if (m_error.empty())
            m_error = std::move(message);
        error = m_error;
        return std::nullopt;
    }
    resbuf* failArg(std::wstring message)
    {
        if (m_error.empty())
            m_error = std::move(message);
        return nullptr;
    }

    bool done() const { return m_pos >= m_text.size(); }
    bool at(wchar_t c) const { return !done() && m_text[m_pos] == c; }
    bool take(wchar_t c)
    {
        if (!at(c))
            return false;
        ++m_pos;
        return true;
    }
    void skipSpace()
    {
        while (!done() && isSpace(m_text[m_pos]))
            ++m_pos;
    }
    std::wstring_view atom()
    {
        size_t start = m_pos;
        while (!done() && !endsAtom(m_text[m_pos]))
            ++m_pos;
        return m_text.substr(start, m_pos - start);
    }

    resbuf* argument(std::wstring& error)
    {
        resbuf* rb = nullptr;
        if (take(L'"'))
            rb = string();
        else if (take(L'\''))
            rb = quoted();
        else if (at(L'('))
            rb = failArg(L"only literal arguments can be given: strings, numbers, '(x y z), nil, T");
        else
            rb = literal(atom());
        if (!rb)
            error = m_error;
        return rb;
    }

    resbuf* string()
    {
        std::wstring value;
        for (;;) {
            if (done())
                return failArg(L"malformed string on input");
            wchar_t c = m_text[m_pos++];
            if (c == L'"')
                break;
            if (c == L'\\' && !done()) {
                wchar_t e = m_text[m_pos++];
                switch (e) {
                case L'n': c = L'\n'; break;
                case L't': c = L'\t'; break;
                case L'r': c = L'\r'; break;
                case L'e': c = L'\x1B'; break;
                default: c = e; break; // \" and \\ and anything else stand for the character
                }
            }
            value.push_back(c);
        }
        resbuf* rb = acutNewRb(RTSTR);
        acutNewString(value.c_str(), rb->resval.rstring);
        return rb;
    }

    resbuf* quoted()
    {
        if (!take(L'(')) {
            std::wstring_view a = atom();
            if (upper(a) == L"NIL")
                return acutNewRb(RTNIL);
            return failArg(L"only points can be quoted: '(x y) or '(x y z)");
        }
        std::vector<double> coords;
        for (;;) {
            skipSpace();
            if (done())
                return failArg(L"malformed list on input");
            if (take(L')'))
                break;
            std::wstring_view a = atom();
            auto n = parseNumber(a);
            if (a.empty() || !n)
                return failArg(L"only points can be quoted: '(x y) or '(x y z)");
            coords.push_back(n->integer ? static_cast<double>(n->i) : n->r);
        }
        if (coords.empty())
            return acutNewRb(RTNIL);
        if (coords.size() != 2 && coords.size() != 3)
            return failArg(L"only points can be quoted: '(x y) or '(x y z)");
        resbuf* rb = acutNewRb(coords.size() == 2 ? RTPOINT : RT3DPOINT);
        for (size_t k = 0; k < coords.size(); ++k)
            rb->resval.rpoint[k] = coords[k];
        return rb;
    }

    resbuf* literal(std::wstring_view a)
    {
        if (a.empty())
            return failArg(L"malformed list on input");
        std::wstring name = upper(a);
        if (name == L"NIL")
            return acutNewRb(RTNIL);
        if (name == L"T")
            return acutNewRb(RTT);
        auto n = parseNumber(a);
        if (!n)
            return failArg(L"only literal arguments can be given, not the symbol " + name);
        if (!n->integer) {
            resbuf* rb = acutNewRb(RTREAL);
            rb->resval.rreal = n->r;
            return rb;
        }
        if (n->i >= std::numeric_limits<short>::min() && n->i <= std::numeric_limits<short>::max()) {
            resbuf* rb = acutNewRb(RTSHORT);
            rb->resval.rint = static_cast<short>(n->i);
            return rb;
        }
        resbuf* rb = acutNewRb(RTLONG);
        rb->resval.rlong = static_cast<Adesk::Int32>(n->i);
        return rb;
    }

    std::wstring_view m_text;
    size_t m_pos = 0;
    std::wstring m_error;
};

// ---- Printing -----------------------------------------------------------------------------------

std::wstring formatPoint(const resbuf& rb, int n)
{
    std::wstring s = L"(";
    for (int k = 0; k < n; ++k) {
        if (k)
            s += L' ';
        s += formatLispReal(rb.resval.rpoint[k]);
    }
    return s + L")";
}

std::wstring formatAtom(const resbuf& rb)
{
    switch (rb.restype) {
    case RTSHORT: return std::to_wstring(rb.resval.rint);
    case RTLONG: return std::to_wstring(rb.resval.rlong);
    case RTINT64: case RTLONG_PTR: return std::to_wstring(rb.resval.mnInt64);
    case RTREAL: case RTANG: case RTORINT: return formatLispReal(rb.resval.rreal);
    case RTSTR: return formatLispString(rb.resval.rstring ? rb.resval.rstring : L"");
    case RTPOINT: return formatPoint(rb, 2);
    case RT3DPOINT: return formatPoint(rb, 3);
    case RTT: return L"T";
    case RTNIL: case RTNONE: return L"nil";
    case RTVOID: return L"";
    case RTENAME: {
        wchar_t buf[64];
        std::swprintf(buf, 64, L"<Entity name: %llx>", static_cast<unsigned long long>(rb.resval.rlname[0]));
        return buf;
    }
    case RTPICKS: {
        wchar_t buf[64];
        std::swprintf(buf, 64, L"<Selection set: %llx>", static_cast<unsigned long long>(rb.resval.rlname[0]));
        return buf;
    }
    default: return L"nil";
    }
}

/// The items of a list up to its RTLE (or the end of the chain); rb moves past them.
std::wstring formatItems(const resbuf*& rb)
{
    std::wstring s;
    bool first = true;
    while (rb && rb->restype != RTLE) {
        if (!first)
            s += L' ';
        first = false;
        if (rb->restype == RTDOTE) {
            s += L'.';
            rb = rb->rbnext;
            continue;
        }
        if (rb->restype == RTLB) {
            rb = rb->rbnext;
            s += L'(' + formatItems(rb) + L')';
            if (rb)
                rb = rb->rbnext; // past the RTLE
            continue;
        }
        s += formatAtom(*rb);
        rb = rb->rbnext;
    }
    return s;
}

// ---- The call in progress -----------------------------------------------------------------------

struct Frame {
    int funcNumber;
    const resbuf* args;
    std::optional<LispAnswer> answer;
};

Frame* g_frame = nullptr;

/// A copy of one buffer, without the rest of its chain.
resbuf* copyOne(const resbuf* rb)
{
    resbuf single = *rb;
    single.rbnext = nullptr;
    return sim::copyChain(&single);
}

int answer(bool isList, resbuf* values)
{
    if (!g_frame) {
        acutRelRb(values);
        return RTERROR;
    }
    g_frame->answer = LispAnswer{isList, Chain(values)};
    return RTNORM;
}

} // namespace

std::optional<LispCall> parseLispCall(std::wstring_view line, std::wstring& error)
{
    Parser parser(line);
    return parser.parse(error);
}

std::wstring formatLispReal(double value)
{
    if (!std::isfinite(value))
        return std::isnan(value) ? L"1.#IND" : (value > 0 ? L"1.#INF" : L"-1.#INF");
    wchar_t buf[64];
    std::swprintf(buf, 64, L"%g", value);
    std::wstring s = buf;
    size_t e = s.find(L'e');
    std::wstring mantissa = s.substr(0, e);
    if (mantissa.find(L'.') == std::wstring::npos)
        mantissa += L".0";
    return e == std::wstring::npos ? mantissa : mantissa + s.substr(e);
}

std::wstring formatLispString(std::wstring_view text)
{
    std::wstring s = L"\"";
    for (wchar_t c : text) {
        switch (c) {
        case L'"': s += L"\\\""; break;
        case L'\\': s += L"\\\\"; break;
        case L'\n': s += L"\\n"; break;
        case L'\t': s += L"\\t"; break;
        case L'\r': s += L"\\r"; break;
        case L'\x1B': s += L"\\e"; break;
        default:
            if (c < 0x20) {
                wchar_t buf[8];
                std::swprintf(buf, 8, L"\\%03o", static_cast<unsigned>(c));
                s += buf;
            } else {
                s += c;
            }
        }
    }
    return s + L"\"";
}

std::wstring formatLispAnswer(const std::optional<LispAnswer>& answer)
{
    if (!answer || answer->values.empty())
        return L"nil";
    const resbuf* rb = answer->values.get();
    if (!answer->isList) {
        if (rb->restype == RTLB) {
            rb = rb->rbnext;
            return L"(" + formatItems(rb) + L")";
        }
        return formatAtom(*rb);
    }
    return L"(" + formatItems(rb) + L")";
}

std::optional<LispAnswer> invokeLisp(const LispDefinition& def, const resbuf* args)
{
    Frame frame{def.funcNumber, args, std::nullopt};
    Frame* previous = g_frame;
    g_frame = &frame;
    struct Restore {
        Frame* previous;
        ~Restore() { g_frame = previous; }
    } restore{previous};
    if (!def.app || !dynamicLinker().find(static_cast<void*>(def.app)))
        return std::nullopt;
    if (auto fn = lispFunctions().registeredFunction(def.app, def.funcNumber))
        fn();
    else
        dynamicLinker().send(*def.app, AcRx::kInvkSubrMsg, nullptr);
    return std::move(frame.answer);
}

void runLispLine(std::wstring_view line)
{
    Session& session = Session::current();
    std::wstring error;
    auto call = parseLispCall(line, error);
    if (!call) {
        session.print(L"; error: " + error + L"\n");
        return;
    }
    if (call->name.empty()) {
        session.print(L"nil\n");
        return;
    }
    const LispDefinition* def = lispFunctions().find(currentDocument(), call->name);
    if (!def) {
        session.print(L"; error: no function definition: " + upper(call->name) + L"\n");
        return;
    }
    std::optional<LispAnswer> result;
    try {
        result = invokeLisp(*def, call->args.get());
    } catch (const std::exception& e) {
        // The host survives what an application lets escape; AutoLISP reports it as an error.
        session.print(L"; error: " + sim::fromUtf8(e.what()) + L"\n");
        return;
    }
    // The answer follows what the function printed, as on the host's command line.
    session.print(formatLispAnswer(result) + L"\n");
}

} // namespace sim::app

int acedGetFunCode() { return sim::app::g_frame ? sim::app::g_frame->funcNumber : RTERROR; }

struct resbuf* acedGetArgs()
{
    return sim::app::g_frame ? const_cast<resbuf*>(sim::app::g_frame->args) : nullptr;
}

int acedRetStr(const ACHAR* pszString)
{
    resbuf* rb = acutNewRb(RTSTR);
    acutNewString(pszString ? pszString : L"", rb->resval.rstring);
    return sim::app::answer(false, rb);
}

int acedRetInt(int nValue)
{
    // AutoLISP integers are 32-bit; a 16-bit value travels as RTSHORT, as the host does.
    resbuf* rb = acutNewRb(nValue >= -32768 && nValue <= 32767 ? RTSHORT : RTLONG);
    if (rb->restype == RTSHORT)
        rb->resval.rint = static_cast<short>(nValue);
    else
        rb->resval.rlong = nValue;
    return sim::app::answer(false, rb);
}

int acedRetReal(ads_real dValue)
{
    resbuf* rb = acutNewRb(RTREAL);
    rb->resval.rreal = dValue;
    return sim::app::answer(false, rb);
}

int acedRetPoint(const ads_point pt)
{
    if (!pt)
        return RTERROR;
    resbuf* rb = acutNewRb(RT3DPOINT);
    for (int k = 0; k < 3; ++k)
        rb->resval.rpoint[k] = pt[k];
    return sim::app::answer(false, rb);
}

int acedRetName(const ads_name aname, int nType)
{
    if (!aname || (nType != RTENAME && nType != RTPICKS))
        return RTERROR;
    resbuf* rb = acutNewRb(nType);
    rb->resval.rlname[0] = aname[0];
    rb->resval.rlname[1] = aname[1];
    return sim::app::answer(false, rb);
}

int acedRetT() { return sim::app::answer(false, acutNewRb(RTT)); }

int acedRetNil() { return sim::app::answer(false, acutNewRb(RTNIL)); }

int acedRetVoid() { return sim::app::answer(false, acutNewRb(RTVOID)); }

int acedRetVal(const struct resbuf* pRb)
{
    if (!pRb)
        return RTERROR;
    return sim::app::answer(false, sim::app::copyOne(pRb));
}

int acedRetList(const struct resbuf* pRb)
{
    // An empty list is nil.
    if (!pRb)
        return sim::app::answer(false, acutNewRb(RTNIL));
    return sim::app::answer(true, sim::copyChain(pRb));
}
