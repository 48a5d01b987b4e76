#include "platform/text_rules.h"

#include <locale.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cwctype>

#include "platform/runtime_error.h"

namespace kxc {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Decodes one UTF-8 code point at text[i]; advances i. Invalid bytes decode as themselves
// with `valid` false so callers can copy them through unchanged.
char32_t decode(std::string_view text, std::size_t& i, bool& valid) {
  unsigned char c = static_cast<unsigned char>(text[i]);
  int len = c < 0x80 ? 1 : (c >> 5) == 0x6 ? 2 : (c >> 4) == 0xE ? 3 : (c >> 3) == 0x1E ? 4 : 0;
  valid = len > 0 && i + static_cast<std::size_t>(len) <= text.size();
  if (!valid) {
    ++i;
    return c;
  }
  char32_t cp = len == 1 ? c : len == 2 ? (c & 0x1F) : len == 3 ? (c & 0x0F) : (c & 0x07);
  for (int k = 1; k < len; ++k) {
    unsigned char cc = static_cast<unsigned char>(text[i + static_cast<std::size_t>(k)]);
    if ((cc >> 6) != 0x2) {
      valid = false;
      ++i;
      return c;
    }
    cp = (cp << 6) | (cc & 0x3F);
  }
  i += static_cast<std::size_t>(len);
  return cp;
}

// A UTF-8 C locale for case mapping, independent of the process's global locale.
locale_t utf8Locale() {
  static locale_t loc = [] {
    locale_t l = newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(nullptr));
    if (!l) l = newlocale(LC_CTYPE_MASK, "C.utf8", static_cast<locale_t>(nullptr));
    return l;
  }();
  return loc;
}

char32_t upperOf(char32_t cp) {
  if (cp < 0x80) return (cp >= 'a' && cp <= 'z') ? cp - 32 : cp;
  locale_t loc = utf8Locale();
  if (!loc) return cp;
  return static_cast<char32_t>(towupper_l(static_cast<wint_t>(cp), loc));
}

}  // namespace

double leadingNumber(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && isBlank(text[i])) ++i;
  std::size_t start = i;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  std::size_t digits = 0;
  while (i < text.size() && isDigit(text[i])) ++i, ++digits;
  if (i < text.size() && text[i] == '.') {
    ++i;
    while (i < text.size() && isDigit(text[i])) ++i, ++digits;
  }
  if (digits == 0) return 0.0;
  std::size_t end = i;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    std::size_t j = i + 1;
    if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
    std::size_t expDigits = 0;
    while (j < text.size() && isDigit(text[j])) ++j, ++expDigits;
    if (expDigits > 0) end = j;
  }
  std::string number(text.substr(start, end - start));
  double v = std::strtod(number.c_str(), nullptr);
  return std::isfinite(v) ? v : 0.0;
}

double roundHalfEven(double value) {
  if (!std::isfinite(value)) return value;
  double floorV = std::floor(value);
  double diff = value - floorV;
  if (diff < 0.5) return floorV;
  if (diff > 0.5) return floorV + 1.0;
  return std::fmod(floorV, 2.0) == 0.0 ? floorV : floorV + 1.0;
}

namespace {

std::u32string toCodePoints(std::string_view text) {
  std::u32string out;
  out.reserve(text.size());
  std::size_t i = 0;
  bool valid = true;
  while (i < text.size()) out += decode(text, i, valid);
  return out;
}

// Matches one bracket list starting after '['; returns the index after ']' or npos.
std::size_t matchBracket(const std::u32string& p, std::size_t pi, char32_t c, bool& matched) {
  bool negate = false;
  if (pi < p.size() && p[pi] == U'!') {
    negate = true;
    ++pi;
  }
  bool any = false;
  bool first = true;
  while (pi < p.size() && (p[pi] != U']' || first)) {
    first = false;
    char32_t lo = p[pi];
    if (pi + 2 < p.size() && p[pi + 1] == U'-' && p[pi + 2] != U']') {
      char32_t hi = p[pi + 2];
      if (lo > hi) throw RuntimeError(err::kBadPattern);
      if (c >= lo && c <= hi) any = true;
      pi += 3;
    } else {
      if (c == lo) any = true;
      ++pi;
    }
  }
  if (pi >= p.size()) throw RuntimeError(err::kBadPattern);
  matched = any != negate;
  return pi + 1;
}

}  // namespace

bool likeMatch(std::string_view text, std::string_view pattern) {
  std::u32string t = toCodePoints(text);
  std::u32string p = toCodePoints(pattern);
  // Iterative matcher with backtracking to the last '*'.
  std::size_t ti = 0, pi = 0;
  std::size_t starP = std::u32string::npos, starT = 0;
  while (ti < t.size()) {
    bool step = false;
    std::size_t nextP = pi;
    if (pi < p.size()) {
      char32_t pc = p[pi];
      if (pc == U'*') {
        starP = pi++;
        starT = ti;
        continue;
      }
      if (pc == U'?') {
        step = true;
        nextP = pi + 1;
      } else if (pc == U'#') {
        step = t[ti] >= U'0' && t[ti] <= U'9';
        nextP = pi + 1;
      } else if (pc == U'[') {
        bool m = false;
        nextP = matchBracket(p, pi + 1, t[ti], m);
        step = m;
      } else {
        step = pc == t[ti];
        nextP = pi + 1;
      }
    }
    if (step) {
      ++ti;
      pi = nextP;
    } else if (starP != std::u32string::npos) {
      pi = starP + 1;
      ti = ++starT;
    } else {
      return false;
    }
  }
  while (pi < p.size() && p[pi] == U'*') ++pi;
  // Validate any brackets left in the unmatched pattern tail.
  return pi == p.size();
}

std::string upperCase(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  std::size_t i = 0;
  while (i < text.size()) {
    std::size_t before = i;
    bool valid = true;
    char32_t cp = decode(text, i, valid);
    if (!valid) {
      out += text[before];
      continue;
    }
    appendUtf8(out, upperOf(cp));
  }
  return out;
}

int compareUtf16(std::string_view a, std::string_view b) {
  const std::size_t n = std::min(a.size(), b.size());
  std::size_t i = 0;
  while (i < n && a[i] == b[i]) ++i;
  if (i == n) return a.size() < b.size() ? -1 : a.size() > b.size() ? 1 : 0;
  // The two characters that differ start where the shared prefix's last character does.
  std::size_t start = i;
  while (start > 0 && i - start < 3 && (static_cast<unsigned char>(a[start]) & 0xC0) == 0x80) {
    --start;
  }
  std::size_t ia = start, ib = start;
  bool validA = true, validB = true;
  const char32_t ca = decode(a, ia, validA), cb = decode(b, ib, validB);
  if (validA && validB && ca != cb) {
    // Above U+FFFF the first code unit is a high surrogate (U+D800 to U+DBFF).
    auto unit = [](char32_t c) { return c >= 0x10000 ? 0xD800 + ((c - 0x10000) >> 10) : c; };
    if (unit(ca) != unit(cb)) return unit(ca) < unit(cb) ? -1 : 1;
    return ca < cb ? -1 : 1;
  }
  return static_cast<unsigned char>(a[i]) < static_cast<unsigned char>(b[i]) ? -1 : 1;
}

std::size_t invalidUtf8At(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size()) {
    const std::size_t start = i;
    bool valid = true;
    const char32_t cp = decode(text, i, valid);
    const std::size_t len = i - start;
    const bool overlong =
        (len == 2 && cp < 0x80) || (len == 3 && cp < 0x800) || (len == 4 && cp < 0x10000);
    if (!valid || overlong || (cp >= 0xD800 && cp <= 0xDFFF) || cp > 0x10FFFF) return start;
  }
  return std::string_view::npos;
}

std::size_t charCount(std::string_view text) {
  std::size_t n = 0;
  for (char c : text) {
    if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++n;
  }
  return n;
}

std::size_t byteOffsetOfChar(std::string_view text, std::size_t chars) {
  std::size_t n = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) {
      if (n == chars) return i;
      ++n;
    }
  }
  return text.size();
}

std::size_t findChars(std::string_view text, std::string_view needle, std::size_t start) {
  if (start < 1) start = 1;
  std::size_t from = byteOffsetOfChar(text, start - 1);
  if (from > text.size()) return 0;
  std::size_t pos = text.find(needle, from);
  if (pos == std::string_view::npos) return 0;
  return charCount(text.substr(0, pos)) + 1;
}

std::string leftChars(std::string_view text, std::size_t n) {
  return std::string(text.substr(0, byteOffsetOfChar(text, n)));
}

std::string rightChars(std::string_view text, std::size_t n) {
  std::size_t total = charCount(text);
  if (n >= total) return std::string(text);
  return std::string(text.substr(byteOffsetOfChar(text, total - n)));
}

std::string midChars(std::string_view text, std::size_t start, std::size_t n) {
  if (start < 1) throw RuntimeError(err::kInvalidCall);
  std::size_t from = byteOffsetOfChar(text, start - 1);
  if (from >= text.size()) return "";
  std::string_view rest = text.substr(from);
  if (n == std::string::npos) return std::string(rest);
  return std::string(rest.substr(0, byteOffsetOfChar(rest, n)));
}

std::string trimSpaces(std::string_view text) {
  std::size_t b = 0, e = text.size();
  while (b < e && text[b] == ' ') ++b;
  while (e > b && text[e - 1] == ' ') --e;
  return std::string(text.substr(b, e - b));
}

std::string_view trimBlanks(std::string_view text) {
  std::size_t b = 0, e = text.size();
  while (b < e && isBlank(text[b])) ++b;
  while (e > b && isBlank(text[e - 1])) --e;
  return text.substr(b, e - b);
}

std::string replaceAll(std::string_view text, std::string_view what, std::string_view with) {
  if (what.empty()) return std::string(text);
  std::string out;
  std::size_t pos = 0;
  while (true) {
    std::size_t hit = text.find(what, pos);
    if (hit == std::string_view::npos) break;
    out.append(text.substr(pos, hit - pos));
    out.append(with);
    pos = hit + what.size();
  }
  out.append(text.substr(pos));
  return out;
}

bool startsWith(std::string_view text, std::string_view prefix) { return text.starts_with(prefix); }
bool endsWith(std::string_view text, std::string_view suffix) { return text.ends_with(suffix); }

void appendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

}  // namespace kxc
