#pragma once

#include "script/ScriptObject.h"

#include <QString>

namespace abacus {

// The trigonometric functions in degrees, added to a script engine with global members after the
// program's own Math object so that they take the place of its radian ones: sin, cos, tan, sec,
// csc, cosec and cot take degrees; asin, acos, atan, asec, acsc, acosec and acot give
// degrees. Angles on the axes (multiples of 90) and 30 degrees give exact values, so that sin(180)
// is 0 and sin(30) is 0.5, not a neighbour of them. Where a function is undefined it sets the
// failure flag, as the program's functions do, and tells why in Failure().
class DegreeFunctions : public script::ScriptObject {
public:
  explicit DegreeFunctions(bool& mathError);

  QStringList MemberNames() const override;
  script::Value Invoke(int member, std::span<const script::Value> arguments) override;

  // Why the last failing call failed, as a sentence; empty after ClearFailure.
  QString Failure() const { return m_failure; }
  void ClearFailure() { m_failure.clear(); }

  // sin and cos of an angle in degrees, exact on the axes and at 30 degrees.
  static double SinDegrees(double degrees);
  static double CosDegrees(double degrees);

private:
  bool& m_mathError;
  QString m_failure;
};

}  // namespace abacus
