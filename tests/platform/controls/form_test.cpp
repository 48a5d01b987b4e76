#include "platform/controls/form.h"

#include <gtest/gtest.h>

#include "platform/controls/command_button.h"
#include "platform/controls/frame.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/list_view.h"
#include "platform/controls/text_box.h"
#include "support/error_number.h"
#include "support/recording_form_view.h"

namespace kxc::controls {
namespace {

using testing::errorNumber;

TEST(FormControls, KeepsOrderAndFindsByNameIgnoringCase) {
  Form form("frmTest");
  form.add<Label>("lblA");
  form.add<TextBox>("txtCache");
  form.add<CommandButton>("cmdOk");
  std::vector<std::string> names;
  for (Control* c : form.controls()) names.push_back(c->name());
  EXPECT_EQ(names, (std::vector<std::string>{"lblA", "txtCache", "cmdOk"}));
  EXPECT_EQ(&form.control<TextBox>("TXTCACHE"), form.findControl("txtcache"));
  EXPECT_EQ(form.findControl("nothing"), nullptr);
}

TEST(FormControls, MissingControlRaises730AndWrongTypeRaises13) {
  Form form("frmTest");
  form.add<TextBox>("txtCache");
  std::string description;
  EXPECT_EQ(errorNumber([&] { form.control<TextBox>("txtMissing"); }, &description), 730);
  EXPECT_EQ(description, "Control not found");
  EXPECT_EQ(errorNumber([&] { form.control<Label>("txtCache"); }), 13);
  EXPECT_EQ(errorNumber([&] { form.add<Label>("TXTCACHE"); }), 5);
}

TEST(FormControls, TypeNamesFontsAndCaptionsFollowTheKindOfControl) {
  Form form("frmTest");
  struct Case {
    Control& control;
    std::string_view type;
    bool fontName, font, caption;
  };
  std::vector<Case> cases = {
      {form.add<TextBox>("t"), "TextBox", true, true, false},
      {form.add<Label>("l"), "Label", true, true, true},
      {form.add<CommandButton>("c"), "CommandButton", true, true, true},
      {form.add<Frame>("f"), "Frame", true, true, true},
      {form.add<ListView>("lv"), "ListView", false, true, false},
      {form.add<Grid>("g"), "Grid", false, true, false},
      {form.addMenu("m", "File"), "Menu", false, false, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.type));
    EXPECT_EQ(c.control.typeName(), c.type);
    EXPECT_EQ(c.control.hasFontName(), c.fontName);
    EXPECT_EQ(c.control.hasFont(), c.font);
    EXPECT_EQ(c.control.hasCaption(), c.caption);
    EXPECT_EQ(errorNumber([&] { c.control.fontName(); }), c.fontName ? 0 : 438);
    EXPECT_EQ(errorNumber([&] { c.control.font(); }), c.font ? 0 : 438);
    EXPECT_EQ(errorNumber([&] { c.control.setCaption("x"); }), c.caption ? 0 : 438);
    if (c.font) {
      EXPECT_EQ(c.control.font().name(), "MS Sans Serif");
      EXPECT_DOUBLE_EQ(c.control.font().size(), 8.25);
    }
  }
}

TEST(FormControls, FontNameAndFontObjectAreOneFont) {
  Label label;
  label.setFontName("Courier New");
  label.setFontSize(9);
  EXPECT_EQ(label.font().name(), "Courier New");
  EXPECT_DOUBLE_EQ(label.font().size(), 9);
  label.font().setCharset(134);
  EXPECT_EQ(label.font().charset(), 134);
}

TEST(FormFocus, SetFocusMakesTheActiveControlAndRefusesDisabledOrFocuslessControls) {
  Form form("frmTest");
  auto& text = form.add<TextBox>("txt");
  auto& button = form.add<CommandButton>("cmd");
  auto& label = form.add<Label>("lbl");
  text.setFocus();
  EXPECT_EQ(form.activeControl(), &text);
  EXPECT_TRUE(text.hasFocus());
  button.setEnabled(false);
  EXPECT_EQ(errorNumber([&] { button.setFocus(); }), 5);
  EXPECT_EQ(errorNumber([&] { label.setFocus(); }), 438);
  EXPECT_EQ(form.activeControl(), &text);
}

TEST(FormLifeCycle, ShowLoadsOnceAndActivatesEachTime) {
  Form form("frmTest");
  std::vector<std::string> events;
  form.onLoad = [&] { events.push_back("load"); };
  form.onActivate = [&] { events.push_back("activate"); };
  form.show();
  form.hide();
  form.show();
  EXPECT_TRUE(form.visible());
  EXPECT_EQ(events, (std::vector<std::string>{"load", "activate", "activate"}));
}

TEST(FormLifeCycle, ModalShowRunsTheFormsLoopThenReturns) {
  Form form("frmTest");
  auto& ok = form.add<CommandButton>("cmdOk");
  ok.onClick = [&] { form.hide(); };
  bool modalInside = false;
  form.setModalLoop([&](Form& f) {
    modalInside = f.isModal() && f.visible();
    f.control<CommandButton>("cmdOk").click();
  });
  form.show(1);
  EXPECT_TRUE(modalInside);
  EXPECT_FALSE(form.visible());
  EXPECT_FALSE(form.isModal());
}

TEST(FormLifeCycle, ProcessWideLoopServesFormsWithoutTheirOwn) {
  Form form("frmTest");
  int runs = 0;
  {
    ScopedModalLoop loop([&](Form& f) {
      ++runs;
      f.hide();
    });
    form.show(1);
  }
  form.show(1);  // no loop any more: returns at once, the form stays shown
  EXPECT_EQ(runs, 1);
  EXPECT_TRUE(form.visible());
}

TEST(FormLifeCycle, ModalShowOfAVisibleFormRaises400) {
  Form form("frmTest");
  form.show(0);
  std::string description;
  EXPECT_EQ(errorNumber([&] { form.show(1); }, &description), 400);
  EXPECT_EQ(description, "Form already displayed; can't show modally");
}

TEST(FormLifeCycle, UnloadCanBeCancelledAndTellsHowItWasAsked) {
  Form form("frmTest");
  auto& text = form.add<TextBox>("txt");
  std::vector<int> modes;
  int cancelNext = 1;
  form.onQueryUnload = [&](int& cancel, int mode) {
    modes.push_back(mode);
    cancel = cancelNext;
  };
  form.show();
  text.setFocus();
  EXPECT_FALSE(form.userClose());
  EXPECT_TRUE(form.loaded());
  cancelNext = 0;
  EXPECT_TRUE(form.unload());
  EXPECT_FALSE(form.loaded());
  EXPECT_FALSE(form.visible());
  EXPECT_EQ(form.activeControl(), nullptr);
  EXPECT_EQ(modes, (std::vector<int>{kUnloadByUser, kUnloadByCode}));
  text.setText("kept");
  form.load();
  EXPECT_EQ(text.text(), "kept");
}

TEST(FormWindow, ResizeAndWindowStateRaiseResize) {
  Form form("frmTest");
  std::vector<std::pair<int32_t, bool>> seen;
  form.onResize = [&] { seen.emplace_back(form.width(), form.minimized()); };
  form.resize(5000, 4000);
  form.setWindowState(WindowState::Minimized);
  form.setWindowState(WindowState::Minimized);
  EXPECT_EQ(seen, (std::vector<std::pair<int32_t, bool>>{{5000, false}, {5000, true}}));
  EXPECT_EQ(errorNumber([&] { form.resize(-1, 10); }), 380);
}

TEST(FormWindow, OwnerChangeReturnsThePreviousOwnerAndHandlesAreUnique) {
  Form a("a"), b("b");
  EXPECT_NE(a.windowHandle(), 0);
  EXPECT_NE(a.windowHandle(), b.windowHandle());
  EXPECT_EQ(a.setOwner(b.windowHandle()), 0);
  EXPECT_EQ(a.setOwner(0), b.windowHandle());
}

TEST(FormView, ReceivesNoticesOfCodeChanges) {
  Form form("frmTest");
  auto& text = form.add<TextBox>("txt");
  testing::RecordingFormView view;
  form.setView(&view);
  text.setText("a");
  text.setBackColor(kColorYellow);
  form.setCaption("Lookup");
  form.setMousePointer(kPointerHourglass);
  using P = Property;
  EXPECT_EQ(view.properties,
            (std::vector<std::pair<std::string, P>>{
                {"txt", P::Text}, {"txt", P::BackColor}, {"", P::Caption}, {"", P::MousePointer}}));
  form.setView(nullptr);
}

TEST(FormMenus, PopupGoesToTheViewWhichClicksAnItem) {
  Form form("frmTest");
  Menu& pop = form.addMenu("popMenu", "popMenu");
  pop.setVisible(false);
  Menu& copy = form.addMenu("Copy", "&Copy", &pop);
  Menu& sep = form.addMenu("sep1", "-", &pop);
  int copies = 0;
  copy.onClick = [&] { ++copies; };
  testing::RecordingFormView view;
  view.onPopup = [](Menu& m) { m.items()[0]->click(); };
  form.setView(&view);
  form.popupMenu(pop);
  EXPECT_EQ(view.popups, std::vector<std::string>{"popMenu"});
  EXPECT_EQ(copies, 1);
  EXPECT_TRUE(sep.isSeparator());
  copy.setEnabled(false);
  copy.click();
  EXPECT_EQ(copies, 1);
  EXPECT_EQ(errorNumber([&] { form.popupMenu(copy); }), 5);  // no items
  EXPECT_EQ(form.menus(), std::vector<Menu*>{&pop});
  form.setView(nullptr);
}

}  // namespace
}  // namespace kxc::controls
