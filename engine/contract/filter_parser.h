// Dimension filters: turning a filter argument (Empty, "<ALL>", one member by value or caption,
// or a selection text such as "<<A..C,E") into the set of members it names.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "engine/contract/cache_model.h"
#include "platform/variant.h"

namespace kxc::engine {

// The members one dimension is filtered to. `all` means no filter; otherwise `members` holds
// 0-based member numbers, ascending and without repeats.
struct MemberFilter {
  bool all = true;
  std::vector<int32_t> members;
};

// True for Empty, "" and "<ALL>" (any letter case, blanks around it ignored).
bool isNoFilter(const Variant& filter);

// The members named by `filter` for dimension `dim` (0-based). A single text is matched whole
// against member values, then captions; otherwise it is read as a selection: an optional
// leading "<<", then pieces joined by ",", each a member or a run "first..last" taking the
// members from first through last in the dimension's order (either end may come first).
// Numbers are matched by their text. Raises 30002 for a member the dimension does not have,
// 30003 for a selection that cannot be read (empty pieces, a run missing an end), 13 for an
// object or error value.
MemberFilter parseFilter(const CacheModel& cache, int dim, const Variant& filter);

// One filter per dimension of the cache, from up to 20 arguments (missing ones mean no
// filter). An argument beyond the cache's dimensions must be a no-filter, else 30005.
std::vector<MemberFilter> parseFilters(const CacheModel& cache, std::span<const Variant> filters);

}  // namespace kxc::engine
