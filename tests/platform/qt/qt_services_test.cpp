// The services on Qt: message boxes, clipboard, events and windows by title.
#include "platform/qt/qt_services.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QMetaObject>
#include <QPushButton>
#include <QTimer>

#include "platform/controls/form.h"
#include "platform/qt/form_window.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/window_registry.h"
#include "qt_application.h"

namespace kxc::qt {
namespace {

struct ShownBox {
  QString title, text;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  int buttons = 0;
};

// Reads the message box once it is up, then presses `press`.
void answerNextBox(ShownBox& shown, QMessageBox::StandardButton press) {
  QTimer::singleShot(0, [&shown, press] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    shown = {box->windowTitle(), box->text(), box->icon(), static_cast<int>(box->buttons().size())};
    box->button(press)->click();
  });
}

TEST(QtServices, ErrorBoxShowsTitleTextAndWarningIcon) {
  QtServices services;
  ShownBox shown;
  answerNextBox(shown, QMessageBox::Ok);
  const int answer =
      services.messageBox("Invalid value. Please select a valid cache.", 48, "Error");
  EXPECT_EQ(answer, 1);
  EXPECT_EQ(shown.title, "Error");
  EXPECT_EQ(shown.text, "Invalid value. Please select a valid cache.");
  EXPECT_EQ(shown.icon, QMessageBox::Warning);
  EXPECT_EQ(shown.buttons, 1);
}

TEST(QtServices, QuestionBoxAnswersTheButtonPressed) {
  QtServices services;
  ShownBox shown;
  answerNextBox(shown, QMessageBox::No);
  EXPECT_EQ(services.messageBox("Replace?", 32 + 4, "Kestra"), 7);
  EXPECT_EQ(shown.icon, QMessageBox::Question);
  EXPECT_EQ(shown.buttons, 2);
  answerNextBox(shown, QMessageBox::Cancel);
  EXPECT_EQ(services.messageBox("Go on?", 1, "Kestra"), 2);
}

TEST(QtServices, ClipboardKeepsTextsWithTabsAndLineBreaks) {
  QtServices services;
  services.clipboardSetText("A\tC\r\nD — Ä");
  EXPECT_EQ(services.clipboardText(), "A\tC\r\nD — Ä");
  services.clipboardClear();
  EXPECT_EQ(services.clipboardText(), "");
}

TEST(QtServices, DoEventsRunsPendingCalls) {
  QtServices services;
  bool ran = false;
  QMetaObject::invokeMethod(
      qApp, [&] { ran = true; }, Qt::QueuedConnection);
  services.doEvents();
  EXPECT_TRUE(ran);
}

TEST(QtServices, FindsWindowsByCaseSensitiveTitlePrefix) {
  QtServices services;
  QWidget book;
  book.setWindowTitle("Kestra Workbench - Book1");
  book.show();
  controls::Form form("frmCacheFormula");
  form.setCaption("Cache Formula");
  QtFormView view(form);
  const WindowHandle handle = services.findWindowByTitle("Kestra Workbench");
  ASSERT_NE(handle, 0);
  EXPECT_EQ(windowRegistry().window(handle), &book);
  EXPECT_EQ(services.findWindowByTitle("Kestra Workbench"), handle);  // the same handle again
  EXPECT_EQ(services.findWindowByTitle("kestra workbench"), 0);
  EXPECT_EQ(services.findWindowByTitle("Cache Form"), form.windowHandle());
  EXPECT_EQ(services.findWindowByTitle("No such window"), 0);
}

}  // namespace
}  // namespace kxc::qt
