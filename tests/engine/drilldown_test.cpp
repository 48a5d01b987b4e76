// Drill-down: criteria rows united without duplicates, in transaction order, written into a
// grid with dimension, measure, date and reference columns.
#include "engine/contract/drilldown.h"

#include <gtest/gtest.h>

#include "grid_double.h"
#include "shop_fixture.h"
#include "support/error_number.h"

namespace kxc::engine::testing {
namespace {

class DrilldownTest : public EngineTest {
 protected:
  void addCriteria(std::vector<Variant> filters, Variant cache = Variant("Shop")) {
    filters.resize(20);
    std::vector<Argument> args{val(cache)};
    for (auto& f : filters) args.push_back(Argument::byRef(f));
    call("DrilldownAddCriteria", std::move(args));
  }
  void execute(Variant cache = Variant("Shop")) {
    call("ExecutePopulateTrans", {val(cache), val(Variant(ObjectRef(grid_)))});
  }
  std::vector<std::string> references() {
    std::vector<std::string> out;
    for (int32_t r = 1; r <= grid_->maxRows(); ++r) out.push_back(grid_->cell(10, r));
    return out;
  }
  std::shared_ptr<GridDouble> grid_ = std::make_shared<GridDouble>();
};

TEST_F(DrilldownTest, ColumnsAreDimensionsMeasuresDateAndReference) {
  call("DrilldownClear");
  addCriteria({Variant("North"), Variant("A"), Variant("2023")});
  execute();
  EXPECT_EQ(grid_->maxCols(), 10);
  EXPECT_EQ(grid_->maxRows(), 1);
  EXPECT_EQ(grid_->row(0), (std::vector<std::string>{"Region", "Product", "Year", "Amount", "Units",
                                                     "Price", "Low", "High", "Date", "Reference"}));
  EXPECT_EQ(grid_->row(1), (std::vector<std::string>{"North", "A", "2023", "10.00", "1", "$1.00",
                                                     "10", "10", "2024-01-01", "R1"}));
}

TEST_F(DrilldownTest, CriteriaRowsAreUnitedWithoutDuplicatesInTransactionOrder) {
  call("DrilldownClear");
  addCriteria({Variant("<<West,South")});         // R3, R6
  addCriteria({Variant("North"), Variant("A")});  // R1, R5
  addCriteria({Variant("<ALL>"), Variant("A")});  // R1, R3, R5 again
  execute();
  EXPECT_EQ(references(), (std::vector<std::string>{"R1", "R3", "R5", "R6"}));
  EXPECT_EQ(grid_->cell(6, 4), "");  // West B has no price: an empty cell
}

TEST_F(DrilldownTest, ClearForgetsPendingCriteria) {
  addCriteria({Variant("North")});
  call("DrilldownClear");
  addCriteria({Variant("East")});
  execute();
  EXPECT_EQ(references(), std::vector<std::string>{"R4"});
}

TEST_F(DrilldownTest, NoCriteriaForAnEmptyCacheNameClearsTheGrid) {
  addCriteria({Variant("North")});
  execute();
  call("DrilldownClear");
  execute(Variant(""));
  EXPECT_EQ(grid_->maxRows(), 0);
  EXPECT_EQ(grid_->maxCols(), 0);
}

TEST_F(DrilldownTest, EmptyCacheNameTakesTheCacheOfTheFirstCriteria) {
  call("DrilldownClear");
  addCriteria({Variant("West")});
  execute(Variant(""));
  EXPECT_EQ(references(), std::vector<std::string>{"R6"});
}

TEST_F(DrilldownTest, CriteriaOfOtherCachesAreLeftOut) {
  writeShop(core_->backend(), "Other");
  core_->refresh();
  call("DrilldownClear");
  addCriteria({Variant("North")}, Variant("Other"));
  addCriteria({Variant("East")});
  execute();
  EXPECT_EQ(references(), std::vector<std::string>{"R4"});
}

TEST_F(DrilldownTest, BadCriteriaAreReportedWhenTheDrillDownRuns) {
  call("DrilldownClear");
  addCriteria({Variant("Nowhere")});  // accepted here
  EXPECT_EQ(kxc::testing::errorNumber([&] { execute(); }), engine_err::kUnknownMember);
  EXPECT_EQ(kxc::testing::errorNumber([&] { execute(Variant("NoCache")); }),
            engine_err::kUnknownCache);
}

TEST_F(DrilldownTest, ManyRowsArriveInChunksAndTabsInTextsBecomeBlanks) {
  const int n = static_cast<int>(kGridChunkRows) + 10;
  CacheWriter w(store(), "Big", {"Key"}, {{"V", Aggregation::Sum, "0"}});
  std::vector<MemberDef> members{{"a\tb", "tab"}, {"c\nd", "newline"}};
  for (int i = 0; i < n; ++i) {
    int32_t m = i % 2;
    double v = i;
    w.addRow(std::span<const int32_t>(&m, 1), std::span<const double>(&v, 1), "2024-05-01",
             "ref\t" + std::to_string(i + 1));
  }
  w.commit({members});
  core_->refresh();
  call("DrilldownClear");
  addCriteria({}, Variant("Big"));
  execute(Variant("Big"));
  EXPECT_EQ(grid_->maxRows(), n);
  EXPECT_EQ(grid_->maxCols(), 4);
  EXPECT_EQ(grid_->setBlockCalls(), 3);  // headers and two chunks
  EXPECT_EQ(grid_->row(2), (std::vector<std::string>{"c d", "1", "2024-05-01", "ref 2"}));
  EXPECT_EQ(grid_->cell(4, n), "ref " + std::to_string(n));
}

}  // namespace
}  // namespace kxc::engine::testing
