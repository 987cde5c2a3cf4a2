// Extended data and xrecord data as groups.
#include "sim/dxf/XData.h"

#include <cstring>

#include "sim/core/ResBuf.h"
#include "sim/core/Session.h"
#include "sim/dxf/DxfError.h"
#include "sim/dxf/Fields.h"
#include "sim/dxf/GroupCodes.h"
#include "sim/dxf/TagReader.h"

namespace sim::dxf {

namespace {

int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

/// One buffer of a group (and, for a point, the two after it, which it takes).
resbuf* toBuffer(const Tag*& t, const Tag* end, AcDbDatabase* db)
{
    const int code = t->code;
    resbuf* rb = acutNewRb(code);
    switch (sim::rbKind(code)) {
    case sim::RbKind::Point: {
        rb->resval.rpoint[0] = t->real;
        // A point of the format is X, then Y (code + 10) and Z (code + 20) when they follow.
        if (isPointCode(code)) {
            if (t + 1 != end && t[1].code == code + 10) {
                ++t;
                rb->resval.rpoint[1] = t->real;
                if (t + 1 != end && t[1].code == code + 20) {
                    ++t;
                    rb->resval.rpoint[2] = t->real;
                }
            }
        }
        break;
    }
    case sim::RbKind::Real:
        rb->resval.rreal = t->real;
        break;
    case sim::RbKind::Short:
        rb->resval.rint = static_cast<short>(t->integer);
        break;
    case sim::RbKind::Long:
        rb->resval.rlong = static_cast<Adesk::Int32>(t->integer);
        break;
    case sim::RbKind::Int64:
        rb->resval.mnInt64 = t->integer;
        break;
    case sim::RbKind::Name:
        rb->resval.rlname[0] = static_cast<Adesk::LongPtr>(t->integer);
        rb->resval.rlname[1] = t->integer ? reinterpret_cast<Adesk::LongPtr>(db) : 0;
        break;
    case sim::RbKind::Binary: {
        size_t n = t->value.size() / 2;
        rb->resval.rbinary.clen = static_cast<short>(n);
        rb->resval.rbinary.buf = new char[n > 0 ? n : 1];
        for (size_t i = 0; i < n; ++i)
            rb->resval.rbinary.buf[i] =
                static_cast<char>((hexValue(t->value[2 * i]) << 4) | (hexValue(t->value[2 * i + 1]) & 0xF));
        break;
    }
    default: {
        // Strings, and handle codes the chain keeps as text (5, 105, 320-329, 480, 1005).
        std::wstring s = decodeText(t->value);
        acutNewString(s.c_str(), rb->resval.rstring);
        break;
    }
    }
    ++t;
    return rb;
}

void hexBytes(const char* data, size_t n, std::string& out)
{
    static const char* digits = "0123456789ABCDEF";
    out.clear();
    for (size_t i = 0; i < n; ++i) {
        auto b = static_cast<unsigned char>(data[i]);
        out.push_back(digits[b >> 4]);
        out.push_back(digits[b & 0xF]);
    }
}

} // namespace

resbuf* tagsToChain(const Tag* begin, const Tag* end, AcDbDatabase* db)
{
    resbuf* head = nullptr;
    resbuf* tail = nullptr;
    for (const Tag* t = begin; t != end;) {
        resbuf* rb = toBuffer(t, end, db);
        if (tail)
            tail->rbnext = rb;
        else
            head = rb;
        tail = rb;
    }
    return head;
}

void writeChain(const resbuf* rb, TagWriter& w)
{
    std::string hex;
    for (; rb; rb = rb->rbnext) {
        const int code = rb->restype;
        switch (sim::rbKind(code)) {
        case sim::RbKind::Point:
            w.real(code, rb->resval.rpoint[0]);
            if (isPointCode(code)) {
                w.real(code + 10, rb->resval.rpoint[1]);
                w.real(code + 20, rb->resval.rpoint[2]);
            }
            break;
        case sim::RbKind::Real:
            w.real(code, rb->resval.rreal);
            break;
        case sim::RbKind::Short:
            w.integer(code, rb->resval.rint);
            break;
        case sim::RbKind::Long:
            w.integer(code, rb->resval.rlong);
            break;
        case sim::RbKind::Int64:
            w.integer(code, rb->resval.mnInt64);
            break;
        case sim::RbKind::Name:
            w.handle(code, AcDbHandle(static_cast<Adesk::UInt64>(rb->resval.rlname[0])));
            break;
        case sim::RbKind::Binary:
            hexBytes(rb->resval.rbinary.buf, rb->resval.rbinary.clen > 0 ? static_cast<size_t>(rb->resval.rbinary.clen) : 0, hex);
            w.write(code, hex);
            break;
        default:
            if (valueType(code) == ValueType::Handle) {
                // A handle the chain keeps as text; one that isn't hexadecimal can't be written as one.
                std::uint64_t h = 0;
                parseHex(rb->resval.rstring ? sim::toUtf8(rb->resval.rstring) : std::string(), h);
                w.handle(code, AcDbHandle(h));
            } else {
                w.text(code, rb->resval.rstring ? rb->resval.rstring : L"");
            }
            break;
        }
    }
}

XDataList readXData(const std::vector<Tag>& tags, AcDbDatabase* db)
{
    XDataList out;
    const Tag* t = tags.data();
    const Tag* end = t + tags.size();
    while (t != end) {
        if (t->code != 1001)
            throw DxfError(t->line, "extended data must begin with an application name (1001)");
        std::wstring app = decodeText(t->value);
        const Tag* first = ++t;
        while (t != end && t->code != 1001)
            ++t;
        out.emplace_back(std::move(app), sim::db::Chain(tagsToChain(first, t, db)));
    }
    return out;
}

void writeXData(const XDataList& xdata, TagWriter& w)
{
    for (const auto& [app, chain] : xdata) {
        w.text(1001, app);
        writeChain(chain.get(), w);
    }
}

} // namespace sim::dxf
