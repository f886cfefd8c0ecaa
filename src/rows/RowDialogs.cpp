#include "RowDialogs.h"

#include "FunctionList.h"

#include "core/Tag.h"
#include "mathx/MthX.h"

#include <QGuiApplication>
#include <QScreen>
#include <QToolButton>

#include <algorithm>

namespace rows {

RowDialogs::RowDialogs(FunctionList& list, core::SharedState& state, expression::ScriptEvaluation& evaluation,
                       platform::MessageBoxes& boxes, QWidget* parent)
    : m_list(list), m_state(state), m_evaluation(evaluation), m_boxes(boxes), m_parent(parent) {}

RowDialogs::~RowDialogs() { CloseAll(); }

void RowDialogs::ShowMoveTo(int row) {
  if (row < 0 || row > HighestIndex()) return;
  delete m_moveTo.data();
  m_moveTo = new dialogs::frmMoveTo(row, *this, m_boxes, m_parent);
  Present(m_moveTo, PlaceFor(row));
}

void RowDialogs::ShowPoints(int row) {
  if (row < 0 || row > HighestIndex()) return;
  const QString text = RowText(row);
  if (text.isEmpty() || text.startsWith(u'[')) {
    ShowPointTable(QString::number(row), PlaceFor(row));
    return;
  }
  // The evaluator put away by a click elsewhere comes back for its row with what was typed.
  if (m_evaluator && !m_evaluator->Unloading() && m_evaluator->Row() == row) {
    Present(m_evaluator, PlaceFor(row));
    return;
  }
  delete m_evaluator.data();
  m_evaluator = new dialogs::frmPointEvaluator(
      row, *this, m_state, m_evaluation, m_boxes, [this](const QString& tag, const QPoint& at) { ShowPointTable(tag, at); },
      m_parent);
  Present(m_evaluator, PlaceFor(row));
}

void RowDialogs::ShowPointTable(const QString& tag, QPoint at) {
  delete m_table.data();
  m_table = new dialogs::frmAddPoint(tag, *this, m_state, m_evaluation, m_boxes, m_parent);
  Present(m_table, at);
}

void RowDialogs::RowsRenumbered(const QList<int>& newIndexOfOld) {
  const auto follow = [&newIndexOfOld](int row) { return row >= 0 && row < newIndexOfOld.size() ? newIndexOfOld[row] : row; };
  if (m_evaluator) {
    const int row = follow(m_evaluator->Row());
    if (row >= 0) m_evaluator->SetRow(row);
    else m_evaluator->close();
  }
  if (m_table && m_table->Row() >= 0) {
    const int row = follow(m_table->Row());
    if (row >= 0) m_table->SetRow(row);
    else m_table->RowRemoved();
  }
}

void RowDialogs::CloseAll() {
  delete m_moveTo.data();
  delete m_table.data();
  delete m_evaluator.data();
}

int RowDialogs::HighestIndex() const { return m_list.HighestIndex(); }

QString RowDialogs::RowText(int index) const {
  if (index < 0 || index > HighestIndex()) return {};
  return m_list.Row(index).mthFunction->Text();
}

void RowDialogs::SetRowText(int index, const QString& text) {
  if (index < 0 || index > HighestIndex()) return;
  mathx::MthX* editor = m_list.Row(index).mthFunction;
  // The row's own change handler lays it out, replots and marks the project; it stays quiet
  // while the editor's tag says so.
  core::SetTag(editor, QString());
  editor->SetText(text);
}

void RowDialogs::MoveFunctionTo(int index, int target) { m_list.MoveFunctionTo(index, target); }

void RowDialogs::MarkProjectChanged() {
  if (ProjectChanged) ProjectChanged();
}

int RowDialogs::AddRow() {
  const int before = HighestIndex();
  m_list.AddFunction(false);
  return HighestIndex() > before ? HighestIndex() : -1;
}

void RowDialogs::FocusAfter(int index) {
  if (index >= 0 && index <= HighestIndex() && m_list.Row(index).mthFunction->isVisible()) {
    m_list.SetActiveRow(index);
    m_list.Row(index).mthFunction->setFocus();
    return;
  }
  m_list.cmdAddFunction()->setFocus();
}

QPoint RowDialogs::PlaceFor(int row) const {
  const QToolButton* more = m_list.Row(row).btnMore;
  return more->mapToGlobal(QPoint(more->width() + 4, 0));
}

void RowDialogs::Present(QWidget* dialog, QPoint at) {
  // Kept on the screen that holds the row, whole where it fits.
  if (const QScreen* screen = QGuiApplication::screenAt(at)) {
    const QRect area = screen->availableGeometry();
    const QSize size = dialog->sizeHint().expandedTo(dialog->size());
    at.setX(std::clamp(at.x(), area.left(), std::max(area.left(), area.right() - size.width())));
    at.setY(std::clamp(at.y(), area.top(), std::max(area.top(), area.bottom() - size.height())));
  }
  dialog->move(at);
  dialog->show();
  dialog->raise();
  dialog->activateWindow();
}

}  // namespace rows
