#include "frmMoveTo.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace dialogs {

frmMoveTo::frmMoveTo(int index, RowTarget& target, platform::MessageBoxes& boxes, QWidget* parent)
    : RowPopup(parent), m_index(index), m_target(target), m_boxes(boxes) {
  setObjectName(QStringLiteral("frmMoveTo"));
  setWindowTitle(tr("Move Function"));

  m_lblMoveTo = new QLabel(QStringLiteral("Move Function To (1-500):"), this);
  m_lblMoveTo->setObjectName(QStringLiteral("lblMoveTo"));
  m_txtMoveTo = new QLineEdit(this);
  m_txtMoveTo->setObjectName(QStringLiteral("txtMoveTo"));
  m_txtMoveTo->setToolTip(tr("The number of the function to trade places with"));
  m_lblMoveTo->setBuddy(m_txtMoveTo);
  m_btnOK = new QPushButton(QStringLiteral("&OK"), this);
  m_btnOK->setObjectName(QStringLiteral("btnOK"));
  m_btnOK->setDefault(true);
  m_btnCancel = new QPushButton(QStringLiteral("&Cancel"), this);
  m_btnCancel->setObjectName(QStringLiteral("btnCancel"));

  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(6);
  buttons->addStretch();
  buttons->addWidget(m_btnOK);
  buttons->addWidget(m_btnCancel);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 10, 12, 10);
  layout->setSpacing(6);
  layout->addWidget(m_lblMoveTo);
  layout->addWidget(m_txtMoveTo);
  layout->addSpacing(4);
  layout->addLayout(buttons);
  setMinimumWidth(230);

  connect(m_btnOK, &QPushButton::clicked, this, &frmMoveTo::btnOK_Click);
  connect(m_btnCancel, &QPushButton::clicked, this, &frmMoveTo::btnCancel_Click);
  Form_Activate();
}

void frmMoveTo::Form_Activate() {
  const int rows = m_target.HighestIndex() + 1;
  m_lblMoveTo->setText(QStringLiteral("Move Function To (1-") + QString::number(rows) + QStringLiteral("):"));
  m_txtMoveTo->setPlaceholderText(tr("1 to %1").arg(rows));
  m_txtMoveTo->setFocus();
}

void frmMoveTo::btnOK_Click() {
  if (Unloading()) return;
  const int rows = m_target.HighestIndex() + 1;
  // The number as the field starts: blanks and a tail of anything else are let go, halves go to
  // the even neighbour. A number too large for the row numbers is simply no row.
  int n = 0;
  try {
    n = core::RoundToInt16(core::NumericPrefix(m_txtMoveTo->text()));
  } catch (const core::RuntimeError&) {
    n = 0;
  }
  if (n > rows || n < 1 || n - 1 == m_index) {
    SetAnswering(true);
    m_boxes.Show(QStringLiteral("Invalid Function Number."), platform::MessageBoxes::Buttons::Ok,
                 platform::MessageBoxes::Icon::Exclamation, QStringLiteral("Invalid Move to [Msg-0005]"));
    SetAnswering(false);
    if (!Unloading()) {
      m_txtMoveTo->setFocus();
      m_txtMoveTo->selectAll();
    }
    return;
  }
  const int index = m_index;
  RowTarget& target = m_target;
  Unload();
  target.MoveFunctionTo(index, n - 1);
  target.MarkProjectChanged();
  target.FocusAfter(n - 1);
}

void frmMoveTo::btnCancel_Click() {
  if (Unloading()) return;
  const int index = m_index;
  RowTarget& target = m_target;
  Unload();
  target.FocusAfter(index);
}

}  // namespace dialogs
