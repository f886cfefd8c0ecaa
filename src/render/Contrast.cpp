#include "Contrast.h"

#include <cmath>

namespace render {

namespace {

double Linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

QColor Mixed(const QColor& from, const QColor& to, double share) {
  const auto mix = [share](double a, double b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
  return QColor(mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue()));
}

}  // namespace

double Contrast::Luminance(const QColor& color) {
  const QColor rgb = color.toRgb();
  return 0.2126 * Linear(rgb.redF()) + 0.7152 * Linear(rgb.greenF()) + 0.0722 * Linear(rgb.blueF());
}

double Contrast::Ratio(const QColor& first, const QColor& second) {
  const double a = Luminance(first) + 0.05, b = Luminance(second) + 0.05;
  return a > b ? a / b : b / a;
}

QColor Contrast::ReadableOn(const QColor& color, const QColor& back, double ratio) {
  if (Ratio(color, back) >= ratio) return color.toRgb();
  const QColor toward = Luminance(back) < 0.18 ? QColor(Qt::white) : QColor(Qt::black);
  // The ratio grows steadily with the share of white or black, so halving finds the least share.
  double low = 0, high = 1;
  for (int step = 0; step < 20; ++step) {
    const double middle = (low + high) / 2;
    (Ratio(Mixed(color, toward, middle), back) >= ratio ? high : low) = middle;
  }
  return Mixed(color, toward, high);
}

}  // namespace render
