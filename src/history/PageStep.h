#pragma once

#include "ProjectStep.h"

namespace history {

// A change to the inequality, parametric or 3D page: put back whole.
class PageStep final : public ProjectStep {
public:
  using ProjectStep::ProjectStep;
  int id() const override { return 3; }

protected:
  void Apply(const QString& text) override;
};

}  // namespace history
