// Clean number: heights typed with blanks and commas ("1 234,56") made into plain decimal numbers
// with one point.
#pragma once
#include <string>
#include <string_view>

/// Each blank and each comma becomes a point; all other characters stay.
std::wstring OddelovaceNaTecky(std::wstring_view text);
/// Of all points only the first stays.
std::wstring JenPrvniTecka(std::wstring_view text);
/// Both steps: "1 234,56" gives "1.23456", "12,5" gives "12.5".
std::wstring CisteCislo(std::wstring_view text);
