// AutoCreated: an object reference that creates its object on first use while it is empty.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "platform/runtime_error.h"

namespace kxc {

// Holds a shared object that comes into being the first time it is used. The object is made
// by the creator when one is set (so a program can install a richer implementation), else by
// make_shared<T>(). A creator that yields nothing raises 91 at the point of use. reset()
// releases the object; the next use creates a fresh one. Single-threaded.
template <typename T>
class AutoCreated {
 public:
  using Creator = std::function<std::shared_ptr<T>()>;

  // The object, created now if needed.
  const std::shared_ptr<T>& get() {
    if (!ref_) {
      ref_ = creator_ ? creator_() : std::make_shared<T>();
      if (!ref_) throw RuntimeError(err::kObjectNotSet);
    }
    return ref_;
  }
  T* operator->() { return get().get(); }
  T& operator*() { return *get(); }

  // The object if it exists, without creating it.
  const std::shared_ptr<T>& peek() const { return ref_; }
  bool isEmpty() const { return !ref_; }

  void set(std::shared_ptr<T> object) { ref_ = std::move(object); }
  void reset() {
    // Moved out first so that a destructor which reads this reference sees it empty.
    std::shared_ptr<T> old = std::move(ref_);
    ref_.reset();
  }
  void setCreator(Creator creator) { creator_ = std::move(creator); }

 private:
  std::shared_ptr<T> ref_;
  Creator creator_;
};

}  // namespace kxc
