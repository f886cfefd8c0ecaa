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

const QString FileCommands::kProjectEnding = QStringLiteral(".qlp");

FileCommands::FileCommands(core::SharedState& state, platform::MessageBoxes& boxes, platform::FileDialogs& dialogs,
                           FileProcedure saveProject, FileProcedure loadProject)
    : m_state(state),
      m_boxes(boxes),
      m_dialogs(dialogs),
      m_saveProject(std::move(saveProject)),
      m_loadProject(std::move(loadProject)) {}

void FileCommands::Refresh() {
  if (RefreshChanged) RefreshChanged();
}

bool FileCommands::SaveThisFile() {
  for (;;) {
    // A cancelled dialog ends here without a word.
    auto name = m_dialogs.SaveFileName(QStringLiteral("Save Project..."), kSaveFilter, m_state.ProjectPath);
    if (!name) return false;
    // A name typed without an ending is a project file, not a file that no filter shows.
    if (QFileInfo(*name).suffix().isEmpty()) *name += kProjectEnding;
    if (QFileInfo::exists(*name)) {
      const auto answer = m_boxes.Show(QStringLiteral("File is already exsit, overwrite the file?"),
                                       Box::Buttons::YesNoCancel, Box::Icon::Question,
                                       QStringLiteral("Overwrite - [Msg-0003]"));
      if (answer == Box::Answer::No) continue;
      if (answer != Box::Answer::Yes) return false;
    }
    const bool saved = m_saveProject(*name);
    // Taken over also when the save failed: the writer has told why.
    m_state.ProjectPath = *name;
    return saved;
  }
}

void FileCommands::OpenThisFile() {
  const auto name = m_dialogs.OpenFileName(QStringLiteral("Open Project..."), kOpenFilter, m_state.ProjectPath);
  if (!name || !MayReplace()) return;
  // A file that could not be read leaves the open project, and its file, as they were.
  if (m_loadProject(*name)) m_state.ProjectPath = *name;
}

bool FileCommands::Save() {
  Refresh();
  if (m_state.ProjectPath.isEmpty()) return SaveThisFile();
  if (m_state.ProjectChanged) return m_saveProject(m_state.ProjectPath);
  return true;
}

bool FileCommands::MayReplace() {
  Refresh();
  if (!m_state.ProjectChanged) return true;
  const auto answer = m_boxes.Show(QStringLiteral("Do you want to save changes you made?"), Box::Buttons::YesNoCancel,
                                   Box::Icon::Question, QStringLiteral("Unsaved file - [Msg-0006]"));
  if (answer == Box::Answer::No) return true;
  if (answer != Box::Answer::Yes) return false;
  return Save();
}

}  // namespace rows
