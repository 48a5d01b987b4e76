// CacheFormula: the parsed form of a cache formula (cache, measure and dimension arguments).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kxc {

// One cache formula taken apart. A value type; the process keeps the current one in
// gCurrentFormula. The empty record (texts "", numbers 0, no dimension array) is the starting
// state and what clear() produces.
//
// The dimension arguments form a 1-based array that exists only once it has been created
// (redimDims). Dims(i) is valid for 1 <= i <= DimCount while the array holds at least i
// entries; any other index raises RuntimeError 9 "Subscript out of range". DimCount is -1
// for a formula that holds only a cache argument; the parser creates DimCount entries but
// fills at most the first 20.
struct CacheFormula {
  std::string Cache;         // the cache argument as written, without enclosing quotes
  int32_t CacheIndex = 0;    // what the engine's CacheFind answered for the resolved cache
  std::string Measure;       // the measure argument as written
  int32_t MeasureIndex = 0;  // numeric value of the resolved measure
  int32_t DimCount = 0;      // number of arguments after the measure; -1 for a cache only

  std::string& Dims(int32_t index);
  const std::string& Dims(int32_t index) const;

  // True once the dimension array exists.
  bool hasDims() const { return !dims_.empty(); }
  // Number of entries the dimension array holds (0 when it does not exist).
  int32_t dimsSize() const { return static_cast<int32_t>(dims_.size()); }
  // All stored entries, index 1 first.
  const std::vector<std::string>& dimList() const { return dims_; }

  // Creates the array with indices 1 to `upper`, all "". An upper bound below 1 raises 9, as
  // an array cannot have fewer than one element; DimCount is not changed.
  void redimDims(int32_t upper);
  // Resizes the array to 1..`upper`, keeping the entries already there; below 1 raises 9.
  void redimDimsPreserve(int32_t upper);
  // Drops the array.
  void eraseDims() { dims_.clear(); }

  // Back to the empty record.
  void clear() { *this = CacheFormula(); }

  bool operator==(const CacheFormula&) const = default;

 private:
  std::vector<std::string> dims_;
};

}  // namespace kxc
