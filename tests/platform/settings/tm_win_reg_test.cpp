#include "platform/tm_win_reg.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/memory_settings_store.h"
#include "platform/settings/file_settings_store.h"
#include "temp_settings.h"

namespace kxc {
namespace {

const std::string kFiller(512, '*');

// Points both roots into a temporary folder and installs the file store over them.
class TmWinRegTest : public ::testing::Test {
 protected:
  TmWinRegTest() : previous_(setSettingsStore(FileSettingsStore::fromEnvironment())) {}
  ~TmWinRegTest() override { setSettingsStore(previous_); }

  void createCacheKey() {
    ASSERT_TRUE(settingsStore().createKey(SettingsRoot::User, kCacheSettingsKey));
  }
  void store(const std::string& name, const std::string& value) {
    ASSERT_TRUE(settingsStore().writeValue(SettingsRoot::User, kCacheSettingsKey, name, value));
  }
  static std::size_t handlesOf(const std::string& key) {
    for (const auto& record : keysLeftOpen()) {
      if (record.key == key) return record.handles;
    }
    return 0;
  }

  testing::TempSettingsFolders folders_;
  std::shared_ptr<SettingsStore> previous_;
};

TEST_F(TmWinRegTest, AMissingKeyFailsAndLeavesTheValueAlone) {
  std::string value = "caller's";
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, kCacheSettingsKey, "CacheName", value), -1);
  EXPECT_EQ(value, "caller's");
}

TEST_F(TmWinRegTest, AMissingValueFailsAndLeavesTheFiller) {
  createCacheKey();
  std::string value = "caller's";
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, kCacheSettingsKey, "CacheName", value), -1);
  EXPECT_EQ(value, kFiller);
}

TEST_F(TmWinRegTest, ReadsUpToFiveHundredBytes) {
  createCacheKey();
  struct Case {
    std::string stored;
    int16_t result;
    std::string read;
  };
  const std::string e250 = [] {
    std::string s;
    for (int i = 0; i < 250; ++i) s += "é";
    return s;
  }();
  for (const auto& c : {
           Case{"", 0, ""},
           Case{"Sales", 0, "Sales"},
           Case{std::string(499, 'a'), 0, std::string(499, 'a')},
           // No room for the terminator: the rest of the filler stays behind the data.
           Case{std::string(500, 'a'), 0, std::string(500, 'a') + std::string(12, '*')},
           Case{std::string(501, 'a'), -1, kFiller},
           Case{e250, 0, e250 + std::string(12, '*')},  // 500 bytes in 250 characters
           Case{e250 + "x", -1, kFiller},
           Case{std::string("ab\0cd", 5), 0, "ab"},
       }) {
    store("V", c.stored);
    std::string value;
    EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, kCacheSettingsKey, "V", value), c.result)
        << c.stored.size();
    EXPECT_EQ(value, c.read) << c.stored.size();
  }
}

TEST_F(TmWinRegTest, HivesSelectTheRootsAndOthersFail) {
  ASSERT_TRUE(settingsStore().createKey(SettingsRoot::Machine, "Software\\Kestra\\TmBvInstall"));
  ASSERT_TRUE(settingsStore().writeValue(SettingsRoot::Machine, "Software\\Kestra\\TmBvInstall",
                                         "Enabled", "Yes"));
  std::string value;
  EXPECT_EQ(GetRegString(HKEY_LOCAL_MACHINE, "Software\\Kestra\\TmBvInstall", "Enabled", value), 0);
  EXPECT_EQ(value, "Yes");
  value = "x";
  EXPECT_EQ(GetRegString(HKEY_CURRENT_USER, "Software\\Kestra\\TmBvInstall", "Enabled", value), -1);
  EXPECT_EQ(value, "x");
  const RegHive classesRoot = 0x80000000u;
  EXPECT_EQ(GetRegString(classesRoot, "Software", "Enabled", value), -1);
  EXPECT_EQ(CreateRegKey(classesRoot, "", "Software"), -1);
  EXPECT_EQ(SetRegString(classesRoot, "Software", "x", "1"), -1);
}

TEST_F(TmWinRegTest, WritingIntoAMissingKeyFailsAndCreatesNothing) {
  EXPECT_EQ(SetRegString(HKEY_CURRENT_USER, kCacheSettingsKey, "CacheName", "Sales"), -1);
  EXPECT_FALSE(settingsStore().keyExists(SettingsRoot::User, "Software\\Kestra"));
  createCacheKey();
  EXPECT_EQ(SetRegString(HKEY_CURRENT_USER, kCacheSettingsKey, "CacheName", "Sales"), 0);
  EXPECT_EQ(settingsStore().readValue(SettingsRoot::User, kCacheSettingsKey, "CacheName"), "Sales");
}

TEST_F(TmWinRegTest, CreatesKeysBeneathAnExistingParentOnly) {
  EXPECT_EQ(CreateRegKey(HKEY_CURRENT_USER, "Software\\Other", "Kestra\\Cache"), -1);
  std::size_t before = handlesOf("HKCU\\Software\\Kestra\\Cache");
  EXPECT_EQ(CreateRegKey(HKEY_CURRENT_USER, "Software\\", "Kestra\\Cache"), 0);
  EXPECT_TRUE(settingsStore().keyExists(SettingsRoot::User, kCacheSettingsKey));
  store("CacheName", "Sales");
  EXPECT_EQ(CreateRegKey(HKEY_CURRENT_USER, "Software\\", "Kestra\\Cache"), 0);  // opens it
  EXPECT_EQ(settingsStore().readValue(SettingsRoot::User, kCacheSettingsKey, "CacheName"), "Sales");
  EXPECT_EQ(handlesOf("HKCU\\Software\\Kestra\\Cache"), before + 2);
}

TEST_F(TmWinRegTest, ARefusedCreateReportsAccessDenied) {
  auto failing = std::make_shared<FailingSettingsStore>(std::make_shared<MemorySettingsStore>());
  failing->failCreate = true;
  auto fileStore = setSettingsStore(failing);
  EXPECT_EQ(CreateRegKey(HKEY_CURRENT_USER, "", "Software"), kRegAccessDenied);
  setSettingsStore(fileStore);
}

TEST_F(TmWinRegTest, RememberingAChoiceCreatesTheKeyFirst) {
  RememberChoice("CacheName", "Sales");
  EXPECT_EQ(settingsStore().readValue(SettingsRoot::User, kCacheSettingsKey, "CacheName"), "Sales");
  std::size_t handles = handlesOf("HKCU\\Software\\Kestra\\Cache");
  RememberChoice("CacheName", "Stock");  // readable now: no second create
  EXPECT_EQ(settingsStore().readValue(SettingsRoot::User, kCacheSettingsKey, "CacheName"), "Stock");
  EXPECT_EQ(handlesOf("HKCU\\Software\\Kestra\\Cache"), handles);
  RememberChoice("MeasureIndex", "2");  // unreadable value: the create runs again
  EXPECT_EQ(handlesOf("HKCU\\Software\\Kestra\\Cache"), handles + 1);
}

TEST_F(TmWinRegTest, SoftwareIsPredefinedSoAFreshStoreRemembers) {
  std::string value = "x";
  EXPECT_EQ(GetRegString(HKEY_LOCAL_MACHINE, "Software", "Missing", value), -1);
  EXPECT_EQ(value, kFiller);
  RememberChoice("CacheName", "Sales");
  EXPECT_EQ(settingsStore().readValue(SettingsRoot::User, kCacheSettingsKey, "CacheName"), "Sales");
}

}  // namespace
}  // namespace kxc
