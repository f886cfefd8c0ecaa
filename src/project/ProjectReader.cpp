#include "ProjectReader.h"

#include "MemoryProjectForm.h"
#include "ProjectFile.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "core/TextFunctions.h"

#include <QFile>
#include <QFileInfo>

namespace project {

namespace {

using core::NumericPrefix;

const QString kQuiet = QStringLiteral("NOT");

// The index between the first "(" and the last character: "[Function](3)" gives 3.
std::int16_t IndexOf(const QString& key) {
  const int open = core::InStr(key, QStringLiteral("("));
  return core::RoundToInt16(NumericPrefix(core::Mid(key, open + 1, std::max<qsizetype>(key.size() - open - 1, 0))));
}

void RequireRow(const ProjectForm& form, int row) {
  if (row < 0 || row > form.HighestRow()) throw core::RuntimeError::Of(core::RuntimeError::SubscriptOutOfRange);
}

}  // namespace

ProjectReader::ProjectReader(ProjectForm& form, core::SharedState& state, platform::MessageBoxes& boxes)
    : m_form(form), m_state(state), m_boxes(boxes) {
  BuildActions();
}

// What each key does with its value; a key that is not here is skipped.
void ProjectReader::BuildActions() {
  ProjectForm& f = m_form;
  const auto text = [&f](const char* control) {
    return [&f, control](const QString& v) { f.SetText(QString::fromLatin1(control), v); };
  };
  const auto quietText = [&f](const char* control, const char* tagAfter) {
    return [&f, control, tagAfter](const QString& v) {
      f.SetTag(QString::fromLatin1(control), kQuiet);
      f.SetText(QString::fromLatin1(control), v);
      f.SetTag(QString::fromLatin1(control), QString::fromLatin1(tagAfter));
    };
  };
  const auto prefix = [&f](const char* control) {
    return [&f, control](const QString& v) { f.SetNumber(QString::fromLatin1(control), NumericPrefix(v)); };
  };
  const auto longPrefix = [&f](const char* control) {
    return [&f, control](const QString& v) { f.SetNumber(QString::fromLatin1(control), core::RoundToInt32(NumericPrefix(v))); };
  };
  const auto strict = [&f](const char* control) {
    return [&f, control](const QString& v) { f.SetNumber(QString::fromLatin1(control), core::StrictToDouble(v)); };
  };
  const auto small = [&f](const char* control, const char* pane) {
    return [&f, control, pane](const QString& v) {
      const std::int16_t value = core::RoundToInt16(NumericPrefix(v));
      f.SetNumber(QString::fromLatin1(control), value);
      f.SetNumber(QString::fromLatin1(pane), value);
    };
  };
  m_actions = {
      {QStringLiteral("[Tab]"),
       [&f](const QString& v) {
         f.SetTag(QStringLiteral("tabInput"), kQuiet);
         f.SetNumber(QStringLiteral("tabInput"), core::RoundToInt32(NumericPrefix(v)));
         f.SetTag(QStringLiteral("tabInput"), QString());
       }},
      {QStringLiteral("[Quality]"), small("Plot.Quality", "Pane9005")},
      {QStringLiteral("[Thickness]"), small("Plot.Thickness", "Pane9003")},
      {QStringLiteral("[IntMin]"), text("mnu_Integral_min")},
      {QStringLiteral("[IntMax]"), text("mnu_Integral_max")},
      {QStringLiteral("[Plot][xMin]"), prefix("Plot.XMin")},
      {QStringLiteral("[Plot][yMin]"), prefix("Plot.YMin")},
      {QStringLiteral("[Plot][xMax]"), prefix("Plot.XMax")},
      {QStringLiteral("[Plot][yMax]"), prefix("Plot.YMax")},
      {QStringLiteral("[Plot][AxisColor]"), longPrefix("Plot.AxisColor")},
      {QStringLiteral("[Plot][BackColor]"), longPrefix("Plot.BackColor")},
      {QStringLiteral("[Plot][Lock]"),
       [&f](const QString& v) {
         const bool locked = core::StrictToBoolean(v);
         f.SetNumber(QStringLiteral("btnLock"), locked);
         f.SetNumber(QStringLiteral("Plot.Interactive"), !locked);
       }},
      {QStringLiteral("[Inq][Two]"), prefix("chkInequalityTwoEquation")},
      {QStringLiteral("[Inq][Op][1]"), text("cmbInequality(0)")},
      {QStringLiteral("[Inq][Op][2]"), text("cmbInequality(1)")},
      {QStringLiteral("[Inq][Equ][1]"), quietText("mthInequality(0)", "")},
      {QStringLiteral("[Inq][Equ][2]"), quietText("mthInequality(1)", "")},
      {QStringLiteral("[Inq][Color][Line]"), prefix("InequalityLineColor")},
      {QStringLiteral("[Inq][Color]"), prefix("mnuInequalityColor")},
      {QStringLiteral("[Para][Type]"), quietText("cmbParametricType", "")},
      {QStringLiteral("[Para][Color]"), prefix("colrParametric")},
      {QStringLiteral("[Para][X]"), quietText("mthParametricX", "\"")},
      {QStringLiteral("[Para][Y]"), quietText("mthParametricY", "")},
      {QStringLiteral("[Para][tMin]"), text("txtThetaMin")},
      {QStringLiteral("[Para][tMax]"), text("txtThetaMax")},
      {QStringLiteral("[3D][Tab]"), prefix("Tab_3D")},
      {QStringLiteral("[3D][Zoom]"), text("txt3DZoom")},
      {QStringLiteral("[3D][Grid]"), text("cmb3DGrid")},
      {QStringLiteral("[3D][Function]"), text("mth_3D_Function")},
      {QStringLiteral("[3D][Polar]"), text("mth_3D_Polar")},
      {QStringLiteral("[3D][Para][X]"), text("mth_3D_Para_x")},
      {QStringLiteral("[3D][Para][Y]"), text("mth_3D_Para_y")},
      // The z component under the writer's key, and under the misspelt one that older files
      // may carry.
      {QStringLiteral("[3D][Para][Z]"), text("mth_3D_Para_z")},
      {QStringLiteral("[3D][Prar][Z]"), text("mth_3D_Para_z")},
      {QStringLiteral("[3D][zMin]"), strict("Plot3D.ZMin")},
      {QStringLiteral("[3D][zMax]"), strict("Plot3D.ZMax")},
      {QStringLiteral("[3D][yMin]"), strict("Plot3D.YMin")},
      {QStringLiteral("[3D][yMax]"), strict("Plot3D.YMax")},
      {QStringLiteral("[3D][xMin]"), strict("Plot3D.XMin")},
      {QStringLiteral("[3D][xMax]"), strict("Plot3D.XMax")},
      {QStringLiteral("[3D][uMin]"), text("txt_3D_uMin")},
      {QStringLiteral("[3D][uMax]"), text("txt_3D_uMax")},
      {QStringLiteral("[3D][vMin]"), text("txt_3D_vMin")},
      {QStringLiteral("[3D][vMax]"), text("txt_3D_vMax")},
      {QStringLiteral("[3D][thetaMin]"), text("txt_thetaMin")},
      {QStringLiteral("[3D][thetaMax]"), text("txt_thetaMax")},
      {QStringLiteral("[3D][phiMin]"), text("txt_phiMin")},
      {QStringLiteral("[3D][phiMax]"), text("txt_phiMax")},
  };
}

bool ProjectReader::LoadProject(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    Fail(QFileInfo::exists(path) ? QStringLiteral("Path/File access error") : QStringLiteral("File not found"));
    return false;
  }
  return LoadBytes(file.read(kMaxFileSize), QFileInfo(path).fileName());
}

bool ProjectReader::LoadBytes(const QByteArray& bytes, const QString& fileName) {
  const QStringList lines = ProjectFile::Lines(ProjectFile::Decode(bytes));
  if (!IsProject(lines)) {
    NotAProject(fileName);
    return false;
  }
  // The rehearsal: the same steps over a form in memory, where every failure of the file shows.
  MemoryProjectForm rehearsal;
  try {
    core::SharedState scratch;
    ProjectReader(rehearsal, scratch, m_boxes).Read(lines);
  } catch (const core::RuntimeError& error) {
    Fail(error.Description());
    return false;
  }
  struct Loading {
    ProjectForm& Form;
    explicit Loading(ProjectForm& form) : Form(form) { Form.BeginLoad(); }
    ~Loading() { Form.EndLoad(); }
  } loading(m_form);
  try {
    Read(lines);
  } catch (const core::RuntimeError& error) {
    // Not reached for a file that the rehearsal read; kept so that a form of its own that fails
    // is told as the file's failure.
    Fail(error.Description());
    return false;
  }
  return true;
}

bool ProjectReader::IsProject(const QStringList& lines) const {
  bool empty = true;
  for (const QString& line : lines) {
    if (line.trimmed().isEmpty()) continue;
    empty = false;
    if (line.contains(u"{</[File] <Start>}") || line.contains(u"Quillograph Project File.")) return true;
    if (core::Left(line, 6) == u"[Note]" || core::Left(line, 10) == u"[Function]") return true;
    const int equals = core::InStr(line, QStringLiteral("="));
    if (equals > 0 && m_actions.contains(core::Left(line, equals - 1))) return true;
  }
  return empty;
}

void ProjectReader::Read(const QStringList& lines) {
  for (int i = m_form.HighestRow(); i >= 0; --i) m_form.RemoveFunction(i);
  for (qsizetype at = 0; at < lines.size(); ++at) {
    const QString& line = lines[at];
    const int equals = core::InStr(line, QStringLiteral("="));
    if (equals > 0) {
      const QString key = core::Left(line, equals - 1);
      const QString value = core::Mid(line, equals + 1);
      ApplyKey(key, value);
      if (core::Left(key, 10) == u"[Function]") FunctionRow(key, value);
      if (core::Left(key, 8) == u"[Slider]") SliderBounds(key, value);
    } else if (core::Left(line, 6) == u"[Note]") {
      NoteBlock(lines, at);
    }
  }
  m_form.Replot();
  m_form.Refresh_mth_Height();
  m_state.ProjectChanged = false;
  m_form.SetProjectChanged(false);
}

void ProjectReader::ApplyKeys(const std::vector<std::pair<QString, QString>>& keys) {
  for (const auto& [key, value] : keys) ApplyKey(key, value);
}

void ProjectReader::ApplyKey(const QString& key, const QString& value) {
  const auto action = m_actions.constFind(key);
  if (action != m_actions.constEnd()) (*action)(value);
}

void ProjectReader::FunctionRow(const QString& key, const QString& value) {
  const int index = IndexOf(key);
  const QString inner = core::Mid(value, 2, value.size() - 2);  // without its square brackets
  if (index != 0) m_form.AddFunction();
  RequireRow(m_form, index);
  const QStringList fields = core::Split(inner, QStringLiteral(":"));
  m_form.SetRowColor(index, core::RoundToInt32(NumericPrefix(core::At(fields, 0))));
  m_form.SetRowEditorTag(index, kQuiet);
  m_form.SetRowText(index, core::At(fields, 1));
  switch (core::Occurrences(inner, QStringLiteral(":"))) {
    case 3: {
      m_form.SetRowAttributes(index, core::At(fields, 2) + QStringLiteral(",True,0"));
      const bool note = core::StrictToBoolean(core::At(fields, 3));
      m_form.SetRowNoteVisible(index, note);
      m_form.SetRowEditorVisible(index, !note);
      break;
    }
    case 4:
      // The older form: three flags, the points and the visibility on, no mode.
      m_form.SetRowAttributes(index, core::At(fields, 2) + u',' + core::At(fields, 3) + u',' + core::At(fields, 4) +
                                         QStringLiteral(",True,True,0"));
      break;
    default: break;
  }
  m_form.SetRowEditorTag(index, QString());
}

// Bounds for a row that is not there are dropped rather than failing the file: they are an
// extra of ours that only this program writes.
void ProjectReader::SliderBounds(const QString& key, const QString& value) {
  const int index = IndexOf(key);
  if (index >= 0 && index <= m_form.HighestRow()) m_form.SetRowSlider(index, value);
}

// Every line up to "[EndNote]" belongs to the note, each behind a line break of its own.
void ProjectReader::NoteBlock(const QStringList& lines, qsizetype& at) {
  const int index = IndexOf(lines[at]);
  QString note;
  for (++at;; ++at) {
    if (at >= lines.size()) throw core::RuntimeError(62, QStringLiteral("Input past end of file"));
    if (core::Left(lines[at], 9) == u"[EndNote]") break;
    note += QStringLiteral("\r\n") + lines[at];
  }
  RequireRow(m_form, index);
  m_form.SetRowNote(index, note);
}

void ProjectReader::NotAProject(const QString& fileName) {
  const QString name = fileName.isEmpty() ? QStringLiteral("The file") : u'"' + fileName + u'"';
  m_boxes.Show(name + QStringLiteral(" is not a Quillograph project: it was not opened, and nothing was changed."),
               platform::MessageBoxes::Buttons::Ok, platform::MessageBoxes::Icon::Exclamation,
               QStringLiteral("Open - [Err-0017]"));
}

void ProjectReader::Fail(const QString& description) {
  if (description.isEmpty() || description == u"Cancel was selected.") return;
  m_boxes.Show(description, platform::MessageBoxes::Buttons::Ok, platform::MessageBoxes::Icon::Exclamation,
               QStringLiteral("Err-[0014]"));
}

}  // namespace project
