// The replot driver: which calls reach the plot for which rows, in which order.
#include "ReplotSupport.h"

#include "core/RuntimeError.h"
#include "plotcompiler/EquationCompiler.h"
#include "plot2d/Plot.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

using plotcompiler::ScenePlotControl;

namespace {

const QString kDefault = QStringLiteral("False,False,False,True,True,0");

}  // namespace

TEST(ReplotDriver, ClearsCopiesTheChecksAndReportsItsProgress) {
  ReplotFixture f;
  f.host.checks = {{1087, false}, {1088, true}, {1090, false}, {1089, true}, {1124, false}, {1086, true}};
  const QStringList calls = f.Replot({"y=x"});
  EXPECT_EQ(calls.first(), "ClearAll 11111");
  EXPECT_EQ(f.plot.properties["ShowAxis"], 0);
  EXPECT_EQ(f.plot.properties["ShowGrid"], 1);
  EXPECT_EQ(f.plot.properties["ShowNumbers"], 0);
  EXPECT_EQ(f.plot.properties["ShowOuterFrame"], 1);
  EXPECT_EQ(f.plot.properties["ShowTips"], 0);
  EXPECT_EQ(f.plot.properties["TransparentBackground"], 1);
  EXPECT_EQ(f.host.statusTexts, (QStringList{"Plotting...", "Ready..."}));
  EXPECT_EQ(f.host.enabledChanges, (std::vector<bool>{false, true}));
  EXPECT_EQ(calls.last(), "Redraw");
}

TEST(ReplotDriver, RowsReachThePlotWithTheirKindIndexAndColour) {
  ReplotFixture f;
  f.host.SetTexts({"y=x^2", "x=sin(y)", "r=2*q..symb", "x^2+y^2=9", "declare(y=x,x>0)"});
  f.host.rows[1].Color = 16711680;
  f.Replot();
  EXPECT_EQ(f.plot.Calls("AddFunction"),
            (QStringList{"AddFunction 1 y=x^2 color=255 kind=1 o2=0 o0=0 o3=1 style=0,2",
                         "AddFunction 2 x=sin(y) color=16711680 kind=2 o2=0 o0=0 o3=1 style=0,2",
                         "AddFunction 3 r=2*theta color=255 kind=3 o2=0 o0=0 o3=1 style=0,2",
                         "AddFunction 4 x^2+y^2=9 color=255 kind=4 o2=0 o0=0 o3=1 style=0,2",
                         "AddFunction 5 y=x;x>0 color=255 kind=1 o2=0 o0=0 o3=1 style=0,2"}));
}

TEST(ReplotDriver, TheAttributeListReachesTheOptions) {
  ReplotFixture f;
  f.host.SetTexts({"y=x", "y=2x", "y=3x", "y=4x"});
  f.host.rows[0].Attributes = "True,False,False,False,True,0";
  f.host.rows[1].Attributes = "False,False,True,True,True,1";
  f.host.rows[2].Attributes = "False,False,False,True,True,2";
  f.host.rows[3].Attributes = "False,False,False,True,False,0";  // hidden
  f.Replot();
  EXPECT_EQ(f.plot.Calls("AddFunction"),
            (QStringList{"AddFunction 1 y=x color=255 kind=1 o2=0 o0=1 o3=0 style=0,2",
                         "AddFunction 2 y=2x color=255 kind=1 o2=1 o0=0 o3=1 style=1,1",
                         "AddFunction 3 y=3x color=255 kind=1 o2=0 o0=0 o3=1 style=1,2"}));
}

TEST(ReplotDriver, NoteAndCommandRowsNeverReachAddFunction) {
  ReplotFixture f;
  f.host.SetTexts({"y=x", "command==>[showgrid]", "y=2x"});
  f.host.rows[2].Note = true;
  f.Replot();
  EXPECT_EQ(f.plot.Calls("AddFunction"), (QStringList{"AddFunction 1 y=x color=255 kind=1 o2=0 o0=0 o3=1 style=0,2"}));
}

TEST(ReplotDriver, AConstantRowBelowTheRowThatUsesItStillApplies) {
  ReplotFixture f;
  f.Replot({"y=a*x", "a=2"});
  EXPECT_EQ(f.plot.Calls("AddFunction"), (QStringList{"AddFunction 1 y=2*x color=255 kind=1 o2=0 o0=0 o3=1 style=0,2"}));
}

TEST(ReplotDriver, AConstantIsOneFactorBesideANumberOrAName) {
  const struct {
    QStringList rows;
    const char* line;
  } cases[] = {
      {{"a=2", "y=2ax^2"}, "AddFunction 2 y=2*2*x^2 color=255 kind=1 o2=0 o0=0 o3=1 style=0,2"},
      {{"a=-1", "y=2ax^2"}, "AddFunction 2 y=2*(-1)*x^2 color=255 kind=1 o2=0 o0=0 o3=1 style=0,2"},
      {{"a=2+3", "y=ax"}, "AddFunction 2 y=(2+3)*x color=255 kind=1 o2=0 o0=0 o3=1 style=0,2"},
  };
  for (const auto& c : cases) {
    ReplotFixture f;
    f.Replot(c.rows);
    EXPECT_EQ(f.plot.Calls("AddFunction"), QStringList{c.line}) << c.rows.join(", ").toStdString();
  }
  ReplotFixture f;
  f.Replot({"[x,y;2a,1]", "a=2"});
  EXPECT_EQ(f.plot.Calls("AddPoint"), (QStringList{"AddPoint 1 4,1 form=1 color=255 o3=1"}));
}

TEST(ReplotDriver, ADeletedConstantRowStaysInForceUntilAnotherAssignsIt) {
  ReplotFixture f;
  f.Replot({"y=a*x", "a=2"});
  f.Replot({"y=a*x"});
  EXPECT_EQ(f.plot.Calls("AddFunction"), (QStringList{"AddFunction 1 y=2*x color=255 kind=1 o2=0 o0=0 o3=1 style=0,2"}));
  f.Replot({"y=a*x", "a=5"});
  EXPECT_EQ(f.plot.Calls("AddFunction"), (QStringList{"AddFunction 1 y=5*x color=255 kind=1 o2=0 o0=0 o3=1 style=0,2"}));
}

TEST(ReplotDriver, TheExampleOfTheRowLanguage) {
  ReplotFixture f;
  f.Replot({"a=2", "declare(y=a*x,domain(x,0,q..symb,3))"});
  EXPECT_EQ(f.plot.Calls("AddFunction"),
            (QStringList{"AddFunction 2 y=2*x;0<=x<theta color=255 kind=1 o2=0 o0=0 o3=1 style=0,2"}));
}

TEST(ReplotDriver, DomainFormsJoinedByAndBecomeSeparateConditions) {
  ReplotFixture f;
  f.Replot({"declare(y=x,domain(x,0,1,0) and domain(y,0,1,1))"});
  EXPECT_EQ(f.plot.Calls("AddFunction"),
            (QStringList{"AddFunction 1 y=x;0<x<1;0<=y<=1 color=255 kind=1 o2=0 o0=0 o3=1 style=0,2"}));
  // An "and" in a plain condition stays in the compiled line (the constants' letters a, n and d
  // are then put in like any other).
  EXPECT_EQ(plotcompiler::CompileEquation("declare(y=x^2,x>0 and x<3)", false), "y=x^2;x>0 and x<3");
}

TEST(ReplotDriver, APointListIsAWholeWhileIntegerBracketsBecomeFix) {
  ReplotFixture f;
  f.Replot({"[x,y;1,2]", "y=[x]"});
  EXPECT_EQ(f.plot.Calls("AddPoint"), (QStringList{"AddPoint 1 1,2 form=1 color=255 o3=1"}));
  EXPECT_EQ(f.plot.Calls("AddFunction"), (QStringList{"AddFunction 2 y=fix(x) color=255 kind=1 o2=0 o0=0 o3=1 style=0,2"}));
}

TEST(ReplotDriver, PointListsInEveryHeaderAndExpressions) {
  ReplotFixture f;
  f.Replot({"[x,y;1,2;3,4.5]", "[y,x;1,2]", "[r,q..symb;2,pi/2]", "[q..symb,r;pi,3]", "[x,y;pi/2,2^3]"});
  EXPECT_EQ(f.plot.Calls("AddPoint"), (QStringList{"AddPoint 1 1,2 form=1 color=255 o3=1",
                                                   "AddPoint 2 3,4.5 form=1 color=255 o3=1",
                                                   "AddPoint 3 2,1 form=1 color=255 o3=1",
                                                   "AddPoint 4 2,1.5707963267949 form=2 color=255 o3=1",
                                                   "AddPoint 5 3,3.14159265358979 form=2 color=255 o3=1",
                                                   "AddPoint 6 1.5707963267949,8 form=1 color=255 o3=1"}));
  EXPECT_TRUE(f.plot.Calls("AddFunction").isEmpty());
}

TEST(ReplotDriver, APointThatFailsIsLeftOutAndItsNumberLost) {
  ReplotFixture f;
  f.Replot({"[x,y;1,2;1/0,3;5,6;7]", "[x,y;,]", "[z,w;1,2]"});
  EXPECT_EQ(f.plot.Calls("AddPoint"),
            (QStringList{"AddPoint 1 1,2 form=1 color=255 o3=1", "AddPoint 3 5,6 form=1 color=255 o3=1"}));
}

TEST(ReplotDriver, ConstantsReachThePoints) {
  ReplotFixture f;
  f.Replot({"[x,y;a,b]", "a=2", "b=a+1"});
  EXPECT_EQ(f.plot.Calls("AddPoint"), (QStringList{"AddPoint 1 2,3 form=1 color=255 o3=1"}));
}

TEST(ReplotDriver, AHiddenPointListIsDroppedAtTheDrawTest) {
  ReplotFixture f;
  f.host.SetTexts({"[x,y;1,2]"});
  f.host.rows[0].Attributes = "False,False,False,True,False,0";
  f.Replot();
  EXPECT_TRUE(f.plot.Calls("AddPoint").isEmpty());
  EXPECT_TRUE(f.plot.Calls("AddFunction").isEmpty());
}

TEST(ReplotDriver, ABareExpressionAsFirstRowArrivesUncompiledWithKindZero) {
  ReplotFixture f;
  f.Replot({"sin(x)", "2x+[x]"});
  EXPECT_EQ(f.plot.Calls("AddFunction"), (QStringList{"AddFunction 1 sin(x) color=255 kind=0 o2=0 o0=0 o3=1 style=0,2",
                                                      "AddFunction 2 2x+[x] color=255 kind=0 o2=0 o0=0 o3=1 style=0,2"}));
}

TEST(ReplotDriver, AnUnclassifiedRowTakesTheKindOfTheRowBefore) {
  ReplotFixture f;
  f.plot.kindAfter = -1;
  f.Replot({"x=y^2", "sin(x)"});
  EXPECT_EQ(f.plot.Calls("AddFunction").last(), "AddFunction 2 sin(x) color=255 kind=2 o2=0 o0=0 o3=1 style=0,2");
}

TEST(ReplotDriver, TheSymbolRPassesTheDrawTestAndANumberAddsNothing) {
  ReplotFixture f;
  f.Replot({"r=2", "5", "", "a=3"});
  EXPECT_EQ(f.plot.Calls("AddFunction"), (QStringList{"AddFunction 1 r=2 color=255 kind=3 o2=0 o0=0 o3=1 style=0,2"}));
}

TEST(ReplotDriver, TheAreaLiesBetweenTheFirstAndLastMarkedRows) {
  ReplotFixture f;
  f.host.SetTexts({"y=x^2", "y=x", "y=1", "a=1.5"});
  f.host.rows[0].Attributes = "False,True,False,True,True,0";
  f.host.rows[1].Attributes = "False,True,False,True,True,0";
  f.host.integralMin = "0";
  f.host.integralMax = "2*a";
  f.Replot();
  // Two marks: between them; marked rows draw no curve of their own.
  EXPECT_EQ(f.plot.Calls("AddIntegral"), (QStringList{"AddIntegral x^2 0..3 color=255 second=1 x"}));
  EXPECT_EQ(f.plot.Calls("AddFunction"), (QStringList{"AddFunction 3 y=1 color=255 kind=1 o2=0 o0=0 o3=1 style=0,2"}));
  EXPECT_EQ(f.plot.properties["IntegralMode"], 1);
  EXPECT_EQ(f.plot.properties["ShowIntegral"], 1);

  // Three marks: the first and the last.
  f.host.rows[2].Attributes = "False,True,False,True,True,0";
  f.host.rows[2].Color = 65280;
  f.Replot();
  EXPECT_EQ(f.plot.Calls("AddIntegral"), (QStringList{"AddIntegral x^2 0..3 color=255 second=1 1"}));

  // One mark: under it alone, the second function taken from row 0.
  f.host.rows[0].Attributes = kDefault;
  f.host.rows[1].Attributes = kDefault;
  f.Replot();
  EXPECT_EQ(f.plot.Calls("AddIntegral"), (QStringList{"AddIntegral 1 0..3 color=65280 second=0 x^2"}));
}

TEST(ReplotDriver, TheLastRowsVisibilityDecidesWhetherTheAreaIsDrawn) {
  ReplotFixture f;
  f.host.SetTexts({"y=x^2", "y=1"});
  f.host.rows[0].Attributes = "False,True,False,True,True,0";
  f.host.rows[1].Attributes = "False,False,False,True,False,0";
  f.Replot();
  EXPECT_TRUE(f.plot.Calls("AddIntegral").isEmpty());
  EXPECT_EQ(f.plot.properties["IntegralMode"], 1);
  // No mark at all: no shading.
  f.host.rows[0].Attributes = kDefault;
  f.Replot();
  EXPECT_EQ(f.plot.properties["ShowIntegral"], 0);
  EXPECT_EQ(f.plot.properties.count("IntegralMode"), 0u);
}

TEST(ReplotDriver, EnterFullScreenOpensAfterTheDrawing) {
  ReplotFixture f;
  f.Replot({"y=x", "command==>[enterfullscreen]"});
  EXPECT_EQ(f.host.fullScreens, 1);
  EXPECT_EQ(f.plot.calls.last(), "Redraw");
  // Only the last command counts.
  f.Replot({"command==>[enterfullscreen]", "command==>[showgrid]"});
  EXPECT_EQ(f.host.fullScreens, 1);
}

TEST(ReplotDriver, AShortAttributeListGoesToTheCallerWithTheTabsStillDisabled) {
  ReplotFixture f;
  f.host.SetTexts({"y=x"});
  f.host.rows[0].Attributes = "False,False";
  EXPECT_THROW(f.Replot(), core::RuntimeError);
  EXPECT_FALSE(f.host.inputEnabled);
}

TEST(ReplotDriver, OtherTabsSkipTheRows) {
  ReplotFixture f;
  f.host.tab = 3;
  f.Replot({"y=x", "a=7", "command==>[hidegrid]"});
  EXPECT_TRUE(f.plot.Calls("AddFunction").isEmpty());
  EXPECT_EQ(f.plot.properties["ShowGrid"], 1);
  EXPECT_TRUE(f.state.ConstantValues[0].isEmpty());
  EXPECT_EQ(f.host.statusTexts.last(), "Ready...");
}

TEST(ReplotDriver, BrokenRowsNeverStopTheOthers) {
  ReplotFixture f;
  const QStringList garbage = {"command==>",     "command==>[",   "[x,y;1",      "[x,y;",   "y=",        "=",
                               "declare(",       "declare(y=",    "[[[]]]",      ";;;",     "y=x;;;;",   "@#$%",
                               "domain(x,0,1,9)", "y=1/0",        "[x,y;1,2,3]", "r==2",    "x=y=z",     "a=",
                               QString(5000, u'('), "y=" + QString("x+").repeated(3000) + "1", "y=x"};
  f.Replot(garbage);
  EXPECT_EQ(f.plot.Calls("AddFunction").last().left(15), "AddFunction 21 ");
  EXPECT_EQ(f.host.statusTexts.last(), "Ready...");
}

TEST(ReplotDriver, DrawsARealPicture) {
  ReplotFixture f;
  f.host.SetTexts({"y=x", "[x,y;2,3]"});
  f.host.rows[0].Color = 255;
  plot2d::Plot scene;
  scene.SetSize(QSize(200, 200));
  ScenePlotControl<plot2d::Plot> plot(scene, nullptr);
  f.driver.Replot(plot);
  ASSERT_EQ(scene.LastDrawing().Curves.size(), 1u);
  EXPECT_EQ(scene.LastDrawing().Curves[0].Color, QColor(255, 0, 0));
  EXPECT_EQ(scene.LastDrawing().Curves[0].Row, 1);
  ASSERT_EQ(scene.LastDrawing().Dots.size(), 1u);
  EXPECT_EQ(scene.LastDrawing().Dots[0].At, QPointF(2, 3));
}
