#include "RtfWriter.h"

#include "core/Windows1252.h"

#include "RtfReader.h"

#include <QFont>
#include <QTextBlock>
#include <QTextCharFormat>
#include <QTextDocument>

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace project {

namespace {

// The sizes a font may have in RTF, in half-points (the reader keeps to the same range).
constexpr int kMinHalfPoints = 2;
constexpr int kMaxHalfPoints = 3276;

// A fragment's formatting as RTF can say it, resolved against the default font.
struct Style {
  QString family;
  int halfPoints = 24;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strike = false;
  std::optional<QRgb> colour;  // none: the automatic colour
  bool operator==(const Style&) const = default;
};

int HalfPoints(const QFont& font) {
  double points = font.pointSizeF();
  if (points <= 0) points = font.pixelSize() > 0 ? font.pixelSize() * 0.75 : 12.0;  // 96 pixels an inch
  return std::clamp(static_cast<int>(std::lround(points * 2)), kMinHalfPoints, kMaxHalfPoints);
}

Style StyleOf(const QTextCharFormat& format, const QFont& base) {
  const QFont font = format.font().resolve(base);
  Style style;
  style.family = font.family();
  style.halfPoints = HalfPoints(font);
  style.bold = font.weight() >= QFont::DemiBold;
  style.italic = font.italic();
  // Every kind of underline counts, the spell checker's wave excepted; QFont knows one kind only.
  if (format.hasProperty(QTextFormat::TextUnderlineStyle)) {
    const QTextCharFormat::UnderlineStyle underline = format.underlineStyle();
    style.underline = underline != QTextCharFormat::NoUnderline && underline != QTextCharFormat::SpellCheckUnderline;
  } else {
    style.underline = font.underline();
  }
  style.strike = font.strikeOut();
  if (format.hasProperty(QTextFormat::ForegroundBrush) && format.foreground().style() != Qt::NoBrush) {
    style.colour = format.foreground().color().rgb();
  }
  return style;
}

Style PlainStyle(const QFont& base) { return StyleOf(QTextCharFormat(), base); }

bool IsObject(const QTextCharFormat& format) { return format.objectType() != QTextFormat::NoObject; }

enum class Align { Left, Centre, Right, Justify };

Align AlignOf(const QTextBlock& block) {
  const Qt::Alignment alignment = block.blockFormat().alignment() & Qt::AlignHorizontal_Mask;
  if (alignment & Qt::AlignJustify) return Align::Justify;
  if (alignment & Qt::AlignHCenter) return Align::Centre;
  if (alignment & (Qt::AlignRight | Qt::AlignTrailing)) return Align::Right;
  return Align::Left;
}

void AppendHexByte(QString& out, unsigned char byte) {
  static const char digits[] = "0123456789abcdef";
  out += QLatin1String("\\'");
  out += QLatin1Char(digits[byte >> 4]);
  out += QLatin1Char(digits[byte & 15]);
}

// Text as RTF: ASCII as it is with \, { and } escaped; tabs and line breaks as control words;
// the rest as code page bytes or Unicode numbers with "?" for readers that know none. In names
// of the font table the ";" that would end the entry is escaped as well.
void AppendText(QString& out, QStringView text, bool inName) {
  for (const QChar qc : text) {
    const char16_t c = qc.unicode();
    if (c == u'\\' || c == u'{' || c == u'}') {
      out += QLatin1Char('\\');
      out += QLatin1Char(static_cast<char>(c));
    } else if (inName && c == u';') {
      AppendHexByte(out, ';');
    } else if (c >= 0x20 && c < 0x7F) {
      out += QLatin1Char(static_cast<char>(c));
    } else if (c == u'\t' && !inName) {
      out += QLatin1String("\\tab ");
    } else if (c == 0x2028 && !inName) {
      out += QLatin1String("\\line ");
    } else if (c == 0 || c == u'\r' || c == u'\n' || c == 0x2029 || c == 0xFDD0 || c == 0xFDD1) {
      // structure of the document, not text
    } else if (const std::optional<unsigned char> byte = core::ToWindows1252(c)) {
      AppendHexByte(out, *byte);
    } else {
      out += QLatin1String("\\u");
      out += QString::number(c < 0x8000 ? int(c) : int(c) - 0x10000);
      out += QLatin1Char('?');
    }
  }
}

class Writer {
public:
  explicit Writer(const QTextDocument& document) : m_document(document), m_base(document.defaultFont()) {}
  QString Write();

private:
  int FontIndex(const QString& family);
  int ColourIndex(std::optional<QRgb> colour);
  bool Change(const Style& style, QString& out);

  const QTextDocument& m_document;
  QFont m_base;
  std::vector<QString> m_fonts;
  std::vector<QRgb> m_colours;
  std::optional<Style> m_current;  // what the body has set so far
};

int Writer::FontIndex(const QString& family) {
  const auto found = std::find(m_fonts.begin(), m_fonts.end(), family);
  if (found != m_fonts.end()) return static_cast<int>(found - m_fonts.begin());
  m_fonts.push_back(family);
  return static_cast<int>(m_fonts.size()) - 1;
}

// 0 is the automatic colour, the empty first entry of the table.
int Writer::ColourIndex(std::optional<QRgb> colour) {
  if (!colour) return 0;
  const auto found = std::find(m_colours.begin(), m_colours.end(), *colour);
  if (found != m_colours.end()) return static_cast<int>(found - m_colours.begin()) + 1;
  m_colours.push_back(*colour);
  return static_cast<int>(m_colours.size());
}

// The control words that take the body from the formatting it has to the one given: all of
// them the first time, the differences after that, with the space that ends them. True when
// anything was written.
bool Writer::Change(const Style& style, QString& out) {
  const bool all = !m_current;
  const Style was = m_current.value_or(Style{});
  const qsizetype start = out.size();
  if (all || style.family != was.family) out += QLatin1String("\\f") + QString::number(FontIndex(style.family));
  if (all || style.halfPoints != was.halfPoints) out += QLatin1String("\\fs") + QString::number(style.halfPoints);
  if (style.bold != was.bold) out += QLatin1String(style.bold ? "\\b" : "\\b0");
  if (style.italic != was.italic) out += QLatin1String(style.italic ? "\\i" : "\\i0");
  if (style.underline != was.underline) out += QLatin1String(style.underline ? "\\ul" : "\\ulnone");
  if (style.strike != was.strike) out += QLatin1String(style.strike ? "\\strike" : "\\strike0");
  if (style.colour != was.colour) out += QLatin1String("\\cf") + QString::number(ColourIndex(style.colour));
  m_current = style;
  if (out.size() == start) return false;
  out += QLatin1Char(' ');
  return true;
}

QString Writer::Write() {
  // The body first: it finds the fonts and colours that the tables in front of it list.
  FontIndex(m_base.family());
  QString body;
  for (QTextBlock block = m_document.begin(); block.isValid(); block = block.next()) {
    body += QLatin1String("\r\n\\pard");
    bool delimit = true;  // the paragraph's control words need a delimiter before text
    switch (AlignOf(block)) {
      case Align::Centre: body += QLatin1String("\\qc"); break;
      case Align::Right: body += QLatin1String("\\qr"); break;
      case Align::Justify: body += QLatin1String("\\qj"); break;
      case Align::Left: break;
    }
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextFragment fragment = it.fragment();
      const QTextCharFormat format = fragment.charFormat();
      if (IsObject(format)) continue;
      QString text;
      AppendText(text, fragment.text(), false);
      if (text.isEmpty()) continue;
      if (Change(StyleOf(format, m_base), body)) delimit = false;
      // A control word ends at the first character that is no letter or digit; a space after
      // it is taken as part of it.
      if (delimit && !text.startsWith(u'\\')) body += QLatin1Char(' ');
      delimit = false;
      body += text;
    }
    body += QLatin1String("\\par");
  }

  QString out = QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl");
  for (std::size_t i = 0; i < m_fonts.size(); ++i) {
    out += QLatin1String("{\\f") + QString::number(i) + QLatin1String("\\fnil\\fcharset0 ");
    AppendText(out, m_fonts[i], true);
    out += QLatin1String(";}");
  }
  out += QLatin1String("}\r\n{\\colortbl ;");
  for (const QRgb colour : m_colours) {
    out += QLatin1String("\\red") + QString::number(qRed(colour)) + QLatin1String("\\green") +
           QString::number(qGreen(colour)) + QLatin1String("\\blue") + QString::number(qBlue(colour)) +
           QLatin1Char(';');
  }
  out += QLatin1Char('}');
  out += body;
  out += QLatin1String("\r\n}");
  return out;
}

}  // namespace

QString RtfWriter::Write(const QTextDocument& document) { return Writer(document).Write(); }

bool RtfWriter::HasFormatting(const QTextDocument& document, const QFont& plainFont) {
  const Style plain = PlainStyle(plainFont);
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    if (AlignOf(block) != Align::Left) return true;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextCharFormat format = it.fragment().charFormat();
      if (IsObject(format) || !(StyleOf(format, plainFont) == plain)) return true;
    }
  }
  return false;
}

bool RtfWriter::HasFormatting(const QTextDocument& document) {
  return HasFormatting(document, document.defaultFont());
}

}  // namespace project
