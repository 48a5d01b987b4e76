#include "platform/fileio/read_result_wire.h"

#include <gtest/gtest.h>

#include <string>

namespace kxc::fileio {
namespace {

SpreadsheetReadResult failedRead() {
  SpreadsheetReadResult r;
  r.failure = "the file is damaged (x)";
  return r;
}

SpreadsheetReadResult imageRead() {
  SpreadsheetReadResult r;
  WorkbookImage& image = r.image.emplace();
  image.sheets.push_back({"Data", {{{1, 1}, "'North"}, {{2, 16384}, "=A1&\"\""}}});
  image.sheets.push_back({"O'Neil", {}});
  image.names.push_back({"Total", "Data!$B$2", 1});
  image.notes = {"Data!D4: left out", std::string("\0nul", 4)};
  return r;
}

void expectSame(const SpreadsheetReadResult& a, const SpreadsheetReadResult& b) {
  EXPECT_EQ(a.failure, b.failure);
  ASSERT_EQ(a.image.has_value(), b.image.has_value());
  if (!a.image) return;
  ASSERT_EQ(a.image->sheets.size(), b.image->sheets.size());
  for (size_t i = 0; i < a.image->sheets.size(); ++i) {
    EXPECT_EQ(a.image->sheets[i].name, b.image->sheets[i].name);
    EXPECT_EQ(a.image->sheets[i].cells, b.image->sheets[i].cells);
  }
  ASSERT_EQ(a.image->names.size(), b.image->names.size());
  for (size_t i = 0; i < a.image->names.size(); ++i) {
    EXPECT_EQ(a.image->names[i].name, b.image->names[i].name);
    EXPECT_EQ(a.image->names[i].reference, b.image->names[i].reference);
    EXPECT_EQ(a.image->names[i].baseSheet, b.image->names[i].baseSheet);
  }
  EXPECT_EQ(a.image->notes, b.image->notes);
}

// What a reading child sends comes back whole, and bytes it was cut off while writing (or
// anything after the end) never pass for a result.
TEST(ReadResultWire, ResultsComeBackWholeAndCutOffBytesNever) {
  for (const SpreadsheetReadResult& sent : {failedRead(), imageRead()}) {
    const std::string bytes = encodeReadResult(sent);
    std::optional<SpreadsheetReadResult> back = decodeReadResult(bytes);
    ASSERT_TRUE(back);
    expectSame(*back, sent);
    for (size_t cut = 0; cut < bytes.size(); ++cut) {
      EXPECT_FALSE(decodeReadResult(bytes.substr(0, cut))) << cut;
    }
    EXPECT_FALSE(decodeReadResult(bytes + "x"));
  }
}

}  // namespace
}  // namespace kxc::fileio
