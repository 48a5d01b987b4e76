// Delivers application events to the subscribed sinks, held weakly, in subscription order.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/host/application_events.h"

namespace kxc::workbook {

// A sink may subscribe or unsubscribe sinks (itself included) while an event is delivered: a
// sink removed during delivery gets nothing more, one added waits for the next event. A sink
// that has been destroyed is skipped and forgotten. Single-threaded.
class EventHub {
 public:
  // Subscribing a sink that is already subscribed changes nothing.
  void subscribe(const std::shared_ptr<host::ApplicationEvents>& sink);
  void unsubscribe(const host::ApplicationEvents* sink);
  std::size_t size() const;

  // Calls `deliver` once per live sink. An exception thrown by a sink does not stop delivery
  // to the others: its description goes to the failure handler (when set) and is dropped.
  void deliver(const std::function<void(host::ApplicationEvents&)>& deliver);
  void setFailureHandler(std::function<void(const std::string& description)> handler);

 private:
  struct Entry {
    std::weak_ptr<host::ApplicationEvents> sink;
    const host::ApplicationEvents* key = nullptr;
    bool active = true;
  };
  void prune();

  std::vector<std::shared_ptr<Entry>> entries_;
  std::function<void(const std::string&)> onFailure_;
};

}  // namespace kxc::workbook
