// The pluggable loop that a modal Form::show runs until the form is hidden or unloaded.
#pragma once

#include <functional>

namespace kxc::controls {

class Form;

// Runs while `form` is shown modally. A toolkit binding installs a loop that processes events
// until the form is hidden or unloaded; a test installs one that acts on the form (selects
// rows, clicks OK) and returns. With no loop installed a modal show returns at once.
using ModalLoop = std::function<void(Form& form)>;

// The process-wide loop, used by forms that have none of their own (Form::setModalLoop).
// Returns the previous one. User-interface thread only.
ModalLoop setModalLoop(ModalLoop loop);
const ModalLoop& modalLoop();

// Installs a process-wide loop for the lifetime of the guard (tests).
class ScopedModalLoop {
 public:
  explicit ScopedModalLoop(ModalLoop loop) : previous_(setModalLoop(std::move(loop))) {}
  ~ScopedModalLoop() { setModalLoop(std::move(previous_)); }
  ScopedModalLoop(const ScopedModalLoop&) = delete;
  ScopedModalLoop& operator=(const ScopedModalLoop&) = delete;

 private:
  ModalLoop previous_;
};

}  // namespace kxc::controls
