#pragma once

#include <QString>

#include <optional>

namespace rows {

// Where a constant's slider runs and how far one step goes. The slider works in whole positions
// from Min, so a value is always Min plus a whole number of steps, written with as many decimals
// as the step and Min need: 0.1 + 0.2 is shown as 0.3, never as 0.30000000000000004.
struct SliderBounds {
  double Min = -10;
  double Max = 10;
  double Step = 0.1;

  bool operator==(const SliderBounds&) const = default;

  // Positions 0 to Positions(): the whole steps from Min that stay within Max.
  int Positions() const;
  int PositionOf(double value) const;
  double ValueAt(int position) const;
  // The value as the row shows it: rounded to the decimals of the grid, no "-0".
  QString Format(double value) const;
  // The same bounds, stretched out to whole numbers that hold the value.
  SliderBounds WidenedFor(double value) const;

  // "min:max:step", as the project file keeps them.
  QString Text() const;
  // Bounds from their text or from three typed numbers; none when they cannot make a slider (min
  // not below max, a step that is not positive or that would make too many positions).
  static std::optional<SliderBounds> FromText(const QString& text);
  static std::optional<SliderBounds> FromNumbers(const QString& min, const QString& max, const QString& step);

  static constexpr int kMaxPositions = 100000;
};

}  // namespace rows
