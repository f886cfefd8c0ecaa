#pragma once

#include "FontSet.h"
#include "LayoutBox.h"
#include "MathNode.h"

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

class QPainter;

namespace mathx {

// A place of the caret in the picture: before the character at position, a line at x from top
// to bottom.
struct CaretPlace {
  int position = 0;
  double x = 0;
  double top = 0;
  double bottom = 0;
};

// A row text with its typeset picture: parsed, laid out, and ready to paint, with the places the
// caret may stand. The text is kept exactly as given. Coordinates are pixels from the top-left
// corner of the picture, which has a small margin round the formula.
class Formula {
public:
  Formula();

  void SetText(const QString& text);
  const QString& Text() const { return m_text; }
  // The size of the base font in pixels.
  void SetPixelSize(double pixelSize);
  double PixelSize() const { return m_pixelSize; }

  const MathNode& Node() const { return m_node; }
  const LayoutBox& Box() const { return m_box; }
  // Where the formula's origin (left edge, baseline) lies in the picture.
  QPointF Origin() const;
  QSizeF Size() const;

  void Paint(QPainter& painter, QPointF topLeft, const QColor& color) const;
  // The picture alone on a transparent background.
  QImage Render(const QColor& color, double devicePixelRatio = 1.0) const;

  // The caret's places in the picture, one per text position that has one, by position.
  const std::vector<CaretPlace>& Places() const { return m_slots; }
  // The place of position, or of the nearest position before it that has one.
  CaretPlace PlaceOf(int position) const;
  // The position whose place is nearest to a point of the picture.
  int PositionAt(QPointF point) const;
  // The position nearest above or below position's place, as Up and Down move the caret between
  // a numerator and its denominator or between the lines of a table; position itself when
  // nothing lies there.
  int PositionAbove(int position) const;
  int PositionBelow(int position) const;
  // The characters shown by the innermost box under a point (a number, a name, a sign; a
  // fraction's bar or a radical's sign stands for the whole of it), or nothing there.
  std::optional<std::pair<int, int>> PieceAt(QPointF point) const;
  // The rectangles that show the characters from..to as selected.
  std::vector<QRectF> SelectionRects(int from, int to) const;

  const FontSet& Fonts() const { return m_fonts; }

private:
  void Rebuild();
  int PositionBeside(int position, bool above) const;

  FontSet m_fonts;
  QString m_text;
  double m_pixelSize = 16;
  MathNode m_node;
  LayoutBox m_box;
  std::vector<CaretPlace> m_slots;
};

}  // namespace mathx
