#include "platform/controls/list_view.h"

#include <gtest/gtest.h>

#include "platform/controls/form.h"
#include "support/error_number.h"
#include "support/recording_form_view.h"

namespace kxc::controls {
namespace {

using testing::errorNumber;

std::vector<std::string> texts(ListView& list) {
  std::vector<std::string> out;
  for (int32_t i = 1; i <= list.listItems().count(); ++i) out.push_back(list.listItems().text(i));
  return out;
}

std::vector<int32_t> selectedRows(ListView& list) {
  std::vector<int32_t> out;
  for (int32_t i = 1; i <= list.listItems().count(); ++i) {
    if (list.listItems().selected(i)) out.push_back(i);
  }
  return out;
}

TEST(ListItems, AddInsertsAtIndexAndAppendsForZero) {
  struct Case {
    std::vector<std::pair<int32_t, std::string>> adds;
    std::vector<std::string> expected;
  };
  const Case cases[] = {
      {{{0, "A"}, {0, "B"}, {0, "C"}}, {"A", "B", "C"}},
      {{{0, "A"}, {0, "B"}, {1, "<ALL>"}}, {"<ALL>", "A", "B"}},
      {{{0, "A"}, {0, "C"}, {2, "B"}}, {"A", "B", "C"}},
      {{{1, "C"}, {1, "B"}, {1, "A"}}, {"A", "B", "C"}},
      {{{0, "A"}, {2, "B"}}, {"A", "B"}},  // count + 1 appends too
  };
  for (const Case& c : cases) {
    ListView list;
    for (const auto& [index, text] : c.adds) list.listItems().add(index, "", text);
    EXPECT_EQ(texts(list), c.expected);
  }
}

TEST(ListItems, OutOfRangeIndexRaises35600AndChangesNothing) {
  ListView list;
  list.listItems().add(0, "k1", "A");
  std::string description;
  EXPECT_EQ(errorNumber([&] { list.listItems().add(3, "k2", "B"); }, &description), 35600);
  EXPECT_EQ(description, "Index out of bounds");
  EXPECT_EQ(errorNumber([&] { list.listItems().add(-1); }), 35600);
  for (int32_t bad : {0, 2}) EXPECT_EQ(errorNumber([&] { list.listItems().item(bad); }), 35600);
  EXPECT_EQ(list.listItems().count(), 1);
  EXPECT_FALSE(list.listItems().containsKey("k2"));
}

TEST(ListItems, KeysAreUniqueAndFollowTheirRowsThroughInserts) {
  ListView list;
  auto& items = list.listItems();
  items.add(0, "dim1", "A");
  items.add(0, "", "no key");
  items.add(0, "dim2", "B");
  std::string description;
  EXPECT_EQ(errorNumber([&] { items.add(0, "dim1", "again"); }, &description), 35602);
  EXPECT_EQ(description, "Key is not unique in collection");
  EXPECT_EQ(items.count(), 3);
  items.add(1, "1all", "<ALL>");
  EXPECT_EQ(items.item("dim1").index(), 2);
  EXPECT_EQ(items.item("dim2").index(), 4);
  EXPECT_EQ(items.item("1all").text(), "<ALL>");
  EXPECT_EQ(items.item(3).key(), "");
  EXPECT_EQ(errorNumber([&] { items.item("DIM1"); }), 35601);  // keys are case-sensitive
  items.remove(2);
  EXPECT_EQ(items.item("dim2").index(), 3);
  EXPECT_EQ(errorNumber([&] { items.item("dim1"); }), 35601);
  items.add(0, "dim1", "A again");  // a removed key is free again
  items.clear();
  EXPECT_EQ(items.count(), 0);
  items.add(0, "dim2", "fresh");
}

TEST(ListItems, SubItemsExistForEachColumnAfterTheFirst) {
  ListView list;
  auto& items = list.listItems();
  items.add(0, "", "A");
  EXPECT_EQ(errorNumber([&] { items.item(1).setSubItem(1, "x"); }), 380);
  list.columnHeaders().add(0, "1a", "Name", 2000);
  list.columnHeaders().add(0, "2a", "Description", 3000);
  items.item(1).setSubItem(1, "first");
  EXPECT_EQ(errorNumber([&] { items.item(1).setSubItem(2, "x"); }), 380);
  EXPECT_EQ(errorNumber([&] { items.item(1).subItem(0); }), 380);
  items.add(1, "", "before");
  items.add(0, "", "after");
  EXPECT_EQ(items.item(2).subItem(1), "first");
  EXPECT_EQ(items.item(1).subItem(1), "");
  EXPECT_EQ(items.item(3).subItem(1), "");
}

TEST(ListSelection, SingleSelectionKeepsOneRowAndSelectedItemFollowsTheFocus) {
  ListView list;
  for (auto t : {"A", "B", "C"}) list.listItems().add(0, "", t);
  EXPECT_EQ(errorNumber([&] { list.selectedItem(); }), 91);
  list.listItems().item(1).setSelected(true);
  list.listItems().item(3).setSelected(true);
  EXPECT_EQ(selectedRows(list), std::vector<int32_t>{3});
  list.listItems().item(3).setSelected(false);
  EXPECT_EQ(list.selectedItem().index(), 3);  // the focus stays on an unselected row
  list.listItems().add(1, "", "<ALL>");
  EXPECT_EQ(list.selectedItem().index(), 4);
  list.listItems().remove(4);
  EXPECT_EQ(errorNumber([&] { list.selectedItem(); }), 91);
}

TEST(ListSelection, MultipleSelectionAddsAndSwitchingItOffKeepsTheFocusedRow) {
  ListView list;
  list.setMultiSelect(true);
  for (auto t : {"A", "B", "C", "D"}) list.listItems().add(0, "", t);
  for (int32_t i : {1, 4, 2}) list.listItems().setSelected(i, true);
  EXPECT_EQ(selectedRows(list), (std::vector<int32_t>{1, 2, 4}));
  EXPECT_EQ(list.listItems().selectedCount(), 3);
  list.setMultiSelect(false);
  EXPECT_EQ(selectedRows(list), std::vector<int32_t>{2});
  list.listItems().setSelected(3, true);
  EXPECT_EQ(selectedRows(list), std::vector<int32_t>{3});
}

TEST(ListSelection, ClicksSelectAsTheShiftFlagsSay) {
  struct Case {
    bool multi;
    std::vector<std::pair<int32_t, int>> clicks;
    std::vector<int32_t> expected;
    int32_t focus;
  };
  const Case cases[] = {
      {true, {{2, 0}, {4, 0}}, {4}, 4},
      {true, {{2, 0}, {4, keys::kCtrl}}, {2, 4}, 4},
      {true, {{2, 0}, {4, keys::kCtrl}, {2, keys::kCtrl}}, {4}, 2},
      {true, {{4, 0}, {2, keys::kShift}}, {2, 3, 4}, 2},
      {false, {{2, 0}, {4, keys::kCtrl}}, {4}, 4},
      {false, {{2, 0}, {4, keys::kShift}}, {4}, 4},
  };
  for (const Case& c : cases) {
    ListView list;
    list.setMultiSelect(c.multi);
    for (auto t : {"A", "B", "C", "D", "E"}) list.listItems().add(0, "", t);
    for (auto [row, shift] : c.clicks) list.clickItem(row, shift);
    EXPECT_EQ(selectedRows(list), c.expected);
    EXPECT_EQ(list.selectedItem().index(), c.focus);
  }
}

TEST(ListEvents, ClickRaisesItemClickThenClickAndTakesTheFocus) {
  Form form("frm");
  auto& list = form.add<ListView>("lvList");
  for (auto t : {"A", "B"}) list.listItems().add(0, "", t);
  std::vector<std::string> events;
  list.onItemClick = [&](ListItem item) { events.push_back("item " + item.text()); };
  list.onClick = [&] { events.push_back("click"); };
  list.onDblClick = [&] { events.push_back("dbl"); };
  list.onMouseUp = [&](int button, int, double, double) {
    events.push_back("up " + std::to_string(button));
  };
  list.clickItem(2);
  list.clickItem(0);  // below the rows
  list.doubleClick();
  list.mouseUp(mouse::kRight, 0, 10, 20);
  EXPECT_EQ(events, (std::vector<std::string>{"item B", "click", "click", "dbl", "up 2"}));
  EXPECT_EQ(form.activeControl(), &list);
  list.setEnabled(false);
  list.clickItem(1);
  EXPECT_EQ(events.size(), 5u);
}

TEST(ListEvents, ViewHearsRowChanges) {
  Form form("frm");
  auto& list = form.add<ListView>("lvList");
  testing::RecordingFormView view;
  form.setView(&view);
  list.listItems().add(0, "", "A");
  list.listItems().add(1, "", "<ALL>");
  list.listItems().setSelected(2, true);
  list.listItems().remove(1);
  list.listItems().clear();
  using K = ListChange::Kind;
  std::vector<std::tuple<K, int32_t, int32_t>> got;
  for (const auto& c : view.listChanges) got.emplace_back(c.kind, c.first, c.last);
  EXPECT_EQ(got, (std::vector<std::tuple<K, int32_t, int32_t>>{{K::Inserted, 1, 1},
                                                               {K::Inserted, 1, 1},
                                                               {K::Selection, 2, 2},
                                                               {K::Removed, 1, 1},
                                                               {K::Reset, 0, 0}}));
  form.setView(nullptr);
}

TEST(ColumnHeaders, AddClearAndLookUpByKey) {
  ListView list;
  auto& columns = list.columnHeaders();
  columns.add(0, "2a", "Name", 3000);
  columns.add(1, "1a", "Index", 2000, kAlignLeft);
  EXPECT_EQ(columns.item("2a").index(), 2);
  EXPECT_EQ(columns.item(1).width(), 2000);
  EXPECT_EQ(errorNumber([&] { columns.add(0, "1a"); }), 35602);
  EXPECT_EQ(errorNumber([&] { columns.add(0, "3a", "", 100, 7); }), 380);
  EXPECT_EQ(errorNumber([&] { columns.add(4); }), 35600);
  EXPECT_EQ(errorNumber([&] { columns.item("zz"); }), 35601);
  columns.item(1).setTag("@INDEX");
  EXPECT_EQ(columns.item("1a").tag(), "@INDEX");
  columns.clear();
  EXPECT_EQ(columns.count(), 0);
}

}  // namespace
}  // namespace kxc::controls
