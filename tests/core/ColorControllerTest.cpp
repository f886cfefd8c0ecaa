#include "core/ColorController.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <cstdlib>

using namespace core;

TEST(ColorController, ChannelsWithRedInTheLowByte) {
  EXPECT_EQ(RedOf(255), 255);
  EXPECT_EQ(GreenOf(255), 0);
  EXPECT_EQ(BlueOf(16711680), 255);
  EXPECT_EQ(RedOf(0x123456), 0x56);
  EXPECT_EQ(GreenOf(0x123456), 0x34);
  EXPECT_EQ(BlueOf(0x123456), 0x12);
}

TEST(ColorController, GreenTakesTheBitAboveTheBlueByteAlong) {
  EXPECT_EQ(GreenOf(0x01000000), 65536);
  EXPECT_EQ(GreenOf(0x0100FF00), 65536 + 255);
  EXPECT_EQ(BlueOf(0x01000000), 0);
}

TEST(ColorController, RgbClampsChannels) {
  EXPECT_EQ(Rgb(255, 128, 0), 255 + 128 * 256);
  EXPECT_EQ(Rgb(256, -1, 300), 255 + 255 * 65536);
}

TEST(ColorController, KnownConversions) {
  struct Case { Color color; Hsl hsl; };
  const Case cases[] = {
      {255, {0, 240, 120}},        // red
      {65280, {80, 240, 120}},     // green
      {16711680, {160, 240, 120}}, // blue
      {0xFFFFFF, {0, 0, 240}},     // white
      {0, {0, 0, 0}},              // black
      {0x808080, {0, 0, 121}},     // grey: hue and saturation stay 0
      {0x00FFFF, {40, 240, 120}},  // yellow (red and green)
      {0xFF00FF, {200, 240, 120}}, // magenta (red and blue)
  };
  for (const auto& c : cases) {
    const Hsl hsl = RgbToHsl(c.color);
    EXPECT_EQ(hsl.Hue, c.hsl.Hue) << c.color;
    EXPECT_EQ(hsl.Saturation, c.hsl.Saturation) << c.color;
    EXPECT_EQ(hsl.Lightness, c.hsl.Lightness) << c.color;
  }
}

TEST(ColorController, PureColoursRoundTrip) {
  for (const Color color : {255, 65280, 16711680, 0xFFFFFF, 0, 0x00FFFF, 0xFF00FF, 0xFFFF00}) {
    const Hsl hsl = RgbToHsl(color);
    EXPECT_EQ(HslToRgb(hsl.Hue, hsl.Saturation, hsl.Lightness), color) << color;
  }
}

TEST(ColorController, HslToRgbWrapsTheHue) {
  EXPECT_EQ(HslToRgb(-240 + 80, 240, 120), HslToRgb(80, 240, 120));
  EXPECT_EQ(HslToRgb(241 + 79, 240, 120), HslToRgb(80, 240, 120));
}

TEST(ColorController, NextRowColorTurnsTheHueBy20) {
  EXPECT_EQ(NextRowColor(255), Rgb(255, 128, 0));
  EXPECT_EQ(RgbToHsl(NextRowColor(255)).Hue, 20);
  // A grey has no hue to turn: it stays a grey (its lightness rounds on the way, 128 to 129).
  const Color grey = NextRowColor(0x808080);
  EXPECT_EQ(RedOf(grey), GreenOf(grey));
  EXPECT_EQ(GreenOf(grey), BlueOf(grey));
  EXPECT_EQ(grey, 0x818181);
}

TEST(ColorController, TwelveCallsReturnToTheStartingHue) {
  for (const Color start : {255, 65280, 16711680, 0x3366CC, 0x1E90FF, 0x228B22, 0x8B4513, 0xC0C0FF}) {
    Color color = start;
    for (int i = 0; i < 12; ++i) color = NextRowColor(color);
    const int before = RgbToHsl(start).Hue;
    const int after = RgbToHsl(color).Hue;
    int difference = std::abs(after - before);
    if (difference > 120) difference = 240 - difference;
    EXPECT_LE(difference, 3) << "start " << start << " hue " << before << " after " << after;
  }
}

TEST(ColorController, NextRowColorNeverFails) {
  for (const Color color : {0x01000000, 0x7FFFFFFF, -1, static_cast<Color>(0x80000005)}) {
    EXPECT_NO_THROW(NextRowColor(color)) << color;
  }
}
