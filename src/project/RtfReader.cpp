#include "RtfReader.h"

#include "core/Windows1252.h"

#include <QColor>
#include <QStringDecoder>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace project {

namespace {

// Windows-1252 differs from Latin-1 in the bytes 0x80 to 0x9F alone.
// Groups nested deeper than this are passed over whole: no document needs them, and the saved
// states of a malicious nesting would otherwise grow with it.
constexpr std::size_t kMaxDepth = 256;
// Letters of a control word that are told apart; longer words are read whole and match nothing.
constexpr std::size_t kMaxWordLength = 32;
// The longest font name that is kept.
constexpr qsizetype kMaxFontName = 256;
// Font sizes in half-points, as far as word processors allow them (1 to 1638 points).
constexpr int kMinHalfPoints = 2;
constexpr int kMaxHalfPoints = 3276;

enum class Destination : std::uint8_t { Text, Skip, FontTable, ColourTable };
enum class Align : std::uint8_t { Left, Centre, Right, Justify };

// The character formatting in effect, in the document's own terms: numbers into its tables.
struct CharState {
  int font = -1;       // -1: the default font (\deff)
  int halfPoints = 0;  // 0: the size of the document that reads it
  int colour = 0;      // 0: the automatic colour
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strike = false;
  bool operator==(const CharState&) const = default;
};

// What a group saves and its closing brace restores.
struct GroupState {
  CharState chars;
  Align align = Align::Left;
  int unicodeSkip = 1;  // \ucN: characters of fallback after each \uN
  Destination destination = Destination::Text;
};

struct Run {
  CharState style;
  QString text;
};

struct Paragraph {
  Align align = Align::Left;
  std::vector<Run> runs;
  bool Empty() const {
    return std::all_of(runs.begin(), runs.end(), [](const Run& run) { return run.text.isEmpty(); });
  }
};

enum class Word : std::uint8_t {
  Par, Line, Tab, Cell, Row, Plain, Pard, Bold, Italic, Underline, UnderlineNone, Strike,
  FontSize, Colour, Font, DefaultFont, Left, Centre, Right, Justify, Unicode, UnicodeSkip, Bin,
  Red, Green, Blue, FontTable, ColourTable, SkipDestination, Character,
};

struct WordMeaning {
  Word word;
  char16_t character = 0;  // of Word::Character
};

const std::unordered_map<std::string_view, WordMeaning>& Words() {
  static const std::unordered_map<std::string_view, WordMeaning> words = [] {
    std::unordered_map<std::string_view, WordMeaning> table = {
        {"par", {Word::Par}}, {"sect", {Word::Par}}, {"page", {Word::Par}},
        {"line", {Word::Line}}, {"tab", {Word::Tab}},
        {"cell", {Word::Cell}}, {"nestcell", {Word::Cell}},
        {"row", {Word::Row}}, {"nestrow", {Word::Row}},
        {"plain", {Word::Plain}}, {"pard", {Word::Pard}},
        {"b", {Word::Bold}}, {"i", {Word::Italic}},
        {"ulnone", {Word::UnderlineNone}},
        {"strike", {Word::Strike}}, {"striked", {Word::Strike}},
        {"fs", {Word::FontSize}}, {"cf", {Word::Colour}}, {"f", {Word::Font}},
        {"deff", {Word::DefaultFont}},
        {"ql", {Word::Left}}, {"qc", {Word::Centre}}, {"qr", {Word::Right}}, {"qj", {Word::Justify}},
        {"u", {Word::Unicode}}, {"uc", {Word::UnicodeSkip}}, {"bin", {Word::Bin}},
        {"red", {Word::Red}}, {"green", {Word::Green}}, {"blue", {Word::Blue}},
        {"fonttbl", {Word::FontTable}}, {"colortbl", {Word::ColourTable}},
        {"emdash", {Word::Character, 0x2014}}, {"endash", {Word::Character, 0x2013}},
        {"emspace", {Word::Character, 0x2003}}, {"enspace", {Word::Character, 0x2002}},
        {"qmspace", {Word::Character, 0x2005}}, {"bullet", {Word::Character, 0x2022}},
        {"lquote", {Word::Character, 0x2018}}, {"rquote", {Word::Character, 0x2019}},
        {"ldblquote", {Word::Character, 0x201C}}, {"rdblquote", {Word::Character, 0x201D}},
        {"zwj", {Word::Character, 0x200D}}, {"zwnj", {Word::Character, 0x200C}},
        {"zwbo", {Word::Character, 0x200B}},
        {"ltrmark", {Word::Character, 0x200E}}, {"rtlmark", {Word::Character, 0x200F}},
    };
    // Every kind of underline is an underline here.
    for (const std::string_view kind :
         {"ul", "uld", "uldash", "uldashd", "uldashdd", "uldb", "ulhwave", "ulldash", "ulth",
          "ulthd", "ulthdash", "ulthdashd", "ulthdashdd", "ulthldash", "ululdbwave", "ulw", "ulwave"}) {
      table.emplace(kind, WordMeaning{Word::Underline});
    }
    // Destinations whose content is not text of the document. Those written behind "\*" need
    // no entry: an ignorable destination is passed over whatever its name.
    for (const std::string_view name :
         {"stylesheet", "info", "pict", "object", "nonshppict", "shp", "header", "headerl",
          "headerr", "headerf", "footer", "footerl", "footerr", "footerf", "footnote",
          "annotation", "atnid", "atnauthor", "fldinst", "listtable", "listoverridetable",
          "revtbl", "rsidtbl", "generator", "xmlnstbl", "themedata", "colorschememapping",
          "latentstyles", "datastore", "pgdsctbl", "filetbl", "mmathPr", "bkmkstart", "bkmkend",
          "userprops", "docvar", "template", "xe", "tc", "txe", "pn", "pntxta", "pntxtb",
          "ftnsep", "ftnsepc", "ftncn", "aftnsep", "aftnsepc", "aftncn", "title", "subject",
          "author", "operator", "keywords", "comment", "doccomm", "company", "creatim", "revtim",
          "printim", "buptim", "private"}) {
      table.emplace(name, WordMeaning{Word::SkipDestination});
    }
    return table;
  }();
  return words;
}

bool IsAsciiLetter(QChar c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

int HexValue(QChar c) {
  if (c >= u'0' && c <= u'9') return c.unicode() - u'0';
  if (c >= u'a' && c <= u'f') return c.unicode() - u'a' + 10;
  if (c >= u'A' && c <= u'F') return c.unicode() - u'A' + 10;
  return -1;
}

// Characters that cannot stand in a block's text: QTextCursor would turn the line and paragraph
// separators and the frame markers into structure, and a NUL is no text.
bool IsStructural(char16_t c) {
  return c == 0 || c == u'\r' || c == u'\n' || c == 0x2029 || c == 0xFDD0 || c == 0xFDD1;
}

// The tokenizer and parser in one pass over the text. In byte mode every character of the
// input is a byte of the file (decoded one to one), and bytes beyond ASCII are Windows-1252.
class Parser {
public:
  Parser(QStringView input, bool bytes) : m_in(input), m_bytes(bytes) { m_paragraphs.emplace_back(); }

  void Parse();
  void Build(QTextDocument& into) const;

private:
  void OpenGroup();
  bool CloseGroup();
  void ControlWord();
  void ControlSymbol(QChar symbol);
  void HandleWord(std::string_view name, bool hasParameter, int parameter);
  bool ConsumeFallback();
  void RawCharacter(QChar c);
  void Character(char16_t c);
  void Text(char16_t c);
  void EndParagraph();
  void FinishFont();
  void FinishColour();
  bool Skipping() const { return m_overflow > 0 || m_state.destination == Destination::Skip; }
  QTextCharFormat FormatFor(const CharState& style) const;

  QStringView m_in;
  qsizetype m_pos = 0;
  bool m_bytes;

  GroupState m_state;
  std::vector<GroupState> m_stack;
  int m_overflow = 0;      // open groups beyond kMaxDepth, passed over
  int m_pendingSkip = 0;   // fallback characters of the last \uN still to pass over

  int m_defaultFont = 0;
  std::map<int, QString> m_fonts;
  std::optional<int> m_fontNumber;  // the font table entry being read
  QString m_fontName;
  std::vector<std::optional<QRgb>> m_colours;
  std::array<int, 3> m_rgb{};
  bool m_colourGiven = false;

  std::vector<Paragraph> m_paragraphs;
  bool m_lastOpenedByPar = false;
};

void Parser::Parse() {
  const qsizetype size = m_in.size();
  m_pos = std::max<qsizetype>(m_in.indexOf(u'{'), 0);  // past white space and a byte order mark
  while (m_pos < size) {
    const QChar c = m_in[m_pos];
    if (c == u'{') {
      ++m_pos;
      OpenGroup();
    } else if (c == u'}') {
      ++m_pos;
      if (!CloseGroup()) return;
    } else if (c == u'\\') {
      ++m_pos;
      if (m_pos >= size) break;
      const QChar next = m_in[m_pos];
      if (IsAsciiLetter(next)) {
        ControlWord();
      } else {
        ++m_pos;
        ControlSymbol(next);
      }
    } else {
      ++m_pos;
      RawCharacter(c);
    }
  }
  // The input ended inside a group: keep what was read.
  m_paragraphs.back().align = m_state.align;
}

void Parser::OpenGroup() {
  m_pendingSkip = 0;
  if (m_overflow > 0 || m_stack.size() >= kMaxDepth) {
    ++m_overflow;
    return;
  }
  m_stack.push_back(m_state);
}

// False when the outermost group has closed, which ends the document.
bool Parser::CloseGroup() {
  m_pendingSkip = 0;
  if (m_overflow > 0) {
    --m_overflow;
    return true;
  }
  if (m_state.destination == Destination::FontTable) FinishFont();
  if (m_stack.empty()) return false;
  if (m_stack.size() == 1) {
    m_paragraphs.back().align = m_state.align;
    return false;
  }
  m_state = m_stack.back();
  m_stack.pop_back();
  return true;
}

void Parser::ControlWord() {
  const qsizetype size = m_in.size();
  const qsizetype start = m_pos;
  while (m_pos < size && IsAsciiLetter(m_in[m_pos])) ++m_pos;
  const qsizetype length = m_pos - start;
  std::array<char, kMaxWordLength> letters{};
  std::string_view name;
  if (static_cast<std::size_t>(length) <= kMaxWordLength) {
    for (qsizetype i = 0; i < length; ++i) {
      letters[static_cast<std::size_t>(i)] = static_cast<char>(m_in[start + i].unicode());
    }
    name = std::string_view(letters.data(), static_cast<std::size_t>(length));
  }

  bool negative = false;
  if (m_pos + 1 < size && m_in[m_pos] == u'-' && IsDigit(m_in[m_pos + 1])) {
    negative = true;
    ++m_pos;
  }
  const bool hasParameter = m_pos < size && IsDigit(m_in[m_pos]);
  std::int64_t value = 0;
  while (m_pos < size && IsDigit(m_in[m_pos])) {
    // Digits beyond the range of int are read and saturate.
    value = std::min<std::int64_t>(value * 10 + (m_in[m_pos].unicode() - u'0'), std::int64_t{1} << 32);
    ++m_pos;
  }
  if (negative) value = -value;
  const int parameter = static_cast<int>(std::clamp<std::int64_t>(value, INT32_MIN, INT32_MAX));
  if (m_pos < size && m_in[m_pos] == u' ') ++m_pos;  // the delimiter belongs to the word

  HandleWord(name, hasParameter, parameter);
}

// Passes over one character of the fallback that follows \uN; true when the token was one.
bool Parser::ConsumeFallback() {
  if (m_pendingSkip <= 0) return false;
  --m_pendingSkip;
  return true;
}

void Parser::HandleWord(std::string_view name, bool hasParameter, int parameter) {
  const auto& words = Words();
  const auto found = words.find(name);
  if (found == words.end()) {
    ConsumeFallback();
    return;
  }
  const WordMeaning meaning = found->second;
  if (meaning.word == Word::Bin) {
    // Binary data: the parameter counts the bytes that follow, whatever they are.
    if (hasParameter && parameter > 0) m_pos = std::min<qsizetype>(m_in.size(), m_pos + parameter);
    ConsumeFallback();
    return;
  }
  if (ConsumeFallback() || Skipping()) return;

  const bool on = !hasParameter || parameter != 0;
  CharState& chars = m_state.chars;
  switch (m_state.destination) {
    case Destination::FontTable:
      // Entries are "\fN ... name;": the number, then the name as text.
      if (meaning.word == Word::Font && hasParameter) {
        FinishFont();
        m_fontNumber = parameter;
        m_fontName.clear();
        return;
      }
      if (meaning.word == Word::SkipDestination) {
        m_state.destination = Destination::Skip;
        return;
      }
      if (meaning.word == Word::Unicode || meaning.word == Word::UnicodeSkip || meaning.word == Word::Character) break;
      return;
    case Destination::ColourTable: {
      // Entries are "\redR\greenG\blueB;", or a bare ";" for the automatic colour.
      const int component = meaning.word == Word::Red     ? 0
                            : meaning.word == Word::Green ? 1
                            : meaning.word == Word::Blue  ? 2
                                                          : -1;
      if (component >= 0) {
        m_rgb[static_cast<std::size_t>(component)] = std::clamp(parameter, 0, 255);
        m_colourGiven = true;
      }
      if (meaning.word == Word::SkipDestination) m_state.destination = Destination::Skip;
      return;
    }
    case Destination::Skip:  // not reached: Skipping() above
    case Destination::Text: break;
  }

  switch (meaning.word) {
    case Word::Par: EndParagraph(); break;
    case Word::Row: EndParagraph(); break;
    case Word::Line: Text(0x2028); break;
    case Word::Tab:
    case Word::Cell: Text(u'\t'); break;
    case Word::Plain: chars = CharState{}; break;
    case Word::Pard: m_state.align = Align::Left; break;
    case Word::Bold: chars.bold = on; break;
    case Word::Italic: chars.italic = on; break;
    case Word::Underline: chars.underline = on; break;
    case Word::UnderlineNone: chars.underline = false; break;
    case Word::Strike: chars.strike = on; break;
    case Word::FontSize:
      if (parameter > 0) chars.halfPoints = std::clamp(parameter, kMinHalfPoints, kMaxHalfPoints);
      break;
    case Word::Colour: chars.colour = std::max(parameter, 0); break;
    case Word::Font:
      if (hasParameter) chars.font = parameter;
      break;
    case Word::DefaultFont:
      if (hasParameter) m_defaultFont = parameter;
      break;
    case Word::Left: m_state.align = Align::Left; break;
    case Word::Centre: m_state.align = Align::Centre; break;
    case Word::Right: m_state.align = Align::Right; break;
    case Word::Justify: m_state.align = Align::Justify; break;
    case Word::Unicode:
      if (!hasParameter) break;
      // A signed 16-bit number; the halves of a pair come as two numbers, one after the other.
      if (parameter >= -32768 && parameter < 0) {
        Character(static_cast<char16_t>(parameter + 65536));
      } else if (parameter >= 0 && parameter <= 0xFFFF) {
        Character(static_cast<char16_t>(parameter));
      } else {
        Character(0xFFFD);
      }
      m_pendingSkip = m_state.unicodeSkip;
      break;
    case Word::UnicodeSkip:
      if (hasParameter) m_state.unicodeSkip = std::max(parameter, 0);
      break;
    case Word::Character: Character(meaning.character); break;
    case Word::FontTable:
      m_state.destination = Destination::FontTable;
      m_fontNumber.reset();
      m_fontName.clear();
      break;
    case Word::ColourTable:
      m_state.destination = Destination::ColourTable;
      m_rgb = {};
      m_colourGiven = false;
      break;
    case Word::SkipDestination: m_state.destination = Destination::Skip; break;
    case Word::Red:
    case Word::Green:
    case Word::Blue:
    case Word::Bin: break;
  }
}

void Parser::ControlSymbol(QChar symbol) {
  switch (symbol.unicode()) {
    case u'\'': {
      // A byte of the code page in two hex digits; a truncated escape keeps what it has.
      int byte = -1;
      for (int digits = 0; digits < 2 && m_pos < m_in.size(); ++digits) {
        const int value = HexValue(m_in[m_pos]);
        if (value < 0) break;
        byte = (byte < 0 ? 0 : byte * 16) + value;
        ++m_pos;
      }
      if (ConsumeFallback() || byte < 0) return;
      Character(RtfReader::FromWindows1252(static_cast<unsigned char>(byte)));
      return;
    }
    case u'*':
      // An ignorable destination: none that this reader needs is written behind "\*".
      if (ConsumeFallback()) return;
      if (m_overflow == 0) m_state.destination = Destination::Skip;
      return;
    case u'\r':
    case u'\n':
      if (ConsumeFallback() || Skipping()) return;
      if (m_state.destination == Destination::Text) EndParagraph();
      return;
    default: break;
  }
  if (ConsumeFallback()) return;
  switch (symbol.unicode()) {
    case u'\\':
    case u'{':
    case u'}': Character(symbol.unicode()); break;
    case u'~': Character(0x00A0); break;
    case u'-': Character(0x00AD); break;
    case u'_': Character(0x2011); break;
    default: break;  // \| \: and other symbols of formulas and indexes
  }
}

void Parser::RawCharacter(QChar c) {
  if (c == u'\r' || c == u'\n') return;  // line ends of the file are no text
  if (ConsumeFallback() || Skipping()) return;
  if (c == u';') {
    if (m_state.destination == Destination::FontTable) {
      FinishFont();
      return;
    }
    if (m_state.destination == Destination::ColourTable) {
      FinishColour();
      return;
    }
  }
  char16_t unit = c.unicode();
  if (m_bytes && unit >= 0x80 && unit <= 0xFF) unit = RtfReader::FromWindows1252(static_cast<unsigned char>(unit));
  Character(unit);
}

// A character of text, from the text itself or from an escape: where it goes depends on the
// destination.
void Parser::Character(char16_t c) {
  if (Skipping()) return;
  switch (m_state.destination) {
    case Destination::Text:
      if (c == 0x2029) {
        EndParagraph();
      } else if (!IsStructural(c)) {
        Text(c);
      }
      return;
    case Destination::FontTable:
      if (m_fontNumber && !IsStructural(c) && m_fontName.size() < kMaxFontName) m_fontName.append(QChar(c));
      return;
    case Destination::ColourTable:
    case Destination::Skip: return;
  }
}

void Parser::Text(char16_t c) {
  if (Skipping() || m_state.destination != Destination::Text) return;
  std::vector<Run>& runs = m_paragraphs.back().runs;
  if (runs.empty() || !(runs.back().style == m_state.chars)) runs.push_back({m_state.chars, QString()});
  runs.back().text.append(QChar(c));
}

void Parser::EndParagraph() {
  m_paragraphs.back().align = m_state.align;
  m_paragraphs.emplace_back();
  m_lastOpenedByPar = true;
}

void Parser::FinishFont() {
  if (m_fontNumber) m_fonts[*m_fontNumber] = m_fontName.trimmed();
  m_fontNumber.reset();
  m_fontName.clear();
}

void Parser::FinishColour() {
  m_colours.push_back(m_colourGiven ? std::optional<QRgb>(qRgb(m_rgb[0], m_rgb[1], m_rgb[2])) : std::nullopt);
  m_rgb = {};
  m_colourGiven = false;
}

QTextCharFormat Parser::FormatFor(const CharState& style) const {
  QTextCharFormat format;
  const auto font = m_fonts.find(style.font >= 0 ? style.font : m_defaultFont);
  if (font != m_fonts.end() && !font->second.isEmpty()) format.setFontFamilies(QStringList{font->second});
  if (style.halfPoints > 0) format.setFontPointSize(style.halfPoints / 2.0);
  if (style.bold) format.setFontWeight(QFont::Bold);
  if (style.italic) format.setFontItalic(true);
  if (style.underline) format.setFontUnderline(true);
  if (style.strike) format.setFontStrikeOut(true);
  if (style.colour > 0 && static_cast<std::size_t>(style.colour) < m_colours.size()) {
    if (const std::optional<QRgb> colour = m_colours[static_cast<std::size_t>(style.colour)]) {
      format.setForeground(QColor(*colour));
    }
  }
  return format;
}

// Halves of surrogate pairs that lost their partner become replacement characters.
QString WellFormed(QString text) {
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = text[i];
    if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
      ++i;
    } else if (c.isSurrogate()) {
      text[i] = QChar(QChar::ReplacementCharacter);
    }
  }
  return text;
}

Qt::Alignment AlignmentOf(Align align) {
  switch (align) {
    case Align::Centre: return Qt::AlignHCenter;
    case Align::Right: return Qt::AlignRight;
    case Align::Justify: return Qt::AlignJustify;
    case Align::Left: break;
  }
  return Qt::AlignLeft;
}

void Parser::Build(QTextDocument& into) const {
  std::size_t count = m_paragraphs.size();
  // Every paragraph ends with \par, the last one too: the empty paragraph behind it is none.
  if (count > 1 && m_lastOpenedByPar && m_paragraphs.back().Empty()) --count;

  QTextCursor cursor(&into);
  for (std::size_t p = 0; p < count; ++p) {
    const Paragraph& paragraph = m_paragraphs[p];
    QTextBlockFormat block;
    if (paragraph.align != Align::Left) block.setAlignment(AlignmentOf(paragraph.align));
    if (p == 0) {
      cursor.setBlockFormat(block);
    } else {
      cursor.insertBlock(block, QTextCharFormat());
    }
    for (const Run& run : paragraph.runs) {
      if (!run.text.isEmpty()) cursor.insertText(WellFormed(run.text), FormatFor(run.style));
    }
  }
}

// Reading replaces the document the way setPlainText and setHtml do: no undo step, the history
// dropped.
template <typename Fill>
void Replace(QTextDocument& into, Fill fill) {
  const bool undo = into.isUndoRedoEnabled();
  into.setUndoRedoEnabled(false);
  into.clear();
  fill();
  into.setUndoRedoEnabled(undo);
}

QString DecodePlainBytes(const QByteArray& bytes) {
  QStringDecoder utf8(QStringConverter::Utf8);
  QString text = utf8.decode(bytes);
  if (!utf8.hasError()) return text;
  text.resize(bytes.size());
  for (qsizetype i = 0; i < bytes.size(); ++i) {
    text[i] = QChar(RtfReader::FromWindows1252(static_cast<unsigned char>(bytes[i])));
  }
  return text;
}

}  // namespace

char16_t RtfReader::FromWindows1252(unsigned char byte) { return core::FromWindows1252(byte); }

bool RtfReader::IsRtf(QStringView text) {
  qsizetype i = 0;
  while (i < text.size() && (text[i].isSpace() || text[i] == QChar(QChar::ByteOrderMark))) ++i;
  return text.sliced(i).startsWith(u"{\\rtf");
}

bool RtfReader::IsRtf(const QByteArray& bytes) {
  QByteArrayView view(bytes);
  if (view.startsWith("\xEF\xBB\xBF")) view = view.sliced(3);
  qsizetype i = 0;
  while (i < view.size() && (view[i] == ' ' || view[i] == '\t' || view[i] == '\r' || view[i] == '\n')) ++i;
  return view.sliced(i).startsWith("{\\rtf");
}

void RtfReader::Read(QStringView rtf, QTextDocument& into) {
  Replace(into, [&] {
    if (!IsRtf(rtf)) {
      into.setPlainText(rtf.toString());
      return;
    }
    Parser parser(rtf, false);
    parser.Parse();
    parser.Build(into);
  });
}

void RtfReader::Read(const QByteArray& rtf, QTextDocument& into) {
  if (!IsRtf(rtf)) {
    Replace(into, [&] { into.setPlainText(DecodePlainBytes(rtf)); });
    return;
  }
  // One character for each byte, so that \binN counts bytes and escapes stay in place; the
  // parser decodes the bytes beyond ASCII.
  const QString bytes = QString::fromLatin1(rtf);
  Replace(into, [&] {
    Parser parser(bytes, true);
    parser.Parse();
    parser.Build(into);
  });
}

}  // namespace project
