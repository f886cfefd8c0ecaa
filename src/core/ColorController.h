#pragma once

#include <cstdint>

// Colour arithmetic on colour values in which red is the low byte (255 is pure red, 16711680
// pure blue), and the hue walk that gives every new row a colour of its own.
namespace core {

using Color = std::int32_t;

// Hue, saturation and lightness, each on a scale of 0 to 240.
struct Hsl {
  std::int16_t Hue = 0;
  std::int16_t Saturation = 0;
  std::int16_t Lightness = 0;
  bool operator==(const Hsl&) const = default;
};

int RedOf(Color color);
// Masks with 0x0100FF00: the bit above the blue byte goes with green.
int GreenOf(Color color);
int BlueOf(Color color);

// A colour value from three channels; a channel outside 0 to 255 is taken as the nearest bound.
Color Rgb(int red, int green, int blue);

Hsl RgbToHsl(Color color);
Color HslToRgb(int hue, int saturation, int lightness);

// The next row's colour: the hue turned by 20 of 240, so twelve rows walk round the circle once.
// Never fails: a value whose conversion overflows comes back unchanged.
Color NextRowColor(Color color);

}  // namespace core
