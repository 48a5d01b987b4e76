// Worksheet functions that an add-in registers with the host by name (the cache function).
#pragma once

#include <functional>
#include <span>
#include <string>

#include "platform/variant.h"

namespace kxc::host {

// Receives the evaluated arguments: a reference to one cell gives that cell's value, a literal
// its value, an omitted argument (two commas in a row) Empty. Returns the cell's value: a
// Double, Text, Bool, or a CellError such as cellerr::kValue. A RuntimeError thrown by the
// function shows as #VALUE! in the cell; nothing escapes into the host.
using WorksheetFunction = std::function<Variant(std::span<const Variant> args)>;

class FunctionRegistry {
 public:
  virtual ~FunctionRegistry() = default;
  // Names match case-insensitively; registering a name again replaces the function and
  // recalculates the cells that use it.
  virtual void registerFunction(const std::string& name, WorksheetFunction function) = 0;
};

}  // namespace kxc::host
