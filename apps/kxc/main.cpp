// kxc: the command-line tool of the cache add-in.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "command_registry.h"
#include "facade/version.h"

namespace kxc::cli {

std::vector<CommandInfo>& commandTable() {
  static std::vector<CommandInfo> table;
  return table;
}

}  // namespace kxc::cli

namespace {

using kxc::cli::commandTable;

void printHelp() {
  std::printf("kxc %s - command-line tool of the Kestra Cache add-in\n\n", kxc::libraryVersion());
  std::printf("Usage: kxc COMMAND [ARGS]\n\nCommands:\n");
  std::printf("  %-12s %s\n", "help [CMD]", "show this help, or the usage of one command");
  std::printf("  %-12s %s\n", "version", "show the version");
  auto table = commandTable();
  std::sort(table.begin(), table.end(), [](auto& a, auto& b) { return a.name < b.name; });
  for (const auto& c : table) std::printf("  %-12s %s\n", c.name.c_str(), c.summary.c_str());
}

const kxc::cli::CommandInfo* find(const std::string& name) {
  for (const auto& c : commandTable()) {
    if (c.name == name) return &c;
  }
  return nullptr;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  std::string cmd = args.empty() ? "help" : args[0];
  if (cmd == "help" || cmd == "--help" || cmd == "-h") {
    if (args.size() > 1) {
      if (const auto* c = find(args[1])) {
        std::printf("%s\n", c->usage.c_str());
        return 0;
      }
    }
    printHelp();
    return 0;
  }
  if (cmd == "version" || cmd == "--version") {
    std::printf("kxc %s\n", kxc::libraryVersion());
    return 0;
  }
  if (const auto* c = find(cmd)) {
    return c->run(std::vector<std::string>(args.begin() + 1, args.end()));
  }
  std::fprintf(stderr, "kxc: unknown command '%s' (try 'kxc help')\n", cmd.c_str());
  return 2;
}
