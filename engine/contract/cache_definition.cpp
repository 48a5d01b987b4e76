#include "engine/contract/cache_definition.h"

#include "platform/runtime_error.h"
#include "platform/text_rules.h"

namespace kxc::engine {

std::string_view aggregationName(Aggregation a) {
  switch (a) {
    case Aggregation::Sum:
      return "sum";
    case Aggregation::Count:
      return "count";
    case Aggregation::Min:
      return "min";
    case Aggregation::Max:
      return "max";
    case Aggregation::Average:
      return "average";
  }
  return "sum";
}

std::optional<Aggregation> parseAggregation(std::string_view name) {
  std::string up = upperCase(trimBlanks(name));
  if (up == "SUM") return Aggregation::Sum;
  if (up == "COUNT") return Aggregation::Count;
  if (up == "MIN") return Aggregation::Min;
  if (up == "MAX") return Aggregation::Max;
  if (up == "AVERAGE" || up == "AVG") return Aggregation::Average;
  return std::nullopt;
}

void checkCacheShape(const std::string& name, size_t dimensions, size_t measures) {
  if (trimBlanks(name).empty()) throw RuntimeError(err::kInvalidCall, "A cache needs a name");
  if (dimensions == 0) throw RuntimeError(err::kInvalidCall, "A cache needs a dimension");
  if (dimensions > static_cast<size_t>(kMaxDimensions)) {
    throw RuntimeError(err::kInvalidCall,
                       "A cache has at most " + std::to_string(kMaxDimensions) + " dimensions");
  }
  if (measures == 0) throw RuntimeError(err::kInvalidCall, "A cache needs a measure");
}

}  // namespace kxc::engine
