#include "platform/workbook/dependency_graph.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace kxc::workbook {
namespace {

CellKey cell(int32_t row, int32_t column, SheetId sheet = 0) { return {sheet, row, column}; }
Block block(Area area, SheetId sheet = 0) { return {sheet, area}; }

size_t positionOf(const std::vector<RecalcStep>& steps, const CellKey& k) {
  auto it =
      std::find_if(steps.begin(), steps.end(), [&](const RecalcStep& s) { return s.cell == k; });
  return it == steps.end() ? steps.size() : static_cast<size_t>(it - steps.begin());
}

TEST(DependencyGraph, OrdersPrecedentsBeforeDependents) {
  DependencyGraph g;
  // C1 = A1 + B1, B1 = A1, D1 = C1 + B1
  g.setPrecedents(cell(1, 3), {block(Area::cell(1, 1)), block(Area::cell(1, 2))});
  g.setPrecedents(cell(1, 2), {block(Area::cell(1, 1))});
  g.setPrecedents(cell(1, 4), {block(Area::cell(1, 3)), block(Area::cell(1, 2))});
  CellKey changed[] = {cell(1, 1)};
  auto steps = g.recalcOrder(changed);
  ASSERT_EQ(steps.size(), 3u);
  EXPECT_LT(positionOf(steps, cell(1, 2)), positionOf(steps, cell(1, 3)));
  EXPECT_LT(positionOf(steps, cell(1, 3)), positionOf(steps, cell(1, 4)));
  EXPECT_TRUE(std::none_of(steps.begin(), steps.end(), [](auto& s) { return s.cyclic; }));
}

TEST(DependencyGraph, MarksCyclesAndLeavesTheirDependentsAcyclic) {
  DependencyGraph g;
  g.setPrecedents(cell(1, 1), {block(Area::cell(2, 1))});  // A1 = A2
  g.setPrecedents(cell(2, 1), {block(Area::cell(1, 1))});  // A2 = A1
  g.setPrecedents(cell(3, 1), {block(Area::cell(2, 1))});  // A3 = A2
  g.setPrecedents(cell(5, 5), {block(Area::cell(5, 5))});  // E5 = E5
  CellKey changed[] = {cell(1, 1), cell(5, 5)};
  auto steps = g.recalcOrder(changed);
  ASSERT_EQ(steps.size(), 4u);
  EXPECT_TRUE(steps[positionOf(steps, cell(1, 1))].cyclic);
  EXPECT_TRUE(steps[positionOf(steps, cell(2, 1))].cyclic);
  EXPECT_TRUE(steps[positionOf(steps, cell(5, 5))].cyclic);
  EXPECT_FALSE(steps[positionOf(steps, cell(3, 1))].cyclic);
  EXPECT_GT(positionOf(steps, cell(3, 1)), positionOf(steps, cell(2, 1)));
}

TEST(DependencyGraph, SmallAndLargeAreasBothReachTheirCells) {
  DependencyGraph g;
  g.setPrecedents(cell(1, 10), {block({1, 1, 8, 8})});            // indexed cell by cell
  g.setPrecedents(cell(2, 10), {block({1, 1, kMaxRows, 1})});     // kept as an area
  g.setPrecedents(cell(3, 10), {block({1, 1, kMaxRows, 1}, 1)});  // another sheet
  std::vector<CellKey> out;
  g.appendDependents(cell(8, 1), out);
  EXPECT_EQ(out, (std::vector<CellKey>{cell(1, 10), cell(2, 10)}));
  out.clear();
  g.appendDependents(cell(9, 1), out);
  EXPECT_EQ(out, (std::vector<CellKey>{cell(2, 10)}));
  auto found = g.dependentsOf(block({1, 1, 100, 100}));
  EXPECT_EQ(found.size(), 2u);
}

TEST(DependencyGraph, RemovingAFormulaForgetsItsLinks) {
  DependencyGraph g;
  g.setPrecedents(cell(1, 2), {block(Area::cell(1, 1)), block({1, 1, kMaxRows, 1})});
  g.remove(cell(1, 2));
  std::vector<CellKey> out;
  g.appendDependents(cell(1, 1), out);
  EXPECT_TRUE(out.empty());
  EXPECT_FALSE(g.isFormula(cell(1, 2)));
  CellKey changed[] = {cell(1, 1)};
  EXPECT_TRUE(g.recalcOrder(changed).empty());
}

}  // namespace
}  // namespace kxc::workbook
