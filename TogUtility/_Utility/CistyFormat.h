// Clean format: MText contents without character formatting (colour, font, height, obliquing) and
// without braces; paragraph breaks and the other codes stay.
#pragma once
#include <string>
#include <string_view>

/// "\C", "\F", "\H", "\Q" (either case) go with everything up to and including the next ";" (to the
/// end when there is none); "{" and "}" go; any other backslash pair stays as it is.
std::wstring CistyFormat(std::wstring_view obsah);
