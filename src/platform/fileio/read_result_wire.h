// The bytes a reading child process sends back to its parent: a SpreadsheetReadResult
// flattened into length-prefixed fields.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/fileio/spreadsheet_reader.h"

namespace kxc::fileio {

// The result as bytes. Raises std::bad_alloc like any growing string.
std::string encodeReadResult(const SpreadsheetReadResult& result);

// The result the bytes hold, or nothing when they are cut short, carry anything after the
// end or do not follow the layout (a child that died while writing). Never throws on any
// input except std::bad_alloc; counts are checked against the bytes left before anything
// is allocated for them.
std::optional<SpreadsheetReadResult> decodeReadResult(std::string_view bytes);

}  // namespace kxc::fileio
