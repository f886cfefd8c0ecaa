#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace project {

// The bytes of a project file. The text is written in Windows-1252, as the older program's files
// are, unless a character of it has no byte there: then the whole file is UTF-8, so that nothing
// typed is lost. A file that is valid UTF-8 with bytes beyond ASCII is read as UTF-8, any other
// as Windows-1252. There is no byte order mark.
class ProjectFile {
public:
  static QByteArray Encode(const QString& text);
  static QString Decode(const QByteArray& bytes);
  // The lines of a file's text: CR LF, LF and a lone CR all end a line.
  static QStringList Lines(const QString& text);
};

}  // namespace project
