// Where the two settings roots live, from the environment.
#pragma once

#include <string>

namespace kxc {

struct SettingsFolders {
  std::string user;     // $KXC_CONFIG_HOME, else $XDG_CONFIG_HOME/kestra, else ~/.config/kestra
  std::string machine;  // $KXC_CONFIG_MACHINE, else (first of $XDG_CONFIG_DIRS)/kestra,
                        // else /etc/xdg/kestra
};

// Reads the variables now. Relative paths in the XDG variables are ignored, as the convention
// asks; an unset or empty variable counts as unset.
SettingsFolders settingsFoldersFromEnvironment();

}  // namespace kxc
