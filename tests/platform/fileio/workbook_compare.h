// Helpers for the file tests: a fresh application with a stand-in cache function, and a
// comparison of two workbooks cell by cell.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "platform/workbook/book.h"
#include "platform/workbook/in_memory_application.h"

namespace kxc::fileio::testing {

// An application where BV_KXCSUM counts its non-empty arguments, so cells that call it get a
// value that depends on what the formula holds.
inline std::shared_ptr<workbook::InMemoryApplication> appWithCacheFunction() {
  auto app = workbook::InMemoryApplication::create();
  app->registerFunction("BV_KXCSUM", [](std::span<const Variant> args) {
    double count = 0;
    for (const Variant& a : args) count += a.isEmpty() ? 0 : 1;
    return Variant(count);
  });
  return app;
}

// Every sheet (names and order), every cell's formula text and value, and every defined name
// of the two workbooks are the same.
inline void expectSameWorkbook(const workbook::InMemoryApplication& expected,
                               const std::string& expectedBook,
                               const workbook::InMemoryApplication& actual,
                               const std::string& actualBook) {
  std::vector<std::string> sheets = expected.sheetNames(expectedBook);
  ASSERT_EQ(actual.sheetNames(actualBook), sheets);
  // The stored cells of a sheet (the used range may span the whole grid).
  auto cellsOf = [](const workbook::InMemoryApplication& app, const std::string& book,
                    const std::string& sheet) {
    std::set<std::pair<int32_t, int32_t>> cells;
    const auto& store = app.model().findWorkbook(book)->findSheet(sheet)->cells();
    if (auto used = store.usedArea()) {
      store.forEachIn(*used, [&](int32_t r, int32_t c, const workbook::Cell&) {
        cells.insert({r, c});
        return true;
      });
    }
    return cells;
  };
  for (const std::string& sheet : sheets) {
    auto cells = cellsOf(expected, expectedBook, sheet);
    ASSERT_EQ(cellsOf(actual, actualBook, sheet), cells) << sheet;
    for (const auto& [r, c] : cells) {
      SCOPED_TRACE(sheet + " row " + std::to_string(r) + " column " + std::to_string(c));
      EXPECT_EQ(actual.cellFormula(actualBook, sheet, r, c),
                expected.cellFormula(expectedBook, sheet, r, c));
      EXPECT_EQ(actual.cellValue(actualBook, sheet, r, c),
                expected.cellValue(expectedBook, sheet, r, c));
    }
  }
  auto namesOf = [](const workbook::InMemoryApplication& app, const std::string& book) {
    std::map<std::string, std::string> names;
    auto b = app.model().findWorkbook(book);
    for (const auto& n : b->names()) {
      names[n.name] = app.model().sheet(n.block.sheet)->name() + "!" +
                      std::to_string(n.block.area.top) + "," + std::to_string(n.block.area.left) +
                      ":" + std::to_string(n.block.area.bottom) + "," +
                      std::to_string(n.block.area.right);
    }
    return names;
  };
  EXPECT_EQ(namesOf(actual, actualBook), namesOf(expected, expectedBook));
}

}  // namespace kxc::fileio::testing
