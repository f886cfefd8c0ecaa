#pragma once

#include <QString>

#include <vector>

namespace render {

// Where the numbers of an axis stand: a step of 1, 2 or 5 times a power of ten, and labels
// written with just the digits the step needs ("0.3", never "0.30000000000000004").
class AxisTicks {
public:
  // The smallest 1-2-5 step whose ticks lie at least minSpacing pixels apart.
  static double StepFor(double range, double pixels, double minSpacing);
  // The multiples of step in [low, high], snapped so that 0 is exactly 0.
  static std::vector<double> Values(double low, double high, double step);
  static QString Label(double value, double step);
};

}  // namespace render
