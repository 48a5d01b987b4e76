// An opened cache's shape: its definition with members, and member lookup by value and caption,
// which filter texts are resolved against. Every backend describes its caches this way.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/contract/cache_definition.h"

namespace kxc::engine {

class CacheModel {
 public:
  CacheModel(int64_t id, CacheDefinition definition);

  int64_t id() const { return id_; }
  const std::string& name() const { return def_.name; }
  const CacheDefinition& definition() const { return def_; }
  int dimensionCount() const { return static_cast<int>(def_.dimensions.size()); }
  int measureCount() const { return static_cast<int>(def_.measures.size()); }
  int memberCount(int dim) const { return static_cast<int>(def_.dimensions[dim].members.size()); }

  // The member of dimension `dim` (0-based) whose value is `text`, else whose caption is; the
  // first one in member order wins when several share it.
  std::optional<int32_t> findMember(int dim, std::string_view text) const;

 private:
  int64_t id_;
  CacheDefinition def_;
  std::vector<std::unordered_map<std::string, int32_t>> byValue_;
  std::vector<std::unordered_map<std::string, int32_t>> byCaption_;
};

}  // namespace kxc::engine
