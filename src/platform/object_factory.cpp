#include "platform/object_factory.h"

#include "platform/runtime_error.h"

namespace kxc {

ObjectFactory& ObjectFactory::instance() {
  static ObjectFactory factory;
  return factory;
}

void ObjectFactory::registerCreator(std::string_view progId, Creator creator) {
  creators_[memberKey(progId)] = std::move(creator);
}

void ObjectFactory::unregister(std::string_view progId) { creators_.erase(memberKey(progId)); }

bool ObjectFactory::has(std::string_view progId) const {
  return creators_.count(memberKey(progId)) > 0;
}

ObjectRef ObjectFactory::create(std::string_view progId) const {
  auto it = creators_.find(memberKey(progId));
  if (it == creators_.end()) throw RuntimeError(err::kCannotCreate);
  ObjectRef object;
  try {
    object = it->second();
  } catch (...) {
    throw RuntimeError(err::kCannotCreate);
  }
  if (!object) throw RuntimeError(err::kCannotCreate);
  return object;
}

ObjectRef createObject(std::string_view progId) { return ObjectFactory::instance().create(progId); }

}  // namespace kxc
