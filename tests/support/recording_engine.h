// A dispatch object for tests: scripted results per member, a log of every call with each
// argument's type, by-reference flag and value, failure injection and removable members.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/dispatch.h"

namespace kxc::testing {

struct LoggedArgument {
  VarType type;
  bool byRef;
  Variant value;
};

struct LoggedCall {
  std::string member;  // as the caller spelled it
  CallKind kind;
  std::vector<LoggedArgument> args;
};

class RecordingEngine : public DispatchObject {
 public:
  using Script = std::function<Variant(Arguments)>;

  // Every member answers Empty until scripted; scripting is by case-insensitive name.
  void script(std::string_view member, Variant result);
  void script(std::string_view member, Script script);
  // The member raises RuntimeError(number, description) from now on.
  void fail(std::string_view member, int number, std::string description);
  // The member no longer exists: calls raise 438.
  void removeMember(std::string_view member);

  const std::vector<LoggedCall>& calls() const { return calls_; }
  std::vector<LoggedCall> callsTo(std::string_view member) const;
  std::vector<std::string> memberSequence() const;  // the members called, in order
  void clearLog() { calls_.clear(); }

  Variant invoke(std::string_view member, Arguments args, CallKind kind) override;

 private:
  std::map<std::string, Script, std::less<>> scripts_;
  std::set<std::string, std::less<>> removed_;
  std::vector<LoggedCall> calls_;
};

}  // namespace kxc::testing
