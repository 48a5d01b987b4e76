#include "platform/workbook/event_hub.h"

#include <algorithm>
#include <exception>

#include "platform/runtime_error.h"

namespace kxc::workbook {

void EventHub::prune() {
  std::erase_if(entries_, [](const auto& e) { return !e->active || e->sink.expired(); });
}

void EventHub::subscribe(const std::shared_ptr<host::ApplicationEvents>& sink) {
  if (!sink) return;
  prune();
  for (const auto& e : entries_) {
    if (e->key == sink.get()) return;
  }
  entries_.push_back(std::make_shared<Entry>(Entry{sink, sink.get(), true}));
}

void EventHub::unsubscribe(const host::ApplicationEvents* sink) {
  for (auto& e : entries_) {
    if (e->key == sink) e->active = false;
  }
  prune();
}

std::size_t EventHub::size() const {
  return std::count_if(entries_.begin(), entries_.end(),
                       [](const auto& e) { return e->active && !e->sink.expired(); });
}

void EventHub::setFailureHandler(std::function<void(const std::string&)> handler) {
  onFailure_ = std::move(handler);
}

void EventHub::deliver(const std::function<void(host::ApplicationEvents&)>& deliver) {
  // Deliver over a copy: sinks may change the list while they run.
  std::vector<std::shared_ptr<Entry>> snapshot = entries_;
  for (const auto& entry : snapshot) {
    if (!entry->active) continue;
    std::shared_ptr<host::ApplicationEvents> sink = entry->sink.lock();
    if (!sink) continue;
    std::string failure;
    try {
      deliver(*sink);
      continue;
    } catch (const RuntimeError& e) {
      failure = std::to_string(e.number()) + " " + e.description();
    } catch (const std::exception& e) {
      failure = e.what();
    } catch (...) {
      failure = "unknown exception";
    }
    if (onFailure_) onFailure_(failure);
  }
}

}  // namespace kxc::workbook
