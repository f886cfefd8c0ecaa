#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace mathlang {

// The variables a function line can use: those of the plane (x, y, t, theta, r) and those that
// only surfaces know (z, phi, u, v). Zero stands for the spelled-out Greek names that are no
// variable or constant (alpha, beta, tau, meu, lambda, and phi in the plane): like an unassigned
// name of the script engine they are 0.
enum class Variable : std::uint8_t { X, Y, T, Theta, R, Z, Phi, U, V, Zero };
inline constexpr int kVariableCount = 9;

enum class Function : std::uint8_t {
  Sin, Cos, Tan, Exp, Ln, Log10, Sqrt, Sqr, Abs, Sgn, Int, Fix, Atan, Asin, Acos, Deg, Fact,
  Csc, Sec, Cot, Sinh, Cosh, Tanh, Coth, Csch, Sech, Acsc, Asec, Acot, Asinh, Acosh, Atanh,
  Acsch, Asech, Acoth, Identity, Random, XRoot, XLog
};

enum class NodeKind : std::uint8_t {
  Number, Load, Negate, Add, Subtract, Multiply, Divide, Power, IntegerDivide, Modulo, Call,
  // Conditions: 1 where they hold, 0 where not (and where a side is undefined).
  Less, LessEqual, Greater, GreaterEqual, Equal, NotEqual, And, Or
};

struct Node {
  NodeKind Kind = NodeKind::Number;
  double Number = 0;
  Variable Var = Variable::X;
  Function Fn = Function::Identity;
  int A = -1;  // operands, by index into the tree's nodes
  int B = -1;
};

// An expression as a tree stored flat: children before parents, the root last.
class ExpressionTree {
public:
  int Add(const Node& node);
  int AddNumber(double value);
  int AddUnary(NodeKind kind, int a);
  int AddBinary(NodeKind kind, int a, int b);
  int AddCall(Function fn, int a, int b = -1);

  const std::vector<Node>& Nodes() const { return m_nodes; }
  const Node& At(int index) const { return m_nodes[static_cast<size_t>(index)]; }
  int Root() const { return m_root; }
  void SetRoot(int root) { m_root = root; }

  // Whether the expression below index reads the variable.
  bool Uses(int index, Variable variable) const;
  bool Uses(Variable variable) const { return m_root >= 0 && Uses(m_root, variable); }

  // Every subtree without variables or random numbers becomes one number.
  void FoldConstants();

  // The value at one point; variables in the order of Variable. For folding and for tests.
  double EvaluateAt(const double* variables) const;

private:
  double Evaluate(int index, const double* variables) const;

  std::vector<Node> m_nodes;
  int m_root = -1;
};

// The numbers of the line's operations, shared by the folding, the scalar and the block
// evaluation so that all three agree: NaN where the program fails, never an infinity.
double ApplyBinary(NodeKind kind, double a, double b);
double ApplyFunction(Function fn, double a, double b);
// The arity of a function: 0, 1 or 2.
int ArityOf(Function fn);

}  // namespace mathlang
