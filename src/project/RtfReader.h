#pragma once

#include <QByteArray>
#include <QStringView>

class QTextDocument;

namespace project {

// Reads rich text format into a QTextDocument: the notes of project files and the information
// pages. What the reader keeps is what the program's rich text boxes show: the text with its
// paragraphs, line breaks and tabs, bold, italic, underline, strike-through, font family, point
// size, colour and paragraph alignment. Everything else a word processor writes (style sheets,
// document information, pictures, headers, fields' instructions, list tables, unknown
// destinations and control words) is passed over and never shown as text.
//
// The reader is tolerant: unbalanced braces, truncated escapes, huge numbers, deep nesting and
// binary garbage show what can be read and never fail; the work and the memory it takes grow with
// the length of the input alone. Reading stops where the outermost group closes.
//
// A text that is not RTF (it does not start with "{\rtf" after white space) is taken as plain
// text, line ends making paragraphs.
//
// The document's default font is kept: a text that names no size takes the document's own size,
// and a font number that the font table does not name takes the document's own family. The
// document's previous content and its undo history are dropped.
class RtfReader {
public:
  // Text that is already characters (a note of a project file). Characters beyond ASCII stand
  // for themselves.
  static void Read(QStringView rtf, QTextDocument& into);
  // The bytes of a file. Bytes beyond ASCII outside escapes are Windows-1252; a file that is
  // not RTF is read as UTF-8 when it is valid UTF-8 and as Windows-1252 otherwise.
  static void Read(const QByteArray& rtf, QTextDocument& into);

  // Whether the text starts, after white space (and a byte order mark), with "{\rtf".
  static bool IsRtf(QStringView text);
  static bool IsRtf(const QByteArray& bytes);

  // The character that a byte of the Windows-1252 code page stands for. The five bytes that
  // the code page leaves free stand for the control characters of the same number, as on Windows.
  static char16_t FromWindows1252(unsigned char byte);
};

}  // namespace project
