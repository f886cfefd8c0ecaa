#pragma once

#include "ribbon/CommandBars.h"

#include <QString>

namespace platform {
class ColorChooser;
class Desktop;
}

namespace rows {

class FunctionList;
class RowMenu;

// The commands of a row's context menu and of its note's menu, on the row that the menu's tag
// names. Those that rewrite the attribute list replot and mark the project; the note's commands
// work on the note's selection.
class RowCommands {
public:
  RowCommands(FunctionList& rows, RowMenu& menu, platform::ColorChooser& colors, platform::Desktop& desktop);

  // Whether the id is one of these commands; it has run when so. Raises core::RuntimeError where
  // the row's attribute list cannot be read.
  bool Execute(ribbon::CommandControl& control);

  // What the commands need done beyond the rows.
  std::function<void()> Replot;
  std::function<void()> ProjectChanged;
  std::function<void(int row)> MoveTo;       // 1134
  std::function<void(int row)> PointsOf;     // 1174

private:
  void ExclusiveFlag(ribbon::CommandControl& control, int row);
  void Mode(ribbon::CommandControl& control, int row);
  void Flag(ribbon::CommandControl& control, int row, int position);
  void Note(ribbon::CommandControl& control, int row);
  bool NoteCommand(ribbon::CommandControl& control, int row);
  void SetAttributes(int row, const QString& attributes);
  void CopyRow(int row);

  FunctionList& m_rows;
  RowMenu& m_menu;
  platform::ColorChooser& m_colors;
  platform::Desktop& m_desktop;
};

}  // namespace rows
