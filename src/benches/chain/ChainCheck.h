#pragma once

#include "ChainRule.h"

#include <QString>

#include <functional>
#include <vector>

namespace chain {

// Checks the chain rule's product against a numeric derivative of the composition, a central
// difference refined by Richardson's extrapolation (Ridders' way), at a few points where both are
// defined; and the composed texts against f and g evaluated one after the other.
class ChainCheck {
public:
  static constexpr double kTolerance = 1e-9;

  struct Result {
    std::vector<double> Points;  // where it was checked
    bool Agrees = false;
    QString Words;  // the outcome in words
  };

  static Result Run(const ChainRule& rule);
  // The derivative of f at x by central differences of shrinking step, extrapolated to step 0.
  static double CentralDerivative(const std::function<double(double)>& f, double x);

private:
  static bool Close(double a, double b);
};

}  // namespace chain
