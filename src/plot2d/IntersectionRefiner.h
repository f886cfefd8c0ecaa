#pragma once

#include <QPointF>

#include <functional>
#include <optional>
#include <utility>

namespace plot2d::refine {

// Refinement in two variables of a meeting point seen on the picture, to the last bits of a
// double. Each starts from what the picture gives and fails, rather than wander off to another
// point, when Newton's method leaves the reach it is given.
using Zero = std::function<double(double, double)>;
using Path = std::function<QPointF(double)>;

// Where f and g are both zero (two implicit curves, or x = f(y) with any curve that has such a
// function), by Newton's method from start. The Jacobian is of small forward differences: the
// residuals are exact, so the method still converges to full precision.
std::optional<QPointF> CommonZero(const Zero& f, const Zero& g, QPointF start, double reach);

// The parameters (s, t) where two polar or parametric curves meet, p(s) = q(t), by Newton's method
// from (s, t); the meeting point must lie within reach of where it started.
std::optional<std::pair<double, double>> CommonPoint(const Path& p, const Path& q, double s, double t, double reach);

}  // namespace plot2d::refine
