#include "platform/qt/window_registry.h"

namespace kxc::qt {

void WindowRegistry::dropDead() {
  std::erase_if(windows_, [](const auto& entry) { return entry.second.isNull(); });
}

WindowHandle WindowRegistry::handleOf(QWidget* window) {
  if (!window) return 0;
  dropDead();
  for (const auto& [handle, widget] : windows_) {
    if (widget == window) return handle;
  }
  const WindowHandle handle = next_;
  next_ += 4;
  windows_[handle] = window;
  return handle;
}

void WindowRegistry::add(WindowHandle handle, QWidget* window) {
  std::erase_if(windows_, [&](const auto& entry) { return entry.second == window; });
  windows_[handle] = window;
}

void WindowRegistry::remove(WindowHandle handle) { windows_.erase(handle); }

QWidget* WindowRegistry::window(WindowHandle handle) const {
  auto it = windows_.find(handle);
  return it == windows_.end() ? nullptr : it->second.data();
}

WindowRegistry& windowRegistry() {
  static WindowRegistry registry;
  return registry;
}

}  // namespace kxc::qt
