#pragma once

#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

namespace history {

// A project's text as the writer composes it, taken apart so that two texts can be compared row
// by row and key by key.
struct ProjectText {
  // What a file keeps of one row: its "[Function](n)" value, its note's lines, and any other
  // "[Key](n)" lines that belong to it (key and value, in file order).
  struct Row {
    QString Function;
    QStringList Note;
    std::vector<std::pair<QString, QString>> Extra;
    bool operator==(const Row&) const = default;
    // The fields of the function value: colour, text, then the flags and the note's visibility.
    QStringList Fields() const;
  };

  std::vector<Row> Rows;
  // Every other "key=value" line, in file order.
  std::vector<std::pair<QString, QString>> Keys;

  static ProjectText Parse(const QString& text);
  // The keys whose values differ between two texts (or that only one of them has).
  static QStringList ChangedKeys(const ProjectText& before, const ProjectText& after);
};

}  // namespace history
