// Recognising cache formulas in cell formula text.
#pragma once

#include <string_view>

namespace kxc {

// True when the upper-cased formula matches "=BV_KXCSUM*": the function name in any letter
// case, directly after "=".
bool isCacheFormula(std::string_view formula);

// True when the upper-cased formula matches "=-BV_KXCSUM*": the negated form.
bool isNegatedCacheFormula(std::string_view formula);

// True for the texts that count as no formula yet: "" and "=BV_KXCSUM()" in any letter case.
bool isEmptyCacheFormula(std::string_view formula);

}  // namespace kxc
