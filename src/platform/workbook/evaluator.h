// Evaluates a parsed formula against the cells of the workbook and the worksheet functions.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/host/worksheet_functions.h"
#include "platform/variant.h"
#include "platform/workbook/formula_ast.h"
#include "platform/workbook/grid.h"

namespace kxc::workbook {

// A reference of a formula as the workbook resolved it: a block of cells, or the error value
// the reference stands for (#REF! for a missing sheet or workbook, #NAME? for an unknown name).
struct BoundReference {
  std::optional<CellError> error;
  Block block;  // default when error is set
  bool operator==(const BoundReference&) const = default;
};

// What the evaluator reads from the workbook. Values are Empty, Double, Text, Bool or Error.
class EvaluationContext {
 public:
  virtual ~EvaluationContext() = default;
  virtual Variant cellValue(const CellKey& cell) const = 0;
  // Calls `visit` with the value of every non-empty cell of the block, row by row, until it
  // returns false.
  virtual void forEachValue(const Block& block,
                            const std::function<bool(const Variant&)>& visit) const = 0;
  // The registered function of that upper-cased name, or null.
  virtual const host::WorksheetFunction* function(const std::string& upperName) const = 0;
};

// The formula's value: Double, Text, Bool or an error value; never Empty (a formula that reads
// an empty cell shows 0). `bound` holds one entry per reference of the formula. Never throws:
// a failing worksheet function gives #VALUE!.
Variant evaluate(const ParsedFormula& formula, const std::vector<BoundReference>& bound,
                 const EvaluationContext& context);

// The text a value shows in its cell: "12.5", "TRUE", "#NAME?", "" for Empty.
std::string displayTextOf(const Variant& value);

}  // namespace kxc::workbook
