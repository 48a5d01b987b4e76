// The host's Range: one or more cells of a worksheet, named after the spreadsheet object model.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/variant.h"

namespace kxc::host {

class Worksheet;
class Range;
using RangeRef = std::shared_ptr<Range>;

// Every operation raises RuntimeError 1004 with the spreadsheet's description when the host
// cannot carry it out. Ranges stay valid as long as their worksheet exists.
class Range {
 public:
  virtual ~Range() = default;

  // The formula as the user typed it ("=SUM(A1)"), or the constant as text ("12", "North");
  // "" for an empty cell. For several cells: their common formula, or "" when they differ.
  virtual std::string formula() const = 0;
  // Enters text as a user types it: "=..." is a formula, a number or TRUE/FALSE becomes that
  // value, anything else a text. Sets every cell of the range. Recalculates dependents and
  // raises SheetChange.
  virtual void setFormula(const std::string& text) = 0;

  // The value of a single cell (Empty, Double, Bool, Text or Error); raises 13 for several.
  virtual Variant value() const = 0;
  // Stores a value: texts are taken as a user's typing (as setFormula), other types as they are.
  virtual void setValue(const Variant& value) = 0;
  // The value without currency or date conversion (the same as value() in this host).
  virtual Variant value2() const = 0;

  // The reference as the spreadsheet writes it: "$B$3", "B$3", "$B3", "B3", "$A$1:$C$3"; with
  // external, "[Book1.xlsx]Sheet1!$B$3" or "'[Book 1.xlsx]My Sheet'!$B$3".
  virtual std::string address(bool rowAbsolute = true, bool columnAbsolute = true,
                              bool external = false) const = 0;

  virtual int32_t count() const = 0;  // number of cells
  // The cell at a 1-based row and column offset inside the range's first area.
  virtual RangeRef cells(int32_t row, int32_t column) const = 0;
  virtual int32_t row() const = 0;     // first row, 1-based
  virtual int32_t column() const = 0;  // first column, 1-based
  virtual std::shared_ptr<Worksheet> worksheet() const = 0;

  // The defined name that refers to exactly this range ("Region"); raises 1004 when none does.
  virtual std::string name() const = 0;

  // The cells whose formulas refer to this range directly, in the host's order (sheet order,
  // then row by row). Raises 1004 "No cells were found." when there are none.
  virtual RangeRef directDependents() const = 0;

  // The single cells of the range, area by area, row by row.
  virtual std::vector<RangeRef> cellList() const = 0;
};

}  // namespace kxc::host
