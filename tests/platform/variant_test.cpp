#include "platform/variant.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "support/error_number.h"

namespace kxc {
namespace {

using testing::errorNumber;

TEST(Variant, RoundsHalvesToEvenWhenNarrowing) {
  struct Case {
    double in;
    int32_t out;
  };
  for (auto c : {Case{2.5, 2}, Case{3.5, 4}, Case{-2.5, -2}, Case{2.4999, 2}, Case{0.5, 0},
                 Case{1.5, 2}, Case{-0.5, 0}}) {
    EXPECT_EQ(Variant(c.in).toInt32(), c.out) << c.in;
    EXPECT_EQ(Variant(c.in).toInt16(), c.out) << c.in;
  }
}

TEST(Variant, OverflowAndTypeMismatchRaiseTheirNumbers) {
  EXPECT_EQ(errorNumber([] { Variant(32767.5).toInt16(); }), err::kOverflow);  // rounds to 32768
  EXPECT_EQ(errorNumber([] { Variant(int32_t{40000}).toInt16(); }), err::kOverflow);
  EXPECT_EQ(errorNumber([] { Variant(3e9).toInt32(); }), err::kOverflow);
  EXPECT_EQ(errorNumber([] { Variant("abc").toInt32(); }), err::kTypeMismatch);
  EXPECT_EQ(errorNumber([] { Variant(cellerr::kName).toText(); }), err::kTypeMismatch);
  EXPECT_EQ(errorNumber([] { Variant(ObjectRef()).toDouble(); }), err::kTypeMismatch);
  EXPECT_EQ(Variant(int16_t{-32768}).toInt32(), -32768);
}

TEST(Variant, TextConversionsFollowTheHostLanguage) {
  struct Case {
    Variant in;
    std::string out;
  };
  for (const auto& c :
       {Case{Variant(), ""}, Case{Variant(2.5), "2.5"}, Case{Variant(3.0), "3"},
        Case{Variant(true), "True"}, Case{Variant(int16_t{-7}), "-7"}, Case{Variant(1e15), "1E+15"},
        Case{Variant(999999999999999.0), "999999999999999"}, Case{Variant(0.0001), "0.0001"},
        Case{Variant(0.00001), "1E-05"}, Case{Variant(0.1 + 0.2), "0.3"},
        Case{Variant(-1234.5678), "-1234.5678"}, Case{Variant(1.5e-7), "1.5E-07"}}) {
    EXPECT_EQ(c.in.toText(), c.out);
  }
}

TEST(Variant, TextToNumberAndBoolean) {
  EXPECT_DOUBLE_EQ(Variant(" 2.5 ").toDouble(), 2.5);
  EXPECT_DOUBLE_EQ(Variant("-1e3").toDouble(), -1000.0);
  EXPECT_EQ(Variant("TRUE").toBool(), true);
  EXPECT_EQ(Variant("false").toBool(), false);
  EXPECT_EQ(Variant("0").toBool(), false);
  EXPECT_EQ(Variant("-1").toBool(), true);
  EXPECT_EQ(errorNumber([] { Variant("yes").toBool(); }), err::kTypeMismatch);
  EXPECT_EQ(errorNumber([] { Variant("").toDouble(); }), err::kTypeMismatch);
  EXPECT_EQ(errorNumber([] { Variant("1.2.3").toDouble(); }), err::kTypeMismatch);
}

TEST(Variant, EqualityNeedsTheSameType) {
  EXPECT_EQ(Variant(int16_t{1}), Variant(int16_t{1}));
  EXPECT_NE(Variant(int16_t{1}), Variant(int32_t{1}));
  EXPECT_NE(Variant("1"), Variant(1.0));
}

}  // namespace
}  // namespace kxc
