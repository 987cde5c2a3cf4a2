// The precompiled header of the system: the Windows and C runtime headers, the host's SDK and the
// standard headers that most of the system's files use.
#pragma once

#include <windows.h>
#include <tchar.h>

#include <clocale>

#include "arxHeaders.h"

#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <exception>
#include <functional>
#include <string>
#include <string_view>
