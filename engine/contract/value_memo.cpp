#include "engine/contract/value_memo.h"

namespace kxc::engine {

std::optional<std::string> ValueMemo::key(int measure, int aggregation,
                                          std::span<const Variant> filters) {
  std::string k = std::to_string(measure) + ':' + std::to_string(aggregation);
  // Trailing no-filters do not change the answer; dropping them lets "a, b" and
  // "a, b, Empty, Empty" share an entry.
  size_t n = filters.size();
  while (n > 0 && filters[n - 1].isEmpty()) --n;
  for (size_t i = 0; i < n; ++i) {
    const Variant& f = filters[i];
    k += '\x1f';
    switch (f.type()) {
      case VarType::Empty:
        k += 'E';
        break;
      case VarType::Text:
        k += 'T' + f.text();
        break;
      case VarType::Int16:
      case VarType::Int32:
      case VarType::Double:
        k += 'N' + f.toText();
        break;
      default:
        return std::nullopt;
    }
  }
  return k;
}

std::optional<double> ValueMemo::find(int64_t cacheId, const std::string& key) const {
  auto c = entries_.find(cacheId);
  if (c == entries_.end()) return std::nullopt;
  auto e = c->second.find(key);
  if (e == c->second.end()) return std::nullopt;
  return e->second;
}

void ValueMemo::store(int64_t cacheId, std::string key, double value) {
  auto& m = entries_[cacheId];
  if (m.size() >= kMaxEntries) m.clear();
  m.emplace(std::move(key), value);
}

}  // namespace kxc::engine
