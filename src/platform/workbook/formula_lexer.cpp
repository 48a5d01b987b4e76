#include "platform/workbook/formula_lexer.h"

#include <array>
#include <cstdlib>
#include <utility>

#include "platform/text_rules.h"

namespace kxc::workbook {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// A number literal: digits with an optional fraction and exponent. Returns bytes taken.
size_t scanNumber(std::string_view s, size_t from, double& value) {
  size_t i = from;
  while (i < s.size() && isDigit(s[i])) ++i;
  if (i < s.size() && s[i] == '.') {
    ++i;
    while (i < s.size() && isDigit(s[i])) ++i;
  }
  if (i == from || (i == from + 1 && s[from] == '.')) return 0;
  if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
    size_t j = i + 1;
    if (j < s.size() && (s[j] == '+' || s[j] == '-')) ++j;
    size_t digits = j;
    while (j < s.size() && isDigit(s[j])) ++j;
    if (j > digits) i = j;
  }
  value = std::strtod(std::string(s.substr(from, i - from)).c_str(), nullptr);
  return i - from;
}

// "..." with "" for a quote inside. Returns bytes taken, 0 when the closing quote is missing.
size_t scanText(std::string_view s, size_t from, std::string& out) {
  size_t i = from + 1;
  while (i < s.size()) {
    if (s[i] == '"') {
      if (i + 1 < s.size() && s[i + 1] == '"') {
        out += '"';
        i += 2;
        continue;
      }
      return i + 1 - from;
    }
    out += s[i++];
  }
  return 0;
}

}  // namespace

std::optional<CellError> errorLiteral(std::string_view text, std::size_t& length) {
  static const std::array<std::pair<std::string_view, CellError>, 7> kErrors{{
      {"#NULL!", cellerr::kNull},
      {"#DIV/0!", cellerr::kDiv0},
      {"#VALUE!", cellerr::kValue},
      {"#REF!", cellerr::kRef},
      {"#NAME?", cellerr::kName},
      {"#NUM!", cellerr::kNum},
      {"#N/A", cellerr::kNA},
  }};
  std::string upper = upperCase(text.substr(0, 8));
  for (const auto& [word, error] : kErrors) {
    if (startsWith(upper, word)) {
      length = word.size();
      return error;
    }
  }
  return std::nullopt;
}

LexResult tokenize(std::string_view s) {
  LexResult result;
  auto& tokens = result.tokens;
  size_t i = 0;
  while (i < s.size()) {
    char c = s[i];
    if (isBlank(c)) {
      ++i;
      continue;
    }
    Token t;
    size_t n = 0;
    if (c == '"') {
      t.kind = TokenKind::Text;
      n = scanText(s, i, t.text);
      if (n == 0) return result;
    } else if (c == '#') {
      auto error = errorLiteral(s.substr(i), n);
      if (!error) return result;
      t.kind = TokenKind::Error;
      t.error = *error;
    } else if (c == '(' || c == ')' || c == ',') {
      t.kind = c == '('   ? TokenKind::LeftParen
               : c == ')' ? TokenKind::RightParen
                          : TokenKind::Comma;
      n = 1;
    } else if (std::string_view("+-*/^&=%").find(c) != std::string_view::npos) {
      t.kind = TokenKind::Operator;
      t.text = std::string(1, c);
      n = 1;
    } else if (c == '<' || c == '>') {
      t.kind = TokenKind::Operator;
      n = 1;
      if (i + 1 < s.size() && (s[i + 1] == '=' || (c == '<' && s[i + 1] == '>'))) n = 2;
      t.text = std::string(s.substr(i, n));
    } else if ((n = scanReference(s.substr(i), t.reference)) > 0) {
      const ReferenceSyntax& ref = t.reference;
      bool plain = ref.isName && !ref.sheet && !ref.workbook;
      std::string upper = plain ? upperCase(ref.name) : std::string();
      if (plain && i + n < s.size() && s[i + n] == '(') {
        t.kind = TokenKind::Function;
        t.text = ref.name;
      } else if (plain && (upper == "TRUE" || upper == "FALSE")) {
        t.kind = TokenKind::Bool;
        t.boolean = upper == "TRUE";
      } else {
        t.kind = TokenKind::Reference;
      }
    } else if ((n = scanNumber(s, i, t.number)) > 0) {
      t.kind = TokenKind::Number;
    } else {
      return result;
    }
    tokens.push_back(std::move(t));
    i += n;
  }
  tokens.push_back(Token{});
  result.ok = true;
  return result;
}

}  // namespace kxc::workbook
