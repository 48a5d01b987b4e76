#include "platform/workbook/formula_parser.h"

#include <algorithm>
#include <utility>

#include "platform/text_rules.h"
#include "platform/workbook/formula_lexer.h"

namespace kxc::workbook {
namespace {

struct SyntaxError {};
struct TooDeep {};

// Recursive descent, lowest precedence first: comparison, &, + -, * /, ^, % (postfix), unary
// sign, primary. Unary minus binds tighter than ^, so -2^2 is 4, as in the spreadsheet.
class Parser {
 public:
  Parser(std::vector<Token> tokens, ParsedFormula& out) : tokens_(std::move(tokens)), out_(out) {}

  int32_t parseAll() {
    int32_t root = comparison();
    if (peek().kind != TokenKind::End) throw SyntaxError{};
    return root;
  }

 private:
  const Token& peek() const { return tokens_[pos_]; }
  bool isOperator(std::string_view op) const {
    return peek().kind == TokenKind::Operator && peek().text == op;
  }
  void expect(TokenKind kind) {
    if (peek().kind != kind) throw SyntaxError{};
    ++pos_;
  }

  // Nodes remember their height so that long operator chains (1+1+...+1) cannot grow a tree
  // deeper than the evaluator can walk.
  int32_t add(Node node, int height) {
    if (height > kMaxFormulaDepth) throw TooDeep{};
    out_.nodes.push_back(std::move(node));
    heights_.push_back(height);
    return static_cast<int32_t>(out_.nodes.size() - 1);
  }
  int heightOf(int32_t index) const { return heights_[index]; }

  int32_t binary(Op op, int32_t left, int32_t right) {
    Node n;
    n.kind = NodeKind::Binary;
    n.op = op;
    n.left = left;
    n.right = right;
    return add(std::move(n), 1 + std::max(heightOf(left), heightOf(right)));
  }

  struct Level {
    std::string_view text;
    Op op;
  };

  template <typename Next>
  int32_t chain(std::initializer_list<Level> levels, Next next) {
    int32_t left = (this->*next)();
    for (;;) {
      const Level* match = nullptr;
      for (const Level& l : levels) {
        if (isOperator(l.text)) match = &l;
      }
      if (!match) return left;
      ++pos_;
      left = binary(match->op, left, (this->*next)());
    }
  }

  int32_t comparison() {
    return chain({{"=", Op::Eq},
                  {"<>", Op::Ne},
                  {"<", Op::Lt},
                  {">", Op::Gt},
                  {"<=", Op::Le},
                  {">=", Op::Ge}},
                 &Parser::concatenation);
  }
  int32_t concatenation() { return chain({{"&", Op::Concat}}, &Parser::additive); }
  int32_t additive() {
    return chain({{"+", Op::Add}, {"-", Op::Subtract}}, &Parser::multiplicative);
  }
  int32_t multiplicative() {
    return chain({{"*", Op::Multiply}, {"/", Op::Divide}}, &Parser::power);
  }
  int32_t power() { return chain({{"^", Op::Power}}, &Parser::percent); }

  int32_t percent() {
    int32_t operand = unary();
    while (isOperator("%")) {
      ++pos_;
      Node n;
      n.kind = NodeKind::Percent;
      n.left = operand;
      operand = add(std::move(n), 1 + heightOf(operand));
    }
    return operand;
  }

  // Signs nest by recursion; the depth guard keeps "------...1" from exhausting the stack.
  int32_t unary() {
    if (isOperator("-") || isOperator("+")) {
      Op op = peek().text == "-" ? Op::Negate : Op::Plus;
      ++pos_;
      Guard guard(*this);
      int32_t operand = unary();
      Node n;
      n.kind = NodeKind::Unary;
      n.op = op;
      n.left = operand;
      return add(std::move(n), 1 + heightOf(operand));
    }
    return primary();
  }

  struct Guard {
    explicit Guard(Parser& p) : p_(p) {
      if (++p_.depth_ > kMaxFormulaDepth) throw TooDeep{};
    }
    ~Guard() { --p_.depth_; }
    Parser& p_;
  };

  int32_t primary() {
    Token t = peek();
    Node n;
    switch (t.kind) {
      case TokenKind::Number:
        n.kind = NodeKind::Number;
        n.number = t.number;
        break;
      case TokenKind::Text:
        n.kind = NodeKind::Text;
        n.text = std::move(t.text);
        break;
      case TokenKind::Bool:
        n.kind = NodeKind::Bool;
        n.boolean = t.boolean;
        break;
      case TokenKind::Error:
        n.kind = NodeKind::Error;
        n.error = t.error;
        break;
      case TokenKind::Reference:
        n.kind = NodeKind::Reference;
        n.reference = static_cast<int32_t>(out_.references.size());
        out_.references.push_back(std::move(t.reference));
        break;
      case TokenKind::LeftParen: {
        ++pos_;
        Guard guard(*this);
        int32_t inner = comparison();
        expect(TokenKind::RightParen);
        return inner;
      }
      case TokenKind::Function:
        return call();
      default:
        throw SyntaxError{};
    }
    ++pos_;
    return add(std::move(n), 1);
  }

  int32_t call() {
    Node n;
    n.kind = NodeKind::Call;
    n.text = upperCase(peek().text);
    if (std::find(out_.functions.begin(), out_.functions.end(), n.text) == out_.functions.end()) {
      out_.functions.push_back(n.text);
    }
    ++pos_;
    expect(TokenKind::LeftParen);
    Guard guard(*this);
    int height = 1;
    if (peek().kind != TokenKind::RightParen) {
      for (;;) {
        int32_t arg;
        if (peek().kind == TokenKind::Comma || peek().kind == TokenKind::RightParen) {
          arg = add(Node{}, 1);  // omitted argument
        } else {
          arg = comparison();
        }
        n.args.push_back(arg);
        height = std::max(height, 1 + heightOf(arg));
        if (peek().kind != TokenKind::Comma) break;
        ++pos_;
      }
    }
    expect(TokenKind::RightParen);
    return add(std::move(n), height);
  }

  std::vector<Token> tokens_;
  ParsedFormula& out_;
  std::vector<int> heights_;
  size_t pos_ = 0;
  int depth_ = 0;
};

}  // namespace

ParsedFormula parseFormula(std::string_view text) {
  ParsedFormula out;
  if (text.size() > kMaxFormulaLength) {
    out.failure = cellerr::kValue;
    return out;
  }
  if (text.empty() || text[0] != '=') {
    out.failure = cellerr::kName;
    return out;
  }
  LexResult lexed = tokenize(text.substr(1));
  if (!lexed.ok) {
    out.failure = cellerr::kName;
    return out;
  }
  try {
    Parser parser(std::move(lexed.tokens), out);
    out.root = parser.parseAll();
  } catch (const SyntaxError&) {
    out.failure = cellerr::kName;
  } catch (const TooDeep&) {
    out.failure = cellerr::kValue;
  }
  if (out.failure) {
    out.nodes.clear();
    out.references.clear();
    out.functions.clear();
    out.root = -1;
  }
  return out;
}

}  // namespace kxc::workbook
