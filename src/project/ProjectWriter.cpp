#include "ProjectWriter.h"

#include "ProjectFile.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "core/Version.h"

#include <QFileInfo>
#include <QSaveFile>

namespace project {

namespace {

const QString kEnd = QStringLiteral("\r\n");

bool WriteThroughTemporaryFile(const QString& path, const QByteArray& bytes, QString& error) {
  // A file the user made read-only stays so, as on the desktop where it was made so.
  const QFileInfo target(path);
  if (target.exists() && !(target.permissions() & (QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther))) {
    error = QStringLiteral("Permission denied");
    return false;
  }
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) {
    error = file.errorString();
    return false;
  }
  if (file.write(bytes) != bytes.size() || !file.commit()) {
    error = file.errorString();
    file.cancelWriting();
    return false;
  }
  return true;
}

class Text {
public:
  void Line(const QString& line) { m_text += line + kEnd; }
  void Key(const char* key, const QString& value) { Line(QString::fromLatin1(key) + u'=' + value); }
  void Small(const char* key, double value) { Key(key, QString::number(core::RoundToInt16(value))); }
  void Long(const char* key, double value) { Key(key, QString::number(core::RoundToInt32(value))); }
  void Real(const char* key, double value) { Key(key, core::FormatNumber(value)); }
  void Boolean(const char* key, bool value) { Key(key, core::BooleanText(value)); }
  void Section(const char* name) {
    Line(QString());
    Line(QString::fromLatin1(name));
  }
  QString Result() const { return m_text; }

private:
  QString m_text = kEnd;
};

void Settings(Text& t, const ProjectForm& f) {
  t.Section("[Setting]");
  t.Small("[Quality]", f.Number(QStringLiteral("Plot.Quality")));
  t.Small("[Thickness]", f.Number(QStringLiteral("Plot.Thickness")));
  t.Key("[IntMin]", f.Text(QStringLiteral("mnu_Integral_min")));
  t.Key("[IntMax]", f.Text(QStringLiteral("mnu_Integral_max")));
  t.Section("[Plot]");
  t.Real("[Plot][xMin]", f.Number(QStringLiteral("Plot.XMin")));
  t.Real("[Plot][xMax]", f.Number(QStringLiteral("Plot.XMax")));
  t.Real("[Plot][yMin]", f.Number(QStringLiteral("Plot.YMin")));
  t.Real("[Plot][yMax]", f.Number(QStringLiteral("Plot.YMax")));
  t.Long("[Plot][AxisColor]", f.Number(QStringLiteral("Plot.AxisColor")));
  t.Long("[Plot][BackColor]", f.Number(QStringLiteral("Plot.BackColor")));
  t.Boolean("[Plot][Lock]", f.Number(QStringLiteral("btnLock")) != 0);
  t.Section("[Tabs]");
  t.Long("[Tab]", f.Number(QStringLiteral("tabInput")));
}

void Rows(Text& t, const ProjectForm& f) {
  t.Section("[Tabs][Function]");
  for (int i = 0; i <= f.HighestRow(); ++i) {
    t.Line(QStringLiteral("[Function](%1)=[%2:%3:%4:%5]")
               .arg(i)
               .arg(f.RowColor(i))
               .arg(f.RowText(i), f.RowAttributes(i), core::BooleanText(f.RowNoteVisible(i))));
  }
  for (int i = 0; i <= f.HighestRow(); ++i) {
    t.Line(QStringLiteral("[Note](%1)").arg(i));
    t.Line(f.RowNote(i));
    t.Line(QStringLiteral("[EndNote](%1)").arg(i));
  }
  // Only bounds the user chose, so that a project without them is written as it always was; a
  // reader that does not know the key skips it.
  for (int i = 0; i <= f.HighestRow(); ++i) {
    const QString bounds = f.RowSlider(i);
    if (!bounds.isEmpty()) t.Line(QStringLiteral("[Slider](%1)=%2").arg(i).arg(bounds));
  }
}

void Pages(Text& t, const ProjectForm& f) {
  const auto text = [&f](const char* control) { return f.Text(QString::fromLatin1(control)); };
  const auto number = [&f](const char* control) { return f.Number(QString::fromLatin1(control)); };
  t.Section("[Tabs][Inequality]");
  t.Long("[Inq][Two]", number("chkInequalityTwoEquation"));
  t.Key("[Inq][Op][1]", text("cmbInequality(0)"));
  t.Key("[Inq][Op][2]", text("cmbInequality(1)"));
  t.Key("[Inq][Equ][1]", text("mthInequality(0)"));
  t.Key("[Inq][Equ][2]", text("mthInequality(1)"));
  t.Long("[Inq][Color][Line]", number("InequalityLineColor"));
  t.Long("[Inq][Color]", number("mnuInequalityColor"));
  t.Section("[Tabs][Parametric]");
  t.Key("[Para][Type]", text("cmbParametricType"));
  t.Long("[Para][Color]", number("colrParametric"));
  t.Key("[Para][X]", text("mthParametricX"));
  t.Key("[Para][Y]", text("mthParametricY"));
  t.Key("[Para][tMin]", text("txtThetaMin"));
  t.Key("[Para][tMax]", text("txtThetaMax"));
  t.Section("[Tabs][3D]");
  t.Long("[3D][Tab]", number("Tab_3D"));
  t.Key("[3D][Zoom]", text("txt3DZoom"));
  t.Key("[3D][Grid]", text("cmb3DGrid"));
  t.Key("[3D][Function]", text("mth_3D_Function"));
  t.Key("[3D][Polar]", text("mth_3D_Polar"));
  t.Key("[3D][Para][X]", text("mth_3D_Para_x"));
  t.Key("[3D][Para][Y]", text("mth_3D_Para_y"));
  t.Key("[3D][Para][Z]", text("mth_3D_Para_z"));
  const char* box[][2] = {{"[3D][zMin]", "Plot3D.ZMin"}, {"[3D][zMax]", "Plot3D.ZMax"}, {"[3D][yMin]", "Plot3D.YMin"},
                          {"[3D][yMax]", "Plot3D.YMax"}, {"[3D][xMin]", "Plot3D.XMin"}, {"[3D][xMax]", "Plot3D.XMax"}};
  for (const auto& [key, control] : box) t.Real(key, number(control));
  const char* ranges[][2] = {{"[3D][thetaMin]", "txt_thetaMin"}, {"[3D][thetaMax]", "txt_thetaMax"},
                             {"[3D][phiMin]", "txt_phiMin"},     {"[3D][phiMax]", "txt_phiMax"},
                             {"[3D][uMin]", "txt_3D_uMin"},      {"[3D][uMax]", "txt_3D_uMax"},
                             {"[3D][vMin]", "txt_3D_vMin"},      {"[3D][vMax]", "txt_3D_vMax"}};
  for (const auto& [key, control] : ranges) t.Key(key, text(control));
}

}  // namespace

ProjectWriter::ProjectWriter(ProjectForm& form, core::SharedState& state, platform::MessageBoxes& boxes)
    : WriteFile(WriteThroughTemporaryFile), m_form(form), m_state(state), m_boxes(boxes) {}

QString ProjectWriter::Compose(const ProjectForm& form) {
  Text t;
  t.Line(QStringLiteral("{</[File] <Start>}"));
  t.Line(QStringLiteral("Quillograph Project File.    DO NOT EDIT!"));
  t.Line(QStringLiteral("File Version: %1.%2").arg(core::VersionMajor()).arg(core::VersionMinor()));
  Settings(t, form);
  Rows(t, form);
  Pages(t, form);
  t.Line(QStringLiteral("{[File]>/ <end>}"));
  return t.Result();
}

bool ProjectWriter::SaveProject(const QString& path) {
  QString text;
  try {
    text = Compose(m_form);
  } catch (const core::RuntimeError& error) {
    return Fail(path, error.Description());
  }
  // The flag is cleared before the data reach the disk, as the older program did.
  m_state.ProjectChanged = false;
  m_form.SetProjectChanged(false);
  QString error;
  if (!WriteFile(path, ProjectFile::Encode(u'"' + text + QStringLiteral("\"\r\n")), error)) return Fail(path, error);
  return true;
}

bool ProjectWriter::Fail(const QString& path, const QString& description) {
  using Box = platform::MessageBoxes;
  if (!description.isEmpty() && description != u"Cancel was selected.") {
    m_boxes.Show(description, Box::Buttons::Ok, Box::Icon::Exclamation, QStringLiteral("Err-[0010]"));
  }
  if (!QFileInfo::exists(path)) {
    m_boxes.Show(QStringLiteral("Could not save the file."), Box::Buttons::Ok, Box::Icon::Critical,
                 QStringLiteral("Err-[0011]"));
  }
  return false;
}

}  // namespace project
