// The filters of the host's window messages.
#include "sim/app/WinMsgFilters.h"

#include <algorithm>
#include <vector>

namespace sim::app {

namespace {

std::vector<AcedFilterWinMsgFn>& filters()
{
    static std::vector<AcedFilterWinMsgFn> list;
    return list;
}

} // namespace

bool filterWinMsg(MSG& msg)
{
    // A filter may remove itself while it runs: walk a copy.
    std::vector<AcedFilterWinMsgFn> current = filters();
    for (AcedFilterWinMsgFn fn : current)
        if (fn(&msg))
            return true;
    return false;
}

std::size_t winMsgFilterCount() { return filters().size(); }

} // namespace sim::app

bool acedRegisterFilterWinMsg(const AcedFilterWinMsgFn pfn)
{
    auto& list = sim::app::filters();
    if (!pfn || std::find(list.begin(), list.end(), pfn) != list.end())
        return false;
    list.push_back(pfn);
    return true;
}

bool acedRemoveFilterWinMsg(const AcedFilterWinMsgFn pfn)
{
    auto& list = sim::app::filters();
    auto it = std::find(list.begin(), list.end(), pfn);
    if (it == list.end())
        return false;
    list.erase(it);
    return true;
}
