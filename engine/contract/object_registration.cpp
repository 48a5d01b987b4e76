#include "engine/contract/object_registration.h"

#include "engine/contract/engine_object.h"
#include "engine/contract/manager_object.h"

namespace kxc::engine {

void registerEngineObjects(ObjectFactory& factory, std::shared_ptr<CacheEngine> core) {
  factory.registerCreator(kEngineProgId, [core] { return std::make_shared<EngineObject>(core); });
  factory.registerCreator(kManagerProgId, [core] { return std::make_shared<ManagerObject>(core); });
}

}  // namespace kxc::engine
