// The cache manager as a dispatch object (ProgID "TmBvCacheManager.CacheManager"), and the hook
// through which a program supplies the manager window.
#pragma once

#include <functional>
#include <memory>

#include "engine/contract/cache_engine.h"
#include "platform/dispatch.h"

namespace kxc::engine {

// Opens the cache-manager window for the given engine object. Installed once by a program with
// a user interface; process-wide. Null removes it.
using ManagerWindowOpener = std::function<void(ObjectRef engine)>;
void setManagerWindowOpener(ManagerWindowOpener opener);

// Members:
//   Window(engine)  opens the window through the installed opener, handing it the engine
//                   object; raises 424 when the argument is no object, 30009 when no opener
//                   is installed.
//   Shutdown()      releases the engine's loaded caches and closes its database; the next
//                   engine call reopens it.
class ManagerObject : public DispatchObject {
 public:
  explicit ManagerObject(std::shared_ptr<CacheEngine> core);
  Variant invoke(std::string_view member, Arguments args, CallKind kind) override;

 private:
  std::shared_ptr<CacheEngine> core_;
  DispatchTable table_;
};

}  // namespace kxc::engine
