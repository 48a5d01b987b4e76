// The formula edit flow: opening the formula builder on the formula of the cell being edited.
#pragma once

#include <string>

#include "platform/services.h"

namespace kxc {

// Loads the builder, makes `formulaText` the current formula and fills the builder from it,
// then shows it modeless, owned by the host's main window. An empty text or "=BV_KXCSUM()" (any
// letter case), or a formula whose cache the engine cannot load, opens the builder on the
// default cache (SelectDefaultCache) with no arguments. The caller has stored the cell in
// gActiveCell. Errors are reported as "TmCacheCommon ShowFormulaEdit" and skip the remaining
// steps. Always returns "".
std::string ShowFormulaEdit(std::string& formulaText);

// The first top-level window whose title starts with `title` (case-sensitive): true with
// `hwnd` set to it, or false with `hwnd` 0.
bool FindWindowByTitle(const std::string& title, WindowHandle& hwnd);

}  // namespace kxc
