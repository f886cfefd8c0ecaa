#pragma once

#include <QString>

namespace dialogs {

// The rows of the main form's function list, as the row dialogs (the move dialog, the points
// editor and the point evaluator) read and change them. Rows are numbered from 0 to
// HighestIndex(); there is always at least one.
class RowTarget {
public:
  virtual ~RowTarget() = default;

  virtual int HighestIndex() const = 0;
  // The row's text, as its equation editor holds it ("" for an index outside the list).
  virtual QString RowText(int index) const = 0;
  // Writes the row's text as the user's edit: the row's change handler runs, which lays the row
  // out again, replots and marks the project changed.
  virtual void SetRowText(int index, const QString& text) = 0;
  // Exchanges the rows index and target; a target outside the list is refused without a word.
  // It replots, but leaves the project's changed mark to the caller.
  virtual void MoveFunctionTo(int index, int target) = 0;
  virtual void MarkProjectChanged() = 0;
  // A new empty row at the end of the list, for points whose own row was removed meanwhile: its
  // index, or -1 when the list holds no more rows (the list says so itself).
  virtual int AddRow() = 0;
  // A row dialog has done its work or was cancelled, and the main form takes the focus back
  // (not called when the dialog went because it lost the activation: the focus is elsewhere).
  virtual void FocusAfter(int index) = 0;
};

}  // namespace dialogs
