#pragma once

#include "history/ProjectTarget.h"
#include "history/ProjectText.h"

#include "core/SharedState.h"
#include "platform/MessageBoxes.h"

#include <functional>

namespace project {
class ProjectForm;
}

namespace rows {

class FunctionList;

// The main form as the history changes it: the writer's text of it, and the reader putting a
// text back, whole or one row in place. What follows a read (the ribbon and status bar showing
// the plot's values again) is the form's own, handed in as AfterRead.
class FormHistory : public history::ProjectTarget {
public:
  FormHistory(project::ProjectForm& form, FunctionList& rows, core::SharedState& state, platform::MessageBoxes& boxes,
              std::function<void()> afterRead);

  QString Compose() override;
  void ApplyWhole(const QString& text) override;
  bool ApplyRow(int row, const QString& text) override;

private:
  void PutRow(int row, const history::ProjectText::Row& wanted);

  project::ProjectForm& m_form;
  FunctionList& m_rows;
  core::SharedState& m_state;
  platform::MessageBoxes& m_boxes;
  std::function<void()> m_afterRead;
};

}  // namespace rows
