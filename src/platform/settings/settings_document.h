// The parsed contents of one settings file: [key] sections holding name=value entries, with the
// comment lines a person wrote kept beside the item they precede.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kxc {

struct SettingsEntry {
  std::vector<std::string> comments;  // comment and blank lines written above the entry
  std::string name;
  std::string value;
};

struct SettingsSection {
  std::vector<std::string> comments;  // comment and blank lines written above the header
  std::string key;                    // canonical key path, as first spelled
  std::vector<SettingsEntry> entries;
};

// Key and value names compare case-insensitively. A key exists when it has a section or when a
// key beneath it does; the root ("") always exists. Not thread-safe; the owner serialises.
class SettingsDocument {
 public:
  bool keyExists(std::string_view key) const;
  const std::string* findValue(std::string_view key, std::string_view name) const;

  // Adds a section for `key` unless it has one; false when it had one already.
  bool addSection(std::string_view key);
  // Sets a value in the section of `key`, adding the section when needed; false when the
  // value was there already with the same text.
  bool setValue(std::string_view key, std::string_view name, std::string_view value);

  const std::vector<SettingsSection>& sections() const { return sections_; }
  std::vector<std::string>& trailingComments() { return trailing_; }
  const std::vector<std::string>& trailingComments() const { return trailing_; }

  // For the parser: the section being filled, and comments waiting for the next item.
  SettingsSection& sectionFor(std::string_view key);
  std::vector<std::string> pendingComments;

 private:
  SettingsSection* find(std::string_view key);
  const SettingsSection* find(std::string_view key) const;

  std::vector<SettingsSection> sections_;
  std::unordered_map<std::string, std::size_t> index_;  // upper-cased key -> section
  std::vector<std::string> trailing_;
};

}  // namespace kxc
