#pragma once

#include "ExpressionTree.h"

#include <QString>

#include <vector>

namespace mathlang {

// What stands left of the equation's "=": y, x or r alone make an explicit curve; anything else
// an implicit one; no "=" at all a bare expression.
enum class LineForm : std::uint8_t { Y, X, R, Implicit, Bare };

// One comparison of the conditions, and whether its bound belongs to the curve ("<=", ">=").
struct Comparison {
  int Node = -1;
  bool Inclusive = false;
};

// A function line taken apart: the equation, its conditions, all in one expression tree.
struct ParsedLine {
  LineForm Form = LineForm::Bare;
  ExpressionTree Tree;
  int Left = -1;       // the left side of an implicit equation
  int Right = -1;      // the expression (the right side, or the whole bare expression)
  int Condition = -1;  // all conditions joined, or -1
  std::vector<Comparison> Comparisons;
  QString Error;       // why the line cannot be drawn; empty when it can

  bool Ok() const { return Error.isEmpty(); }
};

// Parses a function line: "y=x^2+1", "x=sin(y)", "r=2*theta", "x^2+y^2=1", a bare "2x+1", with
// conditions behind ";" ("0<=x<3", "x>0 and x<3"). The user's conventions hold: implicit
// multiplication ("2x", "3(x+1)", "x sin(x)", "xy", "2pi"), "^" to the right, "-x^2" as -(x^2), a
// number directly behind x, y, t, r, theta, pi or ")" as its exponent ("x2" is x^2, as the
// normaliser reads it), "[...]" as fix(...), the editor's symbols ("q..symb" is theta).
// Constants are folded unless fold is false (the derivative keeps "2*pi" as it was written).
// Plane: the names of function rows. Space: those of surfaces besides, z, phi, u and v.
enum class Language : std::uint8_t { Plane, Space };

ParsedLine ParseLine(const QString& text, bool fold = true, Language language = Language::Plane);

// Parses an expression alone (the texts of integrals and parametric curves), with no "=" and no
// conditions.
ParsedLine ParseExpression(const QString& text, Language language = Language::Plane);

// An inequality "y<f(x)", "y>=f(x)" (or with the sides swapped): the region above or below the
// boundary y = f(x).
struct ParsedInequality {
  ExpressionTree Tree;
  int Boundary = -1;     // f
  bool Above = false;    // the region lies above the boundary
  bool Inclusive = false;  // "<=" or ">=": the boundary belongs to it
  QString Error;

  bool Ok() const { return Error.isEmpty(); }
};

ParsedInequality ParseInequality(const QString& text);

}  // namespace mathlang
