// UnsavedChanges: which workbooks were edited since they were opened or last saved.
#pragma once

#include <set>
#include <string>

#include "platform/host/application_events.h"

namespace kxc::workbench {

// Listens to the application's change events: any cell change in a workbook, typed or written
// by code (the formula builder, write-back), marks it edited. Loading a file and building the
// sample fill cells without events, so a workbook starts unedited. User-interface thread only.
class UnsavedChanges : public host::ApplicationEvents {
 public:
  void sheetChange(host::Worksheet& sheet, const host::RangeRef& target) override;

  bool edited(const std::string& workbook) const { return edited_.count(workbook) != 0; }
  // Forgets the edits of a workbook that has just been saved.
  void markSaved(const std::string& workbook) { edited_.erase(workbook); }

 private:
  std::set<std::string> edited_;
};

}  // namespace kxc::workbench
