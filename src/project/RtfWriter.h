#pragma once

#include <QString>

class QFont;
class QTextDocument;

namespace project {

// Writes a QTextDocument as rich text format: the form in which a formatted note is stored in a
// project file. What is written is what RtfReader reads back: the text with its paragraphs, line
// breaks and tabs, bold, italic, underline, strike-through, font family, point size (in
// half-points), colour and paragraph alignment. Pictures and other objects are left out.
//
// The output is 7-bit ASCII and the same for the same document: characters beyond ASCII are
// written as \'hh where Windows-1252 holds them and as \uN? otherwise. Lines end in CR LF and
// every line starts with "\", "{" or "}", never with the note's own text, so a line-oriented
// file format can carry it without confusing a line of text with one of its own markers.
class RtfWriter {
public:
  // Characters without a format of their own take the document's default font.
  static QString Write(const QTextDocument& document);

  // Whether the document carries anything that plain text in plainFont would lose: another
  // family or size, bold, italic, underline, strike-through, a colour, an alignment other than
  // left, or an object such as a picture. A document without it can be stored as plain text.
  static bool HasFormatting(const QTextDocument& document, const QFont& plainFont);
  // The same against the document's own default font.
  static bool HasFormatting(const QTextDocument& document);
};

}  // namespace project
