// Project files: the format byte for byte, the writer's failures, the reader line by line.
#include "FakeProjectForm.h"

#include "core/Version.h"
#include "project/MemoryProjectForm.h"
#include "project/ProjectFile.h"
#include "project/ProjectReader.h"
#include "project/ProjectWriter.h"

#include <gtest/gtest.h>

#include "FakeDesktop.h"
#include "QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using project::ProjectFile;
using project::ProjectReader;
using project::ProjectWriter;

namespace {

// The small project of the tests, set on a fake form.
void SmallProject(FakeProjectForm& f) {
  f.numbers = {{"Plot.Quality", 90}, {"Plot.Thickness", 2}, {"Plot.XMin", -10}, {"Plot.XMax", 10.5},
               {"Plot.YMin", -7.25}, {"Plot.YMax", 7}, {"Plot.AxisColor", 16711680}, {"Plot.BackColor", 16777215},
               {"btnLock", 0}, {"tabInput", 0}, {"chkInequalityTwoEquation", 1}, {"InequalityLineColor", 123},
               {"mnuInequalityColor", 456}, {"colrParametric", 789}, {"Tab_3D", 2}, {"Plot3D.ZMin", -5},
               {"Plot3D.ZMax", 5}, {"Plot3D.YMin", -4}, {"Plot3D.YMax", 4}, {"Plot3D.XMin", -3}, {"Plot3D.XMax", 3}};
  f.texts = {{"mnu_Integral_min", "-1"}, {"mnu_Integral_max", "1"}, {"cmbInequality(0)", ">"},
             {"cmbInequality(1)", "<="}, {"mthInequality(0)", "x^2"}, {"mthInequality(1)", ""},
             {"cmbParametricType", "Cartesian"}, {"mthParametricX", "cos(t)"}, {"mthParametricY", "sin(t)"},
             {"txtThetaMin", "-pi"}, {"txtThetaMax", "pi"}, {"txt3DZoom", "1"}, {"cmb3DGrid", "Grid: 100x100"},
             {"mth_3D_Function", "z=x+y"}, {"mth_3D_Polar", ""}, {"mth_3D_Para_x", "u"}, {"mth_3D_Para_y", "u*v"},
             {"mth_3D_Para_z", "u+v"}, {"txt_thetaMin", "-2*pi"}, {"txt_thetaMax", "2*pi"}, {"txt_phiMin", "0"},
             {"txt_phiMax", "pi"}, {"txt_3D_uMin", "0"}, {"txt_3D_uMax", "2"}, {"txt_3D_vMin", "0"},
             {"txt_3D_vMax", "2"}};
  f.rows[0].Text = "y=x^2";
  f.rows.push_back({16776960, "[x,y;1,2]", "False,False,False,True,False,0", true, false, "line one\r\nline two", QString()});
}

QString Version() { return QStringLiteral("%1.%2").arg(core::VersionMajor()).arg(core::VersionMinor()); }

// The file of the small project, written out from the format by hand.
QString SmallProjectFile() {
  const QStringList lines = {
      "\"",
      "{</[File] <Start>}",
      "Quillograph Project File.    DO NOT EDIT!",
      "File Version: " + Version(),
      "",
      "[Setting]",
      "[Quality]=90",
      "[Thickness]=2",
      "[IntMin]=-1",
      "[IntMax]=1",
      "",
      "[Plot]",
      "[Plot][xMin]=-10",
      "[Plot][xMax]=10.5",
      "[Plot][yMin]=-7.25",
      "[Plot][yMax]=7",
      "[Plot][AxisColor]=16711680",
      "[Plot][BackColor]=16777215",
      "[Plot][Lock]=False",
      "",
      "[Tabs]",
      "[Tab]=0",
      "",
      "[Tabs][Function]",
      "[Function](0)=[255:y=x^2:False,False,False,True,True,0:False]",
      "[Function](1)=[16776960:[x,y;1,2]:False,False,False,True,False,0:True]",
      "[Note](0)",
      "Your note here.",
      "[EndNote](0)",
      "[Note](1)",
      "line one",
      "line two",
      "[EndNote](1)",
      "",
      "[Tabs][Inequality]",
      "[Inq][Two]=1",
      "[Inq][Op][1]=>",
      "[Inq][Op][2]=<=",
      "[Inq][Equ][1]=x^2",
      "[Inq][Equ][2]=",
      "[Inq][Color][Line]=123",
      "[Inq][Color]=456",
      "",
      "[Tabs][Parametric]",
      "[Para][Type]=Cartesian",
      "[Para][Color]=789",
      "[Para][X]=cos(t)",
      "[Para][Y]=sin(t)",
      "[Para][tMin]=-pi",
      "[Para][tMax]=pi",
      "",
      "[Tabs][3D]",
      "[3D][Tab]=2",
      "[3D][Zoom]=1",
      "[3D][Grid]=Grid: 100x100",
      "[3D][Function]=z=x+y",
      "[3D][Polar]=",
      "[3D][Para][X]=u",
      "[3D][Para][Y]=u*v",
      "[3D][Para][Z]=u+v",
      "[3D][zMin]=-5",
      "[3D][zMax]=5",
      "[3D][yMin]=-4",
      "[3D][yMax]=4",
      "[3D][xMin]=-3",
      "[3D][xMax]=3",
      "[3D][thetaMin]=-2*pi",
      "[3D][thetaMax]=2*pi",
      "[3D][phiMin]=0",
      "[3D][phiMax]=pi",
      "[3D][uMin]=0",
      "[3D][uMax]=2",
      "[3D][vMin]=0",
      "[3D][vMax]=2",
      "{[File]>/ <end>}",
      "\"",
  };
  return lines.join("\r\n") + "\r\n";
}

struct ReaderFixture {
  ReaderFixture() : reader(form, state, boxes) {}
  void Load(const QString& text) { reader.LoadBytes(ProjectFile::Encode(text)); }
  void Load(const QStringList& lines) { Load(lines.join("\r\n") + "\r\n"); }
  QString Box() const { return boxes.boxes.empty() ? QString() : boxes.boxes.back().Title + ": " + boxes.boxes.back().Text; }

  FakeProjectForm form;
  core::SharedState state;
  RecordingBoxes boxes;
  ProjectReader reader;
};

}  // namespace

TEST(ProjectWriter, WritesTheFormatByteForByte) {
  FakeProjectForm form;
  SmallProject(form);
  core::SharedState state;
  RecordingBoxes boxes;
  QTemporaryDir dir;
  const QString path = dir.filePath("small.qlp");
  ProjectWriter writer(form, state, boxes);
  state.ProjectChanged = true;
  writer.SaveProject(path);
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(QString::fromLatin1(file.readAll()), SmallProjectFile());
  EXPECT_FALSE(state.ProjectChanged);
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST(ProjectWriter, OneEmptyRowStillMakesAWholeFile) {
  FakeProjectForm form;
  const QString text = ProjectWriter::Compose(form);
  EXPECT_TRUE(text.startsWith("\r\n{</[File] <Start>}\r\n"));
  EXPECT_TRUE(text.endsWith("{[File]>/ <end>}\r\n"));
  EXPECT_EQ(text.count("[Function]("), 1);
  EXPECT_TRUE(text.contains("[Function](0)=[255::False,False,False,True,True,0:False]\r\n"));
  EXPECT_TRUE(text.contains("[Note](0)\r\nYour note here.\r\n[EndNote](0)\r\n"));
}

TEST(ProjectWriter, AFolderThatDoesNotExistIsToldTwice) {
  FakeProjectForm form;
  core::SharedState state;
  RecordingBoxes boxes;
  ProjectWriter writer(form, state, boxes);
  writer.SaveProject("/nonexistent-folder/project.qlp");
  ASSERT_EQ(boxes.boxes.size(), 2u);
  EXPECT_EQ(boxes.boxes[0].Title, "Err-[0010]");
  EXPECT_FALSE(boxes.boxes[0].Text.isEmpty());
  EXPECT_EQ(boxes.boxes[0].Kind, platform::MessageBoxes::Icon::Exclamation);
  EXPECT_EQ(boxes.boxes[1].Title, "Err-[0011]");
  EXPECT_EQ(boxes.boxes[1].Text, "Could not save the file.");
  EXPECT_EQ(boxes.boxes[1].Kind, platform::MessageBoxes::Icon::Critical);
}

TEST(ProjectWriter, AReadOnlyTargetIsToldOnceAndKept) {
  FakeProjectForm form;
  core::SharedState state;
  RecordingBoxes boxes;
  QTemporaryDir dir;
  const QString path = dir.filePath("locked.qlp");
  QFile old(path);
  ASSERT_TRUE(old.open(QIODevice::WriteOnly));
  old.write("old");
  old.close();
  old.setPermissions(QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
  ProjectWriter writer(form, state, boxes);
  writer.SaveProject(path);
  ASSERT_EQ(boxes.boxes.size(), 1u);
  EXPECT_EQ(boxes.boxes[0].Title, "Err-[0010]");
  EXPECT_EQ(boxes.boxes[0].Text, "Permission denied");
  old.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
  ASSERT_TRUE(old.open(QIODevice::ReadOnly));
  EXPECT_EQ(old.readAll(), "old");
}

TEST(ProjectWriter, AFailedWriteLeavesTheOldFileWhole) {
  FakeProjectForm form;
  core::SharedState state;
  RecordingBoxes boxes;
  QTemporaryDir dir;
  const QString path = dir.filePath("kept.qlp");
  QFile old(path);
  ASSERT_TRUE(old.open(QIODevice::WriteOnly));
  old.write("the old project");
  old.close();
  ProjectWriter writer(form, state, boxes);
  writer.WriteFile = [](const QString&, const QByteArray&, QString& error) {
    error = "No space left on device";
    return false;
  };
  state.ProjectChanged = true;
  writer.SaveProject(path);
  ASSERT_EQ(boxes.boxes.size(), 1u);
  EXPECT_EQ(boxes.boxes[0].Text, "No space left on device");
  EXPECT_FALSE(state.ProjectChanged) << "cleared before the data reach the disk";
  ASSERT_TRUE(old.open(QIODevice::ReadOnly));
  EXPECT_EQ(old.readAll(), "the old project");
}

TEST(ProjectFile, Windows1252UnlessACharacterNeedsMore) {
  EXPECT_EQ(ProjectFile::Encode("caf\u00e9 \u20ac"), QByteArray("caf\xe9 \x80"));
  EXPECT_EQ(ProjectFile::Encode("r=2\u03b8"), QString("r=2\u03b8").toUtf8());
  EXPECT_EQ(ProjectFile::Decode("caf\xe9 \x80"), "caf\u00e9 \u20ac");
  EXPECT_EQ(ProjectFile::Decode(QString("r=2\u03b8 caf\u00e9").toUtf8()), "r=2\u03b8 caf\u00e9");
  EXPECT_EQ(ProjectFile::Decode("plain"), "plain");
  EXPECT_EQ(ProjectFile::Lines("a\r\nb\nc\rd\r\n"), (QStringList{"a", "b", "c", "d"}));
  EXPECT_EQ(ProjectFile::Lines("a\r\n\r\nb"), (QStringList{"a", "", "b"}));
}

TEST(ProjectReader, ReadsWhatTheWriterWrote) {
  FakeProjectForm written;
  SmallProject(written);
  ReaderFixture f;
  f.state.ProjectChanged = true;
  f.Load(SmallProjectFile());
  EXPECT_TRUE(f.boxes.boxes.empty()) << f.Box().toStdString();
  ASSERT_EQ(f.form.HighestRow(), 1);
  EXPECT_EQ(f.form.rows[0].Text, "y=x^2");
  EXPECT_EQ(f.form.rows[0].Attributes, "False,False,False,True,True,0,True,0");
  EXPECT_EQ(f.form.rows[1].Color, 16776960);
  EXPECT_TRUE(f.form.rows[1].NoteVisible);
  EXPECT_FALSE(f.form.rows[1].EditorVisible);
  EXPECT_EQ(f.form.rows[1].Note, "\r\nline one\r\nline two");
  EXPECT_EQ(f.form.numbers["Plot.XMax"], 10.5);
  EXPECT_EQ(f.form.numbers["Plot.Interactive"], 1);
  EXPECT_EQ(f.form.numbers["Plot3D.XMin"], -3);
  EXPECT_EQ(f.form.texts["mthParametricX"], "cos(t)");
  EXPECT_EQ(f.form.texts["mth_3D_Para_y"], "u*v");
  EXPECT_TRUE(f.form.texts.contains("mth_3D_Para_z")) << "the z field comes back under the writer's key";
  EXPECT_EQ(f.form.tags["mthParametricX"], "\"");
  EXPECT_EQ(f.form.tags["mthParametricY"], "");
  EXPECT_FALSE(f.state.ProjectChanged);
  EXPECT_EQ(f.form.log.mid(f.form.log.size() - 2), (QStringList{"Replot", "Refresh_mth_Height"}));
}

TEST(ProjectReader, AFileOfThreeLines) {
  ReaderFixture f;
  f.form.rows.resize(4);
  f.form.numbers["Plot.YMin"] = -3;
  f.Load(QStringList{"[Plot][xMin]=-4", "[Plot][xMax]=4", "any text at all"});
  EXPECT_TRUE(f.boxes.boxes.empty());
  EXPECT_EQ(f.form.numbers["Plot.XMin"], -4);
  EXPECT_EQ(f.form.numbers["Plot.XMax"], 4);
  EXPECT_EQ(f.form.numbers["Plot.YMin"], -3);
  EXPECT_EQ(f.form.HighestRow(), 0);
  EXPECT_EQ(f.form.rows[0].Text, "");
}

TEST(ProjectReader, PrefixKeysGiveZeroWhereStrictKeysFail) {
  ReaderFixture f;
  f.Load(QStringList{"[Plot][xMin]=abc", "[Plot][AxisColor]=12red"});
  EXPECT_EQ(f.form.numbers["Plot.XMin"], 0);
  EXPECT_EQ(f.form.numbers["Plot.AxisColor"], 12);
  EXPECT_TRUE(f.boxes.boxes.empty());
  ReaderFixture g;
  g.Load(QStringList{"[Plot][xMin]=1", "[3D][xMin]=abc", "[Plot][xMax]=9"});
  EXPECT_EQ(g.Box(), "Err-[0014]: Type mismatch");
  EXPECT_FALSE(g.form.numbers.contains("Plot.XMin")) << "a file that fails changes nothing, not even its first lines";
  EXPECT_FALSE(g.form.numbers.contains("Plot.XMax"));
  EXPECT_TRUE(g.form.log.isEmpty()) << g.form.log.join(", ").toStdString();
  ReaderFixture h;
  h.Load(QStringList{"[3D][zMin]="});
  EXPECT_EQ(h.Box(), "Err-[0014]: Type mismatch");
}

TEST(ProjectReader, OnlyTheFirstEqualsSplitsALine) {
  ReaderFixture f;
  f.Load(QStringList{"[Function](0)=[255:y=x:False,False,False,True,True,0:False]", "[Para][X]=a=b"});
  EXPECT_EQ(f.form.rows[0].Text, "y=x");
  EXPECT_EQ(f.form.texts["mthParametricX"], "a=b");
}

TEST(ProjectReader, TheOlderRowForm) {
  ReaderFixture f;
  f.form.rows[0].NoteVisible = true;
  f.Load(QStringList{"[Function](0)=[255:sin(x):False:False:False]", "[Function](1)=[65280:x:True:False:True]"});
  EXPECT_EQ(f.form.rows[0].Attributes, "False,False,False,True,True,0");
  EXPECT_EQ(f.form.rows[1].Attributes, "True,False,True,True,True,0");
  EXPECT_EQ(f.form.rows[1].Color, 65280);
  EXPECT_FALSE(f.form.rows[0].NoteVisible) << "the rows were rebuilt";
}

TEST(ProjectReader, AColonInACurrentRowMakesItOfTheOlderForm) {
  ReaderFixture f;
  f.Load(QStringList{"[Function](0)=[255:a:b:False,False,False,True,True,0:False]"});
  EXPECT_EQ(f.form.rows[0].Text, "a");
  EXPECT_EQ(f.form.rows[0].Attributes, "b,False,False,False,True,True,0,False,True,True,0");
  ReaderFixture g;
  g.Load(QStringList{"[Function](0)=[255:a:b:c:d:e:f]", "[Function](1)=[99:lonely]"});
  EXPECT_EQ(g.form.rows[0].Text, "a");
  EXPECT_EQ(g.form.rows[0].Attributes, "False,False,False,True,True,0") << "other counts leave the list";
  EXPECT_EQ(g.form.rows[1].Color, 99);
  EXPECT_EQ(g.form.rows[1].Text, "lonely");
}

TEST(ProjectReader, TheNoteDecidesNothing_TheFourthFieldDoes) {
  ReaderFixture f;
  f.Load(QStringList{"[Function](0)=[255:y=x:False,False,False,True,True,0:True]", "[Note](0)", "[EndNote](0)"});
  EXPECT_TRUE(f.form.rows[0].NoteVisible);
  EXPECT_FALSE(f.form.rows[0].EditorVisible);
  EXPECT_EQ(f.form.rows[0].Note, "");
}

TEST(ProjectReader, NotesGrowByALineBreakAtEachLoadAndEndAtTheirMarker) {
  ReaderFixture f;
  f.Load(QStringList{"[Note](0)", "one", "two", "[EndNote](0)"});
  EXPECT_EQ(f.form.rows[0].Note, "\r\none\r\ntwo");
  f.Load(QStringList{"[Note](0)", "one", "[EndNote](0) and more", "[Plot][xMin]=3"});
  EXPECT_EQ(f.form.rows[0].Note, "\r\none");
  EXPECT_EQ(f.form.numbers["Plot.XMin"], 3);
  // Keys inside a note are text.
  f.Load(QStringList{"[Note](0)", "[Plot][xMin]=7", "[EndNote](0)"});
  EXPECT_EQ(f.form.numbers["Plot.XMin"], 3);
}

TEST(ProjectReader, WhatEndsALoad) {
  struct Case {
    QStringList lines;
    const char* box;
  };
  const Case cases[] = {
      {{"[Plot][Lock]=maybe"}, "Err-[0014]: Type mismatch"},
      {{"[Quality]=40000"}, "Err-[0014]: Overflow"},
      {{"[Function](0)=[255:a:b:c:d]", "[Function](5)=[255:y=x:False:False:False]"}, "Err-[0014]: Subscript out of range"},
      {{"[Function](0)=[255]"}, "Err-[0014]: Subscript out of range"},
      {{"[Note](0)", "text and no end"}, "Err-[0014]: Input past end of file"},
      {{"[Note](3)", "[EndNote](3)"}, "Err-[0014]: Subscript out of range"},
      {{"[Function](0)=["}, "Err-[0014]: Invalid procedure call or argument"},
  };
  for (const Case& c : cases) {
    ReaderFixture f;
    f.state.ProjectChanged = true;
    f.Load(c.lines);
    EXPECT_EQ(f.Box(), c.box) << c.lines.join(" | ").toStdString();
    EXPECT_TRUE(f.state.ProjectChanged);
    EXPECT_FALSE(f.form.log.contains("Replot"));
  }
}

TEST(ProjectReader, AMissingFileLeavesTheRows) {
  ReaderFixture f;
  f.form.rows.resize(3);
  f.reader.LoadProject("/nonexistent/project.qlp");
  EXPECT_EQ(f.Box(), "Err-[0014]: File not found");
  EXPECT_EQ(f.form.HighestRow(), 2);
}

TEST(ProjectReader, AnyExtensionLoads) {
  QTemporaryDir dir;
  const QString path = dir.filePath("functions.txt");
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("[Function](0)=[255:y=2x:False,False,False,True,True,0:False]\r\n");
  file.close();
  ReaderFixture f;
  f.reader.LoadProject(path);
  EXPECT_TRUE(f.boxes.boxes.empty());
  EXPECT_EQ(f.form.rows[0].Text, "y=2x");
}

TEST(ProjectReader, QuietMarksWhereTheFormatSaysSo) {
  ReaderFixture f;
  f.Load(QStringList{"[Tab]=3", "[Inq][Equ][1]=x", "[Para][Type]=Polar", "[Para][X]=t", "[Para][Y]=t",
                     "[3D][Function]=z=1", "[Function](0)=[255:y=x:False,False,False,True,True,0:False]"});
  EXPECT_TRUE(f.form.log.contains("tabInput=3"));
  EXPECT_EQ(f.form.tags["tabInput"], "");
  EXPECT_TRUE(f.form.log.contains("mthInequality(0):=x [NOT]"));
  EXPECT_TRUE(f.form.log.contains("cmbParametricType:=Polar [NOT]"));
  EXPECT_TRUE(f.form.log.contains("mthParametricX:=t [NOT]"));
  EXPECT_TRUE(f.form.log.contains("mth_3D_Function:=z=1 []"));
  EXPECT_TRUE(f.form.log.contains("row 0:=y=x [NOT]"));
  EXPECT_EQ(f.form.rows[0].EditorTag, "");
}

TEST(ProjectReader, TheRowsGoFirstAndFromTheTopDown) {
  ReaderFixture f;
  f.form.rows.resize(3);
  f.Load(QStringList{"[Plot][xMin]=1"});
  EXPECT_EQ(f.form.log.mid(0, 3), (QStringList{"RemoveFunction 2", "RemoveFunction 1", "RemoveFunction 0"}));
}

TEST(ProjectReader, GarbageNeverCrashesOrHangs) {
  QByteArray bytes;
  for (int i = 0; i < 5000; ++i) bytes += char((i * 7919) % 256);
  const QByteArray cases[] = {bytes, QByteArray(1 << 20, 'x'), QByteArray("[Note](0)"), QByteArray("=\r\n=="),
                              QByteArray("[Function](99999999999)=[1:2:3:4]"), QByteArray("[Function](-1)=[1:2]"),
                              QByteArray("\"\r\n\"\r\n"), QByteArray()};
  for (const QByteArray& c : cases) {
    ReaderFixture f;
    f.reader.LoadBytes(c);
    EXPECT_GE(f.form.HighestRow(), 0);
  }
  // 10,000 rows: the 110th is refused, and the file is not read at all.
  QStringList rows;
  for (int i = 0; i < 10000; ++i) rows << QStringLiteral("[Function](%1)=[255:y=%1x:False:False:False]").arg(i);
  ReaderFixture f;
  f.Load(rows);
  EXPECT_EQ(f.form.HighestRow(), 0);
  EXPECT_TRUE(f.form.log.isEmpty());
  EXPECT_EQ(f.Box(), "Err-[0014]: Subscript out of range");
  // 109 rows are as many as the list holds: read whole.
  ReaderFixture g;
  g.Load(rows.mid(0, 109));
  EXPECT_EQ(g.form.HighestRow(), 108);
  EXPECT_TRUE(g.boxes.boxes.empty());
}

// A constant's slider bounds are ours alone: written after the rows only where the user chose
// them, read back onto their row, and a line for a row that is not there is no failure.
TEST(ProjectWriter, SliderBoundsOnlyWhereChosenAfterTheRows) {
  project::MemoryProjectForm form;
  form.AddFunction();
  form.AddFunction();
  form.SetRowText(0, "y=a*x");
  form.SetRowText(1, "a=2");
  form.SetRowText(2, "b=3");
  const QString plain = ProjectWriter::Compose(form);
  EXPECT_FALSE(plain.contains("[Slider]"));
  form.SetRowSlider(2, "-5:5:0.5");
  const QString chosen = ProjectWriter::Compose(form);
  EXPECT_TRUE(chosen.contains("[EndNote](2)\r\n[Slider](2)=-5:5:0.5\r\n\r\n[Tabs][Inequality]\r\n"));
  EXPECT_EQ(QString(chosen).remove("[Slider](2)=-5:5:0.5\r\n"), plain);
}

TEST(ProjectReader, SliderBoundsComeBackOntoTheirRow) {
  project::MemoryProjectForm form;
  core::SharedState state;
  RecordingBoxes boxes;
  const QStringList lines = {"[Function](0)=[255:y=a*x:False,False,False,True,True,0:False]",
                             "[Function](1)=[255:a=2:False,False,False,True,True,0:False]",
                             "[Slider](1)=-5:5:0.5", "[Slider](7)=0:1:0.1", "[Slider](-1)=0:1:0.1"};
  ASSERT_TRUE(ProjectReader(form, state, boxes).LoadBytes(ProjectFile::Encode(lines.join("\r\n") + "\r\n")));
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_EQ(form.HighestRow(), 1);
  EXPECT_EQ(form.RowSlider(0), "");
  EXPECT_EQ(form.RowSlider(1), "-5:5:0.5");
}
