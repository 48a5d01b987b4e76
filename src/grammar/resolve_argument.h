// ResolveArgument: the value a formula argument stands for, through the host's references.
#pragma once

#include <string>

#include "platform/variant.h"

namespace kxc {

// The host's range(argument) of the application held by gExcelSink, its value as text. If
// anything fails (no application, no valid reference, a value that is no text such as a
// multi-cell range or an error value) the result is the argument itself as text ("" for an
// argument that has no text form). Never raises, never shows anything.
std::string ResolveArgument(const Variant& argument);

// A text is a reference exactly when it resolves to something other than itself.
bool isReference(const std::string& text);

}  // namespace kxc
