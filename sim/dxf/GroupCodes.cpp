// Value types of DXF group codes, from the ranges of the DXF reference.
#include "sim/dxf/GroupCodes.h"

#include <array>
#include <cstddef>

namespace sim::dxf {

namespace {

ValueType computeType(int c)
{
    if (c < 0)
        return ValueType::Invalid;
    if (c <= 4 || (c >= 6 && c <= 9))
        return ValueType::String;
    if (c == 5 || c == 105)
        return ValueType::Handle;
    if (c >= 10 && c <= 59)
        return ValueType::Real;
    if (c >= 60 && c <= 99)
        return ValueType::Integer;
    if (c == 100 || c == 101 || c == 102)
        return ValueType::String;
    if (c >= 110 && c <= 149)
        return ValueType::Real;
    if (c >= 160 && c <= 179)
        return ValueType::Integer;
    if (c >= 210 && c <= 239)
        return ValueType::Real;
    if (c >= 270 && c <= 299)
        return ValueType::Integer;
    if (c >= 300 && c <= 309)
        return ValueType::String;
    if (c >= 310 && c <= 319)
        return ValueType::Binary;
    if (c >= 320 && c <= 369)
        return ValueType::Handle;
    if (c >= 370 && c <= 389)
        return ValueType::Integer;
    if (c >= 390 && c <= 399)
        return ValueType::Handle;
    if (c >= 400 && c <= 409)
        return ValueType::Integer;
    if (c >= 410 && c <= 419)
        return ValueType::String;
    if (c >= 420 && c <= 429)
        return ValueType::Integer;
    if (c >= 430 && c <= 439)
        return ValueType::String;
    if (c >= 440 && c <= 459)
        return ValueType::Integer;
    if (c >= 460 && c <= 469)
        return ValueType::Real;
    if (c >= 470 && c <= 479)
        return ValueType::String;
    if (c == 480 || c == 481)
        return ValueType::Handle;
    if (c == 999)
        return ValueType::String;
    if (c >= 1000 && c <= 1003)
        return ValueType::String;
    if (c == 1004)
        return ValueType::Binary;
    if (c == 1005)
        return ValueType::Handle;
    if (c >= 1006 && c <= 1009)
        return ValueType::String;
    if (c >= 1010 && c <= 1059)
        return ValueType::Real;
    if (c >= 1060 && c <= 1071)
        return ValueType::Integer;
    return ValueType::Invalid;
}

const std::array<ValueType, 1072>& table()
{
    static const std::array<ValueType, 1072> t = [] {
        std::array<ValueType, 1072> a{};
        for (int c = 0; c < 1072; ++c)
            a[static_cast<std::size_t>(c)] = computeType(c);
        return a;
    }();
    return t;
}

} // namespace

ValueType valueType(int code)
{
    if (code < 0 || code >= 1072)
        return ValueType::Invalid;
    return table()[static_cast<std::size_t>(code)];
}

} // namespace sim::dxf
