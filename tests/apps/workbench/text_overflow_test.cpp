#include "text_overflow.h"

#include <gtest/gtest.h>

namespace kxc::workbench {
namespace {

TEST(TextOverflow, RunsIntoAsManyEmptyCellsAsTheTextNeeds) {
  struct Case {
    int textWidth;
    int room;
    std::vector<int> neighbours;
    int span;
  };
  const std::vector<Case> cases = {
      {80, 90, {96, 96}, 0},                           // fits its own cell
      {90, 90, {96}, 0},                               // exactly fits
      {91, 90, {96, 96}, 1},                           // one pixel more reaches the next cell
      {186, 90, {96, 96}, 1},                          // ends exactly at the next cell's edge
      {187, 90, {96, 96}, 2}, {500, 90, {96, 96}, 2},  // cut where the empty cells end
      {500, 90, {}, 0},                                // a filled neighbour stops it at once
      {150, 90, {0, 96}, 2},  // a hidden column is crossed, not counted as room
      {150, 90, {-5, 96}, 2},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(overflowSpan(c.textWidth, c.room, c.neighbours), c.span)
        << c.textWidth << " in " << c.room;
  }
}

}  // namespace
}  // namespace kxc::workbench
