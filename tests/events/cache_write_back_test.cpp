#include "events/cache_write_back.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "events_fixture.h"

namespace kxc::testing {
namespace {

constexpr const char* kFormula = "=BV_KXCSUM(A1,2,D1,D2,D3)";

class WriteBackTest : public HostFixture {
 protected:
  WriteBackTest() {
    app->setCell("A1", "Sales");
    app->setCell("D1", "North");
    app->setCell("D2", "<ALL>");
    app->setCell("D3", "2004");
    app->setCell("C3", kFormula);
    ui.ToggleWriteBack();
  }

  // Selects the cell and types over it, as a user does.
  void typeOver(const std::string& reference, const std::string& text) {
    app->typeInto(reference, text);
  }
};

// The 24 arguments: cache, measure, the constant, the number, then twenty dimension values.
TEST_F(WriteBackTest, TypedNumberGoesToTheEngineAndTheFormulaComesBack) {
  typeOver("C3", "500");
  auto calls = writeBacks();
  ASSERT_EQ(calls.size(), 1u);
  const auto& a = calls[0].args;
  ASSERT_EQ(a.size(), 24u);
  auto expectArg = [&](std::size_t i, VarType type, bool byRef, const Variant& value) {
    EXPECT_EQ(a[i].type, type) << "argument " << i;
    EXPECT_EQ(a[i].byRef, byRef) << "argument " << i;
    EXPECT_EQ(a[i].value, value) << "argument " << i;
  };
  expectArg(0, VarType::Text, false, Variant("Sales"));
  expectArg(1, VarType::Int32, true, Variant(int32_t{2}));
  expectArg(2, VarType::Int16, false, Variant(int16_t{0}));
  expectArg(3, VarType::Double, true, Variant(500.0));
  expectArg(4, VarType::Text, true, Variant("North"));
  expectArg(5, VarType::Text, true, Variant("<ALL>"));
  expectArg(6, VarType::Text, true, Variant("2004"));
  for (std::size_t i = 7; i < 24; ++i) expectArg(i, VarType::Empty, true, Variant());
  EXPECT_EQ(app->range("C3")->formula(), kFormula);
  EXPECT_EQ(app->displayText("C3"), "250");
  EXPECT_TRUE(messages().empty());
}

TEST_F(WriteBackTest, WrappedCallIsCutOutAndTheWholeFormulaRestored) {
  const std::string wrapped = "=SUM(bv_kxcsum(A1,2,D1),10)";
  app->setCell("C3", wrapped);
  typeOver("C3", "42");
  auto calls = writeBacks();
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].args[3].value, Variant(42.0));
  EXPECT_EQ(calls[0].args[4].value, Variant("North"));
  EXPECT_TRUE(calls[0].args[5].value.isEmpty());
  EXPECT_EQ(app->range("C3")->formula(), wrapped);
}

TEST_F(WriteBackTest, SecondNumberWithoutNewSelectionIsNotSent) {
  typeOver("C3", "500");
  app->type("600");
  EXPECT_EQ(writeBacks().size(), 1u);
  EXPECT_EQ(app->range("C3")->value(), Variant(600.0));
}

struct TypedOver {
  std::string typed;
  bool sent;
};

class TypedOverTest : public WriteBackTest, public ::testing::WithParamInterface<TypedOver> {};

TEST_P(TypedOverTest, OnlyNumbersAreSent) {
  typeOver("C3", GetParam().typed);
  EXPECT_EQ(writeBacks().size(), GetParam().sent ? 1u : 0u);
  EXPECT_EQ(app->range("C3")->formula(), GetParam().sent ? kFormula : GetParam().typed);
  EXPECT_TRUE(messages().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Entries, TypedOverTest,
    ::testing::Values(TypedOver{"-12.5", true}, TypedOver{"North", false},
                      TypedOver{"=1/0", false},  // an error value is no number
                      // Another cache call is left alone; the test for it is case-sensitive,
                      // so the same call in lower case counts as the number it shows.
                      TypedOver{"=BV_KXCSUM(A1,1,D1)", false},
                      TypedOver{"=bv_kxcsum(A1,1,D1)", true}));

struct DimensionCountCase {
  int arguments;        // dimension arguments in the formula, each D2 ("<ALL>")
  int cacheDimensions;  // what the engine's DimensionCount answers
  int sent;             // dimension values filled in the call; -1 for no call
};

class DimensionCountTest : public WriteBackTest,
                           public ::testing::WithParamInterface<DimensionCountCase> {};

TEST_P(DimensionCountTest, FillsTheDimensionsBothFormulaAndCacheHave) {
  std::string formula = "=BV_KXCSUM(A1,2";
  for (int i = 0; i < GetParam().arguments; ++i) formula += ",D2";
  app->setCell("C3", formula + ")");
  engine->script("DimensionCount", Variant(int32_t{GetParam().cacheDimensions}));
  typeOver("C3", "5");
  auto calls = writeBacks();
  if (GetParam().sent < 0) {
    EXPECT_TRUE(calls.empty());
    EXPECT_EQ(app->range("C3")->value(), Variant(5.0));
    return;
  }
  ASSERT_EQ(calls.size(), 1u);
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(calls[0].args[4 + i].value, i < GetParam().sent ? Variant("<ALL>") : Variant())
        << "dimension " << i + 1;
  }
}

INSTANTIATE_TEST_SUITE_P(Counts, DimensionCountTest,
                         ::testing::Values(DimensionCountCase{7, 5, 5}, DimensionCountCase{2, 5, 2},
                                           DimensionCountCase{20, 20, 20},
                                           DimensionCountCase{21, 5, 5},
                                           DimensionCountCase{21, 21, -1}));

TEST_F(WriteBackTest, ChangeOfAnotherCellIsIgnored) {
  app->select("C3");
  app->range("E5")->setValue(Variant(9.0));
  EXPECT_TRUE(writeBacks().empty());
}

TEST_F(WriteBackTest, FailingEngineLeavesTheTypedNumberSilently) {
  engine->fail("CacheWriteBack", 5, "Engine down");
  typeOver("C3", "500");
  EXPECT_EQ(app->range("C3")->value(), Variant(500.0));
  EXPECT_TRUE(messages().empty());
}

TEST_F(WriteBackTest, SwitchedOffNothingReachesTheEngine) {
  std::weak_ptr<CacheWriteBack> object = gWriteBack;
  ui.ToggleWriteBack();
  EXPECT_TRUE(object.expired());
  typeOver("C3", "500");
  EXPECT_TRUE(writeBacks().empty());
  EXPECT_EQ(app->range("C3")->value(), Variant(500.0));
}

struct NumberCase {
  std::string entry;
  bool ok;
  double number;
};

class TryGetNumberTest : public WriteBackTest, public ::testing::WithParamInterface<NumberCase> {};

TEST_P(TryGetNumberTest, ReadsValue2AsADouble) {
  app->setCell("F1", GetParam().entry);
  CacheWriteBack writeBack;
  double number = -99;
  EXPECT_EQ(writeBack.TryGetNumber(app->range("F1"), number), GetParam().ok);
  EXPECT_EQ(number, GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(Values, TryGetNumberTest,
                         ::testing::Values(NumberCase{"12.5", true, 12.5},
                                           NumberCase{"", true, 0},  // the host's conversion
                                           NumberCase{"TRUE", true, -1},
                                           NumberCase{"abc", false, -99},
                                           NumberCase{"=1/0", false, -99}));

TEST_F(WriteBackTest, OwnResolverGivesEmptyOnAnyFailure) {
  CacheWriteBack writeBack;
  EXPECT_EQ(writeBack.ResolveArgument("A1"), "") << "no application yet";
  host::ApplicationRef application = app;
  writeBack.Initialise(application);
  EXPECT_EQ(writeBack.oexcel(), app);
  EXPECT_EQ(writeBack.ResolveArgument("a1"), "Sales");
  EXPECT_EQ(writeBack.ResolveArgument("Sales"), "");
  EXPECT_EQ(writeBack.ResolveArgument("D1:D3"), "");
  EXPECT_EQ(writeBack.ResolveArgument(""), "");
}

// An application that refuses event sinks, to see how Initialise reports it.
class RefusingApplication : public host::Application {
 public:
  explicit RefusingApplication(host::ApplicationRef inner) : inner_(std::move(inner)) {}
  host::RangeRef activeCell() override { return inner_->activeCell(); }
  host::RangeRef rangeSelection() override { return inner_->rangeSelection(); }
  host::RangeRef selection() override { return inner_->selection(); }
  host::RangeRef range(const std::string& r) override { return inner_->range(r); }
  std::string caption() const override { return inner_->caption(); }
  host::CommandBars& commandBars() override { return inner_->commandBars(); }
  void subscribe(const std::shared_ptr<host::ApplicationEvents>&) override {
    throw RuntimeError(err::kHost, "Events refused");
  }
  void unsubscribe(const host::ApplicationEvents*) override {}

 private:
  host::ApplicationRef inner_;
};

TEST_F(WriteBackTest, InitialiseFailureIsReportedUnderTheSinksLocation) {
  host::ApplicationRef refusing = std::make_shared<RefusingApplication>(app);
  CacheWriteBack writeBack;
  writeBack.Initialise(refusing);
  EXPECT_EQ(messages(),
            (std::vector<MessageRecord>{{"Events refused TmExcel Initialise", "Error", 48}}));
}

}  // namespace
}  // namespace kxc::testing
