// The pipe catalogue's archive (.tgp): any bytes are read or refused with the archive's exception or
// the catalogue's own.
#include <cstdint>
#include <vector>

#include "CTogException.h"
#include "CTogSezMaterialu.h"
#include "FuzzSession.h"
#include "afx.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::session();
    std::vector<BYTE> bytes(data, data + size);
    CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
    CTogSezMaterialu list;
    try {
        CArchive ar(&file, CArchive::load);
        list.Serialize(ar);
    } catch (CException* e) {
        e->Delete();
    } catch (const CTogException&) {
    }
    return 0;
}
