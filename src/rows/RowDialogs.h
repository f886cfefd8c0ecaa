#pragma once

#include "dialogs/RowTarget.h"
#include "dialogs/frmAddPoint.h"
#include "dialogs/frmMoveTo.h"
#include "dialogs/frmPointEvaluator.h"

#include <QList>
#include <QPointer>

#include <functional>

namespace core {
struct SharedState;
}
namespace expression {
class ScriptEvaluation;
}
namespace platform {
class MessageBoxes;
}

namespace rows {

class FunctionList;

// The row dialogs that the row's context menu opens (the move dialog, the points editor, the
// point evaluator), placed beside the row they act on, and the function list as they read and
// change it. One of each is open at a time.
class RowDialogs : public dialogs::RowTarget {
public:
  RowDialogs(FunctionList& list, core::SharedState& state, expression::ScriptEvaluation& evaluation,
             platform::MessageBoxes& boxes, QWidget* parent);
  ~RowDialogs() override;

  // The move dialog for a row.
  void ShowMoveTo(int row);
  // A point list opens in the points editor; any other equation in the evaluator first; an
  // empty row gets an empty editor. The evaluator of the same row, put away by a click elsewhere,
  // comes back as it was left.
  void ShowPoints(int row);
  // The points editor for a tag: a row's index, or "row;expression;name;from;to;step".
  void ShowPointTable(const QString& tag, QPoint at);
  // Rows were moved or removed (newIndexOfOld: where each row now stands, by its old index, -1
  // where it is gone): the points table and the evaluator go with their row. A table whose row is
  // gone asks before points typed into it are dropped; an evaluator whose row is gone closes, as
  // it has nothing left to evaluate.
  void RowsRenumbered(const QList<int>& newIndexOfOld);
  void CloseAll();

  dialogs::frmMoveTo* MoveTo() const { return m_moveTo; }
  dialogs::frmAddPoint* PointTable() const { return m_table; }
  dialogs::frmPointEvaluator* Evaluator() const { return m_evaluator; }

  int HighestIndex() const override;
  QString RowText(int index) const override;
  void SetRowText(int index, const QString& text) override;
  void MoveFunctionTo(int index, int target) override;
  void MarkProjectChanged() override;
  int AddRow() override;
  void FocusAfter(int index) override;

  // The project's changed mark, set by the main form.
  std::function<void()> ProjectChanged;

private:
  QPoint PlaceFor(int row) const;
  static void Present(QWidget* dialog, QPoint at);

  FunctionList& m_list;
  core::SharedState& m_state;
  expression::ScriptEvaluation& m_evaluation;
  platform::MessageBoxes& m_boxes;
  QWidget* m_parent;
  QPointer<dialogs::frmMoveTo> m_moveTo;
  QPointer<dialogs::frmAddPoint> m_table;
  QPointer<dialogs::frmPointEvaluator> m_evaluator;
};

}  // namespace rows
