// Quillograph: the program. Starts the application with the program's look, then hands over to
// the start-up procedure, which shows the main form and loads the project the command line names.
#include "core/IniSettingsStore.h"
#include "core/SharedState.h"
#include "core/Startup.h"
#include "platform/DataFolder.h"
#include "platform/QtColorChooser.h"
#include "platform/QtDesktop.h"
#include "platform/QtFileDialogs.h"
#include "platform/QtMessageBoxes.h"
#include "rows/frmMain.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QIcon>

#include <memory>

namespace {

void ApplyLook(QApplication& application) {
  QApplication::setStyle(QStringLiteral("Fusion"));
  if (QDir(QStringLiteral("/usr/share/icons/breeze")).exists()) QIcon::setThemeName(QStringLiteral("breeze"));
  QFile sheet(platform::DataFile(QStringLiteral("Ribbon/Quillograph.qss")));
  // The sheet names the program's own pictures by %DATA%, wherever the data folder stands.
  if (sheet.open(QIODevice::ReadOnly)) {
    application.setStyleSheet(QString::fromUtf8(sheet.readAll()).replace(QStringLiteral("%DATA%"), platform::DataFolder()));
  }
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Quillograph"));
  QApplication::setOrganizationName(QStringLiteral("Quillograph"));
  // The desktop matches the window to its entry (quillograph.desktop) and shows its icon.
  QGuiApplication::setDesktopFileName(QStringLiteral("quillograph"));
  QApplication::setWindowIcon(QIcon(platform::DataFile(QStringLiteral("Icons/quillograph.svg"))));
  ApplyLook(application);

  core::SharedState state;
  core::IniSettingsStore settings;
  platform::QtMessageBoxes boxes;
  platform::QtColorChooser colors;
  platform::QtFileDialogs files;
  platform::QtDesktop desktop;
  std::unique_ptr<rows::frmMain> form;

  core::StartupHooks hooks;
  hooks.ShowMainForm = [&] {
    form = std::make_unique<rows::frmMain>(state, rows::MainServices{settings, boxes, colors, files, desktop});
    form->show();
  };
  hooks.LoadProject = [&](const QString& path) {
    // A file that is no project, or fails, is not the project's file: a later Save must not
    // write over it.
    if (form && !form->LoadProject(path)) {
      state.ProjectPath.clear();
      form->UpdateTitle();
    }
  };
  core::Main(state, settings, core::CommandLineOf(QApplication::arguments()), hooks);
  return QApplication::exec();
}
