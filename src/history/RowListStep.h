#pragma once

#include "ProjectStep.h"

namespace history {

// Rows added, removed, moved or cleared, or rows and other things at once: put back whole.
class RowListStep final : public ProjectStep {
public:
  using ProjectStep::ProjectStep;
  int id() const override { return -1; }

protected:
  void Apply(const QString& text) override;
};

}  // namespace history
