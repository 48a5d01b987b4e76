#include "platform/controls/form.h"

#include "platform/dispatch.h"

namespace kxc::controls {

namespace {

WindowHandle nextWindowHandle() {
  static WindowHandle next = 0x1000;
  return next += 4;
}

// Keeps the modal depth right however the modal loop ends.
class ModalScope {
 public:
  explicit ModalScope(int& depth) : depth_(depth) { ++depth_; }
  ~ModalScope() { --depth_; }
  ModalScope(const ModalScope&) = delete;
  ModalScope& operator=(const ModalScope&) = delete;

 private:
  int& depth_;
};

}  // namespace

Form::Form(std::string name) : name_(std::move(name)), handle_(nextWindowHandle()) {}

Form::~Form() {
  // A control handed on (the grid given to the engine) may outlive the form.
  for (auto& control : controls_) control->form_ = nullptr;
}

void Form::setCaption(std::string caption) {
  caption_ = std::move(caption);
  notify(Property::Caption);
}

void Form::adopt(std::shared_ptr<Control> control, std::string name) {
  if (findControl(name)) {
    throw RuntimeError(err::kInvalidCall, "Control name is not unique: " + name);
  }
  control->name_ = std::move(name);
  control->form_ = this;
  controls_.push_back(std::move(control));
}

Menu& Form::addMenu(std::string name, std::string caption, Menu* parent) {
  if (parent && parent->form() != this) throw RuntimeError(err::kInvalidCall);
  Menu& menu = add<Menu>(std::move(name));
  menu.setCaption(std::move(caption));
  menu.parent_ = parent;
  if (parent) parent->items_.push_back(&menu);
  return menu;
}

std::vector<Control*> Form::controls() const {
  std::vector<Control*> out;
  out.reserve(controls_.size());
  for (const auto& control : controls_) out.push_back(control.get());
  return out;
}

Control* Form::findControl(std::string_view name) const {
  const std::string key = memberKey(name);
  for (const auto& control : controls_) {
    if (memberKey(control->name()) == key) return control.get();
  }
  return nullptr;
}

std::shared_ptr<Control> Form::sharedControl(std::string_view name) const {
  const std::string key = memberKey(name);
  for (const auto& control : controls_) {
    if (memberKey(control->name()) == key) return control;
  }
  throw controlError(errc::kControlNotFound);
}

std::vector<Menu*> Form::menus() const {
  std::vector<Menu*> out;
  for (const auto& control : controls_) {
    auto* menu = dynamic_cast<Menu*>(control.get());
    if (menu && !menu->parentMenu()) out.push_back(menu);
  }
  return out;
}

void Form::load() {
  if (loaded_) return;
  loaded_ = true;
  notify(Property::Loaded);
  if (onLoad) onLoad();
}

void Form::show(int modal) {
  if (modal != 0 && visible_) throw controlError(errc::kAlreadyShown);
  load();
  if (!visible_) {
    visible_ = true;
    notify(Property::Visible);
  }
  activate();
  if (modal == 0) return;
  // A copy: the loop may install another loop while it runs.
  ModalLoop loop = modalLoop_ ? modalLoop_ : modalLoop();
  ModalScope scope(modalDepth_);
  if (loop) loop(*this);
}

void Form::hide() {
  if (!visible_) return;
  visible_ = false;
  notify(Property::Visible);
}

bool Form::unload() { return unloadAs(kUnloadByCode); }

bool Form::userClose() { return unloadAs(kUnloadByUser); }

bool Form::unloadAs(int mode) {
  if (!loaded_) return true;
  int cancel = 0;
  if (onQueryUnload) onQueryUnload(cancel, mode);
  if (cancel != 0) return false;
  if (onUnload) onUnload(cancel);
  if (cancel != 0) return false;
  activeControl_ = nullptr;
  visible_ = false;
  loaded_ = false;
  notify(Property::Visible);
  notify(Property::Loaded);
  return true;
}

void Form::activate() {
  if (onActivate) onActivate();
}

void Form::resize(int32_t width, int32_t height) {
  if (width < 0 || height < 0) throw controlError(errc::kInvalidPropertyValue);
  width_ = width;
  height_ = height;
  notify(Property::Geometry);
  if (onResize) onResize();
}

void Form::setWindowState(WindowState state) {
  if (state == windowState_) return;
  windowState_ = state;
  notify(Property::WindowState);
  if (onResize) onResize();
}

void Form::setMousePointer(int pointer) {
  mousePointer_ = pointer;
  notify(Property::MousePointer);
}

WindowHandle Form::setOwner(WindowHandle owner) {
  WindowHandle previous = owner_;
  owner_ = owner;
  notify(Property::Owner);
  return previous;
}

void Form::popupMenu(Menu& menu) {
  if (menu.items().empty() || menu.form() != this) throw RuntimeError(err::kInvalidCall);
  if (view_) view_->popupMenu(menu);
}

void Form::setActiveControl(Control* control) {
  if (activeControl_ == control) return;
  activeControl_ = control;
  notify(Property::Focus);
}

void Form::notify(Property property) {
  if (view_) view_->propertyChanged(nullptr, property);
}

}  // namespace kxc::controls
