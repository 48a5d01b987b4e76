#include "grammar/cache_formula_pattern.h"

#include "platform/text_rules.h"

namespace kxc {

bool isCacheFormula(std::string_view formula) {
  return likeMatch(upperCase(formula), "=BV_KXCSUM*");
}

bool isNegatedCacheFormula(std::string_view formula) {
  return likeMatch(upperCase(formula), "=-BV_KXCSUM*");
}

bool isEmptyCacheFormula(std::string_view formula) {
  return formula.empty() || upperCase(formula) == "=BV_KXCSUM()";
}

}  // namespace kxc
