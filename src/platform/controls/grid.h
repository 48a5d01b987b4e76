// The spreadsheet-style grid of the transaction drill-down: cells by column and row, a current
// cell, column widths, a selected block and clipboard copy. It is also a dispatch object, so
// that the cache engine fills it by member name.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.h"
#include "platform/controls/input_codes.h"
#include "platform/dispatch.h"

namespace kxc::controls {

// Column widths are in characters of the grid's font.
inline constexpr double kDefaultColWidth = 9.0;

// Cells are numbered from 1 in both directions; row 0 holds the column headers and column 0
// the row headers. Storage is column-major; a column holds texts only up to its last written
// row, so a large MaxRows costs nothing until cells are written. Reading a cell outside the
// grid gives "". Negative numbers raise 380 "Invalid property value".
//
// Dispatch members (names match case-insensitively):
//   ClearAll()                      empties every cell and the selection; the size stays
//   MaxCols, MaxRows                get / put, 32-bit
//   Col, Row                        the current cell, get / put
//   Text                            the current cell's text, get / put
//   SetText(col, row, text)         writes one cell, growing MaxCols/MaxRows to reach it
//   GetText(col, row)               reads one cell
//   SetBlock(col, row, text)        writes cells from (col, row): cells separated by "\t",
//                                   rows by "\n" (a "\r" before a "\n" and one final "\n" are
//                                   dropped), growing MaxCols/MaxRows as needed
//   ColWidth(col)                   get; put with (col, width)
// Wrong argument types raise 13, missing arguments 449, unknown members 438.
class Grid : public Control, public DispatchObject {
 public:
  struct Block {
    int32_t col1, row1, col2, row2;
    bool operator==(const Block&) const = default;
  };

  Grid();
  std::string_view typeName() const override { return "Grid"; }

  int32_t maxCols() const { return maxCols_; }
  void setMaxCols(int32_t cols);
  int32_t maxRows() const { return maxRows_; }
  void setMaxRows(int32_t rows);

  int32_t col() const { return col_; }
  void setCol(int32_t col);
  int32_t row() const { return row_; }
  void setRow(int32_t row);
  const std::string& text() const { return cellText(col_, row_); }
  void setText(std::string text) { setCellText(col_, row_, std::move(text)); }

  const std::string& cellText(int32_t col, int32_t row) const;
  void setCellText(int32_t col, int32_t row, std::string text);
  void setBlock(int32_t col, int32_t row, std::string_view text);
  void clearAll();

  double colWidth(int32_t col) const;
  void setColWidth(int32_t col, double width);

  // The selected block, corners in any order; stored normalised (col1 <= col2, row1 <= row2).
  std::optional<Block> selection() const { return selection_; }
  void setSelection(int32_t col1, int32_t row1, int32_t col2, int32_t row2);
  void clearSelection();
  // The selected cells as text: columns joined by "\t", rows by "\r\n"; "" without a block.
  std::string selectedText() const;
  // Puts selectedText() on the clipboard (services()); nothing happens without a block.
  void copyToClipboard() const;

  // User actions, for views and tests: they raise the events below.
  void clickCell(int32_t col, int32_t row);  // makes it the current cell, then onClick
  void doubleClickCell(int32_t col, int32_t row);
  void mouseDown(int button, int shift, double x, double y);
  void mouseUp(int button, int shift, double x, double y);

  std::function<void(int32_t col, int32_t row)> onClick;
  std::function<void(int32_t col, int32_t row)> onDblClick;
  std::function<void(int button, int shift, double x, double y)> onMouseDown;
  std::function<void(int button, int shift, double x, double y)> onMouseUp;

  Variant invoke(std::string_view member, Arguments args, CallKind kind) override;

  // Bytes held by the cell storage, for diagnostics.
  std::size_t memoryBytes() const;

 private:
  void buildMembers();
  void grow(int32_t col, int32_t row);
  void notifyGrid(GridChange change);

  int32_t maxCols_ = 0;
  int32_t maxRows_ = 0;
  int32_t col_ = 1;
  int32_t row_ = 1;
  std::vector<std::vector<std::string>> cells_;  // [col][row], col 0..maxCols
  std::vector<double> widths_;                   // [col], grown when a width is set
  std::optional<Block> selection_;
  DispatchTable members_;
};

}  // namespace kxc::controls
