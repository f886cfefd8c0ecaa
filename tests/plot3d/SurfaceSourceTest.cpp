#include "plot3d/SurfaceSource.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

using plot3d::SurfaceKind;
using plot3d::SurfaceSource;

TEST(SurfaceSource, TheKindsTextsCompile) {
  struct Case {
    const char* text;
    int kind;
  };
  // The texts as the surface tab hands them: prefixes gone, Greek letters spelled out.
  const Case cases[] = {{"x^2+y^2", 1}, {"sin(x)*cos(z)", 2}, {"y*z", 3}, {"x^2+y^2+z^2=4", 4},
                        {"(x^2+9/4*y^2+z^2-1)^3-x^2*z^3-9/80*y^2*z^3=0", 4}, {"2", 5}, {"2*theta", 5},
                        {"1+cos(phi)", 5}, {"u:v:u+v", 6}, {"cos(u)*sin(v):sin(u)*sin(v):cos(v)", 6}};
  for (const Case& c : cases) {
    const SurfaceSource source = SurfaceSource::Compile(c.text, c.kind);
    EXPECT_TRUE(source.Ok()) << c.text << ": " << source.Error.toStdString();
    EXPECT_EQ(static_cast<int>(source.Kind), c.kind) << c.text;
  }
}

TEST(SurfaceSource, AnImplicitEquationIsTheDifferenceOfItsSides) {
  const SurfaceSource source = SurfaceSource::Compile("x^2+y^2+z^2=4", 4);
  ASSERT_TRUE(source.Ok());
  std::array<double, mathlang::kVariableCount> at{};
  at[0] = 1, at[1] = 2, at[5] = 3;  // x, y, z
  EXPECT_DOUBLE_EQ(source.Functions[0].At(at), 10);
  EXPECT_DOUBLE_EQ(SurfaceSource::Compile("x*y*z", 4).Functions[0].At(at), 6);  // no "=": F = 0
}

TEST(SurfaceSource, BadTextsSayWhy) {
  struct Case {
    const char* text;
    int kind;
    const char* error;
  };
  const Case cases[] = {{"sin(", 1, nullptr},
                        {"w+1", 1, "unknown name \"w\""},
                        {"", 1, "nothing to draw"},
                        {"   ", 5, "nothing to draw"},
                        {"u:v", 6, "a parametric surface needs three functions, \"X:Y:Z\""},
                        {"u:v:w:1", 6, "a parametric surface needs three functions, \"X:Y:Z\""},
                        {"u:v:", 6, nullptr},
                        {"x", 0, "no surface kind 0"},
                        {"x", 7, "no surface kind 7"},
                        {"x=y=z", 4, nullptr}};
  for (const Case& c : cases) {
    const SurfaceSource source = SurfaceSource::Compile(c.text, c.kind);
    EXPECT_FALSE(source.Ok()) << c.text;
    if (c.error) {
      EXPECT_EQ(source.Error, c.error) << c.text;
    }
  }
}
