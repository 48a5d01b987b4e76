#include "engine/contract/display_format.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "platform/text_rules.h"
#include "platform/variant.h"

namespace kxc::engine {

namespace {

struct Section {
  std::string prefix;   // literals before the first digit placeholder
  std::string suffix;   // literals after it
  std::string intPart;  // placeholders before the decimal point
  std::string fracPart;
  bool hasPoint = false;
  bool grouping = false;
  int thousandsScale = 0;
  int percent = 0;
  bool exponent = false;
  char exponentSign = '+';
  int exponentDigits = 0;
  bool hasDigits() const { return !intPart.empty() || !fracPart.empty(); }
};

bool isPlaceholder(char c) { return c == '0' || c == '#' || c == '?'; }

std::vector<std::string> splitSections(std::string_view format) {
  std::vector<std::string> out(1);
  bool quoted = false;
  for (size_t i = 0; i < format.size(); ++i) {
    char c = format[i];
    if (c == '"') quoted = !quoted;
    if (!quoted && c == '\\' && i + 1 < format.size()) {
      out.back() += c;
      out.back() += format[++i];
      continue;
    }
    if (!quoted && c == ';') {
      out.emplace_back();
      continue;
    }
    out.back() += c;
  }
  return out;
}

Section parseSection(std::string_view s) {
  Section sec;
  bool seenDigit = false;
  auto literal = [&](std::string_view text) { (seenDigit ? sec.suffix : sec.prefix) += text; };
  for (size_t i = 0; i < s.size(); ++i) {
    char c = s[i];
    if (c == '"') {
      size_t end = s.find('"', i + 1);
      if (end == std::string_view::npos) end = s.size();
      literal(s.substr(i + 1, end - i - 1));
      i = end;
    } else if (c == '\\' || c == '_' || c == '*') {
      if (i + 1 < s.size()) {
        if (c == '\\') literal(s.substr(i + 1, 1));
        if (c == '_') literal(" ");
        ++i;
      }
    } else if (c == '[') {
      size_t end = s.find(']', i);
      if (end == std::string_view::npos) end = s.size();
      std::string_view code = s.substr(i + 1, end - i - 1);
      if (startsWith(code, "$")) literal(code.substr(1, code.find('-') - 1));
      i = end;
    } else if (isPlaceholder(c) && !sec.exponent) {
      (sec.hasPoint ? sec.fracPart : sec.intPart) += c;
      seenDigit = true;
    } else if (c == '.' && !sec.hasPoint && !sec.exponent) {
      sec.hasPoint = true;
      seenDigit = true;
    } else if (c == ',' && seenDigit && !sec.hasPoint) {
      if (i + 1 < s.size() && isPlaceholder(s[i + 1])) {
        sec.grouping = true;
      } else {
        ++sec.thousandsScale;
      }
    } else if ((c == 'E' || c == 'e') && seenDigit && i + 1 < s.size() &&
               (s[i + 1] == '+' || s[i + 1] == '-')) {
      sec.exponent = true;
      sec.exponentSign = s[++i];
      while (i + 1 < s.size() && isPlaceholder(s[i + 1])) ++sec.exponentDigits, ++i;
    } else {
      if (c == '%') ++sec.percent;
      literal(std::string_view(&s[i], 1));
    }
  }
  return sec;
}

// The digits of a non-negative x rounded to `decimals` places, half away from zero, taken
// from its 15 significant digits: the integer digits (no leading zeros, "" for zero) and
// exactly `decimals` fraction digits.
void roundedDigits(double x, int decimals, std::string& intDigits, std::string& fracDigits) {
  std::string ds;
  int point = 0;
  if (x != 0) {
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.14e", x);
    std::string s(buf);
    size_t e = s.find('e');
    for (size_t i = 0; i < e; ++i) {
      if (s[i] != '.') ds += s[i];
    }
    point = std::atoi(s.c_str() + e + 1) + 1;
  }
  if (point < 0) {
    ds.insert(0, static_cast<size_t>(-point), '0');
    point = 0;
  }
  size_t keep = static_cast<size_t>(point + decimals);
  if (ds.size() < keep + 1) ds.append(keep + 1 - ds.size(), '0');
  bool up = ds[keep] >= '5';
  ds.resize(keep);
  if (up) {
    size_t i = ds.size();
    while (i > 0 && ds[i - 1] == '9') ds[--i] = '0';
    if (i == 0) {
      ds.insert(0, 1, '1');
      ++point;
    } else {
      ++ds[i - 1];
    }
  }
  intDigits = ds.substr(0, static_cast<size_t>(point));
  size_t lead = intDigits.find_first_not_of('0');
  intDigits = lead == std::string::npos ? "" : intDigits.substr(lead);
  fracDigits = ds.substr(static_cast<size_t>(point));
}

std::string groupThousands(const std::string& digits) {
  std::string out;
  for (size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) out += ',';
    out += digits[i];
  }
  return out;
}

std::string formatSection(double v, const Section& sec, bool& allZero) {
  for (int i = 0; i < sec.percent; ++i) v *= 100;
  for (int i = 0; i < sec.thousandsScale; ++i) v /= 1000;
  const int decimals = static_cast<int>(sec.fracPart.size());
  const int intWidth = static_cast<int>(std::count(sec.intPart.begin(), sec.intPart.end(), '0'));
  int exp10 = 0;
  if (sec.exponent && v != 0) {
    int lead = std::max<int>(1, static_cast<int>(sec.intPart.size()));
    exp10 = static_cast<int>(std::floor(std::log10(v))) - (lead - 1);
    v /= std::pow(10.0, exp10);
  }
  std::string intDigits, frac;
  roundedDigits(v, decimals, intDigits, frac);
  if (sec.exponent && intDigits.size() > std::max<size_t>(1, sec.intPart.size())) {
    // Rounding carried into a new digit (9.99 -> 10.0): shift one place.
    ++exp10;
    roundedDigits(v / 10, decimals, intDigits, frac);
  }
  allZero = intDigits.empty() && frac.find_first_not_of('0') == std::string::npos;
  if (static_cast<int>(intDigits.size()) < intWidth) {
    intDigits.insert(0, static_cast<size_t>(intWidth) - intDigits.size(), '0');
  }
  size_t required = sec.fracPart.find_last_of('0');
  required = required == std::string::npos ? 0 : required + 1;
  while (frac.size() > required && frac.back() == '0') frac.pop_back();

  std::string out = sec.grouping ? groupThousands(intDigits) : intDigits;
  if (sec.hasPoint) out += "." + frac;
  if (sec.exponent) {
    std::string e = std::to_string(std::abs(exp10));
    if (static_cast<int>(e.size()) < sec.exponentDigits) {
      e.insert(0, static_cast<size_t>(sec.exponentDigits) - e.size(), '0');
    }
    out += "E";
    if (exp10 < 0) {
      out += "-";
    } else if (sec.exponentSign == '+') {
      out += "+";
    }
    out += e;
  }
  return out;
}

}  // namespace

std::string formatDisplay(double value, std::string_view format) {
  if (std::isnan(value)) return "";
  std::string_view trimmed = trimBlanks(format);
  if (trimmed.empty() || upperCase(trimmed) == "GENERAL") return formatNumber(value);
  if (std::isinf(value)) return formatNumber(value);
  std::vector<std::string> sections = splitSections(format);
  const std::string* chosen = &sections[0];
  bool minus = value < 0;
  if (value < 0 && sections.size() >= 2) {
    chosen = &sections[1];
    minus = false;
  } else if (value == 0 && sections.size() >= 3) {
    chosen = &sections[2];
  }
  Section sec = parseSection(*chosen);
  if (!sec.hasDigits() && !sec.hasPoint) return sec.prefix + sec.suffix;
  bool allZero = false;
  std::string number = formatSection(std::fabs(value), sec, allZero);
  return (minus && !allZero ? "-" : "") + sec.prefix + number + sec.suffix;
}

}  // namespace kxc::engine
