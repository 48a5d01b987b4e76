// kxc formula: take cache formula text apart into its record, and build the text back.
#include <cstdio>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "command_registry.h"
#include "engine/contract/cache_engine.h"
#include "engine/contract/engine_object.h"
#include "engine/engine_registration.h"
#include "grammar/cache_formula_json.h"
#include "grammar/parse_formula.h"
#include "grammar/write_cache_formula.h"
#include "platform/dispatch.h"
#include "platform/runtime_error.h"
#include "platform/services.h"
#include "platform/workbook/in_memory_application.h"
#include "state/add_in_context.h"
#include "state/tm_excel.h"
#include "state/tm_globals.h"

namespace kxc::cli {
namespace {

constexpr const char* kUsage =
    "Usage: kxc formula parse TEXT [--cell REF=VALUE]... [--name NAME=REF]... [--db FILE]\n"
    "       kxc formula write [JSON | -] [--cell REF=VALUE]... [--name NAME=REF]...\n"
    "Arguments that are references are resolved in a scratch workbook (Book1.xlsx, sheet\n"
    "Sheet1): --cell enters VALUE into REF as typed, --name defines NAME for REF.\n"
    "  parse  prints the parsed record as JSON: Cache, CacheIndex, Measure, MeasureIndex,\n"
    "         DimCount and Dims (null when the formula has no dimension argument).\n"
    "         CacheIndex is the engine's CacheFind of the resolved cache: with --db, the\n"
    "         cache database FILE answers; without it a stand-in engine answers 0 for\n"
    "         every cache. A parse error is printed to standard error (exit code 1) and\n"
    "         the record is printed as far as it was filled.\n"
    "  write  reads such a record (the JSON argument, or standard input when it is left\n"
    "         out or \"-\") and prints its formula text; a cache or dimension that is a\n"
    "         reference is written bare, any other text between double quotes.";

struct Options {
  std::vector<std::string> words;
  std::vector<std::pair<std::string, std::string>> cells;
  std::vector<std::pair<std::string, std::string>> names;
  std::string db;
};

bool splitPair(const std::string& text, std::pair<std::string, std::string>& out) {
  std::size_t eq = text.find('=');
  if (eq == std::string::npos || eq == 0) return false;
  out = {text.substr(0, eq), text.substr(eq + 1)};
  return true;
}

bool parseOptions(const std::vector<std::string>& args, Options& o) {
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (a == "--cell" || a == "--name") {
      std::pair<std::string, std::string> pair;
      if (i + 1 >= args.size() || !splitPair(args[++i], pair)) return false;
      (a == "--cell" ? o.cells : o.names).push_back(pair);
    } else if (a == "--db") {
      if (i + 1 >= args.size()) return false;
      o.db = args[++i];
    } else if (a.size() > 2 && a.rfind("--", 0) == 0) {
      return false;
    } else {
      o.words.push_back(a);
    }
  }
  return !o.words.empty();
}

// Prints the library's message boxes to standard error and counts them.
class ConsoleServices : public Services {
 public:
  int messageBox(std::string_view text, int, std::string_view title) override {
    std::fprintf(stderr, "kxc formula: %.*s: %.*s\n", static_cast<int>(title.size()), title.data(),
                 static_cast<int>(text.size()), text.data());
    ++messages;
    return mb::kIdOk;
  }
  void clipboardClear() override {}
  void clipboardSetText(std::string_view) override {}
  std::string clipboardText() override { return ""; }
  void doEvents() override {}
  WindowHandle findWindowByTitle(std::string_view) override { return 0; }
  bool openWithDesktop(const std::string&) override { return false; }

  int messages = 0;
};

// Answers CacheFind with 0 for any cache: parsing then needs no database.
class StandInEngine : public DispatchObject {
 public:
  StandInEngine() {
    table_.method("CacheFind", [](Arguments) { return Variant(int32_t{0}); });
  }
  Variant invoke(std::string_view member, Arguments args, CallKind kind) override {
    return table_.invoke(member, args, kind);
  }

 private:
  DispatchTable table_;
};

// The scratch workbook with the given cells and names, hooked into gExcelSink.
std::shared_ptr<workbook::InMemoryApplication> scratchWorkbook(const Options& o) {
  auto app = workbook::InMemoryApplication::create("kxc");
  app->addWorkbook("Book1.xlsx");
  for (const auto& [reference, value] : o.cells) {
    try {
      app->setCell(reference, value);
    } catch (const RuntimeError& e) {
      throw RuntimeError(e.number(), "--cell " + reference + ": " + e.description());
    }
  }
  for (const auto& [name, reference] : o.names) {
    try {
      app->defineName(name, reference);
    } catch (const RuntimeError& e) {
      throw RuntimeError(e.number(), "--name " + name + ": " + e.description());
    }
  }
  gExcelSink->Initialise(app);
  return app;
}

int parseCommand(const Options& o, ConsoleServices& console) {
  if (o.words.size() != 2) {
    std::fprintf(stderr, "%s\n", kUsage);
    return 2;
  }
  auto app = scratchWorkbook(o);
  if (o.db.empty()) {
    gCacheEngine = std::make_shared<StandInEngine>();
  } else {
    engine::EngineOptions options;
    options.databasePath = o.db;
    options.generateSamples = false;
    gCacheEngine = std::make_shared<engine::EngineObject>(engine::makeEngine(options));
  }
  CacheFormula record = ParseFormula(o.words[1]);
  std::fputs(cacheFormulaToJson(record).c_str(), stdout);
  return console.messages == 0 ? 0 : 1;
}

int writeCommand(const Options& o) {
  if (o.words.size() > 2 || !o.db.empty()) {
    std::fprintf(stderr, "%s\n", kUsage);
    return 2;
  }
  std::string json;
  if (o.words.size() == 2 && o.words[1] != "-") {
    json = o.words[1];
  } else {
    json.assign(std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>());
  }
  CacheFormula record;
  std::string error;
  if (!cacheFormulaFromJson(json, record, error)) {
    std::fprintf(stderr, "kxc formula write: bad record: %s\n", error.c_str());
    return 2;
  }
  auto app = scratchWorkbook(o);
  std::printf("%s\n", cacheFormulaText(record).c_str());
  return 0;
}

int run(const std::vector<std::string>& args) {
  Options o;
  if (!parseOptions(args, o)) {
    std::fprintf(stderr, "%s\n", kUsage);
    return 2;
  }
  auto console = std::make_shared<ConsoleServices>();
  AddInContext::Setup setup;
  setup.services = console;
  AddInContext context(std::move(setup));
  int rc = 2;
  try {
    if (o.words[0] == "parse") {
      rc = parseCommand(o, *console);
    } else if (o.words[0] == "write") {
      rc = writeCommand(o);
    } else {
      std::fprintf(stderr, "%s\n", kUsage);
    }
  } catch (const RuntimeError& e) {
    std::fprintf(stderr, "kxc formula: %s\n", e.description().c_str());
    rc = 2;
  }
  return rc;
}

const KxcCommand kRegistration({"formula",
                                "parse cache formula text into its record, write it back", kUsage,
                                run});

}  // namespace
}  // namespace kxc::cli
