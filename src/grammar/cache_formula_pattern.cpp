#include "grammar/cache_formula_pattern.h"

#include <string>

#include "platform/cache_function_name.h"
#include "platform/text_rules.h"

namespace kxc {

namespace {

const std::string kPattern = "=" + std::string(kCacheFunctionName) + "*";
const std::string kNegatedPattern = "=-" + std::string(kCacheFunctionName) + "*";
const std::string kEmptyCall = std::string(kCacheFormulaStart) + ")";

}  // namespace

bool isCacheFormula(std::string_view formula) { return likeMatch(upperCase(formula), kPattern); }

bool isNegatedCacheFormula(std::string_view formula) {
  return likeMatch(upperCase(formula), kNegatedPattern);
}

bool isEmptyCacheFormula(std::string_view formula) {
  return formula.empty() || upperCase(formula) == kEmptyCall;
}

}  // namespace kxc
