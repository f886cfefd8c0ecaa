#include "ColorController.h"

#include "NumberText.h"
#include "RuntimeError.h"

#include <algorithm>

namespace core {

namespace {

constexpr int kScale = 240;      // hue, saturation and lightness run from 0 to 240
constexpr int kChannelMax = 255;

// The channel at a point of the hue circle, between the two magic levels m1 and m2. Integer
// variables round what is assigned to them, so every intermediate is rounded as it is stored.
int HueToChannel(int m1, int m2, int hue) {
  if (hue < 0) hue += kScale;
  if (hue > kScale) hue -= kScale;
  if (hue < kScale / 6) return RoundToInt16(m1 + ((m2 - m1) * hue + kScale / 12.0) / (kScale / 6));
  if (hue < kScale / 2) return m2;
  if (hue < kScale * 2 / 3) {
    return RoundToInt16(m1 + ((m2 - m1) * (kScale * 2 / 3 - hue) + kScale / 12.0) / (kScale / 6));
  }
  return m1;
}

int ToChannel(int level) {
  return RoundToInt16((level * static_cast<double>(kChannelMax) + kScale / 2.0) / kScale);
}

}  // namespace

int RedOf(Color color) { return color & 0xFF; }

int GreenOf(Color color) { return RoundToInt32((color & 0x0100FF00) / 256.0); }

int BlueOf(Color color) { return RoundToInt32((color & 0x00FF0000) / 65536.0); }

Color Rgb(int red, int green, int blue) {
  const auto clamp = [](int channel) { return std::clamp(channel, 0, kChannelMax); };
  return clamp(red) | (clamp(green) << 8) | (clamp(blue) << 16);
}

Hsl RgbToHsl(Color color) {
  const int red = RedOf(color);
  const int green = GreenOf(color);
  const int blue = BlueOf(color);
  const int max = std::max({red, green, blue});
  const int min = std::min({red, green, blue});
  Hsl hsl;
  hsl.Lightness = RoundToInt16(((max + min) * 240.0 + 255) / 510);
  if (max == min) return hsl;  // a grey: hue and saturation stay 0

  const double spread = max - min;
  if (hsl.Lightness <= kScale / 2) {
    hsl.Saturation = RoundToInt16((spread * 240 + 0.5) / (max + min));
  } else {
    hsl.Saturation = RoundToInt16((spread * 240 + 0.5) / (510 - max - min));
  }
  const int deltaRed = RoundToInt16(((max - red) * 40.0 + 0.5) / spread);
  const int deltaGreen = RoundToInt16(((max - green) * 40.0 + 0.5) / spread);
  const int deltaBlue = RoundToInt16(((max - blue) * 40.0 + 0.5) / spread);
  int hue = 0;
  if (red == max) {
    hue = deltaBlue - deltaGreen;
  } else if (green == max) {
    hue = 80 + deltaRed - deltaBlue;
  } else {
    hue = 160 + deltaGreen - deltaRed;
  }
  if (hue < 0) hue += kScale;
  if (hue > kScale) hue -= kScale;
  hsl.Hue = static_cast<std::int16_t>(hue);
  return hsl;
}

Color HslToRgb(int hue, int saturation, int lightness) {
  if (saturation == 0) {
    const int grey = ToChannel(lightness);
    return Rgb(grey, grey, grey);
  }
  int m2 = 0;
  if (lightness <= kScale / 2) {
    m2 = RoundToInt16((lightness * static_cast<double>(kScale + saturation) + kScale / 2.0) / kScale);
  } else {
    m2 = RoundToInt16(lightness + saturation -
                      (lightness * static_cast<double>(saturation) + kScale / 2.0) / kScale);
  }
  const int m1 = 2 * lightness - m2;
  return Rgb(ToChannel(HueToChannel(m1, m2, hue + kScale / 3)), ToChannel(HueToChannel(m1, m2, hue)),
             ToChannel(HueToChannel(m1, m2, hue - kScale / 3)));
}

Color NextRowColor(Color color) {
  try {
    const Hsl hsl = RgbToHsl(color);
    int hue = hsl.Hue + kScale / 12;
    if (hue > kScale) hue -= kScale;
    return HslToRgb(hue, hsl.Saturation, hsl.Lightness);
  } catch (const RuntimeError&) {
    // Only a value with bits above the blue byte gets here (GreenOf takes bit 24 along and the
    // 16-bit arithmetic overflows); such a colour is kept as it is rather than failing a new row.
    return color;
  }
}

}  // namespace core
