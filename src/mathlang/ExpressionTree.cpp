#include "ExpressionTree.h"

#include "numeric/NumericKernel.h"
#include "numeric/VbRandom.h"

#include <cmath>

namespace mathlang {

namespace {

using numeric::Finite;
using numeric::kFail;

// Halves to even, as the script language rounds the operands of "\" and Mod.
double RoundHalfEven(double v) { return std::nearbyint(v); }

double IntegerDivide(double a, double b, bool modulo) {
  const double x = RoundHalfEven(a);
  const double y = RoundHalfEven(b);
  if (y == 0 || !std::isfinite(x) || !std::isfinite(y)) return kFail;
  return modulo ? std::fmod(x, y) : std::trunc(x / y);
}

bool True(double v) { return v != 0 && !std::isnan(v); }

double Compare(NodeKind kind, double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return 0;
  switch (kind) {
    case NodeKind::Less: return a < b;
    case NodeKind::LessEqual: return a <= b;
    case NodeKind::Greater: return a > b;
    case NodeKind::GreaterEqual: return a >= b;
    case NodeKind::Equal: return a == b;
    default: return a != b;
  }
}

}  // namespace

double ApplyBinary(NodeKind kind, double a, double b) {
  switch (kind) {
    case NodeKind::Add: return Finite(a + b);
    case NodeKind::Subtract: return Finite(a - b);
    case NodeKind::Multiply: return Finite(a * b);
    case NodeKind::Divide: return numeric::Divide(a, b);
    case NodeKind::Power: return numeric::Power(a, b);
    case NodeKind::IntegerDivide: return IntegerDivide(a, b, false);
    case NodeKind::Modulo: return IntegerDivide(a, b, true);
    case NodeKind::And: return True(a) && True(b);
    case NodeKind::Or: return True(a) || True(b);
    default: return Compare(kind, a, b);
  }
}

int ArityOf(Function fn) {
  if (fn == Function::Random) return 0;
  return fn == Function::XRoot || fn == Function::XLog ? 2 : 1;
}

double ApplyFunction(Function fn, double a, double b) {
  switch (fn) {
    case Function::Sin: return std::sin(a);
    case Function::Cos: return std::cos(a);
    case Function::Tan: return numeric::Tan(a);
    case Function::Exp: return numeric::Exp(a);
    case Function::Ln: return numeric::Ln(a);
    case Function::Log10: return a > 0 ? std::log10(a) : kFail;
    case Function::Sqrt:
    case Function::Sqr: return numeric::SquareRoot(a);
    case Function::Abs: return std::abs(a);
    case Function::Sgn: return std::isnan(a) ? a : static_cast<double>((a > 0) - (a < 0));
    case Function::Int: return std::floor(a);
    case Function::Fix: return std::trunc(a);
    case Function::Atan: return std::atan(a);
    case Function::Asin: return numeric::Asin(a);
    case Function::Acos: return numeric::Acos(a);
    case Function::Deg: return numeric::Deg(a);
    case Function::Fact: return numeric::Fact(a);
    case Function::Csc: return numeric::Csc(a);
    case Function::Sec: return numeric::Sec(a);
    case Function::Cot: return numeric::Cot(a);
    case Function::Sinh: return numeric::Sinh(a);
    case Function::Cosh: return numeric::Cosh(a);
    case Function::Tanh: return numeric::Tanh(a);
    case Function::Coth: return numeric::Coth(a);
    case Function::Csch: return numeric::Csch(a);
    case Function::Sech: return numeric::Sech(a);
    case Function::Acsc: return numeric::Acsc(a);
    case Function::Asec: return numeric::Asec(a);
    case Function::Acot: return numeric::Acot(a);
    case Function::Asinh: return numeric::Asinh(a);
    case Function::Acosh: return numeric::Acosh(a);
    case Function::Atanh: return numeric::Atanh(a);
    case Function::Acsch: return numeric::Acsch(a);
    case Function::Asech: return numeric::Asech(a);
    case Function::Acoth: return numeric::Acoth(a);
    case Function::Identity: return a;
    case Function::XRoot: return numeric::XRoot(a, b);
    case Function::XLog: {
      const double base = std::nearbyint(b);
      if (!(std::abs(base) <= 32767)) return kFail;
      return numeric::XLog(a, static_cast<std::int16_t>(base));
    }
    case Function::Random: {
      thread_local numeric::VbRandom random;
      return random.Next();
    }
  }
  return kFail;
}

int ExpressionTree::Add(const Node& node) {
  m_nodes.push_back(node);
  m_root = static_cast<int>(m_nodes.size()) - 1;
  return m_root;
}

int ExpressionTree::AddNumber(double value) {
  Node n;
  n.Kind = NodeKind::Number;
  n.Number = value;
  return Add(n);
}

int ExpressionTree::AddUnary(NodeKind kind, int a) {
  Node n;
  n.Kind = kind;
  n.A = a;
  return Add(n);
}

int ExpressionTree::AddBinary(NodeKind kind, int a, int b) {
  Node n;
  n.Kind = kind;
  n.A = a;
  n.B = b;
  return Add(n);
}

int ExpressionTree::AddCall(Function fn, int a, int b) {
  Node n;
  n.Kind = NodeKind::Call;
  n.Fn = fn;
  n.A = a;
  n.B = b;
  return Add(n);
}

bool ExpressionTree::Uses(int index, Variable variable) const {
  // Children come before their parents, so the subtree of index lies in [first, index].
  std::vector<int> pending{index};
  while (!pending.empty()) {
    const Node& n = At(pending.back());
    pending.pop_back();
    if (n.Kind == NodeKind::Load && n.Var == variable) return true;
    if (n.A >= 0) pending.push_back(n.A);
    if (n.B >= 0) pending.push_back(n.B);
  }
  return false;
}

void ExpressionTree::FoldConstants() {
  // A node is constant when its operands are numbers; nodes are in evaluation order, so one
  // pass folds whole subtrees.
  for (Node& n : m_nodes) {
    if (n.Kind == NodeKind::Number || n.Kind == NodeKind::Load) {
      if (n.Kind == NodeKind::Load && n.Var == Variable::Zero) n = Node{NodeKind::Number, 0};
      continue;
    }
    if (n.Kind == NodeKind::Call && n.Fn == Function::Random) continue;
    const bool aConstant = n.A < 0 || At(n.A).Kind == NodeKind::Number;
    const bool bConstant = n.B < 0 || At(n.B).Kind == NodeKind::Number;
    if (!aConstant || !bConstant) continue;
    const double a = n.A >= 0 ? At(n.A).Number : 0;
    const double b = n.B >= 0 ? At(n.B).Number : 0;
    double value = 0;
    if (n.Kind == NodeKind::Negate) value = -a;
    else if (n.Kind == NodeKind::Call) value = ApplyFunction(n.Fn, a, b);
    else value = ApplyBinary(n.Kind, a, b);
    n = Node{NodeKind::Number, value};
  }
}

double ExpressionTree::EvaluateAt(const double* variables) const {
  return m_root < 0 ? numeric::kFail : Evaluate(m_root, variables);
}

double ExpressionTree::Evaluate(int index, const double* variables) const {
  // Bottom-up over the flat order, so no recursion: values[i] is node i's value.
  std::vector<double> values(static_cast<size_t>(index) + 1);
  for (int i = 0; i <= index; ++i) {
    const Node& n = At(i);
    const double a = n.A >= 0 ? values[static_cast<size_t>(n.A)] : 0;
    const double b = n.B >= 0 ? values[static_cast<size_t>(n.B)] : 0;
    double v = 0;
    switch (n.Kind) {
      case NodeKind::Number: v = n.Number; break;
      case NodeKind::Load: v = n.Var == Variable::Zero ? 0 : variables[static_cast<int>(n.Var)]; break;
      case NodeKind::Negate: v = -a; break;
      case NodeKind::Call: v = ApplyFunction(n.Fn, a, b); break;
      default: v = ApplyBinary(n.Kind, a, b);
    }
    values[static_cast<size_t>(i)] = v;
  }
  return values[static_cast<size_t>(index)];
}

}  // namespace mathlang
