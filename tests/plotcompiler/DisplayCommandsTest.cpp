// Display command rows: the twelve keywords, and how command rows meet the ribbon's checks.
#include "ReplotSupport.h"

#include "plotcompiler/DisplayCommands.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

TEST(DisplayCommands, EveryKeywordSetsItsProperty) {
  struct Case {
    const char* keyword;
    const char* property;
    int value;
  };
  const Case cases[] = {
      {"showaxis", "ShowAxis", 1},          {"hideaxis", "ShowAxis", 0},
      {"showgrid", "ShowGrid", 1},          {"hidegrid", "ShowGrid", 0},
      {"shownumbers", "ShowNumbers", 1},    {"hidenumbers", "ShowNumbers", 0},
      {"showouterframe", "ShowOuterFrame", 1}, {"hideouterframe", "ShowOuterFrame", 0},
      {"showtips", "ShowTips", 1},          {"hidetips", "ShowTips", 0},
      {"transparentbackground", "TransparentBackground", 1}, {"opaquebackground", "TransparentBackground", 0},
      {"  showgrid ", "ShowGrid", 1},
  };
  for (const Case& c : cases) {
    RecordingPlot plot;
    plotcompiler::ApplyDisplayCommand(c.keyword, plot);
    ASSERT_EQ(plot.properties.size(), 1u) << c.keyword;
    EXPECT_EQ(plot.properties[c.property], c.value) << c.keyword;
  }
}

TEST(DisplayCommands, OtherKeywordsDoNothing) {
  for (const char* keyword : {"enterfullscreen", "SHOWGRID", "ShowGrid", "show grid", "grid", "", "showgrid2"}) {
    RecordingPlot plot;
    plotcompiler::ApplyDisplayCommand(keyword, plot);
    EXPECT_TRUE(plot.properties.empty()) << keyword;
  }
}

TEST(DisplayCommands, TheLowerOfTwoRowsWins) {
  ReplotFixture f;
  f.Replot({"command==>[showgrid]", "command==>[hidegrid]"});
  EXPECT_EQ(f.plot.properties["ShowGrid"], 0);
  f.Replot({"command==>[hidegrid]", "command==>[showgrid]"});
  EXPECT_EQ(f.plot.properties["ShowGrid"], 1);
}

TEST(DisplayCommands, ACommandRowWinsOverTheRibbonForAsLongAsItExists) {
  ReplotFixture f;
  f.host.checks[1088] = true;
  f.Replot({"y=x", "command==>[hidegrid]"});
  EXPECT_EQ(f.plot.properties["ShowGrid"], 0);
  f.Replot({"y=x"});
  EXPECT_EQ(f.plot.properties["ShowGrid"], 1);
}

TEST(DisplayCommands, RowsThatAreNoCommandsChangeNothing) {
  ReplotFixture f;
  f.host.checks[1088] = true;
  for (const char* text : {"COMMAND==>[HIDEGRID]", "command==>[HIDEGRID]", "command[hidegrid]", "command",
                           "command==>[hide grid]"}) {
    f.Replot({text});
    EXPECT_EQ(f.plot.properties["ShowGrid"], 1) << text;
    EXPECT_TRUE(f.plot.Calls("AddFunction").isEmpty()) << text;
  }
}

TEST(DisplayCommands, CommandsActOnlyOnTheFunctionTab) {
  ReplotFixture f;
  f.host.checks[1088] = true;
  for (int tab : {1, 2, 3}) {
    f.host.tab = tab;
    f.Replot({"command==>[hidegrid]"});
    EXPECT_EQ(f.plot.properties["ShowGrid"], 1) << tab;
  }
}
