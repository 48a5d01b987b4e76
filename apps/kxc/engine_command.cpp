// kxc engine: list the caches, import a CSV file as a cache, ask for a value, undo a write-back.
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

#include "command_registry.h"
#include "engine/contract/cache_engine.h"
#include "engine/contract/display_format.h"
#include "engine/engine_registration.h"
#include "platform/runtime_error.h"

namespace kxc::cli {
namespace {

constexpr const char* kUsage =
    "Usage: kxc engine list [--db FILE]\n"
    "       kxc engine import FILE.csv --cache NAME [--db FILE]\n"
    "       kxc engine value CACHE MEASURE [FILTER...] [--formatted] [--db FILE]\n"
    "       kxc engine undo [--db FILE]\n"
    "Works on the cache database: $KXC_ENGINE_DB, else $XDG_DATA_HOME/kestra/caches.db (the\n"
    "sample caches Sales and Budget are written there on first use), or FILE given by --db.\n"
    "  list    caches with their dimension, measure and transaction counts\n"
    "  import  builds a cache from a CSV file whose header names each column: dim:NAME,\n"
    "          caption:NAME, measure:NAME[:sum|count|min|max|average[:FORMAT]], date, reference;\n"
    "          a file with a bad row is refused as FILE:LINE: reason, and nothing is stored\n"
    "  value   the measure (index or caption) aggregated over the filters, one per dimension\n"
    "          in order (a member, \"<ALL>\" or a selection such as \"<<North..East,West\")\n"
    "  undo    reverts the newest write-back";

struct Options {
  std::vector<std::string> words;
  std::string db;
  std::string cache;
  bool formatted = false;
};

bool parse(const std::vector<std::string>& args, Options& o) {
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (a == "--db" || a == "--cache") {
      if (i + 1 >= args.size()) return false;
      (a == "--db" ? o.db : o.cache) = args[++i];
    } else if (a == "--formatted") {
      o.formatted = true;
    } else {
      o.words.push_back(a);
    }
  }
  return !o.words.empty();
}

class ProgressBar {
 public:
  ProgressBar() : shown_(isatty(STDERR_FILENO) == 1) {}
  void update(uint64_t done, uint64_t total) {
    if (!shown_ || total == 0) return;
    int percent = static_cast<int>(done * 100 / total);
    if (percent == last_) return;
    last_ = percent;
    constexpr int kWidth = 40;
    int filled = percent * kWidth / 100;
    std::fprintf(stderr, "\r[%s%s] %3d%%", std::string(filled, '#').c_str(),
                 std::string(kWidth - filled, '.').c_str(), percent);
    std::fflush(stderr);
  }
  ~ProgressBar() {
    if (shown_ && last_ >= 0) std::fprintf(stderr, "\n");
  }

 private:
  bool shown_;
  int last_ = -1;
};

int list(engine::CacheEngine& e) {
  auto caches = e.listCaches();
  std::printf("%-24s %10s %8s %12s\n", "CACHE", "DIMENSIONS", "MEASURES", "TRANSACTIONS");
  for (const auto& c : caches) {
    std::printf("%-24s %10d %8d %12lld\n", c.name.c_str(), c.dimensionCount, c.measureCount,
                static_cast<long long>(c.transactionCount));
  }
  return 0;
}

int import(engine::CacheEngine& e, const Options& o) {
  if (o.words.size() != 2 || o.cache.empty()) {
    std::fprintf(stderr, "%s\n", kUsage);
    return 2;
  }
  int32_t index;
  {
    ProgressBar bar;
    index = e.importCsv(o.words[1], o.cache,
                        [&bar](uint64_t done, uint64_t total) { bar.update(done, total); });
  }
  const auto c = e.listCaches()[static_cast<size_t>(index - 1)];
  std::printf("imported %s: %d dimensions, %d measures, %lld transactions\n", c.name.c_str(),
              c.dimensionCount, c.measureCount, static_cast<long long>(c.transactionCount));
  return 0;
}

int value(engine::CacheEngine& e, const Options& o) {
  if (o.words.size() < 3) {
    std::fprintf(stderr, "%s\n", kUsage);
    return 2;
  }
  Variant cache(o.words[1]), measure(o.words[2]);
  std::vector<Variant> filters;
  for (size_t i = 3; i < o.words.size(); ++i) filters.emplace_back(o.words[i]);
  double v = e.value(cache, measure, 0, filters);
  std::string text = o.formatted ? e.formatValue(cache, measure, v) : formatNumber(v);
  std::printf("%s\n", text.c_str());
  return 0;
}

int run(const std::vector<std::string>& args) {
  Options o;
  if (!parse(args, o)) {
    std::fprintf(stderr, "%s\n", kUsage);
    return 2;
  }
  engine::EngineOptions options;
  options.databasePath = o.db;
  // Samples belong in the user's own database, not in a file named for one job.
  options.generateSamples = o.db.empty();
  try {
    auto made = engine::makeEngine(options);
    engine::CacheEngine& e = *made;
    const std::string& verb = o.words[0];
    if (verb == "list" && o.words.size() == 1) return list(e);
    if (verb == "import") return import(e, o);
    if (verb == "value") return value(e, o);
    if (verb == "undo" && o.words.size() == 1) {
      std::string what = e.lastWriteBack();
      if (!e.undoWriteBack()) {
        std::printf("nothing to undo\n");
        return 1;
      }
      std::printf("undone: %s\n", what.c_str());
      return 0;
    }
  } catch (const RuntimeError& err) {
    std::fprintf(stderr, "kxc engine: %s\n", err.description().c_str());
    return 1;
  }
  std::fprintf(stderr, "%s\n", kUsage);
  return 2;
}

const KxcCommand kRegistration({"engine", "cache database: list, import CSV, values, undo", kUsage,
                                run});

}  // namespace
}  // namespace kxc::cli
