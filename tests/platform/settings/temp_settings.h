// A temporary folder for settings tests, with both store roots pointed into it through the
// environment for the test's lifetime.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace kxc::testing {

class TempSettingsFolders {
 public:
  TempSettingsFolders() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kxc-settings-XXXXXX").string();
    root_ = ::mkdtemp(pattern.data());
    user_ = root_ + "/user";
    machine_ = root_ + "/machine";
    ::setenv("KXC_CONFIG_HOME", user_.c_str(), 1);
    ::setenv("KXC_CONFIG_MACHINE", machine_.c_str(), 1);
  }
  ~TempSettingsFolders() {
    ::unsetenv("KXC_CONFIG_HOME");
    ::unsetenv("KXC_CONFIG_MACHINE");
    std::error_code ec;
    std::filesystem::remove_all(root_, ec);
  }
  TempSettingsFolders(const TempSettingsFolders&) = delete;
  TempSettingsFolders& operator=(const TempSettingsFolders&) = delete;

  const std::string& root() const { return root_; }
  const std::string& user() const { return user_; }
  const std::string& machine() const { return machine_; }
  std::string userFile() const { return user_ + "/settings.ini"; }
  std::string machineFile() const { return machine_ + "/settings.ini"; }

  static void write(const std::string& path, const std::string& text) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << text;
  }
  static std::string read(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
  }

 private:
  std::string root_, user_, machine_;
};

}  // namespace kxc::testing
