#include "platform/controls/grid.h"

#include <algorithm>

#include "platform/controls/control_errors.h"
#include "platform/controls/form.h"
#include "platform/services.h"

namespace kxc::controls {

namespace {
const std::string kNoText;

void checkNumber(int32_t n) {
  if (n < 0) throw controlError(errc::kInvalidPropertyValue);
}

std::size_t outOfLine(const std::string& s) { return s.capacity() > 15 ? s.capacity() + 1 : 0; }
}  // namespace

Grid::Grid() : Control(Traits{.font = FontAccess::ObjectOnly, .backColor = kColorWhite}) {
  cells_.resize(1);
  buildMembers();
}

void Grid::setMaxCols(int32_t cols) {
  checkNumber(cols);
  maxCols_ = cols;
  cells_.resize(static_cast<std::size_t>(cols) + 1);
  notifyGrid({GridChange::Kind::Reset});
}

void Grid::setMaxRows(int32_t rows) {
  checkNumber(rows);
  maxRows_ = rows;
  for (auto& column : cells_) {
    if (column.size() > static_cast<std::size_t>(rows) + 1) column.resize(rows + 1);
  }
  notifyGrid({GridChange::Kind::Reset});
}

void Grid::setCol(int32_t col) {
  checkNumber(col);
  col_ = col;
  notifyGrid({GridChange::Kind::Current, col_, row_, col_, row_});
}

void Grid::setRow(int32_t row) {
  checkNumber(row);
  row_ = row;
  notifyGrid({GridChange::Kind::Current, col_, row_, col_, row_});
}

const std::string& Grid::cellText(int32_t col, int32_t row) const {
  checkNumber(col);
  checkNumber(row);
  if (col > maxCols_) return kNoText;
  const auto& column = cells_[col];
  return static_cast<std::size_t>(row) < column.size() ? column[row] : kNoText;
}

void Grid::grow(int32_t col, int32_t row) {
  if (col > maxCols_) {
    maxCols_ = col;
    cells_.resize(static_cast<std::size_t>(col) + 1);
  }
  if (row > maxRows_) maxRows_ = row;
  auto& column = cells_[col];
  if (column.size() <= static_cast<std::size_t>(row)) column.resize(row + 1);
}

void Grid::setCellText(int32_t col, int32_t row, std::string text) {
  checkNumber(col);
  checkNumber(row);
  grow(col, row);
  cells_[col][row] = std::move(text);
  notifyGrid({GridChange::Kind::Cells, col, row, col, row});
}

void Grid::setBlock(int32_t col, int32_t row, std::string_view text) {
  checkNumber(col);
  checkNumber(row);
  if (text.empty()) return;
  if (text.back() == '\n') text.remove_suffix(1);
  if (text.empty()) return;
  int32_t r = row;
  int32_t lastCol = col;
  for (std::size_t start = 0;; ++r) {
    std::size_t end = text.find('\n', start);
    std::string_view line = text.substr(start, end == std::string_view::npos ? end : end - start);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    int32_t c = col;
    for (std::size_t cellStart = 0;; ++c) {
      std::size_t tab = line.find('\t', cellStart);
      std::string_view cell =
          line.substr(cellStart, tab == std::string_view::npos ? tab : tab - cellStart);
      grow(c, r);
      cells_[c][r].assign(cell);
      if (tab == std::string_view::npos) break;
      cellStart = tab + 1;
    }
    lastCol = std::max(lastCol, c);
    if (end == std::string_view::npos) break;
    start = end + 1;
  }
  notifyGrid({GridChange::Kind::Cells, col, row, lastCol, r});
}

void Grid::clearAll() {
  for (auto& column : cells_) std::vector<std::string>().swap(column);
  selection_.reset();
  notifyGrid({GridChange::Kind::Reset});
}

double Grid::colWidth(int32_t col) const {
  checkNumber(col);
  return static_cast<std::size_t>(col) < widths_.size() ? widths_[col] : kDefaultColWidth;
}

void Grid::setColWidth(int32_t col, double width) {
  checkNumber(col);
  if (!(width >= 0)) throw controlError(errc::kInvalidPropertyValue);
  if (widths_.size() <= static_cast<std::size_t>(col)) widths_.resize(col + 1, kDefaultColWidth);
  widths_[col] = width;
  notifyGrid({GridChange::Kind::ColWidth, col, 0, col, 0});
}

void Grid::setSelection(int32_t col1, int32_t row1, int32_t col2, int32_t row2) {
  for (int32_t n : {col1, row1, col2, row2}) checkNumber(n);
  selection_ =
      Block{std::min(col1, col2), std::min(row1, row2), std::max(col1, col2), std::max(row1, row2)};
  notifyGrid({GridChange::Kind::Selection, selection_->col1, selection_->row1, selection_->col2,
              selection_->row2});
}

void Grid::clearSelection() {
  selection_.reset();
  notifyGrid({GridChange::Kind::Selection});
}

std::string Grid::selectedText() const {
  if (!selection_) return {};
  // Only the part of the block that lies inside the grid is copied.
  const int32_t col2 = std::min(selection_->col2, maxCols_);
  const int32_t row2 = std::min(selection_->row2, maxRows_);
  std::string out;
  for (int32_t r = selection_->row1; r <= row2; ++r) {
    if (r != selection_->row1) out += "\r\n";
    for (int32_t c = selection_->col1; c <= col2; ++c) {
      if (c != selection_->col1) out += '\t';
      out += cellText(c, r);
    }
  }
  return out;
}

void Grid::copyToClipboard() const {
  if (selection_) services().clipboardSetText(selectedText());
}

void Grid::clickCell(int32_t col, int32_t row) {
  if (!enabled() || !visible()) return;
  checkNumber(col);
  checkNumber(row);
  if (form()) setFocus();
  col_ = col;
  row_ = row;
  notifyGrid({GridChange::Kind::Current, col, row, col, row});
  if (onClick) onClick(col, row);
}

void Grid::doubleClickCell(int32_t col, int32_t row) {
  if (enabled() && visible() && onDblClick) onDblClick(col, row);
}

void Grid::mouseDown(int button, int shift, double x, double y) {
  if (enabled() && visible() && onMouseDown) onMouseDown(button, shift, x, y);
}

void Grid::mouseUp(int button, int shift, double x, double y) {
  if (enabled() && visible() && onMouseUp) onMouseUp(button, shift, x, y);
}

std::size_t Grid::memoryBytes() const {
  std::size_t bytes = cells_.capacity() * sizeof(cells_[0]) + widths_.capacity() * sizeof(double);
  for (const auto& column : cells_) {
    bytes += column.capacity() * sizeof(std::string);
    for (const auto& s : column) bytes += outOfLine(s);
  }
  return bytes;
}

void Grid::notifyGrid(GridChange change) {
  if (FormView* v = view()) v->gridChanged(*this, change);
}

}  // namespace kxc::controls
