#include "IntersectionRefiner.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace plot2d::refine {

namespace {

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
constexpr int kNewtonSteps = 50;

// One Newton step for the system r(u, v) = 0 of two equations with Jacobian (a b; c d): the
// correction to subtract, or nothing where the Jacobian is singular.
std::optional<std::pair<double, double>> Solve(double a, double b, double c, double d, double r1, double r2) {
  const double det = a * d - b * c;
  if (det == 0 || !std::isfinite(det)) return std::nullopt;
  return std::pair{(r1 * d - b * r2) / det, (a * r2 - r1 * c) / det};
}

double StepFor(double u) { return 1e-7 * std::max(1.0, std::abs(u)); }

// Whether a Newton correction is down to the last bits of the point.
bool Settled(double du, double dv, double u, double v) {
  return std::abs(du) <= 4 * kEpsilon * std::max(1.0, std::abs(u)) && std::abs(dv) <= 4 * kEpsilon * std::max(1.0, std::abs(v));
}

}  // namespace

std::optional<QPointF> CommonZero(const Zero& f, const Zero& g, QPointF start, double reach) {
  double x = start.x(), y = start.y();
  for (int i = 0; i < kNewtonSteps; ++i) {
    const double fv = f(x, y), gv = g(x, y);
    if (!std::isfinite(fv) || !std::isfinite(gv)) return std::nullopt;
    if (fv == 0 && gv == 0) break;
    const double hx = StepFor(x), hy = StepFor(y);
    const auto step = Solve((f(x + hx, y) - fv) / hx, (f(x, y + hy) - fv) / hy, (g(x + hx, y) - gv) / hx,
                            (g(x, y + hy) - gv) / hy, fv, gv);
    if (!step) return std::nullopt;
    x -= step->first, y -= step->second;
    if (!(std::hypot(x - start.x(), y - start.y()) <= reach)) return std::nullopt;
    if (Settled(step->first, step->second, x, y)) break;
  }
  return QPointF(x, y);
}

std::optional<std::pair<double, double>> CommonPoint(const Path& p, const Path& q, double s, double t, double reach) {
  const QPointF start = p(s);
  for (int i = 0; i < kNewtonSteps; ++i) {
    const QPointF ps = p(s), qt = q(t);
    const QPointF r = ps - qt;
    if (!std::isfinite(r.x()) || !std::isfinite(r.y())) return std::nullopt;
    if (r.isNull()) break;
    const double hs = StepFor(s), ht = StepFor(t);
    const QPointF dp = (p(s + hs) - ps) / hs, dq = (q(t + ht) - qt) / ht;
    // r(s, t) = p(s) - q(t): its Jacobian has the columns p'(s) and -q'(t).
    const auto step = Solve(dp.x(), -dq.x(), dp.y(), -dq.y(), r.x(), r.y());
    if (!step) return std::nullopt;
    s -= step->first, t -= step->second;
    const QPointF at = p(s);
    if (!(std::hypot(at.x() - start.x(), at.y() - start.y()) <= reach)) return std::nullopt;
    if (Settled(step->first, step->second, s, t)) break;
  }
  return std::pair{s, t};
}

}  // namespace plot2d::refine
