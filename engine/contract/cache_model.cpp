#include "engine/contract/cache_model.h"

namespace kxc::engine {

CacheModel::CacheModel(int64_t id, CacheDefinition definition)
    : id_(id), def_(std::move(definition)) {
  const int nd = dimensionCount();
  byValue_.resize(nd);
  byCaption_.resize(nd);
  for (int d = 0; d < nd; ++d) {
    const auto& members = def_.dimensions[d].members;
    byValue_[d].reserve(members.size());
    byCaption_[d].reserve(members.size());
    for (size_t j = 0; j < members.size(); ++j) {
      byValue_[d].emplace(members[j].value, static_cast<int32_t>(j));
      byCaption_[d].emplace(members[j].caption, static_cast<int32_t>(j));
    }
  }
}

std::optional<int32_t> CacheModel::findMember(int dim, std::string_view text) const {
  std::string key(text);
  if (auto it = byValue_[dim].find(key); it != byValue_[dim].end()) return it->second;
  if (auto it = byCaption_[dim].find(key); it != byCaption_[dim].end()) return it->second;
  return std::nullopt;
}

}  // namespace kxc::engine
