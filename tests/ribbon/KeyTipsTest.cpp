// Key tips on the program's own ribbon (data/Ribbon/Ribbon.xcb): Alt alone shows a letter over the
// File button, each tab and each quick access button; a tab's letter shows a letter over each of
// its controls; a control's letter runs it. Keys go through QTest to the widget with the focus.
#include "platform/DataFolder.h"
#include "ribbon/CommandBars.h"
#include "ribbon/KeyTips.h"
#include "ribbon/QuickAccessBar.h"
#include "ribbon/RibbonBar.h"
#include "ribbon/RibbonButton.h"
#include "ribbon/RibbonSlider.h"

#include <gtest/gtest.h>

#include "FakeDesktop.h"
#include "QtPrinters.h"
#include "RibbonTestSupport.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSet>
#include <QSignalSpy>
#include <QSlider>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <map>
#include <vector>

using ribbon::CommandBars;
using ribbon::CommandControl;
using ribbon::KeyTips;
using ribbon::RibbonBar;
using ribbon::RibbonButton;
using ribbon::RibbonSlider;
using ribbontest::ExecutedIds;
using ribbontest::FlushDeletes;
using Level = ribbon::KeyTips::Level;

namespace {

// The program's ribbon with its quick access bar, in an active window beside a text field that
// has the keyboard. Toggles flip as the program's dispatch flips them.
struct KeyTipsFixture {
  KeyTipsFixture() {
    bars.LoadDesignFile(platform::DataFile(QStringLiteral("Ribbon/Ribbon.xcb")));
    window.resize(1100, 320);
    auto* layout = new QVBoxLayout(&window);
    ribbon = new RibbonBar(bars, colors, &window);
    layout->addWidget(ribbon);
    field = new QLineEdit(&window);
    layout->addWidget(field);
    layout->addStretch(1);
    ribbon->QuickAccess().AddCommand(57600, QStringLiteral("New"), QStringLiteral("document-new"));
    ribbon->QuickAccess().AddCommand(57601, QStringLiteral("Open"), QStringLiteral("document-open"));
    ribbon->QuickAccess().AddCommand(57603, QStringLiteral("Save"), QStringLiteral("document-save"));
    QObject::connect(&bars, &CommandBars::Executed, &bars, [](CommandControl& control) {
      if (control.Kind() == ribbon::ControlKind::CheckBox) control.SetChecked(!control.Checked());
    });
    window.show();
    QApplication::setActiveWindow(&window);
    active = QTest::qWaitForWindowActive(&window);
    field->setFocus();
    QApplication::processEvents();
  }
  ~KeyTipsFixture() {
    window.close();
    FlushDeletes();
  }

  // A key to whatever has the keyboard, as the desktop would send it.
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* target = QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : &window;
    QTest::keyClick(target, key, modifiers);
    QApplication::processEvents();
  }
  void Alt() { Press(Qt::Key_Alt, Qt::AltModifier); }

  KeyTips& Tips() { return ribbon->Tips(); }
  // The texts of the labels shown now, by the widget they stand over (tabs by their index).
  std::map<QWidget*, QStringList> LabelsByTarget() {
    std::map<QWidget*, QStringList> labels;
    for (const auto& [label, tip] : Tips().ShownLabels()) labels[tip.Target] << label->text();
    return labels;
  }
  QString TabLabel(int tab) {
    for (const auto& [label, tip] : Tips().ShownLabels()) {
      if (tip.Tab == tab) return label->text();
    }
    return {};
  }
  QString LabelOver(QWidget* target) {
    const QStringList texts = LabelsByTarget()[target];
    return texts.size() == 1 ? texts.front() : QString();
  }
  QWidget* View(int id) { return ribbon->WidgetFor(id); }

  CommandBars bars;
  ScriptedColors colors;
  QWidget window;
  RibbonBar* ribbon;
  QLineEdit* field;
  bool active = false;
};

struct TabCase {
  const char* Caption;
  int Index;
  Qt::Key Key;
  const char* Letter;
};

const TabCase kTabs[] = {
    {"&Home", 0, Qt::Key_H, "H"}, {"&View", 1, Qt::Key_V, "V"}, {"&Picture", 2, Qt::Key_P, "P"},
    {"&Tools", 3, Qt::Key_T, "T"}, {"H&elp", 4, Qt::Key_E, "E"},
};

// The views on a tab's page that a key tip must reach: every visible button and slider.
std::vector<QWidget*> ViewsOf(RibbonBar& ribbon, int tab) {
  std::vector<QWidget*> views;
  for (QWidget* widget : ribbon.Page(tab)->findChildren<QWidget*>()) {
    if ((qobject_cast<RibbonButton*>(widget) != nullptr || qobject_cast<RibbonSlider*>(widget) != nullptr) && widget->isVisible())
      views.push_back(widget);
  }
  return views;
}

}  // namespace

TEST(KeyTips, AltAloneShowsTheLettersOfFileTheTabsAndTheQuickAccessBar) {
  KeyTipsFixture f;
  ASSERT_TRUE(f.active);
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Hidden);
  EXPECT_TRUE(f.Tips().ShownLabels().empty());
  f.Alt();
  ASSERT_EQ(f.Tips().CurrentLevel(), Level::Tabs);
  for (const TabCase& c : kTabs) {
    SCOPED_TRACE(c.Caption);
    EXPECT_EQ(f.ribbon->TabControl(c.Index)->Caption(), QString::fromUtf8(c.Caption));
    EXPECT_EQ(f.TabLabel(c.Index), QString::fromLatin1(c.Letter));
  }
  EXPECT_EQ(f.LabelOver(f.ribbon->FileButton()), "F");
  EXPECT_EQ(f.LabelOver(f.ribbon->QuickAccess().ButtonFor(57600)), "1");
  EXPECT_EQ(f.LabelOver(f.ribbon->QuickAccess().ButtonFor(57601)), "2");
  EXPECT_EQ(f.LabelOver(f.ribbon->QuickAccess().ButtonFor(57603)), "3");
  EXPECT_EQ(f.Tips().ShownLabels().size(), 9u);
  for (const auto& [label, tip] : f.Tips().ShownLabels()) {
    EXPECT_EQ(label->objectName(), "RibbonKeyTip");
    EXPECT_TRUE(f.window.rect().contains(label->geometry())) << label->text().toStdString();
  }
  // Alt again hides them, and the keyboard goes back where it was.
  f.Alt();
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Hidden);
  EXPECT_TRUE(f.Tips().ShownLabels().empty());
  EXPECT_EQ(QApplication::focusWidget(), f.field);
}

TEST(KeyTips, EveryControlOfEveryTabHasExactlyOneTipUniqueWithinItsTab) {
  KeyTipsFixture f;
  ASSERT_TRUE(f.active);
  for (const TabCase& c : kTabs) {
    SCOPED_TRACE(c.Caption);
    f.Alt();
    f.Press(c.Key);
    ASSERT_EQ(f.Tips().CurrentLevel(), Level::Controls);
    EXPECT_EQ(f.Tips().CurrentTab(), c.Index);
    EXPECT_EQ(f.ribbon->CurrentTab(), c.Index);
    const std::vector<QWidget*> views = ViewsOf(*f.ribbon, c.Index);
    ASSERT_FALSE(views.empty());
    std::map<QWidget*, QStringList> labels = f.LabelsByTarget();
    QSet<QString> letters;
    for (QWidget* view : views) {
      const QString name = view->accessibleName().isEmpty() ? view->objectName() : view->accessibleName();
      ASSERT_EQ(labels[view].size(), 1) << name.toStdString();
      const QString letter = labels[view].front();
      EXPECT_EQ(letter.size(), 1) << name.toStdString();
      EXPECT_FALSE(letters.contains(letter)) << letter.toStdString();
      letters.insert(letter);
    }
    EXPECT_EQ(f.Tips().ShownLabels().size(), views.size());
    f.Press(Qt::Key_Escape);
    f.Press(Qt::Key_Escape);
    ASSERT_EQ(f.Tips().CurrentLevel(), Level::Hidden);
  }
}

TEST(KeyTips, AltVAndGridsLetterTogglesGridThroughTheBars) {
  KeyTipsFixture f;
  ASSERT_TRUE(f.active);
  ExecutedIds ids(f.bars);
  CommandControl* grid = f.bars.FindControl(1088);
  ASSERT_NE(grid, nullptr);
  const bool before = grid->Checked();
  f.Alt();
  f.Press(Qt::Key_V);
  EXPECT_EQ(f.LabelOver(f.View(1088)), "G");
  f.Press(Qt::Key_G);
  EXPECT_EQ(ids.ids, std::vector<int>{1088});
  EXPECT_EQ(grid->Checked(), !before);
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Hidden);
  EXPECT_TRUE(f.Tips().ShownLabels().empty());
  EXPECT_EQ(QApplication::focusWidget(), f.field);
}

TEST(KeyTips, AltHAndReplotsLetterReplots) {
  KeyTipsFixture f;
  ASSERT_TRUE(f.active);
  ExecutedIds ids(f.bars);
  f.Alt();
  f.Press(Qt::Key_H);
  EXPECT_EQ(f.LabelOver(f.View(1023)), "R");
  // Letters do not care for case.
  f.Press(Qt::Key_R, Qt::ShiftModifier);
  EXPECT_EQ(ids.ids, std::vector<int>{1023});
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Hidden);
}

TEST(KeyTips, EscapeGoesBackALevelAtATime) {
  KeyTipsFixture f;
  ASSERT_TRUE(f.active);
  f.Alt();
  f.Press(Qt::Key_P);
  ASSERT_EQ(f.Tips().CurrentLevel(), Level::Controls);
  EXPECT_EQ(f.LabelOver(f.View(1024)), "P");
  f.Press(Qt::Key_Escape);
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Tabs);
  EXPECT_EQ(f.TabLabel(1), "V");
  EXPECT_TRUE(f.LabelOver(f.View(1024)).isEmpty());
  EXPECT_EQ(f.ribbon->CurrentTab(), 2);
  f.Press(Qt::Key_Escape);
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Hidden);
  EXPECT_TRUE(f.Tips().ShownLabels().empty());
  EXPECT_EQ(QApplication::focusWidget(), f.field);
}

TEST(KeyTips, ALetterOfNoTipIsIgnoredAndTheTipsStay) {
  KeyTipsFixture f;
  ASSERT_TRUE(f.active);
  ExecutedIds ids(f.bars);
  f.Alt();
  f.Press(Qt::Key_Z);
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Tabs);
  EXPECT_EQ(f.Tips().ShownLabels().size(), 9u);
  f.Press(Qt::Key_H);
  const std::size_t shown = f.Tips().ShownLabels().size();
  f.Press(Qt::Key_Q);
  f.Press(Qt::Key_9);
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Controls);
  EXPECT_EQ(f.Tips().ShownLabels().size(), shown);
  EXPECT_TRUE(ids.ids.empty());
  EXPECT_EQ(f.field->text(), "");
}

TEST(KeyTips, WithoutTipsKeysBehaveAsBefore) {
  KeyTipsFixture f;
  ASSERT_TRUE(f.active);
  ExecutedIds ids(f.bars);
  // Letters type into the field.
  f.Press(Qt::Key_G);
  f.Press(Qt::Key_V);
  EXPECT_EQ(f.field->text(), "gv");
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Hidden);
  EXPECT_TRUE(ids.ids.empty());
  // Alt held with a letter is the tab's mnemonic, and shows no tips when Alt comes up.
  f.Press(Qt::Key_V, Qt::AltModifier);
  EXPECT_EQ(f.ribbon->CurrentTab(), 1);
  QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Alt);
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Hidden);
  EXPECT_TRUE(f.Tips().ShownLabels().empty());
}

TEST(KeyTips, AClickOrAnotherKeyHidesThem) {
  KeyTipsFixture f;
  ASSERT_TRUE(f.active);
  f.Alt();
  ASSERT_EQ(f.Tips().CurrentLevel(), Level::Tabs);
  QTest::mouseClick(f.field, Qt::LeftButton);
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Hidden);
  EXPECT_TRUE(f.Tips().ShownLabels().empty());
  // An arrow hides them and moves along the tabs, where Alt put the keyboard.
  f.Alt();
  f.Press(Qt::Key_Right);
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Hidden);
  EXPECT_EQ(f.ribbon->CurrentTab(), 1);
}

TEST(KeyTips, NoTipsWhileTheWindowIsNotActive) {
  KeyTipsFixture f;
  ASSERT_TRUE(f.active);
  QWidget other;
  other.show();
  QApplication::setActiveWindow(&other);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  QTest::keyClick(&other, Qt::Key_Alt, Qt::AltModifier);
  QApplication::processEvents();
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Hidden);
  EXPECT_TRUE(f.Tips().ShownLabels().empty());
}

TEST(KeyTips, QuickAccessDigitsAndFileRunTheirButtons) {
  KeyTipsFixture f;
  ASSERT_TRUE(f.active);
  ExecutedIds ids(f.bars);
  QSignalSpy file(f.ribbon, &RibbonBar::FileButtonClicked);
  f.Alt();
  f.Press(Qt::Key_3);
  EXPECT_EQ(ids.ids, std::vector<int>{57603});
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Hidden);
  f.Alt();
  f.Press(Qt::Key_F);
  EXPECT_EQ(file.count(), 1);
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Hidden);
}

TEST(KeyTips, ASliderTakesTheKeyboardAndAColourPickerOpensItsPalette) {
  KeyTipsFixture f;
  ASSERT_TRUE(f.active);
  ExecutedIds ids(f.bars);
  f.Alt();
  f.Press(Qt::Key_V);
  auto* quality = qobject_cast<RibbonSlider*>(f.View(1113));
  ASSERT_NE(quality, nullptr);
  EXPECT_EQ(f.LabelOver(quality), "Q");
  f.Press(Qt::Key_Q);
  EXPECT_EQ(QApplication::focusWidget(), quality->Slider());
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Hidden);
  const int pos = quality->Slider()->value();
  f.Press(Qt::Key_Left);
  EXPECT_EQ(quality->Slider()->value(), pos - 1);

  auto* background = qobject_cast<RibbonButton*>(f.View(1042));
  ASSERT_NE(background, nullptr);
  int opened = 0;
  // The palette runs a loop of its own: it closes itself once it is up.
  QObject::connect(background->menu(), &QMenu::aboutToShow, background, [&opened, background] {
    ++opened;
    QTimer::singleShot(0, background->menu(), &QMenu::close);
  });
  f.Alt();
  f.Press(Qt::Key_V);
  EXPECT_EQ(f.LabelOver(background), "B");
  ids.ids.clear();
  f.Press(Qt::Key_B);
  EXPECT_EQ(opened, 1);
  EXPECT_TRUE(ids.ids.empty());
}

TEST(KeyTips, ACollapsedRibbonDropsTheTabDown) {
  KeyTipsFixture f;
  ASSERT_TRUE(f.active);
  ExecutedIds ids(f.bars);
  f.ribbon->SetCollapsed(true);
  f.Alt();
  f.Press(Qt::Key_V);
  ASSERT_TRUE(f.ribbon->IsPeeking());
  EXPECT_EQ(f.LabelOver(f.View(1087)), "A");
  f.Press(Qt::Key_Escape);
  EXPECT_FALSE(f.ribbon->IsPeeking());
  EXPECT_TRUE(f.ribbon->IsCollapsed());
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Tabs);
  f.Press(Qt::Key_V);
  f.Press(Qt::Key_A);
  EXPECT_EQ(ids.ids, std::vector<int>{1087});
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Hidden);
}

TEST(KeyTips, ScreenReadersHearTheKeys) {
  KeyTipsFixture f;
  QApplication::processEvents();
  EXPECT_EQ(f.View(1023)->accessibleDescription(), "Draw every row again. Keys: Alt, H, R");
  EXPECT_TRUE(f.View(1088)->accessibleDescription().endsWith("Keys: Alt, V, G"));
  auto* quality = qobject_cast<RibbonSlider*>(f.View(1113));
  EXPECT_EQ(quality->Slider()->accessibleDescription(), "Keys: Alt, V, Q");
  EXPECT_EQ(f.ribbon->QuickAccess().ButtonFor(57603)->accessibleDescription(), "Keys: Alt, 3");
  EXPECT_EQ(f.ribbon->FileButton()->accessibleDescription(), "Keys: Alt, F");
}

TEST(KeyTips, ADisabledControlsTipIsDimAndItsLetterIgnored) {
  KeyTipsFixture f;
  ASSERT_TRUE(f.active);
  ExecutedIds ids(f.bars);
  f.bars.FindControl(1023)->SetEnabled(false);
  f.Alt();
  f.Press(Qt::Key_H);
  QLabel* replot = nullptr;
  for (const auto& [label, tip] : f.Tips().ShownLabels()) {
    if (tip.Target == f.View(1023)) replot = label;
  }
  ASSERT_NE(replot, nullptr);
  EXPECT_EQ(replot->text(), "R");
  EXPECT_TRUE(replot->property("dim").toBool());
  f.Press(Qt::Key_R);
  EXPECT_TRUE(ids.ids.empty());
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Controls);
}

TEST(KeyTips, ATabOfMoreThanTwentySixControlsHasTwoLetterTips) {
  KeyTipsFixture f;
  ASSERT_TRUE(f.active);
  QByteArray buttons;
  for (int i = 1; i <= 27; ++i) {
    if (i > 1) buttons += ',';
    buttons += QStringLiteral(R"({ "kind": "button", "id": %1, "caption": "Item %2" })").arg(5000 + i).arg(i).toUtf8();
  }
  ASSERT_TRUE(f.bars.LoadDesign(R"({ "commandbars": 1, "controls": [ { "kind": "tab", "caption": "&Many", "controls": [
    { "kind": "group", "caption": "All", "controls": [ )" + buttons + "] } ] } ] }"));
  FlushDeletes();
  QApplication::processEvents();
  ExecutedIds ids(f.bars);
  f.Alt();
  f.Press(Qt::Key_M);
  ASSERT_EQ(f.Tips().ShownLabels().size(), 27u);
  EXPECT_EQ(f.LabelOver(f.View(5001)), "IT");
  EXPECT_EQ(f.LabelOver(f.View(5004)), "IA");
  // The first letter keeps the tips that start with it; the second runs one.
  f.Press(Qt::Key_I);
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Controls);
  EXPECT_EQ(f.Tips().ShownLabels().size(), 26u);
  f.Press(Qt::Key_A);
  EXPECT_EQ(ids.ids, std::vector<int>{5004});
  EXPECT_EQ(f.Tips().CurrentLevel(), Level::Hidden);
}
