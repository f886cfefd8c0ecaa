// The ribbon's quick picture commands (1024 PNG, 1025 JPG, 1030 BMP, 3006 any): the ending that a
// name without one gets, and the question before a file is written over.
#include "ribbon/CommandBars.h"
#include "rows/frmMain.h"

#include <gtest/gtest.h>

#include "MainWindowFixture.h"
#include "StateSupport.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>

#include <memory>
#include <tuple>

namespace {

using Box = platform::MessageBoxes;

using PictureWindow = MainWindowFixture;

QByteArray Contents(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  return file.readAll();
}

void WriteOld(const QString& path) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("old");
}

// ---- Endings ------------------------------------------------------------------------------------

struct EndingCase {
  std::int32_t Id;
  const char* Typed;
  const char* Written;
  const char* Format;  // as the picture reader tells it
};

class PictureEndings : public ::testing::TestWithParam<EndingCase> {};

TEST_P(PictureEndings, ANameWithoutOneGetsTheKindsEnding) {
  const EndingCase& c = GetParam();
  PictureWindow w;
  QTemporaryDir folder;
  ASSERT_TRUE(QDir(folder.path()).mkdir("my.folder"));
  w.files.names = {folder.filePath(QString::fromLatin1(c.Typed))};
  w.Run(c.Id);
  EXPECT_TRUE(w.boxes.boxes.empty());
  EXPECT_EQ(QImageReader(folder.filePath(QString::fromLatin1(c.Written))).format(), c.Format);
  const int files = static_cast<int>(QDir(folder.path()).entryList(QDir::Files).size() +
                                     QDir(folder.filePath("my.folder")).entryList(QDir::Files).size());
  EXPECT_EQ(files, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Names, PictureEndings,
    ::testing::Values(EndingCase{1024, "graph", "graph.png", "png"}, EndingCase{1025, "graph", "graph.jpg", "jpeg"},
                      EndingCase{1030, "graph", "graph.bmp", "bmp"}, EndingCase{3006, "graph", "graph.png", "png"},
                      EndingCase{1024, "graph.", "graph.png", "png"},
                      EndingCase{1025, "my.folder/graph", "my.folder/graph.jpg", "jpeg"},
                      EndingCase{3006, "my.folder/graph", "my.folder/graph.png", "png"},
                      // A name with an ending keeps it; 3006 takes its kind from it.
                      EndingCase{3006, "graph.jpg", "graph.jpg", "jpeg"}, EndingCase{3006, "graph.bmp", "graph.bmp", "bmp"},
                      EndingCase{3006, "graph.PNG", "graph.PNG", "png"}, EndingCase{1024, "graph.PNG", "graph.PNG", "png"},
                      EndingCase{1030, "graph.txt", "graph.txt", "bmp"}),
    [](const ::testing::TestParamInfo<EndingCase>& test) { return std::to_string(test.index) + "_" + std::to_string(test.param.Id); });

// ---- Writing over a file ------------------------------------------------------------------------

class PictureOverwrite : public ::testing::TestWithParam<std::tuple<std::int32_t, const char*>> {
protected:
  std::int32_t Id() const { return std::get<0>(GetParam()); }
  QString Ending() const { return QString::fromLatin1(std::get<1>(GetParam())); }
};

void ExpectTheQuestion(const RecordingBoxes::Box& box) {
  EXPECT_EQ(box.Text, "File is already exsit, overwrite the file?");
  EXPECT_EQ(box.Title, "Overwrite - [Msg-0003]");
  EXPECT_EQ(box.Kind, Box::Icon::Question);
  EXPECT_EQ(box.Shown, Box::Buttons::YesNoCancel);
}

TEST_P(PictureOverwrite, YesWritesOverTheFile) {
  PictureWindow w;
  QTemporaryDir folder;
  const QString name = folder.filePath("old." + Ending());
  WriteOld(name);
  w.files.names = {folder.filePath("old")};  // its ending is added, and then it is there
  w.boxes.answers = {Box::Answer::Yes};
  w.Run(Id());
  ASSERT_EQ(w.boxes.boxes.size(), 1u);
  ExpectTheQuestion(w.boxes.boxes[0]);
  EXPECT_EQ(w.files.shown.size(), 1u);
  EXPECT_NE(Contents(name), "old");
  EXPECT_FALSE(QImageReader(name).format().isEmpty());
}

TEST_P(PictureOverwrite, NoOpensTheDialogAgainForAnotherName) {
  PictureWindow w;
  QTemporaryDir folder;
  const QString name = folder.filePath("old." + Ending());
  WriteOld(name);
  w.files.names = {name, folder.filePath("new." + Ending())};
  w.boxes.answers = {Box::Answer::No};
  w.Run(Id());
  ASSERT_EQ(w.boxes.boxes.size(), 1u);
  ExpectTheQuestion(w.boxes.boxes[0]);
  ASSERT_EQ(w.files.shown.size(), 2u);
  EXPECT_EQ(w.files.shown[1].Title, "Save graph as picture...");
  EXPECT_EQ(Contents(name), "old");
  EXPECT_FALSE(QImageReader(folder.filePath("new." + Ending())).format().isEmpty());
}

TEST_P(PictureOverwrite, NoAndThenCancelWriteNothing) {
  PictureWindow w;
  QTemporaryDir folder;
  const QString name = folder.filePath("old." + Ending());
  WriteOld(name);
  w.files.names = {name, std::nullopt};
  w.boxes.answers = {Box::Answer::No};
  w.Run(Id());
  EXPECT_EQ(w.boxes.boxes.size(), 1u);
  EXPECT_EQ(w.files.shown.size(), 2u);
  EXPECT_EQ(Contents(name), "old");
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

TEST_P(PictureOverwrite, CancelEndsTheCommandSilently) {
  PictureWindow w;
  QTemporaryDir folder;
  const QString name = folder.filePath("old." + Ending());
  WriteOld(name);
  w.files.names = {name, folder.filePath("never." + Ending())};
  w.boxes.answers = {Box::Answer::Cancel};
  w.Run(Id());
  ASSERT_EQ(w.boxes.boxes.size(), 1u);  // the question, and nothing after it
  ExpectTheQuestion(w.boxes.boxes[0]);
  EXPECT_EQ(w.files.shown.size(), 1u);
  EXPECT_EQ(Contents(name), "old");
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

TEST_P(PictureOverwrite, ANewFileIsWrittenWithoutAQuestion) {
  PictureWindow w;
  QTemporaryDir folder;
  w.files.names = {folder.filePath("new")};
  w.Run(Id());
  EXPECT_TRUE(w.boxes.boxes.empty());
  EXPECT_FALSE(QImageReader(folder.filePath("new." + Ending())).format().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Commands, PictureOverwrite,
                         ::testing::Values(std::tuple{1024, "png"}, std::tuple{1025, "jpg"}, std::tuple{1030, "bmp"},
                                           std::tuple{3006, "png"}),
                         [](const ::testing::TestParamInfo<std::tuple<std::int32_t, const char*>>& test) {
                           return std::to_string(std::get<0>(test.param));
                         });

TEST(PictureCommands, CancelInTheDialogSaysNothingWhateverTheFolderHolds) {
  for (const bool withFile : {false, true}) {
    PictureWindow w;
    QTemporaryDir folder;
    if (withFile) WriteOld(folder.filePath("something"));
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.path());
    for (const std::int32_t id : {1024, 1025, 1030, 3006}) w.Run(id);
    QDir::setCurrent(before);
    EXPECT_TRUE(w.boxes.boxes.empty());
    EXPECT_EQ(w.files.shown.size(), 4u);
  }
}

TEST(PictureCommands, AFolderForANameEndsInTheErrorBoxNotACrash) {
  PictureWindow w;
  QTemporaryDir folder;
  for (const QString& name : {folder.path() + "/", folder.filePath("no such folder/graph")}) {
    w.boxes.boxes.clear();
    w.files.names = {name};
    w.Run(1024);
    ASSERT_EQ(w.boxes.boxes.size(), 1u) << name.toStdString();
    EXPECT_EQ(w.boxes.boxes[0].Title, "Ribbon error - [Err-0015]");
  }
}

}  // namespace
