// The real executable, as a user runs it from the shell.
#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QProcess>

namespace {

QString RunProcess(const QStringList& arguments, const QByteArray& input, int* exitCode) {
  QProcess process;
  process.start(QStringLiteral(QUILLOGRAPH_CLI), arguments);
  EXPECT_TRUE(process.waitForStarted());
  process.write(input);
  process.closeWriteChannel();
  EXPECT_TRUE(process.waitForFinished(60000));
  *exitCode = process.exitCode();
  return QString::fromUtf8(process.readAllStandardOutput());
}

}  // namespace

TEST(CliProcess, ExplainFromArguments) {
  int code = -1;
  const QString out = RunProcess({"explain", "y=[x]+1"}, {}, &code);
  EXPECT_EQ(code, 0);
  EXPECT_EQ(out, "normalised: y=[x^]+1\nline: y=fix(x)+1\nbare: [x)+]\nrow: y=[x]+1\n\n");
}

TEST(CliProcess, ExplainFromStandardInputKeepsNonLatinText) {
  int code = -1;
  const QString out = RunProcess({"explain"}, QString::fromUtf8("y=\u03b1x\n").toUtf8(), &code);
  EXPECT_EQ(code, 0);
  EXPECT_TRUE(out.startsWith(QString::fromUtf8("normalised: y=\u03b1*x\n"))) << out.toStdString();
}

TEST(CliProcess, HelpExitsCleanly) {
  int code = -1;
  const QString out = RunProcess({"--help"}, {}, &code);
  EXPECT_EQ(code, 0);
  EXPECT_TRUE(out.contains("explain"));
}

TEST(CliProcess, EvalFromStandardInput) {
  int code = -1;
  const QString out = RunProcess({"eval"}, "2pi\n1/0\n", &code);
  EXPECT_EQ(code, 0);
  EXPECT_EQ(out, "6.28318530717958\nMathError\n");
}
