// Calls into the control model from Qt's event handlers: an error the dialog logic let escape
// is reported (the "Error" box with the form and control as location) instead of unwinding
// through Qt.
#pragma once

#include <string>

#include "platform/controls/control.h"
#include "platform/controls/form.h"
#include "platform/error_report.h"

namespace kxc::qt {

inline std::string locationOf(const controls::Control& control) {
  const controls::Form* form = control.form();
  return form ? form->name() + " " + control.name() : control.name();
}

template <typename Body>
bool guarded(const controls::Control& control, Body&& body) {
  return reportingErrors(locationOf(control), std::forward<Body>(body));
}

template <typename Body>
bool guarded(const controls::Form& form, Body&& body) {
  return reportingErrors(form.name(), std::forward<Body>(body));
}

// Sets a flag for the lifetime of the guard and restores the previous value.
class FlagScope {
 public:
  explicit FlagScope(bool& flag) : flag_(flag), previous_(flag) { flag_ = true; }
  ~FlagScope() { flag_ = previous_; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;

 private:
  bool& flag_;
  bool previous_;
};

}  // namespace kxc::qt
