// What kind of value each DXF group code carries, as the DXF reference assigns the ranges.
#pragma once

namespace sim::dxf {

enum class ValueType {
    String,  ///< text, also names and control strings
    Real,    ///< a double (coordinates, distances, angles in degrees)
    Integer, ///< 16, 32 or 64-bit integers and booleans
    Handle,  ///< a handle or pointer: hexadecimal
    Binary,  ///< a chunk of bytes: hexadecimal pairs
    Invalid, ///< no such group code
};

/// The value type of a group code; Invalid for codes the format does not define.
ValueType valueType(int code);

/// Codes of points: the X code, followed by the Y (code + 10) and usually the Z (code + 20).
inline bool isPointCode(int code)
{
    return (code >= 10 && code <= 18) || code == 110 || code == 111 || code == 112 || code == 210 ||
           (code >= 1010 && code <= 1013);
}

} // namespace sim::dxf
