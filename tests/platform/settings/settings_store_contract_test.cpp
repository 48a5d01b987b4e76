// The behaviour every settings store shares, run against the in-memory and the file store.
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "platform/memory_settings_store.h"
#include "platform/settings/file_settings_store.h"
#include "temp_settings.h"

namespace kxc {
namespace {

struct StoreKind {
  const char* name;
  std::function<std::shared_ptr<SettingsStore>()> make;
};

class SettingsStoreContract : public ::testing::TestWithParam<StoreKind> {
 protected:
  testing::TempSettingsFolders folders_;
  std::shared_ptr<SettingsStore> store_ = GetParam().make();
};

TEST_P(SettingsStoreContract, ValuesNeedAnExistingKey) {
  auto& s = *store_;
  EXPECT_FALSE(s.keyExists(SettingsRoot::User, "Software\\Kestra\\Cache"));
  EXPECT_FALSE(s.writeValue(SettingsRoot::User, "Software\\Kestra\\Cache", "CacheName", "x"));
  EXPECT_FALSE(s.keyExists(SettingsRoot::User, "Software\\Kestra\\Cache"));
  ASSERT_TRUE(s.createKey(SettingsRoot::User, "Software\\Kestra\\Cache"));
  EXPECT_TRUE(s.keyExists(SettingsRoot::User, "Software"));
  EXPECT_TRUE(s.keyExists(SettingsRoot::User, "Software\\Kestra\\Cache"));
  EXPECT_FALSE(s.readValue(SettingsRoot::User, "Software\\Kestra\\Cache", "CacheName"));
  EXPECT_TRUE(s.writeValue(SettingsRoot::User, "Software\\Kestra\\Cache", "CacheName", "Sales"));
  EXPECT_EQ(s.readValue(SettingsRoot::User, "Software\\Kestra\\Cache", "CacheName"), "Sales");
}

TEST_P(SettingsStoreContract, NamesCompareWithoutCaseAndEmptyLevelsDoNotCount) {
  auto& s = *store_;
  ASSERT_TRUE(s.createKey(SettingsRoot::User, "Software\\Kestra\\Cache"));
  ASSERT_TRUE(s.writeValue(SettingsRoot::User, "SOFTWARE\\kestra\\Cache\\", "cachename", "A"));
  EXPECT_EQ(s.readValue(SettingsRoot::User, "\\software\\\\Kestra\\CACHE", "CacheName"), "A");
}

TEST_P(SettingsStoreContract, TheTwoRootsAreSeparate) {
  auto& s = *store_;
  ASSERT_TRUE(s.createKey(SettingsRoot::Machine, "Software\\Kestra\\TmBvInstall\\Branding"));
  ASSERT_TRUE(s.writeValue(SettingsRoot::Machine, "Software\\Kestra\\TmBvInstall\\Branding",
                           "Enabled", "Yes"));
  EXPECT_FALSE(s.keyExists(SettingsRoot::User, "Software\\Kestra\\TmBvInstall"));
  EXPECT_FALSE(
      s.readValue(SettingsRoot::User, "Software\\Kestra\\TmBvInstall\\Branding", "Enabled"));
}

TEST_P(SettingsStoreContract, ValuesKeepEveryByteAndCanBeReplaced) {
  auto& s = *store_;
  ASSERT_TRUE(s.createKey(SettingsRoot::User, "K"));
  std::string awkward("a\0b\n=c ", 7);
  ASSERT_TRUE(s.writeValue(SettingsRoot::User, "K", "v", awkward));
  EXPECT_EQ(s.readValue(SettingsRoot::User, "K", "v"), awkward);
  ASSERT_TRUE(s.writeValue(SettingsRoot::User, "K", "v", ""));
  EXPECT_EQ(s.readValue(SettingsRoot::User, "K", "v"), "");
}

TEST_P(SettingsStoreContract, TheRootAlwaysExistsButHoldsNoValues) {
  auto& s = *store_;
  EXPECT_TRUE(s.keyExists(SettingsRoot::User, ""));
  EXPECT_TRUE(s.createKey(SettingsRoot::User, "\\"));
  EXPECT_FALSE(s.writeValue(SettingsRoot::User, "", "x", "1"));
}

INSTANTIATE_TEST_SUITE_P(
    Stores, SettingsStoreContract,
    ::testing::Values(StoreKind{"Memory", [] { return std::make_shared<MemorySettingsStore>(); }},
                      StoreKind{"File", [] { return FileSettingsStore::fromEnvironment(); }}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(FailingSettingsStore, EachSwitchFailsOnlyItsOperation) {
  auto inner = std::make_shared<MemorySettingsStore>();
  inner->createKey(SettingsRoot::User, "K");
  inner->writeValue(SettingsRoot::User, "K", "v", "1");
  FailingSettingsStore s(inner);
  s.failRead = true;
  EXPECT_FALSE(s.readValue(SettingsRoot::User, "K", "v"));
  EXPECT_TRUE(s.keyExists(SettingsRoot::User, "K"));
  s.failRead = false;
  s.failWrite = true;
  EXPECT_FALSE(s.writeValue(SettingsRoot::User, "K", "v", "2"));
  EXPECT_EQ(s.readValue(SettingsRoot::User, "K", "v"), "1");
  s.failCreate = true;
  EXPECT_FALSE(s.createKey(SettingsRoot::User, "L"));
  EXPECT_FALSE(inner->keyExists(SettingsRoot::User, "L"));
  s.failExists = true;
  EXPECT_FALSE(s.keyExists(SettingsRoot::User, "K"));
}

}  // namespace
}  // namespace kxc
