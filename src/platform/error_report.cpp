#include "platform/error_report.h"

#include <string>

#include "platform/services.h"

namespace kxc {

void reportError(const RuntimeError& error, std::string_view location) {
  std::string text = error.description();
  text += ' ';
  text += location;
  services().messageBox(text, mb::kOkOnly | mb::kExclamation, "Error");
}

RuntimeError asRuntimeError(std::exception_ptr thrown) {
  try {
    std::rethrow_exception(thrown);
  } catch (const RuntimeError& e) {
    return e;
  } catch (const std::bad_alloc&) {
    return RuntimeError(err::kOutOfMemory);
  } catch (...) {
    return RuntimeError(err::kInternal);
  }
}

}  // namespace kxc
