// The variant that crosses the dispatch port and the host: empty, 16-bit, 32-bit, double,
// boolean, text, object or a cell error value, with the conversions of the host's language.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace kxc {

class DispatchObject;
using ObjectRef = std::shared_ptr<DispatchObject>;

enum class VarType { Empty, Int16, Int32, Double, Bool, Text, Object, Error };

// Printable name of a type ("Empty", "Integer", "Long", "Double", "Boolean", "String",
// "Object", "Error"), used in logs and messages.
const char* typeName(VarType type);

// A cell error value such as #NAME? (code 2029). Codes follow the spreadsheet's CVErr numbers.
struct CellError {
  int32_t code = 0;
  bool operator==(const CellError&) const = default;
};

namespace cellerr {
inline constexpr CellError kNull{2000};   // #NULL!
inline constexpr CellError kDiv0{2007};   // #DIV/0!
inline constexpr CellError kValue{2015};  // #VALUE!
inline constexpr CellError kRef{2023};    // #REF!
inline constexpr CellError kName{2029};   // #NAME?
inline constexpr CellError kNum{2036};    // #NUM!
inline constexpr CellError kNA{2042};     // #N/A
}  // namespace cellerr

// The text the spreadsheet shows for an error value ("#NAME?"); "#VALUE!" for unknown codes.
std::string cellErrorText(CellError e);

class Variant {
 public:
  Variant() = default;
  Variant(int16_t v) : v_(v) {}
  Variant(int32_t v) : v_(v) {}
  Variant(double v) : v_(v) {}
  Variant(bool v) : v_(v) {}
  Variant(std::string v) : v_(std::move(v)) {}
  Variant(const char* v) : v_(std::string(v)) {}
  Variant(std::string_view v) : v_(std::string(v)) {}
  Variant(ObjectRef v) : v_(std::move(v)) {}
  Variant(CellError v) : v_(v) {}
  // A plain int literal is 32-bit; 16-bit values are built with int16_t{...}, as the
  // contract with the engine chooses per argument.
  Variant(long) = delete;

  VarType type() const { return static_cast<VarType>(v_.index()); }
  bool isEmpty() const { return type() == VarType::Empty; }
  bool isText() const { return type() == VarType::Text; }
  bool isObject() const { return type() == VarType::Object; }
  bool isError() const { return type() == VarType::Error; }
  bool isNumeric() const;  // 16-bit, 32-bit, double or boolean

  // Conversions. Numbers round halves to the even neighbour; out of range raises 6
  // "Overflow"; a text that is no number, an object or an error value raises 13.
  int16_t toInt16() const;
  int32_t toInt32() const;
  double toDouble() const;
  // The words true and false in any letter case, or a number (non-zero is true); else 13.
  bool toBool() const;
  // Empty gives "", numbers their shortest decimal form (15 significant digits), booleans
  // "True" or "False"; objects and error values raise 13.
  std::string toText() const;

  // Direct access; raise 13 when the variant holds another type.
  const std::string& text() const;
  const ObjectRef& object() const;
  CellError error() const;

  bool operator==(const Variant& other) const { return v_ == other.v_; }

 private:
  std::variant<std::monostate, int16_t, int32_t, double, bool, std::string, ObjectRef, CellError>
      v_;
};

// Formats a double the way the host language's CStr does: up to 15 significant digits,
// no trailing zeros, scientific ("1E+15", "1E-05") outside 1e-4 <= |x| < 1e15.
std::string formatNumber(double value);

// Parses a whole text as a number (blanks around it allowed); false when it is none.
bool parseNumber(std::string_view text, double& out);

}  // namespace kxc
