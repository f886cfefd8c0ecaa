#pragma once

#include <functional>
#include <optional>

namespace plot2d::refine {

// Refinement in one variable of a point seen on the picture, to the last bits of a double: the
// picture gives a bracket or a start a few pixels wide, and these work on the function itself, so
// that what they give does not depend on the zoom or on the quality of the picture.
using Function = std::function<double(double)>;

// The root of f between a and b, where f changes sign (Brent's method: inverse quadratic and
// secant steps, bisection where they stall). Nothing where the signs agree or an end is not finite.
std::optional<double> Root(const Function& f, double a, double b);

// A root of f within reach of x: the smallest bracket about x, widened step by step up to reach,
// over which f changes sign, then Root. Nothing when there is none within reach.
std::optional<double> RootNear(const Function& f, double x, double reach);

// The derivative of f at x by central differences extrapolated to a zero step (Ridders), from a
// first step of h. Accurate to about 1e-13 of f's size over a step where f is smooth.
double Slope(const Function& f, double x, double h);

// Where g is smallest over [a, b] (Brent's parabolic search), to about half the digits of a
// double: a smooth minimum is flat, so its values cannot place it closer.
double Lowest(const Function& g, double a, double b);

// A step over which f near x is as smooth as a parabola (its second differences over the step, a
// half and a quarter of it agree), halving from start: the step to take derivatives over. Nothing
// at a kink, a jump or where f is noise.
std::optional<double> SmoothStep(const Function& f, double x, double start);

// Where f turns between a and b: its largest value there when maximum, else its smallest. The
// turn is first found on f (Brent's parabolic search); since f is flat there, that places it to
// only half the digits, so it is then made exact as the root of the derivative. Nothing where f
// has no turn inside [a, b].
std::optional<double> Turn(const Function& f, double a, double b, bool maximum);

}  // namespace plot2d::refine
