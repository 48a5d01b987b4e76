// QtFormView: shows one form of the control model as a Qt window with real widgets, keeps the
// widgets in step with the model's notices and turns the user's actions into model events.
#pragma once

#include <QMetaObject>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/controls/form.h"
#include "platform/controls/form_view.h"
#include "platform/qt/font_mapping.h"
#include "platform/qt/queued_once.h"

class QAction;
class QEventLoop;
class QMenu;
class QMenuBar;
class QWidget;

namespace kxc::qt {

class FormWindow;
class MenuBinding;

// Widgets by the control's typeName(): TextBox QLineEdit, Label QLabel, CommandButton
// QPushButton, Frame QGroupBox, ListView QTreeView (ListViewWidget), Grid QTableView
// (GridWidget); menus go into the window's menu bar (MenuBinding). Controls of other kinds get
// no widget.
//
// Placement: frmCacheFormula, frmLookup and frmTransactions use their Qt layouts (form_layouts.h)
// and ignore the controls' positions; any other form places each control at its position in
// twips, inside the smallest frame whose rectangle holds it.
//
// The window: Form::show makes it visible (from the event loop, so that a modal show can make
// it modal first), hide and unload hide it at once. Its size is the form's Width and Height
// (twips at the screen's DPI; a layout's size hint is the least it opens with) and every
// resize by the user reaches Form::resize. The close button calls Form::userClose, Escape
// clicks the cancel button (CommandButton::isCancel), Enter the default one. Owner makes the
// owner's window (windowRegistry) the transient parent; MousePointer 11 sets the busy cursor as
// the application's override cursor until the pointer is set back.
//
// Construct it after the form's controls and menus exist (later ones are not shown). The form
// must outlive the view; the view attaches itself (Form::setView) and detaches when destroyed.
// User-interface thread only; needs a QApplication.
class QtFormView : public controls::FormView {
 public:
  explicit QtFormView(controls::Form& form);
  ~QtFormView() override;
  QtFormView(const QtFormView&) = delete;
  QtFormView& operator=(const QtFormView&) = delete;

  // The view attached to `form`, or null when it has none or another kind.
  static QtFormView* of(const controls::Form& form);

  controls::Form& form() const { return form_; }
  FormWindow& window() const { return *window_; }
  bool usesLayout() const { return usesLayout_; }

  // The widget of the control named `name` (case-insensitive), or null.
  QWidget* widget(std::string_view name) const;
  QWidget* widget(const controls::Control& control) const;
  // The action of a menu or menu item, and the QMenu of a menu that has items.
  QAction* action(std::string_view menuName) const;
  QMenu* menu(std::string_view menuName) const;
  QMenuBar& menuBar() const { return *menuBar_; }

  // Announces held-back rows and cells and brings list and grid selections up to date.
  void syncNow();

  // Shows the window application-modal and processes events until the form is hidden or
  // unloaded (the Qt modal loop calls it). Returns at once when the form is not visible.
  void runModal();
  bool runningModal() const { return modalLoop_ != nullptr; }

  void propertyChanged(controls::Control* control, controls::Property property) override;
  void listChanged(controls::ListView& list, const controls::ListChange& change) override;
  void gridChanged(controls::Grid& grid, const controls::GridChange& change) override;
  void popupMenu(controls::Menu& menu) override;

 private:
  void buildWidgets();
  QWidget* createWidget(controls::Control& control);
  void placeWidgets();
  void connectWindow();
  void applyAll(controls::Control& control);
  void applyControl(controls::Control& control, controls::Property property);
  void applyForm(controls::Property property);
  void applyCaption(controls::Control& control, QWidget& widget);
  void applyFont(controls::Control& control, QWidget& widget);
  void applyBackColor(controls::Control& control, QWidget& widget);
  void applyGeometry(controls::Control& control, QWidget& widget);
  void applyFormSize();
  void applyOwner();
  void applyPointer();
  void applyWindowState();
  void applyFocus();
  void applyButtonRoles();
  void showWindow();
  void scheduleShow();
  void hideWindow();
  void reportSize();
  void focusFromQt(QWidget* now);
  void pressCancel();
  double dpi() const;

  controls::Form& form_;
  std::unique_ptr<FormWindow> window_;
  QMenuBar* menuBar_ = nullptr;
  QWidget* content_ = nullptr;
  std::unique_ptr<MenuBinding> menus_;
  std::unordered_map<const controls::Control*, QWidget*> widgets_;
  std::unordered_map<const QWidget*, controls::Control*> controls_;
  std::unordered_map<const controls::Control*, const controls::Control*> containers_;
  std::vector<controls::Control*> order_;
  SystemFontCatalog fonts_;
  QMetaObject::Connection focusConnection_;
  QEventLoop* modalLoop_ = nullptr;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);  // watched across nested loops
  bool usesLayout_ = false;
  bool overridingCursor_ = false;
  bool focusFromQt_ = false;
  QueuedOnce showLater_;  // set up with the window
  bool applyingState_ = false;
};

}  // namespace kxc::qt
