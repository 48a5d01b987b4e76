// The numbered runtime error that every failure of the library travels as.
#pragma once

#include <exception>
#include <string>

namespace kxc {

// Standard error numbers used by the library, with the descriptions users of such add-ins know.
namespace err {
inline constexpr int kInvalidCall = 5;       // "Invalid procedure call or argument"
inline constexpr int kOverflow = 6;          // "Overflow"
inline constexpr int kOutOfMemory = 7;       // "Out of memory"
inline constexpr int kSubscript = 9;         // "Subscript out of range"
inline constexpr int kTypeMismatch = 13;     // "Type mismatch"
inline constexpr int kInternal = 51;         // "Internal error"
inline constexpr int kObjectNotSet = 91;     // "Object variable or With block variable not set"
inline constexpr int kBadPattern = 93;       // "Invalid pattern string"
inline constexpr int kObjectRequired = 424;  // "Object required"
inline constexpr int kCannotCreate = 429;    // "ActiveX component can't create object"
inline constexpr int kNoSuchMember = 438;    // "Object doesn't support this property or method"
inline constexpr int kHost = 1004;           // the spreadsheet host's own errors
}  // namespace err

// The standard description of a number, or "Application-defined or object-defined error"
// for numbers without one.
std::string standardDescription(int number);

// One exception type for every numbered error. Thrown by value, caught by const reference at
// the reporting boundaries; it never crosses into the host.
class RuntimeError : public std::exception {
 public:
  explicit RuntimeError(int number);  // with the standard description
  RuntimeError(int number, std::string description);

  int number() const noexcept { return number_; }
  const std::string& description() const noexcept { return description_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  int number_;
  std::string description_;
};

}  // namespace kxc
