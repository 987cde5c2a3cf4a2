// The host's system registry: the dictionary that holds the command stack and the dynamic linker,
// and the run-time classes of the application frame.
#include <cwchar>

#include "accmd.h"
#include "rxregsvc.h"
#include "sim/app/CommandStack.h"
#include "sim/app/Loader.h"

ACRX_DEFINE_MEMBERS(AcRxDictionary, AcRxObject, nullptr)
ACRX_DEFINE_MEMBERS(AcRxDynamicLinker, AcRxObject, nullptr)
ACRX_DEFINE_MEMBERS(AcEdCommand, AcRxObject, nullptr)
ACRX_DEFINE_MEMBERS(AcEdCommandIterator, AcRxObject, nullptr)
ACRX_DEFINE_MEMBERS(AcEdCommandStack, AcRxObject, nullptr)

namespace {

class SystemRegistry : public AcRxDictionary {
public:
    AcRxObject* at(const ACHAR* key) const override
    {
        if (key == nullptr)
            return nullptr;
        if (std::wcscmp(key, ACRX_COMMAND_DOCK) == 0)
            return &sim::app::commandStack();
        if (std::wcscmp(key, ACRX_DYNAMIC_LINKER) == 0)
            return &sim::app::dynamicLinker();
        return nullptr;
    }
    bool has(const ACHAR* key) const override { return at(key) != nullptr; }
    Adesk::UInt32 numEntries() const override { return 2; }
};

} // namespace

AcRxDictionary* acrxSysRegistry()
{
    static SystemRegistry registry;
    return &registry;
}

namespace sim::app {

CommandStack& commandStack()
{
    static CommandStack stack;
    return stack;
}

} // namespace sim::app
