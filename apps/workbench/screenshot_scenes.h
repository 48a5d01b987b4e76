// The scenes the screenshot mode and the GUI tests open on the sample report: the builder, the
// builder's member lookup with several members chosen, the transactions of a block of cells.
#pragma once

#include <functional>

namespace kxc::workbench {

class WorkbenchSession;

// Selects the report's first cache formula and opens the formula builder on it (modeless).
void openBuilderScene(WorkbenchSession& session);

// Opens the builder, pre-sets the Product filter to three members and opens the builder's
// lookup of that dimension. The lookup is modal: `whileShown` runs from its event loop once
// the dialog is up; the call returns when the lookup is closed.
void openLookupScene(WorkbenchSession& session, const std::function<void()>& whileShown);

// Selects a block of cache formulas and drills down into their transactions.
void openTransactionsScene(WorkbenchSession& session);

// Closes the dialogs the scenes open (without writing anything into the sheet).
void closeSceneDialogs();

}  // namespace kxc::workbench
