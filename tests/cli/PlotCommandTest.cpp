#include "CliRunner.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QTemporaryDir>

TEST(PlotCommand, DrawsRowsAndSavesByTheEnding) {
  QTemporaryDir dir;
  for (const char* name : {"plot.png", "plot.jpg", "plot.bmp"}) {
    const QString out = dir.filePath(name);
    const CliResult r = RunCli({"plot", "--size", "320x200", "--line", "y=sin(x)", "--line", "x^2+y^2=25", out});
    EXPECT_EQ(r.Code, 0) << r.Err.toStdString();
    QImageReader reader(out);
    reader.setDecideFormatFromContent(true);
    EXPECT_EQ(reader.size(), QSize(320, 200)) << name;
  }
}

TEST(PlotCommand, DefaultsAre800By600AndTheDefaultRange) {
  QTemporaryDir dir;
  const QString out = dir.filePath("d.png");
  ASSERT_EQ(RunCli({"plot", "--line", "y=x", out}).Code, 0);
  const QImage image(out);
  EXPECT_EQ(image.size(), QSize(800, 600));
  // y = x passes through the centre, in the first row's colour (red).
  bool red = false;
  for (int dy = -3; dy <= 3; ++dy) {
    const QColor c = image.pixelColor(400, 300 + dy);
    red |= c.red() > 200 && c.green() < 80 && c.blue() < 80;
  }
  EXPECT_TRUE(red);
}

TEST(PlotCommand, RowsTakeSuccessiveColours) {
  QTemporaryDir dir;
  const QString out = dir.filePath("c.png");
  ASSERT_EQ(RunCli({"plot", "--no-grid", "--no-axis", "--no-numbers", "--no-frame", "--range", "-1,1,-1,1", "--line",
                    "y=0.5", "--line", "y=-0.5", out})
                .Code,
            0);
  const QImage image(out);
  EXPECT_EQ(image.pixelColor(400, 150), QColor(255, 0, 0));    // 255
  EXPECT_EQ(image.pixelColor(400, 450), QColor(255, 128, 0));  // the next row's colour
}

TEST(PlotCommand, OptionsForTheOtherItems) {
  QTemporaryDir dir;
  const QString out = dir.filePath("o.png");
  const CliResult r = RunCli({"plot", "--point", "1,2", "--integral", "x^2;0;2", "--inequality", "y<x;y>-x",
                              "--parametric", "cos(t);sin(t);0;6.3", "--parametric", "2;t;0;3;polar", "--quality", "40",
                              "--thickness", "3", "--transparent", out});
  EXPECT_EQ(r.Code, 0) << r.Err.toStdString();
  EXPECT_TRUE(r.Err.isEmpty()) << r.Err.toStdString();
  EXPECT_EQ(QImage(out).pixelColor(5, 150).alpha(), 0);  // clear of the boundaries, grid and axes
}

TEST(PlotCommand, ProblemsAreReportedAndBadOptionsRefused) {
  QTemporaryDir dir;
  CliResult r = RunCli({"plot", "--line", "y=foo(x)", dir.filePath("p.png")});
  EXPECT_EQ(r.Code, 0);
  EXPECT_TRUE(r.Err.contains("row 1: unknown name \"foo\"")) << r.Err.toStdString();
  EXPECT_EQ(RunCli({"plot", "--size", "axb", dir.filePath("p.png")}).Code, 2);
  EXPECT_EQ(RunCli({"plot", "--range", "1,2", dir.filePath("p.png")}).Code, 2);
  EXPECT_EQ(RunCli({"plot", "--line", "y=x"}).Code, 2);
  EXPECT_EQ(RunCli({"plot", "--line", "y=x", dir.filePath("missing/p.png")}).Code, 1);
  // An item option without the form it wants: nothing is written.
  for (const char* option : {"--point", "--integral", "--parametric"}) {
    const QString out = dir.filePath(QStringLiteral("bad%1.png").arg(option));
    r = RunCli({"plot", option, "1;2", out});
    EXPECT_EQ(r.Code, 2) << option;
    EXPECT_TRUE(r.Err.contains("wants")) << option << r.Err.toStdString();
    EXPECT_FALSE(QFile::exists(out)) << option;
  }
  r = RunCli({"--help"});
  EXPECT_TRUE(r.Out.contains("plot [OPTIONS] [--line TEXT]... OUT"));
}
