#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/runtime_error.h"
#include "platform/workbook/in_memory_application.h"
#include "support/error_number.h"

namespace kxc::workbook {
namespace {

using testing::errorNumber;

std::vector<std::string> addressesOf(const host::RangeRef& range) {
  std::vector<std::string> out;
  for (const auto& cell : range->cellList()) out.push_back(cell->address(true, true, true));
  return out;
}

class RangeBehaviour : public ::testing::Test {
 protected:
  void SetUp() override {
    app->addWorkbook("Book1.xlsx");
    app->addSheet("Book1.xlsx", "Report");
    app->addSheet("Book1.xlsx", "Calc");
  }
  std::shared_ptr<InMemoryApplication> app = InMemoryApplication::create();
};

TEST_F(RangeBehaviour, DirectDependentsComeInSheetThenRowOrder) {
  app->setCell("Sheet1!A1", "North");
  app->setCell("Calc!A1", "=Sheet1!A1");
  app->setCell("Report!C5", "=KXCSUM(\"Sales\",2,Sheet1!$A$1)");
  app->setCell("Report!B5", "=Sheet1!A1&Sheet1!A1");
  app->setCell("Sheet1!D9", "=SUM(A1:A3)");
  app->setCell("Sheet1!B1", "=A1");
  app->setCell("Sheet1!E1", "=B1");  // indirect: not a direct dependent
  EXPECT_EQ(addressesOf(app->range("Sheet1!A1")->directDependents()),
            (std::vector<std::string>{"[Book1.xlsx]Sheet1!$B$1", "[Book1.xlsx]Sheet1!$D$9",
                                      "[Book1.xlsx]Report!$B$5", "[Book1.xlsx]Report!$C$5",
                                      "[Book1.xlsx]Calc!$A$1"}));
}

TEST_F(RangeBehaviour, ACellWithoutDependentsRaisesNoCellsFound) {
  app->setCell("A1", "5");
  app->setCell("B1", "=A2");
  try {
    app->range("A1")->directDependents();
    FAIL() << "expected an error";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), 1004);
    EXPECT_EQ(e.description(), "No cells were found.");
  }
  app->setCell("B1", "=A1");
  EXPECT_EQ(app->range("A1")->directDependents()->count(), 1);
  app->setCell("B1", "7");
  EXPECT_EQ(errorNumber([&] { app->range("A1")->directDependents(); }), 1004)
      << "a formula replaced by a constant no longer depends";
}

TEST_F(RangeBehaviour, LargeRangeReferencesCountAsDependents) {
  app->setCell("Z1", "=SUM(A:A)");
  app->setCell("Y1", "=SUM(B1:C100)");
  EXPECT_EQ(app->range("A500000")->directDependents()->address(), "$Z$1");
  EXPECT_EQ(app->range("C100")->directDependents()->address(), "$Y$1");
  EXPECT_EQ(app->range("A1:C1")->directDependents()->address(), "$Y$1,$Z$1");
}

TEST_F(RangeBehaviour, ValueOfSeveralCellsIsATypeMismatch) {
  EXPECT_EQ(errorNumber([&] { app->range("A1:B2")->value(); }), 13);
  EXPECT_EQ(errorNumber([&] { app->range("A1,B2")->value(); }), 13);
  EXPECT_TRUE(app->range("A1")->value().isEmpty());
}

TEST_F(RangeBehaviour, FormulaOfSeveralCellsIsTheirCommonFormula) {
  app->range("A1:B2")->setFormula("=1+1");
  EXPECT_EQ(app->range("A1:B2")->formula(), "=1+1");
  EXPECT_EQ(app->range("A1:A3")->formula(), "") << "A3 is empty";
  app->setCell("B2", "=2");
  EXPECT_EQ(app->range("A1:B2")->formula(), "");
  EXPECT_EQ(app->range("D1:E5")->formula(), "");
}

TEST_F(RangeBehaviour, SetValueStoresTypedTextAndPlainValues) {
  auto cell = app->range("C3");
  cell->setValue(Variant("=2*3"));
  EXPECT_EQ(cell->value(), Variant(6.0));
  cell->setValue(Variant(int32_t{7}));
  EXPECT_EQ(cell->value2(), Variant(7.0));
  cell->setValue(Variant(cellerr::kNA));
  EXPECT_EQ(app->displayText("C3"), "#N/A");
  cell->setValue(Variant());
  EXPECT_EQ(cell->formula(), "");
  EXPECT_EQ(errorNumber([&] { cell->setValue(Variant(ObjectRef())); }), 13);
}

TEST_F(RangeBehaviour, CellsRowColumnAndWorksheet) {
  auto block = app->range("Report!B3:D5");
  EXPECT_EQ(block->count(), 9);
  EXPECT_EQ(block->row(), 3);
  EXPECT_EQ(block->column(), 2);
  EXPECT_EQ(block->cells(1, 1)->address(), "$B$3");
  EXPECT_EQ(block->cells(2, 3)->address(), "$D$4");
  EXPECT_EQ(block->worksheet()->name(), "Report");
  EXPECT_EQ(block->worksheet()->parent()->name(), "Book1.xlsx");
  EXPECT_EQ(errorNumber([&] { block->cells(-5, 1); }), 1004);
  EXPECT_EQ(addressesOf(app->range("A1:B2")),
            (std::vector<std::string>{"[Book1.xlsx]Sheet1!$A$1", "[Book1.xlsx]Sheet1!$B$1",
                                      "[Book1.xlsx]Sheet1!$A$2", "[Book1.xlsx]Sheet1!$B$2"}));
  EXPECT_EQ(errorNumber([&] { app->range("1:1048576")->count(); }), 6);
  EXPECT_EQ(errorNumber([&] { app->range("A:C")->cellList(); }), 1004);
}

TEST_F(RangeBehaviour, DefinedNamesResolveAndNameTheirRange) {
  app->defineName("Region", "Report!$B$2");
  app->defineName("Block", "=$A$1:$C$3");
  app->setCell("Report!B2", "North");
  EXPECT_EQ(app->range("region")->address(true, true, true), "[Book1.xlsx]Report!$B$2");
  EXPECT_EQ(app->range("Report!B2")->name(), "Region");
  EXPECT_EQ(app->range("Sheet1!A1:C3")->name(), "Block");
  EXPECT_EQ(errorNumber([&] { app->range("Report!B3")->name(); }), 1004);
  EXPECT_EQ(errorNumber([&] { app->range("Report!B2:B3")->name(); }), 1004);
  app->setCell("D1", "=Region&\"!\"");
  EXPECT_EQ(app->displayText("D1"), "North!");
  app->setCell("D2", "=Book1.xlsx!Region");
  EXPECT_EQ(app->displayText("D2"), "North");
}

TEST_F(RangeBehaviour, InvalidDefinedNamesAreRefused) {
  for (std::string bad : {"Q1", "AB12", "R1C1", "", "1st", "two words"}) {
    EXPECT_EQ(errorNumber([&] { app->defineName(bad, "A1"); }), 1004) << bad;
  }
  EXPECT_EQ(errorNumber([&] { app->defineName("Good", "North"); }), 1004);
  EXPECT_EQ(errorNumber([&] { app->defineName("Good", "A1,B2"); }), 1004);
}

TEST_F(RangeBehaviour, WorkbookAndSheetNamesAreChecked) {
  EXPECT_EQ(errorNumber([&] { app->addWorkbook("book1.XLSX"); }), 1004);
  EXPECT_EQ(errorNumber([&] { app->addSheet("Book1.xlsx", "report"); }), 1004);
  EXPECT_EQ(errorNumber([&] { app->addSheet("Book1.xlsx", "a/b"); }), 1004);
  EXPECT_EQ(errorNumber([&] { app->addSheet("Book1.xlsx", std::string(32, 'x')); }), 1004);
  EXPECT_EQ(errorNumber([&] { app->addSheet("Nope.xlsx", "x"); }), 9);
  EXPECT_EQ(errorNumber([&] { app->activateSheet("Book1.xlsx", "Nope"); }), 9);
  EXPECT_EQ(app->sheetNames("Book1.xlsx"), (std::vector<std::string>{"Sheet1", "Report", "Calc"}));
}

TEST_F(RangeBehaviour, AWorkbookMayNameItsFirstSheet) {
  app->addWorkbook("Data.xlsx", "O'Neil");
  EXPECT_EQ(app->sheetNames("Data.xlsx"), (std::vector<std::string>{"O'Neil"}));
  EXPECT_EQ(app->activeSheetName(), "O'Neil");
  EXPECT_EQ(errorNumber([&] { app->addWorkbook("Bad.xlsx", "a/b"); }), 1004);
  EXPECT_EQ(app->workbookNames(), (std::vector<std::string>{"Book1.xlsx", "Data.xlsx"}));
}

TEST_F(RangeBehaviour, WindowViewOfASheet) {
  EXPECT_FALSE(app->usedRange("Book1.xlsx", "Report"));
  app->setCell("Report!C4", "=1+1");
  app->setCell("Report!B9", "x");
  auto used = app->usedRange("Book1.xlsx", "Report");
  ASSERT_TRUE(used);
  EXPECT_EQ(*used, (Area{4, 2, 9, 3}));
  EXPECT_EQ(app->cellFormula("Book1.xlsx", "Report", 4, 3), "=1+1");
  EXPECT_EQ(app->cellValue("Book1.xlsx", "Report", 4, 3), Variant(2.0));
  EXPECT_EQ(app->cellText("Book1.xlsx", "Report", 9, 2), "x");
  EXPECT_EQ(app->workbookNames(), (std::vector<std::string>{"Book1.xlsx"}));
  EXPECT_EQ(app->activeWorkbookName(), "Book1.xlsx");
  EXPECT_EQ(app->activeSheetName(), "Sheet1");
  int notified = 0;
  app->setChangeObserver([&] { ++notified; });
  uint64_t before = app->revision();
  app->select("B2");
  app->type("1");
  EXPECT_GT(app->revision(), before);
  EXPECT_EQ(notified, 2);
}

}  // namespace
}  // namespace kxc::workbook
