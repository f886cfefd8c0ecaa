#pragma once

#include "MathNode.h"

#include <QString>

namespace mathx {

// A row in English words, as a screen reader should speak it: "y=2sin(x)+x/2" is "y equals 2
// sine of x plus x over 2". It is read from the parse that the typesetter draws, so that the
// words follow the picture: a quotient of two plain parts is "x over 2", a built-up one of
// longer parts "the fraction x plus 1 over x minus 1".
//
// A listener cannot see where a root, a bar, a fraction, a raised exponent or a bracket ends.
// The rule: such a piece opens with its own words ("the square root of", "the fraction", "the
// quantity") and closes with "end root", "end fraction", "end quantity" and so on only when more
// of the same expression follows it. At the end of a side of an equation the close is left out,
// because the relation word ("equals") or the end of the row already marks it. A function
// applied to a single letter or number ("sine of x") needs neither; applied to anything longer
// its argument is read as a quantity ("sine of the quantity x plus 1"), unless the argument
// opens with words of its own ("sine of the square root of x").
//
// A row that does not parse is spoken as its text; an empty row as "empty row".
class SpokenForm {
public:
  static QString OfRow(const QString& rowText);

private:
  // last: nothing more of the same expression is spoken after the node, so it needs no close.
  static QString Say(const MathNode& node, bool last);
  static QString Leaf(const MathNode& node);
  static QString Closed(const QString& opening, const QString& content, const QString& close, bool last);
  static QString Call(const MathNode& node, bool last);
  static QString Argument(const MathNode& node, bool last);
  static QString Group(const MathNode& node, bool last);
  static QString Binary(const MathNode& node, bool last);
  static QString Fraction(const MathNode& node, bool last);
  static QString Unary(const MathNode& node, bool last);
  static QString Power(const MathNode& node, bool last);
  static QString Exponent(const MathNode& exponent, bool last);
  static QString Chain(const MathNode& node);
  static QString Radical(const MathNode& node, bool last);
  static QString Declare(const MathNode& node);
  static QString Condition(const MathNode& node);
  static QString Domain(const MathNode& node);
  static QString Table(const MathNode& node);
  static QString Pair(const MathNode& row);
};

}  // namespace mathx
