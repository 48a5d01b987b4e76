// The in-memory spreadsheet model: workbooks, sheets, cells, defined names, worksheet
// functions and recalculation through the dependency graph. It raises no events; the
// application layer turns user actions into calls here and events out.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/host/worksheet_functions.h"
#include "platform/variant.h"
#include "platform/workbook/book.h"
#include "platform/workbook/dependency_graph.h"
#include "platform/workbook/evaluator.h"
#include "platform/workbook/grid.h"
#include "platform/workbook/reference_syntax.h"
#include "platform/workbook/sheet.h"

namespace kxc::workbook {

// Names the spreadsheet accepts. A workbook name is a file name ("Book1.xlsx"): not blank,
// none of \ / : * ? " < > [ ] |. A sheet name has 1 to 31 characters, none of : \ / ? * [ ],
// and no leading or trailing '.
bool isValidWorkbookName(std::string_view name);
bool isValidSheetName(std::string_view name);

// Single-threaded: every call comes from the thread that owns the spreadsheet. Failures raise
// RuntimeError 1004 with the spreadsheet's description unless stated otherwise.
class Spreadsheet : private EvaluationContext {
 public:
  Spreadsheet() = default;
  Spreadsheet(const Spreadsheet&) = delete;
  Spreadsheet& operator=(const Spreadsheet&) = delete;

  // A workbook name is a file name ("Book1.xlsx"): not empty, none of \ / : * ? " < > [ ] |.
  // A second workbook or sheet of the same name (any letter case) raises 1004.
  std::shared_ptr<Book> addWorkbook(const std::string& name);
  // A sheet name has 1 to 31 characters, none of : \ / ? * [ ], and no leading or trailing '.
  std::shared_ptr<Sheet> addSheet(Book& book, const std::string& name);
  std::shared_ptr<Book> findWorkbook(std::string_view name) const;
  const std::vector<std::shared_ptr<Book>>& workbooks() const { return books_; }
  const std::shared_ptr<Sheet>& sheet(SheetId id) const { return sheets_.at(id); }

  // Resolves a reference text relative to the `context` sheet (unqualified cells and names
  // belong to it and its workbook). Several references may be joined by ",". Anything that
  // is no reference to existing cells raises 1004 "Method 'Range' of object '_Application'
  // failed".
  std::vector<Block> resolve(std::string_view text, SheetId context) const;
  // One parsed reference: its block, or #REF! / #NAME? when it names nothing.
  BoundReference bind(const ReferenceSyntax& reference, SheetId context) const;

  // Defines a workbook-level name for the single area `reference` (resolved relative to
  // `context`; an optional leading "=" is allowed). Raises 1004 for an invalid name (one that
  // reads as a cell reference included) or an unresolvable reference. Formulas using the name
  // are recalculated.
  void defineName(Book& book, const std::string& name, std::string_view reference, SheetId context);
  // The name defined for exactly this block in its sheet's workbook, or "".
  std::string nameOf(const Block& block) const;

  // Enters text as a user types it into each cell: "=..." a formula, a number text a number,
  // TRUE/FALSE a boolean, an error literal ("#N/A") an error value, "" clears the cell, a
  // leading "'" keeps the rest as text, anything else is text. Recalculates what depends on
  // the cells.
  void enter(std::span<const CellKey> cells, std::string_view text);
  // Stores a value: Text as typed (enter), Empty clears, numbers, booleans and error values
  // as they are; an object raises 13.
  void store(std::span<const CellKey> cells, const Variant& value);

  // A cell's value: Empty, Double, Text, Bool or Error.
  Variant value(const CellKey& cell) const;
  // The formula as entered, or the constant as text ("12.5", "TRUE", "North"); "" when empty.
  std::string formula(const CellKey& cell) const;
  bool hasFormula(const CellKey& cell) const { return graph_.isFormula(cell); }
  // What the cell shows: "12.5", "TRUE", "#NAME?", "North", "".
  std::string displayText(const CellKey& cell) const;

  // Formula cells that refer to any cell of the block directly, sorted by workbook, sheet,
  // row and column.
  std::vector<CellKey> directDependents(const Block& block) const;
  // Orders cells as the spreadsheet lists them: workbook order, sheet order, row, column.
  bool comesBefore(const CellKey& a, const CellKey& b) const;

  // Registers (or with an empty function, removes) a worksheet function; names ignore letter
  // case. The cells that call it are recalculated. An empty name raises 5.
  void registerFunction(const std::string& name, host::WorksheetFunction function);

  // Recalculates every formula.
  void recalculateAll();
  // While suspended, changes are stored without recalculation; resuming recalculates all.
  void setCalculationSuspended(bool suspended);

  // Counts every change of content, structure or values; lets a view know when to repaint.
  uint64_t revision() const { return revision_; }

 private:
  Variant cellValue(const CellKey& cell) const override;
  void forEachValue(const Block& block,
                    const std::function<bool(const Variant&)>& visit) const override;
  const host::WorksheetFunction* function(const std::string& upperName) const override;

  void setFormula(const CellKey& key, std::string_view text);
  void setConstant(const CellKey& key, const Variant& value);
  void forgetFormula(const CellKey& key);
  void link(const CellKey& key, FormulaCell& formula);
  std::vector<BoundReference> bindAll(const ParsedFormula& parsed, SheetId context) const;
  void rebindAll();
  void recalculate(std::vector<CellKey> changed);
  void sortCells(std::vector<CellKey>& cells) const;
  Cell* cellAt(const CellKey& key) const;

  std::vector<std::shared_ptr<Book>> books_;
  std::vector<std::shared_ptr<Sheet>> sheets_;  // indexed by SheetId
  std::unordered_map<std::string, host::WorksheetFunction> functions_;
  std::unordered_map<std::string, std::unordered_set<CellKey>> functionUsers_;
  DependencyGraph graph_;
  bool suspended_ = false;
  uint64_t revision_ = 0;
};

}  // namespace kxc::workbook
