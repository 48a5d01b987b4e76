#include "engine/engine_registration.h"

#include "engine/engine_object.h"
#include "engine/manager_object.h"

namespace kxc::engine {

std::shared_ptr<CacheEngine> registerEngineObjects(ObjectFactory& factory, EngineOptions options) {
  auto core = std::make_shared<CacheEngine>(std::move(options));
  factory.registerCreator(kEngineProgId, [core] { return std::make_shared<EngineObject>(core); });
  factory.registerCreator(kManagerProgId, [core] { return std::make_shared<ManagerObject>(core); });
  return core;
}

}  // namespace kxc::engine
