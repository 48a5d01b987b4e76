#include "platform/workbook/in_memory_application.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "platform/workbook/address_writer.h"
#include "platform/workbook/host_errors.h"

namespace kxc::workbook {
namespace {

std::vector<CellKey> cellsOf(const std::vector<Block>& blocks) {
  int64_t total = 0;
  for (const Block& b : blocks) total += b.area.cellCount();
  if (total > CellRange::kMaxListedCells) throw RuntimeError(err::kHost, hosterr::kObjectDefined);
  std::vector<CellKey> cells;
  cells.reserve(static_cast<size_t>(total));
  for (const Block& b : blocks) {
    for (int32_t r = b.area.top; r <= b.area.bottom; ++r) {
      for (int32_t c = b.area.left; c <= b.area.right; ++c) cells.push_back({b.sheet, r, c});
    }
  }
  return cells;
}

}  // namespace

std::shared_ptr<InMemoryApplication> InMemoryApplication::create(std::string caption) {
  return std::shared_ptr<InMemoryApplication>(new InMemoryApplication(std::move(caption)));
}

InMemoryApplication::InMemoryApplication(std::string caption) : caption_(std::move(caption)) {}

InMemoryApplication::~InMemoryApplication() = default;

void InMemoryApplication::changed() {
  if (observer_) observer_();
}

std::shared_ptr<Book> InMemoryApplication::bookNamed(const std::string& name) const {
  auto book = model_.findWorkbook(name);
  if (!book) throw RuntimeError(err::kSubscript);
  return book;
}

std::shared_ptr<Sheet> InMemoryApplication::sheetNamed(const std::string& workbookName,
                                                       const std::string& sheetName) const {
  auto sheet = bookNamed(workbookName)->findSheet(sheetName);
  if (!sheet) throw RuntimeError(err::kSubscript);
  return sheet;
}

Sheet& InMemoryApplication::requireActiveSheet() const {
  if (!activeSheet_) throw RuntimeError(err::kObjectNotSet);
  return *activeSheet_;
}

std::vector<Block> InMemoryApplication::resolveOrFail(const std::string& reference) const {
  if (!activeSheet_) throw RuntimeError(err::kHost, hosterr::kRangeFailed);
  return model_.resolve(reference, activeSheet_->id());
}

host::RangeRef InMemoryApplication::rangeOf(std::vector<Block> blocks) {
  std::shared_ptr<RangeOwner> owner(shared_from_this(), static_cast<RangeOwner*>(this));
  return std::make_shared<CellRange>(std::move(owner), std::move(blocks));
}

std::vector<Block> InMemoryApplication::selectionBlocks(const Sheet& sheet) const {
  std::vector<Block> blocks;
  for (const Area& a : sheet.selection()) blocks.push_back({sheet.id(), a});
  return blocks;
}

// --- workbooks and sheets ---

std::shared_ptr<host::Workbook> InMemoryApplication::addWorkbook(const std::string& name,
                                                                 const std::string& firstSheet) {
  if (!isValidSheetName(firstSheet)) throw RuntimeError(err::kHost, hosterr::kInvalidName);
  auto book = model_.addWorkbook(name);
  activeSheet_ = model_.addSheet(*book, firstSheet);
  changed();
  return book;
}

std::shared_ptr<host::Worksheet> InMemoryApplication::addSheet(const std::string& workbookName,
                                                               const std::string& sheetName) {
  auto sheet = model_.addSheet(*bookNamed(workbookName), sheetName);
  changed();
  return sheet;
}

void InMemoryApplication::activateSheet(const std::string& workbookName,
                                        const std::string& sheetName) {
  activeSheet_ = sheetNamed(workbookName, sheetName);
  ++selectionRevision_;
  changed();
}

void InMemoryApplication::defineName(const std::string& name, const std::string& reference) {
  if (!activeSheet_) throw RuntimeError(err::kHost, hosterr::kRangeFailed);
  model_.defineName(*activeSheet_->book(), name, reference, activeSheet_->id());
  changed();
}

// --- user actions ---

void InMemoryApplication::select(const std::string& reference) {
  std::vector<Block> blocks = resolveOrFail(reference);
  SheetId sheetId = blocks.front().sheet;
  std::vector<Area> areas;
  for (const Block& b : blocks) {
    if (b.sheet != sheetId) throw RuntimeError(err::kHost, hosterr::kRangeFailed);
    areas.push_back(b.area);
  }
  std::shared_ptr<Sheet> sheet = model_.sheet(sheetId);
  sheet->setSelection(std::move(areas));
  activeSheet_ = sheet;
  ++selectionRevision_;
  changed();
  host::RangeRef target = rangeOf(std::move(blocks));
  raise([&](host::ApplicationEvents& sink) { sink.sheetSelectionChange(*sheet, target); });
}

void InMemoryApplication::type(const std::string& text) {
  Sheet& sheet = requireActiveSheet();
  const Area& first = sheet.selection().front();
  CellKey cell{sheet.id(), first.top, first.left};
  model_.enter({&cell, 1}, text);
  changed();
  raiseChange({{cell.sheet, Area::cell(cell.row, cell.column)}});
}

void InMemoryApplication::typeInto(const std::string& reference, const std::string& text) {
  select(reference);
  type(text);
}

void InMemoryApplication::clearSelection() {
  const std::vector<Block> blocks = selectionBlocks(requireActiveSheet());
  model_.enter(cellsOf(blocks), "");
  changed();
  raiseChange(blocks);
}

bool InMemoryApplication::doubleClick(const std::string& reference) {
  select(reference);
  std::shared_ptr<Sheet> sheet = activeSheet_;
  host::RangeRef target = rangeOf(selectionBlocks(*sheet));
  bool cancel = false;
  raise(
      [&](host::ApplicationEvents& sink) { sink.sheetBeforeDoubleClick(*sheet, target, cancel); });
  return cancel;
}

void InMemoryApplication::uninstallAddin(const std::string& workbookName) {
  std::shared_ptr<Book> book = model_.findWorkbook(workbookName);
  if (!book) book = std::make_shared<Book>(workbookName);
  raise([&](host::ApplicationEvents& sink) { sink.workbookAddinUninstall(*book); });
}

// --- direct access ---

void InMemoryApplication::setCell(const std::string& reference, const std::string& text) {
  std::vector<CellKey> cells = cellsOf(resolveOrFail(reference));
  model_.enter(cells, text);
  changed();
}

std::string InMemoryApplication::displayText(const std::string& reference) {
  const Block first = resolveOrFail(reference).front();
  return model_.displayText({first.sheet, first.area.top, first.area.left});
}

void InMemoryApplication::recalculate() {
  model_.recalculateAll();
  changed();
}

void InMemoryApplication::setCalculationSuspended(bool suspended) {
  model_.setCalculationSuspended(suspended);
  changed();
}

// --- window support ---

std::vector<std::string> InMemoryApplication::workbookNames() const {
  std::vector<std::string> names;
  for (const auto& b : model_.workbooks()) names.push_back(b->name());
  return names;
}

std::vector<std::string> InMemoryApplication::sheetNames(const std::string& workbookName) const {
  std::vector<std::string> names;
  for (const auto& s : bookNamed(workbookName)->sheets()) names.push_back(s->name());
  return names;
}

std::string InMemoryApplication::activeWorkbookName() const {
  return activeSheet_ ? activeSheet_->book()->name() : "";
}

std::string InMemoryApplication::activeSheetName() const {
  return activeSheet_ ? activeSheet_->name() : "";
}

std::optional<Area> InMemoryApplication::usedRange(const std::string& workbookName,
                                                   const std::string& sheetName) const {
  return sheetNamed(workbookName, sheetName)->cells().usedArea();
}

std::string InMemoryApplication::cellFormula(const std::string& workbookName,
                                             const std::string& sheetName, int32_t row,
                                             int32_t column) const {
  return model_.formula({sheetNamed(workbookName, sheetName)->id(), row, column});
}

Variant InMemoryApplication::cellValue(const std::string& workbookName,
                                       const std::string& sheetName, int32_t row,
                                       int32_t column) const {
  return model_.value({sheetNamed(workbookName, sheetName)->id(), row, column});
}

std::string InMemoryApplication::cellText(const std::string& workbookName,
                                          const std::string& sheetName, int32_t row,
                                          int32_t column) const {
  return model_.displayText({sheetNamed(workbookName, sheetName)->id(), row, column});
}

std::string InMemoryApplication::selectionAddress() const {
  if (!activeSheet_) return "";
  std::string out;
  for (const Area& a : activeSheet_->selection()) {
    if (!out.empty()) out += ",";
    out += areaAddress(a);
  }
  return out;
}

uint64_t InMemoryApplication::revision() const { return model_.revision() + selectionRevision_; }

void InMemoryApplication::setChangeObserver(std::function<void()> observer) {
  observer_ = std::move(observer);
}

void InMemoryApplication::setEventFailureHandler(
    std::function<void(const std::string& description)> handler) {
  events_.setFailureHandler(std::move(handler));
}

// --- command bars ---

void InMemoryApplication::setCommandHandler(
    std::function<void(const std::string& command)> handler) {
  commandHandler_ = std::move(handler);
}

void InMemoryApplication::runControl(const host::ControlRef& control) {
  if (!control || !commandHandler_) return;
  std::string command = control->onAction();
  if (!command.empty()) commandHandler_(command);
}

// --- host::Application ---

host::RangeRef InMemoryApplication::activeCell() {
  Sheet& sheet = requireActiveSheet();
  const Area& first = sheet.selection().front();
  return rangeOf({{sheet.id(), Area::cell(first.top, first.left)}});
}

host::RangeRef InMemoryApplication::rangeSelection() {
  return rangeOf(selectionBlocks(requireActiveSheet()));
}

host::RangeRef InMemoryApplication::selection() { return rangeSelection(); }

host::RangeRef InMemoryApplication::range(const std::string& reference) {
  return rangeOf(resolveOrFail(reference));
}

void InMemoryApplication::subscribe(const std::shared_ptr<host::ApplicationEvents>& sink) {
  events_.subscribe(sink);
}

void InMemoryApplication::unsubscribe(const host::ApplicationEvents* sink) {
  events_.unsubscribe(sink);
}

void InMemoryApplication::registerFunction(const std::string& name,
                                           host::WorksheetFunction function) {
  model_.registerFunction(name, std::move(function));
  changed();
}

// --- writes from code and events ---

void InMemoryApplication::writeFromCode(const std::vector<Block>& blocks, const Variant& value) {
  model_.store(cellsOf(blocks), value);
  changed();
  raiseChange(blocks);
}

void InMemoryApplication::raiseChange(const std::vector<Block>& blocks) {
  // One event per sheet, with the changed cells of that sheet as its target.
  std::vector<SheetId> sheets;
  for (const Block& b : blocks) {
    if (std::find(sheets.begin(), sheets.end(), b.sheet) == sheets.end()) sheets.push_back(b.sheet);
  }
  for (SheetId id : sheets) {
    std::vector<Block> onSheet;
    for (const Block& b : blocks) {
      if (b.sheet == id) onSheet.push_back(b);
    }
    std::shared_ptr<Sheet> sheet = model_.sheet(id);
    host::RangeRef target = rangeOf(std::move(onSheet));
    raise([&](host::ApplicationEvents& sink) { sink.sheetChange(*sheet, target); });
  }
}

void InMemoryApplication::raise(const std::function<void(host::ApplicationEvents&)>& event) {
  if (eventDepth_ >= kMaxEventNesting) return;
  ++eventDepth_;
  events_.deliver(event);
  --eventDepth_;
}

}  // namespace kxc::workbook
