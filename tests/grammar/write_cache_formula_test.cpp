#include "grammar/write_cache_formula.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "formula_fixture.h"
#include "grammar/parse_formula.h"

namespace kxc::testing {
namespace {

CacheFormula record(std::string cache, std::string measure, std::vector<std::string> dims) {
  CacheFormula f;
  f.Cache = std::move(cache);
  f.Measure = std::move(measure);
  f.DimCount = static_cast<int32_t>(dims.size());
  if (!dims.empty()) {
    f.redimDims(f.DimCount);
    for (int32_t i = 1; i <= f.DimCount; ++i) f.Dims(i) = dims[static_cast<size_t>(i - 1)];
  }
  return f;
}

struct TextCase {
  CacheFormula formula;
  std::string text;
};

class CacheFormulaTextTest : public FormulaFixture, public ::testing::WithParamInterface<TextCase> {
 protected:
  CacheFormulaTextTest() {
    app->setCell("A1", "Sales");
    app->setCell("Q1", "North");
    app->defineName("Region", "C3");
    app->setCell("C3", "West");
  }
};

TEST_P(CacheFormulaTextTest, BuildsFormulaText) {
  EXPECT_EQ(cacheFormulaText(GetParam().formula), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Writing, CacheFormulaTextTest,
    ::testing::Values(
        TextCase{record("Sales", "2", {"", "West"}), R"(=BV_KXCSUM("Sales",2,"<ALL>","West"))"},
        TextCase{record("Sales", "2", {"North", "", ""}), R"(=BV_KXCSUM("Sales",2,"North"))"},
        TextCase{record("Sales", "2", {"North", "<ALL>"}),
                 R"(=BV_KXCSUM("Sales",2,"North","<ALL>"))"},
        TextCase{record("Sales", "2", {"", "", ""}), R"(=BV_KXCSUM("Sales",2))"},
        TextCase{record("Sales", "", {}), R"(=BV_KXCSUM("Sales",))"},
        TextCase{record("A1", "B1", {}), "=BV_KXCSUM(A1,B1)"},
        // Member texts that are references are written bare.
        TextCase{record("Sales", "2", {"Q1", "$Q$1", "Region", "North"}),
                 R"(=BV_KXCSUM("Sales",2,Q1,$Q$1,Region,"North"))"},
        TextCase{record("Sheet1!A1", "Sheet1!B9", {"Sheet1!Q1"}),
                 "=BV_KXCSUM(Sheet1!A1,Sheet1!B9,Sheet1!Q1)"},
        TextCase{record("Ventes été", "1", {"", "Zürich"}),
                 R"(=BV_KXCSUM("Ventes été",1,"<ALL>","Zürich"))"}));

TEST_F(FormulaFixture, ParsedFormulasWriteBackTheSameText) {
  app->setCell("A1", "Sales");
  for (std::string text : {R"(=BV_KXCSUM("Sales",2,"North","<ALL>","2004"))", "=BV_KXCSUM(A1,B1)",
                           R"(=BV_KXCSUM("Sales",2,"<ALL>","West"))", R"(=BV_KXCSUM("A,B",1))"}) {
    EXPECT_EQ(cacheFormulaText(ParseFormula(text)), text);
  }
  // A bare literal and a quoted one parse alike and are written back quoted.
  EXPECT_EQ(cacheFormulaText(ParseFormula(R"(=BV_KXCSUM("Sales",2,North))")),
            R"(=BV_KXCSUM("Sales",2,"North"))");
}

TEST_F(FormulaFixture, WritesCurrentFormulaIntoActiveCell) {
  auto cell = app->range("D4");
  gActiveCell = cell;
  gCurrentFormula = record("Sales", "2", {"North"});
  WriteCacheFormula(false);
  EXPECT_EQ(formulaOf("D4"), R"(=BV_KXCSUM("Sales",2,"North"))");
  EXPECT_EQ(gActiveCell, cell);
}

TEST_F(FormulaFixture, CancelledBuilderLeavesCellAndForgetsIt) {
  app->setCell("D4", "12");
  gActiveCell = app->range("D4");
  gCurrentFormula = record("Sales", "2", {});
  WriteCacheFormula(true);
  EXPECT_EQ(formulaOf("D4"), "12");
  EXPECT_EQ(gActiveCell, nullptr);
  EXPECT_EQ(services->doEventsCount, 1);
}

TEST_F(FormulaFixture, NoActiveCellIsIgnoredSilently) {
  gCurrentFormula = record("Sales", "2", {});
  WriteCacheFormula(false);
  EXPECT_TRUE(services->messages.empty());
}

}  // namespace
}  // namespace kxc::testing
