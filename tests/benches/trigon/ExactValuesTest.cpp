#include "benches/trigon/ExactValues.h"

#include <gtest/gtest.h>

namespace trigon {
namespace {

struct ExactCase {
  int Degrees;
  const char* Sin;
  const char* Cos;
  const char* Tan;
};

// Every multiple of 30° and of 45° in [0°, 360°), as a student's table writes them.
const ExactCase kSpecial[] = {
    {0, "0", "1", "0"},
    {30, "1/2", "√3/2", "1/√3"},
    {45, "√2/2", "√2/2", "1"},
    {60, "√3/2", "1/2", "√3"},
    {90, "1", "0", "undefined"},
    {120, "√3/2", "-1/2", "-√3"},
    {135, "√2/2", "-√2/2", "-1"},
    {150, "1/2", "-√3/2", "-1/√3"},
    {180, "0", "-1", "0"},
    {210, "-1/2", "-√3/2", "1/√3"},
    {225, "-√2/2", "-√2/2", "1"},
    {240, "-√3/2", "-1/2", "√3"},
    {270, "-1", "0", "undefined"},
    {300, "-√3/2", "1/2", "-√3"},
    {315, "-√2/2", "√2/2", "-1"},
    {330, "-1/2", "√3/2", "-1/√3"},
};

TEST(ExactValues, EverySpecialAngleOfOneTurn) {
  for (const ExactCase& c : kSpecial) {
    SCOPED_TRACE(c.Degrees);
    const auto texts = ExactValues(c.Degrees);
    ASSERT_TRUE(texts.has_value());
    EXPECT_EQ(texts->Sin, QString::fromUtf8(c.Sin));
    EXPECT_EQ(texts->Cos, QString::fromUtf8(c.Cos));
    EXPECT_EQ(texts->Tan, QString::fromUtf8(c.Tan));
  }
}

TEST(ExactValues, TheSpecialAnglesAreAllThereAre) {
  int count = 0;
  for (int d = 0; d < 360; ++d) count += ExactValues(d).has_value() ? 1 : 0;
  EXPECT_EQ(count, 16);
}

TEST(ExactValues, ElsewhereNone) {
  for (double d : {1.0, 15.0, 29.5, 31.0, 75.0, 359.0, 30.001}) {
    SCOPED_TRACE(d);
    EXPECT_FALSE(ExactValues(d).has_value());
  }
}

TEST(ExactValues, AnglesOutsideOneTurnWrap) {
  EXPECT_EQ(ExactValues(390), ExactValues(30));
  EXPECT_EQ(ExactValues(-30), ExactValues(330));
  EXPECT_EQ(ExactValues(720), ExactValues(0));
  // A typed radian a few bits away from a whole degree still counts as that degree.
  EXPECT_EQ(ExactValues(30.000000000001), ExactValues(30));
}

TEST(ExactValues, WrapDegrees) {
  const struct {
    double In, Out;
  } cases[] = {{0, 0}, {360, 0}, {-1, 359}, {725, 5}, {-360.0000000000001, 0}, {359.5, 359.5}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.In);
    EXPECT_EQ(WrapDegrees(c.In), c.Out);
  }
}

TEST(ExactValues, RadianText) {
  const struct {
    double Degrees;
    const char* Text;
  } cases[] = {{0, "0"}, {30, "π/6"}, {45, "π/4"}, {90, "π/2"}, {135, "3π/4"}, {180, "π"},
               {270, "3π/2"}, {1, "π/180"}, {-60, "-π/3"}, {30.5, "0.532325"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Degrees);
    EXPECT_EQ(RadianText(c.Degrees), QString::fromUtf8(c.Text));
  }
}

TEST(ExactValues, DecimalText) {
  EXPECT_EQ(DecimalText(-1e-17), QStringLiteral("0.000000"));
  EXPECT_EQ(DecimalText(0.5), QStringLiteral("0.500000"));
  EXPECT_EQ(DecimalText(std::nan("")), QStringLiteral("undefined"));
}

}  // namespace
}  // namespace trigon
