#include "CliRunner.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QImage>
#include <QImageReader>
#include <QTemporaryDir>

namespace {

int Inked(const QImage& image) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) count += QColor(image.pixel(x, y)).lightness() < 128 && qAlpha(image.pixel(x, y)) > 128;
  return count;
}

}  // namespace

TEST(TypesetCommand, WritesATransparentPictureOfTheFormula) {
  QTemporaryDir dir;
  const QString out = dir.filePath("f.png");
  const CliResult r = RunCli({"typeset", "y=sqrt(x^2+1)/(1+abs(x))", out});
  EXPECT_EQ(r.Code, 0) << r.Err.toStdString();
  const QImage image(out);
  ASSERT_FALSE(image.isNull());
  EXPECT_TRUE(image.hasAlphaChannel());
  EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);
  EXPECT_GT(Inked(image), 150);
  // A fraction makes the picture taller than a line.
  EXPECT_GT(image.height(), 40);
}

TEST(TypesetCommand, SizeScaleAndGroundByTheEnding) {
  QTemporaryDir dir;
  const QString small = dir.filePath("small.png");
  const QString large = dir.filePath("large.png");
  const QString dense = dir.filePath("dense.png");
  const QString jpeg = dir.filePath("f.jpg");
  EXPECT_EQ(RunCli({"typeset", "y=x^2", small, "--size", "10"}).Code, 0);
  EXPECT_EQ(RunCli({"typeset", "y=x^2", large, "--size", "30"}).Code, 0);
  EXPECT_EQ(RunCli({"typeset", "y=x^2", dense, "--size", "10", "--scale", "2"}).Code, 0);
  EXPECT_EQ(RunCli({"typeset", "y=x^2", jpeg, "--color", "#0000ff"}).Code, 0);
  EXPECT_GT(QImage(large).width(), 2 * QImage(small).width());
  EXPECT_EQ(QImage(dense).width(), 2 * QImage(small).width());
  QImageReader reader(jpeg);
  reader.setDecideFormatFromContent(true);
  const QImage picture = reader.read();
  EXPECT_GT(QColor(picture.pixel(0, 0)).lightness(), 240);
}

// On a white ground (JPEG, BMP) a dense picture is drawn whole, not at a quarter in its corner.
TEST(TypesetCommand, ADenseBitmapIsInkedAllOver) {
  QTemporaryDir dir;
  const QString plain = dir.filePath("plain.bmp");
  const QString dense = dir.filePath("dense.bmp");
  ASSERT_EQ(RunCli({"typeset", "y=x+1", plain, "--size", "20"}).Code, 0);
  ASSERT_EQ(RunCli({"typeset", "y=x+1", dense, "--size", "20", "--scale", "2"}).Code, 0);
  const QImage a(plain), b(dense);
  ASSERT_EQ(b.width(), 2 * a.width());
  const auto inkRightOfHalf = [](const QImage& image) {
    int ink = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = image.width() / 2; x < image.width(); ++x) ink += QColor(image.pixel(x, y)).lightness() < 128;
    }
    return ink;
  };
  EXPECT_GT(inkRightOfHalf(b), 2 * inkRightOfHalf(a));
}

TEST(TypesetCommand, TheTreeShowsTheBoxes) {
  QTemporaryDir dir;
  const CliResult r = RunCli({"typeset", "--tree", "[x,y;1,2;3,4]", dir.filePath("t.png")});
  EXPECT_EQ(r.Code, 0);
  EXPECT_EQ(r.Out.count("row point"), 2);
  EXPECT_EQ(r.Out.count("row header"), 1);
  EXPECT_TRUE(r.Out.contains("text cell \"4\"")) << r.Out.toStdString();
}

TEST(TypesetCommand, UsageErrorsExitWithTwo) {
  const QStringList cases[] = {{"typeset"},
                               {"typeset", "y=x"},
                               {"typeset", "y=x", "a.png", "b.png"},
                               {"typeset", "y=x", "o.png", "--size", "0"},
                               {"typeset", "y=x", "o.png", "--size"},
                               {"typeset", "y=x", "o.png", "--scale", "100"},
                               {"typeset", "y=x", "o.png", "--color", "nonsense"},
                               {"typeset", "y=x", "o.png", "--colour", "red"}};
  for (const QStringList& arguments : cases) {
    const CliResult r = RunCli(arguments);
    EXPECT_EQ(r.Code, 2) << arguments.join(' ').toStdString();
    EXPECT_TRUE(r.Err.startsWith("quillograph-cli typeset: ")) << r.Err.toStdString();
  }
}

TEST(TypesetCommand, AFileThatCannotBeWrittenExitsWithOne) {
  const CliResult r = RunCli({"typeset", "y=x", "/no/such/folder/o.png"});
  EXPECT_EQ(r.Code, 1);
  EXPECT_TRUE(r.Err.startsWith("quillograph-cli typeset: /no/such/folder/o.png: ")) << r.Err.toStdString();
}

TEST(TypesetCommand, HelpNamesIt) { EXPECT_TRUE(RunCli({"--help"}).Out.contains("typeset TEXT OUT")); }
