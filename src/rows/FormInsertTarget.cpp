#include "FormInsertTarget.h"

#include "FunctionList.h"
#include "frmMain.h"

#include "mathx/MthX.h"

#include <QPushButton>

namespace rows {

namespace {

// The row that an index names, where there is one.
mathx::MthX* RowEditor(frmMain& form, double index) {
  const int row = static_cast<int>(index);
  if (row < 0 || row > form.Functions().HighestIndex()) return nullptr;
  return form.Functions().Row(row).mthFunction;
}

}  // namespace

QString FormInsertTarget::EditorText(std::int16_t source, double index) const {
  if (source != 0) return {};
  const mathx::MthX* editor = RowEditor(m_form, index);
  return editor ? editor->Text() : QString();
}

void FormInsertTarget::SetEditorText(std::int16_t source, double index, const QString& text) {
  if (source != 0) return;
  if (mathx::MthX* editor = RowEditor(m_form, index)) editor->SetText(text);
}

QString FormInsertTarget::InequalityOperator(int) const { return QStringLiteral(">"); }

void FormInsertTarget::SetInequalityOperator(int, const QString&) {}

void FormInsertTarget::FocusAfter(std::int16_t source, bool) {
  if (source == 0) m_form.Functions().cmdAddFunction()->setFocus();
}

}  // namespace rows
