// The add-in's own event sink: what a double-click on a cell and the uninstalling of the add-in
// workbook do.
#pragma once

#include "state/tm_excel.h"

namespace kxc {

// The TmExcel that gExcelSink holds once the add-in is installed (installAddIn). Handlers run
// on the host's user-interface thread.
class TmExcelEvents : public TmExcel {
 public:
  // Double-click, when `cancel` is not already set: an active cell (not `target`) holding a
  // cache formula ("=BV_KXCSUM*" on the upper-cased text; the negated form does not count)
  // becomes gActiveCell and the formula builder opens on it (ShowFormulaEdit); `cancel` is set.
  // Otherwise, when the cell has direct dependents, the first dependent cache formula that
  // uses the cell as dimension argument i (GetCellAddress of the argument and the cell's
  // Address compared without "$", case-sensitively) becomes gCurrentFormula, its cache is
  // loaded, and the member lookup opens with key "Dim<i>" and the cell's value; unless the
  // lookup answers -1 (cancelled) the cell's value becomes the chosen selection text, and
  // `cancel` is set either way. Anything else leaves `cancel` alone, so the host edits the
  // cell. Errors are reported as "TmExcel Events-SheetBeforeDoubleClick".
  void oExcel_SheetBeforeDoubleClick(host::Worksheet& sheet, const host::RangeRef& target,
                                     bool& cancel) override;
  // Uninstalling the workbook named exactly "Kestra Cache.xla" removes the add-in's menu from
  // the "Cell" bar and then from bar 1 (DeleteMenu); other workbooks are ignored. Silent.
  void oExcel_WorkbookAddinUninstall(host::Workbook& workbook) override;
};

}  // namespace kxc
