// Saves a workbook of the in-memory application as an .xlsx file.
#pragma once

#include <string>

#include "platform/fileio/file_result.h"
#include "platform/workbook/in_memory_application.h"

namespace kxc::fileio {

// Writes every sheet of the workbook in order with every cell: numbers, texts, booleans,
// error values (as formulas such as "=#N/A", the only way the format stores them), and
// formulas exactly as entered with their current value as the cached result; then the
// workbook's defined names. The file is written under a temporary name in the same folder
// and renamed over `path` only when complete, so a failed save leaves any earlier file as it
// was. The workbook itself is not changed (it keeps its name). Never throws; a failure (no
// such workbook, folder missing or not writable, a text longer than the format allows) is
// in the result. Calls come from the thread that owns the application.
SaveResult saveWorkbookXlsx(const workbook::InMemoryApplication& app,
                            const std::string& workbookName, const std::string& path);

}  // namespace kxc::fileio
