// BV_KXCSUM in the in-memory workbook: values, references, the negated form and error values.
#include "engine/contract/cache_function.h"

#include <gtest/gtest.h>

#include "platform/workbook/in_memory_application.h"
#include "shop_fixture.h"

namespace kxc::engine::testing {
namespace {

class CacheFunctionTest : public EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    app_ = workbook::InMemoryApplication::create();
    app_->addWorkbook("Book1.xlsx");
    registerCacheFunction(*app_, engine_);
  }
  std::string show(const std::string& formula) {
    app_->setCell("Z1", formula);
    return app_->displayText("Z1");
  }
  std::shared_ptr<workbook::InMemoryApplication> app_;
};

TEST_F(CacheFunctionTest, CellsShowCacheValues) {
  app_->setCell("A1", "Shop");
  app_->setCell("B1", "North");
  app_->setCell("C1", "2024");  // a number in the cell, matched by its text
  struct Case {
    const char* formula;
    const char* shown;
  };
  const Case cases[] = {
      {"=BV_KXCSUM(\"Shop\",1)", "210"},
      {"=bv_kxcsum(\"Shop\",1,\"North\",\"A\")", "60"},
      {"=BV_KXCSUM(A1,1,B1)", "80"},
      {"=BV_KXCSUM(A1,1,,,C1)", "120"},
      {"=BV_KXCSUM(A1,1,,\"A\")", "90"},  // an omitted filter is <ALL>
      {"=BV_KXCSUM(A1,1,D9)", "210"},     // so is an empty cell
      {"=BV_KXCSUM(A1,\"Price\",\"<<North..South\")", "2.75"},
      {"=BV_KXCSUM(A1,1,\"<<South..West\")", "130"},
      {"=-BV_KXCSUM(\"Shop\",1,\"North\")", "-80"},
      {"=BV_KXCSUM(\"Shop\",1,\"North\")+BV_KXCSUM(\"Shop\",1,\"South\")", "110"},
  };
  for (const auto& c : cases) EXPECT_EQ(show(c.formula), c.shown) << c.formula;
}

TEST_F(CacheFunctionTest, FailuresShowErrorValues) {
  struct Case {
    const char* formula;
    const char* shown;
  };
  const Case cases[] = {
      {"=BV_KXCSUM(\"Nope\",1)", "#N/A"},
      {"=BV_KXCSUM(\"Shop\",1,\"Nowhere\")", "#N/A"},
      {"=BV_KXCSUM(\"Shop\",1,\"<<North..\")", "#VALUE!"},
      {"=BV_KXCSUM(\"Shop\",9)", "#VALUE!"},
      {"=BV_KXCSUM(\"Shop\",\"Weight\")", "#VALUE!"},
      {"=BV_KXCSUM(\"Shop\",1,,,,\"North\")", "#VALUE!"},  // a fourth filter on three dimensions
      {"=BV_KXCSUM(\"Shop\")", "#VALUE!"},
      {"=BV_KXCSUM(\"Shop\",1,1/0)", "#DIV/0!"},
      {"=-BV_KXCSUM(\"Nope\",1)", "#N/A"},
  };
  for (const auto& c : cases) EXPECT_EQ(show(c.formula), c.shown) << c.formula;
}

TEST_F(CacheFunctionTest, CellsFollowFilterCellsAndWriteBack) {
  app_->setCell("B1", "North");
  app_->setCell("Z1", "=BV_KXCSUM(\"Shop\",1,B1)");
  EXPECT_EQ(app_->displayText("Z1"), "80");
  app_->setCell("B1", "South");
  EXPECT_EQ(app_->displayText("Z1"), "30");
  core_->writeBack(Variant("Shop"), Variant(int32_t{1}), 0, 45,
                   std::vector<Variant>{Variant("South")});
  app_->recalculate();
  EXPECT_EQ(app_->displayText("Z1"), "45");
}

}  // namespace
}  // namespace kxc::engine::testing
