#include "grammar/cache_formula_pattern.h"

#include <gtest/gtest.h>

#include <string>

namespace kxc {
namespace {

struct PatternCase {
  std::string formula;
  bool plain;
  bool negated;
  bool empty;
};

class CacheFormulaPatternTest : public ::testing::TestWithParam<PatternCase> {};

TEST_P(CacheFormulaPatternTest, RecognisesFormulaText) {
  const PatternCase& c = GetParam();
  EXPECT_EQ(isCacheFormula(c.formula), c.plain);
  EXPECT_EQ(isNegatedCacheFormula(c.formula), c.negated);
  EXPECT_EQ(isEmptyCacheFormula(c.formula), c.empty);
}

INSTANTIATE_TEST_SUITE_P(Texts, CacheFormulaPatternTest,
                         ::testing::Values(PatternCase{R"(=BV_KXCSUM("S",1))", true, false, false},
                                           PatternCase{"=bv_kxcsum(A1,3)", true, false, false},
                                           PatternCase{"=Bv_KxcSum()", true, false, true},
                                           PatternCase{"=BV_KXCSUM()", true, false, true},
                                           PatternCase{"", false, false, true},
                                           PatternCase{"=-bv_kxcsum(A1,3)", false, true, false},
                                           PatternCase{"= BV_KXCSUM(A1)", false, false, false},
                                           PatternCase{"=SUM(BV_KXCSUM(A1))", false, false, false},
                                           PatternCase{"BV_KXCSUM(A1)", false, false, false},
                                           PatternCase{"=BV_KXCSUM( )", true, false, false}));

}  // namespace
}  // namespace kxc
