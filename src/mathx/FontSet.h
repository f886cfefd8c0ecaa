#pragma once

#include "LayoutBox.h"

#include <QFont>
#include <QFontMetricsF>

#include <map>
#include <utility>

namespace mathx {

// The fonts of the typeset picture, by face and pixel size, with their metrics cached: a
// schoolbook serif for mathematics (Century Schoolbook's metric twin where it is installed) and a
// sans face for commands. Needs a QGuiApplication, as all font access does.
class FontSet {
public:
  QFont Font(FontRole role, double pixelSize) const;
  const QFontMetricsF& Metrics(FontRole role, double pixelSize) const;

private:
  static int Key(double pixelSize);
  mutable std::map<std::pair<int, int>, QFontMetricsF> m_metrics;
};

}  // namespace mathx
