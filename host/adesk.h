// Basic types of the host's SDK: fixed-width integers, booleans and the wide character of its strings.
#pragma once
#include <cstddef>
#include <cstdint>

// The host's strings are wide. Its SDK uses 16-bit characters; here wchar_t is what the C library's
// wide functions take, and every character the system handles lies in the 16-bit range.
typedef wchar_t ACHAR;

struct Adesk {
    typedef std::int8_t Int8;
    typedef std::int16_t Int16;
    typedef std::int32_t Int32;
    typedef std::int64_t Int64;
    typedef std::uint8_t UInt8;
    typedef std::uint16_t UInt16;
    typedef std::uint32_t UInt32;
    typedef std::uint64_t UInt64;
    typedef std::intptr_t IntPtr;
    typedef std::uintptr_t UIntPtr;
    typedef std::intptr_t LongPtr;
    typedef std::uintptr_t ULongPtr;
    typedef std::intptr_t IntDbId;
    typedef std::int32_t GsMarker;
    typedef bool Boolean;
    typedef bool Bool;
    typedef unsigned char UChar;
    static constexpr bool kFalse = false;
    static constexpr bool kTrue = true;
};
