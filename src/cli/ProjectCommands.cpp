#include "ProjectCommands.h"

#include "core/RuntimeError.h"
#include "core/SettingsStore.h"
#include "core/SharedState.h"
#include "plot2d/PlotWidget.h"
#include "plot3d/Plot3DWidget.h"
#include "rows/frmMain.h"

#include <QTabWidget>

namespace cli {

namespace {

// A first start's settings: none stored, none kept.
class NoSettings : public core::SettingsStore {
public:
  QString GetSetting(const QString&, const QString&, const QString& fallback) override { return fallback; }
  void SaveSetting(const QString&, const QString&, const QString&) override {}
};

// Every box the form shows, one line on standard error: "TITLE: TEXT".
class PrintedBoxes : public platform::MessageBoxes {
public:
  explicit PrintedBoxes(QTextStream& err) : m_err(err) {}
  Answer Show(const QString& text, Buttons buttons, Icon, const QString& title) override {
    m_err << title << ": " << QString(text).replace(QStringLiteral("\r\n"), QStringLiteral(" ")).replace(u'\n', u' ') << '\n';
    m_err.flush();
    shown = true;
    return buttons == Buttons::Ok ? Answer::Ok : buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
  }
  bool shown = false;

private:
  QTextStream& m_err;
};

class NoColors : public platform::ColorChooser {
public:
  std::optional<QColor> Choose(const QColor&, const QString&) override { return std::nullopt; }
};

// Nothing is started or opened, and the clipboard stays the user's.
class NoDesktop : public platform::Desktop {
public:
  std::optional<QString> StartProgram(const QString&, Window) override { return QStringLiteral("Not started"); }
  bool OpenAddress(const QString&) override { return false; }
  QString ClipboardText() override { return {}; }
  void SetClipboardText(const QString&) override {}
  void ClearClipboard() override {}
  std::optional<QFont> ChooseFont(const QFont&) override { return std::nullopt; }
};

class NoFiles : public platform::FileDialogs {
public:
  std::optional<QString> SaveFileName(const QString&, const QString&, const QString&) override { return std::nullopt; }
  std::optional<QString> OpenFileName(const QString&, const QString&, const QString&) override { return std::nullopt; }
};

// The main form of a first start, off the screen, with the project loaded.
struct FreshForm {
  explicit FreshForm(QTextStream& err) : boxes(err), state() {
    core::InitTables(state);
    form = std::make_unique<rows::frmMain>(state, rows::MainServices{settings, boxes, colors, files, desktop});
  }
  NoSettings settings;
  PrintedBoxes boxes;
  NoColors colors;
  NoFiles files;
  NoDesktop desktop;
  core::SharedState state;
  std::unique_ptr<rows::frmMain> form;
};

int Usage(QTextStream& err, const QString& message) {
  err << "quillograph-cli: " << message << "\n\n" << ProjectCommandsHelp();
  err.flush();
  return 2;
}

}  // namespace

QString ProjectCommandsHelp() {
  return QStringLiteral(
      "  render PROJECT OUT [--size WxH]\n"
      "                      Load a project into a fresh main window (as a first start without\n"
      "                      settings shows it) and save the picture of its plot, or of its 3D\n"
      "                      plot when the project's tab is the 3D one; the format comes from\n"
      "                      OUT's ending (.png, .jpg, .bmp). --size defaults to 800x600.\n"
      "\n"
      "  resave PROJECT OUT  Load a project into a fresh main window and save it again as OUT.\n"
      "\n"
      "                      Both print every message box the window shows as one line\n"
      "                      \"TITLE: TEXT\" on standard error, and exit with 1 when one was shown.\n");
}

int RunRender(const QStringList& arguments, Streams streams) {
  QStringList files;
  QSize size(800, 600);
  for (int i = 0; i < arguments.size(); ++i) {
    if (arguments[i] == u"--size" && i + 1 < arguments.size()) {
      const auto numbers = NumberList(arguments[++i], 2, u'x');
      if (!numbers || (*numbers)[0] < 1 || (*numbers)[1] < 1 || (*numbers)[0] > 20000 || (*numbers)[1] > 20000) {
        return Usage(streams.Err, QStringLiteral("--size wants WxH, such as 800x600"));
      }
      size = QSize(int((*numbers)[0]), int((*numbers)[1]));
    } else {
      files << arguments[i];
    }
  }
  if (files.size() != 2) return Usage(streams.Err, QStringLiteral("render wants a project and a picture file"));
  FreshForm fresh(streams.Err);
  // A file that was not read has been told on standard error; nothing is drawn from it.
  if (!fresh.form->LoadProject(files[0])) return 1;
  try {
    if (fresh.form->tabInput()->currentIndex() == 3) {
      plot3d::Plot3D& scene = fresh.form->Plot3D().Scene();
      scene.SetSize(size);
      scene.SetDevicePixelRatio(1);
      scene.Redraw();
      scene.SavePicture(files[1], 0);
    } else {
      plot2d::Plot& scene = fresh.form->Plot().Scene();
      scene.SetSize(size);
      scene.SetDevicePixelRatio(1);
      scene.Redraw();
      scene.SavePicture(files[1], 0);
    }
  } catch (const core::RuntimeError& error) {
    streams.Err << "quillograph-cli render: " << error.Description() << '\n';
    streams.Err.flush();
    return 1;
  }
  return fresh.boxes.shown ? 1 : 0;
}

int RunResave(const QStringList& arguments, Streams streams) {
  if (arguments.size() != 2) return Usage(streams.Err, QStringLiteral("resave wants a project and a new file"));
  FreshForm fresh(streams.Err);
  if (!fresh.form->LoadProject(arguments[0])) return 1;
  fresh.form->SaveProject(arguments[1]);
  return fresh.boxes.shown ? 1 : 0;
}

}  // namespace cli
