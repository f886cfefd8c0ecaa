#pragma once

#include "ProjectStep.h"

namespace history {

// A change to one row: put back in place, the other rows untouched.
class RowEditStep final : public ProjectStep {
public:
  using ProjectStep::ProjectStep;
  int id() const override { return 1; }

protected:
  void Apply(const QString& text) override;
};

}  // namespace history
