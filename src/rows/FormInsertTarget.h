#pragma once

#include "dialogs/InsertTarget.h"

namespace rows {

class frmMain;

// The main form's editors as the insert dialog reads and writes them.
class FormInsertTarget : public dialogs::InsertTarget {
public:
  explicit FormInsertTarget(frmMain& form) : m_form(form) {}

  QString EditorText(std::int16_t source, double index) const override;
  void SetEditorText(std::int16_t source, double index, const QString& text) override;
  QString InequalityOperator(int index) const override;
  void SetInequalityOperator(int index, const QString& relation) override;
  void FocusAfter(std::int16_t source, bool inserted) override;

private:
  frmMain& m_form;
};

}  // namespace rows
