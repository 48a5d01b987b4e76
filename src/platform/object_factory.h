// Creation of objects by ProgID: adapters register creators, the logic asks by name.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "platform/dispatch.h"

namespace kxc {

// Maps ProgIDs (matched case-insensitively) to creators. An unknown ProgID, a creator that
// returns nothing or a creator that throws raises 429 "ActiveX component can't create object".
// One process-wide instance; registration normally happens once at start-up.
class ObjectFactory {
 public:
  using Creator = std::function<ObjectRef()>;

  static ObjectFactory& instance();

  void registerCreator(std::string_view progId, Creator creator);
  void unregister(std::string_view progId);
  bool has(std::string_view progId) const;
  ObjectRef create(std::string_view progId) const;

 private:
  std::map<std::string, Creator, std::less<>> creators_;
};

// Shorthand for ObjectFactory::instance().create(progId).
ObjectRef createObject(std::string_view progId);

}  // namespace kxc
