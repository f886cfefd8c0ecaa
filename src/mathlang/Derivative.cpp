#include "Derivative.h"

#include "LineParser.h"
#include "Symbolic.h"

namespace mathlang {

namespace {

using namespace symbolic;

struct Failed {};

// d/dv of e.
Expr D(const Expr& e, Variable v);

Expr Square(const Expr& u) { return Pow(u, Number(2)); }
Expr Sqrt(const Expr& u) { return Call(Function::Sqrt, u); }

// The derivative of f(u) with respect to u, for a function of one argument.
Expr Outer(Function fn, const Expr& u, const Expr& second) {
  switch (fn) {
    case Function::Sin: return Call(Function::Cos, u);
    case Function::Cos: return Neg(Call(Function::Sin, u));
    case Function::Tan: return Square(Call(Function::Sec, u));
    case Function::Exp: return Call(Function::Exp, u);
    case Function::Ln: return Div(Number(1), u);
    case Function::Log10: return Div(Number(1), Mul(u, Call(Function::Ln, Number(10))));
    case Function::Sqrt:
    case Function::Sqr: return Div(Number(1), Mul(Number(2), Sqrt(u)));
    case Function::Abs: return Call(Function::Sgn, u);
    case Function::Atan: return Div(Number(1), Add(Number(1), Square(u)));
    case Function::Asin: return Div(Number(1), Sqrt(Sub(Number(1), Square(u))));
    case Function::Acos: return Neg(Div(Number(1), Sqrt(Sub(Number(1), Square(u)))));
    case Function::Deg: return Div(Pi(), Number(180));
    case Function::Csc: return Neg(Mul(Call(Function::Csc, u), Call(Function::Cot, u)));
    case Function::Sec: return Mul(Call(Function::Sec, u), Call(Function::Tan, u));
    case Function::Cot: return Neg(Square(Call(Function::Csc, u)));
    case Function::Sinh: return Call(Function::Cosh, u);
    case Function::Cosh: return Call(Function::Sinh, u);
    case Function::Tanh: return Square(Call(Function::Sech, u));
    case Function::Coth: return Neg(Square(Call(Function::Csch, u)));
    case Function::Csch: return Neg(Mul(Call(Function::Csch, u), Call(Function::Coth, u)));
    case Function::Sech: return Neg(Mul(Call(Function::Sech, u), Call(Function::Tanh, u)));
    case Function::Acsc: return Neg(Div(Number(1), Mul(Call(Function::Abs, u), Sqrt(Sub(Square(u), Number(1))))));
    case Function::Asec: return Div(Number(1), Mul(Call(Function::Abs, u), Sqrt(Sub(Square(u), Number(1)))));
    case Function::Acot: return Neg(Div(Number(1), Add(Number(1), Square(u))));
    case Function::Asinh: return Div(Number(1), Sqrt(Add(Square(u), Number(1))));
    case Function::Acosh: return Div(Number(1), Sqrt(Sub(Square(u), Number(1))));
    case Function::Atanh:
    case Function::Acoth: return Div(Number(1), Sub(Number(1), Square(u)));
    case Function::Acsch: return Neg(Div(Number(1), Mul(Call(Function::Abs, u), Sqrt(Add(Number(1), Square(u))))));
    case Function::Asech: return Neg(Div(Number(1), Mul(u, Sqrt(Sub(Number(1), Square(u))))));
    case Function::Identity: return Number(1);
    // Piecewise constant: the steps of int, fix and fact, the sign, a random number.
    case Function::Sgn:
    case Function::Int:
    case Function::Fix:
    case Function::Fact:
    case Function::Random: return Number(0);
    // The n-th root, n constant: xroot(u,n)/(n*u).
    case Function::XRoot: return Div(Call(Function::XRoot, u, second), Mul(second, u));
    case Function::XLog: return Div(Number(1), Mul(u, Call(Function::Ln, second)));
  }
  throw Failed{};
}

Expr DPower(const Expr& a, const Expr& b, Variable v) {
  const bool baseVaries = Uses(a, v);
  const bool exponentVaries = Uses(b, v);
  if (!baseVaries && !exponentVaries) return Number(0);
  if (!exponentVaries) return Mul(Mul(b, Pow(a, Sub(b, Number(1)))), D(a, v));  // n*u^(n-1)*u'
  // a^u: a^u*ln(a)*u', with ln(e) = 1.
  if (!baseVaries) return Mul(Mul(Pow(a, b), Call(Function::Ln, a)), D(b, v));
  // u^w: u^w*(w'*ln(u) + w*u'/u).
  return Mul(Pow(a, b), Add(Mul(D(b, v), Call(Function::Ln, a)), Div(Mul(b, D(a, v)), a)));
}

Expr D(const Expr& e, Variable v) {
  switch (e->Kind) {
    case Op::Number:
    case Op::Pi:
    case Op::E: return Number(0);
    case Op::Var: return Number(e->Var == v ? 1 : 0);
    case Op::Neg: return Neg(D(e->A, v));
    case Op::Add: return Add(D(e->A, v), D(e->B, v));
    case Op::Sub: return Sub(D(e->A, v), D(e->B, v));
    case Op::Mul:
      if (!Uses(e->A, v)) return Mul(e->A, D(e->B, v));
      if (!Uses(e->B, v)) return Mul(D(e->A, v), e->B);
      return Add(Mul(D(e->A, v), e->B), Mul(e->A, D(e->B, v)));
    case Op::Div:
      if (!Uses(e->B, v)) return Div(D(e->A, v), e->B);
      if (!Uses(e->A, v)) return Neg(Div(Mul(e->A, D(e->B, v)), Square(e->B)));
      return Div(Sub(Mul(D(e->A, v), e->B), Mul(e->A, D(e->B, v))), Square(e->B));
    case Op::Pow: return DPower(e->A, e->B, v);
    case Op::Mod:
    case Op::IntDiv: return Number(0);  // constant between the steps of its rounded operands
    case Op::Call: {
      // The second argument of xroot and xlog must not vary.
      if (e->B && Uses(e->B, v)) throw Failed{};
      if (!Uses(e->A, v)) return Number(0);
      return Mul(Outer(e->Fn, e->A, e->B), D(e->A, v));
    }
  }
  throw Failed{};
}

// The derivative of a line "y=f", "x=f", "r=f" or a bare f, by its variable.
std::optional<QString> OfLine(const QString& text) {
  const ParsedLine line = ParseLine(text, false);
  if (!line.Ok() || line.Condition >= 0) return std::nullopt;
  Variable by = Variable::X;
  Variable left = Variable::Zero;
  switch (line.Form) {
    case LineForm::Y: by = Variable::X, left = Variable::Y; break;
    case LineForm::X: by = Variable::Y, left = Variable::X; break;
    case LineForm::R: by = Variable::Theta, left = Variable::R; break;
    case LineForm::Bare: by = Variable::X; break;
    case LineForm::Implicit: return std::nullopt;
  }
  const Expr f = FromTree(line.Tree, line.Right);
  if (!f || (left != Variable::Zero && Uses(f, left))) return std::nullopt;
  try {
    const QString printed = Print(D(f, by));
    if (printed.isEmpty()) return std::nullopt;  // too long to be of use
    return printed;
  } catch (const Failed&) {
    return std::nullopt;
  }
}

// Splits "f,cond" at its first comma outside brackets.
std::optional<std::pair<QString, QString>> SplitCondition(const QString& inner) {
  int depth = 0;
  for (qsizetype i = 0; i < inner.size(); ++i) {
    const QChar c = inner[i];
    if (c == u'(' || c == u'[') ++depth;
    if (c == u')' || c == u']') --depth;
    if (c == u',' && depth == 0) return std::pair{inner.left(i), inner.mid(i + 1)};
  }
  return std::nullopt;
}

}  // namespace

std::optional<QString> Derivative(const QString& text) {
  const QString s = text.trimmed();
  if (s.startsWith(u'[') || s.startsWith(QStringLiteral("command"))) return std::nullopt;
  // declare(y=f,cond): the derivative of f and ",cond)".
  if (s.startsWith(QStringLiteral("declare(")) && s.endsWith(u')')) {
    const auto parts = SplitCondition(s.mid(8, s.size() - 9));
    if (!parts) return std::nullopt;
    const auto derivative = OfLine(parts->first);
    if (!derivative || !parts->first.contains(u'=')) return std::nullopt;
    return *derivative + u',' + parts->second + u')';
  }
  // y=declare(f,cond): "declare(f',cond)", the dialog putting "y=" in front.
  for (const char* left : {"y=declare(", "x=declare(", "r=declare("}) {
    const QString prefix = QString::fromLatin1(left);
    if (s.startsWith(prefix) && s.endsWith(u')')) {
      const auto parts = SplitCondition(s.mid(prefix.size(), s.size() - prefix.size() - 1));
      if (!parts) return std::nullopt;
      const auto derivative = OfLine(prefix.left(2) + parts->first);
      if (!derivative) return std::nullopt;
      return QStringLiteral("declare(") + *derivative + u',' + parts->second + u')';
    }
  }
  if (s.contains(QStringLiteral("declare"))) return std::nullopt;
  return OfLine(s);
}

}  // namespace mathlang
