// The four application events an add-in listens to, and the hook-up that delivers them.
#pragma once

#include <memory>

#include "platform/host/range.h"
#include "platform/host/worksheet.h"

namespace kxc::host {

// Receives the application's events. Default implementations ignore them.
class ApplicationEvents {
 public:
  virtual ~ApplicationEvents() = default;
  virtual void sheetBeforeDoubleClick(Worksheet& sheet, const RangeRef& target, bool& cancel) {
    (void)sheet, (void)target, (void)cancel;
  }
  virtual void sheetSelectionChange(Worksheet& sheet, const RangeRef& target) {
    (void)sheet, (void)target;
  }
  virtual void sheetChange(Worksheet& sheet, const RangeRef& target) { (void)sheet, (void)target; }
  virtual void workbookAddinUninstall(Workbook& workbook) { (void)workbook; }
};

}  // namespace kxc::host
