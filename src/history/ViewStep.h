#pragma once

#include "ProjectStep.h"

namespace history {

// A change to the range, the lock or the display that the file keeps: put back whole.
class ViewStep final : public ProjectStep {
public:
  using ProjectStep::ProjectStep;
  int id() const override { return 4; }

protected:
  void Apply(const QString& text) override;
};

}  // namespace history
