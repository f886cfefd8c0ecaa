#pragma once

#include "mathlang/LineParser.h"

#include <QString>

#include <array>

namespace chain {

// One step of the chain rule: its name, what it is, and its text as a row of the program.
struct ChainStep {
  QString Name;
  QString Caption;
  QString Text;
  mathlang::ParsedLine Line;
};

// The chain rule for an outer function f and an inner function g, both of x: the composition
// f(g(x)) made by putting (g) in for x in f, the two derivatives from the program's own engine,
// f' taken at g, and the product g'(x)·f'(g(x)) that is the derivative of the composition.
class ChainRule {
public:
  enum Step { Composition, InnerSlope, OuterSlope, OuterAtInner, Product, kStepCount };

  ChainRule();

  // Reads both texts ("sin(x)", or "y=sin(x)"); afterwards Problem() is empty when every step has
  // its text.
  void Set(const QString& f, const QString& g);

  const QString& Problem() const { return m_problem; }
  bool Ok() const { return m_problem.isEmpty(); }
  const std::array<ChainStep, kStepCount>& Steps() const { return m_steps; }
  // The engine's derivative of the composition taken at once, to set beside the product.
  const QString& DirectText() const { return m_direct; }

  // A step's value at x; NaN where it is undefined or missing.
  double Value(int step, double x) const;
  double F(double x) const;
  double G(double x) const;

  // Puts (inner) in for every x of text, leaving the names that merely contain an x (exp, xroot)
  // alone: "sin(x)" with "x^2" is "sin((x^2))".
  static QString Substitute(const QString& text, const QString& inner);

private:
  static QString Body(const QString& text);
  static QString WhyNot(const QString& name, const QString& body, mathlang::ParsedLine& line);
  static double Evaluate(const mathlang::ParsedLine& line, double x);
  bool SetStep(Step step, const QString& text);
  void FindProblem(const QString& outer, const QString& inner);

  QString m_problem;
  QString m_direct;
  mathlang::ParsedLine m_f;
  mathlang::ParsedLine m_g;
  std::array<ChainStep, kStepCount> m_steps;
};

}  // namespace chain
