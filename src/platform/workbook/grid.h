// Worksheet geometry: the grid's limits, rectangular areas, sheet-qualified blocks and cell keys.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace kxc::workbook {

inline constexpr int32_t kMaxRows = 1048576;
inline constexpr int32_t kMaxColumns = 16384;

// A rectangle of cells, 1-based and inclusive; top <= bottom and left <= right.
struct Area {
  int32_t top = 1;
  int32_t left = 1;
  int32_t bottom = 1;
  int32_t right = 1;

  static Area cell(int32_t row, int32_t column) { return {row, column, row, column}; }
  bool contains(int32_t row, int32_t column) const {
    return row >= top && row <= bottom && column >= left && column <= right;
  }
  bool intersects(const Area& o) const {
    return top <= o.bottom && o.top <= bottom && left <= o.right && o.left <= right;
  }
  int64_t cellCount() const { return int64_t{bottom - top + 1} * (right - left + 1); }
  bool isSingleCell() const { return top == bottom && left == right; }
  bool wholeColumns() const { return top == 1 && bottom == kMaxRows; }
  bool wholeRows() const { return left == 1 && right == kMaxColumns; }
  bool operator==(const Area&) const = default;
};

bool isValidRow(int64_t row);
bool isValidColumn(int64_t column);

// Sheets are numbered in creation order for the life of the application.
using SheetId = uint32_t;

// An area on one sheet.
struct Block {
  SheetId sheet = 0;
  Area area;
  bool operator==(const Block&) const = default;
};

// One cell of one sheet, packed so it can key hash maps.
struct CellKey {
  SheetId sheet = 0;
  int32_t row = 1;
  int32_t column = 1;
  bool operator==(const CellKey&) const = default;
  uint64_t packed() const {
    return (uint64_t{sheet} << 35) | (uint64_t(row) << 14) | uint64_t(column - 1);
  }
};

// "A" for 1, "Z" for 26, "AA" for 27, "XFD" for 16384. The column must be valid.
std::string columnLetters(int32_t column);
// The column that letters name, in any letter case; 0 when the text is not 1 to 3 letters
// naming a column up to XFD.
int32_t columnNumber(std::string_view letters);

}  // namespace kxc::workbook

template <>
struct std::hash<kxc::workbook::CellKey> {
  size_t operator()(const kxc::workbook::CellKey& k) const noexcept {
    return std::hash<uint64_t>()(k.packed());
  }
};
