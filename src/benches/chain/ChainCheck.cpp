#include "ChainCheck.h"

#include "core/NumberText.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace chain {

namespace {

// Points off the usual special places (0, 1, multiples of pi), where a slip in a step would hide.
constexpr std::array kCandidates = {-1.7, -0.9, -0.3, 0.4, 1.1, 1.9, 2.6, 3.3, 5.2, 7.5};
constexpr std::size_t kWanted = 5;

}  // namespace

bool ChainCheck::Close(double a, double b) { return std::abs(a - b) <= kTolerance * std::max(1.0, std::abs(a)); }

double ChainCheck::CentralDerivative(const std::function<double(double)>& f, double x) {
  constexpr int kLevels = 10;
  constexpr double kShrink = 1.4, kShrink2 = kShrink * kShrink, kSafe = 2;
  double table[kLevels][kLevels] = {};
  double h = 0.05 * std::max(1.0, std::abs(x));
  double error = std::numeric_limits<double>::max();
  table[0][0] = (f(x + h) - f(x - h)) / (2 * h);
  double best = table[0][0];
  for (int i = 1; i < kLevels; ++i) {
    h /= kShrink;
    table[0][i] = (f(x + h) - f(x - h)) / (2 * h);
    double factor = kShrink2;
    for (int j = 1; j <= i; ++j) {
      table[j][i] = (table[j - 1][i] * factor - table[j - 1][i - 1]) / (factor - 1);
      factor *= kShrink2;
      const double estimate =
          std::max(std::abs(table[j][i] - table[j - 1][i]), std::abs(table[j][i] - table[j - 1][i - 1]));
      if (estimate <= error) {
        error = estimate;
        best = table[j][i];
      }
    }
    // A higher order that moves away again means rounding has taken over.
    if (std::abs(table[i][i] - table[i - 1][i - 1]) >= kSafe * error) break;
  }
  return best;
}

ChainCheck::Result ChainCheck::Run(const ChainRule& rule) {
  Result result;
  if (!rule.Ok()) {
    result.Words = QStringLiteral("Not checked: %1").arg(rule.Problem());
    return result;
  }
  const auto composition = [&rule](double x) { return rule.Value(ChainRule::Composition, x); };
  for (const double x : kCandidates) {
    if (result.Points.size() >= kWanted) break;
    const double product = rule.Value(ChainRule::Product, x);
    const double numeric = CentralDerivative(composition, x);
    if (!std::isfinite(product) || !std::isfinite(numeric)) continue;
    const double composed = rule.Value(ChainRule::Composition, x), nested = rule.F(rule.G(x));
    if (!Close(composed, nested)) {
      result.Words = QStringLiteral(
                         "At x = %1 the composition %2 gives %3, but f(g(x)) worked out in turn gives %4: "
                         "putting (g) in for x did not make f(g(x)).")
                         .arg(core::FormatNumber(x), rule.Steps()[ChainRule::Composition].Text,
                              core::FormatNumber(composed), core::FormatNumber(nested));
      return result;
    }
    result.Points.push_back(x);
    if (!Close(product, numeric)) {
      result.Words = QStringLiteral(
                         "At x = %1 the product g′(x)·f′(g(x)) gives %2, but the central difference of "
                         "f(g(x)) gives %3: they differ by %4, more than 1e-9.")
                         .arg(core::FormatNumber(x), core::FormatNumber(product), core::FormatNumber(numeric),
                              core::FormatNumber(std::abs(product - numeric)));
      return result;
    }
  }
  if (result.Points.empty()) {
    result.Words = QStringLiteral("Not checked: f(g(x)) or its derivative is undefined at every point tried.");
    return result;
  }
  QStringList where;
  for (const double x : result.Points) where << core::FormatNumber(x);
  result.Agrees = true;
  result.Words = QStringLiteral("Checked at x = %1: agrees to 1e-9 with the central difference of f(g(x)).")
                     .arg(where.join(QStringLiteral(", ")));
  return result;
}

}  // namespace chain
