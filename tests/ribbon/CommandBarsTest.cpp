// The command bars: controls found by id, loaded from design files, and drawn as menus.
#include "platform/DataFolder.h"
#include "ribbon/CommandBars.h"
#include "ribbon/MenuView.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>

using ribbon::CommandBars;
using ribbon::CommandControl;
using ribbon::ControlKind;

namespace {

const QByteArray kDesign = R"({
  "commandbars": 1,
  "controls": [
    { "kind": "popup", "caption": "&View", "controls": [
        { "kind": "check", "id": 1087, "caption": "Axis", "checked": true, "shortcut": "Ctrl+1", "tooltip": "Show axis" },
        { "kind": "button", "id": 1023, "caption": "Replot", "begingroup": true, "icon": "view-refresh",
          "description": "Draw again." },
        { "kind": "slider", "id": 1113, "min": 1, "max": 100, "pos": 90 },
        { "kind": "color", "id": 1042, "color": 16777215 },
        { "kind": "unknown", "id": 5, "controls": [ { "kind": "button", "id": 6 } ] },
        { "kind": "popup", "name": "menuInner", "caption": "Inner", "controls": [ { "kind": "button", "id": 1087 } ] }
    ] }
  ]
})";

}  // namespace

TEST(CommandBars, ControlsAreFoundByIdDepthFirst) {
  CommandBars bars;
  ASSERT_TRUE(bars.LoadDesign(kDesign));
  CommandControl* axis = bars.FindControl(1087);
  ASSERT_NE(axis, nullptr);
  EXPECT_EQ(axis->Kind(), ControlKind::CheckBox);
  EXPECT_EQ(axis->Caption(), "Axis");
  EXPECT_TRUE(axis->Checked());
  EXPECT_EQ(axis->Shortcut(), "Ctrl+1");
  EXPECT_EQ(axis->ToolTip(), "Show axis");
  EXPECT_EQ(bars.FindControl(1023)->Description(), "Draw again.");
  EXPECT_TRUE(bars.FindControl(1023)->BeginGroup());
  EXPECT_EQ(bars.FindControl(1113)->Pos(), 90);
  EXPECT_EQ(bars.FindControl(1113)->Max(), 100);
  EXPECT_EQ(bars.FindControl(1042)->Color(), 16777215);
  EXPECT_EQ(bars.FindByName("menuInner")->Caption(), "Inner");
  // A control of an unknown kind is left out with what it holds.
  EXPECT_EQ(bars.FindControl(5), nullptr);
  EXPECT_EQ(bars.FindControl(6), nullptr);
  EXPECT_EQ(bars.FindControl(4242), nullptr);
}

TEST(CommandBars, AMissingOrBrokenDesignFileLeavesTheBarsEmpty) {
  for (const QByteArray& text : {QByteArray(), QByteArray("{"), QByteArray("[]"), QByteArray("{\"controls\":[]}"),
                                 QByteArray("{\"commandbars\":2}"), QByteArray("\x00\xff\xfe garbage", 12)}) {
    CommandBars bars;
    bars.LoadDesign(kDesign);
    EXPECT_FALSE(bars.LoadDesign(text));
    EXPECT_TRUE(bars.Root().Controls().empty());
    EXPECT_EQ(bars.FindControl(1087), nullptr);
  }
  CommandBars bars;
  EXPECT_FALSE(bars.LoadDesignFile("/nonexistent/Ribbon.xcb"));
  EXPECT_TRUE(bars.Root().Controls().empty());
}

TEST(CommandBars, DeepAndHugeDesignsAreBounded) {
  QByteArray deep = "{\"commandbars\":1,\"controls\":[";
  for (int i = 0; i < 200; ++i) deep += "{\"kind\":\"popup\",\"id\":" + QByteArray::number(i) + ",\"controls\":[";
  for (int i = 0; i < 200; ++i) deep += "]}";
  deep += "]}";
  CommandBars bars;
  EXPECT_TRUE(bars.LoadDesign(deep));
  EXPECT_NE(bars.FindControl(3), nullptr);
  EXPECT_EQ(bars.FindControl(150), nullptr);
  EXPECT_FALSE(bars.LoadDesign(QByteArray(5 * 1024 * 1024, ' ')));
}

TEST(CommandBars, TheProgramsDesignFilesLoad) {
  for (const char* file : {"Ribbon/Ribbon.xcb", "Ribbon/Menubar.xcb"}) {
    CommandBars bars;
    EXPECT_TRUE(bars.LoadDesignFile(platform::DataFile(file))) << file;
    EXPECT_FALSE(bars.Root().Controls().empty()) << file;
  }
  CommandBars menu;
  menu.LoadDesignFile(platform::DataFile("Ribbon/Menubar.xcb"));
  for (int id : {1023, 1024, 1028, 1029, 1030, 1031, 1032, 1044, 1046, 1049, 1050, 1051, 1053, 1055, 1056}) {
    EXPECT_NE(menu.FindControl(id), nullptr) << id;
  }
  for (int id : {1046, 1049, 1050, 1051, 1056}) EXPECT_FALSE(menu.FindControl(id)->Keyword().isEmpty()) << id;
  EXPECT_NE(menu.FindByName("mnuCartesian"), nullptr);
  EXPECT_NE(menu.FindByName("mnuPolar"), nullptr);
  EXPECT_NE(menu.FindByName("menuInsert"), nullptr);
  CommandBars ribbonBars;
  ribbonBars.LoadDesignFile(platform::DataFile("Ribbon/Ribbon.xcb"));
  for (int id : {1042, 1044, 1086, 1087, 1088, 1089, 1090, 1092, 1124, 1126}) {
    EXPECT_NE(ribbonBars.FindControl(id), nullptr) << id;
  }
}

TEST(MenuView, ActionsFollowTheirControlsAndExecuteThroughTheBars) {
  CommandBars bars;
  bars.LoadDesign(kDesign);
  QMenuBar bar;
  ribbon::MenuView::Attach(bar, bars);
  ASSERT_EQ(bar.actions().size(), 1);
  QMenu* view = bar.actions().first()->menu();
  ASSERT_NE(view, nullptr);
  QAction* axis = nullptr;
  for (QAction* action : view->actions()) {
    if (action->property("commandId").toInt() == 1087) axis = action;
  }
  ASSERT_NE(axis, nullptr);
  EXPECT_TRUE(axis->isCheckable());
  EXPECT_TRUE(axis->isChecked());
  EXPECT_EQ(axis->shortcut(), QKeySequence("Ctrl+1"));
  EXPECT_TRUE(axis->toolTip().startsWith("Show axis ("));

  // The menu does not flip the check: the command does, and the action follows.
  QSignalSpy executed(&bars, &CommandBars::Executed);
  axis->trigger();
  EXPECT_EQ(executed.count(), 1);
  EXPECT_TRUE(axis->isChecked());
  CommandControl* control = bars.FindControl(1087);
  control->SetChecked(false);
  EXPECT_FALSE(axis->isChecked());
  control->SetEnabled(false);
  EXPECT_FALSE(axis->isEnabled());
  control->SetCaption("Axes");
  EXPECT_EQ(axis->text(), "Axes");
  control->SetVisible(false);
  EXPECT_FALSE(axis->isVisible());

  // A new design builds the menus anew.
  bars.LoadDesign("{\"commandbars\":1,\"controls\":[{\"kind\":\"popup\",\"caption\":\"A\"},{\"kind\":\"popup\",\"caption\":\"B\"}]}");
  EXPECT_EQ(bar.actions().size(), 2);
}
