// The cells of one worksheet: constants and formulas with their current values, kept in row
// order so walks over an area or the whole sheet go row by row.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/variant.h"
#include "platform/workbook/evaluator.h"
#include "platform/workbook/formula_ast.h"
#include "platform/workbook/grid.h"

namespace kxc::workbook {

struct FormulaCell {
  std::string text;  // as entered, with its "="
  ParsedFormula parsed;
  std::vector<BoundReference> bound;  // one per parsed reference
};

// A constant (formula null, value Double, Text, Bool or Error) or a formula with the value it
// last calculated to.
struct Cell {
  Variant value;
  std::unique_ptr<FormulaCell> formula;
};

class CellStore {
 public:
  const Cell* find(int32_t row, int32_t column) const;
  Cell* find(int32_t row, int32_t column);
  // The cell, created empty when absent.
  Cell& at(int32_t row, int32_t column);
  void erase(int32_t row, int32_t column);
  std::size_t size() const { return cells_.size(); }

  // The smallest area holding every stored cell; nullopt when the sheet is empty.
  std::optional<Area> usedArea() const;

  // Calls `visit` for every stored cell inside `area`, row by row, until it returns false.
  void forEachIn(const Area& area,
                 const std::function<bool(int32_t row, int32_t column, const Cell&)>& visit) const;

 private:
  static uint64_t key(int32_t row, int32_t column) {
    return (uint64_t(row) << 14) | uint64_t(column - 1);
  }
  static int32_t rowOf(uint64_t key) { return static_cast<int32_t>(key >> 14); }
  static int32_t columnOf(uint64_t key) { return static_cast<int32_t>(key & 0x3FFF) + 1; }

  std::map<uint64_t, Cell> cells_;
};

}  // namespace kxc::workbook
