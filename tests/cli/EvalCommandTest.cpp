#include "CliRunner.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

TEST(EvalCommand, OneLineForEachText) {
  const CliResult r = RunCli({"eval", "2pi", "1/0", "sqrt(-1)", "2*sin(1)", "sin(1)*2", "-x^2", "1 000"});
  EXPECT_EQ(r.Code, 0);
  EXPECT_EQ(r.Out, "6.28318530717958\nMathError\nMathError\nMathError\n1.68294196961579\n0\n1000\n");
  EXPECT_TRUE(r.Err.isEmpty());
}

TEST(EvalCommand, ExecAndConstants) {
  const CliResult r = RunCli({"eval", "--exec", "x=3", "--const", "a=2.5", "--const", "alpha=2", "2x+a", "alpha*x"});
  EXPECT_EQ(r.Out, "8.5\n6\n");
  const CliResult plain = RunCli({"eval", "--const", "a=1+2", "2*a"});
  EXPECT_EQ(plain.Out, "6\n") << "a constant is one value: 2*(1+2)";
}

TEST(EvalCommand, ScriptModeShowsTheEnginesErrors) {
  const CliResult r = RunCli({"eval", "--script", "-3^2", "2^-2^2", "1/0", "2sin*(1)", "log10(100)", "exp(1)",
                              "(1+2", "pi", "\"abc\"", "3 > 2 And 2 > 1"});
  EXPECT_EQ(r.Out,
            "9\n0.0625\nError 11: Division by zero\nError 1025: Expected end of statement\n"
            "Error 13: Type mismatch\n2.71828182845905\nError 1006: Expected ')'\n3.14159265358979\n"
            "Error 13: Type mismatch\n-1\n");
}

TEST(EvalCommand, ReadsStandardInputWithoutTexts) {
  const CliResult r = RunCli({"eval"}, "1+1\r\n7\\2\n\nasinh(0)\n");
  EXPECT_EQ(r.Out, "2\n3\nMathError\n0\n");
}

TEST(EvalCommand, BadOptionsAreReported) {
  CliResult r = RunCli({"eval", "--exec"});
  EXPECT_EQ(r.Code, 2);
  EXPECT_TRUE(r.Err.contains("--exec needs a value"));
  r = RunCli({"eval", "--const", "x=1", "--exec", "1=2", "5"});
  EXPECT_EQ(r.Code, 0);
  EXPECT_EQ(r.Out, "5\n");
  EXPECT_TRUE(r.Err.contains("--const x=1")) << r.Err.toStdString();
  EXPECT_TRUE(r.Err.contains("Error 1010: Expected identifier")) << r.Err.toStdString();
}

TEST(EvalCommand, TextsAfterADoubleDash) {
  // "--script" as a text: minus minus an unknown (Empty) name.
  const CliResult r = RunCli({"eval", "--", "--script"});
  EXPECT_EQ(r.Out, "0\n");
}

TEST(EvalCommand, HelpDocumentsEval) {
  const CliResult r = RunCli({"--help"});
  EXPECT_TRUE(r.Out.contains("eval [--script] [--exec STATEMENT]... [--const NAME=VALUE]... [TEXT...]"));
}

TEST(DeriveCommand, PrintsTheDerivativeOrTheMessage) {
  CliResult r = RunCli({"derive", "y=x^3"});
  EXPECT_EQ(r.Code, 0);
  EXPECT_EQ(r.Out, "3*x^2\n");
  r = RunCli({"derive", "x^2+y^2=1"});
  EXPECT_EQ(r.Code, 1);
  EXPECT_EQ(r.Out, "Could Not Derivative!\n");
  r = RunCli({"derive"}, "y=sin(x)\n[x,y;1,2]\n");
  EXPECT_EQ(r.Out, "cos(x)\nCould Not Derivative!\n");
  EXPECT_EQ(r.Code, 1);
  EXPECT_TRUE(RunCli({"--help"}).Out.contains("derive [TEXT...]"));
}
