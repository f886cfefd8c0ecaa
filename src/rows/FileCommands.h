#pragma once

#include "core/SharedState.h"
#include "platform/FileDialogs.h"
#include "platform/MessageBoxes.h"

#include <functional>

namespace rows {

// The commands that tie the open project to a file: Save As and Open with their dialogs, the
// overwrite question, Save's rule, and the question about unsaved changes before the window
// closes or another project takes this one's place. Nothing a user made is dropped on the way: a
// save that was cancelled or failed keeps the project where it is.
class FileCommands {
public:
  // The two file procedures tell whether they succeeded (they have told the user why not).
  using FileProcedure = std::function<bool(const QString&)>;
  FileCommands(core::SharedState& state, platform::MessageBoxes& boxes, platform::FileDialogs& dialogs,
               FileProcedure saveProject, FileProcedure loadProject);

  // Whether the project was saved.
  bool SaveThisFile();
  void OpenThisFile();
  // Save: to the project's file when it has one and changes; without a file, as Save As. Whether
  // the project has no changes left unsaved afterwards.
  bool Save();
  // Whether the open project may be replaced or closed: asks about unsaved changes (Yes saves,
  // and a save that does not happen answers false; Cancel answers false).
  bool MayReplace();
  bool MayClose() { return MayReplace(); }

  // Brings ProjectChanged up to date before it is read.
  std::function<void()> RefreshChanged;

  // The ending that a project name without one is given.
  static const QString kProjectEnding;

  static const QString kSaveFilter;
  static const QString kOpenFilter;

private:
  core::SharedState& m_state;
  platform::MessageBoxes& m_boxes;
  platform::FileDialogs& m_dialogs;
  void Refresh();

  FileProcedure m_saveProject;
  FileProcedure m_loadProject;
};

}  // namespace rows
