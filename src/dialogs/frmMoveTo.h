#pragma once

#include "RowTarget.h"

#include "platform/MessageBoxes.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace dialogs {

// Asks for the number of the row with which the row under the context menu trades places. Rows
// are counted from 1 here, as their captions show them. A number outside the list, or the row's
// own number, is refused with a message and the dialog stays; a valid one exchanges the two rows
// and marks the project changed. Cancel, Escape and losing the activation change nothing.
class frmMoveTo : public QDialog {
  Q_OBJECT

public:
  // index: the row under the context menu, from 0.
  frmMoveTo(int index, RowTarget& target, platform::MessageBoxes& boxes, QWidget* parent = nullptr);

  int Index() const { return m_index; }
  QLabel* lblMoveTo() const { return m_lblMoveTo; }
  QLineEdit* txtMoveTo() const { return m_txtMoveTo; }
  QPushButton* btnOK() const { return m_btnOK; }
  QPushButton* btnCancel() const { return m_btnCancel; }

  void Form_Activate();
  void btnOK_Click();
  void btnCancel_Click();

protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

private:
  void Unload();

  int m_index;
  RowTarget& m_target;
  platform::MessageBoxes& m_boxes;
  QLabel* m_lblMoveTo;
  QLineEdit* m_txtMoveTo;
  QPushButton* m_btnOK;
  QPushButton* m_btnCancel;
  bool m_unloading = false;
  bool m_answering = false;  // our own message box is up: losing the activation to it is no leave
};

}  // namespace dialogs
