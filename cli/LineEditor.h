// The keyboard at a terminal: lines edited with libedit, the history of earlier lines under the Up
// arrow, Tab completing command names, and space on an empty line at "Command: " taken for Enter
// as the host takes it.
#pragma once
#include <memory>

#include "sim/core/Session.h"

namespace togu::cli {

class LineEditor : public sim::InputSource {
public:
    LineEditor();
    ~LineEditor() override;
    std::optional<sim::InputLine> read() override;
    bool interactive() const override { return true; }
    bool showsPrompt() const override { return true; }
    void setPrompt(std::wstring_view lineSoFar) override;

    struct State;

private:
    std::unique_ptr<State> m_state;
};

} // namespace togu::cli
