// Test helper: the number of the RuntimeError a call raises, or 0 when it raises none.
#pragma once

#include <string>

#include "platform/runtime_error.h"

namespace kxc::testing {

template <typename Call>
int errorNumber(Call&& call, std::string* description = nullptr) {
  try {
    call();
  } catch (const RuntimeError& e) {
    if (description) *description = e.description();
    return e.number();
  }
  return 0;
}

}  // namespace kxc::testing
