#include "grammar/parse_formula.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "formula_fixture.h"

namespace kxc::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

struct ParseCase {
  std::string formula;
  std::string cache;
  std::string measure;
  int32_t dimCount;
  std::vector<std::string> dims;
};

class ParseFormulaTest : public FormulaFixture, public ::testing::WithParamInterface<ParseCase> {};

TEST_P(ParseFormulaTest, SplitsIntoRecord) {
  app->setCell("A1", "Sales");
  const ParseCase& c = GetParam();
  CacheFormula f = ParseFormula(c.formula);
  EXPECT_EQ(f.Cache, c.cache);
  EXPECT_EQ(f.Measure, c.measure);
  EXPECT_EQ(f.DimCount, c.dimCount);
  EXPECT_THAT(f.dimList(), ElementsAreArray(c.dims));
  EXPECT_TRUE(services->messages.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Grammar, ParseFormulaTest,
    ::testing::Values(
        ParseCase{R"(=BV_KXCSUM("Sales",2,"North","<ALL>","2004"))",
                  "Sales",
                  "2",
                  3,
                  {"North", "<ALL>", "2004"}},
        ParseCase{"=BV_KXCSUM(A1,B1)", "A1", "B1", 0, {}},
        ParseCase{R"(=BV_KXCSUM("Sales"))", "Sales", "", -1, {}},
        ParseCase{R"(=BV_KXCSUM("Sales",2,,"West"))", "Sales", "2", 2, {"", "West"}},
        ParseCase{R"(=BV_KXCSUM("A,B",1))", "A,B", "1", 0, {}},
        ParseCase{"=BV_KXCSUM()", "", "", -1, {}}, ParseCase{"=bv_kxcsum(A1,3)", "A1", "3", 0, {}},
        // A missing closing quote keeps every later comma inside the piece.
        ParseCase{R"(=BV_KXCSUM("Sales,2,"North"))", "Sales,2,North", "", -1, {}},
        ParseCase{R"(=BV_KXCSUM("Sales",2,"North",))", "Sales", "2", 2, {"North", ""}},
        ParseCase{R"(=BV_KXCSUM("Sales",2,North))", "Sales", "2", 1, {"North"}},
        // Blanks around dimensions are trimmed; the measure is kept as written.
        ParseCase{
            R"(=BV_KXCSUM("Sales", 2 , "North" ,  West ))", "Sales", " 2 ", 2, {"North", "West"}},
        // A nested call's comma splits the argument; the outer ")" ends the last piece.
        ParseCase{R"(=BV_KXCSUM("Sales",2,MAX(1,2)))", "Sales", "2", 2, {"MAX(1", "2)"}},
        // Only the text from the first "(" to the last ")" is read.
        ParseCase{R"(=SUM(BV_KXCSUM("Sales",1,"N")))", "Sales", "1", 1, {"N)"}},
        ParseCase{R"(=BV_KXCSUM("Ventes été",2,"Zürich","日本"))",
                  "Ventes été",
                  "2",
                  2,
                  {"Zürich", "日本"}},
        ParseCase{R"(=BV_KXCSUM("Sales",(2)))", "Sales", "(2", 0, {}}));

TEST_F(FormulaFixture, CacheIndexIsTheEnginesAnswerForTheResolvedCache) {
  app->setCell("A1", "Sales");
  engine->script("CacheFind", Variant(3.0));
  CacheFormula f = ParseFormula("=BV_KXCSUM(A1,1)");
  EXPECT_EQ(f.CacheIndex, 3);
  auto calls = engine->callsTo("CacheFind");
  ASSERT_EQ(calls.size(), 1u);
  ASSERT_EQ(calls[0].args.size(), 1u);
  EXPECT_EQ(calls[0].args[0].type, VarType::Text);
  EXPECT_FALSE(calls[0].args[0].byRef);
  EXPECT_EQ(calls[0].args[0].value, Variant("Sales"));
}

TEST_F(FormulaFixture, EmptyFunctionCallAsksCacheFindForEmptyName) {
  ParseFormula("=BV_KXCSUM()");
  auto calls = engine->callsTo("CacheFind");
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].args[0].value, Variant(""));
}

struct MeasureCase {
  std::string measure;
  int32_t index;
};

class MeasureIndexTest : public FormulaFixture,
                         public ::testing::WithParamInterface<MeasureCase> {};

TEST_P(MeasureIndexTest, RoundsLeadingNumberHalvesToEven) {
  app->setCell("B1", "3.5");
  CacheFormula f = ParseFormula("=BV_KXCSUM(\"Sales\"," + GetParam().measure + ",\"x\")");
  EXPECT_EQ(f.Measure, GetParam().measure);
  EXPECT_EQ(f.MeasureIndex, GetParam().index);
}

INSTANTIATE_TEST_SUITE_P(Measures, MeasureIndexTest,
                         ::testing::Values(MeasureCase{"2.5", 2}, MeasureCase{"3.5", 4},
                                           MeasureCase{"-2.5", -2}, MeasureCase{"abc", 0},
                                           MeasureCase{"7kg", 7}, MeasureCase{" 12", 12},
                                           MeasureCase{"B1", 4}, MeasureCase{"", 0}));

TEST_F(FormulaFixture, TakesTwentyDimensionsAndCountsTheRest) {
  std::string text = R"(=BV_KXCSUM("Sales",1)";
  for (int i = 1; i <= 25; ++i) text += ",\"m" + std::to_string(i) + "\"";
  text += ")";
  CacheFormula f = ParseFormula(text);
  EXPECT_EQ(f.DimCount, 25);
  ASSERT_EQ(f.dimsSize(), 25);
  for (int i = 1; i <= 20; ++i) EXPECT_EQ(f.Dims(i), "m" + std::to_string(i));
  for (int i = 21; i <= 25; ++i) EXPECT_EQ(f.Dims(i), "") << i;
  EXPECT_TRUE(services->messages.empty());
}

struct FailureCase {
  std::string formula;
  std::string message;
};

class ParseFailureTest : public FormulaFixture,
                         public ::testing::WithParamInterface<FailureCase> {};

TEST_P(ParseFailureTest, ReportsAndReturnsEmptyRecord) {
  CacheFormula f = ParseFormula(GetParam().formula);
  EXPECT_EQ(f, CacheFormula());
  EXPECT_THAT(services->messages, ElementsAre(MessageRecord{GetParam().message, "Error", 48}));
}

INSTANTIATE_TEST_SUITE_P(
    Failures, ParseFailureTest,
    ::testing::Values(
        FailureCase{"no parenthesis",
                    "Invalid procedure call or argument TmCacheCommon ParseFormula"},
        FailureCase{"", "Invalid procedure call or argument TmCacheCommon ParseFormula"},
        FailureCase{"=BV_KXCSUM(", "Subscript out of range TmCacheCommon ParseFormula"},
        FailureCase{"=BV_KXCSUM(\"Sales\",2", "Subscript out of range TmCacheCommon ParseFormula"},
        FailureCase{"=BV_KXCSUM(\"" + std::string(40000, 'x') + "\")",
                    "Overflow TmCacheCommon ParseFormula"},
        FailureCase{"=BV_KXCSUM(" + std::string(32767, ',') + ")",
                    "Overflow TmCacheCommon ParseFormula"}));

TEST_F(FormulaFixture, LengthLimitCountsCharactersNotBytes) {
  // 32767 characters of which most take two bytes: within the limit, which counts characters.
  std::string many;
  for (int i = 0; i < 32765; ++i) many += "é";
  CacheFormula f = ParseFormula("=BV_KXCSUM(" + many + ")");  // 32767 characters kept
  EXPECT_TRUE(services->messages.empty());
  EXPECT_EQ(f.Cache, many);
  ParseFormula("=BV_KXCSUM(" + many + "é)");  // 32768 characters
  EXPECT_THAT(services->messages,
              ElementsAre(MessageRecord{"Overflow TmCacheCommon ParseFormula", "Error", 48}));
}

TEST_F(FormulaFixture, FailingCacheFindKeepsWhatWasFilled) {
  engine->fail("CacheFind", 1004, "Cache engine unavailable");
  CacheFormula f = ParseFormula(R"(=BV_KXCSUM("Sales",2,"North"))");
  EXPECT_EQ(f.Cache, "Sales");
  EXPECT_EQ(f.DimCount, 1);
  EXPECT_EQ(f.Measure, "");  // not reached
  EXPECT_EQ(f.Dims(1), "");
  EXPECT_THAT(services->messages,
              ElementsAre(MessageRecord{"Cache engine unavailable TmCacheCommon ParseFormula",
                                        "Error", 48}));
}

TEST_F(FormulaFixture, WithoutEngineReportsObjectNotSet) {
  gCacheEngine.reset();
  CacheFormula f = ParseFormula(R"(=BV_KXCSUM("Sales",2))");
  EXPECT_EQ(f.Cache, "Sales");
  ASSERT_EQ(services->messages.size(), 1u);
  EXPECT_EQ(services->messages[0].text,
            "Object variable or With block variable not set TmCacheCommon ParseFormula");
}

}  // namespace
}  // namespace kxc::testing
