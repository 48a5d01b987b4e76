// The parsed form of a cell formula: a flat list of nodes (children by index, so destroying a
// deep tree never recurses), the references it reads and the functions it calls.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/variant.h"
#include "platform/workbook/reference_syntax.h"

namespace kxc::workbook {

enum class NodeKind { Number, Text, Bool, Error, Missing, Reference, Unary, Percent, Binary, Call };

enum class Op {
  Add,
  Subtract,
  Multiply,
  Divide,
  Power,
  Concat,
  Eq,
  Ne,
  Lt,
  Gt,
  Le,
  Ge,
  Negate,
  Plus
};

struct Node {
  NodeKind kind = NodeKind::Missing;
  Op op = Op::Add;
  double number = 0;
  bool boolean = false;
  std::string text;        // Text literal; upper-cased function name for Call
  CellError error;         // Error literal
  int32_t reference = -1;  // index into ParsedFormula::references
  int32_t left = -1;       // operand of Unary and Percent; left of Binary
  int32_t right = -1;
  std::vector<int32_t> args;  // Call arguments, Missing for an omitted one
};

struct ParsedFormula {
  std::vector<Node> nodes;
  int32_t root = -1;
  std::vector<ReferenceSyntax> references;  // in order of appearance
  std::vector<std::string> functions;       // upper-cased, each once
  // Set when the text could not be parsed: the value the cell shows instead.
  std::optional<CellError> failure;
};

}  // namespace kxc::workbook
