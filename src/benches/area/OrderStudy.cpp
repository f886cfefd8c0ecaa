#include "OrderStudy.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace area {

namespace {

// An error this small beside the integral is rounding, not the rule: it would bend the line.
constexpr double kRoundingShare = 1e-12;

}  // namespace

const std::vector<int>& OrderStudy::StudiedCounts() {
  static const std::vector<int> counts{4, 8, 16, 32, 64, 128, 256};
  return counts;
}

OrderStudy::OrderStudy(const AreaFunction& f, double a, double b, double integral) {
  const auto at = [&f](double x) { return f.At(x); };
  const double floor = kRoundingShare * std::max(1.0, std::abs(integral));
  for (Rule rule : kRules) {
    RuleErrors errors;
    errors.Which = rule;
    for (int n : StudiedCounts()) {
      const double error = std::abs(RiemannSum(at, a, b, n, rule) - integral);
      if (!std::isfinite(error) || error <= floor) continue;
      errors.Counts.push_back(n);
      errors.Errors.push_back(error);
    }
    errors.Slope = FitSlope(errors.Counts, errors.Errors);
    m_rules.push_back(std::move(errors));
  }
}

double OrderStudy::FitSlope(const std::vector<int>& counts, const std::vector<double>& errors) {
  const size_t m = std::min(counts.size(), errors.size());
  if (m < 2) return std::numeric_limits<double>::quiet_NaN();
  double sx = 0, sy = 0, sxx = 0, sxy = 0;
  for (size_t i = 0; i < m; ++i) {
    const double x = std::log(static_cast<double>(counts[i])), y = std::log(errors[i]);
    sx += x, sy += y, sxx += x * x, sxy += x * y;
  }
  const double k = static_cast<double>(m);
  return (k * sxy - sx * sy) / (k * sxx - sx * sx);
}

}  // namespace area
