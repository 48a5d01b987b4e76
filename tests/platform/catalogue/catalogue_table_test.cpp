#include "platform/catalogue_table.h"

#include <gtest/gtest.h>

namespace kxc {
namespace {

MemoryCatalogueTable sample() {
  return MemoryCatalogueTable({"ID", "Code", "en"}, {{"1", "A", "first"},
                                                     {"2", std::nullopt, "null code"},
                                                     {"3", "A", "second"},
                                                     {"4", "a"},
                                                     {"5", "B", "b", "extra"}});
}

TEST(MemoryCatalogueTable, FindsTheFirstRowWithExactlyThatText) {
  auto t = sample();
  struct Case {
    const char* column;
    const char* text;
    std::optional<std::size_t> row;
  };
  for (auto c : {Case{"Code", "A", 0}, Case{"Code", "a", 3}, Case{"Code", "B", 4},
                 Case{"Code", "C", std::nullopt}, Case{"code", "A", std::nullopt},
                 Case{"Code", "", std::nullopt}, Case{"en", "second", 2},
                 Case{"Missing", "A", std::nullopt}}) {
    EXPECT_EQ(t.findFirst(c.column, c.text), c.row) << c.column << "=" << c.text;
  }
}

TEST(MemoryCatalogueTable, ValuesOutsideTheTableOrShortRowsAreNull) {
  auto t = sample();
  EXPECT_EQ(t.value(0, 2), "first");
  EXPECT_FALSE(t.value(1, 1));
  EXPECT_FALSE(t.value(3, 2));  // short row padded with nulls
  EXPECT_FALSE(t.value(4, 3));  // the extra value was cut
  EXPECT_FALSE(t.value(5, 0));
  EXPECT_EQ(t.rowCount(), 5u);
}

TEST(CatalogueOpener, FailsUntilAReaderIsInstalled) {
  EXPECT_FALSE(catalogueOpener()("anything.xml"));
  auto previous = setCatalogueOpener([](const std::string& path) {
    return std::make_shared<MemoryCatalogueTable>(std::vector<std::string>{path},
                                                  std::vector<CatalogueRow>{});
  });
  EXPECT_EQ(catalogueOpener()("x.xml")->columnNames()[0], "x.xml");
  setCatalogueOpener(previous);
  EXPECT_FALSE(catalogueOpener()("x.xml"));
}

}  // namespace
}  // namespace kxc
