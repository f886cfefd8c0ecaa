#include "FormReplotHost.h"

#include "ColorButton.h"
#include "FunctionList.h"
#include "InputTabs.h"
#include "frmMain.h"

#include "core/Tag.h"
#include "mathx/MthX.h"

#include <QLineEdit>
#include <QTabBar>

namespace rows {

int FormReplotHost::RowCount() const { return m_form.Functions().HighestIndex() + 1; }
QString FormReplotHost::RowText(int row) const { return m_form.Functions().Row(row).mthFunction->Text(); }
std::int32_t FormReplotHost::RowColor(int row) const { return m_form.Functions().Row(row).colrFunction->Color(); }
bool FormReplotHost::RowNoteVisible(int row) const { return !m_form.Functions().Row(row).rchfunNote->isHidden(); }
QString FormReplotHost::RowAttributes(int row) const { return core::Tag(m_form.Functions().Row(row).grpFunction); }
void FormReplotHost::SetRowProblem(int row, const QString& why) { m_form.Functions().SetRowProblem(row, why); }

int FormReplotHost::SelectedTab() const { return m_form.tabInput()->currentIndex(); }

bool FormReplotHost::RibbonChecked(std::int32_t id) const {
  const ribbon::CommandControl* control = m_form.CommandBars().FindControl(id);
  return control != nullptr && control->Checked();
}

QString FormReplotHost::IntegralMinText() const { return m_form.mnu_Integral_min()->text(); }
QString FormReplotHost::IntegralMaxText() const { return m_form.mnu_Integral_max()->text(); }

void FormReplotHost::SetStatusText(const QString& text) { m_form.SetStatusText(9000, text); }

// Only the tabs themselves: the rows stay within reach, so that a row that cannot be drawn can
// still be mended.
void FormReplotHost::SetInputEnabled(bool enabled) { m_form.tabInput()->tabBar()->setEnabled(enabled); }

void FormReplotHost::ShowFullScreen() {
  if (OnFullScreen) OnFullScreen();
}

QString FormReplotHost::InequalityText(int side) const { return m_form.Tabs().Inequality().mthInequality(side)->Text(); }
QString FormReplotHost::InequalityRelation(int side) const {
  return m_form.Tabs().Inequality().cmbInequality(side)->currentText();
}
std::int32_t FormReplotHost::InequalityLineColor() const { return m_form.Tabs().Inequality().InequalityLineColor()->Color(); }
std::int32_t FormReplotHost::InequalityFillColor() const { return m_form.Tabs().Inequality().mnuInequalityColor()->Color(); }
bool FormReplotHost::InequalityTwoSides() const { return m_form.Tabs().Inequality().chkInequalityTwoEquation()->isChecked(); }

QString FormReplotHost::ParametricX() const { return m_form.Tabs().Parametric().mthParametricX()->Text(); }
QString FormReplotHost::ParametricY() const { return m_form.Tabs().Parametric().mthParametricY()->Text(); }
QString FormReplotHost::ParametricMin() const { return m_form.Tabs().Parametric().txtThetaMin()->text(); }
QString FormReplotHost::ParametricMax() const { return m_form.Tabs().Parametric().txtThetaMax()->text(); }
QString FormReplotHost::ParametricType() const { return m_form.Tabs().Parametric().cmbParametricType()->currentText(); }
std::int32_t FormReplotHost::ParametricColor() const { return m_form.Tabs().Parametric().colrParametric()->Color(); }

int FormReplotHost::Selected3DTab() const { return m_form.Tabs().Surface().Tab_3D()->currentIndex(); }
QString FormReplotHost::Text3D(const QString& name) const { return m_form.Tabs().Surface().Text(name); }
int FormReplotHost::GridIndex() const { return m_form.Tabs().Surface().cmb3DGrid()->currentIndex(); }
QString FormReplotHost::ZoomText() const { return m_form.Tabs().Surface().txt3DZoom()->text(); }

}  // namespace rows
