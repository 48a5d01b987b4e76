#include "unsaved_changes.h"

#include "platform/error_report.h"

namespace kxc::workbench {

void UnsavedChanges::sheetChange(host::Worksheet& sheet, const host::RangeRef&) {
  ignoringErrors([&] {
    if (auto book = sheet.parent()) edited_.insert(book->name());
  });
}

}  // namespace kxc::workbench
