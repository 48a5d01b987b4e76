#include "platform/controls/modal_loop.h"

namespace kxc::controls {

namespace {
ModalLoop& current() {
  static ModalLoop loop;
  return loop;
}
}  // namespace

ModalLoop setModalLoop(ModalLoop loop) {
  ModalLoop previous = std::move(current());
  current() = std::move(loop);
  return previous;
}

const ModalLoop& modalLoop() { return current(); }

}  // namespace kxc::controls
