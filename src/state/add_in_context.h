// AddInContext: what one run of the add-in shares, made by the program (or by a test) and ended
// with it: the services and stores the add-in reaches outside itself, the objects created by
// ProgID, and the objects that live as long as the add-in (dialogs, the event sink, the
// translation).
#pragma once

#include <functional>
#include <memory>
#include <typeindex>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/catalogue_table.h"
#include "platform/controls/modal_loop.h"
#include "platform/object_factory.h"
#include "platform/services.h"
#include "platform/settings_store.h"

namespace kxc {

// Making a context installs its services, settings store, catalogue opener, modal loop and a
// fresh object factory, and starts the process globals empty. Ending it destroys the objects it
// owns, newest first, empties the process globals again and puts back what was installed
// before. So a test that makes one in its fixture leaves nothing behind, even when it fails
// half-way.
//
// One context lives at a time: making a second one while another lives raises 5 "Invalid
// procedure call or argument". Single-threaded: the host's user-interface thread.
class AddInContext {
 public:
  struct Setup {
    std::shared_ptr<Services> services;       // null: messages to standard error, answered OK
    std::shared_ptr<SettingsStore> settings;  // null: an empty store in memory
    CatalogueOpener catalogues;               // empty: no catalogue file can be opened
    controls::ModalLoop modalLoop;            // empty: a modal show returns at once
  };

  explicit AddInContext(Setup setup = {});
  ~AddInContext();
  AddInContext(const AddInContext&) = delete;
  AddInContext& operator=(const AddInContext&) = delete;

  // The living context. Raises 91 when none has been made.
  static AddInContext& current();
  static bool exists();

  // The factory that createObject uses while this context is current.
  ObjectFactory& objects() { return *factory_; }

  // The context's one object of type T, made on first use: by the maker given to provide<T>,
  // else by `fallback`. A maker that yields nothing raises 91.
  template <typename T, typename Fallback>
  const std::shared_ptr<T>& single(Fallback&& fallback) {
    Slot<T>& s = slot<T>();
    if (!s.object) {
      s.object = s.maker ? s.maker() : fallback();
      if (!s.object) throwObjectNotSet();
      stamp(typeid(T));
    }
    return s.object;
  }
  template <typename T>
  const std::shared_ptr<T>& single() {
    return single<T>([] { return std::make_shared<T>(); });
  }
  // The object if it exists, without making it (null otherwise).
  template <typename T>
  const std::shared_ptr<T>& find() {
    return slot<T>().object;
  }
  // Makes `object` the context's T (null releases it).
  template <typename T>
  void put(std::shared_ptr<T> object) {
    release<T>();
    slot<T>().object = std::move(object);
    if (slot<T>().object) stamp(typeid(T));
  }
  // Destroys the context's T now; the next single<T>() makes a fresh one.
  template <typename T>
  void release() {
    // Moved out first, so that a destructor which asks for its own T finds none.
    std::shared_ptr<T> old = std::move(slot<T>().object);
    slot<T>().object.reset();
  }
  // How the context makes its T from now on (an empty maker restores the fallback).
  template <typename T>
  void provide(std::function<std::shared_ptr<T>()> maker) {
    slot<T>().maker = std::move(maker);
  }

 private:
  struct SlotBase {
    virtual ~SlotBase() = default;
    virtual void releaseObject() = 0;
  };
  template <typename T>
  struct Slot : SlotBase {
    void releaseObject() override {
      std::shared_ptr<T> old = std::move(object);
      object.reset();
    }
    std::shared_ptr<T> object;
    std::function<std::shared_ptr<T>()> maker;
  };

  template <typename T>
  Slot<T>& slot() {
    std::unique_ptr<SlotBase>& s = slots_[typeid(T)];
    if (!s) s = std::make_unique<Slot<T>>();
    return static_cast<Slot<T>&>(*s);
  }
  void stamp(std::type_index type);
  [[noreturn]] static void throwObjectNotSet();
  void releaseOwnedObjects();

  std::unordered_map<std::type_index, std::unique_ptr<SlotBase>> slots_;
  std::vector<std::type_index> madeOrder_;  // oldest first
  std::shared_ptr<ObjectFactory> factory_;
  Setup previousSetup_;
  std::shared_ptr<ObjectFactory> previousFactory_;
};

}  // namespace kxc
