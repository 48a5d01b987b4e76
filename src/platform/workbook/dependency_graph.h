// Which formula cells read which cells: a reverse index from a cell to the formulas that read
// it, so a change recalculates only what depends on it, in dependency order.
#pragma once

#include <span>
#include <unordered_map>
#include <vector>

#include "platform/workbook/grid.h"

namespace kxc::workbook {

struct RecalcStep {
  CellKey cell;
  bool cyclic = false;  // part of a circular chain of references
};

class DependencyGraph {
 public:
  // Records that the formula in `cell` reads `precedents`, replacing what it read before. A
  // formula that reads nothing is still recorded as a formula cell.
  void setPrecedents(const CellKey& cell, const std::vector<Block>& precedents);
  // Forgets the formula in `cell` (its content became a constant or empty).
  void remove(const CellKey& cell);

  bool isFormula(const CellKey& cell) const { return forward_.contains(cell); }
  const std::vector<Block>* precedentsOf(const CellKey& cell) const;
  std::vector<CellKey> formulaCells() const;

  // Appends the formula cells that read `cell` directly (through a reference to it or to a
  // range that contains it). A formula appears once per reference it makes to the cell.
  void appendDependents(const CellKey& cell, std::vector<CellKey>& out) const;

  // The formula cells whose formulas read any cell of `block`, unsorted and without repeats.
  std::vector<CellKey> dependentsOf(const Block& block) const;

  // The formula cells to evaluate after `changed` changed, precedents before dependents: the
  // changed cells that hold formulas and every formula that reads them, directly or not.
  // Members of a circular chain come out together and are marked cyclic. Iterative: long
  // chains cannot exhaust the stack.
  std::vector<RecalcStep> recalcOrder(std::span<const CellKey> changed) const;

 private:
  // Areas up to this many cells are indexed cell by cell; larger ones are kept per sheet and
  // searched, which keeps a SUM over whole columns cheap to record.
  static constexpr int64_t kIndexedAreaCells = 64;

  struct AreaEntry {
    Area area;
    CellKey dependent;
  };

  void link(const CellKey& dependent, const Block& block);
  void unlink(const CellKey& dependent, const Block& block);

  std::unordered_map<CellKey, std::vector<Block>> forward_;
  std::unordered_map<CellKey, std::vector<CellKey>> cellDependents_;
  std::unordered_map<SheetId, std::vector<AreaEntry>> areaDependents_;
};

}  // namespace kxc::workbook
