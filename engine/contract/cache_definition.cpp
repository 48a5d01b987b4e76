#include "engine/cache_definition.h"

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

}  // namespace kxc::engine
