// Reading dimension filters: single members by value or caption, <ALL>, selections with runs
// in member order, and the errors for unknown members and unreadable selections.
#include "engine/contract/filter_parser.h"

#include <gtest/gtest.h>

#include "engine/contract/engine_errors.h"
#include "shop_fixture.h"
#include "support/error_number.h"

namespace kxc::engine::testing {
namespace {

class FilterParserTest : public EngineTest {
 protected:
  const CacheModel& shop() { return core_->model(Variant("Shop")); }
};

TEST_F(FilterParserTest, ReadsMembersAndSelectionsOfTheRegionDimension) {
  // Region members in order: North(0) South(1) East(2) West(3).
  struct Case {
    Variant filter;
    bool all;
    std::vector<int32_t> members;
  };
  const Case cases[] = {
      {Variant(), true, {}},
      {Variant("<ALL>"), true, {}},
      {Variant(" <all> "), true, {}},
      {Variant(""), true, {}},
      {Variant("South"), false, {1}},
      {Variant("Eastern"), false, {2}},  // caption
      {Variant(" West "), false, {3}},   // blanks around a value
      {Variant("<<North,South"), false, {0, 1}},
      {Variant("<<South..West"), false, {1, 2, 3}},  // member order, not alphabetical
      {Variant("<<West..South"), false, {1, 2, 3}},  // either end may come first
      {Variant("North..South,West"), false, {0, 1, 3}},
      {Variant("<<Northern..Southern"), false, {0, 1}},  // runs by caption
      {Variant("<<East,East"), false, {2}},
      {Variant("<<North..West"), true, {}},  // every member is no filter
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.filter.isEmpty() ? "Empty" : c.filter.text());
    MemberFilter f = parseFilter(shop(), 0, c.filter);
    EXPECT_EQ(f.all, c.all);
    EXPECT_EQ(f.members, c.members);
  }
}

TEST_F(FilterParserTest, MatchesNumbersByTheirText) {
  MemberFilter f = parseFilter(shop(), 2, Variant(2024.0));
  EXPECT_EQ(f.members, std::vector<int32_t>{1});
  f = parseFilter(shop(), 2, Variant(int16_t{2023}));
  EXPECT_EQ(f.members, std::vector<int32_t>{0});
}

TEST_F(FilterParserTest, ReportsUnknownMembersAndUnreadableSelections) {
  struct Case {
    const char* filter;
    int number;
    const char* message;
  };
  const Case cases[] = {
      {"Nowhere", 30002, "Unknown member 'Nowhere' in dimension Region"},
      {"<<North,Nowhere", 30002, "Unknown member 'Nowhere' in dimension Region"},
      {"<<North..Nowhere", 30002, "Unknown member 'Nowhere' in dimension Region"},
      {"<<A..", 30003, "Cannot read the filter '<<A..'"},
      {"<<North..", 30003, "Cannot read the filter '<<North..'"},
      {"<<", 30003, "Cannot read the filter '<<'"},
      {"North,,South", 30003, "Cannot read the filter 'North,,South'"},
      {"North,", 30003, "Cannot read the filter 'North,'"},
      {"..South", 30003, "Cannot read the filter '..South'"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.filter);
    try {
      parseFilter(shop(), 0, Variant(c.filter));
      ADD_FAILURE() << "no error";
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), c.number);
      EXPECT_EQ(e.description(), c.message);
    }
  }
}

TEST_F(FilterParserTest, ObjectsAndErrorValuesAreTypeMismatches) {
  EXPECT_EQ(kxc::testing::errorNumber([&] { parseFilter(shop(), 0, Variant(cellerr::kNA)); }),
            err::kTypeMismatch);
  EXPECT_EQ(kxc::testing::errorNumber([&] { parseFilter(shop(), 0, Variant(engine_)); }),
            err::kTypeMismatch);
}

TEST_F(FilterParserTest, FiltersBeyondTheDimensionsMustBeEmpty) {
  std::vector<Variant> filters{Variant("North"), Variant(), Variant(), Variant(), Variant("<ALL>")};
  EXPECT_EQ(parseFilters(shop(), filters).size(), 3u);
  filters[3] = Variant("North");
  try {
    parseFilters(shop(), filters);
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), engine_err::kTooManyFilters);
    EXPECT_EQ(e.description(), "Filter 4 is given but cache Shop has 3 dimensions");
  }
}

TEST_F(FilterParserTest, ArbitraryTextEitherParsesOrRaisesAnEngineError) {
  const std::string alphabet[] = {"<<", "..",    ",", "North", "South", "West", "Eastern",
                                  " ",  "<ALL>", "x", ".",     "<",     "\"",   "A"};
  uint32_t state = 7;
  for (int i = 0; i < 2000; ++i) {
    std::string text;
    int pieces = 1 + static_cast<int>(state % 7);
    for (int k = 0; k < pieces; ++k) {
      state = state * 1103515245u + 12345u;
      text += alphabet[(state >> 16) % std::size(alphabet)];
    }
    try {
      MemberFilter f = parseFilter(shop(), 0, Variant(text));
      for (int32_t m : f.members) EXPECT_TRUE(m >= 0 && m < 4) << text;
    } catch (const RuntimeError& e) {
      EXPECT_TRUE(e.number() == 30002 || e.number() == 30003) << text << ": " << e.number();
    }
  }
}

TEST(FilterParserValues, MemberValuesHoldingCommasAndDotsStillMatch) {
  TempFolder tmp;
  CacheStore store(tmp.file("c.db"));
  CacheWriter w(store, "Odd", {"Name"}, {{"V", Aggregation::Sum, ""}});
  for (int32_t m = 0; m < 4; ++m) {
    double v = m + 1;
    w.addRow(std::span<const int32_t>(&m, 1), std::span<const double>(&v, 1), "", "");
  }
  int64_t id =
      w.commit({{{"Smith, John", "Smith, John"}, {"v1..2", "v1..2"}, {"Zed", "Zed"}, {"Q", "Q"}}});
  CacheDefinition def;
  CacheColumns cols;
  store.load(id, def, cols);
  CacheModel c(id, def);
  EXPECT_EQ(parseFilter(c, 0, Variant("Smith, John")).members, std::vector<int32_t>{0});
  EXPECT_EQ(parseFilter(c, 0, Variant("<<Smith, John,Zed")).members, (std::vector<int32_t>{0, 2}));
  EXPECT_EQ(parseFilter(c, 0, Variant("v1..2")).members, std::vector<int32_t>{1});
  EXPECT_EQ(parseFilter(c, 0, Variant("<<v1..2..Zed")).members, (std::vector<int32_t>{1, 2}));
}

}  // namespace
}  // namespace kxc::engine::testing
