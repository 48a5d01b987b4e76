#include "platform/object_factory.h"

#include "platform/runtime_error.h"

namespace kxc {

namespace {

std::shared_ptr<ObjectFactory>& installed() {
  static std::shared_ptr<ObjectFactory> factory = std::make_shared<ObjectFactory>();
  return factory;
}

}  // namespace

ObjectFactory& objectFactory() { return *installed(); }

std::shared_ptr<ObjectFactory> setObjectFactory(std::shared_ptr<ObjectFactory> factory) {
  std::shared_ptr<ObjectFactory> previous = std::move(installed());
  installed() = factory ? std::move(factory) : std::make_shared<ObjectFactory>();
  return previous;
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

ObjectRef createObject(std::string_view progId) { return objectFactory().create(progId); }

}  // namespace kxc
