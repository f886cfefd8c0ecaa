#pragma once

#include <QDialog>

namespace dialogs {

// What the row's small pop-ups (the move dialog, the point evaluator) share: a frameless tool
// window that deletes itself on close, takes Escape as Cancel, and leaves when the user clicks
// anywhere else (not when its own message box takes the activation). Leaving is a cancel unless
// the form keeps itself for the next time it is asked for.
class RowPopup : public QDialog {
  Q_OBJECT

public:
  // Each activation (and the first showing): the form brings its fields up to date.
  virtual void Form_Activate() = 0;
  virtual void btnCancel_Click() = 0;
  // Closed for good, or on its way.
  bool Unloading() const { return m_unloading; }

protected:
  explicit RowPopup(QWidget* parent);

  // Closes the form once; what runs after Unload must not touch the form again.
  void Unload();
  // A click elsewhere: the form goes, applying nothing.
  virtual void Leave() { Unload(); }
  // While the form's own message box is up, losing the activation to it is no leave.
  void SetAnswering(bool answering) { m_answering = answering; }

  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

private:
  bool m_unloading = false;
  bool m_answering = false;
};

}  // namespace dialogs
