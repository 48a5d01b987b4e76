#include "platform/runtime_error.h"

namespace kxc {

std::string standardDescription(int number) {
  switch (number) {
    case err::kInvalidCall:
      return "Invalid procedure call or argument";
    case err::kOutOfMemory:
      return "Out of memory";
    case err::kInternal:
      return "Internal error";
    case err::kBadPattern:
      return "Invalid pattern string";
    case err::kOverflow:
      return "Overflow";
    case err::kSubscript:
      return "Subscript out of range";
    case err::kTypeMismatch:
      return "Type mismatch";
    case err::kObjectNotSet:
      return "Object variable or With block variable not set";
    case err::kObjectRequired:
      return "Object required";
    case err::kCannotCreate:
      return "ActiveX component can't create object";
    case err::kNoSuchMember:
      return "Object doesn't support this property or method";
    default:
      return "Application-defined or object-defined error";
  }
}

RuntimeError::RuntimeError(int number)
    : number_(number), description_(standardDescription(number)) {}

RuntimeError::RuntimeError(int number, std::string description)
    : number_(number), description_(std::move(description)) {}

}  // namespace kxc
