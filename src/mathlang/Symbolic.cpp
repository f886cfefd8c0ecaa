#include "Symbolic.h"

#include "core/NumberText.h"
#include "numeric/NumericKernel.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <unordered_map>
#include <vector>

namespace mathlang::symbolic {

namespace {

Expr Make(Op kind, const Expr& a = nullptr, const Expr& b = nullptr) {
  auto n = std::make_shared<Node>();
  n->Kind = kind;
  n->A = a;
  n->B = b;
  return n;
}

bool NumberOf(const Expr& e, double& value) {
  if (e->Kind != Op::Number) return false;
  value = e->Value;
  return true;
}

bool IsWhole(double v) { return std::isfinite(v) && v == std::trunc(v) && std::abs(v) < 1e15; }

// A number worth writing as a number: whole, or with few decimals.
bool Nice(double v) {
  if (!std::isfinite(v)) return false;
  for (double scale = 1; scale <= 1e4; scale *= 10) {
    if (IsWhole(v * scale) && std::abs(v * scale) < 1e12) return true;
  }
  return false;
}

// A factor of a product: base^exponent, the exponent a number.
struct Factor {
  Expr Base;
  double Exponent = 1;
};

// Where a factor stands in a written product: pi and e, then powers of variables, then powers
// of constants (2^x, e^x) and functions, then the rest: 2*pi*x, x*e^x, 2^x*ln(2).
int RankOf(const Expr& base) {
  switch (base->Kind) {
    case Op::Pi:
    case Op::E: return 0;
    case Op::Var: return 1;
    case Op::Pow: return base->A->Kind == Op::Var ? 1 : 2;
    case Op::Call: return 2;
    default: return 3;
  }
}

// Splits a product into its number, its sign and its factors.
void Collect(const Expr& e, double& coefficient, std::vector<Factor>& factors) {
  double v = 0;
  if (NumberOf(e, v)) {
    coefficient *= v;
  } else if (e->Kind == Op::Neg) {
    coefficient = -coefficient;
    Collect(e->A, coefficient, factors);
  } else if (e->Kind == Op::Mul) {
    Collect(e->A, coefficient, factors);
    Collect(e->B, coefficient, factors);
  } else {
    Factor f{e, 1};
    if (e->Kind == Op::Pow && NumberOf(e->B, v)) f = {e->A, v};
    for (Factor& known : factors) {
      if (Equal(known.Base, f.Base)) {
        known.Exponent += f.Exponent;
        return;
      }
    }
    factors.push_back(f);
  }
}

Expr Product(double coefficient, std::vector<Factor> factors) {
  factors.erase(std::remove_if(factors.begin(), factors.end(), [](const Factor& f) { return f.Exponent == 0; }),
                factors.end());
  std::stable_sort(factors.begin(), factors.end(),
                   [](const Factor& a, const Factor& b) { return RankOf(a.Base) < RankOf(b.Base); });
  if (coefficient == 0) return Number(0);
  // Built from the left, the number first, so that it prints without brackets: 2*x*cos(x).
  Expr product = coefficient == 1 || coefficient == -1 ? nullptr : Number(coefficient);
  for (const Factor& f : factors) {
    const Expr term = f.Exponent == 1 ? f.Base : Pow(f.Base, Number(f.Exponent));
    product = product ? Make(Op::Mul, product, term) : term;
  }
  if (!product) return Number(coefficient);
  if (coefficient == -1) return Make(Op::Neg, product);
  return product;
}

// The number of a product and the rest of it.
double CoefficientOf(const Expr& e, Expr& rest) {
  double coefficient = 1;
  std::vector<Factor> factors;
  Collect(e, coefficient, factors);
  rest = Product(1, factors);
  return coefficient;
}

}  // namespace

Expr Number(double value) {
  auto n = std::make_shared<Node>();
  n->Kind = Op::Number;
  n->Value = value == 0 ? 0 : value;  // no negative zero
  return n;
}

Expr Pi() { return Make(Op::Pi); }
Expr E() { return Make(Op::E); }

Expr Var(Variable variable) {
  auto n = std::make_shared<Node>();
  n->Kind = Op::Var;
  n->Var = variable;
  return n;
}

Expr Neg(const Expr& a) {
  double v = 0;
  if (NumberOf(a, v)) return Number(-v);
  if (a->Kind == Op::Neg) return a->A;
  if (a->Kind == Op::Sub) return Sub(a->B, a->A);
  // A product takes the sign into its number; a quotient into its numerator's.
  if (a->Kind == Op::Mul) return Mul(Number(-1), a);
  if (a->Kind == Op::Div) return Div(Mul(Number(-1), a->A), a->B);
  return Make(Op::Neg, a);
}

namespace {

// A term of a sum: its number times the rest.
struct Term {
  double Coefficient;
  Expr Rest;
};

void CollectTerms(const Expr& e, double sign, std::vector<Term>& terms) {
  if (e->Kind == Op::Add || e->Kind == Op::Sub) {
    CollectTerms(e->A, sign, terms);
    CollectTerms(e->B, e->Kind == Op::Add ? sign : -sign, terms);
    return;
  }
  if (e->Kind == Op::Neg) return CollectTerms(e->A, -sign, terms);
  Expr rest;
  const double c = sign * CoefficientOf(e, rest);
  for (Term& known : terms) {
    if (Equal(known.Rest, rest)) {
      known.Coefficient += c;
      return;
    }
  }
  terms.push_back({c, rest});
}

// Like terms taken together, the number last, each term subtracted where it is negative:
// x-1-(x+1) is -2, x+x is 2*x, x+-2*y is x-2*y.
Expr Sum(const Expr& a, const Expr& b, double signOfB) {
  std::vector<Term> terms;
  CollectTerms(a, 1, terms);
  CollectTerms(b, signOfB, terms);
  std::stable_partition(terms.begin(), terms.end(), [](const Term& t) { return !IsNumber(t.Rest, 1); });
  // A sum starts with a positive term where it has one: 1-x^2 rather than -x^2+1.
  terms.erase(std::remove_if(terms.begin(), terms.end(), [](const Term& t) { return t.Coefficient == 0; }), terms.end());
  const auto positive = std::find_if(terms.begin(), terms.end(), [](const Term& t) { return t.Coefficient > 0; });
  if (positive != terms.end()) std::rotate(terms.begin(), positive, positive + 1);
  Expr sum;
  for (const Term& t : terms) {
    if (t.Coefficient == 0) continue;
    const Expr magnitude = Mul(Number(std::abs(t.Coefficient)), t.Rest);
    if (!sum) sum = t.Coefficient < 0 ? Mul(Number(t.Coefficient), t.Rest) : magnitude;
    else sum = Make(t.Coefficient < 0 ? Op::Sub : Op::Add, sum, magnitude);
  }
  return sum ? sum : Number(0);
}

}  // namespace

Expr Add(const Expr& a, const Expr& b) { return Sum(a, b, 1); }

Expr Sub(const Expr& a, const Expr& b) { return Sum(a, b, -1); }

Expr Mul(const Expr& a, const Expr& b) {
  // A quotient takes the other factor into its numerator: a * (b/c) is (a*b)/c.
  if (b->Kind == Op::Div) return Div(Mul(a, b->A), b->B);
  if (a->Kind == Op::Div) return Div(Mul(a->A, b), a->B);
  double coefficient = 1;
  std::vector<Factor> factors;
  Collect(a, coefficient, factors);
  Collect(b, coefficient, factors);
  return Product(coefficient, factors);
}

Expr Div(const Expr& a, const Expr& b) {
  double x = 0, y = 0;
  if (NumberOf(b, y) && y == 1) return a;
  if (NumberOf(a, x) && x == 0 && !(NumberOf(b, y) && y == 0)) return Number(0);
  if (Equal(a, b)) return Number(1);
  if (a->Kind == Op::Div) return Div(a->A, Mul(a->B, b));
  if (b->Kind == Op::Div) return Div(Mul(a, b->B), b->A);
  // The numbers of numerator and denominator are taken together, the sign goes to the
  // numerator, and equal factors cancel: (6*x^2)/(-3*x^5) is -2/x^3, 2/4 is 1/2.
  double cTop = 1, cBottom = 1;
  std::vector<Factor> top, bottom;
  Collect(a, cTop, top);
  Collect(b, cBottom, bottom);
  if (cBottom == 0) return Make(Op::Div, a, b);
  if (cBottom < 0) cTop = -cTop, cBottom = -cBottom;
  for (Factor& under : bottom) {
    for (Factor& over : top) {
      if (over.Exponent == 0 || !Equal(over.Base, under.Base)) continue;
      const double left = over.Exponent - under.Exponent;
      over.Exponent = std::max(left, 0.0);
      under.Exponent = std::max(-left, 0.0);
      break;
    }
  }
  if (IsWhole(cTop) && IsWhole(cBottom)) {
    const auto g = static_cast<double>(std::gcd(static_cast<long long>(std::abs(cTop)), static_cast<long long>(cBottom)));
    if (g > 0) cTop /= g, cBottom /= g;
  } else if (Nice(cTop / cBottom)) {
    cTop /= cBottom, cBottom = 1;
  }
  const Expr numerator = Product(cTop, top);
  const Expr denominator = Product(cBottom, bottom);
  if (IsNumber(denominator, 1)) return numerator;
  return Make(Op::Div, numerator, denominator);
}

Expr Pow(const Expr& a, const Expr& b) {
  double x = 0, y = 0;
  if (NumberOf(b, y) && y == 0) return Number(1);
  if (NumberOf(b, y) && y == 1) return a;
  if (NumberOf(a, x) && x == 1) return Number(1);
  if (NumberOf(a, x) && NumberOf(b, y)) {
    const double p = std::pow(x, y);
    if (IsWhole(p) && IsWhole(y) && y > 0) return Number(p);
  }
  if (a->Kind == Op::Pow && NumberOf(a->B, x) && NumberOf(b, y)) return Pow(a->A, Number(x * y));
  return Make(Op::Pow, a, b);
}

Expr Call(Function fn, const Expr& a, const Expr& b) {
  if (fn == Function::Identity) return a;
  double x = 0, y = 0;
  // A function of numbers is folded only where it gives a whole number (cos(0), ln(1), sqrt(4)).
  if (fn != Function::Random && NumberOf(a, x) && (!b || NumberOf(b, y))) {
    const double v = ApplyFunction(fn, x, y);
    if (IsWhole(v)) return Number(v);
  }
  if (fn == Function::Ln && a->Kind == Op::E) return Number(1);
  auto n = std::make_shared<Node>();
  n->Kind = Op::Call;
  n->Fn = fn;
  n->A = a;
  n->B = b;
  return n;
}

Expr Rounded(Op kind, const Expr& a, const Expr& b) { return Make(kind, a, b); }

bool IsNumber(const Expr& e, double value) { return e->Kind == Op::Number && e->Value == value; }

bool Equal(const Expr& a, const Expr& b) {
  if (a == b) return true;
  if (!a || !b || a->Kind != b->Kind) return false;
  switch (a->Kind) {
    case Op::Number: return a->Value == b->Value;
    case Op::Pi:
    case Op::E: return true;
    case Op::Var: return a->Var == b->Var;
    case Op::Call:
      if (a->Fn != b->Fn) return false;
      [[fallthrough]];
    default: return Equal(a->A, b->A) && ((!a->B && !b->B) || Equal(a->B, b->B));
  }
}

bool Uses(const Expr& e, Variable variable) {
  if (!e) return false;
  if (e->Kind == Op::Var) return e->Var == variable;
  return Uses(e->A, variable) || Uses(e->B, variable);
}

Expr FromTree(const ExpressionTree& tree, int root) {
  // Children stand before their parents, so one pass builds every node's expression.
  std::vector<Expr> built(static_cast<size_t>(root) + 1);
  for (int i = 0; i <= root; ++i) {
    const mathlang::Node& n = tree.At(i);
    const Expr a = n.A >= 0 ? built[static_cast<size_t>(n.A)] : nullptr;
    const Expr b = n.B >= 0 ? built[static_cast<size_t>(n.B)] : nullptr;
    if ((n.A >= 0 && !a) || (n.B >= 0 && !b)) continue;
    Expr e;
    switch (n.Kind) {
      case NodeKind::Number:
        e = n.Number == numeric::kPi ? Pi() : n.Number == numeric::kE ? E() : Number(n.Number);
        break;
      case NodeKind::Load: e = n.Var == Variable::Zero ? Number(0) : Var(n.Var); break;
      case NodeKind::Negate: e = Neg(a); break;
      case NodeKind::Add: e = Add(a, b); break;
      case NodeKind::Subtract: e = Sub(a, b); break;
      case NodeKind::Multiply: e = Mul(a, b); break;
      case NodeKind::Divide: e = Div(a, b); break;
      case NodeKind::Power: e = Pow(a, b); break;
      case NodeKind::Call: e = Call(n.Fn, a, b); break;
      case NodeKind::Modulo: e = Rounded(Op::Mod, a, b); break;
      case NodeKind::IntegerDivide: e = Rounded(Op::IntDiv, a, b); break;
      default: break;  // conditions: no expression of this kind
    }
    built[static_cast<size_t>(i)] = e;
  }
  return built[static_cast<size_t>(root)];
}

namespace {

QString NameOf(Function fn) {
  switch (fn) {
    case Function::Sin: return "sin";
    case Function::Cos: return "cos";
    case Function::Tan: return "tan";
    case Function::Exp: return "exp";
    case Function::Ln: return "ln";
    case Function::Log10: return "log10";
    case Function::Sqrt:
    case Function::Sqr: return "sqrt";
    case Function::Abs: return "abs";
    case Function::Sgn: return "sgn";
    case Function::Int: return "int";
    case Function::Fix: return "fix";
    case Function::Atan: return "atan";
    case Function::Asin: return "asin";
    case Function::Acos: return "acos";
    case Function::Deg: return "deg";
    case Function::Fact: return "fact";
    case Function::Csc: return "csc";
    case Function::Sec: return "sec";
    case Function::Cot: return "cot";
    case Function::Sinh: return "sinh";
    case Function::Cosh: return "cosh";
    case Function::Tanh: return "tanh";
    case Function::Coth: return "coth";
    case Function::Csch: return "csch";
    case Function::Sech: return "sech";
    case Function::Acsc: return "acsc";
    case Function::Asec: return "asec";
    case Function::Acot: return "acot";
    case Function::Asinh: return "asinh";
    case Function::Acosh: return "acosh";
    case Function::Atanh: return "atanh";
    case Function::Acsch: return "acsch";
    case Function::Asech: return "asech";
    case Function::Acoth: return "acoth";
    case Function::Identity: return "const";
    case Function::Random: return "rnd";
    case Function::XRoot: return "xroot";
    case Function::XLog: return "xlog";
  }
  return "?";
}

QString VariableName(Variable v) {
  switch (v) {
    case Variable::X: return "x";
    case Variable::Y: return "y";
    case Variable::T: return "t";
    case Variable::Theta: return "theta";
    case Variable::R: return "r";
    case Variable::Z: return "z";
    case Variable::Phi: return "phi";
    case Variable::U: return "u";
    case Variable::V: return "v";
    default: return "0";
  }
}

// How tightly a written expression binds: sums 1, products 2, a leading minus 3, powers 4, atoms 5.
int PrecedenceOf(const Expr& e) {
  switch (e->Kind) {
    case Op::Add:
    case Op::Sub: return 1;
    case Op::Mul:
    case Op::Div:
    case Op::Mod:
    case Op::IntDiv: return 2;
    case Op::Neg: return 3;
    case Op::Pow: return 4;
    case Op::Number: return e->Value < 0 ? 3 : 5;
    default: return 5;
  }
}

struct TooLong {};

// What is left of the printing budget, in nodes written: a result with shared parts can grow
// without bound when written out (a tower x^x^x^...), and past the budget it is no use to anyone.
thread_local qsizetype budget = 0;

QString Printed(const Expr& e, int needed) {
  if (--budget < 0) throw TooLong{};
  QString text;
  switch (e->Kind) {
    case Op::Number: text = core::FormatNumber(e->Value); break;
    case Op::Pi: text = "pi"; break;
    case Op::E: text = "e"; break;
    case Op::Var: text = VariableName(e->Var); break;
    case Op::Neg: text = "-" + Printed(e->A, 2); break;
    case Op::Add: text = Printed(e->A, 1) + "+" + Printed(e->B, 1); break;
    case Op::Sub: text = Printed(e->A, 1) + "-" + Printed(e->B, 2); break;
    case Op::Mul: text = Printed(e->A, 2) + "*" + Printed(e->B, 3); break;
    case Op::Div: text = Printed(e->A, 2) + "/" + Printed(e->B, 3); break;
    case Op::Mod: text = Printed(e->A, 2) + " mod " + Printed(e->B, 3); break;
    case Op::IntDiv: text = Printed(e->A, 2) + "\\" + Printed(e->B, 3); break;
    case Op::Pow: text = Printed(e->A, 5) + "^" + Printed(e->B, 5); break;
    case Op::Call:
      text = NameOf(e->Fn) + "(" + Printed(e->A, 0) + (e->B ? "," + Printed(e->B, 0) : QString()) + ")";
      break;
  }
  return PrecedenceOf(e) < needed ? "(" + text + ")" : text;
}

}  // namespace

// Negative powers become quotients for printing: -2*x^(-3) is written -2/x^3. Results share
// their parts, so each node is tidied once.
Expr Tidy(const Expr& e, std::unordered_map<const Node*, Expr>& done);

Expr TidyOnce(const Expr& e, std::unordered_map<const Node*, Expr>& done) {
  if (!e) return e;
  const Expr a = Tidy(e->A, done);
  const Expr b = Tidy(e->B, done);
  const auto rebuilt = [&](Op kind) {
    auto n = std::make_shared<Node>(*e);
    n->Kind = kind;
    n->A = a;
    n->B = b;
    return Expr(n);
  };
  const auto negativePower = [](const Expr& f) { return f->Kind == Op::Pow && f->B->Kind == Op::Number && f->B->Value < 0; };
  const auto flipped = [](const Expr& f) { return f->B->Value == -1 ? f->A : Make(Op::Pow, f->A, Number(-f->B->Value)); };
  if (e->Kind == Op::Pow && negativePower(e)) return Make(Op::Div, Number(1), flipped(rebuilt(Op::Pow)));
  if (e->Kind != Op::Mul) return e->A ? rebuilt(e->Kind) : e;
  // A product chain: the factors with negative powers go under the line.
  std::vector<Expr> factors;
  std::vector<Expr> pending{rebuilt(Op::Mul)};
  while (!pending.empty()) {
    const Expr f = pending.back();
    pending.pop_back();
    if (f->Kind == Op::Mul) {
      pending.push_back(f->B);
      pending.push_back(f->A);
    } else {
      factors.push_back(f);
    }
  }
  Expr top, bottom;
  for (const Expr& f : factors) {
    if (f->Kind == Op::Div && IsNumber(f->A, 1)) {  // a negative power already tidied
      bottom = bottom ? Make(Op::Mul, bottom, f->B) : f->B;
    } else {
      top = top ? Make(Op::Mul, top, f) : f;
    }
  }
  if (!bottom) return top;
  return Make(Op::Div, top ? top : Number(1), bottom);
}

Expr Tidy(const Expr& e, std::unordered_map<const Node*, Expr>& done) {
  if (!e) return e;
  if (const auto found = done.find(e.get()); found != done.end()) return found->second;
  if (--budget < 0) throw TooLong{};
  const Expr tidy = TidyOnce(e, done);
  done.emplace(e.get(), tidy);
  return tidy;
}

QString Print(const Expr& e) {
  budget = 20000;
  try {
    std::unordered_map<const Node*, Expr> done;
    const Expr tidy = Tidy(e, done);
    budget = 20000;
    return Printed(tidy, 0);
  } catch (const TooLong&) {
    return QString();
  }
}

}  // namespace mathlang::symbolic
