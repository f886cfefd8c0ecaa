// The replot driver on the inequality, parametric and 3D tabs.
#include "ReplotSupport.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

TEST(ReplotTabs, TheInequalityGoesAsTyped) {
  ReplotFixture f;
  f.host.tab = 1;
  f.host.inequality[0] = "a*x^2";  // no constants, no compiling
  f.Replot({"y=x", "a=2"});
  EXPECT_EQ(f.plot.Calls("AddInequality"), (QStringList{"AddInequality y>a*x^2 0 y<=x+2"}));
  EXPECT_EQ(f.plot.properties["ShowIntegral"], 0);
  EXPECT_TRUE(f.plot.Calls("AddFunction").isEmpty());
  EXPECT_EQ(f.plot.calls.last(), "Redraw");
  f.host.twoSides = true;
  f.Replot();
  EXPECT_EQ(f.plot.Calls("AddInequality"), (QStringList{"AddInequality y>a*x^2 1 y<=x+2"}));
}

// Compiled bare: a theta becomes the plain parameter, which the plot reads as t.
TEST(ReplotTabs, TheParametricCurveIsCompiledBareWithItsRange) {
  ReplotFixture f;
  f.host.tab = 2;
  f.host.parametric[0] = "2cos(q..symb)";
  f.host.parametric[1] = "sin([t])";
  f.host.parametric[3] = "2*pi";
  f.Replot();
  EXPECT_EQ(f.plot.Calls("AddParametric"),
            (QStringList{"AddParametric 2cos(x) sin(fix(t)) -3.14159265358979..6.28318530717958 type=1"}));
  f.host.parametricType = "Polar";
  f.host.parametric[2] = "1/0";
  f.Replot();
  EXPECT_EQ(f.plot.Calls("AddParametric"), (QStringList{"AddParametric 2cos(x) sin(fix(t)) 0..6.28318530717958 type=2"}));
}

TEST(ReplotTabs, SurfacesByTheirPrefix) {
  struct Case {
    const char* text;
    QStringList calls;
  };
  const Case cases[] = {
      {"z=x^2+y^2", {"GridCount=3", "Equation=x^2+y^2", "FunctionKind=1", "Zoom=1", "Redraw"}},
      {"y=sin(x*z)", {"GridCount=3", "Equation=sin(x*z)", "FunctionKind=2", "Zoom=1", "Redraw"}},
      {"x=y*z", {"GridCount=3", "Equation=y*z", "FunctionKind=3", "Zoom=1", "Redraw"}},
      {"x^2+y^2+z^2=4", {"GridCount=1", "Equation=x^2+y^2+z^2=4", "FunctionKind=4", "Zoom=1", "Redraw"}},
  };
  for (const Case& c : cases) {
    ReplotFixture f;
    f.host.tab = 3;
    f.host.texts3D["mth_3D_Function"] = c.text;
    f.Replot({"y=x"});
    EXPECT_EQ(f.plot3d.calls, c.calls) << c.text;
    EXPECT_TRUE(f.plot.Calls("AddFunction").isEmpty());
    EXPECT_EQ(f.plot.calls.first(), "ClearAll 11111");
  }
}

TEST(ReplotTabs, PolarSurfacesSpellTheirGreekLettersAndTakeTheirRanges) {
  ReplotFixture f;
  f.host.tab = 3;
  f.host.tab3D = 1;
  f.host.gridIndex = 5;
  f.host.texts3D["mth_3D_Polar"] = "r=2";
  f.Replot();
  EXPECT_EQ(f.plot3d.calls, (QStringList{"GridCount=6", "Equation=2", "FunctionKind=5", "ThetaMin=-6.28318530717958",
                                         "ThetaMax=6.28318530717958", "PhiMax=3.14159265358979", "PhiMin=0", "Zoom=1",
                                         "Redraw"}));
  f.host.texts3D["mth_3D_Polar"] = "2*q..symb+f..var..symb";
  f.Replot();
  EXPECT_EQ(f.plot3d.calls[1], "Equation=2*theta+phi");
}

TEST(ReplotTabs, ParametricSurfacesJoinTheirThreeTexts) {
  ReplotFixture f;
  f.host.tab = 3;
  f.host.tab3D = 2;
  f.host.texts3D["mth_3D_Para_x"] = "u";
  f.host.texts3D["mth_3D_Para_y"] = "v";
  f.host.texts3D["mth_3D_Para_z"] = "u+v";
  f.host.texts3D["txt_3D_vMax"] = "pi";
  f.Replot();
  EXPECT_EQ(f.plot3d.calls, (QStringList{"GridCount=1", "Equation=u:v:u+v", "FunctionKind=6", "VMin=0",
                                         "VMax=3.14159265358979", "UMin=0", "UMax=2", "Zoom=1", "Redraw"}));
}

TEST(ReplotTabs, TheZoomIsTheLeadingNumberOfItsText) {
  for (const auto& [text, zoom] : {std::pair{"2*pi", "Zoom=2"}, {"0.5", "Zoom=0.5"}, {"abc", "Zoom=0"}, {" 1.5x", "Zoom=1.5"}}) {
    ReplotFixture f;
    f.host.tab = 3;
    f.host.zoom = text;
    f.Replot();
    EXPECT_TRUE(f.plot3d.calls.contains(zoom)) << text;
  }
}

TEST(ReplotTabs, WithoutA3DPlotThe3DTabDrawsNothing) {
  ReplotFixture f;
  f.host.tab = 3;
  f.host.SetTexts({"y=x"});
  RecordingPlot plot;
  f.driver.Replot(plot, nullptr);
  EXPECT_EQ(plot.calls, (QStringList{"ClearAll 11111"}));
  EXPECT_EQ(f.host.statusTexts.last(), "Ready...");
}
