#include "platform/workbook/reference_syntax.h"

#include <algorithm>

#include "platform/text_rules.h"

namespace kxc::workbook {
namespace {

bool isAsciiLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

size_t runOf(std::string_view s, size_t from, bool (*pred)(char)) {
  size_t i = from;
  while (i < s.size() && pred(s[i])) ++i;
  return i - from;
}

// Digits as a row number; 0 when out of range (long runs of digits saturate instead of wrapping).
int64_t rowNumber(std::string_view digits) {
  int64_t n = 0;
  for (char c : digits) {
    n = n * 10 + (c - '0');
    if (n > kMaxRows) return 0;
  }
  return n;
}

// ['$'] letters ['$'] digits. Returns bytes taken, 0 when no valid cell starts at `from`.
size_t scanCell(std::string_view s, size_t from, int32_t& row, int32_t& column) {
  size_t i = from;
  if (i < s.size() && s[i] == '$') ++i;
  size_t letters = runOf(s, i, isAsciiLetter);
  column = columnNumber(s.substr(i, letters));
  if (column == 0) return 0;
  i += letters;
  if (i < s.size() && s[i] == '$') ++i;
  size_t digits = runOf(s, i, isDigit);
  if (digits == 0) return 0;
  int64_t r = rowNumber(s.substr(i, digits));
  if (!isValidRow(r)) return 0;
  row = static_cast<int32_t>(r);
  return i + digits - from;
}

// ['$'] run of one kind, used for the ends of whole-column and whole-row areas.
size_t scanEnd(std::string_view s, size_t from, bool (*pred)(char), std::string_view& body) {
  size_t i = from;
  if (i < s.size() && s[i] == '$') ++i;
  size_t n = runOf(s, i, pred);
  if (n == 0) return 0;
  body = s.substr(i, n);
  return i + n - from;
}

Area spanning(int32_t r1, int32_t c1, int32_t r2, int32_t c2) {
  return {std::min(r1, r2), std::min(c1, c2), std::max(r1, r2), std::max(c1, c2)};
}

// A cell, cell:cell, column:column or row:row starting at `from`.
size_t scanArea(std::string_view s, size_t from, Area& area) {
  int32_t r1 = 0, c1 = 0;
  if (size_t n1 = scanCell(s, from, r1, c1)) {
    area = Area::cell(r1, c1);
    size_t colon = from + n1;
    int32_t r2 = 0, c2 = 0;
    if (colon < s.size() && s[colon] == ':') {
      if (size_t n2 = scanCell(s, colon + 1, r2, c2)) {
        area = spanning(r1, c1, r2, c2);
        return n1 + 1 + n2;
      }
    }
    return n1;
  }
  for (auto kind : {isAsciiLetter, isDigit}) {
    std::string_view first, second;
    size_t n1 = scanEnd(s, from, kind, first);
    if (n1 == 0 || from + n1 >= s.size() || s[from + n1] != ':') continue;
    size_t n2 = scanEnd(s, from + n1 + 1, kind, second);
    if (n2 == 0) continue;
    if (kind == isAsciiLetter) {
      int32_t a = columnNumber(first), b = columnNumber(second);
      if (a == 0 || b == 0) continue;
      area = spanning(1, a, kMaxRows, b);
    } else {
      int64_t a = rowNumber(first), b = rowNumber(second);
      if (!isValidRow(a) || !isValidRow(b)) continue;
      area = spanning(static_cast<int32_t>(a), 1, static_cast<int32_t>(b), kMaxColumns);
    }
    return n1 + 1 + n2;
  }
  return 0;
}

// 'sheet'! or '[book]sheet'! with '' for a quote inside. Returns bytes taken including "!".
size_t scanQuotedQualifier(std::string_view s, ReferenceSyntax& out) {
  std::string content;
  size_t i = 1;
  for (;;) {
    if (i >= s.size()) return 0;
    if (s[i] == '\'') {
      if (i + 1 < s.size() && s[i + 1] == '\'') {
        content += '\'';
        i += 2;
        continue;
      }
      ++i;
      break;
    }
    content += s[i++];
  }
  if (i >= s.size() || s[i] != '!') return 0;
  if (!content.empty() && content[0] == '[') {
    size_t close = content.find(']');
    if (close == std::string::npos || close == 1) return 0;
    out.workbook = content.substr(1, close - 1);
    content.erase(0, close + 1);
  }
  if (content.empty()) return 0;
  out.sheet = std::move(content);
  return i + 1;
}

// [book]sheet! or sheet! without quotes. Returns bytes taken including "!", 0 when absent.
size_t scanPlainQualifier(std::string_view s, ReferenceSyntax& out) {
  size_t i = 0;
  std::optional<std::string> book;
  if (!s.empty() && s[0] == '[') {
    size_t close = s.find(']');
    if (close == std::string_view::npos || close == 1) return 0;
    book = std::string(s.substr(1, close - 1));
    i = close + 1;
  }
  size_t n = runOf(s, i, isNameChar);
  if (n == 0 || i + n >= s.size() || s[i + n] != '!') return 0;
  out.workbook = std::move(book);
  out.sheet = std::string(s.substr(i, n));
  return i + n + 1;
}

bool continuesIdentifier(std::string_view s, size_t at) {
  return at < s.size() && (isNameChar(s[at]) || s[at] == '(' || s[at] == '$');
}

}  // namespace

bool isNameChar(char c) {
  return isAsciiLetter(c) || isDigit(c) || c == '_' || c == '.' || c == '\\' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool isNameStart(char c) {
  return isAsciiLetter(c) || c == '_' || c == '\\' || static_cast<unsigned char>(c) >= 0x80;
}

std::size_t scanReference(std::string_view text, ReferenceSyntax& out) {
  out = ReferenceSyntax{};
  if (text.empty()) return 0;
  size_t pos = text[0] == '\'' ? scanQuotedQualifier(text, out) : scanPlainQualifier(text, out);
  if (text[0] == '\'' && pos == 0) return 0;
  Area area;
  if (size_t n = scanArea(text, pos, area); n > 0 && !continuesIdentifier(text, pos + n)) {
    out.area = area;
    return pos + n;
  }
  if (pos < text.size() && isNameStart(text[pos])) {
    size_t n = runOf(text, pos, isNameChar);
    if (n > kMaxNameLength) return 0;
    out.isName = true;
    out.name = std::string(text.substr(pos, n));
    return pos + n;
  }
  return 0;
}

std::optional<ReferenceSyntax> parseReference(std::string_view text) {
  text = trimBlanks(text);
  ReferenceSyntax ref;
  if (text.empty() || scanReference(text, ref) != text.size()) return std::nullopt;
  return ref;
}

bool looksLikeCellReference(std::string_view text) {
  int32_t row = 0, column = 0;
  if (!text.empty() && text[0] != '$' && scanCell(text, 0, row, column) == text.size()) {
    return true;
  }
  // R1C1 shapes: R, C, Rn, Cn, RC, RnC, RCn, RnCn.
  size_t i = 0;
  auto letter = [&](char upper) {
    if (i < text.size() && (text[i] == upper || text[i] == upper - 'A' + 'a')) {
      ++i;
      return true;
    }
    return false;
  };
  auto digits = [&] { i += runOf(text, i, isDigit); };
  bool r = letter('R');
  if (r) digits();
  bool c = letter('C');
  if (c) digits();
  return (r || c) && i == text.size();
}

bool isValidDefinedName(std::string_view name) {
  if (name.empty() || name.size() > kMaxNameLength || !isNameStart(name[0])) return false;
  if (!std::all_of(name.begin(), name.end(), isNameChar)) return false;
  std::string upper = upperCase(name);
  if (upper == "TRUE" || upper == "FALSE") return false;
  return !looksLikeCellReference(name);
}

}  // namespace kxc::workbook
