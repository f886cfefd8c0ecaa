#include "core/ColorNames.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

TEST(ColorNames, TheRowsColoursByTheirEverydayNames) {
  const struct {
    std::int32_t color;  // red in the low byte
    const char* name;
  } cases[] = {
      {255, "red"},          {33023, "orange"},     {65535, "yellow"},     {16711680, "blue"},   {0, "black"},
      {16777215, "white"},   {8421504, "grey"},     {65280, "green"},      {8388736, "purple"},  {16776960, "cyan"},
      {16711935, "magenta"}, {128, "dark red"},     {8388608, "dark blue"}, {32768, "dark green"}, {12632256, "light grey"},
      {230, "red"},          {16711900, "magenta"},
  };
  for (const auto& c : cases) EXPECT_EQ(core::ColorName(c.color), c.name) << c.color;
}
