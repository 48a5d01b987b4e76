// A cache held in memory for fast aggregation: its transaction columns, a posting list
// (ascending row numbers) per member of every dimension, and the precomputed total of every
// measure, beside the cache's model (definition and member lookup).
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/contract/accumulator.h"
#include "engine/contract/cache_model.h"
#include "engine/embedded/cache_columns.h"

namespace kxc::engine {

using RowId = uint32_t;

class LoadedCache {
 public:
  // Builds the posting lists and totals. Member numbers in `columns` must be valid for the
  // model's definition (the store checks them).
  LoadedCache(std::shared_ptr<const CacheModel> model, CacheColumns columns);

  const CacheModel& model() const { return *model_; }
  const std::shared_ptr<const CacheModel>& modelRef() const { return model_; }
  int64_t id() const { return model_->id(); }
  const std::string& name() const { return model_->name(); }
  const CacheDefinition& definition() const { return model_->definition(); }
  const CacheColumns& columns() const { return cols_; }
  size_t rowCount() const { return cols_.rowCount(); }
  int dimensionCount() const { return model_->dimensionCount(); }
  int measureCount() const { return model_->measureCount(); }
  int memberCount(int dim) const { return model_->memberCount(dim); }

  const std::vector<RowId>& postings(int dim, int32_t member) const {
    return postings_[dim][member];
  }

  // The measure's aggregate over every transaction (0-based measure).
  const Accumulator& total(int measure) const { return totals_[measure]; }

  // Appends transactions (a write-back) and keeps postings and totals current.
  void appendRows(std::span<const std::vector<int32_t>> members, int measure,
                  std::span<const double> values, std::string_view date,
                  std::string_view reference);
  // Drops every transaction from `rows` on (an undone write-back).
  void truncate(size_t rows);

 private:
  void index(size_t firstRow);
  void computeTotals();

  std::shared_ptr<const CacheModel> model_;
  CacheColumns cols_;
  std::vector<std::vector<std::vector<RowId>>> postings_;  // [dim][member] -> rows
  std::vector<Accumulator> totals_;
};

}  // namespace kxc::engine
