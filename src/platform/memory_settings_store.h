// Settings stores held in memory: a plain one, and a wrapper that injects failures.
#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "platform/settings_store.h"

namespace kxc {

// Keeps both roots in memory for its own lifetime. Thread-safe.
class MemorySettingsStore : public SettingsStore {
 public:
  bool keyExists(SettingsRoot root, std::string_view key) override;
  bool createKey(SettingsRoot root, std::string_view key) override;
  std::optional<std::string> readValue(SettingsRoot root, std::string_view key,
                                       std::string_view name) override;
  bool writeValue(SettingsRoot root, std::string_view key, std::string_view name,
                  std::string_view value) override;

  // Number of writeValue calls that reached the store (tests check that nothing is rewritten).
  int writeCount() const;

 private:
  struct Key {
    std::map<std::string, std::string> values;  // lookup name -> value
  };
  std::map<std::string, Key>& keys(SettingsRoot root);
  bool existsLocked(SettingsRoot root, const std::string& lookup);

  mutable std::mutex mutex_;
  std::map<std::string, Key> user_, machine_;  // lookup key name -> key
  int writes_ = 0;
};

// Forwards to another store and fails the operations that are switched off: a failed read
// answers nullopt, a failed create or write answers false and changes nothing, a failed
// existence check answers false. Not thread-safe to reconfigure while in use.
class FailingSettingsStore : public SettingsStore {
 public:
  explicit FailingSettingsStore(std::shared_ptr<SettingsStore> inner) : inner_(std::move(inner)) {}

  bool failExists = false;
  bool failCreate = false;
  bool failRead = false;
  bool failWrite = false;

  bool keyExists(SettingsRoot root, std::string_view key) override;
  bool createKey(SettingsRoot root, std::string_view key) override;
  std::optional<std::string> readValue(SettingsRoot root, std::string_view key,
                                       std::string_view name) override;
  bool writeValue(SettingsRoot root, std::string_view key, std::string_view name,
                  std::string_view value) override;

 private:
  std::shared_ptr<SettingsStore> inner_;
};

}  // namespace kxc
