#include "FontSet.h"

#include <QStringList>

#include <cmath>

namespace mathx {

// Sizes are kept to a quarter of a pixel, so that the cache stays small.
int FontSet::Key(double pixelSize) { return int(std::lround(pixelSize * 4)); }

QFont FontSet::Font(FontRole role, double pixelSize) const {
  QFont font;
  if (role == FontRole::Sans) font.setFamilies({QStringLiteral("DejaVu Sans"), QStringLiteral("Nimbus Sans"), QStringLiteral("Sans Serif")});
  else font.setFamilies({QStringLiteral("C059"), QStringLiteral("DejaVu Serif"), QStringLiteral("Nimbus Roman"), QStringLiteral("Serif")});
  font.setPixelSize(std::max(1, int(std::lround(Key(pixelSize) / 4.0))));
  font.setItalic(role == FontRole::Italic);
  font.setStyleStrategy(QFont::PreferAntialias);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

const QFontMetricsF& FontSet::Metrics(FontRole role, double pixelSize) const {
  const std::pair<int, int> key{int(role), Key(pixelSize)};
  auto found = m_metrics.find(key);
  if (found == m_metrics.end()) found = m_metrics.emplace(key, QFontMetricsF(Font(role, pixelSize))).first;
  return found->second;
}

}  // namespace mathx
