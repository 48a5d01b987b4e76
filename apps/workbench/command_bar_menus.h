// Showing the host's command bars as Qt menus: the menu bar from bar 1, the context menu from
// the "Cell" bar.
#pragma once

#include <functional>
#include <string>

#include "platform/host/command_bars.h"

class QMenu;
class QMenuBar;
class QWidget;

namespace kxc::workbench {

// Runs the command of a chosen control.
using ControlRunner = std::function<void(const host::ControlRef& control)>;

// Appends one action per button and one submenu per pop-up (recursively). Captions keep their
// "&" access keys. The runner is called from the event loop after the menu has closed, never
// from inside it, so a command may open modal windows.
void fillMenu(QMenu& menu, host::CommandBarControls& controls, const ControlRunner& run);

// The same for a menu bar: pop-ups become menus, buttons become actions on the bar.
void fillMenuBar(QMenuBar& bar, host::CommandBarControls& controls, const ControlRunner& run);

// A text that changes whenever a control is added, removed, re-captioned or re-tagged anywhere
// in `controls`; the window rebuilds its menus when it differs from the last one.
std::string barSignature(host::CommandBarControls& controls);

}  // namespace kxc::workbench
