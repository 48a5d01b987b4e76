// TmExcel: the add-in's hold on the host application, its event hooks, and the small
// reference tests the formula flows use.
#pragma once

#include <memory>
#include <string>

#include "platform/host/application.h"

namespace kxc {

// One instance lives in gExcelSink. While oExcel is set, the application's double-click and
// add-in-uninstall events reach the two handlers below. Single-threaded: the host's
// user-interface thread.
class TmExcel {
 public:
  TmExcel();
  // Releases gActiveCell (errors reported as "TmExcel Class-Terminate") and unhooks.
  virtual ~TmExcel();
  TmExcel(const TmExcel&) = delete;
  TmExcel& operator=(const TmExcel&) = delete;

  // The host application; empty until Initialise.
  const host::ApplicationRef& oExcel() const { return oExcel_; }

  // Sets oExcel to `pExcel` and hooks its events (an empty reference unhooks). Errors are
  // reported as "TmExcel Initialise"; nothing is raised.
  void Initialise(const host::ApplicationRef& pExcel);

  // Event handlers; they run on every double-click and add-in uninstall while hooked (tests
  // may override them to watch the hook-up).
  //
  // Double-click, when `cancel` is not already set: an active cell (not `target`) holding a
  // cache formula ("=BV_KXCSUM*" on the upper-cased text; the negated form does not count)
  // becomes gActiveCell and the formula builder opens on it (ShowFormulaEdit); `cancel` is set.
  // Otherwise, when the cell has direct dependents, the first dependent cache formula that
  // uses the cell as dimension argument i (GetCellAddress of the argument and the cell's
  // Address compared without "$", case-sensitively) becomes gCurrentFormula, its cache is
  // loaded, and the member lookup opens with key "Dim<i>" and the cell's value; unless the
  // lookup answers -1 (cancelled) the cell's value becomes gLookupSelection, and `cancel` is
  // set either way. Anything else leaves `cancel` alone, so the host edits the cell. Errors
  // are reported as "TmExcel Events-SheetBeforeDoubleClick".
  virtual void oExcel_SheetBeforeDoubleClick(host::Worksheet& sheet, const host::RangeRef& target,
                                             bool& cancel);
  // Uninstalling the workbook named exactly "Kestra Cache.xla" removes the add-in's menu from
  // the "Cell" bar and then from bar 1 (DeleteMenu); other workbooks are ignored. Silent.
  virtual void oExcel_WorkbookAddinUninstall(host::Workbook& workbook);

  // Reference tests. A reference text is resolved with oExcel's range(); any failure (no
  // application, a text that is no reference) gives false or "", never a message.
  // True when the text names a range that carries no defined name.
  bool IsCellRef(const std::string& reference);
  // True when the text names a range that carries a non-empty defined name.
  bool IsNameRange(const std::string& reference);
  // The defined name of the range the text names; "" when it has none.
  std::string GetNameRange(const std::string& reference);
  // The host's absolute address of the range the text names ("$B$3"); "" on failure.
  std::string GetCellAddress(const std::string& reference);
  // True when the cell's direct dependents exist; false when the host has none to give.
  bool HasDependents(const host::RangeRef& cell);

 private:
  class EventForwarder;

  host::RangeRef resolve(const std::string& reference) const;

  host::ApplicationRef oExcel_;
  std::shared_ptr<EventForwarder> forwarder_;
  host::EventHookup hookup_;
};

}  // namespace kxc
