// The sample report the workbench opens on: cache formulas over the sample caches, laid out
// as a user would build them, so every add-in command has something real to act on.
#pragma once

#include <string>

#include "platform/workbook/in_memory_application.h"

namespace kxc::workbench {

inline constexpr const char* kSampleWorkbookName = "Sample Report";
inline constexpr const char* kReportSheet = "Sheet1";
inline constexpr const char* kBudgetSheet = "Budget";
// The report's first cache formula and a block of cache formulas (for drill-down).
inline constexpr const char* kFirstFormulaCell = "Sheet1!$B$5";
inline constexpr const char* kFormulaBlock = "Sheet1!$B$5:$C$6";

// Adds the workbook kSampleWorkbookName: on kReportSheet the sales amounts by region (down
// column A) and year (across row 4) with row and column totals, and quantities by channel;
// on kBudgetSheet the budget by department and quarter for the year in B3. The cache formulas
// anchor their header arguments the way a user fills them across ($A5, B$4). Leaves the
// report sheet active with its first cache formula selected. Raises what the workbook raises.
void addSampleReport(workbook::InMemoryApplication& app);

}  // namespace kxc::workbench
