#include "CliRunner.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QImage>
#include <QImageReader>
#include <QTemporaryDir>

namespace {

// Pixels with a clear colour: the surface, not the white ground or the grey box.
int Coloured(const QImage& image) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) count += QColor(image.pixel(x, y)).saturation() > 60;
  }
  return count;
}

}  // namespace

TEST(SurfaceCommand, EachKindDrawsAndSavesByTheEnding) {
  QTemporaryDir dir;
  struct Case {
    QStringList arguments;
    const char* name;
  };
  const Case cases[] = {
      {{"--kind", "1", "--equation", "sin(x)*cos(y)"}, "one.png"},
      {{"--kind", "2", "--equation", "x*z/5"}, "two.jpg"},
      {{"--kind", "3", "--equation", "y-z"}, "three.bmp"},
      {{"--kind", "4", "--equation", "x^2+y^2+z^2=16"}, "four.png"},
      {{"--kind", "5", "--equation", "2+cos(3*theta)*sin(phi)", "--theta", "0,6.3", "--phi", "0,3.15"}, "five.png"},
      {{"--kind", "6", "--equation", "u:v:u*v/5", "--u", "-3,3", "--v", "-3,3", "--grid", "6"}, "six.png"},
  };
  for (const Case& c : cases) {
    const QString out = dir.filePath(c.name);
    const CliResult r = RunCli(QStringList{"surface"} + c.arguments + QStringList{"--size", "240x180", out});
    EXPECT_EQ(r.Code, 0) << c.name << ": " << r.Err.toStdString();
    EXPECT_TRUE(r.Err.isEmpty()) << r.Err.toStdString();
    QImageReader reader(out);
    reader.setDecideFormatFromContent(true);
    const QImage image = reader.read();
    EXPECT_EQ(image.size(), QSize(240, 180)) << c.name;
    EXPECT_GT(Coloured(image), 240 * 180 / 40) << c.name;  // a twentieth of the picture or more
  }
}

TEST(SurfaceCommand, ABadSurfaceSaysWhyAndDrawsTheEmptyBox) {
  QTemporaryDir dir;
  const QString out = dir.filePath("bad.png");
  const CliResult r = RunCli({"surface", "--kind", "1", "--equation", "w+1", "--size", "120x90", out});
  EXPECT_EQ(r.Code, 0);
  EXPECT_EQ(r.Err, "quillograph-cli surface: unknown name \"w\"\n");
  EXPECT_EQ(Coloured(QImage(out)), 0);
}

TEST(SurfaceCommand, UsageErrorsExitWithTwo) {
  const QStringList cases[] = {{"surface", "--equation", "x", "--kind", "7", "o.png"},
                               {"surface", "--equation", "x", "--grid", "0", "o.png"},
                               {"surface", "--equation", "x", "--box", "1,2,3", "o.png"},
                               {"surface", "--equation", "x", "--size", "0x5", "o.png"},
                               {"surface", "--equation", "x", "--theta", "a,b", "o.png"},
                               {"surface", "--kind", "1", "o.png"},
                               {"surface", "--equation", "x"},
                               {"surface", "--equation", "x", "a.png", "b.png"},
                               {"surface", "--colour", "red", "o.png"},
                               {"surface", "--equation"}};
  for (const QStringList& arguments : cases) {
    const CliResult r = RunCli(arguments);
    EXPECT_EQ(r.Code, 2) << arguments.join(' ').toStdString();
    EXPECT_TRUE(r.Err.startsWith("quillograph-cli surface: ")) << r.Err.toStdString();
  }
}

TEST(SurfaceCommand, AFileThatCannotBeWrittenExitsWithOne) {
  const CliResult r = RunCli({"surface", "--equation", "x", "/no/such/folder/o.png"});
  EXPECT_EQ(r.Code, 1);
  EXPECT_TRUE(r.Err.startsWith("quillograph-cli surface: /no/such/folder/o.png: ")) << r.Err.toStdString();
}

TEST(SurfaceCommand, HelpNamesIt) { EXPECT_TRUE(RunCli({"--help"}).Out.contains("surface --kind N --equation TEXT")); }
