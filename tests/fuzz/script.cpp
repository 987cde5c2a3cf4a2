// The lines of a script: each line as the command line reads an answer (number, point, handle) and
// as an AutoLISP call.
#include <cstdint>
#include <string>

#include "sim/app/LispCall.h"
#include "sim/core/Session.h"
#include "sim/editor/InputParse.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    std::wstring text = sim::fromUtf8(std::string(reinterpret_cast<const char*>(data), size));
    size_t start = 0;
    while (start <= text.size()) {
        size_t end = text.find(L'\n', start);
        if (end == std::wstring::npos)
            end = text.size();
        std::wstring_view line(text.data() + start, end - start);
        sim::editor::parseReal(line);
        sim::editor::parseInt(line);
        sim::editor::parsePoint(line);
        sim::editor::parseHandle(line);
        std::wstring error;
        if (auto call = sim::app::parseLispCall(line, error))
            sim::app::formatLispAnswer(sim::app::LispAnswer{false, std::move(call->args)});
        start = end + 1;
    }
    return 0;
}
