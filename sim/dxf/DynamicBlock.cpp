// Dynamic block properties in extended data.
#include "sim/dxf/DynamicBlock.h"

#include <memory>

namespace sim::dxf {

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

} // namespace sim::dxf
