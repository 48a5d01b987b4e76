// What the import library's reading of .ods content leaves out or gets wrong, read again from
// content.xml: booleans, percentages, currency and time values, texts (it keeps only the last
// paragraph, a comment's included), rows repeated with content, and formula cells repeated
// across columns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/fileio/workbook_image.h"

namespace kxc::fileio {

struct OdsSupplement {
  struct Value {
    std::size_t sheet = 0;
    int32_t row = 1;  // 1-based
    int32_t column = 1;
    std::string entry;  // as in CellEntries
  };
  // `count` copies in all: the cell or row itself and the repeats after it.
  struct Repeat {
    std::size_t sheet = 0;
    int32_t row = 1;
    int32_t column = 1;  // for repeated formula cells
    int32_t count = 1;
  };
  std::vector<Value> values;
  std::vector<Repeat> rows;
  std::vector<Repeat> formulaCells;
};

// Reads content.xml of the .ods archive. Throws (std::exception) when the archive or its XML
// is damaged.
OdsSupplement readOdsSupplement(std::string_view bytes);

// Adds the supplement to what the import library read: values first, then the repeated
// formula cells (each copy with its references moved by its distance from the first), then
// the repeated rows (likewise). Calls `countCell` for every cell it adds, which may throw to
// stop at a limit.
void applyOdsSupplement(const OdsSupplement& supplement, WorkbookImage& image,
                        const std::function<void()>& countCell);

}  // namespace kxc::fileio
