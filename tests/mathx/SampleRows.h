#pragma once

// The function rows of the sample projects that come with the program, as the samples page loads
// them: each "[Function](i)=[colour:text:flag:flag:flag]" line of data/Functions/*.qlfn.
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStringList>

inline QStringList SampleRows() {
  static const QRegularExpression line(
      QStringLiteral(R"(^\[Function\]\(\d+\)=\[-?\d+:(.*):(?:True|False):(?:True|False):(?:True|False)\]\s*$)"));
  QStringList rows;
  const QDir folder(QStringLiteral(QUILLOGRAPH_SAMPLES));
  for (const QString& name : folder.entryList({QStringLiteral("*.qlfn")}, QDir::Files, QDir::Name)) {
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::ReadOnly)) continue;
    for (const QString& text : QString::fromUtf8(file.readAll()).split(u'\n')) {
      const QRegularExpressionMatch match = line.match(text);
      if (match.hasMatch() && !match.captured(1).isEmpty() && !rows.contains(match.captured(1)))
        rows << match.captured(1);
    }
  }
  return rows;
}
