#include "platform/workbook/evaluator.h"

#include <cmath>
#include <exception>

#include "platform/text_rules.h"

namespace kxc::workbook {
namespace {

// A node's result: a value, or a reference that the consumer reads as it needs (SUM walks a
// range, an operator needs a single cell).
struct Operand {
  Variant value;
  const BoundReference* ref = nullptr;
};

std::optional<CellError> numberOf(const Variant& v, double& out) {
  switch (v.type()) {
    case VarType::Empty:
      out = 0;
      return std::nullopt;
    case VarType::Bool:
      out = v.toBool() ? 1 : 0;
      return std::nullopt;
    case VarType::Int16:
    case VarType::Int32:
    case VarType::Double:
      out = v.toDouble();
      return std::nullopt;
    case VarType::Text:
      if (parseNumber(v.text(), out)) return std::nullopt;
      return cellerr::kValue;
    case VarType::Error:
      return v.error();
    default:
      return cellerr::kValue;
  }
}

std::string textOf(const Variant& v) {
  switch (v.type()) {
    case VarType::Bool:
      return v.toBool() ? "TRUE" : "FALSE";
    case VarType::Text:
      return v.text();
    case VarType::Empty:
      return "";
    default:
      return formatNumber(v.toDouble());
  }
}

Variant numberResult(double d) {
  if (!std::isfinite(d)) return cellerr::kNum;
  return d;
}

// The spreadsheet orders numbers before texts before booleans; texts compare without case.
// An empty operand takes the other side's kind (0, "" or FALSE).
int compareValues(Variant a, Variant b) {
  auto rank = [](const Variant& v) { return v.isText() ? 1 : v.type() == VarType::Bool ? 2 : 0; };
  auto blankLike = [&](const Variant& other) -> Variant {
    if (other.isText()) return std::string();
    if (other.type() == VarType::Bool) return false;
    return 0.0;
  };
  if (a.isEmpty()) a = blankLike(b);
  if (b.isEmpty()) b = blankLike(a);
  if (rank(a) != rank(b)) return rank(a) < rank(b) ? -1 : 1;
  if (a.isText()) {
    std::string x = upperCase(a.text()), y = upperCase(b.text());
    return x < y ? -1 : x > y ? 1 : 0;
  }
  double x = a.toDouble(), y = b.toDouble();
  return x < y ? -1 : x > y ? 1 : 0;
}

Variant normalizedResult(const Variant& v) {
  switch (v.type()) {
    case VarType::Empty:
      return 0.0;
    case VarType::Int16:
    case VarType::Int32:
    case VarType::Double:
      return numberResult(v.toDouble());
    case VarType::Bool:
    case VarType::Text:
    case VarType::Error:
      return v;
    default:
      return cellerr::kValue;
  }
}

class Evaluator {
 public:
  Evaluator(const ParsedFormula& f, const std::vector<BoundReference>& bound,
            const EvaluationContext& context)
      : f_(f), bound_(bound), context_(context) {}

  Variant run() {
    if (f_.failure) return *f_.failure;
    return normalizedResult(scalar(eval(f_.root)));
  }

 private:
  Variant scalar(const Operand& o) const {
    if (!o.ref) return o.value;
    if (o.ref->error) return *o.ref->error;
    const Area& a = o.ref->block.area;
    if (!a.isSingleCell()) return cellerr::kValue;
    return context_.cellValue({o.ref->block.sheet, a.top, a.left});
  }

  Operand eval(int32_t index) {
    const Node& n = f_.nodes[index];
    switch (n.kind) {
      case NodeKind::Number:
        return {n.number};
      case NodeKind::Text:
        return {n.text};
      case NodeKind::Bool:
        return {n.boolean};
      case NodeKind::Error:
        return {n.error};
      case NodeKind::Missing:
        return {};
      case NodeKind::Reference:
        return {Variant(), &bound_[n.reference]};
      case NodeKind::Unary: {
        Variant v = scalar(eval(n.left));
        if (n.op == Op::Plus) return {v};
        double d = 0;
        if (auto e = numberOf(v, d)) return {*e};
        return {-d};
      }
      case NodeKind::Percent: {
        double d = 0;
        if (auto e = numberOf(scalar(eval(n.left)), d)) return {*e};
        return {d / 100};
      }
      case NodeKind::Binary:
        return {binary(n.op, scalar(eval(n.left)), scalar(eval(n.right)))};
      case NodeKind::Call:
        return {call(n)};
    }
    return {cellerr::kValue};
  }

  Variant binary(Op op, const Variant& a, const Variant& b) {
    if (a.isError()) return a;
    if (b.isError()) return b;
    switch (op) {
      case Op::Concat:
        return textOf(a) + textOf(b);
      case Op::Eq:
        return compareValues(a, b) == 0;
      case Op::Ne:
        return compareValues(a, b) != 0;
      case Op::Lt:
        return compareValues(a, b) < 0;
      case Op::Gt:
        return compareValues(a, b) > 0;
      case Op::Le:
        return compareValues(a, b) <= 0;
      case Op::Ge:
        return compareValues(a, b) >= 0;
      default:
        break;
    }
    double x = 0, y = 0;
    if (auto e = numberOf(a, x)) return *e;
    if (auto e = numberOf(b, y)) return *e;
    switch (op) {
      case Op::Add:
        return numberResult(x + y);
      case Op::Subtract:
        return numberResult(x - y);
      case Op::Multiply:
        return numberResult(x * y);
      case Op::Divide:
        if (y == 0) return cellerr::kDiv0;
        return numberResult(x / y);
      case Op::Power:
        if (x == 0 && y == 0) return cellerr::kNum;
        if (x == 0 && y < 0) return cellerr::kDiv0;
        return numberResult(std::pow(x, y));
      default:
        return cellerr::kValue;
    }
  }

  Variant call(const Node& n) {
    if (n.text == "SUM") return sum(n);
    const host::WorksheetFunction* fn = context_.function(n.text);
    if (!fn || !*fn) return cellerr::kName;
    std::vector<Variant> args;
    args.reserve(n.args.size());
    for (int32_t arg : n.args) args.push_back(scalar(eval(arg)));
    try {
      return normalizedResult((*fn)(args));
    } catch (...) {
      // A worksheet function never breaks the host: whatever it throws shows as #VALUE!.
      return cellerr::kValue;
    }
  }

  // Numbers in referenced cells add up, other cell contents are skipped; values written in the
  // call itself must be numbers or texts of numbers.
  Variant sum(const Node& n) {
    double total = 0;
    for (int32_t arg : n.args) {
      Operand o = eval(arg);
      if (o.ref) {
        if (o.ref->error) return *o.ref->error;
        std::optional<CellError> failure;
        context_.forEachValue(o.ref->block, [&](const Variant& v) {
          if (v.isError()) {
            failure = v.error();
            return false;
          }
          if (v.type() == VarType::Double) total += v.toDouble();
          return true;
        });
        if (failure) return *failure;
        continue;
      }
      double d = 0;
      if (auto e = numberOf(o.value, d)) return *e;
      total += d;
    }
    return numberResult(total);
  }

  const ParsedFormula& f_;
  const std::vector<BoundReference>& bound_;
  const EvaluationContext& context_;
};

}  // namespace

Variant evaluate(const ParsedFormula& formula, const std::vector<BoundReference>& bound,
                 const EvaluationContext& context) {
  return Evaluator(formula, bound, context).run();
}

std::string displayTextOf(const Variant& value) {
  if (value.isError()) return cellErrorText(value.error());
  if (value.type() == VarType::Object) return "";
  return textOf(value);
}

}  // namespace kxc::workbook
