#pragma once

#include "ProjectForm.h"

#include "core/SharedState.h"
#include "platform/MessageBoxes.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace project {

// SaveProject: the live state of the main form as a project file. The file is written to a
// temporary file beside the target and renamed over it, so that a failed save leaves the old file
// whole; failures are told in message boxes ("Err-[0010]", "Err-[0011]").
class ProjectWriter {
public:
  ProjectWriter(ProjectForm& form, core::SharedState& state, platform::MessageBoxes& boxes);

  // The file's text, from its first line break to the end marker's.
  static QString Compose(const ProjectForm& form);
  // Whether the file now holds the project; on false a box has said why.
  bool SaveProject(const QString& path);

  // Writes the bytes in place of the file; false with the system's reason when it cannot. Tests
  // put a failing disk here.
  std::function<bool(const QString& path, const QByteArray& bytes, QString& error)> WriteFile;

private:
  bool Fail(const QString& path, const QString& description);

  ProjectForm& m_form;
  core::SharedState& m_state;
  platform::MessageBoxes& m_boxes;
};

}  // namespace project
