// The form view: widgets per control kind, the user's actions raised as model events, code
// changes shown, window size, owner, pointer, close button, layouts and menus.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "platform/controls/command_button.h"
#include "platform/controls/frame.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/list_view.h"
#include "platform/controls/text_box.h"
#include "platform/qt/form_window.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/screen_units.h"
#include "platform/qt/window_registry.h"
#include "qt_application.h"

namespace kxc::qt {
namespace {

using namespace kxc::controls;

template <class W>
W* widgetOf(const QtFormView& view, std::string_view name) {
  auto* w = qobject_cast<W*>(view.widget(name));
  EXPECT_NE(w, nullptr) << name;
  return w;
}

TEST(QtFormView, TypingIntoTheLineEditRaisesChange) {
  Form form("frmAny");
  auto& box = form.add<TextBox>("txtCache");
  std::vector<std::string> seen;
  box.onChange = [&] { seen.push_back(box.text()); };
  QtFormView view(form);
  auto* edit = widgetOf<QLineEdit>(view, "txtCache");
  QTest::keyClicks(edit, "K");
  QKeyEvent umlaut(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUtf8("ä"));
  QApplication::sendEvent(edit, &umlaut);
  EXPECT_EQ(box.text(), "Kä");
  EXPECT_EQ(seen, (std::vector<std::string>{"K", "Kä"}));
}

TEST(QtFormView, KeyDownSeesHostCodesAndAZeroedCodeIsConsumed) {
  Form form("frmAny");
  auto& box = form.add<TextBox>("txtCache");
  std::vector<std::pair<int, int>> keys;
  box.onKeyDown = [&](int& code, int shift) {
    keys.emplace_back(code, shift);
    if (code == 115 && shift == 0) {
      box.setText("$A$1");
      code = 0;
    }
    if (code == 88) code = 0;  // X never reaches the box
  };
  QtFormView view(form);
  auto* edit = widgetOf<QLineEdit>(view, "txtCache");
  QTest::keyClick(edit, Qt::Key_F4);
  QTest::keyClick(edit, Qt::Key_F4, Qt::ShiftModifier);
  QTest::keyClick(edit, Qt::Key_X);
  QTest::keyClick(edit, Qt::Key_Y);
  EXPECT_EQ(keys,
            (std::vector<std::pair<int, int>>{{115, 0}, {16, 1}, {115, 1}, {88, 0}, {89, 0}}));
  EXPECT_EQ(edit->text(), "$A$1y");
  EXPECT_EQ(box.text(), "$A$1y");
}

TEST(QtFormView, ClickingAButtonRaisesClickUnlessDisabled) {
  Form form("frmAny");
  auto& ok = form.add<CommandButton>("cmdOk");
  ok.setCaption("&OK");
  int clicks = 0;
  ok.onClick = [&] { ++clicks; };
  QtFormView view(form);
  auto* button = widgetOf<QPushButton>(view, "cmdOk");
  EXPECT_EQ(button->text(), "&OK");
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
  ok.setEnabled(false);
  EXPECT_FALSE(button->isEnabled());
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
}

TEST(QtFormView, CodeChangesReachTheWidgets) {
  Form form("frmAny");
  auto& label = form.add<Label>("lblCacheVal");
  auto& box = form.add<TextBox>("txtCache");
  auto& frame = form.add<Frame>("frDim");
  QtFormView view(form);
  label.setCaption("R&&D &Costs");
  box.setText("Sales");
  box.setBackColor(kColorYellow);
  frame.setCaption("Dimension");
  label.setVisible(false);
  EXPECT_EQ(widgetOf<QLabel>(view, "lblCacheVal")->text(), "R&D Costs");
  auto* edit = widgetOf<QLineEdit>(view, "txtCache");
  EXPECT_EQ(edit->text(), "Sales");
  EXPECT_EQ(edit->palette().color(QPalette::Base), QColor(255, 255, 0));
  box.setBackColor(kColorWhite);  // back to the desktop's own colours
  EXPECT_EQ(edit->palette().color(QPalette::Base), QPalette().color(QPalette::Base));
  EXPECT_EQ(widgetOf<QGroupBox>(view, "frDim")->title(), "Dimension");
  EXPECT_TRUE(view.widget("lblCacheVal")->isHidden());
}

TEST(QtFormView, FontsFollowTheModel) {
  Form form("frmAny");
  auto& label = form.add<Label>("lblCache");
  QtFormView view(form);
  label.setFontName("Courier New");
  EXPECT_TRUE(QFontInfo(view.widget("lblCache")->font()).fixedPitch());
  label.setFontSize(16.5);
  SystemFontCatalog catalog;
  EXPECT_DOUBLE_EQ(view.widget("lblCache")->font().pointSizeF(), 2 * catalog.basePointSize());
}

TEST(QtFormView, FormHandleMapsToItsWindow) {
  Form form("frmAny");
  auto view = std::make_unique<QtFormView>(form);
  EXPECT_EQ(windowRegistry().window(form.windowHandle()), &view->window());
  EXPECT_EQ(QtFormView::of(form), view.get());
  view.reset();
  EXPECT_EQ(form.view(), nullptr);
  EXPECT_EQ(windowRegistry().window(form.windowHandle()), nullptr);
}

TEST(QtFormView, OwnerBecomesTheTransientParent) {
  Form owner("frmOwner");
  Form owned("frmOwned");
  QtFormView ownerView(owner);
  QtFormView ownedView(owned);
  owned.setOwner(owner.windowHandle());
  ASSERT_NE(ownedView.window().windowHandle(), nullptr);
  EXPECT_EQ(ownedView.window().windowHandle()->transientParent(),
            ownerView.window().windowHandle());
  owned.show(0);
  testing::processEvents();
  EXPECT_EQ(ownedView.window().windowHandle()->transientParent(),
            ownerView.window().windowHandle());
  owned.setOwner(0);
  EXPECT_EQ(ownedView.window().windowHandle()->transientParent(), nullptr);
}

TEST(QtFormView, SizesAreTwipsBothWays) {
  Form form("frmAny");
  QtFormView view(form);
  const double dpi = logicalDpi(&view.window());
  form.resize(10050, 6795);
  EXPECT_EQ(view.window().size(), QSize(pixelsFromTwips(10050, dpi), pixelsFromTwips(6795, dpi)));
  form.show(0);
  testing::processEvents();
  view.window().resize(500, 400);
  testing::processEvents();
  EXPECT_EQ(form.width(), twipsFromPixels(500, dpi));
  EXPECT_EQ(form.height(), twipsFromPixels(400, dpi));
}

TEST(QtFormView, CloseButtonAsksTheFormAndEscapePressesCancel) {
  Form form("frmAny");
  auto& cancel = form.add<CommandButton>("cmdCancel");
  cancel.setCancel(true);
  int cancels = 0;
  cancel.onClick = [&] { ++cancels; };
  int refuse = 1;
  std::vector<int> modes;
  form.onQueryUnload = [&](int& c, int mode) {
    modes.push_back(mode);
    c = refuse;
  };
  QtFormView view(form);
  form.show(0);
  testing::processEvents();
  ASSERT_TRUE(view.window().isVisible());
  view.window().close();
  EXPECT_TRUE(form.loaded());
  EXPECT_TRUE(view.window().isVisible());
  refuse = 0;
  QTest::keyClick(&view.window(), Qt::Key_Escape);
  EXPECT_EQ(cancels, 1);
  view.window().close();
  EXPECT_FALSE(form.loaded());
  EXPECT_FALSE(view.window().isVisible());
  EXPECT_EQ(modes, (std::vector<int>{kUnloadByUser, kUnloadByUser}));
}

TEST(QtFormView, HourglassOverridesTheCursorWhileSet) {
  Form form("frmAny");
  QtFormView view(form);
  form.setMousePointer(kPointerHourglass);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::BusyCursor);
  form.setMousePointer(kPointerDefault);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(QtFormView, FocusFollowsTheModelAndTheUser) {
  Form form("frmAny");
  auto& first = form.add<TextBox>("txtCache");
  auto& second = form.add<TextBox>("txtMeasureIndex");
  QtFormView view(form);
  form.show(0);
  testing::processEvents();
  view.window().activateWindow();
  second.setFocus();
  EXPECT_EQ(view.window().focusWidget(), view.widget("txtMeasureIndex"));
  view.widget("txtCache")->setFocus();
  testing::processEvents();
  EXPECT_EQ(form.activeControl(), &first);
}

TEST(QtFormView, BuilderFormPlacesItsControlsByName) {
  Form form("frmCacheFormula");
  form.add<Frame>("frCache");
  for (const char* name : {"lblCache", "lblCacheVal", "lblMeasureIndex", "lblMeasureIndexVal"}) {
    form.add<Label>(name);
  }
  form.add<TextBox>("txtCache");
  form.add<TextBox>("txtMeasureIndex");
  form.add<CommandButton>("cmdCache").setCaption("...");
  form.add<CommandButton>("cmdMeasureIndex").setCaption("...");
  form.add<Frame>("frDim").setCaption("Dimension");
  form.add<ListView>("lvDimensions");
  form.add<Label>("lblResult");
  form.add<CommandButton>("cmdOk").setCaption("&OK");
  form.add<CommandButton>("cmdCancel").setCaption("&Cancel");
  form.add<Label>("lblExtra").setCaption("not in the layout");
  auto& label = form.control<Label>("lblMeasureIndex");
  label.setCaption("Kennzahlindex der ausgewählten Datenwürfelberechnung");
  label.move(0, 0, 300, 200);  // positions are ignored by a layout
  QtFormView view(form);
  form.show(0);
  testing::processEvents();
  EXPECT_TRUE(view.usesLayout());
  EXPECT_EQ(view.widget("txtCache")->parentWidget(), view.widget("frCache"));
  EXPECT_EQ(view.widget("lvDimensions")->parentWidget(), view.widget("frDim"));
  QWidget* caption = view.widget("lblMeasureIndex");
  EXPECT_GE(caption->width(), caption->sizeHint().width());  // never cut off
  EXPECT_LT(view.widget("cmdCache")->width(), view.widget("cmdOk")->width());
  const QRect ok = view.widget("cmdOk")->geometry();
  const QRect cancel = view.widget("cmdCancel")->geometry();
  EXPECT_LT(ok.right(), cancel.left());
  EXPECT_GT(ok.top(), view.widget("lblResult")->geometry().top());
  EXPECT_TRUE(view.widget("lblExtra")->isVisibleTo(&view.window()));
}

TEST(QtFormView, LookupAndTransactionsPutTheirListAboveTheButtonsAtTheRight) {
  struct Case {
    const char* form;
    const char* list;
    bool grid;
  };
  for (const Case& c :
       {Case{"frmLookup", "lvList", false}, Case{"frmTransactions", "vasTrans", true}}) {
    Form form(c.form);
    if (c.grid) {
      form.add<Grid>(c.list);
    } else {
      form.add<ListView>(c.list);
      form.add<CommandButton>("cmdOk").setCaption("&OK");
    }
    form.add<CommandButton>("cmdCancel").setCaption("&Abbrechen");
    QtFormView view(form);
    form.show(0);
    testing::processEvents();
    EXPECT_TRUE(view.usesLayout()) << c.form;
    const QRect list = view.widget(c.list)->geometry();
    const QRect cancel = view.widget("cmdCancel")->geometry();
    EXPECT_LT(list.bottom(), cancel.top()) << c.form;
    EXPECT_GT(cancel.left(), list.center().x()) << c.form;
    view.window().resize(view.window().width() + 100, view.window().height() + 100);
    testing::processEvents();
    EXPECT_EQ(view.widget(c.list)->height(), list.height() + 100) << c.form;
  }
}

TEST(QtFormView, OtherFormsUseTheControlsPositionsInsideTheirFrames) {
  Form form("frmOther");
  auto& frame = form.add<Frame>("frGroup");
  frame.move(150, 300, 3000, 1500);
  auto& label = form.add<Label>("lblInside");
  label.move(450, 600, 1500, 300);
  auto& outside = form.add<Label>("lblOutside");
  outside.move(3300, 150, 600, 300);
  QtFormView view(form);
  const double dpi = logicalDpi(&view.window());
  auto px = [dpi](int32_t twips) { return pixelsFromTwips(twips, dpi); };
  EXPECT_FALSE(view.usesLayout());
  EXPECT_EQ(view.widget("lblInside")->parentWidget(), view.widget("frGroup"));
  EXPECT_EQ(view.widget("lblInside")->geometry(), QRect(px(300), px(300), px(1500), px(300)));
  EXPECT_EQ(view.widget("lblOutside")->geometry(), QRect(px(3300), px(150), px(600), px(300)));
  label.move(600, 600, 1500, 300);
  EXPECT_EQ(view.widget("lblInside")->x(), px(450));
}

TEST(QtFormView, MenusRaiseClickAndHiddenOnesOnlyPopUp) {
  Form form("frmAny");
  Menu& file = form.addMenu("Filemnu", "&File");
  Menu& exit = form.addMenu("FilemnuExit", "E&xit", &file);
  form.addMenu("fileSepar", "-", &file);
  Menu& pop = form.addMenu("popMenu", "popMenu");
  pop.setVisible(false);
  Menu& copy = form.addMenu("Copy", "&Copy", &pop);
  int exits = 0, copies = 0;
  exit.onClick = [&] { ++exits; };
  copy.onClick = [&] { ++copies; };
  QtFormView view(form);
  EXPECT_TRUE(view.action("fileSepar")->isSeparator());
  EXPECT_FALSE(view.action("popMenu")->isVisible());
  EXPECT_EQ(view.action("Filemnu")->text(), "&File");
  view.action("FilemnuExit")->trigger();
  EXPECT_EQ(exits, 1);
  exit.setEnabled(false);
  EXPECT_FALSE(view.action("FilemnuExit")->isEnabled());
  file.setVisible(false);
  EXPECT_TRUE(view.menuBar().isHidden());  // nothing left to show in it

  QTimer::singleShot(0, [] {
    auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(popup, nullptr);
    popup->actions().front()->trigger();
    popup->close();
  });
  form.popupMenu(pop);
  EXPECT_EQ(copies, 1);
}

}  // namespace
}  // namespace kxc::qt
