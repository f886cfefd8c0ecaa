#pragma once

#include <QString>

#include <array>
#include <functional>

namespace area {

enum class Rule { Left, Right, Midpoint, Trapezoid, Simpson };

inline constexpr std::array<Rule, 5> kRules{Rule::Left, Rule::Right, Rule::Midpoint, Rule::Trapezoid, Rule::Simpson};

// "left", "midpoint", ... as the window names them.
QString RuleName(Rule rule);
// The power of 1/n the error falls with for a smooth f: 1, 2 or 4.
int RuleOrder(Rule rule);
// The n the rule really uses: Simpson's needs an even n and takes n + 1 for an odd one.
int UsableCount(Rule rule, int n);

// The rule's sum over [a, b] with n pieces (UsableCount of n); NaN where f is undefined at a
// sample. n below 1 gives NaN.
double RiemannSum(const std::function<double(double)>& f, double a, double b, int n, Rule rule);

}  // namespace area
