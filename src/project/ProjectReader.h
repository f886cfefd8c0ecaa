#pragma once

#include "ProjectForm.h"

#include "core/SharedState.h"
#include "platform/MessageBoxes.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>

namespace project {

// LoadProject: a project file read line by line, each line applied at once to the main form.
// The function rows are always rebuilt; whatever else has no line in the file stays as it was. A
// line that cannot be applied ends the load there, with what was applied kept, and is told under
// "Err-[0014]".
class ProjectReader {
public:
  ProjectReader(ProjectForm& form, core::SharedState& state, platform::MessageBoxes& boxes);

  void LoadProject(const QString& path);
  // The same from the bytes of a file.
  void LoadBytes(const QByteArray& bytes);

  // The largest file that is read (larger ones are cut there).
  static constexpr qint64 kMaxFileSize = 64 * 1024 * 1024;

private:
  using Action = std::function<void(const QString& value)>;

  void Read(const QStringList& lines);
  void ApplyKey(const QString& key, const QString& value);
  void FunctionRow(const QString& key, const QString& value);
  void NoteBlock(const QStringList& lines, qsizetype& at);
  void Fail(const QString& description);
  void BuildActions();

  ProjectForm& m_form;
  core::SharedState& m_state;
  platform::MessageBoxes& m_boxes;
  QHash<QString, Action> m_actions;
};

}  // namespace project
