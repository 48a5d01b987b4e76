// kxc: the command-line tool of the cache add-in.
#include <cstdio>
#include <cstring>
#include <string>

#include "version.h"

namespace {

const char* const kVersion = kxc::libraryVersion();

void printHelp() {
  std::printf(
      "kxc %s - command-line tool of the Kestra Cache add-in\n"
      "\n"
      "Usage: kxc COMMAND [ARGS]\n"
      "\n"
      "Commands:\n"
      "  help             show this help\n"
      "  version          show the version\n",
      kVersion);
}

}  // namespace

int main(int argc, char** argv) {
  std::string cmd = argc > 1 ? argv[1] : "help";
  if (cmd == "help" || cmd == "--help" || cmd == "-h") {
    printHelp();
    return 0;
  }
  if (cmd == "version" || cmd == "--version") {
    std::printf("kxc %s\n", kVersion);
    return 0;
  }
  std::fprintf(stderr, "kxc: unknown command '%s' (try 'kxc help')\n", cmd.c_str());
  return 2;
}
