#pragma once

// Readable QString values in GoogleTest's failure messages.
#include <QString>
#include <QStringList>

#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

inline void PrintTo(const QStringList& list, std::ostream* out) {
  *out << '{';
  for (qsizetype i = 0; i < list.size(); ++i) *out << (i ? ", \"" : "\"") << list[i].toStdString() << '"';
  *out << '}';
}
