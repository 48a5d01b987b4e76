#include "platform/qt/qt_form_view.h"

#include <QAction>
#include <QApplication>
#include <QEventLoop>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMetaObject>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

#include "platform/controls/command_button.h"
#include "platform/controls/grid.h"
#include "platform/controls/list_view.h"
#include "platform/controls/text_box.h"
#include "platform/dispatch.h"
#include "platform/qt/caption_button.h"
#include "platform/qt/caption_text.h"
#include "platform/qt/form_layouts.h"
#include "platform/qt/form_window.h"
#include "platform/qt/grid_widget.h"
#include "platform/qt/guarded_call.h"
#include "platform/qt/list_view_widget.h"
#include "platform/qt/menu_binding.h"
#include "platform/qt/mouse_pointer.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/screen_units.h"
#include "platform/qt/text_box_widget.h"
#include "platform/qt/widget_colors.h"
#include "platform/qt/window_registry.h"

namespace kxc::qt {

using controls::Control;
using controls::Property;

namespace {

bool isType(const Control& control, std::string_view type) { return control.typeName() == type; }

Qt::WindowStates qtState(controls::WindowState state) {
  switch (state) {
    case controls::WindowState::Minimized:
      return Qt::WindowMinimized;
    case controls::WindowState::Maximized:
      return Qt::WindowMaximized;
    default:
      return Qt::WindowNoState;
  }
}

controls::WindowState modelState(Qt::WindowStates states) {
  if (states & Qt::WindowMinimized) return controls::WindowState::Minimized;
  if (states & (Qt::WindowMaximized | Qt::WindowFullScreen)) {
    return controls::WindowState::Maximized;
  }
  return controls::WindowState::Normal;
}

// The area a control covers, in twips.
struct Area {
  int64_t left, top, right, bottom;
  explicit Area(const Control& c)
      : left(c.left()),
        top(c.top()),
        right(int64_t{c.left()} + c.width()),
        bottom(int64_t{c.top()} + c.height()) {}
  bool holds(const Area& o) const {
    return left <= o.left && top <= o.top && right >= o.right && bottom >= o.bottom;
  }
  int64_t size() const { return (right - left) * (bottom - top); }
};

}  // namespace

QtFormView::QtFormView(controls::Form& form)
    : form_(form), window_(std::make_unique<FormWindow>()), showLater_(window_.get(), [this] {
        if (form_.visible() && form_.loaded()) showWindow();
      }) {
  window_->setObjectName(toQString(form_.name()));
  auto* outer = new QVBoxLayout(window_.get());
  outer->setContentsMargins(0, 0, 0, 0);
  outer->setSpacing(0);
  menuBar_ = new QMenuBar(window_.get());
  outer->setMenuBar(menuBar_);
  content_ = new QWidget(window_.get());
  content_->setObjectName(QStringLiteral("content"));
  outer->addWidget(content_, 1);

  buildWidgets();
  placeWidgets();
  menus_ = std::make_unique<MenuBinding>(form_.menus(), *menuBar_, *window_);
  for (Control* control : order_) applyAll(*control);
  applyButtonRoles();
  for (Property p :
       {Property::Caption, Property::Owner, Property::MousePointer, Property::WindowState}) {
    applyForm(p);
  }
  applyFormSize();
  connectWindow();
  windowRegistry().add(form_.windowHandle(), window_.get());
  form_.setView(this);
  if (form_.visible() && form_.loaded()) scheduleShow();
}

QtFormView::~QtFormView() {
  if (form_.view() == this) form_.setView(nullptr);
  if (modalLoop_) modalLoop_->quit();
  if (overridingCursor_) QApplication::restoreOverrideCursor();
  windowRegistry().remove(form_.windowHandle());
  QObject::disconnect(focusConnection_);
  menus_.reset();
  window_.reset();  // while the tables its widgets are looked up in still exist
}

QtFormView* QtFormView::of(const controls::Form& form) {
  return dynamic_cast<QtFormView*>(form.view());
}

double QtFormView::dpi() const { return logicalDpi(window_.get()); }

void QtFormView::buildWidgets() {
  for (Control* control : form_.controls()) {
    QWidget* widget = createWidget(*control);
    if (!widget) continue;
    widget->setObjectName(toQString(control->name()));
    widgets_[control] = widget;
    controls_[widget] = control;
    order_.push_back(control);
  }
}

QWidget* QtFormView::createWidget(Control& control) {
  if (auto* box = dynamic_cast<controls::TextBox*>(&control)) {
    return new TextBoxWidget(*box, content_);
  }
  if (auto* button = dynamic_cast<controls::CommandButton*>(&control)) {
    auto* widget = new CaptionButton(content_);
    QObject::connect(widget, &QPushButton::clicked, widget,
                     [button] { guarded(*button, [&] { button->click(); }); });
    return widget;
  }
  if (auto* list = dynamic_cast<controls::ListView*>(&control)) {
    return new ListViewWidget(*list, content_);
  }
  if (auto* grid = dynamic_cast<controls::Grid*>(&control)) return new GridWidget(*grid, content_);
  if (isType(control, "Label")) {
    auto* label = new QLabel(content_);
    label->setTextFormat(Qt::PlainText);
    return label;
  }
  if (isType(control, "Frame")) return new QGroupBox(content_);
  return nullptr;
}

void QtFormView::placeWidgets() {
  auto byName = [this](std::string_view name) { return widget(name); };
  if (auto placed = applyFormLayout(form_.name(), *content_, byName)) {
    usesLayout_ = true;
    for (Control* control : order_) {
      QWidget* w = widgets_.at(control);
      if (std::find(placed->begin(), placed->end(), w) == placed->end()) {
        addUnplaced(*content_, *w);
      }
    }
    return;
  }
  // Positions in twips: a control sits in the smallest frame that holds its rectangle.
  for (Control* control : order_) {
    if (isType(*control, "Frame")) continue;
    const Area area(*control);
    const Control* best = nullptr;
    for (Control* frame : order_) {
      if (!isType(*frame, "Frame") || !Area(*frame).holds(area)) continue;
      if (!best || Area(*frame).size() < Area(*best).size()) best = frame;
    }
    if (best) {
      containers_[control] = best;
      widgets_.at(control)->setParent(widgets_.at(best));
    }
  }
}

void QtFormView::connectWindow() {
  window_->onCloseRequested = [this] { guarded(form_, [&] { form_.userClose(); }); };
  window_->onEscape = [this] { pressCancel(); };
  window_->onResized = [this](QSize) { reportSize(); };
  window_->onStateChanged = [this](Qt::WindowStates states) {
    if (applyingState_) return;
    guarded(form_, [&] { form_.setWindowState(modelState(states)); });
  };
  window_->onActivated = [this] { guarded(form_, [&] { form_.activate(); }); };
  focusConnection_ = QObject::connect(qApp, &QApplication::focusChanged, window_.get(),
                                      [this](QWidget*, QWidget* now) { focusFromQt(now); });
}

QWidget* QtFormView::widget(std::string_view name) const {
  const Control* control = form_.findControl(name);
  return control ? widget(*control) : nullptr;
}

QWidget* QtFormView::widget(const Control& control) const {
  auto it = widgets_.find(&control);
  return it == widgets_.end() ? nullptr : it->second;
}

QAction* QtFormView::action(std::string_view menuName) const {
  auto* menu = dynamic_cast<controls::Menu*>(form_.findControl(menuName));
  return menu ? menus_->action(*menu) : nullptr;
}

QMenu* QtFormView::menu(std::string_view menuName) const {
  auto* menu = dynamic_cast<controls::Menu*>(form_.findControl(menuName));
  return menu ? menus_->qmenu(*menu) : nullptr;
}

void QtFormView::syncNow() {
  for (auto& [control, w] : widgets_) {
    if (auto* list = dynamic_cast<ListViewWidget*>(w)) list->syncSelection();
    if (auto* grid = dynamic_cast<GridWidget*>(w)) grid->syncSelection();
  }
}

// --- model to widgets ---------------------------------------------------------------------

void QtFormView::applyAll(Control& control) {
  for (Property p : {Property::Caption, Property::Text, Property::Enabled, Property::Visible,
                     Property::BackColor, Property::Font, Property::Geometry}) {
    applyControl(control, p);
  }
}

void QtFormView::propertyChanged(Control* control, Property property) {
  if (!control) {
    applyForm(property);
    return;
  }
  if (auto* menu = dynamic_cast<controls::Menu*>(control)) {
    if (menus_) menus_->propertyChanged(*menu, property);
    return;
  }
  applyControl(*control, property);
}

void QtFormView::applyControl(Control& control, Property property) {
  QWidget* w = widget(control);
  if (!w) return;
  switch (property) {
    case Property::Caption:
      applyCaption(control, *w);
      break;
    case Property::Text:
      if (auto* box = dynamic_cast<TextBoxWidget*>(w)) box->showText();
      break;
    case Property::Enabled:
      w->setEnabled(control.enabled());
      break;
    case Property::Visible:
      // Hidden until the window shows, but no longer hidden on its own account.
      w->setVisible(control.visible());
      break;
    case Property::BackColor:
      applyBackColor(control, *w);
      break;
    case Property::Font:
      applyFont(control, *w);
      break;
    case Property::Geometry:
      applyGeometry(control, *w);
      break;
    case Property::MultiSelect:
      if (auto* list = dynamic_cast<ListViewWidget*>(w)) list->multiSelectChanged();
      break;
    case Property::Columns:
      if (auto* list = dynamic_cast<ListViewWidget*>(w)) list->columnsChanged();
      break;
    default:
      break;
  }
}

void QtFormView::applyCaption(Control& control, QWidget& w) {
  if (!control.hasCaption()) return;
  const QString caption = toQString(control.caption());
  if (auto* label = qobject_cast<QLabel*>(&w)) {
    label->setText(plainCaptionText(caption));
  } else if (auto* button = qobject_cast<QPushButton*>(&w)) {
    button->setText(mnemonicText(caption));
  } else if (auto* frame = qobject_cast<QGroupBox*>(&w)) {
    frame->setTitle(mnemonicText(caption));
  }
}

void QtFormView::applyFont(Control& control, QWidget& w) {
  if (!control.hasFont()) return;
  const controls::FontObject& font = control.font();
  w.setFont(makeFont(chooseFont({font.name(), font.size(), font.charset()}, fonts_)));
  if (auto* grid = dynamic_cast<GridWidget*>(&w)) grid->fontChanged();
}

void QtFormView::applyBackColor(Control& control, QWidget& w) {
  const bool white =
      isType(control, "TextBox") || isType(control, "ListView") || isType(control, "Grid");
  const int32_t defaultColor = white ? controls::kColorWhite : controls::kColorButtonFace;
  const QPalette::ColorRole role = white                              ? QPalette::Base
                                   : isType(control, "CommandButton") ? QPalette::Button
                                                                      : QPalette::Window;
  qt::applyBackColor(w, control.backColor(), defaultColor, role);
}

void QtFormView::applyGeometry(Control& control, QWidget& w) {
  if (usesLayout_) return;
  int32_t left = control.left();
  int32_t top = control.top();
  if (auto it = containers_.find(&control); it != containers_.end()) {
    left -= it->second->left();
    top -= it->second->top();
  }
  const double d = dpi();
  w.setGeometry(pixelsFromTwips(left, d), pixelsFromTwips(top, d),
                pixelsFromTwips(control.width(), d), pixelsFromTwips(control.height(), d));
}

void QtFormView::applyButtonRoles() {
  for (Control* control : order_) {
    auto* button = dynamic_cast<controls::CommandButton*>(control);
    if (!button) continue;
    auto* w = static_cast<QPushButton*>(widgets_.at(control));
    w->setAutoDefault(true);
    w->setDefault(button->isDefault());
  }
}

void QtFormView::applyForm(Property property) {
  switch (property) {
    case Property::Caption:
      window_->setWindowTitle(windowTitleText(toQString(form_.caption())));
      break;
    case Property::Visible:
    case Property::Loaded:
      if (form_.visible() && form_.loaded()) {
        scheduleShow();
      } else {
        hideWindow();
      }
      break;
    case Property::Geometry:
      applyFormSize();
      break;
    case Property::Focus:
      applyFocus();
      break;
    case Property::MousePointer:
      applyPointer();
      break;
    case Property::Owner:
      applyOwner();
      break;
    case Property::WindowState:
      applyWindowState();
      break;
    default:
      break;
  }
}

void QtFormView::applyFormSize() {
  const double d = dpi();
  QSize size(pixelsFromTwips(form_.width(), d), pixelsFromTwips(form_.height(), d));
  if (size != window_->size()) window_->resize(size);
}

void QtFormView::applyOwner() {
  QWidget* owner = windowRegistry().window(form_.owner());
  if (owner) owner = owner->window();
  if (owner == window_.get()) owner = nullptr;
  window_->winId();  // a native window, so that it has a QWindow to be made transient
  QWindow* handle = window_->windowHandle();
  if (!handle) return;
  if (owner) {
    owner->winId();
    handle->setTransientParent(owner->windowHandle());
  } else {
    handle->setTransientParent(nullptr);
  }
}

void QtFormView::applyPointer() {
  const auto shape = cursorForPointer(form_.mousePointer());
  if (shape) {
    if (overridingCursor_) {
      QApplication::changeOverrideCursor(*shape);
    } else {
      QApplication::setOverrideCursor(*shape);
      overridingCursor_ = true;
    }
  } else if (overridingCursor_) {
    QApplication::restoreOverrideCursor();
    overridingCursor_ = false;
  }
}

void QtFormView::applyWindowState() {
  const Qt::WindowStates wanted = qtState(form_.windowState());
  if (modelState(window_->windowState()) == form_.windowState()) return;
  FlagScope applying(applyingState_);
  window_->setWindowState(wanted);
}

void QtFormView::applyFocus() {
  if (focusFromQt_) return;
  Control* active = form_.activeControl();
  QWidget* w = active ? widget(*active) : nullptr;
  if (w && !w->hasFocus()) w->setFocus(Qt::OtherFocusReason);
}

void QtFormView::scheduleShow() {
  // Shown from the event loop: a modal show gets to make the window modal first.
  showLater_.request();
}

void QtFormView::showWindow() {
  syncNow();
  if (!window_->isVisible()) {
    applyButtonRoles();
    const double d = dpi();
    QSize size(pixelsFromTwips(form_.width(), d), pixelsFromTwips(form_.height(), d));
    if (usesLayout_) size = size.expandedTo(window_->sizeHint());
    window_->resize(size);
    window_->resetActivation();
    window_->show();
    applyFocus();
    reportSize();
  }
  window_->raise();
  window_->activateWindow();
}

void QtFormView::hideWindow() {
  window_->hide();
  if (modalLoop_) modalLoop_->quit();
}

void QtFormView::reportSize() {
  if (!window_->isVisible() || window_->isMinimized()) return;
  const double d = dpi();
  const int32_t width = twipsFromPixels(window_->width(), d);
  const int32_t height = twipsFromPixels(window_->height(), d);
  // The form keeps its own twips while they round to the window's pixels.
  if (pixelsFromTwips(form_.width(), d) == window_->width() &&
      pixelsFromTwips(form_.height(), d) == window_->height()) {
    return;
  }
  guarded(form_, [&] { form_.resize(width, height); });
}

// --- widgets to model ---------------------------------------------------------------------

void QtFormView::focusFromQt(QWidget* now) {
  if (!now || now->window() != window_.get()) return;
  for (QWidget* w = now; w && w != window_.get(); w = w->parentWidget()) {
    auto it = controls_.find(w);
    if (it == controls_.end()) continue;
    Control* control = it->second;
    if (control->hasFocus() || !control->canFocus()) return;
    if (!control->enabled() || !control->visible()) return;
    FlagScope fromQt(focusFromQt_);
    ignoringErrors([&] { control->setFocus(); });
    return;
  }
}

void QtFormView::pressCancel() {
  for (Control* control : order_) {
    auto* button = dynamic_cast<controls::CommandButton*>(control);
    if (button && button->isCancel() && button->enabled() && button->visible()) {
      guarded(*button, [&] { button->click(); });
      return;
    }
  }
}

void QtFormView::runModal() {
  if (modalLoop_ || !form_.visible() || !form_.loaded()) return;
  if (window_->isVisible()) window_->hide();  // modality only takes effect on a fresh show
  window_->setWindowModality(Qt::ApplicationModal);
  showWindow();
  QEventLoop loop;
  modalLoop_ = &loop;
  const std::weak_ptr<bool> alive = alive_;
  if (form_.visible() && form_.loaded()) loop.exec(QEventLoop::DialogExec);
  if (alive.expired()) return;  // the view went away while the form was shown
  modalLoop_ = nullptr;
  if (!window_->isVisible()) window_->setWindowModality(Qt::NonModal);
}

void QtFormView::listChanged(controls::ListView& list, const controls::ListChange& change) {
  if (auto* w = dynamic_cast<ListViewWidget*>(widget(list))) w->listChanged(change);
}

void QtFormView::gridChanged(controls::Grid& grid, const controls::GridChange& change) {
  if (auto* w = dynamic_cast<GridWidget*>(widget(grid))) w->gridChanged(change);
}

void QtFormView::popupMenu(controls::Menu& menu) {
  syncNow();
  if (menus_) menus_->popup(menu);
}

}  // namespace kxc::qt
