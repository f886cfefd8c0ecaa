#pragma once

#include "ExpressionTree.h"

#include <QString>

#include <memory>

// Expressions as a teacher writes them. Every constructor simplifies as it builds: numbers are
// folded, no *1, +0, ^1 or double minus is left, the number of a product comes first and its
// factors stand in a fixed order (powers of variables, then pi and e, then functions), equal
// factors become powers. pi and e stay symbols.
namespace mathlang::symbolic {

// Mod and IntDiv are the script language's "mod" and "\": their operands are rounded, so they are
// constant between steps.
enum class Op : std::uint8_t { Number, Pi, E, Var, Neg, Add, Sub, Mul, Div, Pow, Call, Mod, IntDiv };

struct Node;
using Expr = std::shared_ptr<const Node>;

struct Node {
  Op Kind = Op::Number;
  double Value = 0;
  Variable Var = Variable::X;
  Function Fn = Function::Identity;
  Expr A, B;
};

Expr Number(double value);
Expr Pi();
Expr E();
Expr Var(Variable variable);
Expr Neg(const Expr& a);
Expr Add(const Expr& a, const Expr& b);
Expr Sub(const Expr& a, const Expr& b);
Expr Mul(const Expr& a, const Expr& b);
Expr Div(const Expr& a, const Expr& b);
Expr Pow(const Expr& a, const Expr& b);
Expr Call(Function fn, const Expr& a, const Expr& b = nullptr);
Expr Rounded(Op kind, const Expr& a, const Expr& b);  // Mod or IntDiv

bool IsNumber(const Expr& e, double value);
bool Equal(const Expr& a, const Expr& b);
// Whether e depends on the variable.
bool Uses(const Expr& e, Variable variable);

// The expression below root of a parsed tree; typed numbers equal to the program's pi and e
// become those symbols.
Expr FromTree(const ExpressionTree& tree, int root);

// The text in the line language, with the brackets the precedence needs and no more; "" when it
// would take more than 20,000 nodes to write out.
QString Print(const Expr& e);

}  // namespace mathlang::symbolic
