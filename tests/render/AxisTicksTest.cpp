#include "render/AxisTicks.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

using render::AxisTicks;

TEST(AxisTicks, StepsAreOneTwoFiveTimesAPowerOfTen) {
  EXPECT_DOUBLE_EQ(AxisTicks::StepFor(20, 800, 80), 2);
  EXPECT_DOUBLE_EQ(AxisTicks::StepFor(20, 800, 40), 1);
  EXPECT_DOUBLE_EQ(AxisTicks::StepFor(1, 800, 80), 0.1);
  EXPECT_DOUBLE_EQ(AxisTicks::StepFor(1000, 800, 80), 100);
  EXPECT_DOUBLE_EQ(AxisTicks::StepFor(3, 800, 80), 0.5);
  EXPECT_DOUBLE_EQ(AxisTicks::StepFor(0, 800, 80), 1);
}

TEST(AxisTicks, LabelsCarryJustTheDigitsTheStepNeeds) {
  EXPECT_EQ(AxisTicks::Label(0.1 + 0.2, 0.1), "0.3");
  EXPECT_EQ(AxisTicks::Label(3 * 0.1, 0.1), "0.3");
  EXPECT_EQ(AxisTicks::Label(2, 1), "2");
  EXPECT_EQ(AxisTicks::Label(-2.5, 0.5), "-2.5");
  EXPECT_EQ(AxisTicks::Label(1e-17, 0.1), "0");
  EXPECT_EQ(AxisTicks::Label(0.05, 0.05), "0.05");
  EXPECT_EQ(AxisTicks::Label(3e7, 1e7), "3E+7");
  EXPECT_EQ(AxisTicks::Label(2.5e-6, 5e-7), "2.5E-6");
  EXPECT_EQ(AxisTicks::Label(1500, 500), "1500");
}

TEST(AxisTicks, ValuesSnapToZero) {
  const auto values = AxisTicks::Values(-0.3, 0.3, 0.1);
  ASSERT_EQ(values.size(), 7u);
  EXPECT_EQ(values[3], 0.0);
  EXPECT_TRUE(AxisTicks::Values(0, 1, 0).empty());
  EXPECT_TRUE(AxisTicks::Values(0, 1e12, 1).empty());  // too many to be meant
}
