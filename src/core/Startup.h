#pragma once

#include "SharedState.h"
#include "SettingsStore.h"

#include <QString>

#include <functional>

namespace core {

// What start-up hands over to the main form: showing it, and loading the project that the
// command line names.
struct StartupHooks {
  std::function<void()> ShowMainForm;
  std::function<void(const QString& path)> LoadProject;
};

// The start of the process: counts the build number up when "Admin" is set, fills the tables,
// shows the main form and loads the file that the command line names. The command line is taken
// whole as one path, double quotes removed. Every step's error is ignored and the next one runs.
void Main(SharedState& state, SettingsStore& settings, const QString& commandLine,
          const StartupHooks& hooks);

// The command line as one text: the arguments after the program's name joined by blanks.
QString CommandLineOf(const QStringList& arguments);

}  // namespace core
