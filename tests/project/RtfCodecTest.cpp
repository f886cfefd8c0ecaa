#include "project/RtfReader.h"
#include "project/RtfWriter.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QRandomGenerator>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <functional>
#include <memory>

using project::RtfReader;
using project::RtfWriter;

namespace {

// Every document of these tests has the same default font, so that written and read documents
// compare.
std::unique_ptr<QTextDocument> NewDocument() {
  auto document = std::make_unique<QTextDocument>();
  document->setDefaultFont(QFont("DejaVu Sans", 10));
  return document;
}

// A document as a line of text: blocks joined by "|", an alignment as "<c>", "<r>" or "<j>"
// in front of its block, and each fragment's formatting, where it differs from the default
// font, in brackets in front of its text: b, i, u, s, f=family, pt=size, c=#rrggbb.
QString Describe(const QTextDocument& document) {
  QStringList blocks;
  const QFont base = document.defaultFont();
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    QString line;
    const Qt::Alignment alignment = block.blockFormat().alignment() & Qt::AlignHorizontal_Mask;
    if (alignment & Qt::AlignJustify) line += "<j>";
    else if (alignment & Qt::AlignHCenter) line += "<c>";
    else if (alignment & Qt::AlignRight) line += "<r>";
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextCharFormat format = it.fragment().charFormat();
      const QFont font = format.font().resolve(base);
      QStringList flags;
      if (font.weight() >= QFont::DemiBold) flags << "b";
      if (font.italic()) flags << "i";
      if (format.fontUnderline()) flags << "u";
      if (font.strikeOut()) flags << "s";
      if (font.family() != base.family()) flags << "f=" + font.family();
      if (font.pointSizeF() != base.pointSizeF()) flags << "pt=" + QString::number(font.pointSizeF());
      if (format.hasProperty(QTextFormat::ForegroundBrush)) flags << "c=" + format.foreground().color().name();
      if (!flags.isEmpty()) line += "[" + flags.join(' ') + "]";
      line += it.fragment().text();
    }
    blocks << line;
  }
  return blocks.join('|');
}

QString ReadDescribed(const QString& rtf) {
  auto document = NewDocument();
  RtfReader::Read(rtf, *document);
  return Describe(*document);
}

QString ReadText(const QByteArray& rtf) {
  auto document = NewDocument();
  RtfReader::Read(rtf, *document);
  return document->toPlainText();
}

QTextCharFormat Bold() {
  QTextCharFormat format;
  format.setFontWeight(QFont::Bold);
  return format;
}

// ---------------------------------------------------------------------------------------------
// Round trips: document, RTF, document.

struct RoundTripCase {
  const char* name;
  std::function<void(QTextCursor&)> build;
  QString described;  // of the document built, and so of the one read back
};

class RoundTrip : public ::testing::TestWithParam<RoundTripCase> {};

TEST_P(RoundTrip, KeepsTextParagraphsAndFormatting) {
  auto original = NewDocument();
  QTextCursor cursor(original.get());
  GetParam().build(cursor);
  ASSERT_EQ(Describe(*original), GetParam().described);

  const QString rtf = RtfWriter::Write(*original);
  auto copy = NewDocument();
  RtfReader::Read(rtf, *copy);
  EXPECT_EQ(Describe(*copy), GetParam().described) << rtf.toStdString();
  EXPECT_EQ(copy->toPlainText(), original->toPlainText());
  EXPECT_EQ(copy->blockCount(), original->blockCount());
  // Written again, the copy gives the same RTF.
  EXPECT_EQ(RtfWriter::Write(*copy), rtf);
}

QTextCharFormat With(const std::function<void(QTextCharFormat&)>& set) {
  QTextCharFormat format;
  set(format);
  return format;
}

INSTANTIATE_TEST_SUITE_P(
    RtfCodec, RoundTrip,
    ::testing::Values(
        RoundTripCase{"Plain", [](QTextCursor& c) { c.insertText("Hello, world"); }, "Hello, world"},
        RoundTripCase{"Empty", [](QTextCursor&) {}, ""},
        RoundTripCase{"Bold", [](QTextCursor& c) { c.insertText("strong", Bold()); }, "[b]strong"},
        RoundTripCase{"Italic",
                      [](QTextCursor& c) { c.insertText("slanted", With([](auto& f) { f.setFontItalic(true); })); },
                      "[i]slanted"},
        RoundTripCase{"Underline",
                      [](QTextCursor& c) { c.insertText("under", With([](auto& f) { f.setFontUnderline(true); })); },
                      "[u]under"},
        RoundTripCase{"StrikeOut",
                      [](QTextCursor& c) { c.insertText("gone", With([](auto& f) { f.setFontStrikeOut(true); })); },
                      "[s]gone"},
        RoundTripCase{"Family",
                      [](QTextCursor& c) {
                        c.insertText("serif", With([](auto& f) { f.setFontFamilies({"Liberation Serif"}); }));
                      },
                      "[f=Liberation Serif]serif"},
        RoundTripCase{"Size",
                      [](QTextCursor& c) { c.insertText("big", With([](auto& f) { f.setFontPointSize(14); })); },
                      "[pt=14]big"},
        RoundTripCase{"HalfPointSize",
                      [](QTextCursor& c) { c.insertText("small", With([](auto& f) { f.setFontPointSize(7.5); })); },
                      "[pt=7.5]small"},
        RoundTripCase{"Colour",
                      [](QTextCursor& c) {
                        c.insertText("red", With([](auto& f) { f.setForeground(QColor(200, 16, 32)); }));
                      },
                      "[c=#c81020]red"},
        RoundTripCase{"AllTogether",
                      [](QTextCursor& c) {
                        c.insertText("all", With([](auto& f) {
                                       f.setFontWeight(QFont::Bold);
                                       f.setFontItalic(true);
                                       f.setFontUnderline(true);
                                       f.setFontStrikeOut(true);
                                       f.setFontFamilies({"DejaVu Serif"});
                                       f.setFontPointSize(18);
                                       f.setForeground(QColor(0, 0, 255));
                                     }));
                      },
                      "[b i u s f=DejaVu Serif pt=18 c=#0000ff]all"},
        RoundTripCase{"MixedInOneParagraph",
                      [](QTextCursor& c) {
                        c.insertText("one ");
                        c.insertText("two", Bold());
                        c.insertText(" three ", With([](auto& f) { f.setFontItalic(true); }));
                        c.insertText("four", With([](auto& f) { f.setForeground(QColor(0, 128, 0)); }));
                        c.insertText(" five", With([](auto& f) { f.setForeground(QColor(255, 0, 0)); }));
                        c.insertText(" six", With([](auto& f) { f.setForeground(QColor(0, 128, 0)); }));
                      },
                      "one [b]two[i] three [c=#008000]four[c=#ff0000] five[c=#008000] six"},
        RoundTripCase{"Paragraphs",
                      [](QTextCursor& c) { c.insertText("first\nsecond\n\nfourth\n"); },
                      "first|second||fourth|"},
        RoundTripCase{"FormattingAcrossParagraphs",
                      [](QTextCursor& c) {
                        c.insertText("bold\nstill bold", Bold());
                        c.insertBlock();
                        c.insertText("plain", QTextCharFormat());
                      },
                      "[b]bold|[b]still bold|plain"},
        RoundTripCase{"Alignment",
                      [](QTextCursor& c) {
                        QTextBlockFormat centre;
                        centre.setAlignment(Qt::AlignHCenter);
                        c.setBlockFormat(centre);
                        c.insertText("centre");
                        QTextBlockFormat right;
                        right.setAlignment(Qt::AlignRight);
                        c.insertBlock(right);
                        c.insertText("right");
                        QTextBlockFormat justify;
                        justify.setAlignment(Qt::AlignJustify);
                        c.insertBlock(justify);
                        c.insertText("justified");
                        c.insertBlock(QTextBlockFormat());
                        c.insertText("left");
                      },
                      "<c>centre|<r>right|<j>justified|left"},
        RoundTripCase{"TabsAndLineBreaks",
                      [](QTextCursor& c) { c.insertText(QString("a\tb") + QChar(QChar::LineSeparator) + "c\t\td"); },
                      QString("a\tb") + QChar(QChar::LineSeparator) + "c\t\td"},
        RoundTripCase{"Escapes", [](QTextCursor& c) { c.insertText("C:\\dir {x} ;"); }, "C:\\dir {x} ;"},
        RoundTripCase{"Windows1252AndUnicode",
                      [](QTextCursor& c) { c.insertText(QString::fromUtf8("café € “q” – Ω 𝔸 中文 ÿ")); },
                      QString::fromUtf8("café € “q” – Ω 𝔸 中文 ÿ")},
        RoundTripCase{"SpacesAfterControlWords",
                      [](QTextCursor& c) {
                        c.insertText("  x ", Bold());
                        c.insertText(" 2 ", QTextCharFormat());
                        c.insertText("\t 3", Bold());
                      },
                      "[b]  x  2 [b]\t 3"},
        RoundTripCase{"FamilyWithEscapedCharacters",
                      [](QTextCursor& c) {
                        c.insertText("x", With([](auto& f) { f.setFontFamilies({"A;B {C} \\ é"}); }));
                      },
                      QString::fromUtf8("[f=A;B {C} \\ é]x")}),
    [](const ::testing::TestParamInfo<RoundTripCase>& param) { return std::string(param.param.name); });

TEST(RtfCodec, PlainTextRoundTripsExactly) {
  const QString text = QString::fromUtf8("Line one\n\n  indented\tand tabbed\n{braces} \\ back\nlast ü €");
  auto original = NewDocument();
  original->setPlainText(text);
  auto copy = NewDocument();
  RtfReader::Read(RtfWriter::Write(*original), *copy);
  EXPECT_EQ(copy->toPlainText(), text);
  EXPECT_FALSE(RtfWriter::HasFormatting(*copy));
}

// ---------------------------------------------------------------------------------------------
// What the writer writes.

TEST(RtfWriter, WritesHeaderTablesAndParagraphs) {
  auto document = NewDocument();
  QTextCursor cursor(document.get());
  cursor.insertText("Hello ");
  cursor.insertText("world", Bold());
  cursor.insertText("!", QTextCharFormat());
  cursor.insertBlock();
  cursor.insertText("red", With([](auto& f) { f.setForeground(QColor(255, 0, 0)); }));
  EXPECT_EQ(RtfWriter::Write(*document),
            "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 DejaVu Sans;}}\r\n"
            "{\\colortbl ;\\red255\\green0\\blue0;}\r\n"
            "\\pard\\f0\\fs20 Hello \\b world\\b0 !\\par\r\n"
            "\\pard\\cf1 red\\par\r\n"
            "}");
}

TEST(RtfWriter, WritesAnEmptyDocumentAsOneParagraph) {
  auto document = NewDocument();
  EXPECT_EQ(RtfWriter::Write(*document),
            "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 DejaVu Sans;}}\r\n"
            "{\\colortbl ;}\r\n"
            "\\pard\\par\r\n"
            "}");
}

struct EscapeCase {
  QString text;
  QString written;  // the body's text as the writer writes it
};

class WriterEscapes : public ::testing::TestWithParam<EscapeCase> {};

TEST_P(WriterEscapes, WritesCharacters) {
  auto document = NewDocument();
  QTextCursor(document.get()).insertText(GetParam().text);
  const QString rtf = RtfWriter::Write(*document);
  EXPECT_TRUE(rtf.contains("\\pard\\f0\\fs20 " + GetParam().written + "\\par\r\n")) << rtf.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    RtfCodec, WriterEscapes,
    ::testing::Values(EscapeCase{"a\\b{c}d", "a\\\\b\\{c\\}d"},
                      EscapeCase{QString::fromUtf8("café"), "caf\\'e9"},
                      EscapeCase{QString::fromUtf8("€ ™ Ÿ"), "\\'80 \\'99 \\'9f"},
                      EscapeCase{QString::fromUtf8("\u00a0"), "\\'a0"},
                      EscapeCase{QString::fromUtf8("Ω"), "\\u937?"},
                      EscapeCase{QString::fromUtf8("\uffff"), "\\u-1?"},
                      EscapeCase{QString::fromUtf8("𝔸"), "\\u-10187?\\u-8904?"},
                      EscapeCase{"a\tb", "a\\tab b"},
                      EscapeCase{QString("a") + QChar(QChar::LineSeparator) + "b", "a\\line b"},
                      EscapeCase{"12", "12"}));

TEST(RtfWriter, IsAsciiAndStartsNoLineWithText) {
  auto document = NewDocument();
  document->setPlainText(QString::fromUtf8("[EndNote](0)\n[Note](1)\nünïcödé 中\n}\n{\n\\par"));
  const QString rtf = RtfWriter::Write(*document);
  for (const QChar c : rtf) EXPECT_LT(c.unicode(), 0x80);
  for (const QString& line : rtf.split("\r\n")) {
    ASSERT_FALSE(line.isEmpty());
    EXPECT_TRUE(line[0] == '\\' || line[0] == '{' || line[0] == '}') << line.toStdString();
  }
  EXPECT_FALSE(rtf.contains(QString("\n[")));
}

TEST(RtfWriter, IsDeterministic) {
  auto document = NewDocument();
  QTextCursor cursor(document.get());
  cursor.insertText("a", With([](auto& f) { f.setForeground(QColor(1, 2, 3)); }));
  cursor.insertText("b", With([](auto& f) { f.setFontFamilies({"Z"}); }));
  cursor.insertText("c", With([](auto& f) { f.setFontFamilies({"A"}); }));
  const QString rtf = RtfWriter::Write(*document);
  EXPECT_EQ(RtfWriter::Write(*document), rtf);
  // Fonts and colours are numbered in the order of their first use.
  EXPECT_TRUE(rtf.contains("{\\f1\\fnil\\fcharset0 Z;}{\\f2\\fnil\\fcharset0 A;}"));
  EXPECT_TRUE(rtf.contains("{\\colortbl ;\\red1\\green2\\blue3;}"));
}

TEST(RtfWriter, LeavesPicturesOut) {
  auto document = NewDocument();
  QTextCursor cursor(document.get());
  cursor.insertText("a");
  QTextImageFormat image;
  image.setName("picture.png");
  cursor.insertImage(image);
  cursor.insertText("b");
  EXPECT_EQ(ReadDescribed(RtfWriter::Write(*document)), "ab");
  EXPECT_TRUE(RtfWriter::HasFormatting(*document));
}

// ---------------------------------------------------------------------------------------------
// What the reader reads.

struct ReadCase {
  const char* name;
  QString rtf;
  QString described;
};

class Reads : public ::testing::TestWithParam<ReadCase> {};

TEST_P(Reads, Document) { EXPECT_EQ(ReadDescribed(GetParam().rtf), GetParam().described); }

INSTANTIATE_TEST_SUITE_P(
    RtfCodec, Reads,
    ::testing::Values(
        ReadCase{"Minimal", "{\\rtf1 Hello}", "Hello"},
        ReadCase{"WhiteSpaceBefore", "\r\n  {\\rtf1 Hello}", "Hello"},
        ReadCase{"OnOff",
                 "{\\rtf1 \\b b\\b0 \\i i\\i0 \\ul u\\ul0 \\ulw w\\ulnone \\strike s\\strike0 \\striked1 d\\striked0 .}",
                 "[b]b[i]i[u]uw[s]sd."},
        ReadCase{"ParameterOneIsOn", "{\\rtf1 \\b1 x\\b0 y}", "[b]xy"},
        ReadCase{"GroupsRestore", "{\\rtf1 a{\\b b{\\i c}d}e}", "a[b]b[b i]c[b]de"},
        ReadCase{"Plain", "{\\rtf1 \\b\\i\\fs40 a\\plain b}", "[b i pt=20]ab"},
        ReadCase{"Pard", "{\\rtf1 \\qc a\\par \\pard b\\par \\qr c\\par \\qj d\\par \\ql e}", "<c>a|b|<r>c|<j>d|e"},
        ReadCase{"AlignmentAtParagraphEnd", "{\\rtf1 a\\qc\\par\\pard b}", "<c>a|b"},
        ReadCase{"AlignmentLastsUntilPard", "{\\rtf1 \\qr a\\par b\\par\\pard c}", "<r>a|<r>b|c"},
        ReadCase{"FontTable",
                 "{\\rtf1\\deff1{\\fonttbl{\\f0\\froman Times New Roman;}{\\f1\\fswiss\\fcharset0 Arial;}}"
                 "a\\f0 b\\f7 c\\plain d}",
                 "[f=Arial]a[f=Times New Roman]bc[f=Arial]d"},
        ReadCase{"FontTableWithoutGroups", "{\\rtf1{\\fonttbl\\f0\\fnil Mono;\\f1\\fnil Sans;}\\f1 x}", "[f=Sans]x"},
        ReadCase{"FontNameWithEscapes", "{\\rtf1{\\fonttbl{\\f0 Caf\\'e9\\'3b Bar{\\*\\falt Other};}}x}",
                 QString::fromUtf8("[f=Café; Bar]x")},
        ReadCase{"ColourTable",
                 "{\\rtf1{\\colortbl;\\red255\\green0\\blue0;\\red0\\green128\\blue0;}a\\cf1 b\\cf2 c\\cf0 d\\cf9 e}",
                 "a[c=#ff0000]b[c=#008000]cde"},
        ReadCase{"ColourComponentsClamped", "{\\rtf1{\\colortbl;\\red999\\green-4\\blue7;}\\cf1 x}", "[c=#ff0007]x"},
        ReadCase{"Sizes", "{\\rtf1 \\fs17 a\\fs0 b\\fs-3 c\\fs999999 d\\fs1 e}", "[pt=8.5]abc[pt=1638]d[pt=1]e"},
        ReadCase{"ParagraphsAndFinalPar", "{\\rtf1 a\\par b\\par}", "a|b"},
        ReadCase{"EmptyParagraphKeptBeforeFinalPar", "{\\rtf1 a\\par\\par}", "a|"},
        ReadCase{"LineTabAndCells", "{\\rtf1 a\\line b\\tab c\\cell d\\row e}",
                 QString("a") + QChar(QChar::LineSeparator) + "b\tc\td|e"},
        ReadCase{"BackslashNewlineIsPar", "{\\rtf1 a\\\nb\\\r\nc}", "a|b|c"},
        ReadCase{"NewlinesAreNoText", "{\\rtf1 a\r\nb\nc\rd}", "abcd"},
        ReadCase{"ControlSymbols", "{\\rtf1 a\\~b\\-c\\_d\\\\e\\{f\\}g\\|h\\:i}",
                 QString::fromUtf8("a\u00a0b\u00adc\u2011d\\e{f}ghi")},
        ReadCase{"Hex", "{\\rtf1 caf\\'e9 \\'80\\'93x\\'94 \\'E9}", QString::fromUtf8("café €“x” é")},
        ReadCase{"NamedCharacters", "{\\rtf1 \\emdash\\endash\\bullet\\lquote\\rquote\\ldblquote\\rdblquote}",
                 QString::fromUtf8("—–•‘’“”")},
        ReadCase{"UnicodeWithFallback", "{\\rtf1 \\u937?\\u-3?}", QString::fromUtf8("Ω\ufffd")},
        ReadCase{"UnicodeSkipCounts", "{\\rtf1\\uc2 \\u937\\'3f\\'3fX\\uc0 \\u937 Y}", QString::fromUtf8("ΩXΩY")},
        ReadCase{"UnicodeSkipIsPerGroup", "{\\rtf1 {\\uc2 \\u937 ab}\\u937?c}", QString::fromUtf8("ΩΩc")},
        ReadCase{"UnicodeSkipStopsAtGroup", "{\\rtf1\\uc3 \\u937{b}c}", QString::fromUtf8("Ωbc")},
        ReadCase{"UnicodeSkipCountsControlWords", "{\\rtf1\\uc2 \\u937\\b ab}", QString::fromUtf8("Ωb")},
        ReadCase{"SurrogatePair", "{\\rtf1 \\u-10187?\\u-8904?}", QString::fromUtf8("𝔸")},
        ReadCase{"LoneSurrogate", "{\\rtf1 \\u-10187?x}", QString::fromUtf8("\ufffdx")},
        ReadCase{"UnknownWordsSkipped", "{\\rtf1 \\foo123 a\\unknownword b\\x-5 c}", "abc"},
        ReadCase{"IgnorableDestinations", "{\\rtf1 a{\\*\\foo hidden {nested} text}b{\\*\\generator X;}c}", "abc"},
        ReadCase{"KnownDestinations",
                 "{\\rtf1{\\stylesheet{\\s0 Normal;}}{\\info{\\title T}{\\author A}}{\\header H}{\\footer F}"
                 "a{\\pict\\pngblip 89504e47}b{\\footnote note}c}",
                 "abc"},
        ReadCase{"Fields", "{\\rtf1 see {\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt here}}.}", "see here."},
        ReadCase{"RawCharactersStandForThemselves", QString::fromUtf8("{\\rtf1 Ω é}"), QString::fromUtf8("Ω é")},
        ReadCase{"StructuralCharactersDropped", "{\\rtf1 a\\'00\\'0a\\'0d\\u-560?\\u-559?b\\u8233?c}", "ab|c"},
        ReadCase{"StopsAtEndOfOuterGroup", "{\\rtf1 a}b}c", "a"}),
    [](const ::testing::TestParamInfo<ReadCase>& param) { return std::string(param.param.name); });

// A page as a word processor writes it: style sheet, information group, generator, rsid and
// theme tables, fields, a picture, \pard\plain, and a colour table with its empty first entry.
TEST(RtfReader, ReadsAWordProcessorDocument) {
  const QByteArray rtf =
      "{\\rtf1\\adeflang1025\\ansi\\ansicpg1252\\uc1\\adeff0\\deff0\\stshfdbch0\\stshfloch31506"
      "\\stshfhich31506\\stshfbi31506\\deflang1033\\deflangfe1033\\themelang1033\\themelangfe0\\themelangcs0\r\n"
      "{\\fonttbl{\\f0\\fbidi \\froman\\fcharset0\\fprq2{\\*\\panose 02020603050405020304}Times New Roman;}"
      "{\\f1\\fbidi \\fswiss\\fcharset0\\fprq2{\\*\\panose 020b0604020202020204}Arial;}\r\n"
      "{\\f2\\fbidi \\fmodern\\fcharset0\\fprq1{\\*\\panose 02070309020205020404}Courier New;}}\r\n"
      "{\\colortbl;\\red0\\green0\\blue0;\\red0\\green0\\blue255;\\red192\\green0\\blue0;}\r\n"
      "{\\*\\defchp \\f31506\\fs22 }{\\*\\defpap \\ql \\li0\\ri0\\sa160\\sl259\\slmult1\\widctlpar\\wrapdefault"
      "\\aspalpha\\aspnum\\faauto\\adjustright\\rin0\\lin0\\itap0 }\r\n"
      "{\\stylesheet{\\ql \\li0\\ri0\\sa160\\sl259\\slmult1\\widctlpar\\wrapdefault\\aspalpha\\aspnum\\faauto"
      "\\adjustright\\rin0\\lin0\\itap0 \\rtlch\\fcs1 \\af0\\afs22\\alang1025 \\ltrch\\fcs0 \\f31506\\fs22"
      "\\lang1033\\langfe1033\\cgrid\\langnp1033\\langfenp1033 \\snext0 \\sqformat \\spriority0 Normal;}"
      "{\\*\\cs10 \\additive \\ssemihidden \\sunhideused \\spriority1 Default Paragraph Font;}"
      "{\\s1\\ql \\b\\fs32 \\sbasedon0 \\snext0 heading 1;}}\r\n"
      "{\\*\\rsidtbl \\rsid1063385\\rsid6108297}{\\mmathPr\\mmathFont34\\mbrkBin0}\r\n"
      "{\\info{\\title What is new}{\\author Quill Team}{\\operator Quill Team}"
      "{\\creatim\\yr2024\\mo3\\dy5\\hr10\\min12}{\\version2}{\\edmins1}{\\nofpages1}{\\nofwords42}}\r\n"
      "{\\*\\xmlnstbl {\\xmlns1 http://schemas.microsoft.com/office/word/2003/wordml}}\r\n"
      "{\\*\\generator Riched20 10.0.19041}\\viewkind4\\uc1 \r\n"
      "\\paperw12240\\paperh15840\\margl1440\\margr1440\r\n"
      "\\pard\\plain \\s1\\qc \\b\\f1\\fs32\\cf3 What is new\\par\r\n"
      "\\pard\\plain \\f1\\fs20 Version 2 brings \\i faster\\i0  plots, \\ul underlined\\ulnone  and "
      "\\strike struck\\strike0  text.\\par\r\n"
      "\\pard \\f2\\cf2 Caf\\'e9 \\u8364\\'80 5 \\endash  "
      "{\\field{\\*\\fldinst {HYPERLINK \"https://example.org/\"}}{\\fldrslt {\\ul\\cf2 example.org}}}\\par\r\n"
      "{\\pict\\wmetafile8\\picw100\\pich100 0100090000035a00000000001000000000000400000003010800050000000b02}\r\n"
      "\\pard\\plain\\f0\\fs24 Thanks for using it\\rquote s graphs.\\par\r\n"
      "{\\*\\themedata 504b030414000600080000002100e9de0fbfff0000001c020000130000005b436f6e74656e74}\r\n"
      "}\r\n";
  auto document = NewDocument();
  RtfReader::Read(rtf, *document);
  EXPECT_EQ(Describe(*document),
            QString::fromUtf8("<c>[b f=Arial pt=16 c=#c00000]What is new|"
                              "[f=Arial]Version 2 brings [i f=Arial]faster[f=Arial] plots, "
                              "[u f=Arial]underlined[f=Arial] and [s f=Arial]struck[f=Arial] text.|"
                              "[f=Courier New c=#0000ff]Café € 5 – [u f=Courier New c=#0000ff]example.org|"
                              "[f=Times New Roman pt=12]Thanks for using it’s graphs."));
  EXPECT_TRUE(RtfWriter::HasFormatting(*document));
}

// ---------------------------------------------------------------------------------------------
// Broken input: never a crash or a hang, and what can be read is shown.

struct BrokenCase {
  const char* name;
  QByteArray rtf;
  QString text;
};

class Broken : public ::testing::TestWithParam<BrokenCase> {};

TEST_P(Broken, ShowsWhatItCan) {
  EXPECT_EQ(ReadText(GetParam().rtf), GetParam().text);
  // What was read is written and read back alike.
  auto document = NewDocument();
  RtfReader::Read(GetParam().rtf, *document);
  auto copy = NewDocument();
  RtfReader::Read(RtfWriter::Write(*document), *copy);
  EXPECT_EQ(Describe(*copy), Describe(*document));
}

QByteArray Repeated(const char* piece, int count) { return QByteArray(piece).repeated(count); }

INSTANTIATE_TEST_SUITE_P(
    RtfCodec, Broken,
    ::testing::Values(
        BrokenCase{"Truncated", "{\\rtf1 Hello", "Hello"},
        BrokenCase{"TruncatedInGroup", "{\\rtf1 a{\\b b{\\i c", "abc"},
        BrokenCase{"TruncatedInFontTable", "{\\rtf1{\\fonttbl{\\f0 Ari", ""},
        BrokenCase{"ExtraClosing", "{\\rtf1 Hello}} world}", "Hello"},
        BrokenCase{"TruncatedHex", "{\\rtf1 a\\'", "a"},
        BrokenCase{"HalfHex", "{\\rtf1 a\\'4", QString("a") + QChar(4)},
        BrokenCase{"BadHex", "{\\rtf1 a\\'zz}", "azz"},
        BrokenCase{"TruncatedBackslash", "{\\rtf1 a\\", "a"},
        BrokenCase{"TruncatedUnicode", "{\\rtf1 a\\u", "a"},
        BrokenCase{"UnicodeWithoutNumber", "{\\rtf1 a\\u-}", "a-"},
        BrokenCase{"TruncatedWord", "{\\rtf1 a\\fs", "a"},
        BrokenCase{"HugeNumbers", "{\\rtf1 \\fs99999999999999999999999 a\\cf-99999999999999999 b\\f123456789012 c}",
                   "abc"},
        BrokenCase{"HugeUnicode", "{\\rtf1 \\u99999999999 x}", QString(QChar(QChar::ReplacementCharacter))},
        BrokenCase{"HugeUnicodeSkip", "{\\rtf1 \\uc99999999999 \\u937 abc}d", QString::fromUtf8("Ω")},
        BrokenCase{"LongWord", "{\\rtf1 \\" + Repeated("b", 5000) + " x}", "x"},
        BrokenCase{"BinSkipsBytes", "{\\rtf1 a\\bin3 {}}b}", "ab"},
        BrokenCase{"HugeBin", "{\\rtf1 a\\bin999999999999 hidden}", "a"},
        BrokenCase{"NegativeBin", "{\\rtf1 a\\bin-5 b}", "ab"},
        BrokenCase{"DeepNestingClosed", "{\\rtf1 " + Repeated("{", 100000) + "x" + Repeated("}", 100000) + "y}", "y"},
        BrokenCase{"DeepNestingOpen", "{\\rtf1 a" + Repeated("{\\b ", 100000) + "x", "a"},
        BrokenCase{"NestingWithinReach", "{\\rtf1 " + Repeated("{", 200) + "x" + Repeated("}", 200) + "}", "x"},
        BrokenCase{"IgnorableInDeepNesting",
                   "{\\rtf1 " + Repeated("{", 300) + "{\\*" + Repeated("}", 301) + "z}", "z"},
        BrokenCase{"ManyParagraphs", "{\\rtf1 " + Repeated("\\par", 1000) + "}", QString(999, '\n')},
        BrokenCase{"OnlyHeader", "{\\rtf1", ""},
        BrokenCase{"RawWindows1252", "{\\rtf1 caf\xe9 \x80 \x9f}", QString::fromUtf8("café € Ÿ")},
        BrokenCase{"ByteOrderMark", "\xEF\xBB\xBF{\\rtf1 x}", "x"},
        BrokenCase{"NulBytes", QByteArray("{\\rtf1 a\0b}", 10), "ab"}),
    [](const ::testing::TestParamInfo<BrokenCase>& param) { return std::string(param.param.name); });

TEST(RtfReader, SurvivesBinaryGarbage) {
  QRandomGenerator random(20240517);
  for (int round = 0; round < 200; ++round) {
    QByteArray rtf = "{\\rtf1 ";
    const int length = random.bounded(1, 2000);
    static const char alphabet[] = "{}\\\\\\'0123456789abcdefuucbinparfs-; \r\n*";
    for (int i = 0; i < length; ++i) {
      rtf += random.bounded(2) ? char(random.bounded(256))
                               : alphabet[random.bounded(int(sizeof(alphabet) - 1))];
    }
    auto document = NewDocument();
    RtfReader::Read(rtf, *document);
    const QString written = RtfWriter::Write(*document);
    auto copy = NewDocument();
    RtfReader::Read(written, *copy);
    ASSERT_EQ(RtfWriter::Write(*copy), written) << rtf.toHex().toStdString();
  }
}

// ---------------------------------------------------------------------------------------------
// Text that is not RTF, and empty input.

TEST(RtfReader, TakesOtherTextAsPlainText) {
  EXPECT_FALSE(RtfReader::IsRtf(QStringView(u"Your note here.")));
  EXPECT_FALSE(RtfReader::IsRtf(QByteArray("{\\rt")));
  EXPECT_FALSE(RtfReader::IsRtf(QStringView(u"x{\\rtf1}")));
  EXPECT_TRUE(RtfReader::IsRtf(QStringView(u"\r\n{\\rtf1}")));
  EXPECT_TRUE(RtfReader::IsRtf(QByteArray("\xEF\xBB\xBF {\\rtf")));

  EXPECT_EQ(ReadDescribed("Your note here."), "Your note here.");
  EXPECT_EQ(ReadDescribed("\r\nfirst\r\nsecond {\\b not rtf}"), "|first|second {\\b not rtf}");
  EXPECT_EQ(ReadText("caf\xc3\xa9 \xe2\x82\xac"), QString::fromUtf8("café €"));  // UTF-8
  EXPECT_EQ(ReadText("caf\xe9 \x80"), QString::fromUtf8("café €"));              // not UTF-8: Windows-1252
}

TEST(RtfReader, ReadsEmptyInputAsAnEmptyDocument) {
  for (const QByteArray& rtf : {QByteArray(), QByteArray("{\\rtf1}"), QByteArray("{\\rtf1\\par}"), QByteArray("  ")}) {
    auto document = NewDocument();
    QTextCursor(document.get()).insertText("old content", Bold());
    RtfReader::Read(rtf, *document);
    EXPECT_EQ(document->blockCount(), 1) << rtf.toStdString();
    EXPECT_EQ(document->toPlainText(), rtf == "  " ? "  " : "") << rtf.toStdString();
    EXPECT_FALSE(RtfWriter::HasFormatting(*document));
  }
}

TEST(RtfReader, ReplacesContentKeepsDefaultFontAndLeavesNoUndo) {
  auto document = NewDocument();
  QTextCursor(document.get()).insertText("old");
  ASSERT_TRUE(document->isUndoAvailable());
  RtfReader::Read(QStringView(u"{\\rtf1 new}"), *document);
  EXPECT_EQ(document->toPlainText(), "new");
  EXPECT_FALSE(document->isUndoAvailable());
  EXPECT_TRUE(document->isUndoRedoEnabled());
  EXPECT_EQ(document->defaultFont().family(), "DejaVu Sans");
  EXPECT_EQ(document->defaultFont().pointSizeF(), 10);
}

TEST(RtfReader, DecodesWindows1252) {
  EXPECT_EQ(RtfReader::FromWindows1252(0x41), u'A');
  EXPECT_EQ(RtfReader::FromWindows1252(0x80), u'\u20ac');
  EXPECT_EQ(RtfReader::FromWindows1252(0x81), u'\u0081');
  EXPECT_EQ(RtfReader::FromWindows1252(0x9F), u'\u0178');
  EXPECT_EQ(RtfReader::FromWindows1252(0xA0), u'\u00a0');
  EXPECT_EQ(RtfReader::FromWindows1252(0xFF), u'\u00ff');
}

// ---------------------------------------------------------------------------------------------
// Whether a note needs RTF at all.

TEST(RtfWriter, TellsWhetherADocumentHasFormatting) {
  const QFont plain("DejaVu Sans", 10);
  struct Case {
    const char* name;
    std::function<void(QTextCursor&)> build;
    bool formatted;
  };
  const std::vector<Case> cases = {
      {"plain", [](QTextCursor& c) { c.insertText("a\nb"); }, false},
      {"empty", [](QTextCursor&) {}, false},
      {"same family and size set explicitly",
       [](QTextCursor& c) {
         c.insertText("a", With([](auto& f) {
                        f.setFontFamilies({"DejaVu Sans"});
                        f.setFontPointSize(10);
                      }));
       },
       false},
      {"bold", [](QTextCursor& c) { c.insertText("a", Bold()); }, true},
      {"italic", [](QTextCursor& c) { c.insertText("a", With([](auto& f) { f.setFontItalic(true); })); }, true},
      {"underline", [](QTextCursor& c) { c.insertText("a", With([](auto& f) { f.setFontUnderline(true); })); }, true},
      {"dashed underline",
       [](QTextCursor& c) {
         c.insertText("a", With([](auto& f) { f.setUnderlineStyle(QTextCharFormat::DashUnderline); }));
       },
       true},
      {"strike", [](QTextCursor& c) { c.insertText("a", With([](auto& f) { f.setFontStrikeOut(true); })); }, true},
      {"family", [](QTextCursor& c) { c.insertText("a", With([](auto& f) { f.setFontFamilies({"Mono"}); })); }, true},
      {"size", [](QTextCursor& c) { c.insertText("a", With([](auto& f) { f.setFontPointSize(11); })); }, true},
      {"colour", [](QTextCursor& c) { c.insertText("a", With([](auto& f) { f.setForeground(Qt::black); })); }, true},
      {"centred",
       [](QTextCursor& c) {
         QTextBlockFormat block;
         block.setAlignment(Qt::AlignHCenter);
         c.setBlockFormat(block);
         c.insertText("a");
       },
       true},
  };
  for (const Case& test : cases) {
    auto document = NewDocument();
    QTextCursor cursor(document.get());
    test.build(cursor);
    EXPECT_EQ(RtfWriter::HasFormatting(*document, plain), test.formatted) << test.name;
    EXPECT_EQ(RtfWriter::HasFormatting(*document), test.formatted) << test.name;
    // Written and read back, a document has formatting exactly when it had it before.
    auto copy = NewDocument();
    RtfReader::Read(RtfWriter::Write(*document), *copy);
    EXPECT_EQ(RtfWriter::HasFormatting(*copy, plain), test.formatted) << test.name;
  }
  // Against another plain font, the family and size of the document's own font are formatting.
  auto document = NewDocument();
  RtfReader::Read(QStringView(u"{\\rtf1{\\fonttbl{\\f0 DejaVu Sans;}}\\f0\\fs20 a}"), *document);
  EXPECT_FALSE(RtfWriter::HasFormatting(*document, plain));
  EXPECT_TRUE(RtfWriter::HasFormatting(*document, QFont("DejaVu Sans", 12)));
}

}  // namespace
