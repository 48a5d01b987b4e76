// The dispatch port: calling an object's member by name at run time with variant arguments,
// each passed by value or by reference, the way a late-bound call does.
#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/variant.h"

namespace kxc {

enum class CallKind { Method, PropertyGet, PropertyPut };

// One argument of a call. A by-reference argument refers to the caller's variable, which the
// callee may overwrite through assign(); a by-value argument keeps any assignment to itself.
// A by-reference argument must not outlive the variable it refers to.
class Argument {
 public:
  static Argument byValue(Variant v) { return Argument(std::move(v), nullptr); }
  static Argument byRef(Variant& target) { return Argument(Variant(), &target); }

  bool isByRef() const { return target_ != nullptr; }
  const Variant& value() const { return target_ ? *target_ : local_; }
  void assign(Variant v) { (target_ ? *target_ : local_) = std::move(v); }

 private:
  Argument(Variant v, Variant* target) : local_(std::move(v)), target_(target) {}
  Variant local_;
  Variant* target_;
};

using Arguments = std::span<Argument>;

// An object reached by member name. Member names match case-insensitively. A member the object
// does not have raises 438 "Object doesn't support this property or method"; a member that
// fails raises its own RuntimeError. Single-threaded: called on the user-interface thread.
class DispatchObject {
 public:
  virtual ~DispatchObject() = default;
  virtual Variant invoke(std::string_view member, Arguments args,
                         CallKind kind = CallKind::Method) = 0;
};

// Calls `member` on `object`; an empty reference raises 91.
Variant invoke(const ObjectRef& object, std::string_view member, std::vector<Argument> args = {},
               CallKind kind = CallKind::Method);

// The normalised form of a member name used for case-insensitive matching.
std::string memberKey(std::string_view member);

// A member table that objects speaking the dispatch port are built from: methods, and
// properties with a getter and an optional setter. Method and PropertyGet calls find methods
// first, then getters; PropertyPut calls find setters and receive the new value as the last
// argument.
class DispatchTable {
 public:
  using Handler = std::function<Variant(Arguments)>;

  void method(std::string_view name, Handler handler);
  void property(std::string_view name, Handler getter, Handler setter = nullptr);
  void remove(std::string_view name);
  bool has(std::string_view name) const;
  std::vector<std::string> names() const;  // upper-cased, sorted

  Variant invoke(std::string_view member, Arguments args, CallKind kind) const;

 private:
  std::map<std::string, Handler, std::less<>> methods_;
  std::map<std::string, Handler, std::less<>> getters_;
  std::map<std::string, Handler, std::less<>> setters_;
};

// Argument access for dispatch handlers: raises 449 "Argument not optional" when the argument
// is missing.
const Variant& argAt(Arguments args, std::size_t index);

}  // namespace kxc
