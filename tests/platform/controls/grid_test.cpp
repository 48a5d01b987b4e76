#include "platform/controls/grid.h"

#include <gtest/gtest.h>

#include "support/error_number.h"
#include "support/recording_services.h"

namespace kxc::controls {
namespace {

using testing::errorNumber;

Variant call(Grid& grid, std::string_view member, std::vector<Variant> values,
             CallKind kind = CallKind::Method) {
  std::vector<Argument> args;
  for (auto& v : values) args.push_back(Argument::byValue(v));
  return grid.invoke(member, Arguments(args), kind);
}

Variant get(Grid& grid, std::string_view member, std::vector<Variant> values = {}) {
  return call(grid, member, std::move(values), CallKind::PropertyGet);
}

void put(Grid& grid, std::string_view member, std::vector<Variant> values) {
  call(grid, member, std::move(values), CallKind::PropertyPut);
}

TEST(GridMembers, SizeCurrentCellAndTextThroughDispatch) {
  Grid grid;
  put(grid, "maxcols", {int32_t{3}});
  put(grid, "MaxRows", {int32_t{2}});
  put(grid, "Col", {int32_t{2}});
  put(grid, "Row", {int32_t{0}});
  put(grid, "Text", {"Region"});
  EXPECT_EQ(get(grid, "MaxCols"), Variant(int32_t{3}));
  EXPECT_EQ(get(grid, "MAXROWS"), Variant(int32_t{2}));
  EXPECT_EQ(grid.cellText(2, 0), "Region");
  EXPECT_EQ(call(grid, "GetText", {int32_t{2}, int32_t{0}}), Variant("Region"));
  EXPECT_EQ(get(grid, "Text"), Variant("Region"));
}

TEST(GridMembers, SetTextGrowsTheGridAndConvertsNumbers) {
  Grid grid;
  call(grid, "SetText", {int32_t{4}, int32_t{7}, 12.5});
  EXPECT_EQ(grid.maxCols(), 4);
  EXPECT_EQ(grid.maxRows(), 7);
  EXPECT_EQ(grid.cellText(4, 7), "12.5");
  EXPECT_EQ(grid.cellText(9, 9), "");  // outside reads as empty
}

TEST(GridMembers, SetBlockSplitsCellsAtTabsAndRowsAtNewlines) {
  struct Case {
    std::string text;
    std::vector<std::vector<std::string>> cells;  // rows from (2, 3)
    int32_t maxCols, maxRows;
  };
  const Case cases[] = {
      {"a\tb\nc\td\n", {{"a", "b"}, {"c", "d"}}, 3, 4},
      {"a\tb\r\nc", {{"a", "b"}, {"c", ""}}, 3, 4},
      {"a\t\tc", {{"a", "", "c"}}, 4, 3},
      {"x\n\ny", {{"x"}, {""}, {"y"}}, 2, 5},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    Grid grid;
    call(grid, "SetBlock", {int32_t{2}, int32_t{3}, c.text});
    for (std::size_t r = 0; r < c.cells.size(); ++r) {
      for (std::size_t k = 0; k < c.cells[r].size(); ++k) {
        EXPECT_EQ(grid.cellText(2 + k, 3 + r), c.cells[r][k]);
      }
    }
    EXPECT_EQ(grid.maxCols(), c.maxCols);
    EXPECT_EQ(grid.maxRows(), c.maxRows);
  }
}

TEST(GridMembers, SetBlockInChunksContinuesWhereTheLastEnded) {
  Grid grid;
  put(grid, "MaxCols", {int32_t{2}});
  call(grid, "SetBlock", {int32_t{1}, int32_t{1}, "r1\tx\nr2\tx\n"});
  call(grid, "SetBlock", {int32_t{1}, int32_t{3}, "r3\tx\n"});
  EXPECT_EQ(grid.maxRows(), 3);
  EXPECT_EQ(grid.cellText(1, 3), "r3");
  EXPECT_EQ(grid.cellText(1, 2), "r2");
}

TEST(GridMembers, ClearAllEmptiesCellsButKeepsTheSize) {
  Grid grid;
  call(grid, "SetBlock", {int32_t{1}, int32_t{0}, "H1\tH2\nv1\tv2"});
  grid.setSelection(1, 1, 2, 1);
  call(grid, "ClearAll", {});
  EXPECT_EQ(grid.cellText(1, 0), "");
  EXPECT_EQ(grid.cellText(2, 1), "");
  EXPECT_EQ(grid.maxCols(), 2);
  EXPECT_FALSE(grid.selection().has_value());
}

TEST(GridMembers, ColWidthGetAndPutWithTheColumn) {
  Grid grid;
  EXPECT_EQ(get(grid, "ColWidth", {int32_t{3}}), Variant(kDefaultColWidth));
  put(grid, "ColWidth", {int32_t{3}, 20.0});
  EXPECT_EQ(get(grid, "ColWidth", {int32_t{3}}), Variant(20.0));
}

TEST(GridMembers, BadCallsRaiseTheirNumbers) {
  Grid grid;
  EXPECT_EQ(errorNumber([&] { call(grid, "Nope", {}); }), 438);
  EXPECT_EQ(errorNumber([&] { call(grid, "SetText", {int32_t{1}}); }), 449);
  EXPECT_EQ(errorNumber([&] { call(grid, "SetText", {"x", int32_t{1}, "t"}); }), 13);
  EXPECT_EQ(errorNumber([&] { put(grid, "MaxRows", {int32_t{-1}}); }), 380);
  EXPECT_EQ(errorNumber([&] { grid.setCellText(-1, 0, "x"); }), 380);
}

TEST(GridMembers, ShrinkingMaxRowsDropsTheRowsBeyond) {
  Grid grid;
  call(grid, "SetBlock", {int32_t{1}, int32_t{1}, "a\nb\nc"});
  put(grid, "MaxRows", {int32_t{1}});
  put(grid, "MaxRows", {int32_t{3}});
  EXPECT_EQ(grid.cellText(1, 1), "a");
  EXPECT_EQ(grid.cellText(1, 2), "");
}

TEST(GridCopy, SelectedBlockGoesToTheClipboardAsTabsAndLines) {
  testing::ScopedRecordingServices services;
  Grid grid;
  grid.setBlock(1, 0, "Region\tAmount\nNorth\t10\nSouth\t20\nWest\t30");
  grid.setSelection(2, 3, 1, 1);  // corners in any order
  EXPECT_EQ(grid.selection(), (Grid::Block{1, 1, 2, 3}));
  grid.copyToClipboard();
  EXPECT_EQ(services->clipboard, "North\t10\r\nSouth\t20\r\nWest\t30");
  grid.setSelection(2, 2, 5, 9);  // only the part inside the grid is copied
  EXPECT_EQ(grid.selectedText(), "20\r\n30");
  grid.clearSelection();
  services->clipboard = "untouched";
  grid.copyToClipboard();
  EXPECT_EQ(services->clipboard, "untouched");
}

}  // namespace
}  // namespace kxc::controls
