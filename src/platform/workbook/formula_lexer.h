// Splits the text of a cell formula (after its "=") into tokens: numbers, "text" literals,
// TRUE/FALSE, error literals, references, names, function names, operators and punctuation.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/variant.h"
#include "platform/workbook/reference_syntax.h"

namespace kxc::workbook {

enum class TokenKind {
  Number,
  Text,
  Bool,
  Error,
  Reference,  // cells or a defined name, possibly qualified
  Function,   // a name directly followed by "("; the "(" is the next token
  Operator,   // + - * / ^ & = <> < > <= >= %
  LeftParen,
  RightParen,
  Comma,
  End,
};

struct Token {
  TokenKind kind = TokenKind::End;
  std::string text;  // operator, function name or the literal's unescaped text
  double number = 0;
  bool boolean = false;
  CellError error;
  ReferenceSyntax reference;
};

struct LexResult {
  bool ok = false;  // false on anything that is no token (unbalanced quote, stray character)
  std::vector<Token> tokens;  // ends with an End token when ok
};

// Never throws; blanks between tokens are skipped.
LexResult tokenize(std::string_view body);

// The error value an error literal names ("#N/A"), when `text` starts with one; else nullopt.
std::optional<CellError> errorLiteral(std::string_view text, std::size_t& length);

}  // namespace kxc::workbook
