// The library's error-report convention: one message box titled "Error" with the exclamation
// icon, whose text is the error's description, one blank and the procedure's location string.
#pragma once

#include <exception>
#include <new>
#include <string_view>

#include "platform/runtime_error.h"

namespace kxc {

void reportError(const RuntimeError& error, std::string_view location);

// Turns whatever was thrown into the numbered error it stands for: a RuntimeError as it is,
// std::bad_alloc as 7, anything else as 51 "Internal error".
RuntimeError asRuntimeError(std::exception_ptr thrown);

// Runs `body`; on any error shows the report for `location` and returns false. Nothing escapes.
template <typename Body>
bool reportingErrors(std::string_view location, Body&& body) {
  try {
    body();
    return true;
  } catch (...) {
    reportError(asRuntimeError(std::current_exception()), location);
    return false;
  }
}

// Runs `body` and swallows every error silently; returns false when one occurred.
template <typename Body>
bool ignoringErrors(Body&& body) {
  try {
    body();
    return true;
  } catch (...) {
    return false;
  }
}

}  // namespace kxc
