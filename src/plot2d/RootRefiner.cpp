#include "RootRefiner.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace plot2d::refine {

namespace {

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
constexpr int kRootSteps = 200;  // Brent needs about ten; bisection alone about 64 per bracket

bool SameSign(double u, double v) { return (u > 0) == (v > 0); }

// One step of Brent's method for a root: inverse quadratic or secant when that stays well inside
// the bracket and shrinks it fast enough, else bisection. d is the step, e the one before.
void BrentStep(double a, double b, double c, double fa, double fb, double fc, double tol, double& d, double& e) {
  const double m = (c - b) / 2;
  if (std::abs(e) < tol || std::abs(fa) <= std::abs(fb)) {
    d = e = m;
    return;
  }
  const double s = fb / fa;
  double p, q;
  if (a == c) {
    p = 2 * m * s, q = 1 - s;
  } else {
    const double r = fb / fc, t = fa / fc;
    p = s * (2 * m * t * (t - r) - (b - a) * (r - 1));
    q = (t - 1) * (r - 1) * (s - 1);
  }
  if (p > 0) q = -q;
  else p = -p;
  if (2 * p < std::min(3 * m * q - std::abs(tol * q), std::abs(e * q))) {
    e = d, d = p / q;
  } else {
    d = e = m;
  }
}

// The second difference of f at x over a step h.
double Curvature(const Function& f, double x, double fx, double h) {
  const double up = x + h, down = x - h;
  const double step = (up - down) / 2;
  return (f(up) - 2 * fx + f(down)) / (step * step);
}

}  // namespace

double Lowest(const Function& g, double a, double b) {
  const double golden = (3 - std::sqrt(5.0)) / 2;
  const double floor = 1e-9 * (b - a);
  double x = a + golden * (b - a), w = x, v = x;
  double fx = g(x), fw = fx, fv = fx;
  double d = 0, e = 0;
  for (int i = 0; i < 100; ++i) {
    const double m = (a + b) / 2, tol = std::sqrt(kEpsilon) * std::abs(x) + floor, tol2 = 2 * tol;
    if (std::abs(x - m) <= tol2 - (b - a) / 2) break;
    bool parabolic = false;
    if (std::abs(e) > tol) {
      const double r = (x - w) * (fx - fv);
      double q = (x - v) * (fx - fw);
      double p = (x - v) * q - (x - w) * r;
      q = 2 * (q - r);
      if (q > 0) p = -p;
      else q = -q;
      const double before = e;
      if (std::abs(p) < std::abs(0.5 * q * before) && p > q * (a - x) && p < q * (b - x)) {
        e = d, d = p / q, parabolic = true;
        const double u = x + d;
        if (u - a < tol2 || b - u < tol2) d = x < m ? tol : -tol;
      }
    }
    if (!parabolic) {
      e = (x < m ? b : a) - x;
      d = golden * e;
    }
    const double u = x + (std::abs(d) >= tol ? d : (d > 0 ? tol : -tol));
    const double fu = g(u);
    if (fu <= fx) {
      (u < x ? b : a) = x;
      v = w, fv = fw, w = x, fw = fx, x = u, fx = fu;
    } else {
      (u < x ? a : b) = u;
      if (fu <= fw || w == x) v = w, fv = fw, w = u, fw = fu;
      else if (fu <= fv || v == x || v == w) v = u, fv = fu;
    }
  }
  return x;
}

std::optional<double> Root(const Function& f, double a, double b) {
  double fa = f(a), fb = f(b);
  if (!std::isfinite(fa) || !std::isfinite(fb)) return std::nullopt;
  if (fa == 0) return a;
  if (fb == 0) return b;
  if (SameSign(fa, fb)) return std::nullopt;
  const double floor = std::abs(b - a) * kEpsilon * 1e-3;
  double c = a, fc = fa, d = b - a, e = d;
  for (int i = 0; i < kRootSteps; ++i) {
    if (SameSign(fb, fc)) c = a, fc = fa, d = e = b - a;
    if (std::abs(fc) < std::abs(fb)) a = b, b = c, c = a, fa = fb, fb = fc, fc = fa;
    const double tol = 2 * kEpsilon * std::abs(b) + floor;
    const double m = (c - b) / 2;
    if (std::abs(m) <= tol || fb == 0) return b;
    BrentStep(a, b, c, fa, fb, fc, tol, d, e);
    a = b, fa = fb;
    b += std::abs(d) > tol ? d : (m > 0 ? tol : -tol);
    fb = f(b);
    if (!std::isfinite(fb)) return std::nullopt;
  }
  return b;
}

std::optional<double> RootNear(const Function& f, double x, double reach) {
  const double fx = f(x);
  if (fx == 0) return x;
  if (!std::isfinite(fx) || !(reach > 0)) return std::nullopt;
  for (double step = reach / 64; step <= reach; step *= 2) {
    const double left = f(x - step), right = f(x + step);
    // The nearer side first where both change sign.
    const bool leftChanges = std::isfinite(left) && !SameSign(left, fx);
    const bool rightChanges = std::isfinite(right) && !SameSign(right, fx);
    if (leftChanges && (!rightChanges || std::abs(left) >= std::abs(right))) return Root(f, x - step, x);
    if (rightChanges) return Root(f, x, x + step);
  }
  return std::nullopt;
}

// Agreement within a few percent: enough that the extrapolation of Slope takes over.
std::optional<double> SmoothStep(const Function& f, double x, double start) {
  const double fx = f(x);
  if (!std::isfinite(fx)) return std::nullopt;
  double h = start;
  double wide = Curvature(f, x, fx, h), middle = Curvature(f, x, fx, h / 2);
  for (int i = 0; i < 40; ++i) {
    const double narrow = Curvature(f, x, fx, h / 4);
    const auto agree = [](double u, double v) { return std::abs(u - v) <= 0.05 * std::max(std::abs(u), std::abs(v)); };
    if (narrow != 0 && agree(wide, middle) && agree(middle, narrow)) return h;
    h /= 2, wide = middle, middle = narrow;
  }
  return std::nullopt;
}

double Slope(const Function& f, double x, double h) {
  constexpr int kLevels = 10;
  constexpr double kShrink = 1.4, kShrink2 = kShrink * kShrink, kSafe = 2;
  double table[kLevels][kLevels];
  const auto central = [&](double step) {
    const double up = x + step, down = x - step;
    return (f(up) - f(down)) / (up - down);
  };
  table[0][0] = central(h);
  double best = table[0][0], error = std::numeric_limits<double>::infinity();
  for (int i = 1; i < kLevels; ++i) {
    h /= kShrink;
    table[0][i] = central(h);
    double factor = kShrink2;
    for (int j = 1; j <= i; ++j) {
      table[j][i] = (table[j - 1][i] * factor - table[j - 1][i - 1]) / (factor - 1);
      factor *= kShrink2;
      const double estimate = std::max(std::abs(table[j][i] - table[j - 1][i]), std::abs(table[j][i] - table[j - 1][i - 1]));
      if (estimate <= error) error = estimate, best = table[j][i];
    }
    // Rounding has begun to win over the extrapolation.
    if (std::abs(table[i][i] - table[i - 1][i - 1]) >= kSafe * error) break;
  }
  return best;
}

std::optional<double> Turn(const Function& f, double a, double b, bool maximum) {
  if (!(a < b)) return std::nullopt;
  const Function g = [&](double x) { return maximum ? -f(x) : f(x); };
  const double rough = Lowest(g, a, b);
  // The derivative is taken over a step where f is smooth, as wide as allowed so that rounding
  // in f weighs least; the rough turn lies within a few millionths of that step.
  const auto h = SmoothStep(f, rough, 16 * std::max({1.0, std::abs(rough), b - a}));
  if (!h) return rough;
  const Function slope = [&](double x) { return Slope(f, x, *h); };
  const double reach = std::max({1e-6 * *h, 64 * std::sqrt(kEpsilon) * std::abs(rough), 8e-9 * (b - a)});
  return Root(slope, rough - reach, rough + reach).value_or(rough);
}

}  // namespace plot2d::refine
