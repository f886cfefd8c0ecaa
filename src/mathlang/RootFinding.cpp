#include "RootFinding.h"

#include <algorithm>
#include <cmath>

namespace mathlang {

namespace {

constexpr int kSteps = 80;  // enough halvings, or golden sections, to reach full precision

}  // namespace

double Bisect(const Function& f, double a, double b) {
  double fa = f(a);
  for (int i = 0; i < kSteps; ++i) {
    const double m = (a + b) / 2;
    const double fm = f(m);
    if (!std::isfinite(fm)) break;
    if ((fm > 0) == (fa > 0)) a = m, fa = fm;
    else b = m;
  }
  return (a + b) / 2;
}

double Golden(const Function& f, double a, double b, bool maximum) {
  const double ratio = (std::sqrt(5.0) - 1) / 2;
  const auto better = [&](double u, double v) { return maximum ? f(u) > f(v) : f(u) < f(v); };
  double c = b - ratio * (b - a), d = a + ratio * (b - a);
  for (int i = 0; i < kSteps; ++i) {
    if (better(c, d)) b = d;
    else a = c;
    c = b - ratio * (b - a), d = a + ratio * (b - a);
  }
  return (a + b) / 2;
}

std::optional<double> Bracketed(const Function& f, double a, double b) {
  const double fa = f(a), fb = f(b);
  if (fa == 0) return a;
  if (fb == 0) return b;
  if (!std::isfinite(fa) || !std::isfinite(fb) || (fa > 0) == (fb > 0)) return std::nullopt;
  return Bisect(f, a, b);
}

// The Jacobian is of forward differences; the residuals are exact, so Newton's method still
// converges to full precision.
std::optional<QPointF> Newton(const Zero& f, const Zero& g, QPointF start, double reach) {
  double x = start.x(), y = start.y();
  for (int i = 0; i < 40; ++i) {
    const double fv = f(x, y), gv = g(x, y);
    if (fv == 0 && gv == 0) break;
    const double hx = 1e-7 * std::max(1.0, std::abs(x)), hy = 1e-7 * std::max(1.0, std::abs(y));
    const double fx = (f(x + hx, y) - fv) / hx, fy = (f(x, y + hy) - fv) / hy;
    const double gx = (g(x + hx, y) - gv) / hx, gy = (g(x, y + hy) - gv) / hy;
    const double det = fx * gy - fy * gx;
    if (det == 0 || !std::isfinite(det)) return std::nullopt;
    const double dx = (fv * gy - fy * gv) / det, dy = (fx * gv - fv * gx) / det;
    x -= dx, y -= dy;
    if (!std::isfinite(x) || !std::isfinite(y)) return std::nullopt;
    if (std::abs(dx) <= 1e-15 * std::max(1.0, std::abs(x)) && std::abs(dy) <= 1e-15 * std::max(1.0, std::abs(y))) break;
  }
  if (std::hypot(x - start.x(), y - start.y()) > reach) return std::nullopt;
  return QPointF(x, y);
}

}  // namespace mathlang
