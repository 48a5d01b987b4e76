#include "platform/tm_win_reg.h"

#include <mutex>
#include <optional>

#include "platform/settings_store.h"
#include "platform/text_rules.h"

namespace kxc {

namespace {

constexpr std::size_t kFillerLength = 512;
constexpr std::size_t kDeclaredSize = 500;

std::optional<SettingsRoot> rootOf(RegHive hive) {
  if (hive == HKEY_CURRENT_USER) return SettingsRoot::User;
  if (hive == HKEY_LOCAL_MACHINE) return SettingsRoot::Machine;
  return std::nullopt;
}

struct OpenKeys {
  std::mutex mutex;
  std::vector<OpenKeyRecord> keys;
};

OpenKeys& openKeys() {
  static OpenKeys keys;
  return keys;
}

void recordOpenKey(std::string key) {
  std::lock_guard lock(openKeys().mutex);
  for (auto& record : openKeys().keys) {
    if (record.key == key) {
      ++record.handles;
      return;
    }
  }
  openKeys().keys.push_back({std::move(key), 1});
}

// "Software" is predefined under both roots, as the registry has it, so a fresh store behaves
// like a fresh registry.
bool keyOpens(SettingsRoot root, const std::string& path) {
  std::string canonical = canonicalKey(path);
  if (canonical.empty() || upperCase(canonical) == "SOFTWARE") return true;
  return settingsStore().keyExists(root, canonical);
}

}  // namespace

int16_t GetRegString(const RegHive& hive, const std::string& keyPath, const std::string& valueName,
                     std::string& value) {
  auto root = rootOf(hive);
  if (!root || !keyOpens(*root, keyPath)) return kRegFailed;
  value.assign(kFillerLength, '*');
  int16_t result = kRegFailed;
  if (auto data = settingsStore().readValue(*root, keyPath, valueName);
      data && data->size() <= kDeclaredSize) {
    value.replace(0, data->size(), *data);
    if (data->size() < kDeclaredSize) value[data->size()] = '\0';
    result = kRegOk;
  }
  if (auto nul = value.find('\0'); nul != std::string::npos) value.resize(nul);
  return result;
}

int16_t CreateRegKey(const RegHive& hive, const std::string& parentPath,
                     const std::string& subKeyPath) {
  auto root = rootOf(hive);
  if (!root || !keyOpens(*root, parentPath)) return kRegFailed;
  std::string full = canonicalKey(parentPath + "\\" + subKeyPath);
  if (!settingsStore().createKey(*root, full)) return kRegAccessDenied;
  recordOpenKey((*root == SettingsRoot::User ? "HKCU\\" : "HKLM\\") + full);
  return kRegOk;
}

int16_t SetRegString(const RegHive& hive, const std::string& keyPath, const std::string& valueName,
                     const std::string& value) {
  auto root = rootOf(hive);
  if (!root || !keyOpens(*root, keyPath)) return kRegFailed;
  return settingsStore().writeValue(*root, keyPath, valueName, value) ? kRegOk : kRegFailed;
}

void RememberChoice(const std::string& name, const std::string& text) {
  std::string scratch;
  if (GetRegString(HKEY_CURRENT_USER, kCacheSettingsKey, name, scratch) != kRegOk) {
    CreateRegKey(HKEY_CURRENT_USER, "Software\\", "Kestra\\Cache");
  }
  SetRegString(HKEY_CURRENT_USER, kCacheSettingsKey, name, text);
}

std::vector<OpenKeyRecord> keysLeftOpen() {
  std::lock_guard lock(openKeys().mutex);
  return openKeys().keys;
}

}  // namespace kxc
