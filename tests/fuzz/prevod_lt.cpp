// The line type conversion file (TG_prevodLT.tgu), read as the installation reads it: each byte one
// character; then the table of names it makes.
#include <cstdint>

#include "FuzzSession.h"
#include "PrevodStandardu.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::session();
    std::wstring text;
    for (size_t i = 0; i < size; ++i)
        text += static_cast<wchar_t>(data[i]);
    MapaPrevoduLT conversions;
    NactiPrevodLTZTextu(conversions, text);
    MapaNazvu names;
    NaplnTypyCar(names, conversions);
    return 0;
}
