#include "FormProject.h"

#include "ColorButton.h"
#include "FunctionList.h"
#include "InputTabs.h"
#include "frmMain.h"

#include "core/Tag.h"
#include "interaction/PlotButtons.h"
#include "interaction/StatusPanes.h"
#include "mathx/MthX.h"
#include "plot2d/PlotWidget.h"
#include "plot3d/Plot3DWidget.h"
#include "project/RtfReader.h"
#include "project/RtfWriter.h"

#include <QLineEdit>

namespace rows {

namespace {

// A note as a file holds it: plain lines where it has no formatting, else rich text.
QString StoredNote(const QTextEdit& note) {
  const QTextDocument& document = *note.document();
  if (project::RtfWriter::HasFormatting(document, note.font())) return project::RtfWriter::Write(document);
  return document.toPlainText().replace(u'\n', QStringLiteral("\r\n"));
}

}  // namespace

FormProject::FormProject(frmMain& form) : m_form(form) {
  BuildNumbers();
  BuildTexts();
  InputTabs& tabs = form.Tabs();
  m_tagged = {{QStringLiteral("tabInput"), &tabs},
              {QStringLiteral("mthInequality(0)"), tabs.Inequality().mthInequality(0)},
              {QStringLiteral("mthInequality(1)"), tabs.Inequality().mthInequality(1)},
              {QStringLiteral("cmbParametricType"), tabs.Parametric().cmbParametricType()},
              {QStringLiteral("mthParametricX"), tabs.Parametric().mthParametricX()},
              {QStringLiteral("mthParametricY"), tabs.Parametric().mthParametricY()}};
}

void FormProject::BuildNumbers() {
  plot2d::Plot& plot = m_form.Plot().Scene();
  plot3d::Plot3D& plot3d = m_form.Plot3D().Scene();
  InputTabs& tabs = m_form.Tabs();
  const auto color = [](ColorButton* button) {
    return Number_{[button] { return double(button->Color()); },
                   [button](double v) { button->SetColor(static_cast<std::int32_t>(v)); }};
  };
  m_numbers = {
      {QStringLiteral("Plot.Quality"), {[&plot] { return plot.Quality(); }, [&plot](double v) { plot.SetQuality(v); }}},
      {QStringLiteral("Plot.Thickness"), {[&plot] { return plot.Thickness(); }, [&plot](double v) { plot.SetThickness(v); }}},
      {QStringLiteral("Plot.XMin"), {[&plot] { return plot.XMin(); }, [&plot](double v) { plot.SetXMin(v); }}},
      {QStringLiteral("Plot.XMax"), {[&plot] { return plot.XMax(); }, [&plot](double v) { plot.SetXMax(v); }}},
      {QStringLiteral("Plot.YMin"), {[&plot] { return plot.YMin(); }, [&plot](double v) { plot.SetYMin(v); }}},
      {QStringLiteral("Plot.YMax"), {[&plot] { return plot.YMax(); }, [&plot](double v) { plot.SetYMax(v); }}},
      {QStringLiteral("Plot.AxisColor"), {[&plot] { return plot.AxisColor(); }, [&plot](double v) { plot.SetAxisColor(v); }}},
      {QStringLiteral("Plot.BackColor"), {[&plot] { return plot.BackColor(); }, [&plot](double v) { plot.SetBackColor(v); }}},
      {QStringLiteral("Plot.Interactive"),
       {[&plot] { return double(plot.Interactive()); }, [&plot](double v) { plot.SetInteractive(v != 0); }}},
      {QStringLiteral("btnLock"),
       {[this] { return double(m_form.Buttons().btnLock()->isChecked()); },
        [this](double v) { m_form.Buttons().btnLock()->setChecked(v != 0); }}},
      {QStringLiteral("Pane9005"), {[&plot] { return plot.Quality(); }, [this](double) { m_form.Panes().Sync(); }}},
      {QStringLiteral("Pane9003"), {[&plot] { return plot.Thickness(); }, [this](double) { m_form.Panes().Sync(); }}},
      {QStringLiteral("tabInput"), {[&tabs] { return double(tabs.currentIndex()); }, [&tabs](double v) { tabs.setCurrentIndex(int(v)); }}},
      {QStringLiteral("Tab_3D"),
       {[&tabs] { return double(tabs.Surface().Tab_3D()->currentIndex()); },
        [&tabs](double v) { tabs.Surface().Tab_3D()->setCurrentIndex(int(v)); }}},
      {QStringLiteral("chkInequalityTwoEquation"),
       {[&tabs] { return double(tabs.Inequality().chkInequalityTwoEquation()->isChecked()); },
        [&tabs](double v) {
          // As the user's click: only a change of the check runs its handler.
          QCheckBox* check = tabs.Inequality().chkInequalityTwoEquation();
          if (check->isChecked() == (v != 0)) return;
          check->setChecked(v != 0);
          tabs.Inequality().TwoEquationClicked();
        }}},
      {QStringLiteral("InequalityLineColor"), color(tabs.Inequality().InequalityLineColor())},
      {QStringLiteral("mnuInequalityColor"), color(tabs.Inequality().mnuInequalityColor())},
      {QStringLiteral("colrParametric"), color(tabs.Parametric().colrParametric())},
      {QStringLiteral("Plot3D.XMin"), {[&plot3d] { return plot3d.XMin(); }, [&plot3d](double v) { plot3d.SetXMin(v); }}},
      {QStringLiteral("Plot3D.XMax"), {[&plot3d] { return plot3d.XMax(); }, [&plot3d](double v) { plot3d.SetXMax(v); }}},
      {QStringLiteral("Plot3D.YMin"), {[&plot3d] { return plot3d.YMin(); }, [&plot3d](double v) { plot3d.SetYMin(v); }}},
      {QStringLiteral("Plot3D.YMax"), {[&plot3d] { return plot3d.YMax(); }, [&plot3d](double v) { plot3d.SetYMax(v); }}},
      {QStringLiteral("Plot3D.ZMin"), {[&plot3d] { return plot3d.ZMin(); }, [&plot3d](double v) { plot3d.SetZMin(v); }}},
      {QStringLiteral("Plot3D.ZMax"), {[&plot3d] { return plot3d.ZMax(); }, [&plot3d](double v) { plot3d.SetZMax(v); }}},
  };
}

void FormProject::BuildTexts() {
  InputTabs& tabs = m_form.Tabs();
  const auto edit = [](QLineEdit* field) {
    return Text_{[field] { return field->text(); }, [field](const QString& v) { field->setText(v); }};
  };
  const auto editor = [](mathx::MthX* field) {
    return Text_{[field] { return field->Text(); }, [field](const QString& v) { field->SetText(v); }};
  };
  const auto combo = [](QComboBox* box) {
    return Text_{[box] { return box->currentText(); }, [box](const QString& v) {
                   const int at = box->findText(v);
                   if (at >= 0) box->setCurrentIndex(at);
                 }};
  };
  m_texts = {
      {QStringLiteral("mnu_Integral_min"), edit(tabs.mnu_Integral_min())},
      {QStringLiteral("mnu_Integral_max"), edit(tabs.mnu_Integral_max())},
      {QStringLiteral("cmbInequality(0)"), combo(tabs.Inequality().cmbInequality(0))},
      {QStringLiteral("cmbInequality(1)"), combo(tabs.Inequality().cmbInequality(1))},
      {QStringLiteral("mthInequality(0)"), editor(tabs.Inequality().mthInequality(0))},
      {QStringLiteral("mthInequality(1)"), editor(tabs.Inequality().mthInequality(1))},
      {QStringLiteral("cmbParametricType"), combo(tabs.Parametric().cmbParametricType())},
      {QStringLiteral("mthParametricX"), editor(tabs.Parametric().mthParametricX())},
      {QStringLiteral("mthParametricY"), editor(tabs.Parametric().mthParametricY())},
      {QStringLiteral("txtThetaMin"), edit(tabs.Parametric().txtThetaMin())},
      {QStringLiteral("txtThetaMax"), edit(tabs.Parametric().txtThetaMax())},
      {QStringLiteral("txt3DZoom"), edit(tabs.Surface().txt3DZoom())},
      {QStringLiteral("cmb3DGrid"), combo(tabs.Surface().cmb3DGrid())},
  };
  const char* editors[] = {"mth_3D_Function", "mth_3D_Polar", "mth_3D_Para_x", "mth_3D_Para_y", "mth_3D_Para_z"};
  for (int i = 0; i < 5; ++i) m_texts.insert(QString::fromLatin1(editors[i]), editor(tabs.Surface().Editor(i + 1)));
  for (const char* field : {"txt_thetaMin", "txt_thetaMax", "txt_phiMin", "txt_phiMax", "txt_3D_uMin", "txt_3D_uMax",
                            "txt_3D_vMin", "txt_3D_vMax"}) {
    m_texts.insert(QString::fromLatin1(field), edit(static_cast<QLineEdit*>(tabs.Surface().Field(QString::fromLatin1(field)))));
  }
}

double FormProject::Number(const QString& control) const {
  const auto found = m_numbers.constFind(control);
  return found == m_numbers.constEnd() ? 0 : found->Get();
}

void FormProject::SetNumber(const QString& control, double value) {
  const auto found = m_numbers.constFind(control);
  if (found != m_numbers.constEnd()) found->Set(value);
}

QString FormProject::Text(const QString& control) const {
  const auto found = m_texts.constFind(control);
  return found == m_texts.constEnd() ? QString() : found->Get();
}

void FormProject::SetText(const QString& control, const QString& text) {
  const auto found = m_texts.constFind(control);
  if (found != m_texts.constEnd()) found->Set(text);
}

void FormProject::SetTag(const QString& control, const QString& tag) { core::SetTag(m_tagged.value(control), tag); }

int FormProject::HighestRow() const { return m_form.Functions().HighestIndex(); }
std::int32_t FormProject::RowColor(int row) const { return m_form.Functions().Row(row).colrFunction->Color(); }
void FormProject::SetRowColor(int row, std::int32_t color) { m_form.Functions().Row(row).colrFunction->SetColor(color); }
QString FormProject::RowText(int row) const { return m_form.Functions().Row(row).mthFunction->Text(); }
void FormProject::SetRowText(int row, const QString& text) { m_form.Functions().Row(row).mthFunction->SetText(text); }
void FormProject::SetRowEditorTag(int row, const QString& tag) { core::SetTag(m_form.Functions().Row(row).mthFunction, tag); }
void FormProject::SetRowEditorVisible(int row, bool visible) { m_form.Functions().Row(row).mthFunction->setVisible(visible); }
QString FormProject::RowAttributes(int row) const { return core::Tag(m_form.Functions().Row(row).grpFunction); }
void FormProject::SetRowAttributes(int row, const QString& attributes) {
  core::SetTag(m_form.Functions().Row(row).grpFunction, attributes);
}
bool FormProject::RowNoteVisible(int row) const { return !m_form.Functions().Row(row).rchfunNote->isHidden(); }
void FormProject::SetRowNoteVisible(int row, bool visible) { m_form.Functions().Row(row).rchfunNote->setVisible(visible); }
QString FormProject::RowNote(int row) const { return StoredNote(*m_form.Functions().Row(row).rchfunNote); }

void FormProject::SetRowNote(int row, const QString& stored) {
  QTextEdit& note = *m_form.Functions().Row(row).rchfunNote;
  if (project::RtfReader::IsRtf(stored)) {
    project::RtfReader::Read(QStringView(stored), *note.document());
  } else {
    note.setPlainText(QString(stored).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
  }
}

QString FormProject::RowSlider(int row) const { return m_form.Functions().SliderText(row); }
void FormProject::SetRowSlider(int row, const QString& bounds) { m_form.Functions().SetSliderText(row, bounds); }

void FormProject::RemoveFunction(int index) { m_form.Functions().RemoveFunction(index, false); }
void FormProject::AddFunction() { m_form.Functions().AddFunction(false); }
void FormProject::Replot() { m_form.Replot(true); }
void FormProject::Refresh_mth_Height() { m_form.Refresh_mth_Height(false); }
void FormProject::BeginLoad() { m_form.Functions().BeginBulk(); }
void FormProject::EndLoad() { m_form.Functions().EndBulk(); }

void FormProject::SetProjectChanged(bool changed) {
  m_form.State().ProjectChanged = changed;
  m_form.UpdateTitle();
}

}  // namespace rows
