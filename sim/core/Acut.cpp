// The acut* utilities of the host: result-buffer chains, printing, plane geometry of ads points.
#include <cmath>
#include <cstdarg>
#include <cstring>
#include <cwchar>
#include <cwctype>
#include <locale.h>
#include <wctype.h>
#include <string>
#include <vector>

#include "AcString.h"
#include "acutads.h"
#include "sim/core/ResBuf.h"
#include "sim/core/Session.h"

namespace sim {

// What a buffer of a type code holds: the ADS result types first, then DXF group code ranges.
RbKind rbKind(int t)
{
    switch (t) {
    case RTREAL: case RTANG: return RbKind::Real;
    case RTPOINT: case RT3DPOINT: return RbKind::Point;
    case RTSHORT: case RTORINT: return RbKind::Short;
    case RTLONG: return RbKind::Long;
    case RTINT64: case RTLONG_PTR: return RbKind::Int64;
    case RTSTR: return RbKind::String;
    case RTENAME: case RTPICKS: return RbKind::Name;
    case RTLB: case RTLE: case RTDOTE: case RTNIL: case RTT: case RTVOID: case RTNONE: return RbKind::None;
    case -1: case -2: return RbKind::Name;
    case -4: case RTDXF0: return RbKind::String;
    case -3: return RbKind::None;
    default: break;
    }
    if ((t >= 0 && t <= 9) || t == 100 || t == 102 || t == 105 || (t >= 300 && t <= 309) || (t >= 410 && t <= 419) ||
        (t >= 430 && t <= 439) || (t >= 470 && t <= 479) || t == 999 || (t >= 1000 && t <= 1003) || t == 1005)
        return RbKind::String;
    if ((t >= 10 && t <= 37) || (t >= 110 && t <= 112) || t == 210 || (t >= 1010 && t <= 1013))
        return RbKind::Point;
    if ((t >= 38 && t <= 59) || (t >= 140 && t <= 149) || (t >= 460 && t <= 469) || (t >= 1040 && t <= 1042))
        return RbKind::Real;
    if ((t >= 60 && t <= 79) || (t >= 170 && t <= 179) || (t >= 270 && t <= 299) || (t >= 370 && t <= 389) ||
        (t >= 400 && t <= 409) || t == 1070)
        return RbKind::Short;
    if ((t >= 90 && t <= 99) || (t >= 420 && t <= 429) || (t >= 440 && t <= 459) || t == 1071)
        return RbKind::Long;
    if (t >= 160 && t <= 169)
        return RbKind::Int64;
    if ((t >= 330 && t <= 369) || (t >= 390 && t <= 399))
        return RbKind::Name;
    if ((t >= 310 && t <= 319) || t == 1004)
        return RbKind::Binary;
    return RbKind::None;
}

resbuf* copyChain(const resbuf* rb)
{
    resbuf* head = nullptr;
    resbuf* tail = nullptr;
    for (; rb; rb = rb->rbnext) {
        resbuf* c = acutNewRb(rb->restype);
        c->resval = rb->resval;
        switch (rbKind(rb->restype)) {
        case RbKind::String:
            acutNewString(rb->resval.rstring, c->resval.rstring);
            break;
        case RbKind::Binary: {
            size_t len = rb->resval.rbinary.clen > 0 ? static_cast<size_t>(rb->resval.rbinary.clen) : 0;
            c->resval.rbinary.buf = new char[len];
            if (len)
                std::memcpy(c->resval.rbinary.buf, rb->resval.rbinary.buf, len);
            break;
        }
        default:
            break;
        }
        if (tail)
            tail->rbnext = c;
        else
            head = c;
        tail = c;
    }
    return head;
}

} // namespace sim

using sim::RbKind;
using sim::rbKind;

struct resbuf* acutNewRb(int type)
{
    auto* rb = new resbuf;
    std::memset(rb, 0, sizeof(resbuf));
    rb->restype = static_cast<short>(type);
    return rb;
}

int acutNewString(const ACHAR* pInput, ACHAR*& pOutput)
{
    if (!pInput) {
        pOutput = nullptr;
        return RTNORM;
    }
    size_t n = std::wcslen(pInput);
    pOutput = new ACHAR[n + 1];
    std::wmemcpy(pOutput, pInput, n + 1);
    return RTNORM;
}

int acutRelRb(struct resbuf* rb)
{
    while (rb) {
        resbuf* next = rb->rbnext;
        RbKind k = rbKind(rb->restype);
        if (k == RbKind::String)
            delete[] rb->resval.rstring;
        else if (k == RbKind::Binary)
            delete[] rb->resval.rbinary.buf;
        delete rb;
        rb = next;
    }
    return RTNORM;
}

struct resbuf* acutBuildList(int rtype, ...)
{
    va_list ap;
    va_start(ap, rtype);
    resbuf* head = nullptr;
    resbuf* tail = nullptr;
    // The list ends at 0 or, as the host also takes it, at RTNONE.
    for (int type = rtype; type != 0 && type != RTNONE; type = va_arg(ap, int)) {
        // RTDXF0 stands for group code 0, which would otherwise end the list.
        resbuf* rb = acutNewRb(type == RTDXF0 ? 0 : type);
        switch (rbKind(type)) {
        case RbKind::Real:
            rb->resval.rreal = va_arg(ap, double);
            break;
        case RbKind::Point: {
            const double* p = va_arg(ap, const double*);
            rb->resval.rpoint[0] = p[0];
            rb->resval.rpoint[1] = p[1];
            rb->resval.rpoint[2] = (type == RTPOINT) ? 0.0 : p[2];
            break;
        }
        case RbKind::Short:
            rb->resval.rint = static_cast<short>(va_arg(ap, int));
            break;
        case RbKind::Long:
            rb->resval.rlong = va_arg(ap, Adesk::Int32);
            break;
        case RbKind::Int64:
            rb->resval.mnInt64 = va_arg(ap, Adesk::Int64);
            break;
        case RbKind::String:
            acutNewString(va_arg(ap, const ACHAR*), rb->resval.rstring);
            break;
        case RbKind::Name: {
            const Adesk::LongPtr* n = va_arg(ap, const Adesk::LongPtr*);
            rb->resval.rlname[0] = n[0];
            rb->resval.rlname[1] = n[1];
            break;
        }
        case RbKind::Binary: {
            // A binary chunk comes as its length and its bytes, which are copied.
            int len = va_arg(ap, int);
            const char* bytes = va_arg(ap, const char*);
            rb->resval.rbinary.clen = static_cast<short>(len);
            rb->resval.rbinary.buf = new char[static_cast<size_t>(len > 0 ? len : 0)];
            if (len > 0)
                std::memcpy(rb->resval.rbinary.buf, bytes, static_cast<size_t>(len));
            break;
        }
        case RbKind::None:
            break; // RTLB, RTLE, RTNIL, RTT, RTDOTE, -3 carry no value
        }
        if (tail)
            tail->rbnext = rb;
        else
            head = rb;
        tail = rb;
    }
    va_end(ap);
    return head;
}

int acutPrintf(const ACHAR* format, ...)
{
    if (!format)
        return 0;
    va_list ap;
    va_start(ap, format);
    std::vector<wchar_t> buf(512);
    for (;;) {
        va_list copy;
        va_copy(copy, ap);
        int n = std::vswprintf(buf.data(), buf.size(), format, copy);
        va_end(copy);
        if (n >= 0) {
            va_end(ap);
            if (auto* s = sim::Session::currentOrNull())
                s->print(std::wstring_view(buf.data(), static_cast<size_t>(n)));
            return n;
        }
        if (buf.size() > (1u << 22)) {
            va_end(ap);
            return -1;
        }
        buf.resize(buf.size() * 4);
    }
}

void acutPolar(const ads_point pt, ads_real angle, ads_real dist, ads_point result)
{
    result[X] = pt[X] + dist * std::cos(angle);
    result[Y] = pt[Y] + dist * std::sin(angle);
    result[Z] = pt[Z];
}

ads_real acutAngle(const ads_point pt1, const ads_point pt2)
{
    double a = std::atan2(pt2[Y] - pt1[Y], pt2[X] - pt1[X]);
    return a < 0 ? a + 2 * M_PI : a;
}

ads_real acutDistance(const ads_point pt1, const ads_point pt2)
{
    return std::sqrt((pt2[X] - pt1[X]) * (pt2[X] - pt1[X]) + (pt2[Y] - pt1[Y]) * (pt2[Y] - pt1[Y]) +
                     (pt2[Z] - pt1[Z]) * (pt2[Z] - pt1[Z]));
}

int AcString::compareNoCase(const ACHAR* s) const
{
    // The host folds case for every letter, not just ASCII: use a UTF-8 locale whatever the process has.
#ifdef _WIN32
    // The runtime maps all of Unicode in a named locale, only ASCII in "C".
    static const _locale_t utf8 = _create_locale(LC_CTYPE, "English_United States.1252");
    auto towupper_l = _towupper_l;
#else
    static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(0));
#endif
    const ACHAR* a = m_s.c_str();
    const ACHAR* b = s ? s : L"";
    for (;; ++a, ++b) {
        wint_t ca = utf8 ? towupper_l(static_cast<wint_t>(*a), utf8) : std::towupper(static_cast<wint_t>(*a));
        wint_t cb = utf8 ? towupper_l(static_cast<wint_t>(*b), utf8) : std::towupper(static_cast<wint_t>(*b));
        if (ca != cb)
            return ca < cb ? -1 : 1;
        if (*a == 0)
            return 0;
    }
}
