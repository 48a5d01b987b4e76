// kxc settings: reads and writes the settings store from the command line.
#include <cstdio>
#include <string>
#include <vector>

#include "command_registry.h"
#include "platform/settings/file_settings_store.h"
#include "platform/settings/settings_file_format.h"

namespace kxc::cli {
namespace {

constexpr const char* kUsage =
    "Usage: kxc settings get [--machine] KEY NAME     print a value\n"
    "       kxc settings set [--machine] KEY NAME VALUE  write a value into an existing key\n"
    "       kxc settings create [--machine] KEY       create a key and the levels above it\n"
    "       kxc settings list [--machine]             show the file and everything in it\n"
    "KEY has \\ between levels, for example Software\\Kestra\\Cache. Without --machine the\n"
    "per-user settings are used.";

int usage() {
  std::fprintf(stderr, "%s\n", kUsage);
  return 2;
}

void reportProblem(FileSettingsStore& store, SettingsRoot root) {
  if (auto problem = store.problem(root)) {
    std::fprintf(stderr, "%s:%zu: %s (the file counts as empty)\n", problem->file.c_str(),
                 problem->line, problem->reason.c_str());
  }
}

int list(FileSettingsStore& store, SettingsRoot root) {
  std::printf("# %s\n", store.filePath(root).c_str());
  auto problem = store.problem(root);
  if (problem) {
    reportProblem(store, root);
    return 1;
  }
  SettingsDocument contents = store.contents(root);
  for (const auto& section : contents.sections()) {
    std::printf("[%s]\n", section.key.c_str());
    for (const auto& entry : section.entries) {
      std::printf("%s=%s\n", escapeSettingsName(entry.name).c_str(),
                  escapeSettingsValue(entry.value).c_str());
    }
  }
  return 0;
}

int run(const std::vector<std::string>& all) {
  std::vector<std::string> args;
  SettingsRoot root = SettingsRoot::User;
  for (const auto& a : all) {
    if (a == "--machine") {
      root = SettingsRoot::Machine;
    } else {
      args.push_back(a);
    }
  }
  if (args.empty()) return usage();
  const std::string& verb = args[0];
  auto store = FileSettingsStore::fromEnvironment();
  if (verb == "list" && args.size() == 1) return list(*store, root);
  if (verb == "create" && args.size() == 2) {
    if (store->createKey(root, args[1])) return 0;
    std::fprintf(stderr, "kxc settings: cannot create %s in %s\n", args[1].c_str(),
                 store->filePath(root).c_str());
    return 1;
  }
  if (verb == "get" && args.size() == 3) {
    reportProblem(*store, root);
    if (auto value = store->readValue(root, args[1], args[2])) {
      std::fwrite(value->data(), 1, value->size(), stdout);
      std::printf("\n");
      return 0;
    }
    std::fprintf(stderr, "kxc settings: no value %s in %s\n", args[2].c_str(), args[1].c_str());
    return 1;
  }
  if (verb == "set" && args.size() == 4) {
    if (store->writeValue(root, args[1], args[2], args[3])) return 0;
    if (!store->keyExists(root, args[1])) {
      std::fprintf(stderr,
                   "kxc settings: the key %s does not exist (create it with 'kxc settings "
                   "create%s %s')\n",
                   args[1].c_str(), root == SettingsRoot::Machine ? " --machine" : "",
                   args[1].c_str());
    } else {
      std::fprintf(stderr, "kxc settings: cannot write %s\n", store->filePath(root).c_str());
    }
    return 1;
  }
  return usage();
}

const KxcCommand kCommand({"settings", "read and write the settings (per user or per machine)",
                           kUsage, run});

}  // namespace
}  // namespace kxc::cli
