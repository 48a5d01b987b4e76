#include "platform/dispatch.h"

#include "platform/runtime_error.h"
#include "platform/text_rules.h"

namespace kxc {

Variant invoke(const ObjectRef& object, std::string_view member, std::vector<Argument> args,
               CallKind kind) {
  if (!object) throw RuntimeError(err::kObjectNotSet);
  return object->invoke(member, Arguments(args), kind);
}

std::string memberKey(std::string_view member) { return upperCase(member); }

void DispatchTable::method(std::string_view name, Handler handler) {
  methods_[memberKey(name)] = std::move(handler);
}

void DispatchTable::property(std::string_view name, Handler getter, Handler setter) {
  std::string key = memberKey(name);
  getters_[key] = std::move(getter);
  if (setter) setters_[key] = std::move(setter);
}

void DispatchTable::remove(std::string_view name) {
  std::string key = memberKey(name);
  methods_.erase(key);
  getters_.erase(key);
  setters_.erase(key);
}

bool DispatchTable::has(std::string_view name) const {
  std::string key = memberKey(name);
  return methods_.count(key) || getters_.count(key) || setters_.count(key);
}

std::vector<std::string> DispatchTable::names() const {
  std::map<std::string, int> all;
  for (auto& [k, v] : methods_) all[k];
  for (auto& [k, v] : getters_) all[k];
  for (auto& [k, v] : setters_) all[k];
  std::vector<std::string> out;
  for (auto& [k, v] : all) out.push_back(k);
  return out;
}

Variant DispatchTable::invoke(std::string_view member, Arguments args, CallKind kind) const {
  std::string key = memberKey(member);
  if (kind == CallKind::PropertyPut) {
    if (auto it = setters_.find(key); it != setters_.end()) return it->second(args);
    throw RuntimeError(err::kNoSuchMember);
  }
  if (auto it = methods_.find(key); it != methods_.end()) return it->second(args);
  if (auto it = getters_.find(key); it != getters_.end()) return it->second(args);
  throw RuntimeError(err::kNoSuchMember);
}

const Variant& argAt(Arguments args, std::size_t index) {
  if (index >= args.size()) throw RuntimeError(449, "Argument not optional");
  return args[index].value();
}

}  // namespace kxc
