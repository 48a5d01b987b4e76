// The settings store kept in plain text files: one file per root, "settings.ini" in the root's
// folder (see settings_folders.h for where the folders are and settings_file_format.h for the
// text). Safe for several processes at once.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/settings/settings_file.h"
#include "platform/settings/settings_folders.h"
#include "platform/settings_store.h"

namespace kxc {

inline constexpr const char* kSettingsFileName = "settings.ini";

// Reads and writes follow SettingsFile: cached parsing, locked atomic writes, unchanged values
// not rewritten, an unreadable or corrupt file read as empty. createKey refuses key names with
// control characters or with blanks at the start or end of a level, which the text form
// cannot keep. Thread-safe.
class FileSettingsStore : public SettingsStore {
 public:
  // `notice` receives repair notices; by default they go to standard error.
  explicit FileSettingsStore(const SettingsFolders& folders, SettingsNotice notice = {});

  // A store over settingsFoldersFromEnvironment().
  static std::shared_ptr<FileSettingsStore> fromEnvironment(SettingsNotice notice = {});

  bool keyExists(SettingsRoot root, std::string_view key) override;
  bool createKey(SettingsRoot root, std::string_view key) override;
  std::optional<std::string> readValue(SettingsRoot root, std::string_view key,
                                       std::string_view name) override;
  bool writeValue(SettingsRoot root, std::string_view key, std::string_view name,
                  std::string_view value) override;

  const std::string& filePath(SettingsRoot root) const { return file(root).path(); }
  // Why the root's file cannot be used, if it cannot.
  std::optional<SettingsProblem> problem(SettingsRoot root) { return file(root).problem(); }
  // A copy of the root's current contents.
  SettingsDocument contents(SettingsRoot root);

 private:
  SettingsFile& file(SettingsRoot root) { return root == SettingsRoot::User ? user_ : machine_; }
  const SettingsFile& file(SettingsRoot root) const {
    return root == SettingsRoot::User ? user_ : machine_;
  }

  SettingsFile user_;
  SettingsFile machine_;
};

}  // namespace kxc
