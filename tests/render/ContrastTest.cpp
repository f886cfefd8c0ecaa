#include "render/Contrast.h"

#include <gtest/gtest.h>

using render::Contrast;

// Figures as the accessibility guidelines' own calculators give them.
TEST(Contrast, RatiosOfKnownPairs) {
  struct Case {
    const char* first;
    const char* second;
    double ratio;
  };
  const Case cases[] = {
      {"#000000", "#ffffff", 21.0}, {"#ffffff", "#ffffff", 1.0},  {"#777777", "#ffffff", 4.48},
      {"#6b7280", "#ffffff", 4.83}, {"#2563eb", "#ffffff", 5.17}, {"#ff0000", "#ffffff", 4.0},
  };
  for (const Case& c : cases) {
    EXPECT_NEAR(Contrast::Ratio(QColor(c.first), QColor(c.second)), c.ratio, 0.01) << c.first << " on " << c.second;
    EXPECT_NEAR(Contrast::Ratio(QColor(c.second), QColor(c.first)), c.ratio, 0.01) << "either order";
  }
}

TEST(Contrast, AColourThatReadsIsKept) {
  EXPECT_EQ(Contrast::ReadableOn(QColor("#111827"), QColor("#ffffff"), 4.5), QColor("#111827"));
}

// Blue axes on a dark back are lightened toward white just enough; on a light back a pale colour
// is darkened toward black.
TEST(Contrast, AColourThatDoesNotReadIsMixedJustEnough) {
  const QColor dark("#1f2228"), blue("#0000ff");
  const QColor lighter = Contrast::ReadableOn(blue, dark, 4.5);
  EXPECT_GE(Contrast::Ratio(lighter, dark), 4.5);
  EXPECT_LT(Contrast::Ratio(lighter, dark), 4.6);
  EXPECT_GT(lighter.blue(), lighter.red()) << "still a blue";
  const QColor pale("#fde68a"), white("#ffffff");
  const QColor darker = Contrast::ReadableOn(pale, white, 3);
  EXPECT_GE(Contrast::Ratio(darker, white), 3);
  EXPECT_LT(darker.lightness(), pale.lightness());
}
