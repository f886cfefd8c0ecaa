#include "SliderBounds.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace rows {

namespace {

// The digits after the point that a number needs, up to a limit that no slider step goes below.
int DecimalsOf(double number) {
  constexpr int kMostDecimals = 10;
  for (int decimals = 0; decimals < kMostDecimals; ++decimals) {
    const double scaled = number * std::pow(10.0, decimals);
    if (std::abs(scaled - std::round(scaled)) < 1e-6 * std::max(1.0, std::abs(scaled))) return decimals;
  }
  return kMostDecimals;
}

// A number as the file keeps it: the shortest text that reads back as the same number.
QString Shortest(double number) { return QString::number(number, 'g', 15); }

std::optional<double> Number(const QString& text) {
  bool ok = false;
  const double number = text.trimmed().toDouble(&ok);
  if (!ok || !std::isfinite(number)) return std::nullopt;
  return number;
}

}  // namespace

// A Max that is no whole number of steps from Min is not reached: the last position stays inside.
int SliderBounds::Positions() const { return static_cast<int>(std::floor((Max - Min) / Step + 1e-9)); }

int SliderBounds::PositionOf(double value) const {
  return std::clamp(static_cast<int>(std::lround((value - Min) / Step)), 0, Positions());
}

double SliderBounds::ValueAt(int position) const { return Min + position * Step; }

QString SliderBounds::Format(double value) const {
  const int decimals = std::max(DecimalsOf(Step), DecimalsOf(Min));
  QString text = QString::number(value, 'f', decimals);
  // Rounding may leave a minus on nothing ("-0.0"); the row shows 0.
  if (std::abs(text.toDouble()) == 0) text = QString::number(0.0, 'f', decimals);
  return text;
}

SliderBounds SliderBounds::WidenedFor(double value) const {
  SliderBounds widened = *this;
  if (value < Min) widened.Min = std::floor(value);
  if (value > Max) widened.Max = std::ceil(value);
  return widened;
}

QString SliderBounds::Text() const { return Shortest(Min) + u':' + Shortest(Max) + u':' + Shortest(Step); }

std::optional<SliderBounds> SliderBounds::FromText(const QString& text) {
  const QStringList fields = text.split(u':');
  if (fields.size() != 3) return std::nullopt;
  return FromNumbers(fields[0], fields[1], fields[2]);
}

std::optional<SliderBounds> SliderBounds::FromNumbers(const QString& min, const QString& max, const QString& step) {
  const auto low = Number(min), high = Number(max), by = Number(step);
  if (!low || !high || !by || *low >= *high || *by <= 0) return std::nullopt;
  const SliderBounds bounds{*low, *high, *by};
  if ((*high - *low) / *by > kMaxPositions) return std::nullopt;
  return bounds;
}

}  // namespace rows
