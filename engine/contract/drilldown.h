// The transaction drill-down: pending criteria rows, and writing the transactions a backend
// finds into a grid object.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "engine/contract/cache_backend.h"
#include "engine/contract/cache_model.h"
#include "platform/dispatch.h"

namespace kxc::engine {

// One criteria row as the caller sent it: the cache argument and its dimension filters. The
// filters are read when the drill-down runs, so a bad one is reported then.
struct DrilldownCriteria {
  Variant cache;
  std::vector<Variant> filters;
};

// Rows per SetBlock call: big enough to keep calls few, small enough to keep each text modest.
inline constexpr size_t kGridChunkRows = 4096;

// Empties `grid` and sets its size to no rows and no columns.
void clearGrid(const ObjectRef& grid);

// Fills `grid` (a dispatch object with ClearAll, MaxCols, MaxRows, SetBlock) with the
// transactions it is given: begin() empties the grid, sizes it and writes the column headers
// in row 0 (dimension captions, measure captions, "Date", "Reference"); then one row per
// transaction: member values, measure values in their display format (blank for none), the
// date and the reference, sent in blocks of kGridChunkRows; finish() sends the last block.
// Tabs and line breaks inside texts become blanks. Errors of the grid's members propagate.
class GridFiller : public TransactionSink {
 public:
  // `cache` and `grid` must outlive the filler; 424 when `grid` is null.
  GridFiller(const CacheModel& cache, ObjectRef grid);

  void begin(size_t rows) override;
  void row(std::span<const int32_t> members, std::span<const double> values, std::string_view date,
           std::string_view reference) override;
  // Sends what is pending and returns the number of transactions written.
  size_t finish();

 private:
  void flush();

  const CacheModel& cache_;
  ObjectRef grid_;
  std::string block_;
  size_t pending_ = 0;  // rows in block_
  size_t written_ = 0;  // rows sent before block_
};

}  // namespace kxc::engine
