// The shape of a cache as plain data: dimensions with ordered members, measures with their
// aggregation and display format, and the summary the manager lists.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kxc::engine {

// How a measure's values combine. The numbers are those the aggregation-type argument of the
// value and write-back calls selects (0 there means "the measure's own").
enum class Aggregation { Sum = 1, Count = 2, Min = 3, Max = 4, Average = 5 };

// "sum", "count", "min", "max", "average".
std::string_view aggregationName(Aggregation a);
// The name in any letter case ("avg" is accepted for average); nothing when unknown.
std::optional<Aggregation> parseAggregation(std::string_view name);

struct MemberDef {
  std::string value;
  std::string caption;
};

struct DimensionDef {
  std::string caption;
  std::vector<MemberDef> members;  // in the dimension's order
};

struct MeasureDef {
  std::string caption;
  Aggregation aggregation = Aggregation::Sum;
  std::string format;  // display format such as "#,##0.00"; empty shows the plain number
};

struct CacheDefinition {
  std::string name;
  std::vector<DimensionDef> dimensions;
  std::vector<MeasureDef> measures;
};

struct CacheSummary {
  int64_t id = 0;  // database key, stable while the cache exists
  std::string name;
  int32_t dimensionCount = 0;
  int32_t measureCount = 0;
  int64_t transactionCount = 0;
};

// Most dimension filters a call can carry, and so most dimensions a cache may have.
inline constexpr int kMaxDimensions = 20;

// Raises 5 for a cache that cannot be made: an empty (or blank) name, no dimension, more than
// kMaxDimensions dimensions, or no measure.
void checkCacheShape(const std::string& name, size_t dimensions, size_t measures);

}  // namespace kxc::engine
