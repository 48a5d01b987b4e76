// Start-up of the add-in: wiring it into the add-in context, and placing its menus in the
// host's command bars.
#pragma once

namespace kxc {

class AddInContext;

// Makes `context`'s event sink (gExcelSink) the add-in's own, whose double-click opens the
// formula builder or the member lookup and whose uninstall removes the menus. A program calls
// it once, right after making the context and before CacheUI::Initialise; calling it again
// changes nothing.
void installAddIn(AddInContext& context);

// Creates the add-in's menu (CreateMenu) on the host's "Cell" bar and on bar 1, the worksheet
// menu bar, of the application held by gExcelSink. A program calls it at start, after
// CacheUI::Initialise; the uninstall of "Kestra Cache.xla" removes both menus again. A missing
// application or bar is reported as "TmCommandBars CreateMenu"; the other bar still gets its
// menu.
void createAddInMenus();

}  // namespace kxc
