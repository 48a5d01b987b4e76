// AutoCreated: a process global that creates its object on first use while it is empty.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "state/add_in_context.h"

namespace kxc {

// A named handle on the add-in context's one T: the object comes into being the first time it
// is used (made by the maker the context was given for T, else by make_shared<T>()) and lives
// until reset() or the end of the context. Every use raises 91 while no context exists.
// Single-threaded.
template <typename T>
class AutoCreated {
 public:
  // The object, created now if needed.
  const std::shared_ptr<T>& get() const { return AddInContext::current().single<T>(); }
  T* operator->() const { return get().get(); }
  T& operator*() const { return *get(); }

  // The object if it exists, without creating it.
  const std::shared_ptr<T>& peek() const { return AddInContext::current().find<T>(); }
  bool isEmpty() const { return !AddInContext::exists() || !peek(); }

  void set(std::shared_ptr<T> object) const { AddInContext::current().put<T>(std::move(object)); }
  void reset() const {
    if (AddInContext::exists()) AddInContext::current().release<T>();
  }
};

}  // namespace kxc
