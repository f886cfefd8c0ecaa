#include "Startup.h"

#include "NumberText.h"
#include "RuntimeError.h"
#include "TextFunctions.h"

#include <QStringList>

namespace core {

namespace {

const QString kOptions = QStringLiteral("Options");

// With "Admin" set, every start counts the stored build number up by one.
void CountBuild(SettingsStore& settings) {
  if (!StrictToBoolean(settings.GetSetting(kOptions, QStringLiteral("Admin"), QStringLiteral("False")))) {
    return;
  }
  const double revision = StrictToDouble(
      settings.GetSetting(kOptions, QStringLiteral("Revision"), QStringLiteral("12000")));
  settings.SaveSetting(kOptions, QStringLiteral("Revision"), FormatNumber(revision + 1));
}

}  // namespace

void Main(SharedState& state, SettingsStore& settings, const QString& commandLine,
          const StartupHooks& hooks) {
  TryStep([&] { CountBuild(settings); });
  TryStep([&] { InitTables(state); });
  TryStep([&] {
    if (hooks.ShowMainForm) hooks.ShowMainForm();
  });
  if (commandLine.isEmpty()) {
    state.ProjectPath = QString();
    state.ProjectChanged = false;
  } else {
    // The load comes after the form is shown, so that the form's own start-up has finished when
    // the file's rows arrive.
    state.ProjectPath = Replace(commandLine, QStringLiteral("\""), QString());
    TryStep([&] {
      if (hooks.LoadProject) hooks.LoadProject(state.ProjectPath);
    });
  }
  state.ProjectChanged = false;
}

QString CommandLineOf(const QStringList& arguments) { return arguments.mid(1).join(u' '); }

}  // namespace core
