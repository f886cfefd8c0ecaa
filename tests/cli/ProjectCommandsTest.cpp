// quillograph-cli render and resave: a project through a fresh main form.
#include "CliRunner.h"

#include "platform/DataFolder.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

namespace {

QString WriteFile(const QTemporaryDir& dir, const QString& name, const QByteArray& bytes) {
  const QString path = dir.filePath(name);
  QFile file(path);
  file.open(QIODevice::WriteOnly);
  file.write(bytes);
  return path;
}

const QByteArray kProject =
    "\"\r\n[Plot][xMin]=-5\r\n[Plot][xMax]=5\r\n[Plot][yMin]=-5\r\n[Plot][yMax]=5\r\n"
    "[Function](0)=[255:y=x^2-3:False,False,False,True,True,0:False]\r\n\"\r\n";

}  // namespace

TEST(RenderCommand, DrawsWhatTheProjectsPlotShows) {
  QTemporaryDir dir;
  const QString project = WriteFile(dir, "p.qlp", kProject);
  const QString picture = dir.filePath("p.png");
  const CliResult r = RunCli({"render", project, picture, "--size", "320x240"});
  EXPECT_EQ(r.Code, 0) << r.Err.toStdString();
  EXPECT_TRUE(r.Err.isEmpty());
  const QImage image(picture);
  ASSERT_FALSE(image.isNull());
  EXPECT_EQ(image.size(), QSize(320, 240));
  // The parabola in red at its vertex (0, -3): 240 * (5 + 3) / 10 pixels down.
  bool red = false;
  for (int y = 185; y < 200; ++y) {
    const QColor c = image.pixelColor(160, y);
    red = red || (c.red() > 200 && c.green() < 80 && c.blue() < 80);
  }
  EXPECT_TRUE(red);
}

TEST(RenderCommand, TheThreeDTabDrawsTheSurface) {
  QTemporaryDir dir;
  const QString picture = dir.filePath("heart.jpg");
  const CliResult r = RunCli({"render", platform::DataFile("Functions/3D_Heart_1.qlfn"), picture});
  EXPECT_EQ(r.Code, 0) << r.Err.toStdString();
  const QImage image(picture);
  ASSERT_FALSE(image.isNull());
  EXPECT_EQ(image.size(), QSize(800, 600));
  int coloured = 0;
  for (int y = 0; y < 600; y += 10) {
    for (int x = 0; x < 800; x += 10) coloured += image.pixelColor(x, y).saturation() > 120;
  }
  EXPECT_GT(coloured, 100) << "a shaded surface, not an empty box";
}

TEST(RenderCommand, EveryBoxIsALineAndMakesTheExitOne) {
  QTemporaryDir dir;
  const CliResult missing = RunCli({"render", dir.filePath("none.qlp"), dir.filePath("x.png")});
  EXPECT_EQ(missing.Code, 1);
  EXPECT_EQ(missing.Err, "Err-[0014]: File not found\n");
  const QString broken = WriteFile(dir, "b.qlp", "[Function](0)=[255:y=x:False,False,False,True,True,0:False]\r\n[3D][xMin]=abc\r\n");
  const CliResult r = RunCli({"render", broken, dir.filePath("b.png")});
  EXPECT_EQ(r.Code, 1);
  EXPECT_EQ(r.Err, "Err-[0014]: Type mismatch\n");
  EXPECT_FALSE(QFile::exists(dir.filePath("b.png"))) << "a file that fails draws nothing";
}

TEST(RenderCommand, AFileThatIsNoProjectIsRefused) {
  QTemporaryDir dir;
  const QString picture = WriteFile(dir, "photo.jpg", QByteArray("\xff\xd8\xff\xe0\0\x10JFIF", 10));
  const CliResult render = RunCli({"render", picture, dir.filePath("out.png")});
  EXPECT_EQ(render.Code, 1);
  EXPECT_TRUE(render.Err.startsWith("Open - [Err-0017]: \"photo.jpg\" is not a Quillograph project")) << render.Err.toStdString();
  EXPECT_FALSE(QFile::exists(dir.filePath("out.png")));
  const CliResult resave = RunCli({"resave", picture, dir.filePath("out.qlp")});
  EXPECT_EQ(resave.Code, 1);
  EXPECT_TRUE(resave.Err.startsWith("Open - [Err-0017]: "));
  EXPECT_FALSE(QFile::exists(dir.filePath("out.qlp")));
}

TEST(RenderCommand, UsageErrors) {
  EXPECT_EQ(RunCli({"render"}).Code, 2);
  EXPECT_EQ(RunCli({"render", "a.qlp"}).Code, 2);
  EXPECT_EQ(RunCli({"render", "a.qlp", "b.png", "--size", "big"}).Code, 2);
  EXPECT_EQ(RunCli({"resave", "a.qlp"}).Code, 2);
  EXPECT_TRUE(RunCli({"--help"}).Out.contains("render PROJECT OUT [--size WxH]"));
}

TEST(ResaveCommand, WritesTheProjectAgain) {
  QTemporaryDir dir;
  const QString project = WriteFile(dir, "old.qlfn", "[Function](0)=[255:sin(x):False:False:False]\r\n[Note](0)\r\nhi\r\n[EndNote](0)\r\n");
  const QString out = dir.filePath("new.qlp");
  const CliResult r = RunCli({"resave", project, out});
  EXPECT_EQ(r.Code, 0) << r.Err.toStdString();
  QFile file(out);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray bytes = file.readAll();
  EXPECT_TRUE(bytes.startsWith("\"\r\n{</[File] <Start>}\r\n"));
  EXPECT_TRUE(bytes.contains("[Function](0)=[255:sin(x):False,False,False,True,True,0:False]\r\n"));
  EXPECT_TRUE(bytes.contains("[Note](0)\r\n\r\nhi\r\n[EndNote](0)\r\n"));
  EXPECT_TRUE(bytes.endsWith("{[File]>/ <end>}\r\n\"\r\n"));
  const CliResult unwritable = RunCli({"resave", project, "/nonexistent-folder/x.qlp"});
  EXPECT_EQ(unwritable.Code, 1);
  EXPECT_TRUE(unwritable.Err.endsWith("Err-[0011]: Could not save the file.\n"));
}
