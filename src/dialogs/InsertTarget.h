#pragma once

#include "InsertDrafts.h"

#include <QString>

#include <cstdint>

namespace dialogs {

// The editors of the main form that the insert dialog works on, by InsertSource (0 a function
// row, 1 the inequality, 2 the parametric, 3 the 3D inputs) and InsertIndex (which editor).
class InsertTarget {
public:
  virtual ~InsertTarget() = default;
  virtual QString EditorText(std::int16_t source, double index) const = 0;
  // Writes the text as the user's edit: the editor's change handler runs.
  virtual void SetEditorText(std::int16_t source, double index, const QString& text) = 0;
  // The relation chosen beside an inequality's editor (">", "<", ">=", "<=").
  virtual QString InequalityOperator(int index) const = 0;
  virtual void SetInequalityOperator(int index, const QString& relation) = 0;
  // Where the focus goes when the dialog has gone: after Insert, or after Cancel and closing.
  virtual void FocusAfter(std::int16_t source, bool inserted) = 0;

  // What the insert dialog keeps for these editors between its openings.
  InsertDrafts& Drafts() { return m_drafts; }

private:
  InsertDrafts m_drafts;
};

}  // namespace dialogs
