#pragma once

#include "RowPopup.h"
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
class frmMoveTo : public RowPopup {
  Q_OBJECT

public:
  // index: the row under the context menu, from 0.
  frmMoveTo(int index, RowTarget& target, platform::MessageBoxes& boxes, QWidget* parent = nullptr);

  int Index() const { return m_index; }
  QLabel* lblMoveTo() const { return m_lblMoveTo; }
  QLineEdit* txtMoveTo() const { return m_txtMoveTo; }
  QPushButton* btnOK() const { return m_btnOK; }
  QPushButton* btnCancel() const { return m_btnCancel; }

  void Form_Activate() override;
  void btnOK_Click();
  void btnCancel_Click() override;

private:

  int m_index;
  RowTarget& m_target;
  platform::MessageBoxes& m_boxes;
  QLabel* m_lblMoveTo;
  QLineEdit* m_txtMoveTo;
  QPushButton* m_btnOK;
  QPushButton* m_btnCancel;
};

}  // namespace dialogs
