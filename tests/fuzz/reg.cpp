// The registry's .reg files: any bytes are read or refused with RegFileError; what is read writes
// out as a file that reads back the same.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "sim/win32/RegFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace sim::win32;
    try {
        RegStore store = parseRegFile(std::string_view(reinterpret_cast<const char*>(data), size), L"fuzz.reg");
        std::string text = formatRegFile(store);
        if (formatRegFile(parseRegFile(text, L"again.reg")) != text)
            std::abort(); // the file written must read back as it was written
    } catch (const RegFileError&) {
    }
    return 0;
}
