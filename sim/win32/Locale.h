// How the platform stands in for the Microsoft C runtime's locales: the C library locale behind a
// Windows locale name, and the upper-casing that does not depend on the process's locale.
#pragma once
#include <locale.h>
#include <optional>
#include <string>
#include <string_view>

#include "wincrt.h"

#ifndef _WIN32
/// The runtime's locale object: a C library locale and whether it is a Czech one.
struct __crt_locale_pointers {
    locale_t native = nullptr;
    bool czech = false;
};
#endif

namespace sim::win32 {

/// The C library locale that "cs-CZ" stands for: "cs_CZ.UTF-8" where installed, else "C.UTF-8". The
/// choice is made once per process.
const std::string& czechLocaleName();

/// The C library name for a Windows locale name ("cs-CZ" -> czechLocaleName(), "de-DE" ->
/// "de_DE.UTF-8" or "C.UTF-8"); "C", "POSIX", "" and C library names (with a dot) pass unchanged.
/// Nothing for a text that is no locale name.
std::optional<std::string> posixLocaleName(std::string_view windowsName);
/// True for names that stand for Czech ("cs-CZ", "cs_CZ.UTF-8", "Czech_Czechia.1250", ...).
bool isCzechLocaleName(std::string_view name);

/// Upper case by Unicode's simple mapping, whatever the process's locale (registry names, answers).
wchar_t upperInvariant(wchar_t c);
std::wstring upperInvariant(std::wstring_view s);

} // namespace sim::win32
