#pragma once

#include "dialogs/InsertTarget.h"

namespace mathx {
class MthX;
}

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

  // The editor that a source and an index name, where there is one.
  mathx::MthX* Editor(std::int16_t source, double index) const;

private:
  frmMain& m_form;
};

}  // namespace rows
