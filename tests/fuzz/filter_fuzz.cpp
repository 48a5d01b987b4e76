// Fuzzes the engine's filter parser. The input's lines are the members of one dimension (value,
// then caption after a tab); its last line is the filter. A filter that reads names members
// that exist, ascending and each once.
#include <string>
#include <vector>

#include "engine/contract/cache_model.h"
#include "engine/contract/filter_parser.h"
#include "fuzz_support.h"
#include "platform/runtime_error.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace kxc::engine;
  std::vector<std::string_view> lines = kxc::fuzz::fields(kxc::fuzz::asText(data, size), "\n", 64);
  const std::string filter(lines.back());
  lines.pop_back();
  CacheDefinition definition;
  definition.name = "Fuzz";
  DimensionDef& dimension = definition.dimensions.emplace_back();
  for (std::string_view line : lines) {
    std::vector<std::string_view> parts = kxc::fuzz::fields(line, "\t", 2);
    dimension.members.push_back({std::string(parts.front()), std::string(parts.back())});
  }
  definition.measures.push_back({"Value", Aggregation::Sum, ""});
  const CacheModel cache(1, std::move(definition));
  try {
    MemberFilter f = parseFilter(cache, 0, kxc::Variant(filter));
    for (std::size_t i = 0; i < f.members.size(); ++i) {
      KXC_FUZZ_CHECK(f.members[i] >= 0 && f.members[i] < cache.memberCount(0));
      KXC_FUZZ_CHECK(i == 0 || f.members[i - 1] < f.members[i]);
    }
    KXC_FUZZ_CHECK(!f.all || f.members.empty());
  } catch (const kxc::RuntimeError&) {
    // Unknown members and unreadable selections are numbered errors.
  }
  return 0;
}
