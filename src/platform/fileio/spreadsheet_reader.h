// Reads the bytes of an .xlsx or .ods file into a WorkbookImage.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/fileio/workbook_image.h"

namespace kxc::fileio {

enum class SpreadsheetFormat { Unknown, Xlsx, Ods };

// The most cells one file may bring; more is refused rather than exhausting memory.
inline constexpr std::size_t kMaxLoadedCells = 4'000'000;

// The format the content shows, whatever the file is called. Never throws.
SpreadsheetFormat detectSpreadsheetFormat(std::string_view bytes);

struct SpreadsheetReadResult {
  std::optional<WorkbookImage> image;  // set when the file was read
  std::string failure;                 // why not, when it was not ("the file is damaged ...")
};

// Reads the whole file from memory. Damaged or truncated files and content that is no
// spreadsheet give a failure, never an exception.
SpreadsheetReadResult readSpreadsheet(std::string_view bytes,
                                      std::size_t cellLimit = kMaxLoadedCells);

}  // namespace kxc::fileio
