#include "grammar/cache_formula_json.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kxc {
namespace {

CacheFormula sample() {
  CacheFormula f;
  f.Cache = "Sales";
  f.CacheIndex = 3;
  f.Measure = "2";
  f.MeasureIndex = 2;
  f.DimCount = 3;
  f.redimDims(3);
  f.Dims(1) = "North";
  f.Dims(3) = "2004";
  return f;
}

TEST(CacheFormulaJson, WritesFieldsInRecordOrder) {
  EXPECT_EQ(
      cacheFormulaToJson(sample()),
      "{\n  \"Cache\": \"Sales\",\n  \"CacheIndex\": 3,\n  \"Measure\": \"2\",\n"
      "  \"MeasureIndex\": 2,\n  \"DimCount\": 3,\n  \"Dims\": [\"North\", \"\", \"2004\"]\n}\n");
}

TEST(CacheFormulaJson, MissingDimensionArrayIsNull) {
  CacheFormula f;
  f.Cache = "Sales";
  f.DimCount = -1;
  EXPECT_NE(cacheFormulaToJson(f).find("\"DimCount\": -1,\n  \"Dims\": null"), std::string::npos);
}

struct EscapeCase {
  std::string text;
  std::string json;
};

class CacheFormulaJsonEscapeTest : public ::testing::TestWithParam<EscapeCase> {};

TEST_P(CacheFormulaJsonEscapeTest, EscapesTextsAndRoundTrips) {
  CacheFormula f;
  f.Cache = GetParam().text;
  std::string json = cacheFormulaToJson(f);
  EXPECT_NE(json.find("\"Cache\": " + GetParam().json + ","), std::string::npos) << json;
  CacheFormula back;
  std::string error;
  ASSERT_TRUE(cacheFormulaFromJson(json, back, error)) << error;
  if (GetParam().text != "\xFF") {
    EXPECT_EQ(back, f);
  }
}

INSTANTIATE_TEST_SUITE_P(Texts, CacheFormulaJsonEscapeTest,
                         ::testing::Values(EscapeCase{"A,B", "\"A,B\""},
                                           EscapeCase{"say \"hi\"", "\"say \\\"hi\\\"\""},
                                           EscapeCase{"back\\slash", "\"back\\\\slash\""},
                                           EscapeCase{"two\nlines\t", "\"two\\nlines\\t\""},
                                           EscapeCase{std::string("\x01", 1), "\"\\u0001\""},
                                           EscapeCase{"Zürich 日本", "\"Zürich 日本\""},
                                           EscapeCase{"\xFF", "\"\xEF\xBF\xBD\""}));

TEST(CacheFormulaJson, ReadsWhatItWrites) {
  CacheFormula back;
  std::string error;
  ASSERT_TRUE(cacheFormulaFromJson(cacheFormulaToJson(sample()), back, error)) << error;
  EXPECT_EQ(back, sample());
}

TEST(CacheFormulaJson, MissingFieldsKeepEmptyValues) {
  CacheFormula f;
  std::string error;
  ASSERT_TRUE(cacheFormulaFromJson(R"({"Cache":"Sales","Dims":["a",null,"\u00e9"]})", f, error));
  EXPECT_EQ(f.Cache, "Sales");
  EXPECT_EQ(f.Measure, "");
  EXPECT_EQ(f.DimCount, 3);
  EXPECT_EQ(f.Dims(2), "");
  EXPECT_EQ(f.Dims(3), "é");
}

TEST(CacheFormulaJson, HugeDimCountAllocatesNothingLarge) {
  CacheFormula f;
  std::string error;
  ASSERT_TRUE(cacheFormulaFromJson(R"({"DimCount":2000000000,"Dims":["a"]})", f, error));
  EXPECT_EQ(f.DimCount, 2000000000);
  EXPECT_LE(f.dimsSize(), 32766);
  EXPECT_EQ(f.Dims(1), "a");
}

struct BadCase {
  std::string json;
  std::string error;
};

class CacheFormulaJsonErrorTest : public ::testing::TestWithParam<BadCase> {};

TEST_P(CacheFormulaJsonErrorTest, RefusesWithReason) {
  CacheFormula f = sample();
  std::string error;
  EXPECT_FALSE(cacheFormulaFromJson(GetParam().json, f, error));
  EXPECT_EQ(error, GetParam().error);
  EXPECT_EQ(f, sample());
}

INSTANTIATE_TEST_SUITE_P(
    Bad, CacheFormulaJsonErrorTest,
    ::testing::Values(
        BadCase{"", "unexpected end at offset 0"}, BadCase{"[]", "the record must be an object"},
        BadCase{R"({"Cache" "x"})", "expected ':' at offset 9"},
        BadCase{R"({"Cache":"x",})", "expected a field name at offset 13"},
        BadCase{R"({"Cache":"x"} x)", "unexpected text after the record at offset 14"},
        BadCase{R"({"Cache":"x)", "unterminated text at offset 11"},
        BadCase{R"({"Cache":1})", "Cache must be a text"},
        BadCase{R"({"DimCount":1.5})", "DimCount must be a whole 32-bit number"},
        BadCase{R"({"CacheIndex":3000000000})", "CacheIndex must be a whole 32-bit number"},
        BadCase{R"({"Dims":"a"})", "Dims must be an array of texts"},
        BadCase{R"({"Dims":[1]})", "Dims must be an array of texts"},
        BadCase{R"({"Cache":"\ud800"})", "unpaired surrogate at offset 16"},
        BadCase{R"({"Cache":"\q"})", "bad escape at offset 11"},
        BadCase{"{\"Cache\":\"a\tb\"}", "control character in text at offset 11"},
        BadCase{std::string(100, '[') + std::string(100, ']'), "nesting too deep at offset 33"},
        BadCase{R"({"MeasureIndex":-})", "bad number at offset 17"}));

}  // namespace
}  // namespace kxc
