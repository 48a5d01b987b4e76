#include "engine/contract/engine_errors.h"

namespace kxc::engine {

RuntimeError unknownCache(std::string_view name) {
  return RuntimeError(engine_err::kUnknownCache, "Unknown cache: " + std::string(name));
}

RuntimeError unknownMember(std::string_view member, std::string_view dimension) {
  return RuntimeError(engine_err::kUnknownMember, "Unknown member '" + std::string(member) +
                                                      "' in dimension " + std::string(dimension));
}

RuntimeError badFilter(std::string_view filter) {
  return RuntimeError(engine_err::kBadFilter,
                      "Cannot read the filter '" + std::string(filter) + "'");
}

RuntimeError outOfRange(std::string_view what, long long index, long long count,
                        std::string_view cache) {
  std::string range = count > 0 ? " (1 to " + std::to_string(count) + ")" : " (it has none)";
  return RuntimeError(engine_err::kOutOfRange, std::string(what) + " " + std::to_string(index) +
                                                   " does not exist in cache " +
                                                   std::string(cache) + range);
}

RuntimeError databaseError(std::string_view detail) {
  return RuntimeError(engine_err::kDatabase, "Cache database error: " + std::string(detail));
}

}  // namespace kxc::engine
