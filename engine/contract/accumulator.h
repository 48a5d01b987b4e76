// Running sum, count, minimum and maximum of measure values; NaN (no value) is skipped.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

#include "engine/contract/cache_definition.h"

namespace kxc::engine {

struct Accumulator {
  double sum = 0;
  int64_t count = 0;
  double min = std::numeric_limits<double>::infinity();
  double max = -std::numeric_limits<double>::infinity();

  void add(double v) {
    if (std::isnan(v)) return;
    sum += v;
    ++count;
    if (v < min) min = v;
    if (v > max) max = v;
  }

  void merge(const Accumulator& o) {
    sum += o.sum;
    count += o.count;
    if (o.min < min) min = o.min;
    if (o.max > max) max = o.max;
  }

  // The aggregate; 0 for every aggregation when no value was added.
  double result(Aggregation a) const {
    if (count == 0) return 0;
    switch (a) {
      case Aggregation::Sum:
        return sum;
      case Aggregation::Count:
        return static_cast<double>(count);
      case Aggregation::Min:
        return min;
      case Aggregation::Max:
        return max;
      case Aggregation::Average:
        return sum / static_cast<double>(count);
    }
    return sum;
  }
};

}  // namespace kxc::engine
