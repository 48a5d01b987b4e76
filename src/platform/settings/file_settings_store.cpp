#include "platform/settings/file_settings_store.h"

#include <cstdio>

namespace kxc {

namespace {

SettingsNotice orStandardError(SettingsNotice notice) {
  if (notice) return notice;
  return
      [](const std::string& text) { std::fprintf(stderr, "kestra settings: %s\n", text.c_str()); };
}

bool keyCanBeWritten(std::string_view key) {
  for (const auto& level : keyLevels(key)) {
    if (level.front() == ' ' || level.front() == '\t' || level.back() == ' ' ||
        level.back() == '\t') {
      return false;
    }
    for (unsigned char c : level) {
      if (c < 0x20 || c == 0x7f) return false;
    }
  }
  return true;
}

}  // namespace

FileSettingsStore::FileSettingsStore(const SettingsFolders& folders, SettingsNotice notice)
    : user_(folders.user + "/" + kSettingsFileName, orStandardError(notice)),
      machine_(folders.machine + "/" + kSettingsFileName, orStandardError(notice)) {}

std::shared_ptr<FileSettingsStore> FileSettingsStore::fromEnvironment(SettingsNotice notice) {
  return std::make_shared<FileSettingsStore>(settingsFoldersFromEnvironment(), std::move(notice));
}

bool FileSettingsStore::keyExists(SettingsRoot root, std::string_view key) {
  return file(root).read([&](const SettingsDocument& doc) { return doc.keyExists(key); });
}

bool FileSettingsStore::createKey(SettingsRoot root, std::string_view key) {
  if (canonicalKey(key).empty()) return true;
  if (!keyCanBeWritten(key)) return false;
  return file(root).update([&](SettingsDocument& doc) {
    return doc.addSection(key) ? SettingsEdit::Changed : SettingsEdit::Unchanged;
  });
}

std::optional<std::string> FileSettingsStore::readValue(SettingsRoot root, std::string_view key,
                                                        std::string_view name) {
  return file(root).read([&](const SettingsDocument& doc) -> std::optional<std::string> {
    if (const std::string* value = doc.findValue(key, name)) return *value;
    return std::nullopt;
  });
}

bool FileSettingsStore::writeValue(SettingsRoot root, std::string_view key, std::string_view name,
                                   std::string_view value) {
  if (canonicalKey(key).empty()) return false;  // values live in keys, never in the root
  return file(root).update([&](SettingsDocument& doc) {
    if (!doc.keyExists(key)) return SettingsEdit::Refused;
    return doc.setValue(key, name, value) ? SettingsEdit::Changed : SettingsEdit::Unchanged;
  });
}

SettingsDocument FileSettingsStore::contents(SettingsRoot root) {
  return file(root).read([](const SettingsDocument& doc) { return doc; });
}

}  // namespace kxc
