// The ribbon drawn from the command bars: a view of the right kind for each control, clicks and
// shortcuts that execute exactly their control, views that follow their controls, the colour
// palette, the keyboard and the quick access bar.
#include "platform/DataFolder.h"
#include "ribbon/ColorPalette.h"
#include "ribbon/ColorPickerButton.h"
#include "ribbon/CommandBars.h"
#include "ribbon/QuickAccessBar.h"
#include "ribbon/RibbonBar.h"
#include "ribbon/RibbonButton.h"
#include "ribbon/RibbonGroup.h"
#include "ribbon/RibbonSlider.h"
#include "ribbon/RibbonText.h"

#include <gtest/gtest.h>

#include "FakeDesktop.h"
#include "QtPrinters.h"
#include "RibbonTestSupport.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <QSlider>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include <vector>

using ribbon::ButtonStyle;
using ribbon::ColorPickerButton;
using ribbon::CommandBars;
using ribbon::CommandControl;
using ribbon::RibbonBar;
using ribbon::RibbonButton;
using ribbon::RibbonGroup;
using ribbon::RibbonSlider;
using ribbontest::ExecutedIds;
using ribbontest::FlushDeletes;
using ribbontest::kDesign;

namespace {

template <typename View>
View* ViewOf(const RibbonBar& ribbon, int id) {
  return qobject_cast<View*>(ribbon.WidgetFor(id));
}

// A ribbon on the design, shown in a window of its own.
struct RibbonFixture {
  RibbonFixture() {
    bars.LoadDesign(kDesign);
    window.resize(900, 200);
    auto* layout = new QVBoxLayout(&window);
    ribbon = new RibbonBar(bars, colors, &window);
    layout->addWidget(ribbon);
    layout->addStretch(1);
    window.show();
  }
  ~RibbonFixture() {
    window.close();
    FlushDeletes();
  }
  bool Activate() {
    QApplication::setActiveWindow(&window);
    return QTest::qWaitForWindowActive(&window);
  }
  CommandControl& Control(int id) { return *bars.FindControl(id); }

  CommandBars bars;
  ScriptedColors colors;
  QWidget window;
  RibbonBar* ribbon;
};

}  // namespace
TEST(RibbonBar, DrawsTabsGroupsAndAViewOfEachKind) {
  RibbonFixture f;
  RibbonBar& ribbon = *f.ribbon;
  ASSERT_EQ(ribbon.TabCount(), 3);
  // Mnemonics are keys of the ribbon's own: no letter is underlined.
  EXPECT_EQ(ribbon.TabStrip()->tabText(0), "Home");
  EXPECT_EQ(ribbon.TabStrip()->tabText(1), "View");
  EXPECT_FALSE(ribbon.TabStrip()->isTabVisible(2));
  EXPECT_EQ(ribbon.CurrentTab(), 0);
  EXPECT_EQ(ribbon.TabControl(1)->Id(), 3001);

  auto* replot = ViewOf<RibbonButton>(ribbon, 1023);
  ASSERT_NE(replot, nullptr);
  EXPECT_EQ(replot->Style(), ButtonStyle::Large);
  EXPECT_EQ(replot->iconSize(), QSize(32, 32));
  EXPECT_FALSE(replot->isCheckable());
  auto* axis = ViewOf<RibbonButton>(ribbon, 1087);
  ASSERT_NE(axis, nullptr);
  EXPECT_EQ(axis->Style(), ButtonStyle::Large);
  EXPECT_TRUE(axis->isCheckable());
  auto* grid = ViewOf<RibbonButton>(ribbon, 1088);
  ASSERT_NE(grid, nullptr);
  EXPECT_EQ(grid->Style(), ButtonStyle::Small);
  EXPECT_EQ(grid->iconSize(), QSize(16, 16));
  EXPECT_TRUE(grid->isCheckable());
  EXPECT_NE(ViewOf<RibbonSlider>(ribbon, 1113), nullptr);
  EXPECT_NE(ViewOf<ColorPickerButton>(ribbon, 1042), nullptr);
  auto* label = ViewOf<QLabel>(ribbon, 1126);
  ASSERT_NE(label, nullptr);
  EXPECT_EQ(label->text(), "Zoom: X and Y");

  auto* tools = ViewOf<RibbonButton>(ribbon, 1200);
  ASSERT_NE(tools, nullptr);
  ASSERT_NE(tools->menu(), nullptr);
  EXPECT_EQ(tools->popupMode(), QToolButton::InstantPopup);
  std::vector<int> items;
  for (QAction* action : tools->menu()->actions()) items.push_back(action->property("commandId").toInt());
  EXPECT_EQ(items, (std::vector<int>{1201, 1202}));

  auto* plot = ViewOf<RibbonGroup>(ribbon, 2001);
  auto* look = ViewOf<RibbonGroup>(ribbon, 2002);
  ASSERT_NE(plot, nullptr);
  ASSERT_NE(look, nullptr);
  EXPECT_EQ(plot->CaptionLabel()->text(), "Plot");
  EXPECT_NE(ViewOf<RibbonGroup>(ribbon, 2003), nullptr);
}

TEST(RibbonBar, LaysOutLargeButtonsAndColumnsOfThreeWithTheCaptionUnder) {
  RibbonFixture f;
  RibbonBar& ribbon = *f.ribbon;
  const auto at = [&](int id) { return ribbon.WidgetFor(id)->mapTo(&f.window, QPoint(0, 0)); };
  // Large buttons side by side, then a column of three small ones, then the fourth in a new column.
  EXPECT_LT(at(1023).x(), at(1087).x());
  EXPECT_LT(at(1087).x(), at(1088).x());
  EXPECT_EQ(at(1088).x(), at(1040).x());
  EXPECT_EQ(at(1040).x(), at(1041).x());
  EXPECT_LT(at(1088).y(), at(1040).y());
  EXPECT_LT(at(1040).y(), at(1041).y());
  EXPECT_GT(at(1043).x(), at(1088).x());
  EXPECT_EQ(at(1043).y(), at(1088).y());
  // Groups run left to right, each with its caption under its controls.
  EXPECT_LT(at(2001).x(), at(2002).x());
  QLabel* caption = ViewOf<RibbonGroup>(ribbon, 2001)->CaptionLabel();
  EXPECT_GE(caption->mapTo(&f.window, QPoint(0, 0)).y(), at(1023).y() + ribbon.WidgetFor(1023)->height());
  // BeginGroup starts a column of its own.
  EXPECT_GT(at(1200).x(), at(1113).x());
}

TEST(RibbonBar, AClickExecutesExactlyThatControl) {
  RibbonFixture f;
  QSignalSpy executed(&f.bars, &CommandBars::Executed);
  ExecutedIds ids(f.bars);
  QTest::mouseClick(f.ribbon->WidgetFor(1023), Qt::LeftButton);
  EXPECT_EQ(executed.count(), 1);
  QTest::mouseClick(f.ribbon->WidgetFor(1040), Qt::LeftButton);
  EXPECT_EQ(ids.ids, (std::vector<int>{1023, 1040}));
  // A disabled control does nothing.
  f.Control(1041).SetEnabled(false);
  QTest::mouseClick(f.ribbon->WidgetFor(1041), Qt::LeftButton);
  EXPECT_EQ(executed.count(), 2);
  // A popup's items run their own commands through the same bars.
  auto* tools = ViewOf<RibbonButton>(*f.ribbon, 1200);
  tools->menu()->actions().at(1)->trigger();
  EXPECT_EQ(ids.ids, (std::vector<int>{1023, 1040, 1202}));
}

TEST(RibbonBar, TogglesAreNotFlippedByTheViewButFollowTheirControl) {
  RibbonFixture f;
  ExecutedIds ids(f.bars);
  auto* grid = ViewOf<RibbonButton>(*f.ribbon, 1088);
  ASSERT_TRUE(grid->isChecked());
  QTest::mouseClick(grid, Qt::LeftButton);
  EXPECT_EQ(ids.ids, std::vector<int>{1088});
  EXPECT_TRUE(grid->isChecked());
  EXPECT_TRUE(f.Control(1088).Checked());
  // The command flips the control; the view follows.
  f.Control(1088).SetChecked(false);
  EXPECT_FALSE(grid->isChecked());
  grid->setFocus();
  QTest::keyClick(grid, Qt::Key_Space);
  EXPECT_EQ(ids.ids, (std::vector<int>{1088, 1088}));
  EXPECT_FALSE(grid->isChecked());
  f.Control(1087).SetChecked(true);
  EXPECT_TRUE(ViewOf<RibbonButton>(*f.ribbon, 1087)->isChecked());
}

TEST(RibbonBar, ViewsFollowEnabledVisibleCaptionColourAndPos) {
  RibbonFixture f;
  auto* replot = ViewOf<RibbonButton>(*f.ribbon, 1023);
  f.Control(1023).SetEnabled(false);
  EXPECT_FALSE(replot->isEnabled());
  f.Control(1023).SetEnabled(true);
  EXPECT_TRUE(replot->isEnabled());
  f.Control(1023).SetVisible(false);
  EXPECT_TRUE(replot->isHidden());
  f.Control(1023).SetVisible(true);
  EXPECT_FALSE(replot->isHidden());
  f.Control(1023).SetCaption("Draw");
  EXPECT_EQ(replot->text(), "Draw");
  // A long caption of a large button takes two lines.
  f.Control(1023).SetCaption("Default range of the axes");
  EXPECT_TRUE(replot->text().contains(u'\n'));
  EXPECT_EQ(ViewOf<RibbonButton>(*f.ribbon, 1040)->text(), "Pan left");

  auto* background = ViewOf<ColorPickerButton>(*f.ribbon, 1042);
  EXPECT_EQ(background->SwatchColor(), QColor(Qt::white));
  f.Control(1042).SetColor(255);
  EXPECT_EQ(background->SwatchColor(), QColor(255, 0, 0));
  f.Control(1042).SetColor(0xFF0000);
  EXPECT_EQ(background->SwatchColor(), QColor(0, 0, 255));
  EXPECT_FALSE(background->icon().pixmap(16, 16).isNull());

  auto* quality = ViewOf<RibbonSlider>(*f.ribbon, 1113);
  EXPECT_EQ(quality->Slider()->value(), 90);
  EXPECT_EQ(quality->Slider()->maximum(), 100);
  EXPECT_EQ(quality->ValueLabel()->text(), "90");
  f.Control(1113).SetPos(40);
  EXPECT_EQ(quality->Slider()->value(), 40);
  EXPECT_EQ(quality->ValueLabel()->text(), "40");
  f.Control(1113).SetEnabled(false);
  EXPECT_FALSE(quality->isEnabled());

  f.Control(1126).SetCaption("Zoom: X");
  EXPECT_EQ(ViewOf<QLabel>(*f.ribbon, 1126)->text(), "Zoom: X");
  f.Control(1126).SetVisible(false);
  EXPECT_TRUE(ViewOf<QLabel>(*f.ribbon, 1126)->isHidden());

  f.Control(3001).SetCaption("&Look");
  EXPECT_EQ(f.ribbon->TabStrip()->tabText(1), "Look");
  f.Control(3002).SetVisible(true);
  EXPECT_TRUE(f.ribbon->TabStrip()->isTabVisible(2));
}

TEST(RibbonBar, MovingASliderSetsPosAndExecutes) {
  RibbonFixture f;
  ExecutedIds ids(f.bars);
  auto* quality = ViewOf<RibbonSlider>(*f.ribbon, 1113);
  quality->Slider()->setFocus();
  QTest::keyClick(quality->Slider(), Qt::Key_Left);
  EXPECT_EQ(f.Control(1113).Pos(), 89);
  EXPECT_EQ(ids.ids, std::vector<int>{1113});
  EXPECT_EQ(quality->ValueLabel()->text(), "89");
}

TEST(RibbonBar, AGroupsVisibleHidesTheWholeGroup) {
  RibbonFixture f;
  QWidget* look = f.ribbon->WidgetFor(2002);
  ASSERT_TRUE(look->isVisible());
  f.Control(2002).SetVisible(false);
  EXPECT_FALSE(look->isVisible());
  EXPECT_FALSE(f.ribbon->WidgetFor(1042)->isVisible());
  EXPECT_TRUE(f.ribbon->WidgetFor(1023)->isVisible());
  f.Control(2002).SetVisible(true);
  EXPECT_TRUE(look->isVisible());
  f.Control(2002).SetCaption("Looks");
  EXPECT_EQ(ViewOf<RibbonGroup>(*f.ribbon, 2002)->CaptionLabel()->text(), "Looks");
}

TEST(RibbonBar, ThePaletteSetsTheColourAndExecutes) {
  RibbonFixture f;
  ExecutedIds ids(f.bars);
  auto* background = ViewOf<ColorPickerButton>(*f.ribbon, 1042);
  EXPECT_EQ(background->popupMode(), QToolButton::MenuButtonPopup);
  // The main part executes the control with the colour it has.
  background->click();
  EXPECT_EQ(ids.ids, std::vector<int>{1042});
  EXPECT_EQ(f.Control(1042).Color(), 16777215);

  ribbon::ColorPalette* palette = background->Palette();
  ASSERT_NE(palette, nullptr);
  EXPECT_GE(palette->Colors().size(), 40u);
  background->menu()->popup(background->mapToGlobal(QPoint(0, background->height())));
  ASSERT_TRUE(QTest::qWaitForWindowExposed(background->menu()));
  ASSERT_TRUE(palette->isVisible());
  const int pick = 21;
  QTest::mouseClick(palette, Qt::LeftButton, {}, palette->SwatchRect(pick).center());
  const QColor chosen = palette->Colors()[pick];
  EXPECT_EQ(f.Control(1042).Color(), chosen.red() + chosen.green() * 256 + chosen.blue() * 65536);
  EXPECT_EQ(ids.ids, (std::vector<int>{1042, 1042}));
  EXPECT_EQ(background->SwatchColor(), chosen);
  EXPECT_FALSE(background->menu()->isVisible());
}

TEST(RibbonBar, MoreColoursAsksTheColourDialog) {
  RibbonFixture f;
  ExecutedIds ids(f.bars);
  auto* background = ViewOf<ColorPickerButton>(*f.ribbon, 1042);
  ASSERT_NE(background->MoreColorsAction(), nullptr);
  EXPECT_TRUE(background->MoreColorsAction()->text().startsWith("More colours"));
  f.colors.colors.push_back(QColor(10, 20, 30));
  background->MoreColorsAction()->trigger();
  ASSERT_EQ(f.colors.asked.size(), 1u);
  EXPECT_EQ(f.colors.asked[0].first, QColor(Qt::white));
  EXPECT_EQ(f.colors.asked[0].second, "Background colour");
  EXPECT_EQ(f.Control(1042).Color(), 10 + 20 * 256 + 30 * 65536);
  EXPECT_EQ(ids.ids, std::vector<int>{1042});
  // Cancelled: nothing changes and nothing runs.
  background->MoreColorsAction()->trigger();
  EXPECT_EQ(f.colors.asked.size(), 2u);
  EXPECT_EQ(f.Control(1042).Color(), 10 + 20 * 256 + 30 * 65536);
  EXPECT_EQ(ids.ids, std::vector<int>{1042});
}

TEST(RibbonBar, ShortcutsExecuteTheirControls) {
  RibbonFixture f;
  ASSERT_TRUE(f.Activate());
  ExecutedIds ids(f.bars);
  QTest::keyClick(&f.window, Qt::Key_F5);
  EXPECT_EQ(ids.ids, std::vector<int>{1023});
  QTest::keyClick(&f.window, Qt::Key_G, Qt::ControlModifier);
  EXPECT_EQ(ids.ids, (std::vector<int>{1023, 1088}));
  // A command inside a popup menu has its key on the window too, once.
  QTest::keyClick(&f.window, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(ids.ids, (std::vector<int>{1023, 1088, 1202}));
  // A disabled or hidden control's key does nothing.
  f.Control(1023).SetEnabled(false);
  QTest::keyClick(&f.window, Qt::Key_F5);
  f.Control(1023).SetEnabled(true);
  f.Control(1023).SetVisible(false);
  QTest::keyClick(&f.window, Qt::Key_F5);
  EXPECT_EQ(ids.ids.size(), 3u);
  f.Control(1023).SetVisible(true);
  QTest::keyClick(&f.window, Qt::Key_F5);
  EXPECT_EQ(ids.ids.size(), 4u);
}

TEST(RibbonBar, ToolTipsHoldTitleDescriptionAndShortcut) {
  RibbonFixture f;
  const QString replot = f.ribbon->WidgetFor(1023)->toolTip();
  EXPECT_TRUE(replot.contains("<b>Replot (F5)</b>")) << replot.toStdString();
  EXPECT_TRUE(replot.contains("Draw every row again."));
  const QString axis = f.ribbon->WidgetFor(1087)->toolTip();
  EXPECT_TRUE(axis.contains("<b>Show axis</b>"));
  EXPECT_TRUE(axis.contains("The x and y axes."));
  EXPECT_TRUE(f.ribbon->WidgetFor(1088)->toolTip().contains("Grid (Ctrl+G)"));
  EXPECT_TRUE(f.ribbon->WidgetFor(1113)->toolTip().contains("<b>Quality</b>"));

  CommandControl info(ribbon::ControlKind::Button, 10010);
  info.SetCaption("&Info <R&&D>");
  EXPECT_TRUE(ribbon::RichToolTip(info).contains("<b>Info &lt;R&amp;D&gt;</b>"));
  EXPECT_EQ(ribbon::PlainCaption("Save &As"), "Save As");
  EXPECT_EQ(ribbon::ButtonCaption("R&&D &Tools"), "R&&D Tools");
  CommandControl empty(ribbon::ControlKind::Button, 1);
  EXPECT_TRUE(ribbon::RichToolTip(empty).isEmpty());
}

TEST(RibbonBar, ColoursKeepRedInTheLowByte) {
  EXPECT_EQ(ribbon::ToQColor(255), QColor(255, 0, 0));
  EXPECT_EQ(ribbon::ToQColor(0xFF0000), QColor(0, 0, 255));
  EXPECT_EQ(ribbon::FromQColor(QColor(1, 2, 3)), 1 + 2 * 256 + 3 * 65536);
  EXPECT_EQ(ribbon::FromQColor(ribbon::ToQColor(16777215)), 16777215);
}

TEST(RibbonBar, TabsSelectCollapseAndExpand) {
  RibbonFixture f;
  RibbonBar& ribbon = *f.ribbon;
  QSignalSpy changed(&ribbon, &RibbonBar::CurrentTabChanged);
  ribbon.SelectTab(1);
  EXPECT_EQ(ribbon.CurrentTab(), 1);
  ASSERT_EQ(changed.count(), 1);
  EXPECT_EQ(changed.at(0).at(0).toInt(), 1);
  EXPECT_TRUE(ribbon.WidgetFor(1090)->isVisible());
  EXPECT_FALSE(ribbon.WidgetFor(1023)->isVisible());
  ribbon.SelectTab(2);  // hidden
  ribbon.SelectTab(7);
  EXPECT_EQ(ribbon.CurrentTab(), 1);
  ribbon.SelectTab(0);

  const int expanded = ribbon.sizeHint().height();
  QSignalSpy collapsed(&ribbon, &RibbonBar::CollapsedChanged);
  QTest::mouseClick(ribbon.CollapseButton(), Qt::LeftButton);
  EXPECT_TRUE(ribbon.IsCollapsed());
  EXPECT_EQ(collapsed.count(), 1);
  EXPECT_LT(ribbon.sizeHint().height(), expanded - 60);
  EXPECT_FALSE(ribbon.WidgetFor(1023)->isVisible());
  QTabBar* tabs = ribbon.TabStrip();
  QTest::mouseDClick(tabs, Qt::LeftButton, {}, tabs->tabRect(0).center());
  EXPECT_FALSE(ribbon.IsCollapsed());
  EXPECT_EQ(ribbon.sizeHint().height(), expanded);
  QTest::mouseDClick(tabs, Qt::LeftButton, {}, tabs->tabRect(0).center());
  EXPECT_TRUE(ribbon.IsCollapsed());
  ribbon.SetCollapsed(false);
  EXPECT_EQ(collapsed.count(), 4);
  EXPECT_TRUE(ribbon.WidgetFor(1023)->isVisible());
}

TEST(RibbonBar, EveryButtonIsReachedByTheKeyboard) {
  RibbonFixture f;
  ASSERT_TRUE(f.Activate());
  ExecutedIds ids(f.bars);
  QWidget* replot = f.ribbon->WidgetFor(1023);
  EXPECT_TRUE(replot->focusPolicy() & Qt::TabFocus);
  replot->setFocus();
  QTest::keyClick(replot, Qt::Key_Return);
  EXPECT_EQ(ids.ids, std::vector<int>{1023});
  QTest::keyClick(replot, Qt::Key_Right);
  EXPECT_EQ(QApplication::focusWidget(), f.ribbon->WidgetFor(1087));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
  EXPECT_EQ(QApplication::focusWidget(), f.ribbon->WidgetFor(1088));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Enter);
  EXPECT_EQ(ids.ids, (std::vector<int>{1023, 1088}));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
  EXPECT_EQ(QApplication::focusWidget(), f.ribbon->WidgetFor(1087));
  // Alt alone moves the keyboard to the tab strip, and back.
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Alt, Qt::AltModifier);
  EXPECT_EQ(QApplication::focusWidget(), f.ribbon->TabStrip());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Alt, Qt::AltModifier);
  EXPECT_EQ(QApplication::focusWidget(), f.ribbon->WidgetFor(1087));
  // Alt and a tab's letter selects the tab.
  QTest::keyClick(&f.window, Qt::Key_V, Qt::AltModifier);
  EXPECT_EQ(f.ribbon->CurrentTab(), 1);
  EXPECT_EQ(QApplication::focusWidget(), f.ribbon->TabStrip());
  QTest::keyClick(&f.window, Qt::Key_H, Qt::AltModifier);
  EXPECT_EQ(f.ribbon->CurrentTab(), 0);
  EXPECT_TRUE(ids.ids.size() == 2u);
}

TEST(RibbonBar, TheQuickAccessBarExecutesItsCommands) {
  RibbonFixture f;
  ExecutedIds ids(f.bars);
  ribbon::QuickAccessBar& bar = f.ribbon->QuickAccess();
  CommandControl& fresh = bar.AddCommand(57600, "New", "document-new", "Ctrl+N", "A new project.");
  bar.AddCommand(57601, "Open", "document-open");
  bar.AddCommand(57603, "Save", "document-save", "Ctrl+S");
  EXPECT_EQ(bar.Count(), 3);
  EXPECT_EQ(f.bars.FindControl(57600), nullptr);
  RibbonButton* button = bar.ButtonFor(57600);
  ASSERT_NE(button, nullptr);
  EXPECT_EQ(button->Style(), ButtonStyle::IconOnly);
  EXPECT_EQ(button->toolButtonStyle(), Qt::ToolButtonIconOnly);
  EXPECT_TRUE(button->toolTip().contains("New (Ctrl+N)"));
  EXPECT_EQ(f.ribbon->WidgetFor(57603), bar.ButtonFor(57603));
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(ids.ids, std::vector<int>{57600});
  EXPECT_EQ(&fresh, button->Control());
  ASSERT_TRUE(f.Activate());
  QTest::keyClick(&f.window, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(ids.ids, (std::vector<int>{57600, 57603}));
  fresh.SetEnabled(false);
  EXPECT_FALSE(button->isEnabled());

  // A control of the tree stays on the bar as long as it lives; the bar's own survive a reload.
  bar.AddControl(f.Control(1040));
  EXPECT_EQ(bar.Count(), 4);
  f.bars.LoadDesign(kDesign);
  FlushDeletes();
  EXPECT_EQ(bar.Count(), 3);
  EXPECT_NE(bar.ButtonFor(57603), nullptr);
  QTest::keyClick(&f.window, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(ids.ids, (std::vector<int>{57600, 57603, 57603}));
}

TEST(RibbonBar, AMissingOrBrokenDesignLeavesAnEmptyRibbon) {
  CommandBars bars;
  ScriptedColors colors;
  {
    RibbonBar empty(bars, colors);
    EXPECT_EQ(empty.TabCount(), 0);
    EXPECT_EQ(empty.CurrentTab(), -1);
    empty.SelectTab(0);
    empty.SetCollapsed(true);
    empty.SetCollapsed(false);
  }
  RibbonFixture f;
  ASSERT_EQ(f.ribbon->TabCount(), 3);
  for (const QByteArray& text : {QByteArray("{"), QByteArray(), QByteArray("{\"commandbars\":2}")}) {
    f.bars.LoadDesign(kDesign);
    FlushDeletes();
    EXPECT_FALSE(f.bars.LoadDesign(text));
    FlushDeletes();
    EXPECT_EQ(f.ribbon->TabCount(), 0);
    EXPECT_EQ(f.ribbon->WidgetFor(1023), nullptr);
  }
  EXPECT_FALSE(f.bars.LoadDesignFile("/nonexistent/Ribbon.xcb"));
  FlushDeletes();
  EXPECT_EQ(f.ribbon->TabCount(), 0);
  // A design with tabs but nothing else, and groups outside tabs, draw what they can.
  f.bars.LoadDesign(R"({"commandbars":1,"controls":[{"kind":"tab","caption":"A"},{"kind":"group","id":5},
                       {"kind":"button","id":6},{"kind":"tab","caption":"B","controls":[{"kind":"group","controls":[
                       {"kind":"tab"},{"kind":"group"},{"kind":"button","id":7}]}]}]})");
  FlushDeletes();
  EXPECT_EQ(f.ribbon->TabCount(), 2);
  EXPECT_EQ(f.ribbon->WidgetFor(6), nullptr);
  EXPECT_NE(f.ribbon->WidgetFor(7), nullptr);
  // And the program's own design loads into it.
  EXPECT_TRUE(f.bars.LoadDesignFile(platform::DataFile("Ribbon/Ribbon.xcb")));
  FlushDeletes();
  EXPECT_GE(f.ribbon->TabCount(), 1);
  EXPECT_NE(ViewOf<ColorPickerButton>(*f.ribbon, 1042), nullptr);
}

TEST(RibbonBar, AReloadFromAClickOfItsOwnIsSafe) {
  RibbonFixture f;
  QObject::connect(&f.bars, &CommandBars::Executed, &f.bars, [&](CommandControl& control) {
    if (control.Id() == 1023) f.bars.LoadDesign(kDesign);
  });
  QTest::mouseClick(f.ribbon->WidgetFor(1023), Qt::LeftButton);
  FlushDeletes();
  EXPECT_EQ(f.ribbon->TabCount(), 3);
  EXPECT_NE(f.ribbon->WidgetFor(1023), nullptr);
}
