#pragma once

#include "ProjectForm.h"

#include "core/SharedState.h"
#include "platform/MessageBoxes.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <utility>
#include <vector>

namespace project {

// LoadProject: a project file read line by line, each line applied to the main form. The
// function rows are always rebuilt; whatever else has no line in the file stays as it was. A
// load succeeds whole or changes nothing: the whole file is read over a form in memory first, and
// only a file that reads there to its end reaches the real form. A line that cannot be applied is
// told under "Err-[0014]", a file that is no project at all under "Open - [Err-0017]".
class ProjectReader {
public:
  ProjectReader(ProjectForm& form, core::SharedState& state, platform::MessageBoxes& boxes);

  // Whether the project was read; on false the form is as it was and a box has said why.
  bool LoadProject(const QString& path);
  // The same from the bytes of a file; the name is the one a refusal names.
  bool LoadBytes(const QByteArray& bytes, const QString& fileName = QString());
  // Lines of a file other than the rows' ("[Plot][xMin]", "[Para][X]"...), each applied as a read
  // applies it; keys the reader does not know are skipped. No replot follows.
  void ApplyKeys(const std::vector<std::pair<QString, QString>>& keys);
  // Whether the lines are a project: empty, or with the start marker, the title line or a line
  // that the reader acts on.
  bool IsProject(const QStringList& lines) const;

  // The largest file that is read (larger ones are cut there).
  static constexpr qint64 kMaxFileSize = 64 * 1024 * 1024;

private:
  using Action = std::function<void(const QString& value)>;

  void Read(const QStringList& lines);
  void ApplyKey(const QString& key, const QString& value);
  void FunctionRow(const QString& key, const QString& value);
  void SliderBounds(const QString& key, const QString& value);
  void NoteBlock(const QStringList& lines, qsizetype& at);
  void Fail(const QString& description);
  void NotAProject(const QString& fileName);
  void BuildActions();

  ProjectForm& m_form;
  core::SharedState& m_state;
  platform::MessageBoxes& m_boxes;
  QHash<QString, Action> m_actions;
};

}  // namespace project
