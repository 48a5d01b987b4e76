// The settings an engine is created with: where its database lives and how it behaves.
#pragma once

#include <cstdint>
#include <string>

namespace kxc::engine {

struct EngineOptions {
  // The database file. Empty means defaultDatabasePath().
  std::string databasePath;
  // Generate the sample caches "Sales" and "Budget" when the database holds no cache.
  bool generateSamples = true;
  // Number of transactions of the generated "Sales" cache.
  int64_t sampleSalesRows = 200000;
  // Remember aggregation results per (cache, measure, filters) until the cache changes.
  bool memoize = true;
};

// $KXC_ENGINE_DB when set, else $XDG_DATA_HOME/kestra/caches.db with XDG_DATA_HOME defaulting
// to ~/.local/share. Creates nothing.
std::string defaultDatabasePath();

// The path an engine with these options opens: the option's own path or the default.
std::string resolvedDatabasePath(const EngineOptions& options);

}  // namespace kxc::engine
