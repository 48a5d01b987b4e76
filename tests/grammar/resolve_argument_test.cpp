#include "grammar/resolve_argument.h"

#include <gtest/gtest.h>

#include "formula_fixture.h"

namespace kxc::testing {
namespace {

class ResolveArgumentTest : public FormulaFixture {
 protected:
  ResolveArgumentTest() {
    app->setCell("A1", "Sales");
    app->setCell("B2", "2.5");
    app->setCell("C3", "=1/0");
    app->defineName("Region", "D4");
    app->setCell("D4", "West");
  }
};

TEST_F(ResolveArgumentTest, ReferencesGiveTheirValueAsText) {
  EXPECT_EQ(ResolveArgument("A1"), "Sales");
  EXPECT_EQ(ResolveArgument("$A$1"), "Sales");
  EXPECT_EQ(ResolveArgument("B2"), "2.5");
  EXPECT_EQ(ResolveArgument("Region"), "West");
  EXPECT_EQ(ResolveArgument("E5"), "");  // an empty cell
  EXPECT_EQ(ResolveArgument("Sheet1!A1"), "Sales");
  EXPECT_EQ(ResolveArgument("'Sheet1'!$B$2"), "2.5");
}

TEST_F(ResolveArgumentTest, AnythingElseGivesTheArgumentItself) {
  EXPECT_EQ(ResolveArgument("North"), "North");
  EXPECT_EQ(ResolveArgument(""), "");
  EXPECT_EQ(ResolveArgument("C3"), "C3");        // an error value has no text
  EXPECT_EQ(ResolveArgument("A1:B2"), "A1:B2");  // several cells have no single value
  EXPECT_EQ(ResolveArgument("Nowhere!A1"), "Nowhere!A1");
  EXPECT_EQ(ResolveArgument(Variant(int32_t{7})), "7");
  EXPECT_TRUE(services->messages.empty());
}

TEST_F(ResolveArgumentTest, WithoutApplicationEveryTextIsLiteral) {
  gExcelSink->Initialise(nullptr);
  EXPECT_EQ(ResolveArgument("A1"), "A1");
}

TEST_F(ResolveArgumentTest, ReferenceMeansResolvingChangesTheText) {
  EXPECT_TRUE(isReference("A1"));
  EXPECT_TRUE(isReference("E5"));
  EXPECT_FALSE(isReference("North"));
  EXPECT_FALSE(isReference(""));
}

}  // namespace
}  // namespace kxc::testing
