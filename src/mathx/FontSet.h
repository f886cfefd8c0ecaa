#pragma once

#include "LayoutBox.h"

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QRectF>
#include <QStaticText>

#include <map>
#include <utility>

namespace mathx {

// The fonts of the typeset picture, by face and pixel size, with their metrics cached: a
// schoolbook serif for mathematics (Century Schoolbook's metric twin where it is installed) and a
// sans face for commands. Needs a QGuiApplication, as all font access does.
class FontSet {
public:
  const QFont& Font(FontRole role, double pixelSize) const;
  const QFontMetricsF& Metrics(FontRole role, double pixelSize) const;
  // The advance of a text, remembered: formulas repeat their few signs and letters endlessly.
  double Advance(FontRole role, double pixelSize, const QString& text) const;
  // Where the ink of a short text lies, from its origin, remembered like the advances.
  QRectF Ink(FontRole role, double pixelSize, const QString& text) const;
  // The text laid out once for painting, kept for the next paint.
  const QStaticText& Prepared(FontRole role, double pixelSize, const QString& text) const;

private:
  static int Key(double pixelSize);
  static QString CacheKey(FontRole role, double pixelSize, const QString& text);
  static QFont MakeFont(FontRole role, int pixels);
  mutable std::map<std::pair<int, int>, QFont> m_fonts;
  mutable std::map<std::pair<int, int>, QFontMetricsF> m_metrics;
  mutable QHash<QString, double> m_advances;
  mutable QHash<QString, QRectF> m_inks;
  mutable QHash<QString, QStaticText> m_prepared;
};

}  // namespace mathx
