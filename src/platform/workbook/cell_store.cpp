#include "platform/workbook/cell_store.h"

#include <algorithm>

namespace kxc::workbook {

const Cell* CellStore::find(int32_t row, int32_t column) const {
  auto it = cells_.find(key(row, column));
  return it == cells_.end() ? nullptr : &it->second;
}

Cell* CellStore::find(int32_t row, int32_t column) {
  auto it = cells_.find(key(row, column));
  return it == cells_.end() ? nullptr : &it->second;
}

Cell& CellStore::at(int32_t row, int32_t column) { return cells_[key(row, column)]; }

void CellStore::erase(int32_t row, int32_t column) { cells_.erase(key(row, column)); }

std::optional<Area> CellStore::usedArea() const {
  if (cells_.empty()) return std::nullopt;
  Area a{rowOf(cells_.begin()->first), kMaxColumns, rowOf(cells_.rbegin()->first), 1};
  for (const auto& [k, cell] : cells_) {
    a.left = std::min(a.left, columnOf(k));
    a.right = std::max(a.right, columnOf(k));
  }
  return a;
}

void CellStore::forEachIn(
    const Area& area,
    const std::function<bool(int32_t row, int32_t column, const Cell&)>& visit) const {
  auto it = cells_.lower_bound(key(area.top, area.left));
  auto end = cells_.upper_bound(key(area.bottom, area.right));
  while (it != end) {
    int32_t row = rowOf(it->first), column = columnOf(it->first);
    if (column < area.left) {
      it = cells_.lower_bound(key(row, area.left));
      continue;
    }
    if (column > area.right) {
      // Jump to the next row's part of the area instead of walking the rest of this row.
      if (row >= area.bottom) break;
      it = cells_.lower_bound(key(row + 1, area.left));
      continue;
    }
    if (!visit(row, column, it->second)) return;
    ++it;
  }
}

}  // namespace kxc::workbook
