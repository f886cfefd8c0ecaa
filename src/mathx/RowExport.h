#pragma once

#include "MathNode.h"

#include <QString>

namespace mathx {

// A row as other programs take it: LaTeX for a document ("y=2\sin\left(x\right)+\frac{x}{2}")
// and readable text for a chat or a word processor ("y = 2 sin(x) + x/2", "√|x|", "x² ≤ 9").
// Both are written from the parse that the typesetter draws, so that they say what the row shows:
// a quotient is a built-up fraction where the row shows one, a star a dot where the row shows
// one. The LaTeX is written so that the insert dialog reads it back into the same row. A row
// that does not parse comes back as its text.
class RowExport {
public:
  static QString ToLatex(const QString& row);
  static QString ToPlainText(const QString& row);

private:
  enum class Form { Latex, Plain };
  explicit RowExport(Form form) : m_form(form) {}

  bool Latex() const { return m_form == Form::Latex; }

  // scale: the size of the text against the row's, as the typesetter shrinks exponents and the
  // parts of fractions; it decides where a quotient is built up.
  QString Write(const MathNode& node, double scale) const;
  QString Leaf(const MathNode& node) const;
  QString FunctionName(const QString& name) const;
  QString Call(const MathNode& node, double scale) const;
  QString Group(const MathNode& node, double scale) const;
  QString Binary(const MathNode& node, double scale) const;
  QString Product(const MathNode& left, const QString& op, const MathNode& right) const;
  QString Fraction(const MathNode& node, double scale) const;
  QString Unary(const MathNode& node, double scale) const;
  QString Power(const MathNode& node, double scale) const;
  QString Chain(const MathNode& node, double scale) const;
  QString Relation(const QString& op, bool compact) const;
  QString Radical(const MathNode& node, double scale) const;
  QString Abs(const MathNode& node, double scale) const;
  QString Declare(const MathNode& node, double scale) const;
  QString Domain(const MathNode& node, double scale) const;
  QString Table(const MathNode& node, double scale) const;
  QString Pair(const MathNode& row, double scale, const char16_t* open, const char16_t* close) const;

  Form m_form;
};

}  // namespace mathx
