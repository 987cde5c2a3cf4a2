// Comparison of names without regard to case, as the host compares symbol names, dictionary keys
// and application names: Latin letters with diacritics, Greek and Cyrillic fold as well.
#pragma once
#include <string_view>

namespace sim::db {

/// The capital of a letter; other characters unchanged. Independent of the C library's locale.
wchar_t upperCase(wchar_t c);
/// Negative, zero or positive as a sorts before, with or after b without regard to case.
int compareNoCase(std::wstring_view a, std::wstring_view b);
inline bool sameName(std::wstring_view a, std::wstring_view b) { return compareNoCase(a, b) == 0; }

} // namespace sim::db
