// How a running dialog shows in the transcript: its title, the texts it paints, each control with its
// state, balloons as they pop up.
#pragma once
#include <string>
#include <vector>

#include "afxwin.h"

namespace sim::ui {

/// One line of a control: id, kind and state ("3018 [x] Přenastavit předponu v dwg [zakázáno]").
/// With withTip its tooltip follows.
std::wstring describeControl(CDialog& dlg, int id, bool withTip);
/// The lines of all controls in resource order; hidden ones are marked, not left out.
std::vector<std::wstring> describeControls(CDialog& dlg, bool withTips);
/// Prints a balloon tip of a control's field.
void showBalloon(int id, const std::wstring& title, const std::wstring& text, int icon);

} // namespace sim::ui
