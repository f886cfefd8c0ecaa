#include "RiemannRules.h"

#include <cmath>
#include <limits>

namespace area {

QString RuleName(Rule rule) {
  switch (rule) {
    case Rule::Left: return QStringLiteral("left");
    case Rule::Right: return QStringLiteral("right");
    case Rule::Midpoint: return QStringLiteral("midpoint");
    case Rule::Trapezoid: return QStringLiteral("trapezoid");
    case Rule::Simpson: return QStringLiteral("Simpson");
  }
  return {};
}

int RuleOrder(Rule rule) {
  switch (rule) {
    case Rule::Left:
    case Rule::Right: return 1;
    case Rule::Midpoint:
    case Rule::Trapezoid: return 2;
    case Rule::Simpson: return 4;
  }
  return 0;
}

int UsableCount(Rule rule, int n) { return rule == Rule::Simpson && n % 2 != 0 ? n + 1 : n; }

double RiemannSum(const std::function<double(double)>& f, double a, double b, int n, Rule rule) {
  if (n < 1) return std::numeric_limits<double>::quiet_NaN();
  n = UsableCount(rule, n);
  const double h = (b - a) / n;
  // Each sample at a + i h (not a running x += h), so the samples do not drift.
  const auto x = [&](double i) { return a + i * h; };
  double sum = 0;
  switch (rule) {
    case Rule::Left:
      for (int i = 0; i < n; ++i) sum += f(x(i));
      return h * sum;
    case Rule::Right:
      for (int i = 1; i <= n; ++i) sum += f(x(i));
      return h * sum;
    case Rule::Midpoint:
      for (int i = 0; i < n; ++i) sum += f(x(i + 0.5));
      return h * sum;
    case Rule::Trapezoid:
      for (int i = 1; i < n; ++i) sum += f(x(i));
      return h * (sum + (f(a) + f(b)) / 2);
    case Rule::Simpson:
      for (int i = 1; i < n; ++i) sum += (i % 2 == 1 ? 4 : 2) * f(x(i));
      return h * (sum + f(a) + f(b)) / 3;
  }
  return std::numeric_limits<double>::quiet_NaN();
}

}  // namespace area
