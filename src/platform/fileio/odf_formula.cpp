#include "platform/fileio/odf_formula.h"

#include <cctype>
#include <vector>

#include "platform/workbook/address_writer.h"
#include "platform/workbook/grid.h"

namespace kxc::fileio {
namespace {

bool isLetter(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }
bool isDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

enum class CellKind { Cell, Column, Row };

// "$B$3", "B3", "$B", "$3": the kinds of cell text one end of a range may hold.
std::optional<CellKind> cellKind(std::string_view text) {
  size_t i = 0;
  if (i < text.size() && text[i] == '$') ++i;
  size_t lettersStart = i;
  while (i < text.size() && isLetter(text[i])) ++i;
  std::string_view letters = text.substr(lettersStart, i - lettersStart);
  if (!letters.empty() && workbook::columnNumber(letters) == 0) return std::nullopt;
  if (letters.empty()) i = 0;  // a row alone keeps its own "$"
  if (i < text.size() && text[i] == '$') ++i;
  size_t digitsStart = i;
  while (i < text.size() && isDigit(text[i])) ++i;
  std::string_view digits = text.substr(digitsStart, i - digitsStart);
  if (i != text.size()) return std::nullopt;
  if (!digits.empty()) {
    if (digits.size() > 7) return std::nullopt;
    if (!workbook::isValidRow(std::stoll(std::string(digits)))) return std::nullopt;
  }
  if (!letters.empty() && !digits.empty()) return CellKind::Cell;
  if (!letters.empty()) return text.back() == '$' ? std::nullopt : std::optional(CellKind::Column);
  if (!digits.empty()) return CellKind::Row;
  return std::nullopt;
}

struct RangeEnd {
  std::optional<std::string> sheet;  // unquoted
  std::string cell;
  CellKind kind = CellKind::Cell;
};

// One end of a range: an optional "$", an optional sheet name (bare, or quoted with ''
// doubled), a "." and the cell text.
std::optional<RangeEnd> readEnd(std::string_view text) {
  if (!text.empty() && text.front() == '$') text.remove_prefix(1);
  RangeEnd end;
  size_t dot = std::string_view::npos;
  if (!text.empty() && text.front() == '\'') {
    std::string name;
    size_t i = 1;
    for (;; ++i) {
      if (i >= text.size()) return std::nullopt;
      if (text[i] == '\'') {
        if (i + 1 < text.size() && text[i + 1] == '\'') {
          name += '\'';
          ++i;
          continue;
        }
        break;
      }
      name += text[i];
    }
    if (i + 1 >= text.size() || text[i + 1] != '.') return std::nullopt;
    dot = i + 1;
    end.sheet = name;
  } else {
    // A bare sheet name holds no dot, blank or "$"; other names are quoted.
    dot = text.find('.');
    if (dot == std::string_view::npos) return std::nullopt;
    std::string_view sheet = text.substr(0, dot);
    if (sheet.find_first_of(" \t$") != std::string_view::npos) return std::nullopt;
    if (dot > 0) end.sheet = std::string(sheet);
  }
  end.cell = std::string(text.substr(dot + 1));
  auto kind = cellKind(end.cell);
  if (!kind) return std::nullopt;
  end.kind = *kind;
  return end;
}

// Splits at ":" outside single quotes.
std::vector<std::string_view> splitEnds(std::string_view text) {
  std::vector<std::string_view> parts;
  bool quoted = false;
  size_t start = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\'') quoted = !quoted;
    if (!quoted && text[i] == ':') {
      parts.push_back(text.substr(start, i - start));
      start = i + 1;
    }
  }
  parts.push_back(text.substr(start));
  return parts;
}

bool sameSheet(const std::string& a, const std::string& b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    if (std::toupper(static_cast<unsigned char>(a[i])) !=
        std::toupper(static_cast<unsigned char>(b[i]))) {
      return false;
    }
  }
  return true;
}

// The closing "]" of the reference whose "[" is at `open`, skipping quoted sheet names.
size_t closingBracket(std::string_view text, size_t open) {
  bool quoted = false;
  for (size_t i = open + 1; i < text.size(); ++i) {
    if (text[i] == '\'') quoted = !quoted;
    if (!quoted && text[i] == ']') return i;
  }
  return std::string_view::npos;
}

// The body after an optional namespace prefix ("of:") and "=".
std::string_view formulaBody(std::string_view text) {
  size_t i = 0;
  while (i < text.size() && std::isalnum(static_cast<unsigned char>(text[i]))) ++i;
  if (i > 0 && isLetter(text[0]) && i + 1 < text.size() && text[i] == ':' && text[i + 1] == '=') {
    text.remove_prefix(i + 1);
  }
  if (!text.empty() && text.front() == '=') text.remove_prefix(1);
  return text;
}

}  // namespace

std::optional<std::string> odfRangeToA1(std::string_view range) {
  if (range.find("#REF!") != std::string_view::npos) return "#REF!";
  std::vector<std::string_view> parts = splitEnds(range);
  if (parts.size() > 2) return std::nullopt;
  std::vector<RangeEnd> ends;
  for (std::string_view part : parts) {
    auto end = readEnd(part);
    if (!end) return std::nullopt;
    ends.push_back(std::move(*end));
  }
  if (ends.size() == 1 && ends[0].kind != CellKind::Cell) return std::nullopt;
  if (ends.size() == 2) {
    if (ends[0].kind != ends[1].kind) return std::nullopt;
    if (ends[1].sheet && (!ends[0].sheet || !sameSheet(*ends[0].sheet, *ends[1].sheet))) {
      return std::nullopt;  // a range across sheets has no A1 form here
    }
  }
  std::string out = ends[0].sheet ? workbook::sheetQualifier(*ends[0].sheet) : "";
  out += ends[0].cell;
  if (ends.size() == 2) out += ":" + ends[1].cell;
  return out;
}

std::optional<std::string> odfFormulaToA1(std::string_view formula) {
  std::string_view body = formulaBody(formula);
  std::string out = "=";
  out.reserve(body.size() + 1);
  for (size_t i = 0; i < body.size();) {
    char c = body[i];
    if (c == '"' || c == '\'') {
      size_t j = i + 1;
      for (;; ++j) {
        if (j >= body.size()) return std::nullopt;
        if (body[j] == c) {
          if (j + 1 < body.size() && body[j + 1] == c) {
            ++j;
            continue;
          }
          break;
        }
      }
      out.append(body.substr(i, j + 1 - i));
      i = j + 1;
    } else if (c == '[') {
      size_t close = closingBracket(body, i);
      if (close == std::string_view::npos) return std::nullopt;
      auto reference = odfRangeToA1(body.substr(i + 1, close - i - 1));
      if (!reference) return std::nullopt;
      out += *reference;
      i = close + 1;
    } else if (c == '#') {
      // Error literals ("#DIV/0!", "#N/A") keep their "!" and "/".
      size_t j = i + 1;
      while (j < body.size() && (std::isalnum(static_cast<unsigned char>(body[j])) ||
                                 body[j] == '/' || body[j] == '!' || body[j] == '?')) {
        ++j;
      }
      out.append(body.substr(i, j - i));
      i = j;
    } else if (c == ']') {
      return std::nullopt;
    } else {
      out += c == ';' ? ',' : c == '!' ? ' ' : c;
      ++i;
    }
  }
  return out;
}

}  // namespace kxc::fileio
