// TmCommandBars: the add-in's menu in the host's command bars, created at start and removed
// when the add-in is uninstalled.
#pragma once

#include <array>
#include <string_view>

#include "platform/host/command_bars.h"

namespace kxc {

// Every control the add-in creates carries this tag; DeleteMenu finds them by it.
inline constexpr std::string_view kMenuTag = "kxc";

// The caption key of the top-level pop-up.
inline constexpr std::string_view kMenuCaptionKey = "@KES_CACHE &A";

// One item of the add-in's menu: its caption key (translated when the menu is created), the
// control's name (kept in the control's Parameter) and the command it runs (its OnAction).
struct MenuItemSpec {
  std::string_view captionKey;
  std::string_view controlName;
  std::string_view command;
};

// The items of the pop-up, in menu order.
inline constexpr std::array<MenuItemSpec, 4> kMenuItems = {{
    {"@FORMULA% &F", "ddFormulaEditor", "FormulaEditor"},
    {"@TRANS_DRILLDWN &D", "ddTrans", "DrillTrans"},
    {"@KES_CACHE_MAN &M", "ddCacheManager", "CacheManager"},
    {"@LANGUAGE &L", "ddCacheLanguage", "ChangeLanguage"},
}};

// Appends to `bar` one pop-up captioned TransMes("@KES_CACHE &A") that holds a button per
// kMenuItems entry, every control tagged "kxc". A "kxc" control already at the top level of the
// bar (left from an earlier start) is removed first, so the bar holds exactly one menu. The
// program calls this at start, after CacheUI::Initialise, for the "Cell" bar and for bar 1.
// Errors (an empty bar, a failing host) are reported as "TmCommandBars CreateMenu"; the menu
// may then be partly built. User-interface thread only.
void CreateMenu(const host::BarRef& bar);

// Removes the first control tagged "kxc" (searching the bar, then its pop-ups) from `bar`; an
// empty `bar` is first set to the host's "Cell" bar (of gExcelSink's application). A bar
// without such a control is left alone silently. Failing to get the "Cell" bar is reported as
// "TmCommandBars DeleteMenu"; nothing is raised.
void DeleteMenu(host::BarRef& bar);

}  // namespace kxc
