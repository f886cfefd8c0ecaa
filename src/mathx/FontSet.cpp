#include "FontSet.h"

#include <QStringList>

#include <cmath>

namespace mathx {

// Fonts come in whole pixels; so does the cache.
int FontSet::Key(double pixelSize) { return std::max(1, int(std::lround(pixelSize))); }

const QFont& FontSet::Font(FontRole role, double pixelSize) const {
  const std::pair<int, int> key{int(role), Key(pixelSize)};
  auto found = m_fonts.find(key);
  if (found == m_fonts.end()) found = m_fonts.emplace(key, MakeFont(role, key.second)).first;
  return found->second;
}

QFont FontSet::MakeFont(FontRole role, int pixels) {
  QFont font;
  if (role == FontRole::Sans) font.setFamilies({QStringLiteral("DejaVu Sans"), QStringLiteral("Nimbus Sans"), QStringLiteral("Sans Serif")});
  else font.setFamilies({QStringLiteral("C059"), QStringLiteral("DejaVu Serif"), QStringLiteral("Nimbus Roman"), QStringLiteral("Serif")});
  font.setPixelSize(pixels);
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

namespace mathx {

double FontSet::Advance(FontRole role, double pixelSize, const QString& text) const {
  // Short texts only: a long plain text is measured once and would only fill the table.
  if (text.size() > 16) return Metrics(role, pixelSize).horizontalAdvance(text);
  const QString key = CacheKey(role, pixelSize, text);
  auto found = m_advances.constFind(key);
  if (found != m_advances.constEnd()) return *found;
  if (m_advances.size() > 4096) m_advances.clear();
  const double advance = Metrics(role, pixelSize).horizontalAdvance(text);
  m_advances.insert(key, advance);
  return advance;
}

}  // namespace mathx

namespace mathx {

// The text followed by two private characters for the face and the size.
QString FontSet::CacheKey(FontRole role, double pixelSize, const QString& text) {
  QString key = text;
  key += QChar(0xE000 + int(role));
  key += QChar(0xE100 + std::min(Key(pixelSize), 0x1000));
  return key;
}

QRectF FontSet::Ink(FontRole role, double pixelSize, const QString& text) const {
  const QString key = CacheKey(role, pixelSize, text);
  auto found = m_inks.constFind(key);
  if (found != m_inks.constEnd()) return *found;
  if (m_inks.size() > 1024) m_inks.clear();
  return *m_inks.insert(key, Metrics(role, pixelSize).tightBoundingRect(text));
}

const QStaticText& FontSet::Prepared(FontRole role, double pixelSize, const QString& text) const {
  const QString key = CacheKey(role, pixelSize, text);
  auto found = m_prepared.find(key);
  if (found != m_prepared.end()) return *found;
  if (m_prepared.size() > 2048) m_prepared.clear();
  QStaticText prepared(text);
  prepared.setTextFormat(Qt::PlainText);
  prepared.setPerformanceHint(QStaticText::AggressiveCaching);
  prepared.prepare(QTransform(), Font(role, pixelSize));
  return *m_prepared.insert(key, prepared);
}

}  // namespace mathx
