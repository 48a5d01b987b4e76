// Creation of objects by ProgID: adapters register creators, the logic asks by name.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/dispatch.h"

namespace kxc {

// Maps ProgIDs (matched case-insensitively) to creators. An unknown ProgID, a creator that
// returns nothing or a creator that throws raises 429 "ActiveX component can't create object".
// The add-in context installs one factory for its lifetime; registration happens once it is made.
class ObjectFactory {
 public:
  using Creator = std::function<ObjectRef()>;

  void registerCreator(std::string_view progId, Creator creator);
  void unregister(std::string_view progId);
  bool has(std::string_view progId) const;
  ObjectRef create(std::string_view progId) const;

 private:
  std::map<std::string, Creator, std::less<>> creators_;
};

// The installed factory (an empty one until something is installed).
ObjectFactory& objectFactory();
// Installs `factory` (null: a fresh empty one); returns the previous one.
std::shared_ptr<ObjectFactory> setObjectFactory(std::shared_ptr<ObjectFactory> factory);

// Shorthand for objectFactory().create(progId).
ObjectRef createObject(std::string_view progId);

}  // namespace kxc
