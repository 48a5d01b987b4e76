// The commands of the kxc tool. Each command lives in its own *_command.cpp file and registers
// itself with a static KxcCommand object, so adding a command touches no shared file.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace kxc::cli {

// Runs a command with the arguments after its name; returns the process exit code.
using CommandMain = std::function<int(const std::vector<std::string>& args)>;

struct CommandInfo {
  std::string name;     // first word on the command line ("settings")
  std::string summary;  // one line for the help ("read and write settings")
  std::string usage;    // usage lines shown by "kxc help NAME"
  CommandMain run;
};

std::vector<CommandInfo>& commandTable();

struct KxcCommand {
  explicit KxcCommand(CommandInfo info) { commandTable().push_back(std::move(info)); }
};

}  // namespace kxc::cli
