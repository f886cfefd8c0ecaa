#pragma once

#include <QColor>

namespace render {

// How well one colour reads on another, as the accessibility guidelines measure it: the ratio of
// the two relative luminances (each plus 0.05), from 1 (the same) to 21 (black on white). Text
// wants at least 4.5, lines and marks at least 3.
class Contrast {
public:
  static double Luminance(const QColor& color);
  static double Ratio(const QColor& first, const QColor& second);
  // The colour itself when it reaches the ratio on back; else the colour mixed with white (on a
  // dark back) or black (on a light one) just far enough to reach it, so that a chosen hue stays
  // recognisable.
  static QColor ReadableOn(const QColor& color, const QColor& back, double ratio);
};

}  // namespace render
