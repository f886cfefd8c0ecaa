#include "NumericKernel.h"

#include <cmath>

namespace numeric {

double Finite(double value) { return std::isfinite(value) ? value : kFail; }

double Divide(double a, double b) { return b == 0 ? kFail : Finite(a / b); }

double Power(double a, double b) {
  if (a < 0 && b != std::trunc(b)) return kFail;
  if (a == 0 && b < 0) return kFail;
  return Finite(std::pow(a, b));
}

double Ln(double x) { return x > 0 ? std::log(x) : kFail; }

double SquareRoot(double x) { return x >= 0 ? std::sqrt(x) : kFail; }

namespace {

double Square(double x) { return Finite(x * x); }

// The hyperbolic functions are built from Exp, a power of the 15-digit e: an overflow of either
// term fails even where the exact function would not.
double Grow(double x) { return Exp(x); }
double Shrink(double x) { return Exp(-x); }

}  // namespace

double Deg(double x) { return Finite(x * (kPi / 180)); }

double Exp(double x) { return Power(kE, x); }

double Asin(double x) {
  if (x > -1 && x < 1) return std::atan(x / std::sqrt(1 - x * x));
  if (x == -1) return -1.570796326794895;
  if (x == 1) return 1.570796326794895;
  return kFail;
}

double Acos(double x) {
  if (x > 0 && x <= 1) return std::atan(std::sqrt(1 - x * x) / x);
  if (x >= -1 && x < 0) return std::atan(std::sqrt(1 - x * x) / x) + kPi;
  if (x == 0) return kPi / 2;
  return kFail;
}

double Fact(double x) {
  const double n = std::floor(x);
  const double m = std::abs(n);
  if (!std::isfinite(m) || m > 170) return kFail;  // 171! is beyond the double range
  double r = 1;
  for (int i = 1; i <= static_cast<int>(m); ++i) r *= i;
  return n < 0 ? -r : r;
}

double Atan(double x) { return std::atan(x); }

double Csc(double x) { return Divide(1, std::sin(x)); }

double Sec(double x) { return Divide(1, std::cos(x)); }

double Tan(double x) { return Divide(std::sin(x), std::cos(x)); }

double Cot(double x) { return Divide(1, Tan(x)); }

double Sinh(double x) { return Finite((Grow(x) - Shrink(x)) / 2); }

double Cosh(double x) { return Finite((Shrink(x) + Grow(x)) / 2); }

double Tanh(double x) { return Divide(Grow(x) - Shrink(x), Shrink(x) + Grow(x)); }

double Coth(double x) { return Divide(Shrink(x) + Grow(x), Grow(x) - Shrink(x)); }

double Csch(double x) { return Divide(2, Grow(x) - Shrink(x)); }

double Sech(double x) { return Divide(2, Shrink(x) + Grow(x)); }

double Acsc(double x) { return Asin(Divide(1, x)); }

double Asec(double x) { return Acos(Divide(1, x)); }

double Acot(double x) { return kPi / 2 - std::atan(x); }

double Asinh(double x) {
  const double sum = SquareRoot(Square(x) + 1) + x;
  return sum > 0 ? Ln(sum) : kFail;
}

double Acosh(double x) {
  const double sum = SquareRoot(Square(x) - 1) + x;
  if (std::isnan(sum)) return kFail;  // the square root of a negative number fails
  return sum > 0 ? Ln(sum) : 0;       // any other sum at or below 0 gives 0 without failing
}

double Atanh(double x) {
  const double quotient = Divide(x + 1, 1 - x);
  if (std::isnan(quotient)) return kFail;
  return quotient > 0 ? 0.5 * Ln(quotient) : 0;
}

double Acsch(double x) {
  const double sum = Divide(SquareRoot(Square(x) + 1), std::abs(x)) + Divide(1, x);
  return sum > 0 ? Ln(sum) : kFail;
}

double Asech(double x) {
  const double quotient = Divide(SquareRoot(1 - Square(x)) + 1, x);
  return quotient > 0 ? Ln(quotient) : kFail;
}

double Acoth(double x) {
  const double quotient = Divide(x + 1, x - 1);
  return quotient > 0 ? 0.5 * Ln(quotient) : kFail;
}

double XRoot(double x, double n) {
  if (x > 0) return Power(x, Divide(1, n));
  const double k = std::nearbyint(n);  // halves to even, as a 32-bit integer
  if (!(std::abs(k) <= 2147483647.0)) return kFail;
  if (std::fmod(k, 2) != 0) return -Power(std::abs(x), Divide(1, n));
  if (x < 0) return kFail;
  return x == 0 ? 0 : kFail;
}

double XLog(double x, std::int16_t base) {
  if (base < 1 || !(x > 0)) return kFail;
  return Divide(Ln(x), Ln(base));
}

}  // namespace numeric
