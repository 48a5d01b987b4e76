#include "platform/settings/settings_document.h"

#include "platform/settings_store.h"
#include "platform/text_rules.h"

namespace kxc {

namespace {

std::string lookupKey(std::string_view key) { return upperCase(canonicalKey(key)); }

}  // namespace

const SettingsSection* SettingsDocument::find(std::string_view key) const {
  auto it = index_.find(lookupKey(key));
  return it == index_.end() ? nullptr : &sections_[it->second];
}

SettingsSection* SettingsDocument::find(std::string_view key) {
  auto it = index_.find(lookupKey(key));
  return it == index_.end() ? nullptr : &sections_[it->second];
}

bool SettingsDocument::keyExists(std::string_view key) const {
  std::string lookup = lookupKey(key);
  if (lookup.empty() || index_.count(lookup)) return true;
  std::string below = lookup + "\\";
  for (const auto& [name, unused] : index_) {
    if (startsWith(name, below)) return true;
  }
  return false;
}

const std::string* SettingsDocument::findValue(std::string_view key, std::string_view name) const {
  const SettingsSection* section = find(key);
  if (!section) return nullptr;
  std::string wanted = upperCase(name);
  // The last entry of a name wins, as a person editing the file would expect.
  for (auto it = section->entries.rbegin(); it != section->entries.rend(); ++it) {
    if (it->name == name || upperCase(it->name) == wanted) return &it->value;
  }
  return nullptr;
}

SettingsSection& SettingsDocument::sectionFor(std::string_view key) {
  if (SettingsSection* section = find(key)) return *section;
  index_.emplace(lookupKey(key), sections_.size());
  SettingsSection& added = sections_.emplace_back();
  added.key = canonicalKey(key);
  added.comments = std::move(pendingComments);
  pendingComments.clear();
  return added;
}

bool SettingsDocument::addSection(std::string_view key) {
  if (find(key)) return false;
  sectionFor(key);
  return true;
}

bool SettingsDocument::setValue(std::string_view key, std::string_view name,
                                std::string_view value) {
  SettingsSection& section = sectionFor(key);
  std::string wanted = upperCase(name);
  for (auto it = section.entries.rbegin(); it != section.entries.rend(); ++it) {
    if (it->name == name || upperCase(it->name) == wanted) {
      if (it->value == value) return false;
      it->value = std::string(value);
      return true;
    }
  }
  section.entries.push_back({{}, std::string(name), std::string(value)});
  return true;
}

}  // namespace kxc
