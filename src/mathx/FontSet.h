#pragma once

#include "LayoutBox.h"

#include <QFont>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QList>
#include <QRectF>

#include <cstddef>
#include <map>
#include <unordered_map>
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
  // The text shaped once into glyphs for painting, kept for the next paint: placed with the top
  // of its line at the origin, as a prepared text would be.
  const QList<QGlyphRun>& Glyphs(FontRole role, double pixelSize, const QString& text) const;

private:
  static int Key(double pixelSize);
  static QFont MakeFont(FontRole role, int pixels);
  static QList<QGlyphRun> Shape(const QFont& font, const QString& text);
  // A text in a face and a whole pixel size, hashed by hand: Qt's string hash, run between the
  // glyphs' blits, left the blending of the glyphs that followed it several times slower, and
  // a key of its own needs no string built for every look-up.
  struct TextKey {
    QString text;
    int role = 0;
    int pixels = 0;
    TextKey(FontRole face, double pixelSize, const QString& string)
        : text(string), role(int(face)), pixels(Key(pixelSize)) {}
    bool operator==(const TextKey& other) const {
      return role == other.role && pixels == other.pixels && text == other.text;
    }
  };
  struct TextKeyHash {
    std::size_t operator()(const TextKey& key) const;
  };
  mutable std::map<std::pair<int, int>, QFont> m_fonts;
  mutable std::map<std::pair<int, int>, QFontMetricsF> m_metrics;
  mutable std::unordered_map<TextKey, double, TextKeyHash> m_advances;
  mutable std::unordered_map<TextKey, QRectF, TextKeyHash> m_inks;
  mutable std::unordered_map<TextKey, QList<QGlyphRun>, TextKeyHash> m_glyphs;
};

}  // namespace mathx
