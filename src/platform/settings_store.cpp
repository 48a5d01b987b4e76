#include "platform/settings_store.h"

#include "platform/memory_settings_store.h"

namespace kxc {

std::vector<std::string> keyLevels(std::string_view key) {
  std::vector<std::string> levels;
  std::size_t start = 0;
  while (start <= key.size()) {
    std::size_t end = key.find('\\', start);
    if (end == std::string_view::npos) end = key.size();
    if (end > start) levels.emplace_back(key.substr(start, end - start));
    start = end + 1;
  }
  return levels;
}

std::string canonicalKey(std::string_view key) {
  std::string out;
  for (const auto& level : keyLevels(key)) {
    if (!out.empty()) out += '\\';
    out += level;
  }
  return out;
}

namespace {

std::shared_ptr<SettingsStore>& current() {
  static std::shared_ptr<SettingsStore> s = std::make_shared<MemorySettingsStore>();
  return s;
}

}  // namespace

SettingsStore& settingsStore() { return *current(); }

std::shared_ptr<SettingsStore> setSettingsStore(std::shared_ptr<SettingsStore> store) {
  auto previous = current();
  current() = store ? std::move(store) : std::make_shared<MemorySettingsStore>();
  return previous;
}

}  // namespace kxc
