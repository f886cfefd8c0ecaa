#include "AxisTicks.h"

#include <cmath>

namespace render {

double AxisTicks::StepFor(double range, double pixels, double minSpacing) {
  if (!(range > 0) || !(pixels > 0)) return 1;
  const double rough = range * minSpacing / pixels;
  const double power = std::pow(10.0, std::floor(std::log10(rough)));
  for (const double factor : {1.0, 2.0, 5.0, 10.0}) {
    if (factor * power >= rough) return factor * power;
  }
  return 10 * power;
}

std::vector<double> AxisTicks::Values(double low, double high, double step) {
  std::vector<double> values;
  if (!(step > 0) || !std::isfinite(low) || !std::isfinite(high) || (high - low) / step > 10000) return values;
  // A tick at the very end of the range counts, whatever the last bit of the division says.
  const double slack = 1e-9;
  for (double k = std::ceil(low / step - slack); k * step <= high + step * slack; ++k) {
    const double v = k * step;
    values.push_back(std::abs(v) < step * 1e-9 ? 0.0 : v);
  }
  return values;
}

QString AxisTicks::Label(double value, double step) {
  if (std::abs(value) < step * 1e-9) return QStringLiteral("0");
  const int stepExponent = static_cast<int>(std::floor(std::log10(step) + 1e-9));
  if (step >= 1e6 || step < 1e-5) {
    // Significant digits from the value's magnitude down to the step's.
    const int valueExponent = static_cast<int>(std::floor(std::log10(std::abs(value)) + 1e-9));
    const int digits = std::max(1, valueExponent - stepExponent + 1);
    return QString::number(value, 'E', digits - 1).replace(QStringLiteral("E+0"), QStringLiteral("E+"))
        .replace(QStringLiteral("E-0"), QStringLiteral("E-"));
  }
  return QString::number(value, 'f', std::max(0, -stepExponent));
}

}  // namespace render
