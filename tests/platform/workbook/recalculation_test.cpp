#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/workbook/in_memory_application.h"

namespace kxc::workbook {
namespace {

class Recalculation : public ::testing::Test {
 protected:
  void SetUp() override {
    app->addWorkbook("Book1.xlsx");
    app->addSheet("Book1.xlsx", "Report");
  }
  std::shared_ptr<InMemoryApplication> app = InMemoryApplication::create();
};

TEST_F(Recalculation, TypingRecalculatesDependents) {
  app->setCell("A1", "1");
  app->setCell("B1", "=A1*2");
  EXPECT_EQ(app->displayText("B1"), "2");
  app->typeInto("A1", "5");
  EXPECT_EQ(app->displayText("B1"), "10");
  app->typeInto("A1", "");
  EXPECT_EQ(app->displayText("B1"), "0");
}

TEST_F(Recalculation, ChainsAcrossSheetsAndWorkbooks) {
  app->addWorkbook("Other.xlsx");
  app->setCell("[Book1.xlsx]Sheet1!A1", "1");
  app->setCell("[Book1.xlsx]Report!B2", "=Sheet1!A1+1");
  app->setCell("[Other.xlsx]Sheet1!C3", "=[Book1.xlsx]Report!B2*10");
  app->setCell("[Book1.xlsx]Sheet1!D4", "=[Other.xlsx]Sheet1!C3&\" units\"");
  app->typeInto("[Book1.xlsx]Sheet1!A1", "4");
  EXPECT_EQ(app->displayText("[Book1.xlsx]Report!B2"), "5");
  EXPECT_EQ(app->displayText("[Other.xlsx]Sheet1!C3"), "50");
  EXPECT_EQ(app->displayText("[Book1.xlsx]Sheet1!D4"), "50 units");
}

TEST_F(Recalculation, EvaluatesInDependencyOrderNotCellOrder) {
  // Written bottom-up so that row order would read stale values.
  app->setCell("A1", "=A2+1");
  app->setCell("A2", "=A3+1");
  app->setCell("A3", "=A4+1");
  app->setCell("A4", "1");
  EXPECT_EQ(app->displayText("A1"), "4");
  app->setCell("A4", "10");
  EXPECT_EQ(app->displayText("A1"), "13");
}

TEST_F(Recalculation, RangeReferencesFollowEveryCellInside) {
  app->setCell("C1", "=SUM(A1:A100)");
  app->setCell("C2", "=SUM(A:A)");
  app->setCell("A50", "7");
  app->setCell("A5000", "1");
  EXPECT_EQ(app->displayText("C1"), "7");
  EXPECT_EQ(app->displayText("C2"), "8");
}

TEST_F(Recalculation, RecalculatesOnlyWhatDependsOnTheChange) {
  int calls = 0;
  app->registerFunction("COUNTED", [&](std::span<const Variant> args) {
    ++calls;
    return args.empty() ? Variant(0.0) : args[0];
  });
  for (int r = 1; r <= 100; ++r)
    app->setCell("B" + std::to_string(r), "=COUNTED(A" + std::to_string(r) + ")");
  calls = 0;
  app->typeInto("A7", "3");
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(app->displayText("B7"), "3");
}

TEST_F(Recalculation, LongChainsDoNotExhaustTheStack) {
  app->setCell("A1", "1");
  for (int r = 2; r <= 20000; ++r) {
    app->setCell("A" + std::to_string(r), "=A" + std::to_string(r - 1) + "+1");
  }
  app->setCell("A1", "2");
  EXPECT_EQ(app->displayText("A20000"), "20001");
}

TEST_F(Recalculation, ReRegisteringAFunctionRecalculatesItsCells) {
  app->setCell("A1", "=KXCSUM(\"Sales\")");
  app->setCell("A2", "=A1+1");
  EXPECT_EQ(app->displayText("A1"), "#NAME?");
  app->registerFunction("kxcsum", [](std::span<const Variant>) { return Variant(10.0); });
  EXPECT_EQ(app->displayText("A1"), "10");
  EXPECT_EQ(app->displayText("A2"), "11");
  app->registerFunction("KXCSUM", [](std::span<const Variant>) { return Variant(20.0); });
  EXPECT_EQ(app->displayText("A1"), "20");
  EXPECT_EQ(app->displayText("A2"), "21");
}

TEST_F(Recalculation, LateSheetsAndNamesAreBoundWhenTheyAppear) {
  app->setCell("A1", "=Later!B1*2");
  app->setCell("A2", "=Rate*3");
  EXPECT_EQ(app->displayText("A1"), "#REF!");
  EXPECT_EQ(app->displayText("A2"), "#NAME?");
  app->addSheet("Book1.xlsx", "Later");
  app->setCell("Later!B1", "4");
  app->setCell("Report!C1", "5");
  app->defineName("Rate", "Report!$C$1");
  EXPECT_EQ(app->displayText("A1"), "8");
  EXPECT_EQ(app->displayText("A2"), "15");
  app->setCell("Report!C1", "1");
  EXPECT_EQ(app->displayText("A2"), "3");
}

TEST_F(Recalculation, SuspendedCalculationCatchesUpOnResume) {
  app->setCalculationSuspended(true);
  app->setCell("A1", "=B1+1");
  app->setCell("B1", "41");
  app->setCalculationSuspended(false);
  EXPECT_EQ(app->displayText("A1"), "42");
}

TEST_F(Recalculation, ReplacingAFormulaDropsItsOldPrecedents) {
  app->setCell("A1", "=B1");
  app->setCell("A1", "=C1");
  app->setCell("B1", "9");
  app->setCell("C1", "3");
  EXPECT_EQ(app->displayText("A1"), "3");
  app->setCell("A1", "7");
  app->setCell("C1", "4");
  EXPECT_EQ(app->displayText("A1"), "7");
}

}  // namespace
}  // namespace kxc::workbook
