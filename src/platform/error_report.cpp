#include "platform/error_report.h"

#include <cstdio>
#include <cstdlib>
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

void onInternalError(std::exception_ptr thrown, std::string_view location) {
#ifdef NDEBUG
  (void)thrown;
  (void)location;
#else
  std::string what = "an exception that is not a std::exception";
  try {
    std::rethrow_exception(thrown);
  } catch (const std::exception& e) {
    what = e.what();
  } catch (...) {
  }
  std::fprintf(stderr, "internal error at %.*s: %s\n", static_cast<int>(location.size()),
               location.data(), what.c_str());
  std::abort();
#endif
}

}  // namespace kxc
