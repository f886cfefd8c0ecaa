// The manual's picture comes from the program itself: --picture FILE [--size WxH].
#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace {

int RunProgram(const QStringList& arguments) {
  QProcess program;
  program.start(QStringLiteral(TRIGON_PROGRAM), arguments);
  if (!program.waitForFinished(60000)) return -1;
  return program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
}

TEST(TrigonPicture, WritesTheWindowAtTheSizeAsked) {
  QTemporaryDir dir;
  const QString file = dir.filePath(QStringLiteral("bench-trigon.png"));
  ASSERT_EQ(RunProgram({QStringLiteral("--picture"), file, QStringLiteral("--size"), QStringLiteral("1000x650")}), 0);
  const QImage picture(file);
  ASSERT_FALSE(picture.isNull());
  EXPECT_EQ(picture.size(), QSize(1000, 650));
  // Not a blank window: the circle's yellow point is there.
  bool point = false;
  for (int y = 0; y < picture.height() && !point; ++y) {
    for (int x = 0; x < picture.width() && !point; ++x) point = picture.pixelColor(x, y) == QColor(255, 200, 40);
  }
  EXPECT_TRUE(point);
}

TEST(TrigonPicture, BadArgumentsAreRefusedInWords) {
  EXPECT_EQ(RunProgram({QStringLiteral("--size"), QStringLiteral("big")}), 2);
  EXPECT_EQ(RunProgram({QStringLiteral("--frobnicate")}), 2);
}

}  // namespace
