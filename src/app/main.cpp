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
#include <QIcon>

#include <memory>

namespace {

// The style under the program's sheet; the sheet itself, light or dark, is put on by the main
// form as the settings ask.
void ApplyStyle() { QApplication::setStyle(QStringLiteral("Fusion")); }

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Quillograph"));
  QApplication::setOrganizationName(QStringLiteral("Quillograph"));
  // The desktop matches the window to its entry (quillograph.desktop) and shows its icon.
  QGuiApplication::setDesktopFileName(QStringLiteral("quillograph"));
  QApplication::setWindowIcon(QIcon(platform::DataFile(QStringLiteral("Icons/quillograph.svg"))));
  // Made first, to keep the desktop's own palette before the program sets its look.
  platform::QtDesktop desktop;
  ApplyStyle();

  core::SharedState state;
  core::IniSettingsStore settings;
  platform::QtMessageBoxes boxes;
  platform::QtColorChooser colors;
  platform::QtFileDialogs files;
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
