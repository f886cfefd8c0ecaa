#pragma once

#include "RowTarget.h"

#include "core/SharedState.h"
#include "expression/ScriptEvaluation.h"
#include "platform/MessageBoxes.h"

#include <QDialog>
#include <QTimer>

#include <functional>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QToolButton;

namespace dialogs {

// The point list of one function row as a small table: a line of two fields for each point, on a
// scrolling panel. It takes the row's text apart on opening ("[x,y;1,2;3,4]", any of the four
// heads) and writes it back on OK in the normal head ("[x,y" or "[r,q..symb"), leaving out the
// lines with an empty field. Each field holds an expression; what is not a plain number shows its
// value beside it. A fresh empty line waits under the filled ones until the table holds 50.
//
// OK waits while a field shows "?" (no number, or a comma or semicolon that would cut the point
// list apart), and it asks before points replace a row that holds a function. The table follows
// its row when rows are moved or removed; when the row itself goes, it asks before points typed
// here are dropped, and if they are kept, OK puts them into a new row.
//
// The form's tag is the row's index, or, from the point evaluator, "row;expression;name;from;
// to;step": then the table computes those points when it is first activated and the tag is cut
// back to the row. The form grows open from nothing; it stays open when another window is
// activated, so that numbers can be fetched from elsewhere and pasted.
class frmAddPoint : public QDialog {
  Q_OBJECT

public:
  frmAddPoint(const QString& tag, RowTarget& target, core::SharedState& state, expression::ScriptEvaluation& evaluation,
              platform::MessageBoxes& boxes, QWidget* parent = nullptr);
  ~frmAddPoint() override;

  // The row the table belongs to: the numeric prefix of the tag; -1 once the row was removed and
  // the points kept.
  int Row() const;
  // The row moved to another place in the list: the table goes with it.
  void SetRow(int row);
  // The row was removed under the table: it closes at once if it holds nothing of the user's,
  // else asks; kept points go into a new row on OK.
  void RowRemoved();
  // The point list that OK writes, and whether it differs from the one the table opened with.
  QString PointList() const;
  bool Edited() const;
  // Every field is empty or can be computed: OK takes the table.
  bool Readable() const;
  // The number of table lines, filled or not.
  int PointCount() const { return static_cast<int>(m_lines.size()); }
  QLabel* lblIndex(int line) const;
  QLineEdit* txtPoint_X(int line) const;
  QLineEdit* txtPoint_Y(int line) const;
  QToolButton* btnRemove(int line) const;
  // The value shown inside a field whose text is no plain number (column 0 or 1).
  QLabel* ValueOf(int line, int column) const;
  QComboBox* cmbPointGrid() const { return m_cmbPointGrid; }
  QLabel* lblColumn(int column) const { return column == 0 ? m_lblFirst : m_lblSecond; }
  QScrollArea* rszPoints() const { return m_rszPoints; }
  QLabel* btnFade() const { return m_btnFade; }
  QPushButton* btnOK() const { return m_btnOK; }
  QPushButton* btnCancel() const { return m_btnCancel; }

  // Lays the table out again and brings its newest line into view.
  void Refresh_Controls();
  // The next table line, empty, under the one before.
  void AddNewPoint();
  void Form_Activate();
  void btnRemove_Click(int line);
  void cmbPointGrid_Click();
  void btnOK_Click();
  void btnCancel_Click();
  // Two columns of numbers (a spreadsheet's tabs, or commas, one point a line) into the table
  // from the line given on; a single column fills the column given. What a paste into a field
  // does.
  void PasteTable(int line, int column, const QString& text);
  // One tick of the opening animation, and the size it grows to.
  void tmrResize_Timer();
  QSize TargetSize() const;

  // The clipboard's text, unless replaced (as tests do).
  std::function<QString()> PasteText;

protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

private:
  struct Line {
    QLabel* Index;
    QLineEdit* X;
    QLineEdit* Y;
    QLabel* ValueX;
    QLabel* ValueY;
    QToolButton* Remove;
  };

  void Load();
  void ComputePoints(const QStringList& pieces);
  void PointChanged(int line, int column);
  void ShowValue(QLineEdit* field, QLabel* value);
  void PlaceValue(QLineEdit* field, QLabel* value);
  void SetLine(int line, const QString& first, const QString& second);
  bool Filled(int line) const;
  bool Blank(int line) const;
  int LineOf(const QObject* field, int* column) const;
  void EnterPressed(int line, int column);
  void FocusField(int line, int column);
  void SetHint(const QString& text, bool warning);
  void RefreshOK();
  bool AskReplace(int row, const QString& current);
  void PlaceControls();
  void PlaceLines();
  void Unload();

  RowTarget& m_target;
  core::SharedState& m_state;
  expression::ScriptEvaluation& m_evaluation;
  platform::MessageBoxes& m_boxes;
  std::vector<Line> m_lines;
  QLabel* m_lblGrid;
  QComboBox* m_cmbPointGrid;
  QLabel* m_lblFirst;
  QLabel* m_lblSecond;
  QScrollArea* m_rszPoints;
  QWidget* m_picPoints;
  QLabel* m_btnFade;
  QPushButton* m_btnOK;
  QPushButton* m_btnCancel;
  QTimer m_tmrResize;
  bool m_quiet = false;  // the program writes the fields: the typing rule stays out of it
  bool m_activated = false;
  QString m_opened;         // the point list as the table opened, before the user's work
  bool m_unreadable = false;  // a field shows "?": OK waits
  bool m_unloading = false;
};

}  // namespace dialogs
