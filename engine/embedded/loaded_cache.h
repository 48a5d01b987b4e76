// A cache held in memory for fast aggregation: its definition, its transaction columns, a
// posting list (ascending row numbers) per member of every dimension, member lookup by value
// and caption, and the precomputed total of every measure.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/accumulator.h"
#include "engine/cache_columns.h"
#include "engine/cache_definition.h"

namespace kxc::engine {

using RowId = uint32_t;

class LoadedCache {
 public:
  // Builds the posting lists, lookups and totals. Member numbers in `columns` must be valid
  // for `definition` (the store checks them).
  LoadedCache(int64_t id, CacheDefinition definition, CacheColumns columns);

  int64_t id() const { return id_; }
  const std::string& name() const { return def_.name; }
  const CacheDefinition& definition() const { return def_; }
  const CacheColumns& columns() const { return cols_; }
  size_t rowCount() const { return cols_.rowCount(); }
  int dimensionCount() const { return static_cast<int>(def_.dimensions.size()); }
  int measureCount() const { return static_cast<int>(def_.measures.size()); }
  int memberCount(int dim) const { return static_cast<int>(def_.dimensions[dim].members.size()); }

  const std::vector<RowId>& postings(int dim, int32_t member) const {
    return postings_[dim][member];
  }

  // The member of dimension `dim` (0-based) whose value is `text`, else whose caption is; the
  // first one in member order wins when several share it.
  std::optional<int32_t> findMember(int dim, std::string_view text) const;

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

  int64_t id_;
  CacheDefinition def_;
  CacheColumns cols_;
  std::vector<std::vector<std::vector<RowId>>> postings_;  // [dim][member] -> rows
  std::vector<std::unordered_map<std::string, int32_t>> byValue_;
  std::vector<std::unordered_map<std::string, int32_t>> byCaption_;
  std::vector<Accumulator> totals_;
};

}  // namespace kxc::engine
