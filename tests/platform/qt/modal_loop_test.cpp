// A modal show runs a nested event loop until the form is hidden or unloaded.
#include <gtest/gtest.h>

#include <QTimer>

#include "platform/controls/command_button.h"
#include "platform/qt/form_window.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_modal_loop.h"
#include "qt_application.h"

namespace kxc::qt {
namespace {

using controls::Form;

TEST(QtModalLoop, ShowRunsUntilTheFormIsHidden) {
  controls::ScopedModalLoop loop(qtModalLoop());
  Form form("frmLookup");
  auto& ok = form.add<controls::CommandButton>("cmdOk");
  ok.onClick = [&] { form.hide(); };
  QtFormView view(form);
  bool sawModal = false;
  QTimer::singleShot(0, [&] {
    sawModal = view.window().isVisible() && view.window().isModal() && form.isModal();
    view.widget("cmdOk")->metaObject();  // the button is there to be clicked
    ok.click();
  });
  form.show(1);
  EXPECT_TRUE(sawModal);
  EXPECT_FALSE(form.visible());
  EXPECT_FALSE(view.window().isVisible());
  EXPECT_FALSE(view.window().isModal());  // a later modeless show is not modal
}

TEST(QtModalLoop, UnloadEndsTheLoopToo) {
  controls::ScopedModalLoop loop(qtModalLoop());
  Form form("frmAny");
  QtFormView view(form);
  QTimer::singleShot(0, [&] { form.unload(); });
  form.show(1);
  EXPECT_FALSE(form.loaded());
  EXPECT_FALSE(view.runningModal());
}

TEST(QtModalLoop, AViewDestroyedWhileShownEndsTheLoop) {
  controls::ScopedModalLoop loop(qtModalLoop());
  Form form("frmAny");
  auto view = std::make_unique<QtFormView>(form);
  QTimer::singleShot(0, [&] { view.reset(); });
  form.show(1);
  EXPECT_EQ(form.view(), nullptr);
}

TEST(QtModalLoop, AFormWithoutAQtViewReturnsAtOnce) {
  controls::ScopedModalLoop loop(qtModalLoop());
  Form form("frmAny");
  form.show(1);
  EXPECT_TRUE(form.visible());
  EXPECT_FALSE(form.isModal());
}

}  // namespace
}  // namespace kxc::qt
