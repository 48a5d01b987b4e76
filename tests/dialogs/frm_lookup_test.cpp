#include "dialogs/frm_lookup.h"

#include <gtest/gtest.h>

#include "fake_translator.h"
#include "support/error_number.h"
#include "support/recording_form_view.h"
#include "support/recording_services.h"

namespace kxc {
namespace {

using controls::Form;
using controls::mouse::kLeft;
using controls::mouse::kRight;

class FrmLookupTest : public ::testing::Test {
 protected:
  FrmLookupTest() {
    dialog.form().load();
    dialog.form().setView(&view);
  }
  ~FrmLookupTest() override { dialog.form().setView(nullptr); }

  // The lookup flow's filling: "<ALL>" inserted at row 1 after the members.
  void fillMembers(std::vector<std::string> members, bool multi = true) {
    auto& items = dialog.lvList().listItems();
    items.clear();
    dialog.SetLvHeaders(3);
    for (std::size_t j = 0; j < members.size(); ++j) {
      items.add(int32_t(j + 1), "dim" + std::to_string(j + 1), members[j]);
    }
    items.add(1, "1all", "<ALL>");
    dialog.lvList().setMultiSelect(multi);
  }

  // Shows the dialog modally; `user` acts while it is open.
  void showModal(std::function<void(FrmLookup&)> user) {
    dialog.form().setModalLoop([&](Form&) { user(dialog); });
    dialog.form().show(1);
  }

  std::string selectedPattern() {
    std::string out;
    auto& items = dialog.lvList().listItems();
    for (int32_t i = 1; i <= items.count(); ++i) out += items.selected(i) ? 'x' : '-';
    return out;
  }

  // Right-clicks the list and lets the view choose the popup item `name`.
  void popupCommand(const std::string& name) {
    view.onPopup = [&](controls::Menu& menu) {
      for (auto* item : menu.items()) {
        if (item->name() == name) item->click();
      }
    };
    dialog.lvList().mouseUp(kRight, 0, 100, 100);
  }

  testing::ScopedRecordingServices services;
  testing::FakeTranslator translator;
  std::string lookupSelection = "earlier";
  FrmLookup dialog{translator, lookupSelection};
  testing::RecordingFormView view;
};

TEST_F(FrmLookupTest, LoadTranslatesTheFormAndThePopupItems) {
  EXPECT_EQ(translator.translatedForms, std::vector<std::string>{"frmLookup"});
  auto& form = dialog.form();
  EXPECT_EQ(form.control<controls::Menu>("CopyColumn").caption(), "T:@COPY_ACRS_COLS");
  EXPECT_EQ(form.control<controls::Menu>("CopyRow").caption(), "T:@COPY_DWN_ROWS");
  EXPECT_EQ(form.control<controls::Menu>("SelectAll").caption(), "T:@SELECT_ALL&");
  EXPECT_EQ(dialog.cmdOk().caption(), "&OK");
  EXPECT_EQ(form.caption(), "Lookup");
  std::vector<std::string> order;
  for (auto* item : dialog.popMenu().items()) order.push_back(item->name());
  EXPECT_EQ(order,
            (std::vector<std::string>{"CopyRow", "CopyColumn", "popMenuSeparator", "SelectAll"}));
  EXPECT_TRUE(dialog.popMenu().items()[2]->isSeparator());
}

TEST_F(FrmLookupTest, LoadResetsTheIndexAndSingleMode) {
  fillMembers({"A"});
  dialog.ListVSingleMode("True");
  showModal([](FrmLookup& d) { d.cmdCancel().click(); });
  ASSERT_EQ(dialog.SelectedIndex(), -1);
  dialog.form().unload();
  dialog.form().load();
  EXPECT_EQ(dialog.SelectedIndex(), 0);
  EXPECT_FALSE(dialog.ListVSingleMode());
}

TEST_F(FrmLookupTest, ColumnLayoutsByMode) {
  using Columns = std::vector<std::tuple<std::string, std::string, int32_t>>;
  const std::pair<int32_t, Columns> cases[] = {
      {1, {{"1a", "T:@NAME", 2000}, {"2a", "", 3000}}},
      {2, {{"1a", "T:@INDEX", 2000}, {"2a", "T:@NAME", 3000}}},
      {3, {{"1a", "T:@NAME", 2000}, {"2a", "T:@DESCRIPTION", 3000}}},
      {0, {}},
      {7, {}},
  };
  for (const auto& [mode, expected] : cases) {
    dialog.SetLvHeaders(2);  // something to clear first
    dialog.SetLvHeaders(mode);
    Columns got;
    for (const auto& h : dialog.lvList().columnHeaders()) {
      got.emplace_back(h->key(), h->text(), h->width());
      EXPECT_EQ(h->alignment(), controls::kAlignLeft);
    }
    EXPECT_EQ(got, expected) << "mode " << mode;
  }
}

TEST_F(FrmLookupTest, SingleModeTakesTheUsualTextToBooleanRule) {
  const std::pair<const char*, bool> cases[] = {{"True", true}, {"false", false}, {"TRUE", true},
                                                {"0", false},   {"-1", true},     {"2.5", true}};
  for (const auto& [text, expected] : cases) {
    dialog.ListVSingleMode(text);
    EXPECT_EQ(dialog.ListVSingleMode(), expected) << text;
  }
  EXPECT_EQ(testing::errorNumber([&] { dialog.ListVSingleMode("yes"); }), 13);
}

TEST_F(FrmLookupTest, OkStoresTheSelectionTextAndTheFocusedRowThenHides) {
  fillMembers({"A", "B", "C", "D"});
  dialog.MultipleSelectSet("<<A..C");
  showModal([](FrmLookup& d) { d.cmdOk().click(); });
  EXPECT_EQ(lookupSelection, "<<A..C");
  EXPECT_EQ(dialog.SelectedIndex(), 4);
  EXPECT_FALSE(dialog.form().visible());
  EXPECT_TRUE(dialog.form().loaded());
}

TEST_F(FrmLookupTest, DoubleClickActsLikeOk) {
  fillMembers({"A", "B", "C", "D"});
  showModal([](FrmLookup& d) {
    d.lvList().clickItem(2);
    d.lvList().clickItem(4, controls::keys::kCtrl);
    d.lvList().doubleClick();
  });
  EXPECT_EQ(lookupSelection, "<<A,C");
  EXPECT_EQ(dialog.SelectedIndex(), 4);
  EXPECT_FALSE(dialog.form().visible());
}

TEST_F(FrmLookupTest, OkWithOneRowSwitchesSingleModeOn) {
  fillMembers({"A", "B"});
  showModal([](FrmLookup& d) {
    d.lvList().clickItem(3);
    d.cmdOk().click();
  });
  EXPECT_EQ(lookupSelection, "B");
  EXPECT_TRUE(dialog.ListVSingleMode());
}

TEST_F(FrmLookupTest, OkWithoutAFocusedRowKeepsTheIndexAndStillHides) {
  fillMembers({"A", "B"});
  showModal([](FrmLookup& d) { d.cmdOk().click(); });
  EXPECT_EQ(lookupSelection, "");
  EXPECT_EQ(dialog.SelectedIndex(), 0);
  EXPECT_FALSE(dialog.form().visible());
}

TEST_F(FrmLookupTest, CancelSetsMinusOneAndLeavesTheSelectionText) {
  fillMembers({"A", "B"});
  dialog.MultipleSelectSet("A");
  showModal([](FrmLookup& d) { d.cmdCancel().click(); });
  EXPECT_EQ(dialog.SelectedIndex(), -1);
  EXPECT_EQ(lookupSelection, "earlier");
  EXPECT_FALSE(dialog.form().visible());
}

TEST_F(FrmLookupTest, ActivationFocusesTheList) {
  fillMembers({"A"});
  showModal([](FrmLookup& d) {
    EXPECT_EQ(d.form().activeControl(), &d.lvList());
    d.cmdCancel().click();
  });
}

TEST_F(FrmLookupTest, MultipleSelectSetReplacesTheSelectionAndKeepsItForAnEmptyText) {
  fillMembers({"A", "B", "C", "D", "E"});
  dialog.lvList().listItems().setSelected(1, true);
  EXPECT_EQ(dialog.MultipleSelectSet("<<A..C,E", Variant(int32_t{1})), 0);
  EXPECT_EQ(selectedPattern(), "-xxx-x");
  dialog.MultipleSelectSet("");
  EXPECT_EQ(selectedPattern(), "-xxx-x");
}

TEST_F(FrmLookupTest, WithoutMultipleSelectionOnlyTheLastNamedRowStays) {
  fillMembers({"A", "B", "C"}, /*multi=*/false);
  dialog.MultipleSelectSet("<<A,C");
  EXPECT_EQ(selectedPattern(), "---x");
}

TEST_F(FrmLookupTest, RightButtonReleaseShowsThePopupAndLeftDoesNot) {
  fillMembers({"A"});
  dialog.lvList().mouseUp(kLeft, 0, 1, 1);
  dialog.lvList().mouseDown(kRight, 0, 1, 1);
  EXPECT_TRUE(view.popups.empty());
  dialog.lvList().mouseUp(kRight, 0, 1, 1);
  EXPECT_EQ(view.popups, std::vector<std::string>{"popMenu"});
}

TEST_F(FrmLookupTest, CopyCommandsJoinTheSelectedTexts) {
  struct Case {
    const char* command;
    std::string pattern;
    std::string clipboard;
  };
  const Case cases[] = {
      {"CopyRow", "-x-x", "A\r\nC"},
      {"CopyColumn", "-x-x", "A\tC"},
      {"CopyColumn", "x-x", "<ALL>\tB"},
      {"CopyRow", "-x", "A"},
      {"CopyRow", "", ""},
  };
  for (const Case& c : cases) {
    fillMembers({"A", "B", "C"});
    for (std::size_t i = 0; i < c.pattern.size(); ++i) {
      if (c.pattern[i] == 'x') dialog.lvList().listItems().setSelected(int32_t(i + 1), true);
    }
    dialog.cmdOk().setFocus();
    services->clipboard = "old";
    popupCommand(c.command);
    EXPECT_EQ(services->clipboard, c.clipboard) << c.command << " " << c.pattern;
    EXPECT_EQ(dialog.form().activeControl(), &dialog.lvList());
  }
}

TEST_F(FrmLookupTest, SelectAllLeavesTheFirstRowOut) {
  fillMembers({"A", "B", "C"});
  dialog.lvList().listItems().setSelected(1, true);
  popupCommand("SelectAll");
  EXPECT_EQ(selectedPattern(), "xxxx");  // row 1 is not unselected either
  fillMembers({"A", "B", "C"});
  popupCommand("SelectAll");
  EXPECT_EQ(selectedPattern(), "-xxx");
}

TEST_F(FrmLookupTest, ListCommandsStopAtTheSixteenBitRowCounter) {
  auto& items = dialog.lvList().listItems();
  dialog.lvList().setMultiSelect(true);
  for (int i = 1; i <= 33000; ++i) items.add(0, "", "m" + std::to_string(i));
  popupCommand("SelectAll");
  EXPECT_FALSE(items.selected(1));
  EXPECT_TRUE(items.selected(32767));
  EXPECT_FALSE(items.selected(32768));
  EXPECT_EQ(items.selectedCount(), 32766);
  items.unselectAllBut(0);
  items.setSelected(32767, true);
  items.setSelected(32900, true);
  popupCommand("CopyRow");
  EXPECT_EQ(services->clipboard, "m32767");
}

}  // namespace
}  // namespace kxc
