// Remembered aggregation results per cache, keyed by measure, aggregation and filter texts;
// a cache's entries are dropped whenever its transactions change.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>

#include "platform/variant.h"

namespace kxc::engine {

class ValueMemo {
 public:
  // Entries kept per cache; when full, that cache's entries are dropped and collected afresh.
  static constexpr size_t kMaxEntries = 100000;

  // The key of one query, or nothing when a filter is of a type that is not remembered.
  static std::optional<std::string> key(int measure, int aggregation,
                                        std::span<const Variant> filters);

  std::optional<double> find(int64_t cacheId, const std::string& key) const;
  void store(int64_t cacheId, std::string key, double value);
  void invalidate(int64_t cacheId) { entries_.erase(cacheId); }
  void clear() { entries_.clear(); }

 private:
  std::unordered_map<int64_t, std::unordered_map<std::string, double>> entries_;
};

}  // namespace kxc::engine
