// The surveyed-point files of nactiGPS and nactiJTSK: every line in both forms; a field that isn't a
// number is refused with the two documented exceptions only.
#include <cstdint>
#include <stdexcept>
#include <string_view>

#include "_Utility/BodGPS.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    for (const std::wstring& line : RadkyBodu(std::string_view(reinterpret_cast<const char*>(data), size))) {
        for (FormaBodu form : {kFormaWgs84, kFormaJtsk}) {
            try {
                RozeberRadek(line, form);
            } catch (const std::invalid_argument&) {
            } catch (const std::out_of_range&) {
            }
        }
    }
    return 0;
}
