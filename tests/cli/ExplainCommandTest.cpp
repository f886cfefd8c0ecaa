#include "CliRunner.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

using Result = CliResult;

TEST(ExplainCommand, PrintsFourLinesAndAnEmptyOneForEachText) {
  const Result r = RunCli({"explain", "y=x;0<x<3", "2sin(x)"});
  EXPECT_EQ(r.Code, 0);
  EXPECT_EQ(r.Out,
            "normalised: y=x;0<x<3\n"
            "line: y=x;0<x<3\n"
            "bare: x;0<x<3\n"
            "row: declare(y=x,domain(x,0,3,0))\n"
            "\n"
            "normalised: 2sin*(x)\n"
            "line: 2sin(x)\n"
            "bare: 2sin(x)\n"
            "row: 2sin(x)\n"
            "\n");
  EXPECT_TRUE(r.Err.isEmpty());
}

TEST(ExplainCommand, EmptyValuesKeepTheirBlank) {
  const Result r = RunCli({"explain", ""});
  EXPECT_EQ(r.Out, "normalised: \nline: \nbare: \nrow: \n\n");
}

TEST(ExplainCommand, ReadsOneTextPerLineWithoutArguments) {
  const Result r = RunCli({"explain"}, "r=2*q..symb\r\ndeclare(y=x,x>0)\n");
  EXPECT_EQ(r.Out,
            "normalised: r=2*q..symb\n"
            "line: r=2*theta\n"
            "bare: 2*x\n"
            "row: r=2*q..symb\n"
            "\n"
            "normalised: declare*(y=x,x>0)\n"
            "line: y=x;x>0\n"
            "bare: =x;x>0\n"
            "row: declare(y=x,x>0)\n"
            "\n");
}

TEST(ExplainCommand, TextsThatStartWithADashFollowADoubleDash) {
  const Result r = RunCli({"explain", "--", "-x"});
  EXPECT_TRUE(r.Out.startsWith("normalised: -x\n")) << r.Out.toStdString();
}

TEST(CommandLine, HelpDocumentsEverySubcommand) {
  for (const QStringList& arguments : {QStringList{"--help"}, QStringList{"-h"}, QStringList{"explain", "--help"}}) {
    const Result r = RunCli(arguments);
    EXPECT_EQ(r.Code, 0);
    EXPECT_TRUE(r.Out.contains("explain [TEXT...]")) << r.Out.toStdString();
  }
}

TEST(CommandLine, UnknownOrMissingCommandsAreUsageErrors) {
  Result r = RunCli({});
  EXPECT_EQ(r.Code, 2);
  EXPECT_TRUE(r.Err.contains("Usage:"));
  r = RunCli({"frobnicate"});
  EXPECT_EQ(r.Code, 2);
  EXPECT_TRUE(r.Err.contains("unknown command \"frobnicate\""));
  EXPECT_TRUE(r.Out.isEmpty());
}
