// The catalogue's CSV import: any text fills the list or is refused with the line at fault.
#include <cstdint>
#include <string_view>

#include "CTogException.h"
#include "CTogSezMaterialu.h"
#include "FuzzSession.h"
#include "tools/katalog/KatalogCsv.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::session();
    CTogSezMaterialu list;
    try {
        togu::katalog::ZCsv(std::string_view(reinterpret_cast<const char*>(data), size), list);
    } catch (const togu::katalog::ChybaCsv&) {
    } catch (const CTogException&) {
    }
    return 0;
}
