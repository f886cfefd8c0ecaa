#include "FileCommands.h"

#include <QFileInfo>

namespace rows {

using Box = platform::MessageBoxes;

const QString FileCommands::kSaveFilter = QStringLiteral(
    "Quillograph Project File(*.qlp) |*.qlp|QLFN Project File(*.QlFn) |*.qlfn|Function(*.Fun) |*.fun|Text "
    "files(*.txt)|*.txt| All files(*.*)| *.*");
const QString FileCommands::kOpenFilter = QStringLiteral(
    "All supported files (*.qlp, *.QlFn)|*.qlp;*.Qlfn|Quillograph Project File(*.qlp) |*.qlp|QLFN Project "
    "File(*.QlFn) |*.qlfn|Function File(*.Fun) |*.fun|Text files(*.txt)|*.txt| All files(*.*)| *.*");

FileCommands::FileCommands(core::SharedState& state, platform::MessageBoxes& boxes, platform::FileDialogs& dialogs,
                           std::function<void(const QString&)> saveProject,
                           std::function<void(const QString&)> loadProject)
    : m_state(state),
      m_boxes(boxes),
      m_dialogs(dialogs),
      m_saveProject(std::move(saveProject)),
      m_loadProject(std::move(loadProject)) {}

void FileCommands::SaveThisFile() {
  for (;;) {
    // A cancelled dialog ends here without a word.
    const auto name = m_dialogs.SaveFileName(QStringLiteral("Save Project..."), kSaveFilter, m_state.ProjectPath);
    if (!name) return;
    if (QFileInfo::exists(*name)) {
      const auto answer = m_boxes.Show(QStringLiteral("File is already exsit, overwrite the file?"),
                                       Box::Buttons::YesNoCancel, Box::Icon::Question,
                                       QStringLiteral("Overwrite - [Msg-0003]"));
      if (answer == Box::Answer::No) continue;
      if (answer != Box::Answer::Yes) return;
    }
    m_saveProject(*name);
    // Taken over also when the save failed: the writer has told why.
    m_state.ProjectPath = *name;
    return;
  }
}

void FileCommands::OpenThisFile() {
  const auto name = m_dialogs.OpenFileName(QStringLiteral("Open Project..."), kOpenFilter, m_state.ProjectPath);
  if (!name) return;
  m_loadProject(*name);
  m_state.ProjectPath = *name;
}

void FileCommands::Save() {
  if (m_state.ProjectPath.isEmpty()) {
    SaveThisFile();
  } else if (m_state.ProjectChanged) {
    m_saveProject(m_state.ProjectPath);
  }
}

bool FileCommands::MayClose() {
  if (!m_state.ProjectChanged) return true;
  const auto answer = m_boxes.Show(QStringLiteral("Do you want to save changes you made?"), Box::Buttons::YesNoCancel,
                                   Box::Icon::Question, QStringLiteral("Unsaved file - [Msg-0006]"));
  if (answer == Box::Answer::Cancel) return false;
  if (answer == Box::Answer::Yes) {
    if (!m_state.ProjectPath.isEmpty() && m_state.ProjectChanged) m_saveProject(m_state.ProjectPath);
    else if (m_state.ProjectPath.isEmpty()) SaveThisFile();
  }
  return true;
}

}  // namespace rows
