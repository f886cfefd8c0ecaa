// What the replot driver tells of each row that draws nothing, in the words of its warning mark.
#include "ReplotSupport.h"

#include "plotcompiler/RowProblem.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

namespace {

struct ProblemCase {
  const char* Name;
  QStringList Rows;
  int Row;  // the row whose report is checked
  const char* Problem;
};

class RowProblems : public ::testing::TestWithParam<ProblemCase> {};

TEST_P(RowProblems, TheDriverSaysWhyARowDrawsNothing) {
  const ProblemCase& c = GetParam();
  ReplotFixture f;
  f.Replot(c.Rows);
  ASSERT_EQ(f.host.problems.size(), static_cast<std::size_t>(c.Rows.size())) << "one report for every row";
  EXPECT_EQ(f.host.problems.at(c.Row), QString::fromUtf8(c.Problem));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, RowProblems,
    ::testing::Values(
        // Rows that draw, or are not meant to: no mark.
        ProblemCase{"AStraightLine", {"y=x"}, 0, ""},
        ProblemCase{"ARowWithAConstantThatHasAValue", {"y=q*x", "q=2"}, 0, ""},
        ProblemCase{"TheConstantRowItself", {"y=q*x", "q=2"}, 1, ""},
        ProblemCase{"AnEmptyRow", {"y=x", ""}, 1, ""},
        ProblemCase{"ACommandRow", {"command==>[showgrid]"}, 0, ""},
        ProblemCase{"APointList", {"[x,y;1,2;3,4]"}, 0, ""},
        ProblemCase{"ADeclaration", {"declare(y=x,x>0)"}, 0, ""},
        ProblemCase{"ABareExpression", {"sin(x)"}, 0, ""},
        // Rows that cannot be drawn: why, as specific as the engine can be.
        ProblemCase{"AConstantWithNoValue", {"y=q*x"}, 0, "Unknown name: q"},
        ProblemCase{"TwoConstantsWithNoValue", {"y=a*x+q"}, 0, "Unknown names: a, q"},
        ProblemCase{"ABracketNotClosed", {"y=(x+1"}, 0, "A bracket is not closed"},
        ProblemCase{"ABracketClosedTooSoon", {"y=x+1)"}, 0, "A bracket is closed that was never opened"},
        ProblemCase{"AnUnknownWordWithoutEquals", {"x+zork"}, 0, "Unknown name: zork"},
        ProblemCase{"AnOperatorWithNothingAfterIt", {"y=x+"}, 0, "Something is missing at the end"},
        ProblemCase{"NoVariableAtAll", {"5"}, 0, "Nothing to draw: the row has no x, y or r"},
        ProblemCase{"AListWithAnotherHeader", {"[a,b;1,2]"}, 0,
                    "A list of points begins with x,y or y,x, r,theta or theta,r"},
        ProblemCase{"APointThatCannotBeComputed", {"[x,y;1,2;3,sqr(-1)]"}, 0, "Point 2 cannot be computed"},
        ProblemCase{"APointWithOneNumber", {"[x,y;1,2;3]"}, 0, "Point 2 must be two numbers with a comma between"},
        ProblemCase{"APointListWithAConstantWithNoValue", {"[x,y;1,q]"}, 0, "Unknown name: q"},
        ProblemCase{"RowsBelowABadRowStillReport", {"y=(x", "y=x"}, 1, ""}),
    [](const ::testing::TestParamInfo<ProblemCase>& param) { return std::string(param.param.Name); });

TEST(RowProblems, NotesHiddenRowsAndAreaRowsCarryNoMark) {
  ReplotFixture f;
  f.host.SetTexts({"y=(x", "y=(x", "y=x^2"});
  f.host.rows[0].Note = true;
  f.host.rows[1].Attributes = "False,False,False,True,False,0";  // hidden
  f.host.rows[2].Attributes = "False,True,False,True,True,0";   // the area's row
  f.Replot();
  EXPECT_EQ(f.host.problems, (std::map<int, QString>{{0, ""}, {1, ""}, {2, ""}}));
}

TEST(RowProblems, AMendedRowIsClearedByTheNextDrawing) {
  ReplotFixture f;
  f.Replot({"y=(x+1"});
  EXPECT_EQ(f.host.problems.at(0), "A bracket is not closed");
  f.Replot({"y=(x+1)"});
  EXPECT_EQ(f.host.problems.at(0), "");
}

// The other tabs draw no rows: what the rows were told stands.
TEST(RowProblems, OtherTabsLeaveTheRowsAlone) {
  ReplotFixture f;
  f.host.SetTexts({"y=(x"});
  f.host.tab = 2;
  f.Replot();
  EXPECT_TRUE(f.host.problems.empty());
}

// A bad row is still handed to the plot as before: the report adds words, it takes nothing away.
TEST(RowProblems, TheReportChangesNothingThePlotIsGiven) {
  ReplotFixture f;
  f.Replot({"y=(x+1", "[x,y;1,2;3]"});
  EXPECT_EQ(f.plot.Calls("AddFunction"), (QStringList{"AddFunction 1 y=(x+1 color=255 kind=1 o2=0 o0=0 o3=1 style=0,2"}));
  EXPECT_EQ(f.plot.Calls("AddPoint"), (QStringList{"AddPoint 1 1,2 form=1 color=255 o3=1"}));
}

TEST(RowProblem, ThePlotsOwnRefusalOfRIsWorded) {
  EXPECT_EQ(plotcompiler::RowProblem::OfLine("r=r+1"), "r stands on both sides of the \"=\"");
  EXPECT_EQ(plotcompiler::RowProblem::OfLine("r=2*theta"), "");
}

}  // namespace
