// The host Range over the in-memory spreadsheet: one or more blocks of cells.
#pragma once

#include <memory>
#include <vector>

#include "platform/host/range.h"
#include "platform/workbook/grid.h"
#include "platform/workbook/spreadsheet.h"

namespace kxc::workbook {

// What a range needs from the application that made it.
class RangeOwner {
 public:
  virtual ~RangeOwner() = default;
  virtual Spreadsheet& spreadsheet() = 0;
  // Writes as program code writes a cell: stores, recalculates and raises SheetChange.
  virtual void writeFromCode(const std::vector<Block>& blocks, const Variant& value) = 0;
};

// Keeps its owner alive. `blocks` must not be empty and must name existing sheets.
class CellRange : public host::Range {
 public:
  CellRange(std::shared_ptr<RangeOwner> owner, std::vector<Block> blocks);

  std::string formula() const override;
  void setFormula(const std::string& text) override;
  Variant value() const override;
  void setValue(const Variant& value) override;
  Variant value2() const override { return value(); }
  std::string address(bool rowAbsolute = true, bool columnAbsolute = true,
                      bool external = false) const override;
  // Raises 6 when the number of cells does not fit 32 bits (whole sheets).
  int32_t count() const override;
  host::RangeRef cells(int32_t row, int32_t column) const override;
  int32_t row() const override { return blocks_.front().area.top; }
  int32_t column() const override { return blocks_.front().area.left; }
  std::shared_ptr<host::Worksheet> worksheet() const override;
  std::string name() const override;
  host::RangeRef directDependents() const override;
  // Raises 1004 for more than kMaxListedCells cells.
  std::vector<host::RangeRef> cellList() const override;

  const std::vector<Block>& blocks() const { return blocks_; }

  static constexpr int64_t kMaxListedCells = int64_t{1} << 20;

 private:
  Spreadsheet& model() const { return owner_->spreadsheet(); }
  host::RangeRef rangeOf(std::vector<Block> blocks) const;
  int64_t totalCells() const;

  std::shared_ptr<RangeOwner> owner_;
  std::vector<Block> blocks_;
};

}  // namespace kxc::workbook
