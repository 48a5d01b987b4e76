// FacadeHooks: how the facade reaches the parts built on top of it (the formula edit flow and
// the write-back class), each installed by that part at start-up.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "facade/write_back_object.h"

namespace kxc {

struct FacadeHooks {
  // ShowFormulaEdit(formulaText): shows the formula builder on the text and returns "".
  // Unset: the builder is missing and ShowFormulaBuilder reports 91.
  std::function<std::string(std::string& formulaText)> showFormulaEdit;
  // Creates a new CacheWriteBack. Unset: write-back cannot be switched on (silently).
  std::function<std::shared_ptr<WriteBackObject>()> createWriteBack;
};

// The process's hooks. Single-threaded; set once at start-up (tests may replace them).
FacadeHooks& facadeHooks();

}  // namespace kxc
