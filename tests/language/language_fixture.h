// A Language over in-memory catalogue tables, with both settings roots in a temporary folder.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "language/catalogue_folder.h"
#include "language/language.h"
#include "platform/settings/file_settings_store.h"
#include "platform/settings/temp_settings.h"
#include "platform/tm_win_reg.h"
#include "state/add_in_context.h"

namespace kxc::testing {

class LanguageTest : public ::testing::Test {
 protected:
  LanguageTest() { settingsStore().createKey(SettingsRoot::User, kCacheSettingsKey); }

  // Catalogue text of `code` in `language`.
  void text(const std::string& code, int language, std::string value) {
    texts_[code].resize(kLanguageCount);
    texts_[code][static_cast<std::size_t>(language)] = std::move(value);
  }
  // The same text in every language.
  void textAll(const std::string& code, const std::string& value) {
    for (int l = 0; l < kLanguageCount; ++l) text(code, l, value);
  }
  void detail(const std::string& keyId, std::optional<std::string> value) {
    details_.push_back({keyId, std::move(value)});
  }
  void userSetting(const std::string& name, const std::string& value) {
    ASSERT_TRUE(settingsStore().writeValue(SettingsRoot::User, kCacheSettingsKey, name, value));
  }
  std::optional<std::string> userSetting(const std::string& name) {
    return settingsStore().readValue(SettingsRoot::User, kCacheSettingsKey, name);
  }
  void machineSetting(const std::string& key, const std::string& name, const std::string& value) {
    ASSERT_TRUE(settingsStore().createKey(SettingsRoot::Machine, key));
    ASSERT_TRUE(settingsStore().writeValue(SettingsRoot::Machine, key, name, value));
  }
  void branding(const std::string& enabled, const std::string& name) {
    machineSetting("Software\\Kestra\\TmBvInstall\\Branding", "Enabled", enabled);
    machineSetting("Software\\Kestra\\TmBvInstall\\Branding", "Name", name);
  }
  void rule(int k, const std::string& part, const std::string& value) {
    char name[32];
    std::snprintf(name, sizeof name, "%03d-%s", k, part.c_str());
    machineSetting("Software\\Kestra\\TmBvInstall\\Branding\\Rename", name, value);
  }

  std::shared_ptr<const CatalogueTable> catalogueTable() const {
    std::vector<std::string> columns{"ID", "Code"};
    for (int l = 0; l < kLanguageCount; ++l) columns.push_back("L" + std::to_string(l));
    std::vector<CatalogueRow> rows;
    for (const auto& [code, values] : texts_) {
      CatalogueRow row{std::to_string(rows.size() + 1), code};
      for (const auto& v : values) row.push_back(v);
      rows.push_back(std::move(row));
    }
    return std::make_shared<MemoryCatalogueTable>(std::move(columns), std::move(rows));
  }
  std::shared_ptr<const CatalogueTable> detailsTable() const {
    std::vector<CatalogueRow> rows;
    for (const auto& [key, value] : details_)
      rows.push_back({std::to_string(rows.size()), key, value});
    return std::make_shared<MemoryCatalogueTable>(std::vector<std::string>{"ID", "KeyID", "Value"},
                                                  std::move(rows));
  }

  // Opens the tables built so far; `openCatalogue` false leaves the catalogue closed.
  std::unique_ptr<Language> make(bool openCatalogue = true, bool openDetails = true) {
    auto catalogue = catalogueTable();
    auto details = detailsTable();
    return std::make_unique<Language>(
        [=](const std::string& path) -> std::shared_ptr<const CatalogueTable> {
          if (path == "/cat/" + std::string(kCatalogueFileName)) {
            return openCatalogue ? catalogue : nullptr;
          }
          if (path == "/cat/" + std::string(kLanguageDetailsFileName)) {
            return openDetails ? details : nullptr;
          }
          return nullptr;
        },
        "/cat");
  }

  TempSettingsFolders folders_;  // before the context, whose store lives in these folders
  AddInContext context_{AddInContext::Setup{nullptr, FileSettingsStore::fromEnvironment(), {}, {}}};

 private:
  std::map<std::string, std::vector<std::optional<std::string>>> texts_;
  std::vector<std::pair<std::string, std::optional<std::string>>> details_;
};

}  // namespace kxc::testing
