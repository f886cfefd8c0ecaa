#pragma once

#include <QString>
#include <QStringList>

// The string functions the text pipeline is written with. Positions count from 1 and 0 means
// "not found", as in the script language; invalid arguments raise RuntimeError 5 exactly where
// the language does, because the procedures that ignore errors depend on which step fails.
namespace core {

// Position of the first occurrence of find in text, or 0. An empty find is found at 1 (in a
// non-empty text).
int InStr(const QString& text, const QString& find);
// The same, starting the search at position start (1-based; below 1 raises).
int InStr(int start, const QString& text, const QString& find);

// The first n characters; n below 0 raises, n beyond the length gives the whole text.
QString Left(const QString& text, qsizetype n);
// The last n characters; n below 0 raises.
QString Right(const QString& text, qsizetype n);
// From position start to the end; start below 1 raises, start beyond the end gives "".
QString Mid(const QString& text, qsizetype start);
// length characters from position start; start below 1 or length below 0 raises.
QString Mid(const QString& text, qsizetype start, qsizetype length);

// Every occurrence of find, scanning left to right without rescanning what was inserted.
// Case-sensitive. An empty find changes nothing.
QString Replace(const QString& text, const QString& find, const QString& replacement);

// Pieces between the delimiters. The empty text gives no pieces at all; an empty delimiter gives
// the whole text as the one piece.
QStringList Split(const QString& text, const QString& delimiter);

// The piece at a 0-based index; an index outside the list raises error 9.
QString At(const QStringList& pieces, qsizetype index);

// Leading and trailing blanks (character 32 only) removed.
QString Trim(const QString& text);

// The number of non-overlapping occurrences of what in text (0 for an empty what).
qsizetype Occurrences(const QString& text, const QString& what);

// Whether text contains find (an empty find is contained in every text).
bool Contains(const QString& text, const QString& find);

}  // namespace core
