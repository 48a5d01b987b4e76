#include "engine/contract/engine_options.h"

#include <cstdlib>

namespace kxc::engine {

namespace {

std::string envOr(const char* name, const std::string& fallback) {
  const char* v = std::getenv(name);
  return (v && *v) ? std::string(v) : fallback;
}

}  // namespace

std::string defaultDatabasePath() {
  std::string explicitPath = envOr("KXC_ENGINE_DB", "");
  if (!explicitPath.empty()) return explicitPath;
  std::string home = envOr("HOME", ".");
  std::string dataHome = envOr("XDG_DATA_HOME", home + "/.local/share");
  return dataHome + "/kestra/caches.db";
}

std::string resolvedDatabasePath(const EngineOptions& options) {
  return options.databasePath.empty() ? defaultDatabasePath() : options.databasePath;
}

}  // namespace kxc::engine
