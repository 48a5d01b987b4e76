#include <gtest/gtest.h>

#include <random>
#include <string>

#include "platform/runtime_error.h"
#include "platform/workbook/in_memory_application.h"

namespace kxc::workbook {
namespace {

// Texts built from the characters that matter to references and formulas, so that most of
// them are near misses of valid syntax.
std::string randomText(std::mt19937& rng) {
  static const std::string kPieces[] = {
      "A",      "1",          "$", ":",    "!",   "'",       "''",     "[", "]", "\"", "(",   ")",
      ",",      "+",          "-", "*",    "/",   "^",       "&",      "<", ">", "=",  "%",   "#",
      "Sheet1", "Book1.xlsx", " ", "SUM(", "XFD", "1048576", "Region", "é", ".", "E",  "TRUE"};
  std::uniform_int_distribution<size_t> piece(0, std::size(kPieces) - 1);
  std::uniform_int_distribution<int> length(0, 12);
  std::string out;
  for (int i = length(rng); i > 0; --i) out += kPieces[piece(rng)];
  return out;
}

TEST(Robustness, ArbitraryReferenceAndFormulaTextsNeverCrash) {
  auto app = InMemoryApplication::create();
  app->addWorkbook("Book1.xlsx");
  app->defineName("Region", "B2");
  std::mt19937 rng(20240611);
  int resolved = 0, failed = 0;
  for (int i = 0; i < 3000; ++i) {
    std::string text = randomText(rng);
    try {
      app->range(text)->address(true, true, true);
      ++resolved;
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), 1004) << text;
      ++failed;
    }
    app->setCell("C3", "=" + text);
    std::string shown = app->displayText("C3");
    EXPECT_EQ(app->range("C3")->formula(), "=" + text);
    (void)shown;
  }
  EXPECT_GT(resolved, 0);
  EXPECT_GT(failed, 0);
}

}  // namespace
}  // namespace kxc::workbook
