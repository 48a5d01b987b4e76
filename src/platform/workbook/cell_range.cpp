#include "platform/workbook/cell_range.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "platform/runtime_error.h"
#include "platform/workbook/address_writer.h"
#include "platform/workbook/host_errors.h"

namespace kxc::workbook {

CellRange::CellRange(std::shared_ptr<RangeOwner> owner, std::vector<Block> blocks)
    : owner_(std::move(owner)), blocks_(std::move(blocks)) {}

host::RangeRef CellRange::rangeOf(std::vector<Block> blocks) const {
  return std::make_shared<CellRange>(owner_, std::move(blocks));
}

int64_t CellRange::totalCells() const {
  int64_t total = 0;
  for (const Block& b : blocks_) total += b.area.cellCount();
  return total;
}

std::string CellRange::formula() const {
  std::optional<std::string> common;
  for (const Block& b : blocks_) {
    int64_t stored = 0;
    bool differ = false;
    model().sheet(b.sheet)->cells().forEachIn(b.area, [&](int32_t r, int32_t c, const Cell&) {
      ++stored;
      std::string f = model().formula({b.sheet, r, c});
      if (!common) common = f;
      differ = *common != f;
      return !differ;
    });
    if (differ) return "";
    // Empty cells have the formula "": a block with some of them has no common formula
    // unless all of its cells are empty.
    if (stored < b.area.cellCount()) {
      if (common && !common->empty()) return "";
      common = "";
    }
  }
  return common.value_or("");
}

void CellRange::setFormula(const std::string& text) { owner_->writeFromCode(blocks_, text); }

Variant CellRange::value() const {
  if (blocks_.size() != 1 || !blocks_.front().area.isSingleCell()) {
    throw RuntimeError(err::kTypeMismatch);
  }
  const Block& b = blocks_.front();
  return model().value({b.sheet, b.area.top, b.area.left});
}

void CellRange::setValue(const Variant& value) { owner_->writeFromCode(blocks_, value); }

std::string CellRange::address(bool rowAbsolute, bool columnAbsolute, bool external) const {
  std::string out;
  for (const Block& b : blocks_) {
    if (!out.empty()) out += ",";
    if (external) {
      const auto& sheet = model().sheet(b.sheet);
      auto book = sheet->book();
      out += externalQualifier(book ? book->name() : "", sheet->name());
    }
    out += areaAddress(b.area, rowAbsolute, columnAbsolute);
  }
  return out;
}

int32_t CellRange::count() const {
  int64_t total = totalCells();
  if (total > std::numeric_limits<int32_t>::max()) throw RuntimeError(err::kOverflow);
  return static_cast<int32_t>(total);
}

host::RangeRef CellRange::cells(int32_t row, int32_t column) const {
  const Block& first = blocks_.front();
  int64_t r = int64_t{first.area.top} + row - 1;
  int64_t c = int64_t{first.area.left} + column - 1;
  if (!isValidRow(r) || !isValidColumn(c)) {
    throw RuntimeError(err::kHost, hosterr::kObjectDefined);
  }
  return rangeOf({{first.sheet, Area::cell(static_cast<int32_t>(r), static_cast<int32_t>(c))}});
}

std::shared_ptr<host::Worksheet> CellRange::worksheet() const {
  return model().sheet(blocks_.front().sheet);
}

std::string CellRange::name() const {
  std::string found = blocks_.size() == 1 ? model().nameOf(blocks_.front()) : "";
  if (found.empty()) throw RuntimeError(err::kHost, hosterr::kObjectDefined);
  return found;
}

host::RangeRef CellRange::directDependents() const {
  std::vector<CellKey> cells;
  for (const Block& b : blocks_) {
    for (const CellKey& k : model().directDependents(b)) {
      if (std::find(cells.begin(), cells.end(), k) == cells.end()) cells.push_back(k);
    }
  }
  if (cells.empty()) throw RuntimeError(err::kHost, hosterr::kNoCellsFound);
  if (blocks_.size() > 1) {
    std::sort(cells.begin(), cells.end(),
              [&](const CellKey& a, const CellKey& b) { return model().comesBefore(a, b); });
  }
  std::vector<Block> blocks;
  blocks.reserve(cells.size());
  for (const CellKey& k : cells) blocks.push_back({k.sheet, Area::cell(k.row, k.column)});
  return rangeOf(std::move(blocks));
}

std::vector<host::RangeRef> CellRange::cellList() const {
  if (totalCells() > kMaxListedCells) throw RuntimeError(err::kHost, hosterr::kObjectDefined);
  std::vector<host::RangeRef> out;
  for (const Block& b : blocks_) {
    for (int32_t r = b.area.top; r <= b.area.bottom; ++r) {
      for (int32_t c = b.area.left; c <= b.area.right; ++c) {
        out.push_back(rangeOf({{b.sheet, Area::cell(r, c)}}));
      }
    }
  }
  return out;
}

}  // namespace kxc::workbook
