#pragma once

#include "AreaFunction.h"
#include "RiemannRules.h"

#include <vector>

namespace area {

// How one rule's error falls as n grows: |error| at n = 4, 8, ..., 256, and the slope of the
// line through them on log-log axes, which is minus the rule's order for a smooth f.
struct RuleErrors {
  Rule Which = Rule::Left;
  std::vector<int> Counts;
  std::vector<double> Errors;  // |sum - integral|, the ones lost in rounding left out
  double Slope = 0;            // NaN with fewer than two errors to fit
};

// The study for every rule against the given integral.
class OrderStudy {
public:
  static const std::vector<int>& StudiedCounts();

  OrderStudy() = default;
  OrderStudy(const AreaFunction& f, double a, double b, double integral);

  const std::vector<RuleErrors>& Rules() const { return m_rules; }
  const RuleErrors& Of(Rule rule) const { return m_rules[static_cast<size_t>(rule)]; }

  // The least-squares slope of log |error| against log n.
  static double FitSlope(const std::vector<int>& counts, const std::vector<double>& errors);

private:
  std::vector<RuleErrors> m_rules;
};

}  // namespace area
