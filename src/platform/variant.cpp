#include "platform/variant.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "platform/runtime_error.h"
#include "platform/text_rules.h"

namespace kxc {

const char* typeName(VarType type) {
  switch (type) {
    case VarType::Empty:
      return "Empty";
    case VarType::Int16:
      return "Integer";
    case VarType::Int32:
      return "Long";
    case VarType::Double:
      return "Double";
    case VarType::Bool:
      return "Boolean";
    case VarType::Text:
      return "String";
    case VarType::Object:
      return "Object";
    case VarType::Error:
      return "Error";
  }
  return "Unknown";
}

std::string cellErrorText(CellError e) {
  switch (e.code) {
    case 2000:
      return "#NULL!";
    case 2007:
      return "#DIV/0!";
    case 2015:
      return "#VALUE!";
    case 2023:
      return "#REF!";
    case 2029:
      return "#NAME?";
    case 2036:
      return "#NUM!";
    case 2042:
      return "#N/A";
    default:
      return "#VALUE!";
  }
}

bool Variant::isNumeric() const {
  switch (type()) {
    case VarType::Int16:
    case VarType::Int32:
    case VarType::Double:
    case VarType::Bool:
      return true;
    default:
      return false;
  }
}

namespace {

template <typename Int>
Int roundToInt(double d) {
  if (std::isnan(d)) throw RuntimeError(err::kOverflow);
  double r = roundHalfEven(d);
  if (r < static_cast<double>(std::numeric_limits<Int>::min()) ||
      r > static_cast<double>(std::numeric_limits<Int>::max())) {
    throw RuntimeError(err::kOverflow);
  }
  return static_cast<Int>(r);
}

}  // namespace

double Variant::toDouble() const {
  switch (type()) {
    case VarType::Empty:
      return 0.0;
    case VarType::Int16:
      return std::get<int16_t>(v_);
    case VarType::Int32:
      return std::get<int32_t>(v_);
    case VarType::Double:
      return std::get<double>(v_);
    case VarType::Bool:
      return std::get<bool>(v_) ? -1.0 : 0.0;
    case VarType::Text: {
      double d = 0;
      if (!parseNumber(std::get<std::string>(v_), d)) throw RuntimeError(err::kTypeMismatch);
      return d;
    }
    default:
      throw RuntimeError(err::kTypeMismatch);
  }
}

int16_t Variant::toInt16() const {
  if (type() == VarType::Int16) return std::get<int16_t>(v_);
  return roundToInt<int16_t>(toDouble());
}

int32_t Variant::toInt32() const {
  if (type() == VarType::Int32) return std::get<int32_t>(v_);
  if (type() == VarType::Int16) return std::get<int16_t>(v_);
  return roundToInt<int32_t>(toDouble());
}

bool Variant::toBool() const {
  if (type() == VarType::Bool) return std::get<bool>(v_);
  if (type() == VarType::Text) {
    std::string up = upperCase(std::get<std::string>(v_));
    std::string_view t = trimBlanks(up);
    if (t == "TRUE") return true;
    if (t == "FALSE") return false;
  }
  return toDouble() != 0.0;
}

std::string Variant::toText() const {
  switch (type()) {
    case VarType::Empty:
      return "";
    case VarType::Int16:
      return std::to_string(std::get<int16_t>(v_));
    case VarType::Int32:
      return std::to_string(std::get<int32_t>(v_));
    case VarType::Double:
      return formatNumber(std::get<double>(v_));
    case VarType::Bool:
      return std::get<bool>(v_) ? "True" : "False";
    case VarType::Text:
      return std::get<std::string>(v_);
    default:
      throw RuntimeError(err::kTypeMismatch);
  }
}

const std::string& Variant::text() const {
  if (type() != VarType::Text) throw RuntimeError(err::kTypeMismatch);
  return std::get<std::string>(v_);
}

const ObjectRef& Variant::object() const {
  if (type() != VarType::Object) throw RuntimeError(err::kObjectRequired);
  return std::get<ObjectRef>(v_);
}

CellError Variant::error() const {
  if (type() != VarType::Error) throw RuntimeError(err::kTypeMismatch);
  return std::get<CellError>(v_);
}

std::string formatNumber(double value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value > 0 ? "Infinity" : "-Infinity";
  if (value == 0.0) return "0";
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.14e", value);  // 15 significant digits
  // Split mantissa and exponent, then trim the mantissa's trailing zeros.
  std::string s(buf);
  auto epos = s.find('e');
  std::string mant = s.substr(0, epos);
  int exp10 = std::atoi(s.c_str() + epos + 1);
  bool negative = mant[0] == '-';
  if (negative) mant.erase(0, 1);
  std::string digits;
  for (char c : mant) {
    if (c != '.') digits += c;
  }
  while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
  std::string out;
  if (exp10 >= 15 || exp10 < -4) {
    out = digits.substr(0, 1);
    if (digits.size() > 1) out += "." + digits.substr(1);
    char eb[16];
    std::snprintf(eb, sizeof eb, "E%c%02d", exp10 < 0 ? '-' : '+', std::abs(exp10));
    out += eb;
  } else if (exp10 < 0) {
    out = "0." + std::string(static_cast<size_t>(-exp10 - 1), '0') + digits;
  } else {
    size_t intLen = static_cast<size_t>(exp10) + 1;
    if (digits.size() <= intLen) {
      out = digits + std::string(intLen - digits.size(), '0');
    } else {
      out = digits.substr(0, intLen) + "." + digits.substr(intLen);
    }
  }
  return negative ? "-" + out : out;
}

bool parseNumber(std::string_view text, double& out) {
  std::string_view t = trimBlanks(text);
  if (t.empty()) return false;
  size_t i = 0;
  if (t[i] == '+' || t[i] == '-') ++i;
  size_t digitsBefore = 0, digitsAfter = 0;
  while (i < t.size() && std::isdigit(static_cast<unsigned char>(t[i]))) ++i, ++digitsBefore;
  if (i < t.size() && t[i] == '.') {
    ++i;
    while (i < t.size() && std::isdigit(static_cast<unsigned char>(t[i]))) ++i, ++digitsAfter;
  }
  if (digitsBefore + digitsAfter == 0) return false;
  if (i < t.size() && (t[i] == 'e' || t[i] == 'E')) {
    size_t j = i + 1;
    if (j < t.size() && (t[j] == '+' || t[j] == '-')) ++j;
    size_t expDigits = 0;
    while (j < t.size() && std::isdigit(static_cast<unsigned char>(t[j]))) ++j, ++expDigits;
    if (expDigits == 0) return false;
    i = j;
  }
  if (i != t.size()) return false;
  std::string copy(t);
  out = std::strtod(copy.c_str(), nullptr);
  return std::isfinite(out);
}

}  // namespace kxc
