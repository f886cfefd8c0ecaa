#pragma once

#include <cstdint>
#include <limits>

// The program's definitions of its mathematical functions, shared by the script engine's
// MathFunctions and by the plot engines, so that a computed point lies on the drawn curve.
// Every function returns NaN where the program fails (a bad domain, a division by zero, an
// overflow) and never an infinity. A few return a plain 0 outside their domain, as defined.
namespace numeric {

// The program computes with these 15-digit values, not the exact ones.
inline constexpr double kPi = 3.14159265358979;
inline constexpr double kE = 2.71828182845905;
inline constexpr double kFail = std::numeric_limits<double>::quiet_NaN();

// Arithmetic with the script language's failures: NaN instead of an error or an infinity.
double Finite(double value);
double Divide(double a, double b);
// a to the power b: a negative a needs an integer b, and 0 to a negative power fails.
double Power(double a, double b);
double Ln(double x);
double SquareRoot(double x);

double Deg(double x);
double Exp(double x);
double Asin(double x);
double Acos(double x);
double Fact(double x);
double Atan(double x);
double Csc(double x);
double Sec(double x);
double Tan(double x);
double Cot(double x);
double Sinh(double x);
double Cosh(double x);
double Tanh(double x);
double Coth(double x);
double Csch(double x);
double Sech(double x);
double Acsc(double x);
double Asec(double x);
double Acot(double x);
double Asinh(double x);
double Acosh(double x);
double Atanh(double x);
double Acsch(double x);
double Asech(double x);
double Acoth(double x);
double XRoot(double x, double n);
double XLog(double x, std::int16_t base);

}  // namespace numeric
