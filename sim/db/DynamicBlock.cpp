// Dynamic block properties and actions in extended data.
#include "sim/db/DynamicBlock.h"

#include <array>
#include <memory>

namespace sim::db {

namespace {

/// A value of a kind from one buffer; false when the buffer is not of the kind's type.
bool valueOf(const resbuf* rb, short kind, DynamicValue& out)
{
    out = DynamicValue();
    out.kind = kind;
    if (!rb)
        return false;
    switch (kind) {
    case DynamicValue::kReal:
        out.real = rb->resval.rreal;
        return rb->restype == AcDb::kDxfXdReal;
    case DynamicValue::kShort:
        out.integer = rb->resval.rint;
        return rb->restype == AcDb::kDxfXdInteger16;
    case DynamicValue::kText:
        out.text = rb->resval.rstring ? rb->resval.rstring : L"";
        return rb->restype == AcDb::kDxfXdAsciiString;
    default:
        return false;
    }
}

resbuf* buffer(const DynamicValue& v)
{
    switch (v.kind) {
    case DynamicValue::kReal:
        return acutBuildList(AcDb::kDxfXdReal, v.real, 0);
    case DynamicValue::kShort:
        return acutBuildList(AcDb::kDxfXdInteger16, static_cast<int>(v.integer), 0);
    default:
        return acutBuildList(AcDb::kDxfXdAsciiString, v.text.c_str(), 0);
    }
}

bool isControl(const resbuf* rb, const wchar_t* which)
{
    return rb && rb->restype == AcDb::kDxfXdControlString && rb->resval.rstring && std::wstring(rb->resval.rstring) == which;
}

} // namespace

std::vector<DynamicProperty> dynamicProperties(const AcDbObject& obj)
{
    std::vector<DynamicProperty> out;
    std::unique_ptr<resbuf, int (*)(resbuf*)> data(obj.xData(kDynamicBlockApp), acutRelRb);
    const resbuf* rb = data ? data->rbnext : nullptr; // after the application's name
    while (rb) {
        DynamicProperty p;
        if (rb->restype != AcDb::kDxfXdAsciiString || !rb->rbnext || rb->rbnext->restype != AcDb::kDxfXdInteger16)
            return out;
        p.name = rb->resval.rstring ? rb->resval.rstring : L"";
        short kind = rb->rbnext->resval.rint;
        rb = rb->rbnext->rbnext;
        if (!valueOf(rb, kind, p.value))
            return out;
        rb = rb->rbnext;
        if (isControl(rb, L"{")) {
            for (rb = rb->rbnext; rb && !isControl(rb, L"}"); rb = rb->rbnext) {
                DynamicValue v;
                if (!valueOf(rb, kind, v))
                    return out;
                p.allowed.push_back(v);
            }
            if (rb)
                rb = rb->rbnext;
        }
        out.push_back(std::move(p));
    }
    return out;
}

resbuf* dynamicPropertiesXData(const std::vector<DynamicProperty>& properties, bool definition)
{
    resbuf* head = acutBuildList(AcDb::kDxfRegAppName, kDynamicBlockApp, 0);
    resbuf* tail = head;
    auto append = [&](resbuf* rb) {
        tail->rbnext = rb;
        while (tail->rbnext)
            tail = tail->rbnext;
    };
    for (const DynamicProperty& p : properties) {
        append(acutBuildList(AcDb::kDxfXdAsciiString, p.name.c_str(), AcDb::kDxfXdInteger16, static_cast<int>(p.value.kind), 0));
        append(buffer(p.value));
        if (definition && !p.allowed.empty()) {
            append(acutBuildList(AcDb::kDxfXdControlString, L"{", 0));
            for (const DynamicValue& v : p.allowed)
                append(buffer(v));
            append(acutBuildList(AcDb::kDxfXdControlString, L"}", 0));
        }
    }
    return head;
}

namespace {

const wchar_t* const kKindNames[] = {L"visible", L"flip", L"stretch"};

const wchar_t* textOf(const resbuf* rb)
{
    return rb && rb->restype == AcDb::kDxfXdAsciiString && rb->resval.rstring ? rb->resval.rstring : nullptr;
}

/// Reads n reals into out; false when the chain holds fewer.
bool reals(const resbuf*& rb, double* const* out, int n)
{
    for (int i = 0; i < n; ++i, rb = rb->rbnext) {
        if (!rb || rb->restype != AcDb::kDxfXdReal)
            return false;
        *out[i] = rb->resval.rreal;
    }
    return true;
}

} // namespace

std::vector<DynamicAction> dynamicActions(const AcDbObject& obj)
{
    std::vector<DynamicAction> out;
    std::unique_ptr<resbuf, int (*)(resbuf*)> data(obj.xData(kDynamicActionApp), acutRelRb);
    const resbuf* rb = data ? data->rbnext : nullptr;
    while (rb) {
        const wchar_t* kind = textOf(rb);
        const wchar_t* property = kind ? textOf(rb->rbnext) : nullptr;
        if (!property)
            return {};
        DynamicAction a;
        a.property = property;
        int k = 0;
        while (k < 3 && std::wstring(kind) != kKindNames[k])
            ++k;
        rb = rb->rbnext->rbnext;
        bool ok = true;
        switch (k) {
        case DynamicAction::kVisible:
            ok = textOf(rb) != nullptr;
            if (ok) {
                a.value = textOf(rb);
                rb = rb->rbnext;
            }
            break;
        case DynamicAction::kFlip:
            ok = reals(rb, std::array<double*, 3>{&a.x, &a.y, &a.angle}.data(), 3);
            break;
        case DynamicAction::kStretch:
            ok = reals(rb, std::array<double*, 6>{&a.x, &a.y, &a.minX, &a.minY, &a.maxX, &a.maxY}.data(), 6);
            break;
        default:
            ok = false;
        }
        if (!ok)
            return {};
        a.kind = static_cast<DynamicAction::Kind>(k);
        out.push_back(std::move(a));
    }
    return out;
}

resbuf* dynamicActionsXData(const std::vector<DynamicAction>& actions)
{
    resbuf* head = acutBuildList(AcDb::kDxfRegAppName, kDynamicActionApp, 0);
    resbuf* tail = head;
    auto append = [&](resbuf* rb) {
        tail->rbnext = rb;
        while (tail->rbnext)
            tail = tail->rbnext;
    };
    auto real = [](double v) { return acutBuildList(AcDb::kDxfXdReal, v, 0); };
    for (const DynamicAction& a : actions) {
        append(acutBuildList(AcDb::kDxfXdAsciiString, kKindNames[a.kind], AcDb::kDxfXdAsciiString, a.property.c_str(), 0));
        switch (a.kind) {
        case DynamicAction::kVisible:
            append(acutBuildList(AcDb::kDxfXdAsciiString, a.value.c_str(), 0));
            break;
        case DynamicAction::kFlip:
            for (double v : {a.x, a.y, a.angle})
                append(real(v));
            break;
        case DynamicAction::kStretch:
            for (double v : {a.x, a.y, a.minX, a.minY, a.maxX, a.maxY})
                append(real(v));
            break;
        }
    }
    return head;
}

} // namespace sim::db
