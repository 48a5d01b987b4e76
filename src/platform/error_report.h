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
// std::bad_alloc as 7 "Out of memory", anything else as 51 "Internal error".
RuntimeError asRuntimeError(std::exception_ptr thrown);

// What a reporting boundary does with an error that is neither numbered nor a failed
// allocation, a programming error: in a debug build it prints the error and `location` to
// standard error and ends the program, so the fault is seen where it happened; otherwise it
// returns and the boundary reports 51 "Internal error".
void onInternalError(std::exception_ptr thrown, std::string_view location);

// Runs `body`; on any error shows the report for `location` and returns false. Nothing escapes
// (but see onInternalError).
template <typename Body>
bool reportingErrors(std::string_view location, Body&& body) {
  try {
    body();
    return true;
  } catch (const RuntimeError& e) {
    reportError(e, location);
  } catch (const std::bad_alloc&) {
    reportError(RuntimeError(err::kOutOfMemory), location);
  } catch (...) {
    onInternalError(std::current_exception(), location);
    reportError(RuntimeError(err::kInternal), location);
  }
  return false;
}

// Runs `body` and swallows a numbered runtime error silently; returns false when one occurred.
// Anything else (a failed allocation, a programming error) goes on to the caller, up to the
// nearest reporting boundary.
template <typename Body>
bool ignoringErrors(Body&& body) {
  try {
    body();
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace kxc
