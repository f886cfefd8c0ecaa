#include "CommandDispatch.h"

#include "FileCommands.h"
#include "InputTabs.h"
#include "SurfacePage.h"
#include "UndoCommands.h"
#include "frmMain.h"

#include "core/NumberText.h"
#include "core/RuntimeError.h"
#include "core/Twips.h"
#include "output/PictureSaving.h"
#include "platform/DataFolder.h"
#include "plot2d/PlotWidget.h"
#include "plot3d/Plot3DWidget.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLineEdit>
#include <QTabWidget>

#include <cmath>

namespace rows {

namespace {

using Box = platform::MessageBoxes;

const QString kSettings = QStringLiteral("Settings");

struct PictureCommandKind {
  std::int32_t Id;
  std::int32_t Kind;
  const char* Filter;
  const char* Ending;  // put onto a name that has none
};

const PictureCommandKind kPictures[] = {
    {1024, 1, "PNG File (*.png) | *.png|All Files (*.*)|*.*", "png"},
    {1025, 2, "JPG File (*.jpg) | *.jpg|All Files (*.*)|*.*", "jpg"},
    {1030, 3, "BMP File (*.bmp) | *.bmp|All Files (*.*)|*.*", "bmp"},
    {3006, 0, "PNG File (*.png) | *.png|Jpeg file (*.jpg)| *.jpg|Bitmap image (*.bmp)| *.bmp|All Files (*.*)|*.*", "png"},
};

// The sibling tools, started from the program's folder.
// The tools by the names of their programs: "Abacus Bench" is quillograph-abacus-bench, as a
// Linux program is named, beside quillograph.
const std::pair<std::int32_t, const char*> kTools[] = {
    {1054, "quillograph-abacus-bench"}, {1055, "quillograph-trigon-bench"}, {1056, "quillograph-area-bench"},
    {1057, "quillograph-slope-bench"},  {1058, "quillograph-chain-bench"},  {1167, "quillograph-curve-probe"}};

// The manual's chapter for the page the user is on.
QString HelpChapter(int tab) {
  switch (tab) {
    case 1:
    case 2: return QStringLiteral("inequality-parametric.html");
    case 3: return QStringLiteral("surfaces.html");
    default: return QStringLiteral("index.html");
  }
}

}  // namespace

CommandDispatch::CommandDispatch(frmMain& form, const MainServices& services, RowCommands& rows)
    : m_form(form), m_services(services), m_rows(rows) {}

void CommandDispatch::CommandBars_Execute(ribbon::CommandControl& control) {
  try {
    const std::int32_t id = control.Id();
    if (m_form.Undo().Execute(id) || FileCommand(id) || PictureCommand(id) || Toggle(control) || ViewCommand(control) || ToolCommand(id) ||
        m_rows.Execute(control)) {
      return;
    }
    m_services.Boxes.Show(QStringLiteral("Cooming soon in the next version."), Box::Buttons::Ok, Box::Icon::Information,
                          QStringLiteral("Cooming soon... - [Info-0002]"));
  } catch (const core::RuntimeError& error) {
    const QString description = error.Description();
    if (description.isEmpty() || description == u"Cancel was selected.") return;
    m_services.Boxes.Show(description, Box::Buttons::Ok, Box::Icon::Exclamation, QStringLiteral("Ribbon error - [Err-0015]"));
  }
}

void CommandDispatch::Redraw() { m_form.Plot().Redraw(); }

bool CommandDispatch::FileCommand(std::int32_t id) {
  switch (id) {
    case 57600: {
      // Another window of the program, minimised; this one stays as it is.
      if (const auto error = m_services.Desktop.StartProgram(QCoreApplication::applicationFilePath(),
                                                             platform::Desktop::Window::Minimised)) {
        throw core::RuntimeError(53, *error);
      }
      return true;
    }
    case 57601: m_form.OpenThisFile(); return true;
    case 57602: m_form.close(); return true;
    case 57603: m_form.Files().Save(), m_form.UpdateTitle(); return true;
    case 57604: m_form.SaveThisFile(); return true;
    case 57607:
    case 57665:
    case 9604: return true;
    default: return false;
  }
}

// The plot as the window shows it, into a file that the user names. A name without an ending gets
// the kind's; a file that is there is written over only when the user says Yes (No: another name;
// Cancel: nothing).
bool CommandDispatch::PictureCommand(std::int32_t id) {
  for (const PictureCommandKind& picture : kPictures) {
    if (picture.Id != id) continue;
    QString name;
    for (;;) {
      const auto chosen = m_services.Files.SaveFileName(QStringLiteral("Save graph as picture..."),
                                                        QString::fromLatin1(picture.Filter), QString());
      if (!chosen || chosen->isEmpty()) return true;  // cancelled: nothing to say
      name = output::WithEnding(*chosen, QString::fromLatin1(picture.Ending));
      if (!QFileInfo(name).isFile()) break;
      const Box::Answer answer = m_services.Boxes.Show(QStringLiteral("File is already exsit, overwrite the file?"),
                                                       Box::Buttons::YesNoCancel, Box::Icon::Question,
                                                       QStringLiteral("Overwrite - [Msg-0003]"));
      if (answer == Box::Answer::Yes) break;
      if (answer != Box::Answer::No) return true;
    }
    std::int32_t kind = picture.Kind;
    if (id == 3006) {
      // By the name's ending, as written: ".PNG" is no ".png", and the kind stays 0.
      if (name.contains(QStringLiteral(".png"))) kind = 1;
      else if (name.contains(QStringLiteral(".jpg"))) kind = 2;
      else if (name.contains(QStringLiteral(".bmp"))) kind = 3;
    }
    if (m_form.tabInput()->currentIndex() == 3) m_form.Plot3D().Scene().SavePicture(name, kind);
    else m_form.Plot().Scene().SavePicture(name, kind);
    return true;
  }
  return false;
}

// The display toggles of the 2D plot: the control flips, the plot takes its new value.
bool CommandDispatch::Toggle(ribbon::CommandControl& control) {
  plot2d::Plot& plot = m_form.Plot().Scene();
  void (plot2d::Plot::*set)(bool) = nullptr;
  switch (control.Id()) {
    case 1086: set = &plot2d::Plot::SetTransparentBackground; break;
    case 1087: set = &plot2d::Plot::SetShowAxis; break;
    case 1088: set = &plot2d::Plot::SetShowGrid; break;
    case 1089: set = &plot2d::Plot::SetShowOuterFrame; break;
    case 1090: set = &plot2d::Plot::SetShowNumbers; break;
    case 1092: set = &plot2d::Plot::SetShowMouseCoordinate; break;
    case 1124: set = &plot2d::Plot::SetShowTips; break;
    default: return false;
  }
  control.SetChecked(!control.Checked());
  (plot.*set)(control.Checked());
  if (control.Id() != 1092) Redraw();  // the coordinates show from the next drawing on
  return true;
}

bool CommandDispatch::ViewCommand(ribbon::CommandControl& control) {
  plot2d::Plot& plot = m_form.Plot().Scene();
  ribbon::CommandBars& bars = m_form.CommandBars();
  const bool on3D = m_form.tabInput()->currentIndex() == 3;
  const auto label = [&bars](std::int32_t id, const QString& text) {
    if (ribbon::CommandControl* target = bars.FindControl(id)) target->SetCaption(text);
  };
  const auto place = [this](std::int32_t id) { return ControlPlace ? ControlPlace(id) : QPoint(); };
  switch (control.Id()) {
    case 1023: m_form.Replot(true); return true;
    case 1033: m_form.ShowFullScreen(); return true;
    case 1034: m_form.ShowRange(QStringLiteral("Default Range"), place(1034) + QPoint(0, core::Px(1000))); return true;
    case 1052:
      m_form.ShowRange(on3D ? QStringLiteral("3D Range") : QStringLiteral("Plot Range"), place(1052) + QPoint(0, core::Px(1000)));
      return true;
    case 1042:
    case 1044: {
      const bool back = control.Id() == 1042;
      m_services.Settings.SaveSetting(kSettings, back ? QStringLiteral("Backcolor") : QStringLiteral("Axiscolor"),
                                      QString::number(control.Color()));
      if (back) plot.SetBackColor(control.Color());
      else plot.SetAxisColor(control.Color());
      Redraw();
      return true;
    }
    case 1066:
    case 1067:
    case 1068:
    case 1069: Pan(control.Id()); return true;
    // On the 3D tab the keys zoom what is shown there, not the hidden 2D plot.
    case 1071:
      if (on3D) Zoom3D(true);
      else plot.ZoomIn(), Redraw();
      return true;
    case 1072:
      if (on3D) Zoom3D(false);
      else plot.ZoomOut(), Redraw();
      return true;
    case 1073: plot.ResetRange(), Redraw(); return true;
    case 1113:
      plot.SetQuality(control.Pos());
      label(1119, core::FormatNumber(plot.Quality()));
      return true;
    case 1122:
      m_services.Settings.SaveSetting(kSettings, QStringLiteral("Thickness"), QString::number(control.Pos()));
      plot.SetThickness(control.Pos());
      label(1121, core::FormatNumber(plot.Thickness()));
      return true;
    case 1127: label(1126, QStringLiteral("Zoom: X")), plot.SetZoomType(1); return true;
    case 1128: label(1126, QStringLiteral("Zoom: Y")), plot.SetZoomType(2); return true;
    case 1129: label(1126, QStringLiteral("Zoom: X and Y")), plot.SetZoomType(3); return true;
    default: return false;
  }
}

// The surface seen nearer or farther; the zoom field follows, as the next drawing reads it.
void CommandDispatch::Zoom3D(bool in) {
  plot3d::Plot3DWidget& view = m_form.Plot3D();
  if (in) view.Scene().ZoomIn();
  else view.Scene().ZoomOut();
  view.Refresh();
  m_form.Tabs().Surface().txt3DZoom()->setText(core::FormatNumber(view.Scene().Zoom()));
}

// An eighth of the width or height, worked out from the range before the move, so that the width
// stays as it was.
void CommandDispatch::Pan(std::int32_t id) {
  plot2d::Plot& plot = m_form.Plot().Scene();
  const bool horizontal = id == 1066 || id == 1067;
  const double sign = (id == 1066 || id == 1068) ? 1 : -1;
  if (horizontal) {
    const double range = plot.XMax() - plot.XMin();
    plot.SetXMax(plot.XMax() + sign * std::abs(range) * 1 / 8);
    plot.SetXMin(plot.XMin() + sign * std::abs(range) * 1 / 8);
  } else {
    const double range = plot.YMax() - plot.YMin();
    plot.SetYMax(plot.YMax() + sign * std::abs(range) * 1 / 8);
    plot.SetYMin(plot.YMin() + sign * std::abs(range) * 1 / 8);
  }
  Redraw();
}

bool CommandDispatch::ToolCommand(std::int32_t id) {
  for (const auto& [tool, name] : kTools) {
    if (tool != id) continue;
    const QString path = QCoreApplication::applicationDirPath() + u'/' + QString::fromLatin1(name);
    if (const auto error = m_services.Desktop.StartProgram(path, platform::Desktop::Window::Normal)) {
      throw core::RuntimeError(53, *error);
    }
    return true;
  }
  switch (id) {
    // The manual and the offline pages open in the program's own window, which needs no viewer.
    case 1076:
      if (ShowHelp) ShowHelp(HelpChapter(m_form.tabInput()->currentIndex()));
      return true;
    case 1079:
      if (ShowHelp) ShowHelp(platform::DataFile(QStringLiteral("pages/about.html")));
      return true;
    case 1080:
      if (ShowContact) ShowContact();
      else m_services.Desktop.OpenAddress(platform::DataFile(QStringLiteral("pages/contact.html")));
      return true;
    default: return false;
  }
}

}  // namespace rows
