#pragma once

#include <QIcon>

namespace rows {

// The status icons a row shows in its colour picker's place: a hidden row, a display command, a
// note.
class RowStatusIcons {
public:
  enum Kind { Note = 1, Hidden = 2, Command = 4 };
  static QIcon Icon(Kind kind);
};

}  // namespace rows
