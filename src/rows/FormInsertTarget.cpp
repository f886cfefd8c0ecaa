#include "FormInsertTarget.h"

#include "FunctionList.h"
#include "InputTabs.h"
#include "frmMain.h"

#include "mathx/MthX.h"

#include <QPushButton>

namespace rows {

mathx::MthX* FormInsertTarget::Editor(std::int16_t source, double index) const {
  InputTabs& tabs = m_form.Tabs();
  const int i = static_cast<int>(index);
  switch (source) {
    case 0:
      if (i < 0 || i > tabs.Functions().HighestIndex()) return nullptr;
      return tabs.Functions().Row(i).mthFunction;
    case 1: return i == 0 || i == 1 ? tabs.Inequality().mthInequality(i) : nullptr;
    case 2: return i == 1 ? tabs.Parametric().mthParametricX() : tabs.Parametric().mthParametricY();
    case 3: return tabs.Surface().Editor(i);
    default: return nullptr;
  }
}

QString FormInsertTarget::EditorText(std::int16_t source, double index) const {
  const mathx::MthX* editor = Editor(source, index);
  return editor ? editor->Text() : QString();
}

void FormInsertTarget::SetEditorText(std::int16_t source, double index, const QString& text) {
  if (mathx::MthX* editor = Editor(source, index)) editor->SetText(text);
}

QString FormInsertTarget::InequalityOperator(int index) const {
  if (index != 0 && index != 1) return QStringLiteral(">");
  return m_form.Tabs().Inequality().cmbInequality(index)->currentText();
}

void FormInsertTarget::SetInequalityOperator(int index, const QString& relation) {
  if (index != 0 && index != 1) return;
  QComboBox* combo = m_form.Tabs().Inequality().cmbInequality(index);
  const int at = combo->findText(relation);
  if (at >= 0) combo->setCurrentIndex(at);
}

void FormInsertTarget::FocusAfter(std::int16_t source, bool inserted) {
  InputTabs& tabs = m_form.Tabs();
  switch (source) {
    case 0: tabs.Functions().cmdAddFunction()->setFocus(); break;
    case 1:
      if (inserted) tabs.Inequality().InequalityLineColor()->setFocus();
      else tabs.Inequality().cmbInequality(0)->setFocus();
      break;
    case 2: tabs.Parametric().txtThetaMin()->setFocus(); break;
    case 3: tabs.Surface().txt3DZoom()->setFocus(); break;
    default: break;
  }
}

}  // namespace rows
