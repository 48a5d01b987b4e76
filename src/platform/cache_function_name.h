// The name of the worksheet function that binds a cell to the cache engine, and the texts the
// add-in builds from it.
#pragma once

#include <string_view>

namespace kxc {

inline constexpr std::string_view kCacheFunctionName = "BV_KXCSUM";

// "BV_KXCSUM(": where a call of the function starts.
inline constexpr std::string_view kCacheCallStart = "BV_KXCSUM(";
// "=BV_KXCSUM(": how a cache formula starts.
inline constexpr std::string_view kCacheFormulaStart = "=BV_KXCSUM(";

static_assert(kCacheCallStart.substr(0, kCacheFunctionName.size()) == kCacheFunctionName);
static_assert(kCacheFormulaStart.substr(1) == kCacheCallStart);

}  // namespace kxc
