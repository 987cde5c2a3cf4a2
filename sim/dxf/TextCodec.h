// Text of DXF files: code pages of drawings older than AutoCAD 2007, their \U+XXXX escapes, and
// the caret escapes of control characters (^J, ^I, "^ " for a caret).
#pragma once
#include <string>
#include <string_view>

namespace sim::dxf {

bool isValidUtf8(std::string_view s);
/// ANSI_1250 and ANSI_1252 (any case).
bool isKnownCodePage(std::string_view codePage);
/// Text in a Windows code page to UTF-8; ANSI_1250 is decoded as such, any other name as ANSI_1252.
std::string decodeCodePage(std::string_view text, std::string_view codePage);
/// \U+XXXX (four hexadecimal digits) to the character in UTF-8; other backslashes stay.
std::string decodeUnicodeEscapes(std::string_view text);
/// Control characters to caret escapes, and a caret to "^ ", for a value on one line.
std::string encodeCarets(std::string text);
/// Caret escapes back to the characters.
std::string decodeCarets(std::string_view text);

} // namespace sim::dxf
