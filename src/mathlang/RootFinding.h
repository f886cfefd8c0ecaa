#pragma once

#include <QPointF>

#include <functional>
#include <optional>

namespace mathlang {

// One-dimensional and two-dimensional root finding and extremum search for refining points
// found on a picture: each starts from a bracket or a point that the picture gives.
using Function = std::function<double(double)>;
using Zero = std::function<double(double, double)>;

// A root of f between a and b, where f changes sign (bisection to full precision).
double Bisect(const Function& f, double a, double b);

// A root of f between a and b if f changes sign there; else nothing.
std::optional<double> Bracketed(const Function& f, double a, double b);

// The extremum of f in [a, b] (golden section): the largest value when maximum, else the smallest.
double Golden(const Function& f, double a, double b, bool maximum);

// Where f and g are both zero, by Newton's method from start; nothing when it does not converge
// within reach of start.
std::optional<QPointF> Newton(const Zero& f, const Zero& g, QPointF start, double reach);

}  // namespace mathlang
