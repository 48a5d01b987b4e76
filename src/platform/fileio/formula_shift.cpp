#include "platform/fileio/formula_shift.h"

#include <cctype>
#include <optional>

#include "platform/workbook/address_writer.h"
#include "platform/workbook/grid.h"

namespace kxc::fileio {
namespace {

bool isLetter(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }
bool isDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

// Characters that may continue a name, a number or a cell, so a cell cannot start after them.
bool continuesWord(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '.' || c == '\\' ||
         c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

struct Part {
  size_t length = 0;  // bytes read
  bool absolute = false;
  int64_t number = 0;  // column or row number
};

// "$AB" or "AB": a column of 1 to 3 letters up to XFD.
std::optional<Part> readColumn(std::string_view text, size_t at) {
  Part part;
  size_t i = at;
  if (i < text.size() && text[i] == '$') part.absolute = true, ++i;
  size_t start = i;
  while (i < text.size() && isLetter(text[i]) && i - start < 4) ++i;
  if (i == start || i - start > 3) return std::nullopt;
  part.number = workbook::columnNumber(text.substr(start, i - start));
  if (part.number == 0) return std::nullopt;
  part.length = i - at;
  return part;
}

// "$12" or "12": a row number up to the last row.
std::optional<Part> readRow(std::string_view text, size_t at) {
  Part part;
  size_t i = at;
  if (i < text.size() && text[i] == '$') part.absolute = true, ++i;
  size_t start = i;
  while (i < text.size() && isDigit(text[i]) && i - start < 8) ++i;
  if (i == start || i - start > 7) return std::nullopt;
  part.number = std::stoll(std::string(text.substr(start, i - start)));
  if (!workbook::isValidRow(part.number)) return std::nullopt;
  part.length = i - at;
  return part;
}

// Whether the word that ends before `at` carries on (a longer name, a function, a qualifier).
bool wordGoesOn(std::string_view text, size_t at) {
  if (at >= text.size()) return false;
  char c = text[at];
  return continuesWord(c) || c == '(' || c == '!' || c == '[';
}

std::string columnText(const Part& p, int64_t number) {
  return (p.absolute ? "$" : "") + workbook::columnLetters(static_cast<int32_t>(number));
}

std::string rowText(const Part& p, int64_t number) {
  return (p.absolute ? "$" : "") + std::to_string(number);
}

class Shifter {
 public:
  Shifter(std::string_view text, int32_t rows, int32_t columns)
      : text_(text), rows_(rows), columns_(columns) {}

  std::string run() {
    out_.reserve(text_.size());
    size_t i = 0;
    while (i < text_.size()) {
      char c = text_[i];
      if (c == '"' || c == '\'') {
        i = copyQuoted(i, c);
      } else if (c == '[') {
        size_t close = text_.find(']', i);
        size_t end = close == std::string_view::npos ? text_.size() : close + 1;
        out_.append(text_.substr(i, end - i));
        i = end;
      } else if ((i == 0 || !continuesWord(text_[i - 1])) &&
                 (isLetter(c) || isDigit(c) || c == '$')) {
        i = reference(i);
      } else {
        out_ += c;
        ++i;
      }
    }
    return std::move(out_);
  }

 private:
  size_t copyQuoted(size_t at, char quote) {
    size_t j = at + 1;
    while (j < text_.size()) {
      if (text_[j] == quote) {
        if (j + 1 < text_.size() && text_[j + 1] == quote) {
          j += 2;
          continue;
        }
        ++j;
        break;
      }
      ++j;
    }
    out_.append(text_.substr(at, j - at));
    return j;
  }

  int64_t moved(const Part& p, int32_t by) const { return p.absolute ? p.number : p.number + by; }

  // Reads what starts at `at`: a cell, a range of whole columns or rows, or anything else,
  // which is copied up to the end of its word.
  size_t reference(size_t at) {
    if (auto done = cell(at)) return *done;
    if (auto done = wholeColumns(at)) return *done;
    if (auto done = wholeRows(at)) return *done;
    size_t j = at;
    while (j < text_.size() && continuesWord(text_[j])) ++j;
    if (j == at) j = at + 1;
    out_.append(text_.substr(at, j - at));
    return j;
  }

  std::optional<size_t> cell(size_t at) {
    auto column = readColumn(text_, at);
    if (!column) return std::nullopt;
    auto row = readRow(text_, at + column->length);
    if (!row) return std::nullopt;
    size_t end = at + column->length + row->length;
    if (wordGoesOn(text_, end)) return std::nullopt;
    int64_t c = moved(*column, columns_);
    int64_t r = moved(*row, rows_);
    if (!workbook::isValidColumn(c) || !workbook::isValidRow(r)) {
      out_ += "#REF!";
    } else {
      out_ += columnText(*column, c) + rowText(*row, r);
    }
    return end;
  }

  std::optional<size_t> wholeColumns(size_t at) {
    auto first = readColumn(text_, at);
    if (!first || at + first->length >= text_.size() || text_[at + first->length] != ':') {
      return std::nullopt;
    }
    auto second = readColumn(text_, at + first->length + 1);
    if (!second) return std::nullopt;
    size_t end = at + first->length + 1 + second->length;
    if (wordGoesOn(text_, end)) return std::nullopt;
    int64_t a = moved(*first, columns_);
    int64_t b = moved(*second, columns_);
    if (!workbook::isValidColumn(a) || !workbook::isValidColumn(b)) {
      out_ += "#REF!";
    } else {
      out_ += columnText(*first, a) + ":" + columnText(*second, b);
    }
    return end;
  }

  std::optional<size_t> wholeRows(size_t at) {
    auto first = readRow(text_, at);
    if (!first || at + first->length >= text_.size() || text_[at + first->length] != ':') {
      return std::nullopt;
    }
    auto second = readRow(text_, at + first->length + 1);
    if (!second) return std::nullopt;
    size_t end = at + first->length + 1 + second->length;
    if (wordGoesOn(text_, end)) return std::nullopt;
    int64_t a = moved(*first, rows_);
    int64_t b = moved(*second, rows_);
    if (!workbook::isValidRow(a) || !workbook::isValidRow(b)) {
      out_ += "#REF!";
    } else {
      out_ += rowText(*first, a) + ":" + rowText(*second, b);
    }
    return end;
  }

  std::string_view text_;
  int32_t rows_;
  int32_t columns_;
  std::string out_;
};

}  // namespace

std::string shiftFormula(std::string_view formula, int32_t rows, int32_t columns) {
  return Shifter(formula, rows, columns).run();
}

}  // namespace kxc::fileio
