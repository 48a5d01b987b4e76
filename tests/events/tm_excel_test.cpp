#include "state/tm_excel.h"

#include <gtest/gtest.h>

#include <string>

#include "facade/facade_fixture.h"

namespace kxc::testing {
namespace {

class TmExcelTest : public FacadeFixture {
 protected:
  TmExcelTest() {
    app->setCell("A1", "=B1*2");
    app->setCell("B1", "4");
    app->defineName("Region", "D4");
    gExcelSink->Initialise(app);
  }
  TmExcel& excel() { return *gExcelSink; }
};

struct ReferenceCase {
  std::string reference;
  bool cellRef;
  bool nameRange;
  std::string name;
  std::string address;
};

class TmExcelReferenceTest : public TmExcelTest,
                             public ::testing::WithParamInterface<ReferenceCase> {};

TEST_P(TmExcelReferenceTest, AnswersReferenceTests) {
  const ReferenceCase& c = GetParam();
  EXPECT_EQ(excel().IsCellRef(c.reference), c.cellRef);
  EXPECT_EQ(excel().IsNameRange(c.reference), c.nameRange);
  EXPECT_EQ(excel().GetNameRange(c.reference), c.name);
  EXPECT_EQ(excel().GetCellAddress(c.reference), c.address);
  EXPECT_TRUE(services->messages.empty());
}

INSTANTIATE_TEST_SUITE_P(References, TmExcelReferenceTest,
                         ::testing::Values(ReferenceCase{"A1", true, false, "", "$A$1"},
                                           ReferenceCase{"b$7", true, false, "", "$B$7"},
                                           ReferenceCase{"Sheet1!C2", true, false, "", "$C$2"},
                                           ReferenceCase{"A1:B2", true, false, "", "$A$1:$B$2"},
                                           ReferenceCase{"Region", false, true, "Region", "$D$4"},
                                           ReferenceCase{"$D$4", false, true, "Region", "$D$4"},
                                           ReferenceCase{"North", false, false, "", ""},
                                           ReferenceCase{"", false, false, "", ""},
                                           ReferenceCase{"Missing!A1", false, false, "", ""}));

TEST_F(TmExcelTest, HasDependentsOnlyWhenAFormulaUsesTheCell) {
  EXPECT_TRUE(excel().HasDependents(app->range("B1")));
  EXPECT_FALSE(excel().HasDependents(app->range("A1")));
  EXPECT_FALSE(excel().HasDependents(nullptr));
}

TEST_F(TmExcelTest, WithoutApplicationEveryTestFails) {
  excel().Initialise(nullptr);
  EXPECT_FALSE(excel().IsCellRef("A1"));
  EXPECT_FALSE(excel().IsNameRange("Region"));
  EXPECT_EQ(excel().GetCellAddress("A1"), "");
  EXPECT_TRUE(services->messages.empty());
}

TEST_F(TmExcelTest, InitialiseMovesTheEventHooks) {
  auto other = workbook::InMemoryApplication::create("Other");
  other->addWorkbook("Book2.xlsx");
  app->doubleClick("C3");
  excel().Initialise(other);
  app->doubleClick("C3");
  other->doubleClick("C3");
  EXPECT_EQ(sink.lock()->doubleClicks, 2);
  excel().Initialise(nullptr);
  other->doubleClick("C3");
  EXPECT_EQ(sink.lock()->doubleClicks, 2);
  EXPECT_EQ(excel().oExcel(), nullptr);
}

TEST_F(TmExcelTest, EndingTheSinkReleasesTheActiveCellAndTheHooks) {
  gActiveCell = app->range("C3");
  gExcelSink.reset();
  EXPECT_EQ(gActiveCell, nullptr);
  EXPECT_TRUE(sink.expired());
  app->doubleClick("C3");  // nothing is hooked any more
  EXPECT_TRUE(services->messages.empty());
}

}  // namespace
}  // namespace kxc::testing
