// Building caches from CSV files: the header format, RFC 4180 quoting, and refusal of bad files
// with "FILE:LINE: reason" while nothing is half-loaded.
#include "engine/contract/csv_import.h"

#include <gtest/gtest.h>

#include <sstream>

#include "engine/contract/csv_reader.h"
#include "engine/contract/engine_errors.h"
#include "shop_fixture.h"
#include "support/error_number.h"

namespace kxc::engine::testing {
namespace {

class CsvImportTest : public EngineTest {
 protected:
  // Imports `text` as cache `name`; returns the error description, or "" on success.
  std::string import(const std::string& text, const std::string& name = "Imported") {
    std::string file = tmp_.write("data.csv", text);
    try {
      core_->importCsv(file, name);
      return "";
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), engine_err::kImport) << e.description();
      return e.description().substr(e.description().find("data.csv"));
    }
  }
};

TEST(CsvReader, SplitsQuotedFieldsAndCountsLines) {
  std::istringstream in(
      "\xEF\xBB\xBF"
      "a,\"b,c\",\"say \"\"hi\"\"\"\r\n"
      "\"two\nlines\",,x\n"
      "last");
  CsvReader r(in);
  std::vector<std::string> f;
  ASSERT_TRUE(r.next(f));
  EXPECT_EQ(r.line(), 1);
  EXPECT_EQ(f, (std::vector<std::string>{"a", "b,c", "say \"hi\""}));
  ASSERT_TRUE(r.next(f));
  EXPECT_EQ(r.line(), 2);
  EXPECT_EQ(f, (std::vector<std::string>{"two\nlines", "", "x"}));
  ASSERT_TRUE(r.next(f));
  EXPECT_EQ(r.line(), 4);
  EXPECT_EQ(f, std::vector<std::string>{"last"});
  EXPECT_FALSE(r.next(f));
}

TEST(CsvReader, ArbitraryBytesEndInRecordsOrAReason) {
  const char alphabet[] = {'a', ',', '"', '\n', '\r', 'b', ' ', '\xEF', '\0'};
  uint32_t state = 11;
  for (int i = 0; i < 2000; ++i) {
    std::string text;
    for (int k = 0; k < 24; ++k) {
      state = state * 1103515245u + 12345u;
      text += alphabet[(state >> 16) % sizeof alphabet];
    }
    std::istringstream in(text);
    CsvReader r(in);
    std::vector<std::string> f;
    try {
      int64_t lastLine = 0;
      while (r.next(f)) {
        EXPECT_GT(r.line(), lastLine);
        lastLine = r.line();
      }
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), err::kInvalidCall);
    }
  }
}

TEST_F(CsvImportTest, BuildsACacheFromTheHeaderFormat) {
  ASSERT_EQ(import("dim:Region,caption:Region,dim:Year,\"measure:Amount:sum:#,##0.00\","
                   "measure:Price:average,date,reference\n"
                   "North,Northern region,2024,10.5,2,2024-03-01,INV-1\n"
                   "South,,2024,20,,2024-03-02,\"INV-2, copy\"\n"
                   "\n"
                   "North,,2023,1,4,,INV-3\n"),
            "");
  Variant cache("Imported");
  EXPECT_EQ(core_->cacheFind(cache), 2);
  const CacheModel& c = core_->model(cache);
  ASSERT_EQ(c.dimensionCount(), 2);
  EXPECT_EQ(c.definition().dimensions[0].members[0].caption, "Northern region");
  EXPECT_EQ(c.definition().dimensions[0].members[1].caption, "South");
  EXPECT_EQ(c.definition().dimensions[1].members[0].value, "2024");  // first appearance
  EXPECT_EQ(c.definition().measures[0].format, "#,##0.00");
  EXPECT_EQ(c.definition().measures[1].aggregation, Aggregation::Average);
  EXPECT_DOUBLE_EQ(core_->value(cache, Variant(int32_t{1}), 0, std::vector<Variant>{}), 31.5);
  EXPECT_DOUBLE_EQ(core_->value(cache, Variant("Price"), 0, std::vector<Variant>{}), 3);
  const CacheColumns& columns = static_cast<EmbeddedCache&>(core_->cache(cache)).loaded().columns();
  EXPECT_EQ(columns.references.at(1), "INV-2, copy");
  EXPECT_EQ(columns.dates.at(2), "");
}

TEST_F(CsvImportTest, RefusesBadFilesNamingFileLineAndReason) {
  const std::string header = "dim:Region,measure:Amount,date\n";
  struct Case {
    std::string text;
    std::string error;
  };
  const Case cases[] = {
      {"", "data.csv: the file is empty"},
      {header, "data.csv: the file holds no transactions"},
      {"dim:Region,weight\nNorth,1\n", "data.csv:1: cannot read column heading 'weight'"},
      {"measure:Amount\n1\n", "data.csv:1: no dim: column"},
      {"dim:Region\nNorth\n", "data.csv:1: no measure: column"},
      {"dim:A,dim:a,measure:M\n", "data.csv:1: dimension a appears twice"},
      {"dim:A,caption:B,measure:M\n", "data.csv:1: caption:B names no dimension"},
      {"dim:A,measure:M:median\n", "data.csv:1: unknown aggregation 'median' for measure M"},
      {header + "North,1,2024-01-01\nSouth,x,2024-01-02\n",
       "data.csv:3: 'x' is not a number (measure Amount)"},
      {header + "North,1\n", "data.csv:2: expected 3 fields, found 2"},
      {header + "North,1,2024-02-30\n", "data.csv:2: '2024-02-30' is not an ISO date (YYYY-MM-DD)"},
      {header + "North,1,03/04/2024\n", "data.csv:2: '03/04/2024' is not an ISO date (YYYY-MM-DD)"},
      {header + ",1,2024-01-01\n", "data.csv:2: no member for dimension Region"},
      {header + "North,1,2024-01-01\n\"South,2,2024-01-02\n",
       "data.csv:3: a quoted field is not closed"},
      {header + "\"North\"x,1,2024-01-01\n", "data.csv:2: text after a closing quote"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    std::string error = import(c.text);
    EXPECT_EQ(error.substr(0, c.error.size()), c.error);
  }
  // Nothing of any refused file was stored.
  EXPECT_EQ(core_->listCaches().size(), 1u);
  CacheStore fresh(options_.databasePath);
  EXPECT_EQ(fresh.listCaches().size(), 1u);
}

TEST_F(CsvImportTest, ABadRowLateInALargeFileLeavesNothingBehind) {
  std::string text = "dim:K,measure:V\n";
  for (int i = 0; i < 5000; ++i)
    text += "k" + std::to_string(i % 7) + "," + std::to_string(i) + "\n";
  text += "k1,oops\n";
  EXPECT_EQ(import(text), "data.csv:5002: 'oops' is not a number (measure V)");
  EXPECT_EQ(core_->cacheFind(Variant("Imported")), 0);
  EXPECT_EQ(import("dim:K,measure:V\nk,1\n"), "");  // the name is still free
}

TEST_F(CsvImportTest, ExistingNameAndMissingFileAreRefused) {
  std::string file = tmp_.write("data.csv", "dim:K,measure:V\nk,1\n");
  EXPECT_EQ(kxc::testing::errorNumber([&] { core_->importCsv(file, "shop"); }),
            engine_err::kCacheExists);
  try {
    core_->importCsv(tmp_.file("missing.csv"), "X");
    FAIL();
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), engine_err::kImport);
    EXPECT_EQ(e.description(), tmp_.file("missing.csv") + ": cannot open the file");
  }
}

TEST_F(CsvImportTest, ReportsProgressUpToTheWholeFile) {
  std::string text = "dim:K,measure:V\n";
  for (int i = 0; i < 10000; ++i) text += "k,1\n";
  std::string file = tmp_.write("data.csv", text);
  std::vector<std::pair<uint64_t, uint64_t>> calls;
  core_->importCsv(file, "P", [&](uint64_t done, uint64_t total) {
    calls.push_back({done, total});
  });
  ASSERT_GE(calls.size(), 2u);
  EXPECT_EQ(calls.back().first, text.size());
  EXPECT_EQ(calls.back().second, text.size());
  EXPECT_LT(calls.front().first, calls.back().first);
}

}  // namespace
}  // namespace kxc::engine::testing
