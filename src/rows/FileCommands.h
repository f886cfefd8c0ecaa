#pragma once

#include "core/SharedState.h"
#include "platform/FileDialogs.h"
#include "platform/MessageBoxes.h"

#include <functional>

namespace rows {

// The commands that tie the open project to a file: Save As and Open with their dialogs, the
// overwrite question, Save's rule, and the question about unsaved changes when the window closes.
class FileCommands {
public:
  FileCommands(core::SharedState& state, platform::MessageBoxes& boxes, platform::FileDialogs& dialogs,
               std::function<void(const QString&)> saveProject, std::function<void(const QString&)> loadProject);

  void SaveThisFile();
  void OpenThisFile();
  // Save: to the project's file when it has one and changes; without a file, as Save As.
  void Save();
  // Whether the window may close: asks about unsaved changes, and saves on Yes.
  bool MayClose();

  static const QString kSaveFilter;
  static const QString kOpenFilter;

private:
  core::SharedState& m_state;
  platform::MessageBoxes& m_boxes;
  platform::FileDialogs& m_dialogs;
  std::function<void(const QString&)> m_saveProject;
  std::function<void(const QString&)> m_loadProject;
};

}  // namespace rows
