// The manual's picture comes from the program itself: --picture FILE [--size WxH].
#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace {

int RunProgram(const QStringList& arguments) {
  QProcess program;
  program.start(QStringLiteral(AREA_PROGRAM), arguments);
  if (!program.waitForFinished(60000)) return -1;
  return program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
}

TEST(AreaPicture, WritesTheWindowAtTheSizeAsked) {
  QTemporaryDir dir;
  const QString file = dir.filePath(QStringLiteral("bench-area.png"));
  ASSERT_EQ(RunProgram({QStringLiteral("--picture"), file, QStringLiteral("--size"), QStringLiteral("1000x650")}), 0);
  const QImage picture(file);
  ASSERT_FALSE(picture.isNull());
  EXPECT_EQ(picture.size(), QSize(1000, 650));
  // Not a blank window: the blue pieces of the sum are there.
  int blue = 0;
  for (int y = 0; y < picture.height(); y += 2) {
    for (int x = 0; x < picture.width(); x += 2) {
      const QColor c = picture.pixelColor(x, y);
      blue += c.blue() > 150 && c.red() < 200 && c.blue() > c.red() + 40 ? 1 : 0;
    }
  }
  EXPECT_GT(blue, 2000);
}

TEST(AreaPicture, BadArgumentsAreRefusedInWords) {
  EXPECT_EQ(RunProgram({QStringLiteral("--size"), QStringLiteral("big")}), 2);
  EXPECT_EQ(RunProgram({QStringLiteral("--frobnicate")}), 2);
}

}  // namespace
