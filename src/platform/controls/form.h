// A form: its caption, tag, controls in order, menus, active control, life cycle (load, show
// modal or modeless, hide, unload) with its events, size and window state, mouse pointer and
// owner window.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/controls/control.h"
#include "platform/controls/control_errors.h"
#include "platform/controls/form_view.h"
#include "platform/controls/menu.h"
#include "platform/controls/modal_loop.h"
#include "platform/services.h"

namespace kxc::controls {

inline constexpr int kPointerDefault = 0;
inline constexpr int kPointerHourglass = 11;

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

// How an unload was asked for, as onQueryUnload receives it.
inline constexpr int kUnloadByUser = 0;  // the window's close button
inline constexpr int kUnloadByCode = 1;  // Form::unload

// A form owns its controls. Controls are shared objects only so that a dispatch-visible control
// (the grid) can be handed to the engine; a control that outlives its form is detached from it.
// Not copyable or movable. User-interface thread only; every event is raised synchronously.
class Form {
 public:
  explicit Form(std::string name);
  ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption);
  const std::string& tag() const { return tag_; }
  void setTag(std::string tag) { tag_ = std::move(tag); }

  // Adds a control of type T named `name` after the existing ones. Names are unique within
  // the form, compared case-insensitively; a name already used raises 5.
  template <class T>
  T& add(std::string name) {
    static_assert(std::is_base_of_v<Control, T>);
    auto control = std::make_shared<T>();
    T& added = *control;
    adopt(std::move(control), std::move(name));
    return added;
  }
  // Adds a menu: an item of `parent`, or a top-level menu when `parent` is null.
  Menu& addMenu(std::string name, std::string caption, Menu* parent = nullptr);

  // The controls in the order they were added (menus included).
  std::vector<Control*> controls() const;
  // The control named `name` (case-insensitive), or null.
  Control* findControl(std::string_view name) const;
  // The control named `name`: 730 "Control not found" when there is none, 13 "Type mismatch"
  // when it is not a T.
  template <class T>
  T& control(std::string_view name) const {
    return castControl<T>(sharedControl(name));
  }
  // The same control as a shared reference, to hand it on (for example to the engine).
  std::shared_ptr<Control> sharedControl(std::string_view name) const;
  // The top-level menus in order, visible or not.
  std::vector<Menu*> menus() const;

  // The control that has the focus, or null.
  Control* activeControl() const { return activeControl_; }

  // Life cycle. load() raises onLoad once until the form is unloaded. show(0) loads, makes the
  // form visible and raises onActivate, then returns. show(1) does the same and then runs the
  // modal loop (the form's own, else the process-wide one) before returning; showing modally a
  // form that is already visible raises 400. hide() makes it invisible (a modal loop ends).
  // unload() raises onQueryUnload(cancel, kUnloadByCode) and onUnload(cancel); when neither
  // handler set cancel it hides the form, forgets the active control and returns true. Control
  // state is kept across an unload. userClose() is the window's close button: the same with
  // kUnloadByUser.
  bool loaded() const { return loaded_; }
  bool visible() const { return visible_; }
  bool isModal() const { return modalDepth_ > 0; }
  void load();
  void show(int modal = 0);
  void hide();
  bool unload();
  bool userClose();
  // The window became the active one (raised by show, or by a view when the user switches to
  // the window).
  void activate();

  // Size in twips and window state. resize() sets the size and raises onResize; so does a
  // change of window state.
  int32_t width() const { return width_; }
  int32_t height() const { return height_; }
  void resize(int32_t width, int32_t height);
  WindowState windowState() const { return windowState_; }
  void setWindowState(WindowState state);
  bool minimized() const { return windowState_ == WindowState::Minimized; }

  int mousePointer() const { return mousePointer_; }
  void setMousePointer(int pointer);

  // The form's own window handle: unique per form, never 0.
  WindowHandle windowHandle() const { return handle_; }
  WindowHandle owner() const { return owner_; }
  // Makes `owner` (0 for none) the form's owner window and returns the previous owner.
  WindowHandle setOwner(WindowHandle owner);

  // Asks the view to show `menu` as a popup (without a view nothing is shown). A menu without
  // items raises 5.
  void popupMenu(Menu& menu);

  void setView(FormView* view) { view_ = view; }
  FormView* view() const { return view_; }
  void setModalLoop(ModalLoop loop) { modalLoop_ = std::move(loop); }

  std::function<void()> onLoad;
  std::function<void()> onActivate;
  std::function<void()> onResize;
  std::function<void(int& cancel, int unloadMode)> onQueryUnload;
  std::function<void(int& cancel)> onUnload;

 private:
  friend class Control;
  void adopt(std::shared_ptr<Control> control, std::string name);
  void setActiveControl(Control* control);
  void notify(Property property);
  bool unloadAs(int mode);
  template <class T>
  static T& castControl(const std::shared_ptr<Control>& control) {
    if (auto* typed = dynamic_cast<T*>(control.get())) return *typed;
    throw RuntimeError(err::kTypeMismatch);
  }

  std::string name_;
  std::string caption_;
  std::string tag_;
  std::vector<std::shared_ptr<Control>> controls_;
  Control* activeControl_ = nullptr;
  bool loaded_ = false;
  bool visible_ = false;
  int modalDepth_ = 0;
  int32_t width_ = 4800;
  int32_t height_ = 3600;
  WindowState windowState_ = WindowState::Normal;
  int mousePointer_ = kPointerDefault;
  WindowHandle handle_;
  WindowHandle owner_ = 0;
  FormView* view_ = nullptr;
  ModalLoop modalLoop_;
};

}  // namespace kxc::controls
