#pragma once

#include "InsertTarget.h"

#include "core/SharedState.h"
#include "platform/MessageBoxes.h"
#include "ribbon/CommandBars.h"

#include <QDialog>
#include <QTimer>

class QLabel;
class QLineEdit;
class QMenuBar;
class QPushButton;

namespace mathx {
class MthX;
}

namespace dialogs {

// The large editor for one equation, shown in two styles that follow each other: typeset in
// mthStandard and as plain text in txtLinear. Insert writes the equation back to the editor of
// the main form it came from (InsertSource, InsertIndex); Cancel, closing and losing the
// activation write nothing. Insert writes only what the standard style shows: while the linear
// text can't be read (red), Insert waits and the reason stands under the field. Losing the
// activation keeps what was typed as a draft for that editor, shown again at its next opening,
// until Insert or Cancel. Its menu bar (Ribbon/Menubar.xcb) holds point templates, the
// derivative and display commands. The window grows with the equation and shrinks back.
class frmInsert : public QDialog {
  Q_OBJECT

public:
  frmInsert(core::SharedState& state, platform::MessageBoxes& boxes, InsertTarget& target,
            const QString& menuBarFile, QWidget* parent = nullptr);
  ~frmInsert() override;

  mathx::MthX* mthStandard() const { return m_mthStandard; }
  QLineEdit* txtLinear() const { return m_txtLinear; }
  QPushButton* btnInsert() const { return m_btnInsert; }
  QPushButton* btnCancel() const { return m_btnCancel; }
  // Why the linear text can't be inserted, in words; empty when it can.
  QLabel* lblReason() const { return m_lblReason; }
  ribbon::CommandBars& CommandBars() { return m_bars; }
  QMenuBar* MenuBar() const { return m_menuBar; }

  // The menu bar's commands, by the control that fired.
  void CommandBars_Execute(ribbon::CommandControl& control);
  void Insert();
  // The user's Cancel (the button, Escape, the window's close button): nothing is written and
  // the draft for the editor goes.
  void btnCancel_Click();
  // Closes the dialog writing nothing, as the main form does when it must go; what was typed
  // stays as the editor's draft.
  void Cancel();
  // Why a linear text can't be turned into an equation ("a bracket is not closed", "unknown
  // name: foo"); empty when it can.
  QString Problem(const QString& linear) const;
  // The size the window grows towards, and one step of the growing (the timer's tick).
  QSize WantedSize() const;
  void Animate();

protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

private:
  void Fill();
  void StandardChanged();
  void LinearChanged();
  bool StillTyping(const QString& typed) const;
  void ShowConverted(const QString& typed, const QString& row);
  void LinearFinished();
  void Derivative();
  void DisplayCommand(ribbon::CommandControl& control);
  void SetBoth(const QString& standard, const QString& linear);
  void Unload();
  void Leave();
  void SetProblem(const QString& reason);
  void PlaceControls();

  core::SharedState& m_state;
  platform::MessageBoxes& m_boxes;
  InsertTarget& m_target;
  ribbon::CommandBars m_bars;
  QMenuBar* m_menuBar;
  QWidget* m_grpAllControls;
  QLabel* m_lblStandard;
  mathx::MthX* m_mthStandard;
  QWidget* m_grpControls;
  QLabel* m_lblLinear;
  QLineEdit* m_txtLinear;
  QPushButton* m_btnInsert;
  QPushButton* m_btnCancel;
  QLabel* m_lblReason;
  QString m_base;        // the editor's text as the dialog opened with it, in the standard style
  QString m_baseLinear;  // and in the linear style
  QString m_lastLinear;  // the linear text before the user's last change
  QTimer m_tmrAnimater;
  bool m_unloading = false;
  bool m_answering = false;  // a message box of ours is up: losing the activation to it is no leave
};

}  // namespace dialogs
