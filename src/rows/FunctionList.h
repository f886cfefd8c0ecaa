#pragma once

#include "FunctionRow.h"

#include "core/SharedState.h"
#include "platform/ColorChooser.h"
#include "platform/MessageBoxes.h"

#include <QPushButton>
#include <QScrollBar>
#include <QWidget>

#include <vector>

class QKeyEvent;

namespace rows {

// The function list, the first page of the input tabs: the rows stacked in picFunction, which
// slides under its window grpFunctions as scrlFunctions moves, and the buttons that add a row and
// clear the list. It adds, removes, exchanges and lays out rows; what a change means for the
// picture and the project it tells through its signals.
class FunctionList : public QWidget {
  Q_OBJECT

public:
  FunctionList(core::SharedState& state, platform::MessageBoxes& boxes, platform::ColorChooser& chooser,
               QWidget* parent = nullptr);
  ~FunctionList() override;

  // Rows 0 to HighestIndex(); there is always at least one.
  int HighestIndex() const { return static_cast<int>(m_rows.size()) - 1; }
  FunctionRow& Row(int index) { return m_rows.at(static_cast<std::size_t>(index)); }
  const FunctionRow& Row(int index) const { return m_rows.at(static_cast<std::size_t>(index)); }
  RowContents Contents(int index) const;
  void SetContents(int index, const RowContents& contents);

  // A constant row's slider bounds as the project file keeps them ("-5:5:0.5"): empty unless the
  // user chose them and the row is a constant. Text that makes no bounds is ignored.
  QString SliderText(int index) const;
  void SetSliderText(int index, const QString& text);

  void AddFunction(bool ShowNote);
  void RemoveFunction(int Index, bool Replot);
  void MoveFunctionTo(int Index, int Target);
  void MoveFunctionUp(int Index) { MoveFunctionTo(Index, Index - 1); }
  void MoveFunctionDown(int Index) { MoveFunctionTo(Index, Index + 1); }
  // The click of cmdClearAllFunction: asks, then leaves one empty row.
  void ClearAllFunctions();
  void Refresh_mth_Height(bool ScrollToEnd);
  void Refresh_ActivateLines();
  // Many rows at once (a project being read): the layout passes wait for the end, where one pass
  // leaves the list as the many would have.
  void BeginBulk() { ++m_bulk; }
  void EndBulk();

  // The warning mark of a row that cannot be drawn, with why; an empty why takes it away. An index
  // past the end is ignored.
  void SetRowProblem(int row, const QString& why);
  // What a screen reader says of a row, told again after its text, colour or flags changed.
  void SpeakRow(int index);
  // What a row's editor shows on hovering: the whole equation, typeset, when the editor cuts it
  // off; else its usual hint.
  QString EditorToolTip(int row) const;

  int ActiveRow() const { return m_activeRow; }
  void SetActiveRow(int row);

  QWidget* grpFunctions() const { return m_grpFunctions; }
  QWidget* picFunction() const { return m_picFunction; }
  QScrollBar* scrlFunctions() const { return m_scrlFunctions; }
  QPushButton* cmdAddFunction() const { return m_cmdAddFunction; }
  QPushButton* cmdClearAllFunction() const { return m_cmdClearAllFunction; }
  QWidget* grp_Control_Functions() const { return m_grpControlFunctions; }

  // Heights of the list's window and the scroll bar, from the form's resize (twips).
  void SetListHeight(double twips);

signals:
  // The picture must be drawn again from the rows (the replot driver, with or without 3D).
  void ReplotRequested(bool with3D);
  // The project has changes to save.
  void Changed();
  // A click on a row's editor asks for the insert dialog, for that row.
  void InsertRequested(int row);
  // The insert dialog must close (rows were exchanged under it).
  void CloseInsertRequested();
  // Rows were exchanged or removed: an index held elsewhere may now name another row.
  void RowsRearranged();
  // After a removal, a move or Clear all: where each row that was there before now stands, by its
  // old index (-1 where it is gone), so that a dialog on a row can follow it.
  void RowsRenumbered(const QList<int>& newIndexOfOld);
  // A click on btnMore(row), and a right-button release on a note.
  void MoreRequested(int row);
  void NoteMenuRequested(int row, QPoint globalPosition);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  void Connect(int index);
  void EditorClicked(int index);
  void EditorChanged(int index);
  void PlaceList();
  void PlaceStatusIcon(FunctionRow& row, int index);
  // The slider line shown under a constant row with its value, hidden under any other.
  void SyncSlider(FunctionRow& row);
  void SetConstantValue(int index, const QString& value);
  std::vector<RowContents> CopyRows() const;
  void Scroll(int position);
  bool RowKey(int index, const QKeyEvent& key);
  void FocusRow(int index);
  void ChainTabOrder();
  void ShowRow(int index);

  core::SharedState& m_state;
  platform::MessageBoxes& m_boxes;
  platform::ColorChooser& m_chooser;
  std::vector<FunctionRow> m_rows;
  int m_activeRow = 0;
  QWidget* m_grpFunctions;
  QWidget* m_picFunction;
  QScrollBar* m_scrlFunctions;
  QWidget* m_grpControlFunctions;
  QPushButton* m_cmdAddFunction;
  QPushButton* m_cmdClearAllFunction;
  double m_picHeight = 0;  // twips
  double m_listHeight = 0;  // twips: grpFunctions' height
  int m_bulk = 0;
  int m_chainedRows = 0;  // the rows the Tab order was chained for
  bool m_bulkScrollToEnd = false;
};

}  // namespace rows
