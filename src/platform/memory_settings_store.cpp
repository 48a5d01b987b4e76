#include "platform/memory_settings_store.h"

#include "platform/text_rules.h"

namespace kxc {

std::map<std::string, MemorySettingsStore::Key>& MemorySettingsStore::keys(SettingsRoot root) {
  return root == SettingsRoot::User ? user_ : machine_;
}

// A key exists when it was created or when one beneath it was (levels above a key are implied).
bool MemorySettingsStore::existsLocked(SettingsRoot root, const std::string& lookup) {
  if (lookup.empty()) return true;
  auto& all = keys(root);
  if (all.count(lookup)) return true;
  std::string below = lookup + "\\";
  auto it = all.lower_bound(below);
  return it != all.end() && startsWith(it->first, below);
}

bool MemorySettingsStore::keyExists(SettingsRoot root, std::string_view key) {
  std::lock_guard lock(mutex_);
  return existsLocked(root, upperCase(canonicalKey(key)));
}

bool MemorySettingsStore::createKey(SettingsRoot root, std::string_view key) {
  std::lock_guard lock(mutex_);
  std::string lookup = upperCase(canonicalKey(key));
  if (!lookup.empty()) keys(root).try_emplace(lookup);
  return true;
}

std::optional<std::string> MemorySettingsStore::readValue(SettingsRoot root, std::string_view key,
                                                          std::string_view name) {
  std::lock_guard lock(mutex_);
  auto& all = keys(root);
  auto k = all.find(upperCase(canonicalKey(key)));
  if (k == all.end()) return std::nullopt;
  auto v = k->second.values.find(upperCase(name));
  if (v == k->second.values.end()) return std::nullopt;
  return v->second;
}

bool MemorySettingsStore::writeValue(SettingsRoot root, std::string_view key, std::string_view name,
                                     std::string_view value) {
  std::lock_guard lock(mutex_);
  std::string lookup = upperCase(canonicalKey(key));
  if (lookup.empty() || !existsLocked(root, lookup)) return false;  // values live in keys
  ++writes_;
  keys(root)[lookup].values[upperCase(name)] = std::string(value);
  return true;
}

int MemorySettingsStore::writeCount() const {
  std::lock_guard lock(mutex_);
  return writes_;
}

bool FailingSettingsStore::keyExists(SettingsRoot root, std::string_view key) {
  return !failExists && inner_->keyExists(root, key);
}

bool FailingSettingsStore::createKey(SettingsRoot root, std::string_view key) {
  return !failCreate && inner_->createKey(root, key);
}

std::optional<std::string> FailingSettingsStore::readValue(SettingsRoot root, std::string_view key,
                                                           std::string_view name) {
  if (failRead) return std::nullopt;
  return inner_->readValue(root, key, name);
}

bool FailingSettingsStore::writeValue(SettingsRoot root, std::string_view key,
                                      std::string_view name, std::string_view value) {
  return !failWrite && inner_->writeValue(root, key, name, value);
}

}  // namespace kxc
