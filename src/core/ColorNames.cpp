#include "ColorNames.h"

#include <limits>

namespace core {

namespace {

struct Named {
  int Red, Green, Blue;
  const char* Name;
};

// Plain names a listener can picture; a colour takes the nearest of them.
constexpr Named kNames[] = {
    {0, 0, 0, "black"},          {128, 128, 128, "grey"},       {192, 192, 192, "light grey"},
    {255, 255, 255, "white"},    {255, 0, 0, "red"},            {128, 0, 0, "dark red"},
    {255, 128, 0, "orange"},     {255, 255, 0, "yellow"},       {128, 128, 0, "olive"},
    {0, 255, 0, "green"},        {0, 128, 0, "dark green"},     {0, 255, 255, "cyan"},
    {0, 128, 128, "teal"},       {0, 0, 255, "blue"},           {0, 0, 128, "dark blue"},
    {128, 128, 255, "light blue"}, {128, 0, 255, "violet"},     {255, 0, 255, "magenta"},
    {128, 0, 128, "purple"},     {255, 128, 192, "pink"},       {128, 64, 0, "brown"},
};

}  // namespace

QString ColorName(std::int32_t color) {
  const int red = color & 0xFF;
  const int green = (color >> 8) & 0xFF;
  const int blue = (color >> 16) & 0xFF;
  const Named* nearest = &kNames[0];
  int best = std::numeric_limits<int>::max();
  for (const Named& named : kNames) {
    // Green weighs most and blue least, roughly as the eye tells them apart.
    const int dr = red - named.Red, dg = green - named.Green, db = blue - named.Blue;
    const int distance = 3 * dr * dr + 4 * dg * dg + 2 * db * db;
    if (distance < best) {
      best = distance;
      nearest = &named;
    }
  }
  return QString::fromLatin1(nearest->Name);
}

}  // namespace core
