// Start-up of the add-in: installing the parts the facade reaches through hooks, and placing
// the add-in's menus in the host's command bars.
#pragma once

namespace kxc {

// Installs every hook of the add-in: the formula flows (ShowFormulaBuilder opens the formula
// builder, which writes through WriteCacheFormula) and the write-back class (ToggleWriteBack
// creates and releases a CacheWriteBack). A program calls it once before the first CacheUI
// call; calling it again changes nothing.
void installAddIn();

// Creates the add-in's menu (CreateMenu) on the host's "Cell" bar and on bar 1, the worksheet
// menu bar, of the application held by gExcelSink. A program calls it at start, after
// CacheUI::Initialise; the uninstall of "Kestra Cache.xla" removes both menus again. A missing
// application or bar is reported as "TmCommandBars CreateMenu"; the other bar still gets its
// menu.
void createAddInMenus();

}  // namespace kxc
