// The main window's commands by id, the row's context menu, the ribbon's start.
#include "core/Tag.h"
#include "interaction/StatusPanes.h"
#include "mathx/MthX.h"
#include "platform/DataFolder.h"
#include "plot2d/PlotWidget.h"
#include "plot3d/Plot3D.h"
#include "plot3d/Plot3DWidget.h"
#include "rows/SurfacePage.h"
#include "core/NumberText.h"
#include "ribbon/RibbonBar.h"
#include "rows/ColorButton.h"
#include "rows/CommandDispatch.h"
#include "rows/FunctionList.h"
#include "rows/InputTabs.h"
#include "rows/RowMenu.h"
#include "rows/frmMain.h"

#include <gtest/gtest.h>

#include "help/HelpWindow.h"

#include <QFileInfo>
#include <QLabel>
#include <QTextBrowser>

#include "FakeDesktop.h"
#include "MainWindowFixture.h"
#include "QtPrinters.h"
#include "StateSupport.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QTest>
#include <QImageReader>
#include <QJsonDocument>
#include <QMenu>
#include <QStyle>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTextEdit>

namespace {

struct Window : MainWindowFixture {
  Window() {
    form->FunctionMenu().Popup = [this](QMenu& menu, const QPoint&) { shownMenu = static_cast<int>(menu.actions().size()); };
  }
  ribbon::CommandControl& Control(std::int32_t id) {
    ribbon::CommandControl* control = form->CommandBars().FindControl(id);
    EXPECT_NE(control, nullptr) << id;
    return *control;
  }
  // A command of row i's menu, as the menu runs it after opening for that row.
  void RunOnRow(int i, std::int32_t id) {
    form->FunctionMenu().Prepare(i);
    Run(id);
  }
  QString Attributes(int i) { return core::Tag(Rows().Row(i).grpFunction); }

  int shownMenu = 0;
};

struct MenuState {
  QString points;  // 1174's caption, "" when hidden
  QString remove;  // 1107's caption
  bool exclusive;  // 1130 and 1133
  bool curve;      // 1132, 1172, 1173
  QString shownPoints;  // 1162's caption when shown, "" when hidden
  bool visibility;      // 1169
};

MenuState Read(Window& w) {
  rows::RowMenu& m = w->FunctionMenu();
  const auto shown = [&](std::int32_t id) { return m.Item(id)->Visible(); };
  return {shown(1174) ? m.Item(1174)->Caption() : QString(),
          m.Item(1107)->Caption(),
          shown(1130) && shown(1133),
          shown(1132) && shown(1172) && shown(1173),
          shown(1162) ? m.Item(1162)->Caption() : QString(),
          shown(1169)};
}

}  // namespace

TEST(RowMenu, TheMenuByKindOfRow) {
  Window w;
  w.Fill({"y=x^2", "declare(y=x,x>0)", "[x,y;1,2]", "command==>[showgrid]", "", "y=sin(x)"});
  w.Rows().Row(5).rchfunNote->show();
  struct Case {
    int row;
    MenuState expected;
  };
  const Case cases[] = {
      {0, {"Evaluate Points", "Remove This Function", true, true, "", true}},
      {1, {"Evaluate Points", "Remove This Function", true, false, "Show Point(s).", true}},
      {2, {"Change Points", "Remove This Point", false, false, "Point(s) is solution.", true}},
      {3, {"", "Remove This Function", false, false, "", false}},
      {4, {"Add Points", "Remove This Function", false, false, "", false}},
      {5, {"", "Remove This Note", false, false, "", false}},
  };
  for (const Case& c : cases) {
    w->FunctionMenu().Prepare(c.row);
    const MenuState s = Read(w);
    EXPECT_EQ(s.points, c.expected.points) << c.row;
    EXPECT_EQ(s.remove, c.expected.remove) << c.row;
    EXPECT_EQ(s.exclusive, c.expected.exclusive) << c.row;
    EXPECT_EQ(s.curve, c.expected.curve) << c.row;
    EXPECT_EQ(s.shownPoints, c.expected.shownPoints) << c.row;
    EXPECT_EQ(s.visibility, c.expected.visibility) << c.row;
    EXPECT_TRUE(w->FunctionMenu().Item(1135)->Visible());
    EXPECT_EQ(w->FunctionMenu().Item(1135)->Checked(), c.row == 5);
    EXPECT_EQ(w->FunctionMenu().Tag(), QString::number(c.row));
  }
}

// Each row's menu reads that row's own note: a note in row 0 says nothing of the rows under it.
TEST(RowMenu, EachRowsOwnNoteSpeaksForIt) {
  Window w;
  w.Fill({"y=x", "y=2x", "[x,y;1,2]", "y=3x"});
  w.Rows().Row(0).rchfunNote->show();
  for (int row : {1, 3}) {
    w->FunctionMenu().Prepare(row);
    EXPECT_EQ(w->FunctionMenu().Item(1107)->Caption(), "Remove This Function") << row;
    EXPECT_TRUE(w->FunctionMenu().Item(1174)->Visible()) << row;
  }
  w.Rows().Row(3).rchfunNote->show();
  w->FunctionMenu().Prepare(3);
  EXPECT_EQ(w->FunctionMenu().Item(1107)->Caption(), "Remove This Note");
  EXPECT_FALSE(w->FunctionMenu().Item(1174)->Visible());
  w->FunctionMenu().Prepare(0);
  EXPECT_EQ(w->FunctionMenu().Item(1107)->Caption(), "Remove This Note");
  w->FunctionMenu().Prepare(2);
  EXPECT_EQ(w->FunctionMenu().Item(1107)->Caption(), "Remove This Point");
  EXPECT_EQ(w->FunctionMenu().Item(1162)->Caption(), "Point(s) is solution.");
  EXPECT_TRUE(w->FunctionMenu().Item(1162)->Visible());
}

// The menu as the program shows it, in its own look: the picture, and where each item is.
struct ShownMenu {
  QImage Picture;
  std::map<int, QAction*> Actions;
  std::map<int, QRect> Places;
};

ShownMenu OpenMenu(Window& w, int row) {
  ShownMenu shown;
  QFile sheet(platform::DataFile(QStringLiteral("Ribbon/Quillograph.qss")));
  EXPECT_TRUE(sheet.open(QIODevice::ReadOnly));
  const QString look = QString::fromUtf8(sheet.readAll()).replace(QStringLiteral("%DATA%"), platform::DataFolder());
  std::unique_ptr<QStyle> fusion(QStyleFactory::create(QStringLiteral("Fusion")));
  w->FunctionMenu().Popup = [&](QMenu& menu, const QPoint&) {
    menu.setStyle(fusion.get());
    menu.setStyleSheet(look);
    menu.adjustSize();
    for (QAction* action : menu.actions()) {
      const int id = action->property("commandId").toInt();
      shown.Actions[id] = action;
      shown.Places[id] = menu.actionGeometry(action);
    }
    shown.Picture = menu.grab().toImage();
    for (auto& [id, action] : shown.Actions) shown.Actions[id] = nullptr;  // gone with the menu
  };
  w.Rows().Row(row).btnMore->click();
  return shown;
}

// The Visible and Note items show their check marks as the row is: the items are checkable and
// the picture of a checked item differs from an unchecked one.
TEST(RowMenu, VisibleAndNoteShowTheirCheckMarks) {
  Window w;
  w.Fill({"y=x", "y=2x", "y=3x"});
  core::SetTag(w.Rows().Row(1).grpFunction, "False,False,False,True,False,0");  // hidden
  w.Rows().Row(2).rchfunNote->show();
  for (std::int32_t id : {1169, 1135}) EXPECT_EQ(w.Control(id).Kind(), ribbon::ControlKind::CheckBox) << id;
  const ShownMenu drawn = OpenMenu(w, 0), hidden = OpenMenu(w, 1), note = OpenMenu(w, 2);
  EXPECT_TRUE(w->FunctionMenu().Item(1135)->Checked());
  // The same item of two menus, over the width both have (a menu is as wide as its longest item).
  const auto same = [](const ShownMenu& a, const ShownMenu& b, int id, const ShownMenu& which) {
    const QRect place = which.Places.at(id);
    const int width = std::min(a.Places.at(id).width(), b.Places.at(id).width());
    return which.Picture.copy(QRect(place.topLeft(), QSize(width, place.height())));
  };
  const auto item = [&](const ShownMenu& m, int id, const ShownMenu& other) { return same(m, other, id, m); };
  EXPECT_NE(item(drawn, 1169, hidden), item(hidden, 1169, drawn)) << "the Visible item looks the same checked and not";
  EXPECT_NE(item(drawn, 1135, note), item(note, 1135, drawn)) << "the Note item looks the same checked and not";
}

// The note's font from the row's menu: shown on a note row, and firing it opens the font dialog
// on the note's selection as the note's own menu does.
TEST(RowMenu, TheNoteFontFromTheRowsMenu) {
  Window w;
  w.Fill({"y=x", "y=2x"});
  QTextEdit* note = w.Rows().Row(1).rchfunNote;
  note->show();
  w->FunctionMenu().Prepare(0);
  ASSERT_NE(w->FunctionMenu().Item(1161), nullptr);
  EXPECT_FALSE(w->FunctionMenu().Item(1161)->Visible());
  w->FunctionMenu().Prepare(1);
  EXPECT_TRUE(w->FunctionMenu().Item(1161)->Visible());
  note->selectAll();
  QFont chosen(QStringLiteral("Serif"), 21);
  chosen.setBold(true);
  w.desktop.font = chosen;
  w.Run(1161);
  EXPECT_EQ(w.desktop.fontAsked.size(), 1u);
  EXPECT_TRUE(w.boxes.boxes.empty());
  EXPECT_EQ(note->textCursor().charFormat().fontPointSize(), 21);
  EXPECT_TRUE(note->textCursor().charFormat().font().bold());
}

TEST(RowMenu, MovingItemsByPlaceInTheList) {
  Window w;
  w->FunctionMenu().Prepare(0);
  for (int id : {1134, 1108, 1109}) EXPECT_FALSE(w->FunctionMenu().Item(id)->Visible()) << id;
  w.Fill({"y=x", "y=2x", "y=3x"});
  w->FunctionMenu().Prepare(0);
  EXPECT_FALSE(w->FunctionMenu().Item(1108)->Visible());
  EXPECT_TRUE(w->FunctionMenu().Item(1109)->Visible());
  EXPECT_TRUE(w->FunctionMenu().Item(1109)->BeginGroup());
  w->FunctionMenu().Prepare(2);
  EXPECT_TRUE(w->FunctionMenu().Item(1108)->Visible());
  EXPECT_FALSE(w->FunctionMenu().Item(1109)->Visible());
  EXPECT_TRUE(w->FunctionMenu().Item(1134)->Visible());
  w->FunctionMenu().Prepare(1);
  EXPECT_FALSE(w->FunctionMenu().Item(1109)->BeginGroup());
}

TEST(RowMenu, CheckMarksComeFromTheRow) {
  Window w;
  w.Fill({"y=x", "y=2x"});
  core::SetTag(w.Rows().Row(0).grpFunction, "True,False,False,False,True,2");
  w->FunctionMenu().Prepare(0);
  EXPECT_TRUE(w->FunctionMenu().Item(1130)->Checked());
  EXPECT_FALSE(w->FunctionMenu().Item(1162)->Checked());
  EXPECT_TRUE(w->FunctionMenu().Item(1173)->Checked());
  EXPECT_FALSE(w->FunctionMenu().Item(1172)->Checked());
  w->FunctionMenu().Prepare(1);
  EXPECT_FALSE(w->FunctionMenu().Item(1130)->Checked());
  EXPECT_TRUE(w->FunctionMenu().Item(1162)->Checked());
  EXPECT_FALSE(w->FunctionMenu().Item(1173)->Checked());
  // The button shows the menu for its row, and the active row follows.
  w.Rows().Row(1).btnMore->click();
  EXPECT_GT(w.shownMenu, 5);
  EXPECT_EQ(w.Rows().ActiveRow(), 1);
}

TEST(Commands, TheExclusiveFlagsAndTheModes) {
  Window w;
  w.Fill({"y=x"});
  w.RunOnRow(0, 1130);
  EXPECT_EQ(w.Attributes(0), "True,False,False,True,True,0");
  EXPECT_TRUE(w.state.ProjectChanged);
  w.RunOnRow(0, 1133);
  EXPECT_EQ(w.Attributes(0), "False,False,True,True,True,0");
  EXPECT_FALSE(w.Control(1130).Checked());
  w.RunOnRow(0, 1172);
  EXPECT_EQ(w.Attributes(0), "False,False,False,True,True,1");
  w.RunOnRow(0, 1172);
  EXPECT_EQ(w.Attributes(0), "False,False,False,True,True,0");
  w.RunOnRow(0, 1173);
  EXPECT_EQ(w.Attributes(0), "False,False,False,True,True,2");
  w.RunOnRow(0, 1132);
  EXPECT_EQ(w.Attributes(0), "False,True,False,True,True,0");
}

TEST(Commands, PointsAndVisibility) {
  Window w;
  w.Fill({"y=x"});
  core::SetTag(w.Rows().Row(0).grpFunction, "True,False,False,True,True,1,True,0");
  w.RunOnRow(0, 1162);
  EXPECT_EQ(w.Attributes(0), "True,False,False,False,True,1");
  w.RunOnRow(0, 1169);
  EXPECT_EQ(w.Attributes(0), "True,False,False,False,False,1");
  EXPECT_FALSE(w.Rows().Row(0).imgInvisible->isHidden());
  EXPECT_TRUE(w.Rows().Row(0).colrFunction->isHidden());
  w.RunOnRow(0, 1169);
  EXPECT_TRUE(w.Rows().Row(0).imgInvisible->isHidden());
  // Fewer than six fields stop the command with a box.
  core::SetTag(w.Rows().Row(0).grpFunction, "True,False");
  w.RunOnRow(0, 1162);
  ASSERT_FALSE(w.boxes.boxes.empty());
  EXPECT_EQ(w.boxes.boxes.back().Title, "Ribbon error - [Err-0015]");
  EXPECT_EQ(w.boxes.boxes.back().Text, "Subscript out of range");
}

TEST(Commands, NoteAndBack) {
  Window w;
  w.Fill({"y=x", "y=2x"});
  w.RunOnRow(1, 1135);
  EXPECT_FALSE(w.Rows().Row(1).rchfunNote->isHidden());
  EXPECT_TRUE(w.Rows().Row(1).mthFunction->isHidden());
  EXPECT_TRUE(w.Rows().Row(1).colrFunction->isHidden());
  EXPECT_FALSE(w.Rows().Row(1).imgInvisible->isHidden());
  w.RunOnRow(1, 1135);
  EXPECT_TRUE(w.Rows().Row(1).rchfunNote->isHidden());
  EXPECT_FALSE(w.Rows().Row(1).mthFunction->isHidden());
  EXPECT_EQ(core::Tag(w.Rows().Row(1).mthFunction), "");
}

TEST(Commands, RemovingAndMovingRows) {
  Window w;
  w.Fill({"y=1", "y=2", "y=3"});
  w.RunOnRow(0, 1108);  // the first row has no row above
  EXPECT_EQ(w.Rows().Row(0).mthFunction->Text(), "y=1");
  w.RunOnRow(2, 1109);  // nor the last one below
  EXPECT_EQ(w.Rows().Row(2).mthFunction->Text(), "y=3");
  w.RunOnRow(1, 1108);
  EXPECT_EQ(w.Rows().Row(0).mthFunction->Text(), "y=2");
  w.RunOnRow(0, 1109);
  EXPECT_EQ(w.Rows().Row(1).mthFunction->Text(), "y=2");
  w.RunOnRow(2, 1107);
  EXPECT_EQ(w.Rows().HighestIndex(), 1);
  EXPECT_EQ(w->Plot().Scene().LastDrawing().Curves.size(), 2u) << "the command's own replot";
}

TEST(Commands, SaveSaveAsAndOpen) {
  Window w;
  QTemporaryDir dir;
  w.Run(57603);  // no file: as Save As
  ASSERT_EQ(w.files.shown.size(), 1u);
  EXPECT_EQ(w.files.shown[0].Title, "Save Project...");
  w.Run(57604);
  EXPECT_EQ(w.files.shown.size(), 2u);
  w.Run(57601);
  EXPECT_EQ(w.files.shown.back().Title, "Open Project...");
  w.state.ProjectPath = dir.filePath("p.qlp");
  w.state.ProjectChanged = false;
  w.Run(57603);
  EXPECT_FALSE(QFile::exists(w.state.ProjectPath)) << "a file and no changes: nothing";
  w.Rows().Row(0).mthFunction->SetText("y=x");
  w.Run(57603);
  EXPECT_TRUE(QFile::exists(w.state.ProjectPath));
  for (int id : {57607, 57665, 9604}) w.Run(id);
  EXPECT_TRUE(w.boxes.boxes.empty());
}

TEST(Commands, NewStartsAnotherWindowMinimised) {
  Window w;
  w.Run(57600);
  ASSERT_EQ(w.desktop.started.size(), 1u);
  EXPECT_EQ(w.desktop.started[0].second, platform::Desktop::Window::Minimised);
}

TEST(Commands, PicturesByTheirKind) {
  Window w;
  QTemporaryDir dir;
  w.Run(1024);  // cancelled: nothing
  EXPECT_TRUE(w.boxes.boxes.empty());
  EXPECT_EQ(w.files.shown.back().Title, "Save graph as picture...");
  EXPECT_EQ(w.files.shown.back().Filter, "PNG File (*.png) | *.png|All Files (*.*)|*.*");
  w.files.names = {dir.filePath("a.png")};
  w.Run(1024);
  EXPECT_EQ(QImage(dir.filePath("a.png")).format() != QImage::Format_Invalid, true);
  w.files.names = {dir.filePath("b.jpg")};
  w.Run(1025);
  EXPECT_EQ(w.files.shown.back().Filter, "JPG File (*.jpg) | *.jpg|All Files (*.*)|*.*");
  EXPECT_TRUE(QFile::exists(dir.filePath("b.jpg")));
  w.files.names = {dir.filePath("c.bmp")};
  w.Run(1030);
  EXPECT_EQ(w.files.shown.back().Filter, "BMP File (*.bmp) | *.bmp|All Files (*.*)|*.*");
  w.files.names = {dir.filePath("d.jpg.png")};
  w.Run(3006);
  EXPECT_EQ(w.files.shown.back().Filter,
            "PNG File (*.png) | *.png|Jpeg file (*.jpg)| *.jpg|Bitmap image (*.bmp)| *.bmp|All Files (*.*)|*.*");
  EXPECT_EQ(QImageReader(dir.filePath("d.jpg.png")).format(), "png");
  // A name with no ending it knows, or one in capitals only: kind 0, the plot's own choice.
  w.files.names = {dir.filePath("e.PNG")};
  w.Run(3006);
  EXPECT_TRUE(QFile::exists(dir.filePath("e.PNG")));
  EXPECT_TRUE(w.boxes.boxes.empty());
}

TEST(Commands, TogglesAndTheirRedraw) {
  Window w;
  auto& plot = w->Plot().Scene();
  const bool grid = plot.ShowGrid();
  EXPECT_EQ(w.Control(1088).Checked(), grid);
  w.Run(1088);
  EXPECT_EQ(plot.ShowGrid(), !grid);
  EXPECT_EQ(w.Control(1088).Checked(), !grid);
  w.Run(1092);
  EXPECT_TRUE(plot.ShowMouseCoordinate());
  for (int id : {1086, 1087, 1089, 1090, 1124}) {
    const bool before = w.Control(id).Checked();
    w.Run(id);
    EXPECT_EQ(w.Control(id).Checked(), !before) << id;
  }
  EXPECT_FALSE(w.state.ProjectChanged) << "display toggles leave the project clean";
}

TEST(Commands, PanningReturnsAndZoomingByPage) {
  Window w;
  auto& plot = w->Plot().Scene();
  plot.SetXMin(-3), plot.SetXMax(5), plot.SetYMin(-1), plot.SetYMax(7);
  w.Run(1066);
  EXPECT_EQ(plot.XMin(), -2);
  EXPECT_EQ(plot.XMax(), 6);
  w.Run(1067);
  EXPECT_EQ(plot.XMin(), -3);
  EXPECT_EQ(plot.XMax(), 5);
  w.Run(1068);
  w.Run(1069);
  EXPECT_EQ(plot.YMin(), -1);
  EXPECT_EQ(plot.YMax(), 7);
  w.Run(1072);
  EXPECT_EQ(plot.XMax() - plot.XMin(), 16);
  w.Run(1071);
  EXPECT_EQ(plot.XMax() - plot.XMin(), 8);
  w.Run(1073);
  EXPECT_EQ(plot.XMin(), plot.DefaultXMin());
}

// On the 3D page the zoom commands and their keys zoom the surface, not the hidden 2D plot, and
// the zoom field follows so that the next drawing keeps the zoom.
TEST(Commands, ZoomingOnThe3DPageZoomsTheSurface) {
  Window w;
  w->show();
  auto& plot = w->Plot().Scene();
  auto& surface = w->Plot3D().Scene();
  QLineEdit* field = w->Tabs().Surface().txt3DZoom();
  w->Tabs().setCurrentIndex(3);
  const double width = plot.XMax() - plot.XMin();
  const struct {
    const char* how;
    std::function<void()> fire;
    double zoom;
  } steps[] = {
      {"1071", [&] { w.Run(1071); }, 1.25},
      {"1071 again", [&] { w.Run(1071); }, 1.56},
      {"1072", [&] { w.Run(1072); }, 1.25},
      {"Ctrl+-", [&] { QTest::keyClick(w.form.get(), Qt::Key_Minus, Qt::ControlModifier); }, 1},
      {"Ctrl++", [&] { QTest::keyClick(w.form.get(), Qt::Key_Plus, Qt::ControlModifier); }, 1.25},
  };
  QApplication::setActiveWindow(w.form.get());
  for (const auto& step : steps) {
    step.fire();
    EXPECT_DOUBLE_EQ(surface.Zoom(), step.zoom) << step.how;
    EXPECT_EQ(field->text(), core::FormatNumber(step.zoom)) << step.how;
    EXPECT_EQ(plot.XMax() - plot.XMin(), width) << step.how;
  }
  // A drawing reads the field and keeps what the keys did.
  w->Replot(true);
  EXPECT_DOUBLE_EQ(surface.Zoom(), 1.25);
  EXPECT_TRUE(w.boxes.boxes.empty());
}

TEST(Commands, ColoursAndSlidersKeepTheirSettings) {
  Window w;
  auto& plot = w->Plot().Scene();
  w.Control(1042).SetColor(65535);
  w.Run(1042);
  EXPECT_EQ(plot.BackColor(), 65535);
  EXPECT_EQ(w.settings.values["Settings/Backcolor"], "65535");
  w.Control(1044).SetColor(128);
  w.Run(1044);
  EXPECT_EQ(w.settings.values["Settings/Axiscolor"], "128");
  w.Control(1122).SetPos(5);
  w.Run(1122);
  EXPECT_EQ(plot.Thickness(), 5);
  EXPECT_EQ(w.settings.values["Settings/Thickness"], "5");
  EXPECT_EQ(w.Control(1121).Caption(), "5");
  w.Control(1113).SetPos(40);
  w.Run(1113);
  EXPECT_EQ(plot.Quality(), 40);
  EXPECT_EQ(w.Control(1119).Caption(), "40");
  EXPECT_FALSE(w.settings.values.contains("Settings/Quality")) << "quality is only read";
}

TEST(Commands, ZoomTypes) {
  Window w;
  w.Run(1127);
  EXPECT_EQ(w->Plot().Scene().ZoomType(), 1);
  EXPECT_EQ(w.Control(1126).Caption(), "Zoom: X");
  w.Run(1128);
  EXPECT_EQ(w.Control(1126).Caption(), "Zoom: Y");
  w.Run(1129);
  EXPECT_EQ(w->Plot().Scene().ZoomType(), 3);
}

TEST(Commands, AMissingToolSaysSo) {
  Window w;
  w.desktop.startError = "No such file or directory";
  w.Run(1054);
  ASSERT_EQ(w.boxes.boxes.size(), 1u);
  EXPECT_EQ(w.boxes.boxes[0].Title, "Ribbon error - [Err-0015]");
  EXPECT_EQ(w.boxes.boxes[0].Text, "No such file or directory");
  EXPECT_TRUE(w.desktop.started[0].first.endsWith("/quillograph-abacus-bench"));
}

// The manual and the program's pages open in the program's own window, on the chapter for the
// page the user is on; F1 in the insert dialog opens its chapter.
TEST(Commands, HelpOpensTheManualInsideTheProgram) {
  Window w;
  const auto page = [&w] { return QFileInfo(w->Help()->Browser()->source().toLocalFile()).fileName(); };
  w.Run(1076);
  ASSERT_NE(w->Help(), nullptr);
  EXPECT_TRUE(w->Help()->isVisible());
  EXPECT_EQ(page(), "index.html");
  for (const auto& [tab, chapter] : {std::pair{3, "surfaces.html"}, std::pair{1, "inequality-parametric.html"}}) {
    w->Tabs().setCurrentIndex(tab);
    w.Run(1076);
    EXPECT_EQ(page(), chapter);
  }
  w.Run(1079);
  EXPECT_EQ(page(), "about.html");
  EXPECT_TRUE(w.desktop.opened.empty()) << "no viewer is needed";
  EXPECT_TRUE(w.boxes.boxes.empty());
  w->Tabs().setCurrentIndex(0);
  w.state.InsertSource = 0;
  w.state.InsertIndex = 0;
  w->ShowInsert();
  ASSERT_NE(w->Insert(), nullptr);
  QApplication::setActiveWindow(w->Insert());
  QTest::keyClick(w->Insert(), Qt::Key_F1);
  EXPECT_EQ(page(), "insert-dialog.html");
}

// Each Tools button starts its program from the program's own folder.
TEST(Commands, EachToolStartsItsProgramBesideTheProgram) {
  const std::pair<std::int32_t, const char*> tools[] = {
      {1054, "quillograph-abacus-bench"}, {1055, "quillograph-trigon-bench"}, {1056, "quillograph-area-bench"},
      {1057, "quillograph-slope-bench"},  {1058, "quillograph-chain-bench"},  {1167, "quillograph-curve-probe"}};
  for (const auto& [id, program] : tools) {
    Window w;
    w.Run(id);
    ASSERT_EQ(w.desktop.started.size(), 1u) << id;
    EXPECT_EQ(w.desktop.started[0].first, QCoreApplication::applicationDirPath() + "/" + program);
    EXPECT_TRUE(w.boxes.boxes.empty());
  }
}

// The contact form's links open the program's pages in the manual's window, with no browser.
TEST(Commands, TheContactFormsLinksOpenInTheProgram) {
  Window w;
  w->ShowContact();
  ASSERT_NE(w->Contact(), nullptr);
  QLabel* link = nullptr;
  for (QLabel* label : w->Contact()->findChildren<QLabel*>()) {
    if (label->text().startsWith("<a href=")) link = label;
  }
  ASSERT_NE(link, nullptr);
  const QString page = link->text().section('"', 1, 1);
  emit link->linkActivated(page);
  ASSERT_NE(w->Help(), nullptr);
  EXPECT_EQ(QFileInfo(w->Help()->Browser()->source().toLocalFile()).fileName(), page);
  EXPECT_TRUE(w.desktop.opened.empty());
}

TEST(Commands, AnIdWithoutACommandIsComingSoon) {
  Window w;
  ribbon::CommandControl unknown(ribbon::ControlKind::Button, 4242);
  w->CommandBars().Execute(unknown);
  ASSERT_EQ(w.boxes.boxes.size(), 1u);
  EXPECT_EQ(w.boxes.boxes[0].Text, "Cooming soon in the next version.");
  EXPECT_EQ(w.boxes.boxes[0].Title, "Cooming soon... - [Info-0002]");
  EXPECT_EQ(w.boxes.boxes[0].Kind, platform::MessageBoxes::Icon::Information);
}

TEST(Commands, EveryIdOfTheDesignFileHasItsCommand) {
  Window w;
  QStringList missing;
  std::function<void(ribbon::CommandControl&)> visit = [&](ribbon::CommandControl& control) {
    for (const auto& child : control.Controls()) visit(*child);
  };
  const std::int32_t ids[] = {1023, 1024, 1025, 1030, 3006, 1033, 1034, 1052, 1042, 1044, 1066, 1067, 1068, 1069,
                              1071, 1072, 1073, 1086, 1087, 1088, 1089, 1090, 1092, 1124, 1113, 1122, 1127, 1128,
                              1129, 1054, 1055, 1056, 1057, 1058, 1167, 1076, 1079, 1080, 1107, 1108, 1109, 1130,
                              1132, 1133, 1134, 1135, 1162, 1169, 1172, 1173, 1174, 1144, 1145, 1160, 1137, 1164,
                              1165, 1166, 1119, 1121, 1126};
  for (std::int32_t id : ids) {
    if (w->CommandBars().FindControl(id) == nullptr) missing << QString::number(id);
  }
  EXPECT_TRUE(missing.isEmpty()) << missing.join(", ").toStdString();
  // None of them ends in "Cooming soon".
  w.files.names.clear();
  for (std::int32_t id : ids) {
    if (id == 1119 || id == 1121 || id == 1126 || id == 1107 || id == 1080) continue;
    w.RunOnRow(0, id);
  }
  for (const auto& box : w.boxes.boxes) EXPECT_NE(box.Title, "Cooming soon... - [Info-0002]") << box.Text.toStdString();
  for (int id : {57600, 57601, 57603}) EXPECT_NE(w->Ribbon().WidgetFor(id), nullptr) << id;
  EXPECT_EQ(w.Control(1023).Shortcut(), "F5");
  EXPECT_EQ(w.Control(1033).Shortcut(), "F11");
  EXPECT_EQ(w.Control(1071).Shortcut(), "Ctrl++");
  EXPECT_EQ(w.Control(1072).Shortcut(), "Ctrl+-");
  EXPECT_EQ(w.Control(1073).Shortcut(), "Ctrl+0");
}

TEST(Commands, TheNotesCommandsOnItsSelection) {
  Window w;
  QTextEdit* note = w.Rows().Row(0).rchfunNote;
  note->setPlainText("some words");
  note->selectAll();
  w.RunOnRow(0, 1150);  // 14 points
  EXPECT_EQ(note->textCursor().charFormat().fontPointSize(), 14);
  w.colors.colors = {QColor(200, 0, 0)};
  w.RunOnRow(0, 1144);
  EXPECT_EQ(note->textCursor().charFormat().foreground().color(), QColor(200, 0, 0));
  // The clipboard only while the note shows.
  w.RunOnRow(0, 1164);
  EXPECT_EQ(w.desktop.clipboard, "");
  note->show();
  note->selectAll();
  w.RunOnRow(0, 1164);
  EXPECT_EQ(w.desktop.clipboard, "some words");
  w.RunOnRow(0, 1166);
  EXPECT_EQ(note->toPlainText(), "");
  w.desktop.clipboard = "pasted";
  w.RunOnRow(0, 1165);
  EXPECT_EQ(note->toPlainText(), "pasted");
  w.RunOnRow(0, 1137);  // the font dialog cancelled: nothing
  EXPECT_EQ(w.desktop.fontAsked.size(), 1u);
}

TEST(Ribbon, ItStartsFromThePlotAndItsToolTipsAreRich) {
  Window w;
  EXPECT_EQ(w.Control(1126).Caption(), "Zoom: X and Y");
  EXPECT_EQ(w.Control(1113).Pos(), 90);
  EXPECT_EQ(w.Control(1122).Pos(), 2);
  QWidget* add = w.Rows().cmdAddFunction();
  EXPECT_EQ(add->property("controlToolTip").toString(), "Add a row under the last one (Ctrl+Shift+N)");
  const QString rich = add->toolTip();
  EXPECT_TRUE(rich.contains("<b>"));
  w->ToolTipReNew();
  EXPECT_EQ(add->toolTip(), rich) << "a second pass changes nothing";
}

TEST(Ribbon, TheSlidersOfRibbonAndStatusBarShowTheSameValues) {
  Window w;
  // A project read from a file.
  QTemporaryDir dir;
  const QString path = dir.filePath("thick.qlp");
  w->Plot().Scene().SetThickness(5);
  w->Plot().Scene().SetQuality(40);
  w->SaveProject(path);
  w->Plot().Scene().SetThickness(2);
  w->Plot().Scene().SetQuality(90);
  w->LoadProject(path);
  EXPECT_EQ(w.Control(1122).Pos(), 5);
  EXPECT_EQ(w.Control(1121).Caption(), "5");
  EXPECT_EQ(w.Control(1113).Pos(), 40);
  EXPECT_EQ(w->StatusText(9002), "Thickness: 5");
  // The status bar's slider.
  w->Panes().StatusBar_SliderPaneClick(QStringLiteral("Plot Thickness"), 1, 0);
  EXPECT_EQ(w->Plot().Scene().Thickness(), 6);
  EXPECT_EQ(w.Control(1122).Pos(), 6);
  EXPECT_EQ(w.Control(1121).Caption(), "6");
  // The ribbon's slider.
  w.Control(1113).SetPos(70);
  w->CommandBars().Execute(w.Control(1113));
  EXPECT_EQ(w->StatusText(9004), "Quality: 70");
}
