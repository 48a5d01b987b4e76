// The host's Application: the entry to cells, selections, references, command bars and events.
#pragma once

#include <memory>
#include <string>

#include "platform/host/application_events.h"
#include "platform/host/command_bars.h"
#include "platform/host/range.h"

namespace kxc::host {

class Application {
 public:
  virtual ~Application() = default;

  virtual RangeRef activeCell() = 0;      // raises 91 when no workbook is open
  virtual RangeRef rangeSelection() = 0;  // ActiveWindow.RangeSelection
  virtual RangeRef selection() = 0;       // Selection (cells, area by area)
  // Resolves a reference text as the spreadsheet does: A1, $A$1, A1:C3, Sheet1!B2,
  // 'O''Neil'!$B$3, [Book1.xlsx]Sheet1!A1, defined names. Anything else raises 1004.
  virtual RangeRef range(const std::string& reference) = 0;
  virtual std::string caption() const = 0;  // the main window's title
  virtual CommandBars& commandBars() = 0;

  // Event delivery. A sink receives events from subscribe() until unsubscribe() or until it is
  // destroyed (the application holds it weakly). Events go to sinks in subscription order.
  virtual void subscribe(const std::shared_ptr<ApplicationEvents>& sink) = 0;
  virtual void unsubscribe(const ApplicationEvents* sink) = 0;
};

using ApplicationRef = std::shared_ptr<Application>;

// Holds one subscription for its lifetime: the host language's WithEvents variable. Setting it
// to another application moves the subscription; reset() ends it.
class EventHookup {
 public:
  EventHookup() = default;
  EventHookup(const EventHookup&) = delete;
  EventHookup& operator=(const EventHookup&) = delete;
  ~EventHookup() { reset(); }

  void hook(const ApplicationRef& app, const std::shared_ptr<ApplicationEvents>& sink) {
    reset();
    app_ = app;
    sink_ = sink.get();
    if (app_) app_->subscribe(sink);
  }
  void reset() {
    if (app_) app_->unsubscribe(sink_);
    app_.reset();
    sink_ = nullptr;
  }
  const ApplicationRef& application() const { return app_; }

 private:
  ApplicationRef app_;
  const ApplicationEvents* sink_ = nullptr;
};

}  // namespace kxc::host
