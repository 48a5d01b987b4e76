#include "engine/contract/cache_function.h"

#include <vector>

#include "engine/contract/cache_definition.h"
#include "engine/contract/engine_errors.h"

namespace kxc::engine {

namespace {

Variant evaluate(const ObjectRef& engine, std::span<const Variant> args) {
  for (const auto& a : args) {
    if (a.isError()) return a;
  }
  if (args.size() < 2 || args.size() > 2 + static_cast<size_t>(kMaxDimensions)) {
    return cellerr::kValue;
  }
  std::vector<Argument> call;
  call.push_back(Argument::byValue(args[0]));
  call.push_back(Argument::byValue(args[1]));
  call.push_back(Argument::byValue(Variant(int16_t{0})));
  for (size_t i = 2; i < args.size(); ++i) {
    bool none = args[i].isEmpty() || (args[i].isText() && args[i].text().empty());
    call.push_back(Argument::byValue(none ? Variant("<ALL>") : args[i]));
  }
  try {
    return Variant(invoke(engine, "CacheGetValueAllAggregationTypes", std::move(call)).toDouble());
  } catch (const RuntimeError& e) {
    if (e.number() == engine_err::kUnknownCache || e.number() == engine_err::kUnknownMember) {
      return cellerr::kNA;
    }
    return cellerr::kValue;
  }
}

}  // namespace

void registerCacheFunction(host::FunctionRegistry& registry, ObjectRef engine) {
  registry.registerFunction(
      std::string(kCacheFunctionName),
      [engine](std::span<const Variant> args) { return evaluate(engine, args); });
}

}  // namespace kxc::engine
