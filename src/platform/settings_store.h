// The settings port: string values under a per-user and a per-machine root, in keys whose
// paths have "\" between levels, and the process-wide store the library uses.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kxc {

enum class SettingsRoot { User, Machine };

// A store of named text values in a tree of keys. Key paths are relative to a root with "\"
// between levels; empty levels are ignored, so "Software\" and "Software" name the same key and
// "" names the root itself, which always exists. Key and value names compare case-insensitively
// (Unicode upper-casing) and keep the spelling they were created with. Values are byte strings
// and may hold any byte, NUL included.
//
// No operation throws: failures are reported through the results. Implementations are safe to
// call from any thread.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  virtual bool keyExists(SettingsRoot root, std::string_view key) = 0;

  // Creates the key and every missing level above it; an existing key is left as it is.
  // True when the key exists afterwards.
  virtual bool createKey(SettingsRoot root, std::string_view key) = 0;

  // The value, or nullopt when the key or the value is missing or the store cannot be read.
  virtual std::optional<std::string> readValue(SettingsRoot root, std::string_view key,
                                               std::string_view name) = 0;

  // Writes (or replaces) a value in an existing key. False when the key is missing or the
  // write fails; a missing key is never created here.
  virtual bool writeValue(SettingsRoot root, std::string_view key, std::string_view name,
                          std::string_view value) = 0;
};

// The levels of a key path without empty ones: "Software\\Kestra\\" -> {"Software", "Kestra"}.
std::vector<std::string> keyLevels(std::string_view key);
// The key path written canonically: its levels joined by "\".
std::string canonicalKey(std::string_view key);

// The process-wide store. Until a program installs its own, an in-memory store that lives as
// long as the process answers (programs install the file store at start).
SettingsStore& settingsStore();
// Installs `store` (null restores a fresh in-memory store); returns the previous one.
std::shared_ptr<SettingsStore> setSettingsStore(std::shared_ptr<SettingsStore> store);

}  // namespace kxc
