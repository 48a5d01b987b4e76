#include "sample_report.h"

#include <array>
#include <functional>
#include <string>

#include "platform/workbook/address_writer.h"

namespace kxc::workbench {

namespace {

constexpr std::array<const char*, 5> kRegions = {"North", "South", "East", "West", "Central"};
constexpr std::array<const char*, 4> kYears = {"2021", "2022", "2023", "2024"};
constexpr std::array<const char*, 4> kChannels = {"Retail", "Online", "Wholesale", "Direct"};
constexpr std::array<const char*, 6> kDepartments = {"Sales", "Marketing", "Finance",
                                                     "IT",    "HR",        "Operations"};
constexpr std::array<const char*, 4> kQuarters = {"Q1", "Q2", "Q3", "Q4"};

std::string cell(const std::string& sheet, int32_t row, int32_t column) {
  return workbook::sheetQualifier(sheet) + workbook::cellAddress(row, column, false, false);
}

// A relative reference as written inside a formula, anchored as asked.
std::string ref(int32_t row, int32_t column, bool rowAbsolute, bool columnAbsolute) {
  return workbook::cellAddress(row, column, rowAbsolute, columnAbsolute);
}

// Rows `first`..`last` of `column` summed.
std::string sumDown(int32_t first, int32_t last, int32_t column) {
  return "=SUM(" + ref(first, column, false, false) + ":" + ref(last, column, false, false) + ")";
}

std::string sumAcross(int32_t row, int32_t first, int32_t last) {
  return "=SUM(" + ref(row, first, false, false) + ":" + ref(row, last, false, false) + ")";
}

using SetCell = std::function<void(int32_t row, int32_t column, const std::string& text)>;
using CacheFormula = std::function<std::string(int32_t row, int32_t column)>;

// A cross table under `header`: its labels down column A and along the header row, a cache
// formula in every inner cell, a "Total" column at the right and a "Total" row below. Returns
// the row of the totals.
template <size_t Rows, size_t Columns>
int32_t fillCrossTable(const SetCell& set, int32_t header, const char* corner,
                       const std::array<const char*, Rows>& rowLabels,
                       const std::array<const char*, Columns>& columnLabels,
                       const CacheFormula& formula) {
  const int32_t first = header + 1;
  const int32_t last = first + static_cast<int32_t>(Rows) - 1;
  const int32_t totalColumn = 2 + static_cast<int32_t>(Columns);
  set(header, 1, corner);
  for (size_t c = 0; c < Columns; ++c) set(header, 2 + static_cast<int32_t>(c), columnLabels[c]);
  set(header, totalColumn, "Total");
  for (size_t r = 0; r < Rows; ++r) {
    const int32_t row = first + static_cast<int32_t>(r);
    set(row, 1, rowLabels[r]);
    for (int32_t column = 2; column < totalColumn; ++column) set(row, column, formula(row, column));
    set(row, totalColumn, sumAcross(row, 2, totalColumn - 1));
  }
  set(last + 1, 1, "Total");
  for (int32_t column = 2; column <= totalColumn; ++column) {
    set(last + 1, column, sumDown(first, last, column));
  }
  return last + 1;
}

SetCell setterOf(workbook::InMemoryApplication& app, const std::string& sheet) {
  return [&app, sheet](int32_t row, int32_t column, const std::string& text) {
    app.setCell(cell(sheet, row, column), text);
  };
}

void fillSalesSheet(workbook::InMemoryApplication& app, const std::string& sheet) {
  const SetCell set = setterOf(app, sheet);
  set(1, 1, "Sales by region and year");
  // The cache name sits in a cell that every formula references, so that write-back (which
  // resolves only references) can name the cache.
  set(2, 1, "Cache");
  set(2, 2, "Sales");
  set(2, 3, "Amount of all products, channels and customers");
  const int32_t header = 4;
  const int32_t totals =
      fillCrossTable(set, header, "Region", kRegions, kYears, [&](int32_t row, int32_t column) {
        return "=BV_KXCSUM($B$2,1," + ref(row, 1, false, true) + ",\"<ALL>\",\"<ALL>\",\"<ALL>\"," +
               ref(header, column, true, false) + ")";
      });

  const int32_t channelHeader = totals + 3;
  set(channelHeader - 1, 1, "Quantity by channel");
  set(channelHeader, 1, "Channel");
  set(channelHeader, 2, "2023");
  set(channelHeader, 3, "2024");
  for (size_t c = 0; c < kChannels.size(); ++c) {
    const int32_t row = channelHeader + 1 + static_cast<int32_t>(c);
    set(row, 1, kChannels[c]);
    for (int32_t column = 2; column <= 3; ++column) {
      set(row, column,
          "=BV_KXCSUM($B$2,2,\"<ALL>\",\"<ALL>\"," + ref(row, 1, false, true) + ",\"<ALL>\"," +
              ref(channelHeader, column, true, false) + ")");
    }
  }
}

void fillBudgetSheet(workbook::InMemoryApplication& app, const std::string& sheet) {
  const SetCell set = setterOf(app, sheet);
  set(1, 1, "Budget by department and quarter");
  set(2, 1, "Cache");
  set(2, 2, "Budget");
  set(3, 1, "Year");
  set(3, 2, "2024");
  const int32_t header = 5;
  fillCrossTable(set, header, "Department", kDepartments, kQuarters,
                 [&](int32_t row, int32_t column) {
                   return "=BV_KXCSUM($B$2,1," + ref(row, 1, false, true) + ",\"<ALL>\"," +
                          ref(3, 2, true, true) + "," + ref(header, column, true, false) + ")";
                 });
}

}  // namespace

void addSampleReport(workbook::InMemoryApplication& app) {
  app.addWorkbook(kSampleWorkbookName);
  app.addSheet(kSampleWorkbookName, kBudgetSheet);
  app.setCalculationSuspended(true);
  fillSalesSheet(app, kReportSheet);
  fillBudgetSheet(app, kBudgetSheet);
  app.setCalculationSuspended(false);
  app.activateSheet(kSampleWorkbookName, kReportSheet);
  app.select(kFirstFormulaCell);
}

}  // namespace kxc::workbench
