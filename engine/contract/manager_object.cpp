#include "engine/contract/manager_object.h"

#include "engine/contract/engine_errors.h"

namespace kxc::engine {

namespace {

ManagerWindowOpener& opener() {
  static ManagerWindowOpener instance;
  return instance;
}

}  // namespace

void setManagerWindowOpener(ManagerWindowOpener o) { opener() = std::move(o); }

ManagerObject::ManagerObject(std::shared_ptr<CacheEngine> core) : core_(std::move(core)) {
  table_.method("Window", [](Arguments a) {
    if (a.size() > 1) {
      throw RuntimeError(kWrongArgumentCount,
                         "Wrong number of arguments or invalid property assignment");
    }
    ObjectRef engine = argAt(a, 0).object();
    if (!engine) throw RuntimeError(err::kObjectRequired);
    if (!opener()) {
      throw RuntimeError(engine_err::kNoWindow,
                         "The cache manager window is not available in this program");
    }
    ManagerWindowOpener open = opener();  // a copy survives an opener that replaces itself
    open(engine);
    return Variant();
  });
  table_.method("Shutdown", [this](Arguments a) {
    if (!a.empty()) {
      throw RuntimeError(kWrongArgumentCount,
                         "Wrong number of arguments or invalid property assignment");
    }
    core_->shutdown();
    return Variant();
  });
}

Variant ManagerObject::invoke(std::string_view member, Arguments args, CallKind kind) {
  return table_.invoke(member, args, kind);
}

}  // namespace kxc::engine
