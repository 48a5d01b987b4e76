#include "engine/engine_registration.h"

#include "engine/embedded/embedded_backend.h"

namespace kxc::engine {

std::shared_ptr<CacheEngine> makeEngine(EngineOptions options) {
  std::string path = resolvedDatabasePath(options);
  return std::make_shared<CacheEngine>(std::move(options), path,
                                       [path] { return std::make_unique<EmbeddedBackend>(path); });
}

std::shared_ptr<CacheEngine> registerEngineObjects(ObjectFactory& factory, EngineOptions options) {
  auto core = makeEngine(std::move(options));
  registerEngineObjects(factory, core);
  return core;
}

}  // namespace kxc::engine
