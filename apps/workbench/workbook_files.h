// Opening .xlsx/.ods files into the workbook and saving a workbook as .xlsx, with the user's
// error messages.
#pragma once

#include <string>
#include <vector>

#include "platform/workbook/in_memory_application.h"

namespace kxc::workbench {

struct FileOutcome {
  bool ok = false;
  std::string workbookName;        // the workbook opened
  std::string message;             // when !ok: the text to show, in the current language
  std::vector<std::string> notes;  // what the file could not carry, one line each
};

// The message of a failed open or save: the catalogue text of `key` ("@WB_OPEN_FAILED",
// "@WB_SAVE_FAILED") with the file's name and the reason, in the current language.
std::string fileFailureMessage(const std::string& key, const std::string& path,
                               const std::string& reason);

// Opens the file as a new workbook named after it (nothing is added on failure).
FileOutcome openWorkbookFile(workbook::InMemoryApplication& app, const std::string& path);
// Writes `workbookName` to `path` as .xlsx; a failure leaves an existing file as it was.
FileOutcome saveWorkbookFile(const workbook::InMemoryApplication& app,
                             const std::string& workbookName, const std::string& path);

}  // namespace kxc::workbench
