#pragma once

#include <QString>

#include <optional>

namespace trigon {

// The three values of an angle as the bench writes them.
struct TrigTexts {
  QString Sin;
  QString Cos;
  QString Tan;  // "undefined" where cos is 0

  bool operator==(const TrigTexts&) const = default;
};

// The exact values at a multiple of 30° or 45° ("√3/2", "-1/√3", "undefined"); nothing at any
// other angle. The angle may lie outside [0°, 360°).
std::optional<TrigTexts> ExactValues(double degrees);

// A value to six decimals, with no "-0".
QString DecimalText(double value);

// The angle as a multiple of π where it is a whole number of degrees ("π/6", "3π/4", "0"), else
// its radians to six decimals.
QString RadianText(double degrees);

// The angle taken into [0°, 360°), with a whole number of degrees kept whole.
double WrapDegrees(double degrees);

}  // namespace trigon
