#include "FormReplotHost.h"

#include "ColorButton.h"
#include "FunctionList.h"
#include "frmMain.h"

#include "core/Tag.h"
#include "mathx/MthX.h"

#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>

namespace rows {

int FormReplotHost::RowCount() const { return m_form.Functions().HighestIndex() + 1; }

QString FormReplotHost::RowText(int row) const { return m_form.Functions().Row(row).mthFunction->Text(); }

std::int32_t FormReplotHost::RowColor(int row) const { return m_form.Functions().Row(row).colrFunction->Color(); }

bool FormReplotHost::RowNoteVisible(int row) const { return !m_form.Functions().Row(row).rchfunNote->isHidden(); }

QString FormReplotHost::RowAttributes(int row) const { return core::Tag(m_form.Functions().Row(row).grpFunction); }

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

}  // namespace rows
