#include "platform/workbook/spreadsheet.h"

#include <algorithm>
#include <tuple>

#include "platform/runtime_error.h"
#include "platform/text_rules.h"
#include "platform/workbook/formula_parser.h"
#include "platform/workbook/host_errors.h"
#include "platform/workbook/typed_entry.h"

namespace kxc::workbook {
namespace {

[[noreturn]] void raiseHost(const char* description) {
  throw RuntimeError(err::kHost, description);
}

// Splits "A1,Sheet2!B2" at the commas that stand outside quotes and brackets.
std::vector<std::string_view> splitUnion(std::string_view text) {
  std::vector<std::string_view> parts;
  bool quoted = false;
  int brackets = 0;
  size_t start = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (c == '\'') quoted = !quoted;  // a doubled quote flips twice: still inside
    if (quoted) continue;
    if (c == '[') ++brackets;
    if (c == ']') --brackets;
    if (c == ',' && brackets == 0) {
      parts.push_back(text.substr(start, i - start));
      start = i + 1;
    }
  }
  parts.push_back(text.substr(start));
  return parts;
}

}  // namespace

bool isValidWorkbookName(std::string_view name) {
  return !trimBlanks(name).empty() && name.find_first_of("\\/:*?\"<>[]|") == std::string::npos;
}

bool isValidSheetName(std::string_view name) {
  size_t chars = charCount(name);
  return chars >= 1 && chars <= 31 && name.find_first_of(":\\/?*[]") == std::string::npos &&
         name.front() != '\'' && name.back() != '\'';
}

std::shared_ptr<Book> Spreadsheet::addWorkbook(const std::string& name) {
  if (!isValidWorkbookName(name)) raiseHost(hosterr::kInvalidName);
  if (findWorkbook(name)) raiseHost(hosterr::kNameTaken);
  auto book = std::make_shared<Book>(name);
  books_.push_back(book);
  ++revision_;
  rebindAll();
  return book;
}

std::shared_ptr<Sheet> Spreadsheet::addSheet(Book& book, const std::string& name) {
  if (!isValidSheetName(name)) raiseHost(hosterr::kInvalidName);
  if (book.findSheet(name)) raiseHost(hosterr::kNameTaken);
  auto sheet =
      std::make_shared<Sheet>(static_cast<SheetId>(sheets_.size()), name, book.weak_from_this());
  sheets_.push_back(sheet);
  book.appendSheet(sheet);
  ++revision_;
  rebindAll();
  return sheet;
}

std::shared_ptr<Book> Spreadsheet::findWorkbook(std::string_view name) const {
  for (const auto& b : books_) {
    if (sameName(b->name(), name)) return b;
  }
  return nullptr;
}

BoundReference Spreadsheet::bind(const ReferenceSyntax& ref, SheetId context) const {
  auto failed = [](CellError e) {
    BoundReference out;
    out.error = e;
    return out;
  };
  auto named = [&](const Book& book) {
    const DefinedName* name = book.findName(ref.name);
    return name ? BoundReference{std::nullopt, name->block} : failed(cellerr::kName);
  };
  std::shared_ptr<Sheet> sheet = sheets_.at(context);
  std::shared_ptr<Book> book = sheet->book();
  if (ref.workbook) {
    book = findWorkbook(*ref.workbook);
    if (!book) return failed(cellerr::kRef);
  }
  if (ref.sheet) {
    sheet = book ? book->findSheet(*ref.sheet) : nullptr;
    if (!sheet) {
      // "Book1.xlsx!Region": a workbook-level name qualified by its workbook.
      if (ref.isName && !ref.workbook) {
        if (auto other = findWorkbook(*ref.sheet)) return named(*other);
      }
      return failed(cellerr::kRef);
    }
  }
  if (!book) return failed(cellerr::kRef);
  if (ref.isName) return named(*book);
  return {std::nullopt, {sheet->id(), ref.area}};
}

std::vector<Block> Spreadsheet::resolve(std::string_view text, SheetId context) const {
  if (context >= sheets_.size()) raiseHost(hosterr::kRangeFailed);
  std::vector<Block> blocks;
  for (std::string_view part : splitUnion(text)) {
    auto ref = parseReference(part);
    if (!ref) raiseHost(hosterr::kRangeFailed);
    BoundReference bound = bind(*ref, context);
    if (bound.error) raiseHost(hosterr::kRangeFailed);
    blocks.push_back(bound.block);
  }
  return blocks;
}

void Spreadsheet::defineName(Book& book, const std::string& name, std::string_view reference,
                             SheetId context) {
  if (!isValidDefinedName(name)) raiseHost(hosterr::kInvalidName);
  std::string_view target = trimBlanks(reference);
  if (startsWith(target, "=")) target.remove_prefix(1);
  std::vector<Block> blocks = resolve(target, context);
  if (blocks.size() != 1) raiseHost(hosterr::kRangeFailed);
  book.setName(name, blocks.front());
  ++revision_;
  rebindAll();
}

std::string Spreadsheet::nameOf(const Block& block) const {
  std::shared_ptr<Book> book = sheets_.at(block.sheet)->book();
  if (!book) return "";
  for (const DefinedName& n : book->names()) {
    if (n.block == block) return n.name;
  }
  return "";
}

Cell* Spreadsheet::cellAt(const CellKey& key) const {
  return sheets_.at(key.sheet)->cells().find(key.row, key.column);
}

void Spreadsheet::enter(std::span<const CellKey> cells, std::string_view text) {
  TypedEntry entry = readTypedEntry(text);
  for (const CellKey& key : cells) {
    if (entry.isFormula) {
      setFormula(key, text);
    } else {
      setConstant(key, entry.value);
    }
  }
  recalculate({cells.begin(), cells.end()});
}

void Spreadsheet::store(std::span<const CellKey> cells, const Variant& value) {
  switch (value.type()) {
    case VarType::Text:
      enter(cells, value.text());
      return;
    case VarType::Object:
      throw RuntimeError(err::kTypeMismatch);
    case VarType::Int16:
    case VarType::Int32:
      for (const CellKey& key : cells) setConstant(key, value.toDouble());
      break;
    default:
      for (const CellKey& key : cells) setConstant(key, value);
      break;
  }
  recalculate({cells.begin(), cells.end()});
}

void Spreadsheet::forgetFormula(const CellKey& key) {
  Cell* cell = cellAt(key);
  if (!cell || !cell->formula) return;
  for (const std::string& fn : cell->formula->parsed.functions) {
    auto it = functionUsers_.find(fn);
    if (it == functionUsers_.end()) continue;
    it->second.erase(key);
    if (it->second.empty()) functionUsers_.erase(it);
  }
  graph_.remove(key);
  cell->formula.reset();
}

void Spreadsheet::setConstant(const CellKey& key, const Variant& value) {
  forgetFormula(key);
  CellStore& store = sheets_.at(key.sheet)->cells();
  if (value.isEmpty()) {
    store.erase(key.row, key.column);
  } else {
    store.at(key.row, key.column).value = value;
  }
  ++revision_;
}

void Spreadsheet::setFormula(const CellKey& key, std::string_view text) {
  forgetFormula(key);
  auto formula = std::make_unique<FormulaCell>();
  formula->text = std::string(text);
  formula->parsed = parseFormula(text);
  formula->bound = bindAll(formula->parsed, key.sheet);
  for (const std::string& fn : formula->parsed.functions) functionUsers_[fn].insert(key);
  Cell& cell = sheets_.at(key.sheet)->cells().at(key.row, key.column);
  link(key, *formula);
  cell.formula = std::move(formula);
  cell.value = 0.0;  // until calculated
  ++revision_;
}

std::vector<BoundReference> Spreadsheet::bindAll(const ParsedFormula& parsed,
                                                 SheetId context) const {
  std::vector<BoundReference> bound;
  bound.reserve(parsed.references.size());
  for (const ReferenceSyntax& ref : parsed.references) bound.push_back(bind(ref, context));
  return bound;
}

void Spreadsheet::link(const CellKey& key, FormulaCell& formula) {
  std::vector<Block> precedents;
  for (const BoundReference& b : formula.bound) {
    if (!b.error && std::find(precedents.begin(), precedents.end(), b.block) == precedents.end()) {
      precedents.push_back(b.block);
    }
  }
  graph_.setPrecedents(key, precedents);
}

// Workbooks, sheets and names that formulas refer to may appear after the formulas; binding
// again picks them up.
void Spreadsheet::rebindAll() {
  std::vector<CellKey> changed;
  for (const CellKey& key : graph_.formulaCells()) {
    Cell* cell = cellAt(key);
    if (!cell || !cell->formula) continue;
    std::vector<BoundReference> bound = bindAll(cell->formula->parsed, key.sheet);
    if (bound == cell->formula->bound) continue;
    cell->formula->bound = std::move(bound);
    link(key, *cell->formula);
    changed.push_back(key);
  }
  if (!changed.empty()) {
    sortCells(changed);
    recalculate(std::move(changed));
  }
}

void Spreadsheet::recalculate(std::vector<CellKey> changed) {
  if (suspended_) return;
  for (const RecalcStep& step : graph_.recalcOrder(changed)) {
    Cell* cell = cellAt(step.cell);
    if (!cell || !cell->formula) continue;
    // A circular chain shows 0, as the spreadsheet shows it when iteration is off.
    cell->value =
        step.cyclic ? Variant(0.0) : evaluate(cell->formula->parsed, cell->formula->bound, *this);
  }
  ++revision_;
}

void Spreadsheet::recalculateAll() {
  std::vector<CellKey> cells = graph_.formulaCells();
  sortCells(cells);
  recalculate(std::move(cells));
}

void Spreadsheet::setCalculationSuspended(bool suspended) {
  if (suspended_ == suspended) return;
  suspended_ = suspended;
  if (!suspended_) recalculateAll();
}

Variant Spreadsheet::value(const CellKey& key) const {
  const Cell* cell = cellAt(key);
  return cell ? cell->value : Variant();
}

std::string Spreadsheet::formula(const CellKey& key) const {
  const Cell* cell = cellAt(key);
  if (!cell) return "";
  if (cell->formula) return cell->formula->text;
  return constantFormulaText(cell->value);
}

std::string Spreadsheet::displayText(const CellKey& key) const { return displayTextOf(value(key)); }

bool Spreadsheet::comesBefore(const CellKey& a, const CellKey& b) const {
  auto rank = [&](const CellKey& k) {
    const auto& sheet = sheets_.at(k.sheet);
    std::shared_ptr<Book> book = sheet->book();
    auto bookAt = std::find(books_.begin(), books_.end(), book) - books_.begin();
    return std::make_tuple(bookAt, book ? book->indexOf(k.sheet) : 0, k.row, k.column);
  };
  return rank(a) < rank(b);
}

void Spreadsheet::sortCells(std::vector<CellKey>& cells) const {
  std::sort(cells.begin(), cells.end(),
            [&](const CellKey& a, const CellKey& b) { return comesBefore(a, b); });
}

std::vector<CellKey> Spreadsheet::directDependents(const Block& block) const {
  std::vector<CellKey> cells = graph_.dependentsOf(block);
  sortCells(cells);
  return cells;
}

void Spreadsheet::registerFunction(const std::string& name, host::WorksheetFunction function) {
  if (name.empty()) throw RuntimeError(err::kInvalidCall);
  std::string key = upperCase(name);
  if (function) {
    functions_[key] = std::move(function);
  } else {
    functions_.erase(key);
  }
  auto users = functionUsers_.find(key);
  if (users == functionUsers_.end()) return;
  std::vector<CellKey> cells(users->second.begin(), users->second.end());
  sortCells(cells);
  recalculate(std::move(cells));
}

Variant Spreadsheet::cellValue(const CellKey& key) const { return value(key); }

void Spreadsheet::forEachValue(const Block& block,
                               const std::function<bool(const Variant&)>& visit) const {
  sheets_.at(block.sheet)->cells().forEachIn(block.area, [&](int32_t, int32_t, const Cell& cell) {
    return visit(cell.value);
  });
}

const host::WorksheetFunction* Spreadsheet::function(const std::string& upperName) const {
  auto it = functions_.find(upperName);
  return it == functions_.end() ? nullptr : &it->second;
}

}  // namespace kxc::workbook
