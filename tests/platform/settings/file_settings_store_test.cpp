#include "platform/settings/file_settings_store.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "temp_settings.h"

namespace kxc {
namespace {

namespace fs = std::filesystem;
using testing::TempSettingsFolders;

constexpr const char* kKey = "Software\\Kestra\\Cache";

ino_t inodeOf(const std::string& path) {
  struct stat st {};
  return ::stat(path.c_str(), &st) == 0 ? st.st_ino : 0;
}

std::vector<std::string> filesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& e : fs::directory_iterator(folder)) names.push_back(e.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

class ScopedEnv {
 public:
  ScopedEnv(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    value ? ::setenv(name, value, 1) : ::unsetenv(name);
  }
  ~ScopedEnv() { old_ ? ::setenv(name_, old_->c_str(), 1) : ::unsetenv(name_); }

 private:
  const char* name_;
  std::optional<std::string> old_;
};

TEST(SettingsFolders, OwnVariablesWinThenXdgThenDefaults) {
  ScopedEnv home("HOME", "/home/ann");
  {
    ScopedEnv a("KXC_CONFIG_HOME", "/tmp/u"), b("KXC_CONFIG_MACHINE", "/tmp/m");
    ScopedEnv c("XDG_CONFIG_HOME", "/x"), d("XDG_CONFIG_DIRS", "/y:/z");
    auto f = settingsFoldersFromEnvironment();
    EXPECT_EQ(f.user, "/tmp/u");
    EXPECT_EQ(f.machine, "/tmp/m");
  }
  {
    ScopedEnv a("KXC_CONFIG_HOME", nullptr), b("KXC_CONFIG_MACHINE", "");
    ScopedEnv c("XDG_CONFIG_HOME", "/x"), d("XDG_CONFIG_DIRS", "/y:/z");
    auto f = settingsFoldersFromEnvironment();
    EXPECT_EQ(f.user, "/x/kestra");
    EXPECT_EQ(f.machine, "/y/kestra");
  }
  {
    ScopedEnv a("KXC_CONFIG_HOME", nullptr), b("KXC_CONFIG_MACHINE", nullptr);
    ScopedEnv c("XDG_CONFIG_HOME", "relative"), d("XDG_CONFIG_DIRS", nullptr);
    auto f = settingsFoldersFromEnvironment();
    EXPECT_EQ(f.user, "/home/ann/.config/kestra");
    EXPECT_EQ(f.machine, "/etc/xdg/kestra");
  }
}

TEST(FileSettingsStore, KeepsOneReadableFilePerRoot) {
  TempSettingsFolders t;
  auto store = FileSettingsStore::fromEnvironment();
  ASSERT_TRUE(store->createKey(SettingsRoot::User, kKey));
  ASSERT_TRUE(store->writeValue(SettingsRoot::User, kKey, "CacheName", "Sales\n2024"));
  std::string text = TempSettingsFolders::read(t.userFile());
  EXPECT_NE(text.find("[Software\\Kestra\\Cache]\nCacheName=Sales\\n2024\n"), std::string::npos)
      << text;
  EXPECT_FALSE(fs::exists(t.machineFile()));
  EXPECT_EQ(store->filePath(SettingsRoot::Machine), t.machineFile());
}

TEST(FileSettingsStore, WritesReplaceTheFileAndLeaveNoTemporaryBehind) {
  TempSettingsFolders t;
  auto store = FileSettingsStore::fromEnvironment();
  ASSERT_TRUE(store->createKey(SettingsRoot::User, kKey));
  ino_t before = inodeOf(t.userFile());
  ASSERT_TRUE(store->writeValue(SettingsRoot::User, kKey, "CacheName", "A"));
  EXPECT_NE(inodeOf(t.userFile()), before);  // a new file was renamed over the old one
  EXPECT_EQ(filesIn(t.user()), (std::vector<std::string>{"settings.ini", "settings.ini.lock"}));
}

TEST(FileSettingsStore, AnUnchangedValueIsNotRewritten) {
  TempSettingsFolders t;
  auto store = FileSettingsStore::fromEnvironment();
  ASSERT_TRUE(store->createKey(SettingsRoot::User, kKey));
  ASSERT_TRUE(store->writeValue(SettingsRoot::User, kKey, "CurrentLanguage", "3"));
  ino_t written = inodeOf(t.userFile());
  EXPECT_TRUE(store->writeValue(SettingsRoot::User, kKey, "CurrentLanguage", "3"));
  EXPECT_TRUE(store->createKey(SettingsRoot::User, kKey));
  EXPECT_EQ(inodeOf(t.userFile()), written);
  // A second store that has not cached the file yet takes the same decision under the lock.
  auto other = FileSettingsStore::fromEnvironment();
  EXPECT_TRUE(other->writeValue(SettingsRoot::User, kKey, "currentlanguage", "3"));
  EXPECT_EQ(inodeOf(t.userFile()), written);
}

TEST(FileSettingsStore, SeesChangesMadeByAnotherWriter) {
  TempSettingsFolders t;
  auto reader = FileSettingsStore::fromEnvironment();
  EXPECT_FALSE(reader->readValue(SettingsRoot::User, kKey, "CacheName"));
  auto writer = FileSettingsStore::fromEnvironment();
  ASSERT_TRUE(writer->createKey(SettingsRoot::User, kKey));
  ASSERT_TRUE(writer->writeValue(SettingsRoot::User, kKey, "CacheName", "A"));
  EXPECT_EQ(reader->readValue(SettingsRoot::User, kKey, "CacheName"), "A");
  TempSettingsFolders::write(t.userFile(), "[Software\\Kestra\\Cache]\nCacheName=Edited\n");
  EXPECT_EQ(reader->readValue(SettingsRoot::User, kKey, "CacheName"), "Edited");
  fs::remove(t.userFile());
  EXPECT_FALSE(reader->keyExists(SettingsRoot::User, kKey));
}

TEST(FileSettingsStore, RefusesKeyNamesTheFileCannotHold) {
  TempSettingsFolders t;
  auto store = FileSettingsStore::fromEnvironment();
  for (const char* key : {"a\nb", " lead", "trail \\x", "tab\t"}) {
    EXPECT_FALSE(store->createKey(SettingsRoot::User, key)) << key;
  }
  EXPECT_FALSE(fs::exists(t.userFile()));
}

TEST(FileSettingsStore, ACorruptFileReadsAsEmptyAndIsReportedWithItsLine) {
  TempSettingsFolders t;
  TempSettingsFolders::write(t.userFile(), "[Software\\Kestra\\Cache]\nCacheName=A\noops\n");
  auto store = FileSettingsStore::fromEnvironment();
  EXPECT_FALSE(store->keyExists(SettingsRoot::User, kKey));
  EXPECT_FALSE(store->readValue(SettingsRoot::User, kKey, "CacheName"));
  auto problem = store->problem(SettingsRoot::User);
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->file, t.userFile());
  EXPECT_EQ(problem->line, 3u);
  EXPECT_EQ(problem->reason, "expected name=value or a [key] header");
  EXPECT_FALSE(store->problem(SettingsRoot::Machine));
}

TEST(FileSettingsStore, AWriteMovesACorruptFileAsideAndSaysSo) {
  TempSettingsFolders t;
  const std::string corrupt = "[Software\\Kestra\\Cache]\nCacheName=A\noops\n";
  TempSettingsFolders::write(t.userFile(), corrupt);
  std::vector<std::string> notices;
  FileSettingsStore store({t.user(), t.machine()},
                          [&](const std::string& text) { notices.push_back(text); });
  ASSERT_TRUE(store.createKey(SettingsRoot::User, kKey));
  ASSERT_EQ(notices.size(), 1u);
  EXPECT_NE(notices[0].find("line 3: expected name=value"), std::string::npos) << notices[0];
  std::vector<std::string> aside;
  for (const auto& name : filesIn(t.user())) {
    if (name.rfind("settings.ini.corrupt-", 0) == 0) aside.push_back(name);
  }
  ASSERT_EQ(aside.size(), 1u);
  EXPECT_NE(notices[0].find(aside[0]), std::string::npos);
  EXPECT_EQ(TempSettingsFolders::read(t.user() + "/" + aside[0]), corrupt);
  EXPECT_TRUE(store.keyExists(SettingsRoot::User, kKey));
  EXPECT_FALSE(store.problem(SettingsRoot::User));
}

TEST(FileSettingsStore, AnUnreadableFileIsNeverOverwritten) {
  TempSettingsFolders t;
  fs::create_directories(t.userFile());  // a folder where the file should be cannot be read
  auto store = FileSettingsStore::fromEnvironment();
  EXPECT_FALSE(store->createKey(SettingsRoot::User, kKey));
  auto problem = store->problem(SettingsRoot::User);
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->line, 0u);
  EXPECT_NE(problem->reason.find("cannot be read"), std::string::npos);
  EXPECT_TRUE(fs::is_directory(t.userFile()));
}

TEST(FileSettingsStore, TwoProcessesWritingAtOnceBothKeepTheirValues) {
  TempSettingsFolders t;
  {
    auto store = FileSettingsStore::fromEnvironment();
    ASSERT_TRUE(store->createKey(SettingsRoot::User, kKey));
  }
  constexpr int kRounds = 40;
  auto writer = [&](const char* prefix) {
    auto store = FileSettingsStore::fromEnvironment();
    bool ok = true;
    for (int i = 0; i < kRounds; ++i) {
      ok = store->writeValue(SettingsRoot::User, kKey, prefix + std::to_string(i),
                             std::to_string(i)) &&
           ok;
    }
    return ok;
  };
  pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) ::_exit(writer("child") ? 0 : 1);
  bool parentOk = writer("parent");
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_TRUE(parentOk);
  auto check = FileSettingsStore::fromEnvironment();
  for (const char* prefix : {"child", "parent"}) {
    for (int i = 0; i < kRounds; ++i) {
      EXPECT_EQ(check->readValue(SettingsRoot::User, kKey, prefix + std::to_string(i)),
                std::to_string(i))
          << prefix << i;
    }
  }
}

}  // namespace
}  // namespace kxc
