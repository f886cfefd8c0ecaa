#pragma once

#include "numeric/VbRandom.h"
#include "script/ScriptObject.h"

namespace expression {

// The program's own math functions, added to the script engine as "Math" with global members:
// sqrt, Deg, exp, asin, acos, fact, ln, atan, csc, cosec, sec, cot, sinh, cosh, tanh, tan, coth,
// csch, cosech, sech, acsc, acosec, asec, acot, asinh, acosh, atanh, acsch, acosech, asech, acoth,
// xroot, xlog and RandomNumber. Where a function fails (a bad domain, a division by zero, an
// overflow) it sets the failure flag it was given and returns 0; it never clears the flag.
class MathFunctions : public script::ScriptObject {
public:
  explicit MathFunctions(bool& mathError);

  QStringList MemberNames() const override;
  script::Value Invoke(int member, std::span<const script::Value> arguments) override;

private:
  bool& m_mathError;
  numeric::VbRandom m_random;
};

}  // namespace expression
