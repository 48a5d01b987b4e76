// The top-level window of a form: a QDialog (so Enter presses the default button) that hands
// its close button, Escape, size, state and activation to callbacks instead of acting itself.
#pragma once

#include <QDialog>
#include <functional>

namespace kxc::qt {

// The window never closes or hides itself: the close button and Escape only call their
// callbacks, and the form decides. Callbacks are optional.
class FormWindow : public QDialog {
 public:
  explicit FormWindow(QWidget* parent = nullptr);

  std::function<void()> onCloseRequested;  // the window's close button
  std::function<void()> onEscape;
  std::function<void(QSize size)> onResized;
  std::function<void(Qt::WindowStates states)> onStateChanged;
  std::function<void()> onActivated;  // became the active window again after losing it

  // Forget that the window lost activation (a fresh show is not a re-activation).
  void resetActivation() { deactivated_ = false; }

 public:
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  bool deactivated_ = false;
};

}  // namespace kxc::qt
