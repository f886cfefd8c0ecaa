#pragma once

#include "ProjectText.h"

#include <QString>
#include <QStringList>

namespace history {

// What one change did to a project, told from its text before and after: which kind of change
// it was, the row it touched, and its name as the Undo button shows it ("remove row 3").
struct Change {
  enum class Kind { None, RowEdit, RowList, Page, View };

  Kind What = Kind::None;
  int Row = -1;     // the row edited, added, removed or moved (from 0)
  QString Name;     // lower case, after "Undo: "
  QStringList Keys; // the other keys that changed, sorted

  static Change Between(const ProjectText& before, const ProjectText& after);
  // Whether a change continues this one (more typing in the same row, the same slider moved on).
  bool Continues(const Change& next) const;
};

}  // namespace history
