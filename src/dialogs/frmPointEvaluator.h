#pragma once

#include "RowPopup.h"
#include "RowTarget.h"

#include "core/SharedState.h"
#include "expression/ScriptEvaluation.h"
#include "platform/MessageBoxes.h"

#include <QDialog>

#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace mathx {
class MthX;
}

namespace dialogs {

// Turns the function of a row into a table of points: the user gives a start, an end and a step,
// and the points editor opens with the computed values. This form computes no point itself: it
// hands the points editor a description "row;expression;name;from;to;step" as its tag, and the
// editor computes them when it opens. Table opens the editor empty, for typing by hand. The form
// keeps the number of points that the table will get up to date under the fields, red when it is no
// count of 1 to 50. A click elsewhere only puts it away with what was typed; asked for again for
// the same row, it shows the range as it was left and the row's equation as it reads then.
class frmPointEvaluator : public RowPopup {
  Q_OBJECT

public:
  // Opens the points editor with the tag given, at the place given (this form's own corner).
  using OpenTable = std::function<void(const QString& tag, const QPoint& at)>;

  frmPointEvaluator(int row, RowTarget& target, core::SharedState& state, expression::ScriptEvaluation& evaluation,
                    platform::MessageBoxes& boxes, OpenTable openTable, QWidget* parent = nullptr);
  ~frmPointEvaluator() override;

  int Row() const;
  // Its row moved to another place in the list: the evaluator goes with it.
  void SetRow(int row);
  mathx::MthX* mthEquation() const { return m_mthEquation; }
  QLineEdit* txtFrom() const { return m_txtFrom; }
  QLineEdit* txtTo() const { return m_txtTo; }
  QLineEdit* txtStep() const { return m_txtStep; }
  QLabel* lblPointNmb() const { return m_lblPointNmb; }
  QPushButton* btnEvaluate() const { return m_btnEvaluate; }
  QPushButton* btnNew() const { return m_btnNew; }
  QPushButton* btnCancel() const { return m_btnCancel; }
  // The colour of the count as the forms keep colours: 255 red (no valid count), 0 black.
  int PointCountColor() const { return m_countColor; }

  void Form_Activate() override;
  // The one handler of the three fields.
  void PointCount_Change();
  void btnEvaluate_Click();
  void btnNew_Click();
  void btnCancel_Click() override;

protected:
  void Leave() override;

private:
  void SetCountColor(int color);

  RowTarget& m_target;
  core::SharedState& m_state;
  expression::ScriptEvaluation& m_evaluation;
  platform::MessageBoxes& m_boxes;
  OpenTable m_openTable;
  mathx::MthX* m_mthEquation;
  QLineEdit* m_txtFrom;
  QLineEdit* m_txtTo;
  QLineEdit* m_txtStep;
  QLabel* m_lblPointNmb;
  QPushButton* m_btnEvaluate;
  QPushButton* m_btnNew;
  QPushButton* m_btnCancel;
  int m_countColor = 0;
  bool m_filled = false;
};

}  // namespace dialogs
