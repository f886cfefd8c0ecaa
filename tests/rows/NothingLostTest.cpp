// What a user made is never dropped on an ordinary path: every change that a file keeps marks the
// project, the question about unsaved changes comes before anything replaces it, a save that does
// not happen keeps the window, and a file that cannot be read changes nothing.
#include "core/Tag.h"
#include "interaction/PlotButtons.h"
#include "interaction/StatusPanes.h"
#include "mathx/MthX.h"
#include "plot2d/PlotWidget.h"
#include "project/ProjectWriter.h"
#include "rows/ColorButton.h"
#include "rows/FileCommands.h"
#include "rows/FunctionList.h"
#include "rows/InputTabs.h"
#include "rows/RowMenu.h"
#include "rows/frmMain.h"

#include <gtest/gtest.h>

#include "MainWindowFixture.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

namespace {

using Answer = platform::MessageBoxes::Answer;

struct Window : MainWindowFixture {
  // A command by id on a row, as the row's menu runs it.
  void Run(std::int32_t id, int row = 0) {
    form->FunctionMenu().Prepare(row);
    MainWindowFixture::Run(id);
  }
  const project::ProjectForm& ProjectOf() { return form->ProjectInterface(); }
  // Three rows, saved to a file: a project with nothing unsaved.
  QString SavedProject(const QTemporaryDir& dir) {
    Fill({"y=x", "y=x^2", "y=sin(x)"});
    const QString path = dir.filePath("saved.qlp");
    state.ProjectPath = path;
    EXPECT_TRUE(form->SaveProject(path));
    QApplication::processEvents();
    EXPECT_FALSE(state.ProjectChanged);
    return path;
  }
};

QByteArray Bytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Write(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(bytes);
}

// What the window shows of its project: the bytes a save would write, and where they would go.
struct Seen {
  QByteArray Saved;
  QString Path;
  bool Changed;
  QString Title;
  bool operator==(const Seen&) const = default;
};

Seen SeenIn(Window& w, const QTemporaryDir& dir) {
  const QString probe = dir.filePath("probe.qlp");
  const bool changed = w.state.ProjectChanged;
  const QString title = w->windowTitle();
  QFile::remove(probe);
  // The writer on a copy of the state, so that looking changes nothing.
  core::SharedState scratch;
  RecordingBoxes quiet;
  project::ProjectWriter writer(const_cast<project::ProjectForm&>(w.ProjectOf()), scratch, quiet);
  writer.SaveProject(probe);
  return {Bytes(probe), w.state.ProjectPath, changed, title};
}

struct ChangeCase {
  const char* name;
  std::function<void(Window&)> change;
};

}  // namespace

TEST(NothingLost, EveryChangeThatTheFileKeepsMarksTheProject) {
  const ChangeCase cases[] = {
      {"a row removed by its menu", [](Window& w) { w.Run(1107, 1); }},
      {"the last row removed", [](Window& w) { w.Rows().RemoveFunction(2, true); }},
      {"a row moved up", [](Window& w) { w.Run(1108, 2); }},
      {"a row moved down", [](Window& w) { w.Run(1109, 0); }},
      {"Clear all", [](Window& w) { w.Rows().cmdClearAllFunction()->click(); }},
      {"a row made a note", [](Window& w) { w.Run(1135, 1); }},
      {"a row hidden", [](Window& w) { w.Run(1169, 0); }},
      {"a row's colour", [](Window& w) { w.Rows().Row(1).colrFunction->SetColor(12345); }},
      {"the plot's range", [](Window& w) { w.Run(1066); }},
      {"the lock", [](Window& w) { QTest::mouseClick(w->Buttons().btnLock(), Qt::LeftButton); }},
      {"the quality", [](Window& w) { w->Panes().StatusBar_SliderPaneClick("Plot Quality", 1, 0); }},
      {"the thickness",
       [](Window& w) {
         w->CommandBars().FindControl(1122)->SetPos(5);
         w->CommandBars().Execute(*w->CommandBars().FindControl(1122));
       }},
      {"the input tab", [](Window& w) { w->tabInput()->setCurrentIndex(2); }},
      {"the parametric range", [](Window& w) { QTest::keyClicks(w->Tabs().Parametric().txtThetaMax(), "0"); }},
      {"the area bounds", [](Window& w) { QTest::keyClicks(w->mnu_Integral_max(), "7"); }},
  };
  for (const ChangeCase& c : cases) {
    SCOPED_TRACE(c.name);
    QTemporaryDir dir;
    Window w;
    w->show();
    w.SavedProject(dir);
    EXPECT_EQ(w->windowTitle(), "Quillograph - saved.qlp");
    w.boxes.answers = {Answer::Yes};  // Clear all asks first
    c.change(w);
    // The mark follows once the change's events are done, as they are after a click or a key.
    QApplication::processEvents();
    EXPECT_TRUE(w.state.ProjectChanged);
    EXPECT_EQ(w->windowTitle(), "Quillograph - saved.qlp*");
    w.boxes.boxes.clear();
    w.boxes.answers = {Answer::Cancel};
    EXPECT_FALSE(w->close()) << "the close question comes, and Cancel keeps the window";
    ASSERT_EQ(w.boxes.boxes.size(), 1u);
    EXPECT_EQ(w.boxes.boxes[0].Title, "Unsaved file - [Msg-0006]");
  }
}

TEST(NothingLost, ChangingBackToTheSavedStateClearsTheMark) {
  QTemporaryDir dir;
  Window w;
  w.SavedProject(dir);
  w->Plot().Scene().SetQuality(40);
  EXPECT_TRUE(w->RefreshProjectChanged());
  w->Plot().Scene().SetQuality(90);
  EXPECT_FALSE(w->RefreshProjectChanged());
  EXPECT_EQ(w->windowTitle(), "Quillograph - saved.qlp");
}

TEST(NothingLost, AnUnsavedProjectIsMarkedToo) {
  Window w;
  EXPECT_EQ(w->windowTitle(), "Quillograph");
  w.Fill({"y=x"});
  QApplication::processEvents();
  EXPECT_EQ(w->windowTitle(), "Quillograph*");
}

TEST(NothingLost, YesAndASaveThatDoesNotHappenKeepTheWindowOpen) {
  QTemporaryDir dir;
  {
    Window w;
    w->show();
    w.Fill({"y=x", "y=2x"});
    w.boxes.answers = {Answer::Yes};
    w.files.names = {std::nullopt};  // the name is cancelled
    EXPECT_FALSE(w->close());
    EXPECT_TRUE(w->isVisible());
    EXPECT_EQ(w.Rows().HighestIndex(), 1);
    EXPECT_EQ(w.Rows().Row(1).mthFunction->Text(), "y=2x");
    EXPECT_TRUE(w.state.ProjectChanged);
  }
  {
    Window w;
    w->show();
    w.Fill({"y=x"});
    // A file in a folder that does not exist cannot be written.
    w.state.ProjectPath = dir.filePath("no such folder/lost.qlp");
    w.boxes.answers = {Answer::Yes};
    EXPECT_FALSE(w->close());
    EXPECT_TRUE(w.state.ProjectChanged) << "the file does not hold the project";
    EXPECT_EQ(w->windowTitle(), "Quillograph - lost.qlp*");
    EXPECT_EQ(w.Rows().Row(0).mthFunction->Text(), "y=x");
  }
  {
    Window w;
    w->show();
    w.Fill({"y=x"});
    w.boxes.answers = {Answer::Yes};
    w.files.names = {dir.filePath("kept.qlp")};
    EXPECT_TRUE(w->close()) << "a save that happened closes";
    EXPECT_TRUE(QFile::exists(dir.filePath("kept.qlp")));
  }
}

TEST(NothingLost, OpenAsksBeforeItReplacesAChangedProject) {
  QTemporaryDir dir;
  Window source;
  source.Fill({"y=3x"});
  const QString other = dir.filePath("other.qlp");
  ASSERT_TRUE(source->SaveProject(other));

  Window w;
  const QString path = w.SavedProject(dir);
  w.Rows().Row(0).mthFunction->SetText("y=5x");
  // Cancel: nothing opens.
  w.files.names = {other};
  w.boxes.answers = {Answer::Cancel};
  w->OpenThisFile();
  ASSERT_EQ(w.boxes.boxes.size(), 1u);
  EXPECT_EQ(w.boxes.boxes[0].Text, "Do you want to save changes you made?");
  EXPECT_EQ(w.boxes.boxes[0].Title, "Unsaved file - [Msg-0006]");
  EXPECT_EQ(w.Rows().Row(0).mthFunction->Text(), "y=5x");
  EXPECT_EQ(w.state.ProjectPath, path);
  EXPECT_TRUE(w.state.ProjectChanged);
  // Yes: saved, then opened.
  w.files.names = {other};
  w.boxes.answers = {Answer::Yes};
  w->OpenThisFile();
  EXPECT_TRUE(Bytes(path).contains("y=5x"));
  EXPECT_EQ(w.Rows().Row(0).mthFunction->Text(), "y=3x");
  EXPECT_EQ(w.state.ProjectPath, other);
  EXPECT_FALSE(w.state.ProjectChanged);
  // No: opened without saving.
  w.Rows().Row(0).mthFunction->SetText("y=7x");
  w.files.names = {path};
  w.boxes.answers = {Answer::No};
  w->OpenThisFile();
  EXPECT_FALSE(Bytes(other).contains("y=7x"));
  EXPECT_EQ(w.Rows().Row(0).mthFunction->Text(), "y=5x");
}

TEST(NothingLost, ASampleAsksBeforeItReplacesAChangedProject) {
  Window w;
  w.Fill({"y=5x"});
  w.boxes.answers = {Answer::Cancel};
  w->Samples().btnSample_Click(0);
  ASSERT_EQ(w.boxes.boxes.size(), 1u);
  EXPECT_EQ(w.boxes.boxes[0].Title, "Unsaved file - [Msg-0006]");
  EXPECT_EQ(w.Rows().HighestIndex(), 0);
  EXPECT_EQ(w.Rows().Row(0).mthFunction->Text(), "y=5x");
  w.boxes.answers = {Answer::No};
  w->Samples().btnSample_Click(0);
  EXPECT_NE(w.Rows().Row(0).mthFunction->Text(), "y=5x");
  EXPECT_FALSE(w.state.ProjectChanged) << "a sample as it came is no change";
}

TEST(NothingLost, ATorusComesBackFromItsFile) {
  QTemporaryDir dir;
  const QString path = dir.filePath("torus.qlp");
  const char* torus[] = {"(2+cos(v))*cos(u)", "(2+cos(v))*sin(u)", "sin(v)"};
  {
    Window w;
    for (int i = 0; i < 3; ++i) w->Tabs().Surface().Editor(3 + i)->SetText(torus[i]);
    ASSERT_TRUE(w->SaveProject(path));
  }
  EXPECT_TRUE(Bytes(path).contains("[3D][Para][Z]=sin(v)\r\n"));
  EXPECT_FALSE(Bytes(path).contains("[3D][Prar][Z]"));
  Window w;
  ASSERT_TRUE(w->LoadProject(path));
  for (int i = 0; i < 3; ++i) EXPECT_EQ(w->Tabs().Surface().Editor(3 + i)->Text(), torus[i]) << i;
  // And an older file's spelling.
  Write(dir.filePath("old.qlp"), "[3D][Prar][Z]=cos(u)\r\n");
  ASSERT_TRUE(w->LoadProject(dir.filePath("old.qlp")));
  EXPECT_EQ(w->Tabs().Surface().Editor(5)->Text(), "cos(u)");
}

TEST(NothingLost, AFileThatFailsLeavesTheOpenProjectExactlyAsItWas) {
  struct FileCase {
    const char* name;
    QByteArray bytes;
    const char* title;
  };
  const FileCase files[] = {
      {"a bad strict key", "[Function](0)=[255:y=9x:False,False,False,True,True,0:False]\r\n[3D][xMin]=abc\r\n",
       "Err-[0014]"},
      {"a truncated note", "[Function](0)=[255:y=9x:False,False,False,True,True,0:False]\r\n[Note](0)\r\nhalf a", "Err-[0014]"},
      {"a note of no row", "[Note](5)\r\ntext\r\n[EndNote](5)\r\n", "Err-[0014]"},
      {"rows out of order", "[Function](3)=[255:y=9x:False,False,False,True,True,0:False]\r\n", "Err-[0014]"},
      {"a bad lock", "[Plot][Lock]=maybe\r\n", "Err-[0014]"},
      {"a picture", QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16), "Open - [Err-0017]"},
      {"plain text", "Dear students,\nplease plot y=x.\n", "Open - [Err-0017]"},
  };
  for (const FileCase& c : files) {
    SCOPED_TRACE(c.name);
    QTemporaryDir dir;
    Window w;
    w.SavedProject(dir);
    w.Rows().Row(1).mthFunction->SetText("y=unsaved");
    w->Tabs().Surface().Editor(1)->SetText("z=x*y");
    QApplication::processEvents();
    const Seen before = SeenIn(w, dir);
    EXPECT_TRUE(before.Changed);
    const QString bad = dir.filePath("bad.qlp");
    Write(bad, c.bytes);
    w.boxes.boxes.clear();
    w.files.names = {bad};
    w.boxes.answers = {Answer::No};  // the question about the unsaved row
    w->OpenThisFile();
    QApplication::processEvents();
    EXPECT_EQ(SeenIn(w, dir), before);
    ASSERT_FALSE(w.boxes.boxes.empty());
    EXPECT_EQ(w.boxes.boxes.back().Title, c.title);
  }
}

TEST(NothingLost, AFileThatIsNoProjectIsNamedInItsMessage) {
  QTemporaryDir dir;
  Window w;
  Write(dir.filePath("holiday.png"), "\x89PNG\r\n\x1a\n");
  EXPECT_FALSE(w->LoadProject(dir.filePath("holiday.png")));
  ASSERT_EQ(w.boxes.boxes.size(), 1u);
  EXPECT_EQ(w.boxes.boxes[0].Title, "Open - [Err-0017]");
  EXPECT_TRUE(w.boxes.boxes[0].Text.contains("\"holiday.png\"")) << w.boxes.boxes[0].Text.toStdString();
  EXPECT_TRUE(w.boxes.boxes[0].Text.contains("not a Quillograph project"));
  EXPECT_EQ(w.boxes.boxes[0].Kind, platform::MessageBoxes::Icon::Exclamation);
  // An empty file is an empty project.
  Write(dir.filePath("empty.qlp"), "");
  EXPECT_TRUE(w->LoadProject(dir.filePath("empty.qlp")));
}

TEST(NothingLost, ANoteSurvivesAResizeANewRowAndAKeystroke) {
  Window w;
  w->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(w.form.get()));
  w.Fill({"y=x", "y=2x"});
  w.Run(1135, 1);
  QTextEdit* note = w.Rows().Row(1).rchfunNote;
  ASSERT_TRUE(note->isVisible());
  note->setPlainText("Homework for Monday");
  QTextCursor end = note->textCursor();
  end.movePosition(QTextCursor::End);
  note->setTextCursor(end);
  note->setFocus();
  w->resize(1100, 700);
  w.Rows().Refresh_mth_Height(false);
  QApplication::processEvents();
  EXPECT_FALSE(note->textCursor().hasSelection());
  QTest::keyClick(note, Qt::Key_Exclam);
  EXPECT_EQ(note->toPlainText(), "Homework for Monday!");
  w.Rows().AddFunction(false);
  note->setFocus();
  QTest::keyClick(note, Qt::Key_Exclam);
  EXPECT_EQ(note->toPlainText(), "Homework for Monday!!");
}

TEST(NothingLost, SaveAsGivesANameWithoutAnEndingTheProjectEnding) {
  QTemporaryDir dir;
  Window w;
  w.files.names = {dir.filePath("worksheet")};
  w->SaveThisFile();
  EXPECT_EQ(w.state.ProjectPath, dir.filePath("worksheet.qlp"));
  EXPECT_TRUE(QFile::exists(dir.filePath("worksheet.qlp")));
  EXPECT_FALSE(QFile::exists(dir.filePath("worksheet")));
  // A name with an ending of its own keeps it.
  w.files.names = {dir.filePath("worksheet.txt")};
  w->SaveThisFile();
  EXPECT_EQ(w.state.ProjectPath, dir.filePath("worksheet.txt"));
}
