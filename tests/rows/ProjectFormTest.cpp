// Project files on the real main form: every control's value through a save and a load, notes
// with formatting, the file commands with their dialogs and questions, closing, the samples.
#include "core/Tag.h"
#include "core/Twips.h"
#include "interaction/PlotButtons.h"
#include "mathx/MthX.h"
#include "platform/DataFolder.h"
#include "plot2d/PlotWidget.h"
#include "plot3d/Plot3DWidget.h"
#include "rows/ColorButton.h"
#include "rows/FileCommands.h"
#include "rows/FunctionList.h"
#include "rows/InputTabs.h"
#include "rows/frmMain.h"

#include <gtest/gtest.h>

#include "FakeDesktop.h"
#include "MainWindowFixture.h"
#include "QtPrinters.h"
#include "StateSupport.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTextCursor>

namespace {

struct Form : MainWindowFixture {
  rows::InputTabs& Tabs() { return form->Tabs(); }
};

QByteArray Bytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

TEST(ProjectForm, EveryControlComesBack) {
  QTemporaryDir dir;
  const QString path = dir.filePath("all.qlp");
  {
    Form a;
    rows::FunctionList& list = a->Functions();
    list.Row(0).mthFunction->SetText("y=x^2");
    list.AddFunction(false);
    list.Row(1).mthFunction->SetText("r=2q..symb");
    list.Row(1).colrFunction->SetColor(65280);
    core::SetTag(list.Row(1).grpFunction, "True,False,False,True,True,0");
    list.AddFunction(false);
    list.Row(2).rchfunNote->setPlainText("first\nsecond");
    list.Row(2).rchfunNote->show();
    auto& scene = a->Plot().Scene();
    scene.SetXMin(-3), scene.SetXMax(6.5), scene.SetYMin(-2), scene.SetYMax(4);
    scene.SetQuality(55), scene.SetThickness(3), scene.SetAxisColor(255), scene.SetBackColor(15790320);
    a->Buttons().btnLock()->setChecked(true);
    a.Tabs().mnu_Integral_min()->setText("0");
    a.Tabs().mnu_Integral_max()->setText("2*pi");
    auto& inequality = a.Tabs().Inequality();
    inequality.mthInequality(0)->SetText("x^2");
    inequality.cmbInequality(0)->setCurrentIndex(2);
    inequality.chkInequalityTwoEquation()->setChecked(true);
    inequality.InequalityLineColor()->SetColor(1234);
    auto& parametric = a.Tabs().Parametric();
    parametric.mthParametricX()->SetText("cos(3t)");
    parametric.mthParametricY()->SetText("sin(2t)");
    parametric.cmbParametricType()->setCurrentIndex(1);
    parametric.txtThetaMax()->setText("2pi");
    auto& surface = a.Tabs().Surface();
    surface.Editor(1)->SetText("z=sin(x)");
    surface.Editor(2)->SetText("r=2");
    surface.Editor(3)->SetText("u");
    surface.Editor(4)->SetText("v");
    surface.Editor(5)->SetText("u+v");
    surface.cmb3DGrid()->setCurrentIndex(4);
    surface.txt3DZoom()->setText("1.5");
    surface.Tab_3D()->setCurrentIndex(1);
    static_cast<QLineEdit*>(surface.Field("txt_phiMax"))->setText("pi/2");
    a->Plot3D().Scene().SetZMax(7);
    a.Tabs().setCurrentIndex(2);
    a->SaveProject(path);
    EXPECT_TRUE(a.boxes.boxes.empty());
  }
  Form b;
  b.Tabs().Surface().Editor(5)->SetText("kept");
  b->LoadProject(path);
  EXPECT_TRUE(b.boxes.boxes.empty()) << b.boxes.boxes[0].Text.toStdString();
  rows::FunctionList& list = b->Functions();
  ASSERT_EQ(list.HighestIndex(), 2);
  EXPECT_EQ(list.Row(0).mthFunction->Text(), "y=x^2");
  EXPECT_EQ(list.Row(1).mthFunction->Text(), "r=2q..symb");
  EXPECT_EQ(list.Row(1).colrFunction->Color(), 65280);
  EXPECT_EQ(core::Tag(list.Row(1).grpFunction), "True,False,False,True,True,0,True,0");
  EXPECT_FALSE(list.Row(2).rchfunNote->isHidden());
  EXPECT_TRUE(list.Row(2).mthFunction->isHidden());
  EXPECT_EQ(list.Row(2).rchfunNote->toPlainText(), "\nfirst\nsecond");
  const auto& scene = b->Plot().Scene();
  EXPECT_EQ(scene.XMin(), -3);
  EXPECT_EQ(scene.XMax(), 6.5);
  EXPECT_EQ(scene.Quality(), 55);
  EXPECT_EQ(scene.Thickness(), 3);
  EXPECT_EQ(scene.AxisColor(), 255);
  EXPECT_EQ(scene.BackColor(), 15790320);
  EXPECT_TRUE(b->Buttons().btnLock()->isChecked());
  EXPECT_FALSE(scene.Interactive()) << "the lock restored from the project";
  EXPECT_EQ(b->StatusText(9004), "Quality: 55");
  EXPECT_EQ(b.Tabs().mnu_Integral_max()->text(), "2*pi");
  EXPECT_EQ(b.Tabs().Inequality().mthInequality(0)->Text(), "x^2");
  EXPECT_EQ(b.Tabs().Inequality().cmbInequality(0)->currentText(), ">=");
  EXPECT_TRUE(b.Tabs().Inequality().chkInequalityTwoEquation()->isChecked());
  EXPECT_EQ(b.Tabs().Inequality().InequalityLineColor()->Color(), 1234);
  EXPECT_EQ(b.Tabs().Parametric().mthParametricX()->Text(), "cos(3t)");
  EXPECT_EQ(b.Tabs().Parametric().cmbParametricType()->currentText(), "Polar");
  EXPECT_EQ(b.Tabs().Parametric().txtThetaMax()->text(), "2pi");
  EXPECT_EQ(core::Tag(b.Tabs().Parametric().mthParametricX()), "\"");
  EXPECT_EQ(b.Tabs().Surface().Text("mth_3D_Function"), "z=sin(x)");
  EXPECT_EQ(b.Tabs().Surface().Text("mth_3D_Para_y"), "v");
  EXPECT_EQ(b.Tabs().Surface().Text("mth_3D_Para_z"), "u+v") << "the z field comes back under the writer's key";
  EXPECT_EQ(b.Tabs().Surface().cmb3DGrid()->currentText(), "Grid: 150x150");
  EXPECT_EQ(b.Tabs().Surface().txt3DZoom()->text(), "1.5");
  EXPECT_EQ(b.Tabs().Surface().Tab_3D()->currentIndex(), 1);
  EXPECT_EQ(b.Tabs().Surface().Text("txt_phiMax"), "pi/2");
  EXPECT_EQ(b->Plot3D().Scene().ZMax(), 7);
  EXPECT_EQ(b.Tabs().currentIndex(), 2);
  EXPECT_FALSE(b.state.ProjectChanged);
}

TEST(ProjectForm, AFormattedNoteIsStoredAsRichText) {
  QTemporaryDir dir;
  const QString path = dir.filePath("note.qlp");
  {
    Form a;
    QTextEdit* note = a->Functions().Row(0).rchfunNote;
    note->setPlainText("Bold words");
    QTextCursor cursor(note->document());
    cursor.movePosition(QTextCursor::NextWord, QTextCursor::KeepAnchor);
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    cursor.mergeCharFormat(bold);
    a->SaveProject(path);
  }
  const QByteArray bytes = Bytes(path);
  EXPECT_TRUE(bytes.contains("[Note](0)\r\n{\\rtf1"));
  Form b;
  b->LoadProject(path);
  EXPECT_TRUE(b.boxes.boxes.empty());
  QTextEdit* note = b->Functions().Row(0).rchfunNote;
  EXPECT_EQ(note->toPlainText(), "Bold words");
  QTextCursor cursor(note->document());
  cursor.setPosition(2);
  EXPECT_EQ(cursor.charFormat().fontWeight(), QFont::Bold);
  cursor.setPosition(8);
  EXPECT_NE(cursor.charFormat().fontWeight(), QFont::Bold);
}

TEST(ProjectForm, TextsBeyondWindows1252AreKeptAsUtf8) {
  QTemporaryDir dir;
  const QString path = dir.filePath("utf8.qlp");
  {
    Form a;
    a->Functions().Row(0).mthFunction->SetText("y=x");
    a->Functions().Row(0).rchfunNote->setPlainText("\u03b1 \u2264 \u03c0 and caf\u00e9");
    a->SaveProject(path);
  }
  EXPECT_TRUE(Bytes(path).contains(QString("\u03b1 \u2264 \u03c0").toUtf8()));
  Form b;
  b->LoadProject(path);
  EXPECT_EQ(b->Functions().Row(0).rchfunNote->toPlainText(), "\n\u03b1 \u2264 \u03c0 and caf\u00e9");
  // Windows-1252 when nothing needs more.
  {
    Form c;
    c->Functions().Row(0).rchfunNote->setPlainText("caf\u00e9");
    c->SaveProject(path);
  }
  EXPECT_TRUE(Bytes(path).contains("caf\xe9"));
}

TEST(ProjectForm, SaveWithAFileAndNoChangesDoesNothing) {
  Form f;
  QTemporaryDir dir;
  f.state.ProjectPath = dir.filePath("none.qlp");
  f->Files().Save();
  EXPECT_TRUE(f.files.shown.empty());
  EXPECT_TRUE(f.boxes.boxes.empty());
  EXPECT_FALSE(QFile::exists(f.state.ProjectPath));
  f->Functions().Row(0).mthFunction->SetText("y=x");
  f->Files().Save();
  EXPECT_TRUE(QFile::exists(f.state.ProjectPath));
  EXPECT_FALSE(f.state.ProjectChanged);
}

TEST(ProjectForm, SaveWithoutAFileAndSaveAsAskForAName) {
  Form f;
  QTemporaryDir dir;
  f.files.names = {dir.filePath("first.qlp")};
  f->Files().Save();
  ASSERT_EQ(f.files.shown.size(), 1u);
  EXPECT_EQ(f.files.shown[0].Title, "Save Project...");
  EXPECT_EQ(f.files.shown[0].Filter, "Quillograph Project File(*.qlp) |*.qlp|QLFN Project File(*.QlFn) |*.qlfn|"
                                     "Function(*.Fun) |*.fun|Text files(*.txt)|*.txt| All files(*.*)| *.*");
  EXPECT_TRUE(f.files.shown[0].Save);
  EXPECT_EQ(f.state.ProjectPath, dir.filePath("first.qlp"));
  EXPECT_TRUE(QFile::exists(dir.filePath("first.qlp")));
  f.files.names = {dir.filePath("second.qlp")};
  f->SaveThisFile();
  EXPECT_EQ(f.files.shown.size(), 2u);
  EXPECT_EQ(f.files.shown[1].Initial, dir.filePath("first.qlp"));
  EXPECT_EQ(f->windowTitle(), "Quillograph - second.qlp");
  // A cancelled dialog says nothing.
  f->SaveThisFile();
  EXPECT_TRUE(f.boxes.boxes.empty());
}

TEST(ProjectForm, TheOverwriteQuestion) {
  Form f;
  QTemporaryDir dir;
  const QString existing = dir.filePath("existing.qlp");
  QFile(existing).open(QIODevice::WriteOnly);
  f.state.ProjectPath = dir.filePath("mine.qlp");
  // No: the dialog again, from the project's own name; then Yes.
  f.files.names = {existing, existing};
  f.boxes.answers = {platform::MessageBoxes::Answer::No, platform::MessageBoxes::Answer::Yes};
  f->SaveThisFile();
  ASSERT_EQ(f.boxes.boxes.size(), 2u);
  EXPECT_EQ(f.boxes.boxes[0].Text, "File is already exsit, overwrite the file?");
  EXPECT_EQ(f.boxes.boxes[0].Title, "Overwrite - [Msg-0003]");
  EXPECT_EQ(f.boxes.boxes[0].Shown, platform::MessageBoxes::Buttons::YesNoCancel);
  EXPECT_EQ(f.boxes.boxes[0].Kind, platform::MessageBoxes::Icon::Question);
  ASSERT_EQ(f.files.shown.size(), 2u);
  EXPECT_EQ(f.files.shown[1].Initial, dir.filePath("mine.qlp"));
  EXPECT_EQ(f.state.ProjectPath, existing);
  EXPECT_GT(Bytes(existing).size(), 100);
  // Cancel: nothing saved.
  const QString other = dir.filePath("other.qlp");
  QFile(other).open(QIODevice::WriteOnly);
  f.files.names = {other};
  f.boxes.answers = {platform::MessageBoxes::Answer::Cancel};
  f->SaveThisFile();
  EXPECT_EQ(Bytes(other).size(), 0);
  EXPECT_EQ(f.state.ProjectPath, existing);
}

TEST(ProjectForm, OpeningAFileThatFailsKeepsTheProjectAndItsName) {
  Form f;
  QTemporaryDir dir;
  const QString broken = dir.filePath("broken.qlp");
  QFile file(broken);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("[3D][xMin]=abc\r\n");
  file.close();
  f.files.names = {broken};
  f->OpenThisFile();
  ASSERT_EQ(f.files.shown.size(), 1u);
  EXPECT_EQ(f.files.shown[0].Title, "Open Project...");
  EXPECT_EQ(f.files.shown[0].Filter, "All supported files (*.qlp, *.QlFn)|*.qlp;*.Qlfn|Quillograph Project File(*.qlp) "
                                     "|*.qlp|QLFN Project File(*.QlFn) |*.qlfn|Function File(*.Fun) |*.fun|Text "
                                     "files(*.txt)|*.txt| All files(*.*)| *.*");
  EXPECT_FALSE(f.files.shown[0].Save);
  EXPECT_EQ(f.state.ProjectPath, "") << "a later Save must not write over a file that was not read";
  ASSERT_EQ(f.boxes.boxes.size(), 1u);
  EXPECT_EQ(f.boxes.boxes[0].Title, "Err-[0014]");
  // A cancelled dialog changes nothing.
  f->OpenThisFile();
  EXPECT_EQ(f.state.ProjectPath, "");
}

TEST(ProjectForm, ClosingAsksOnlyWhenThereAreChanges) {
  QTemporaryDir dir;
  {
    Form f;
    f->show();
    EXPECT_TRUE(f->close());
    EXPECT_TRUE(f.boxes.boxes.empty());
  }
  {
    Form f;
    f->show();
    f->Functions().Row(0).mthFunction->SetText("y=x");
    f.boxes.answers = {platform::MessageBoxes::Answer::Cancel};
    EXPECT_FALSE(f->close());
    ASSERT_EQ(f.boxes.boxes.size(), 1u);
    EXPECT_EQ(f.boxes.boxes[0].Text, "Do you want to save changes you made?");
    EXPECT_EQ(f.boxes.boxes[0].Title, "Unsaved file - [Msg-0006]");
    EXPECT_EQ(f.boxes.boxes[0].Shown, platform::MessageBoxes::Buttons::YesNoCancel);
    EXPECT_EQ(f->Functions().Row(0).mthFunction->Text(), "y=x");
    // Yes with a file: saved, then closed.
    f.state.ProjectPath = dir.filePath("closing.qlp");
    f.boxes.answers = {platform::MessageBoxes::Answer::Yes};
    EXPECT_TRUE(f->close());
    EXPECT_TRUE(QFile::exists(dir.filePath("closing.qlp")));
  }
  {
    Form f;
    f->show();
    f->Functions().Row(0).mthFunction->SetText("y=x");
    f.boxes.answers = {platform::MessageBoxes::Answer::Yes};
    f.files.names = {std::nullopt};  // Yes without a file, and the dialog cancelled: the window stays
    EXPECT_FALSE(f->close());
    EXPECT_EQ(f.files.shown.size(), 1u);
  }
  {
    Form f;
    f->show();
    f->Functions().Row(0).mthFunction->SetText("y=x");
    f.state.ProjectPath = dir.filePath("after.qlp");
    f->SaveProject(f.state.ProjectPath);
    EXPECT_TRUE(f->close()) << "closing after a save does not ask";
    EXPECT_TRUE(f.boxes.boxes.empty());
  }
}

TEST(ProjectForm, EverySampleLoadsWithoutAMessage) {
  const QStringList samples = QDir(platform::DataFolder() + "/Functions").entryList({"*.qlfn"}, QDir::Files);
  EXPECT_EQ(samples.size(), 24);
  Form f;
  for (const QString& sample : samples) {
    f.boxes.boxes.clear();
    f->LoadProject(platform::DataFile("Functions/" + sample));
    EXPECT_TRUE(f.boxes.boxes.empty()) << sample.toStdString() << ": " << f.boxes.boxes[0].Text.toStdString();
    EXPECT_FALSE(f.state.ProjectChanged) << sample.toStdString();
  }
}

TEST(ProjectForm, ALoadedListIsLaidOutAndAFailedOneIsLeftAlone) {
  QTemporaryDir dir;
  for (bool broken : {false, true}) {
    QString text;
    for (int i = 0; i < 30; ++i) text += QStringLiteral("[Function](%1)=[255:y=%1x:False:False:False]\r\n").arg(i);
    if (broken) text += "[3D][xMin]=abc\r\n";
    const QString path = dir.filePath(broken ? "broken.qlp" : "long.qlp");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text.toLatin1());
    file.close();
    Form f;
    f->show();
    EXPECT_EQ(f->LoadProject(path), !broken);
    rows::FunctionList& list = f->Functions();
    if (broken) {
      EXPECT_EQ(list.HighestIndex(), 0) << "a file that fails reaches no row";
      continue;
    }
    ASSERT_EQ(list.HighestIndex(), 29);
    for (int i = 1; i <= 29; ++i) {
      EXPECT_EQ(list.Row(i).Top, list.Row(i - 1).Top + list.Row(i - 1).Height) << i;
      EXPECT_EQ(list.Row(i).grpFunction->y(), core::Px(list.Row(i).Top)) << i;
    }
    EXPECT_FALSE(list.scrlFunctions()->isHidden());
    EXPECT_EQ(list.scrlFunctions()->value(), list.scrlFunctions()->maximum()) << "scrolled to the last row added";
  }
}

// A new window saved at once writes the surfaces that a new file has.
TEST(ProjectForm, AFreshFormHoldsTheFreshSurfaces) {
  QTemporaryDir dir;
  const QString path = dir.filePath("fresh.qlp");
  Form f;
  ASSERT_TRUE(f->SaveProject(path));
  const QByteArray bytes = Bytes(path);
  for (const char* line : {"[3D][Function]=z=x+y\r\n", "[3D][Polar]=\r\n", "[3D][Para][X]=\r\n", "[3D][Para][Y]=u*v\r\n",
                           "[3D][Para][Z]=u+v\r\n"}) {
    EXPECT_TRUE(bytes.contains(line)) << line;
  }
}
