#pragma once

#include "FontSet.h"
#include "LayoutBox.h"
#include "MathNode.h"

#include <array>
#include <vector>

namespace mathx {

// Sets a parsed row as a mathematician writes it: powers raised, built-up fractions, radicals,
// bars, Greek letters, conditions behind the equation, point lists as tables, commands as
// phrases. The boxes carry the caret's slots, so that the editor can put the caret anywhere the
// text can be changed.
class Typesetter {
public:
  Typesetter(const FontSet& fonts, double pixelSize) : m_fonts(fonts), m_size(pixelSize) {}

  LayoutBox Layout(const MathNode& node) const;

private:
  LayoutBox Set(const MathNode& node, double size) const;

  LayoutBox Text(const QString& text, FontRole role, double size, int begin, int end, bool verbatim) const;
  LayoutBox Operator(const QString& glyph, double size, SourceRange source, double spaceBefore,
                     double spaceAfter) const;
  LayoutBox Space(double width) const;
  LayoutBox Fence(QChar fence, const LayoutBox& content, double size, SourceRange source) const;

  LayoutBox Leaf(const MathNode& node, double size) const;
  LayoutBox Call(const MathNode& node, double size) const;
  LayoutBox Group(const MathNode& node, double size) const;
  LayoutBox Binary(const MathNode& node, double size) const;
  LayoutBox Quotient(const MathNode& node, double size) const;
  LayoutBox Fraction(const MathNode& node, double size) const;
  LayoutBox Unary(const MathNode& node, double size) const;
  LayoutBox Power(const MathNode& node, double size) const;
  LayoutBox Chain(const MathNode& node, double size) const;
  LayoutBox Radical(const MathNode& node, double size) const;
  LayoutBox Abs(const MathNode& node, double size) const;
  LayoutBox Declare(const MathNode& node, double size) const;
  LayoutBox Domain(const MathNode& node, double size) const;
  LayoutBox Table(const MathNode& node, double size) const;
  // The measures of a point list: its two columns' widths, the cells' padding, the lines' width.
  struct TableGeometry {
    std::array<double, 2> columns;
    double padX = 0;
    double padY = 0;
    double rule = 0;
    double Width() const { return columns[0] + columns[1] + 4 * padX; }
  };
  LayoutBox TableLine(const MathNode& row, std::array<LayoutBox, 2> cells, const TableGeometry& g,
                      LayoutBox::Role role) const;
  void TableCarets(const MathNode& node, const std::vector<LayoutBox>& lines, LayoutBox& table) const;
  LayoutBox Command(const MathNode& node, double size) const;
  LayoutBox Placeholder(const MathNode& node, double size) const;

  const FontSet& m_fonts;
  double m_size;
};

}  // namespace mathx
