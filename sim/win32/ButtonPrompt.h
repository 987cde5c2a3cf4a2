// Answering a box by a script line: the buttons as a choice on the command line, the answer matched
// by a button's text or its English or Czech word, wrong answers asked again.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sim::win32 {

struct Button {
    std::wstring text; ///< as shown
    int id;
};

struct ButtonAnswer {
    std::optional<int> id; ///< nothing: cancelled by ^C or by the end of the input
    std::optional<bool> tick; ///< set by an answer that ends in " +tick" or " -tick"
};

/// The Czech texts of the standard buttons (IDOK "OK", IDCANCEL "Storno", IDYES "Ano", ...).
std::wstring standardButtonText(int id);

/// Prints text in the transcript starting on a fresh line and ending the line.
void showBlock(std::wstring_view text);

/// Asks with the prompt "[A/B/C] <Default>: " until the answer names a button: its text, or a word
/// that means the same (ok; yes/ano; no/ne; cancel/storno/zrušit; ...), without regard to case. An
/// empty answer presses the default button. With tickLabel set, " +tick" or " -tick" after the
/// answer sets or clears the box of that label, and the prompt says so. No session, ^C or the end of
/// the input cancel.
ButtonAnswer askButton(const std::vector<Button>& buttons, size_t defaultIndex,
    std::optional<std::wstring> tickLabel = std::nullopt);

} // namespace sim::win32
