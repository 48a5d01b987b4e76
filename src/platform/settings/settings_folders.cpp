#include "platform/settings/settings_folders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace kxc {

namespace {

std::string env(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string homeFolder() {
  if (std::string home = env("HOME"); !home.empty()) return home;
  if (const passwd* pw = ::getpwuid(::getuid()); pw && pw->pw_dir) return pw->pw_dir;
  return "/";
}

}  // namespace

SettingsFolders settingsFoldersFromEnvironment() {
  SettingsFolders folders;
  if (std::string dir = env("KXC_CONFIG_HOME"); !dir.empty()) {
    folders.user = dir;
  } else if (std::string xdg = env("XDG_CONFIG_HOME"); !xdg.empty() && xdg.front() == '/') {
    folders.user = xdg + "/kestra";
  } else {
    folders.user = homeFolder() + "/.config/kestra";
  }
  if (std::string dir = env("KXC_CONFIG_MACHINE"); !dir.empty()) {
    folders.machine = dir;
    return folders;
  }
  folders.machine = "/etc/xdg/kestra";
  std::string dirs = env("XDG_CONFIG_DIRS");
  std::string first = dirs.substr(0, dirs.find(':'));
  if (!first.empty() && first.front() == '/') folders.machine = first + "/kestra";
  return folders;
}

}  // namespace kxc
