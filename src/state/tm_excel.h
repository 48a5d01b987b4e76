// TmExcel: the add-in's hold on the host application, its event hooks, and the small
// reference tests the dialogs and flows use.
#pragma once

#include <memory>
#include <string>

#include "platform/host/application.h"

namespace kxc {

// One instance lives in gExcelSink. While oExcel is set, the application's double-click and
// add-in-uninstall events reach the two handlers below; here they do nothing, and the add-in's
// own sink (TmExcelEvents, which the add-in context makes once the add-in is installed)
// overrides them. Single-threaded: the host's user-interface thread.
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

  // Event handlers, run on every double-click and add-in uninstall while hooked. The base
  // ignores both.
  virtual void oExcel_SheetBeforeDoubleClick(host::Worksheet& sheet, const host::RangeRef& target,
                                             bool& cancel);
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
