#include "FontSet.h"

#include <QStringList>
#include <QTextLayout>

#include <cmath>
#include <cstdint>
#include <limits>

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
  // Texts of a line's length at most: a command's phrase or a short plain row is measured again
  // on every change of its row, a long plain text would only fill the table.
  if (text.size() > 64) return Metrics(role, pixelSize).horizontalAdvance(text);
  TextKey key(role, pixelSize, text);
  auto found = m_advances.find(key);
  if (found != m_advances.end()) return found->second;
  if (m_advances.size() > 4096) m_advances.clear();
  const double advance = Metrics(role, pixelSize).horizontalAdvance(text);
  m_advances.emplace(std::move(key), advance);
  return advance;
}

}  // namespace mathx

namespace mathx {

QRectF FontSet::Ink(FontRole role, double pixelSize, const QString& text) const {
  TextKey key(role, pixelSize, text);
  auto found = m_inks.find(key);
  if (found != m_inks.end()) return found->second;
  if (m_inks.size() > 1024) m_inks.clear();
  const QRectF ink = Metrics(role, pixelSize).tightBoundingRect(text);
  return m_inks.emplace(std::move(key), ink).first->second;
}

const QList<QGlyphRun>& FontSet::Glyphs(FontRole role, double pixelSize, const QString& text) const {
  // The key holds the face and the whole pixel size the font is made in, so a new size or face
  // never finds the glyphs of another.
  TextKey key(role, pixelSize, text);
  auto found = m_glyphs.find(key);
  if (found != m_glyphs.end()) return found->second;
  if (m_glyphs.size() > 2048) m_glyphs.clear();
  QList<QGlyphRun> runs = Shape(Font(role, pixelSize), text);
  return m_glyphs.emplace(std::move(key), std::move(runs)).first->second;
}

// FNV-1a over the face, the size and the characters.
std::size_t FontSet::TextKeyHash::operator()(const TextKey& key) const {
  std::uint64_t hash = 14695981039346656037ull;
  const auto mix = [&hash](std::uint64_t value) { hash = (hash ^ value) * 1099511628211ull; };
  mix(std::uint64_t(key.role));
  mix(std::uint64_t(key.pixels));
  for (const QChar c : key.text) mix(c.unicode());
  return std::size_t(hash);
}

// Laid out line by line as a prepared plain text lays itself out, so that the glyphs stand where
// they stood when each paint laid the text out anew.
QList<QGlyphRun> FontSet::Shape(const QFont& font, const QString& text) {
  QTextLayout layout(text, font);
  double height = 0;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLeadingIncluded(true);
    line.setLineWidth(std::numeric_limits<int>::max() / 256);
    line.setPosition(QPointF(0, height));
    height += line.height();
    if (line.leading() < 0) height += std::ceil(line.leading());
  }
  layout.endLayout();
  return layout.glyphRuns();
}

}  // namespace mathx
