#pragma once

#include <cmath>

// The forms' lengths are kept in twips, 1/1440 inch, as their numbers were worked out; the screen
// counts 15 twips to a logical pixel, and Qt's high-density scaling does the rest. This is the one
// place where the two meet.
namespace core {

constexpr int kTwipsPerPixel = 15;

// Logical pixels of a length in twips, rounded to the nearest pixel.
constexpr int Px(double twips) {
  const double pixels = twips / kTwipsPerPixel;
  return static_cast<int>(pixels < 0 ? pixels - 0.5 : pixels + 0.5);
}

// Twips of a length in logical pixels.
constexpr int Tw(int pixels) { return pixels * kTwipsPerPixel; }

}  // namespace core
