#pragma once

#include "BlockProgram.h"

namespace mathlang {

// The integral of f over [a, b], with the parts above and below the axis told apart.
struct IntegralValue {
  double Total = 0;
  double Above = 0;  // the integral of max(f, 0)
  double Below = 0;  // the integral of min(f, 0), not above 0
  bool Defined = true;  // false where f is undefined somewhere in the interval
};

// Adaptive Gauss-Kronrod (7 and 15 points), splitting where the two rules disagree until the
// estimated error is below relativeError of the integral of |f|.
IntegralValue Integrate(const BlockProgram& f, double a, double b, double relativeError = 1e-10);

}  // namespace mathlang
