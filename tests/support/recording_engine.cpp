#include "support/recording_engine.h"

#include "platform/runtime_error.h"

namespace kxc::testing {

void RecordingEngine::script(std::string_view member, Variant result) {
  scripts_[memberKey(member)] = [result](Arguments) { return result; };
}

void RecordingEngine::script(std::string_view member, Script script) {
  scripts_[memberKey(member)] = std::move(script);
}

void RecordingEngine::fail(std::string_view member, int number, std::string description) {
  scripts_[memberKey(member)] = [number, description](Arguments) -> Variant {
    throw RuntimeError(number, description);
  };
}

void RecordingEngine::removeMember(std::string_view member) { removed_.insert(memberKey(member)); }

std::vector<LoggedCall> RecordingEngine::callsTo(std::string_view member) const {
  std::vector<LoggedCall> out;
  std::string key = memberKey(member);
  for (const auto& c : calls_) {
    if (memberKey(c.member) == key) out.push_back(c);
  }
  return out;
}

std::vector<std::string> RecordingEngine::memberSequence() const {
  std::vector<std::string> out;
  for (const auto& c : calls_) out.push_back(c.member);
  return out;
}

Variant RecordingEngine::invoke(std::string_view member, Arguments args, CallKind kind) {
  std::string key = memberKey(member);
  if (removed_.count(key)) throw RuntimeError(err::kNoSuchMember);
  LoggedCall call{std::string(member), kind, {}};
  for (const auto& a : args) call.args.push_back({a.value().type(), a.isByRef(), a.value()});
  calls_.push_back(std::move(call));
  auto it = scripts_.find(key);
  if (it == scripts_.end()) return Variant();
  return it->second(args);
}

}  // namespace kxc::testing
