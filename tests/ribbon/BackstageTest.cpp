// The backstage behind the ribbon's File button: it opens on its start page and says which page
// shows, its commands close it and execute, Escape and the back arrow close it, and the ribbon's
// keys wait while it is open.
#include "ribbon/Backstage.h"
#include "ribbon/CommandBars.h"
#include "ribbon/QuickAccessBar.h"
#include "ribbon/RibbonBar.h"

#include <gtest/gtest.h>

#include "FakeDesktop.h"
#include "QtPrinters.h"
#include "RibbonTestSupport.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

using ribbon::Backstage;
using ribbon::CommandBars;
using ribbon::CommandControl;
using ribbon::RibbonBar;
using ribbontest::ExecutedIds;
using ribbontest::FlushDeletes;
using ribbontest::kDesign;

namespace {

// A main window with a ribbon and a backstage, as the program has them.
struct BackstageFixture {
  BackstageFixture() {
    bars.LoadDesign(kDesign);
    window.resize(1000, 640);
    auto* central = new QWidget(&window);
    auto* layout = new QVBoxLayout(central);
    ribbon = new RibbonBar(bars, colors, central);
    layout->addWidget(ribbon);
    layout->addStretch(1);
    window.setCentralWidget(central);
    backstage = new Backstage(bars, window);
    backstage->AddCommand(57600, "&New", "document-new");
    backstage->AddCommand(57603, "&Save", "document-save");
    backstage->AddCommand(57604, "Save &As", "document-save-as");
    backstage->AddCommand(57601, "&Open", "document-open");
    backstage->AddSeparator();
    backstage->AddPage(10011, "Save as &picture", new QLabel("picture"));
    backstage->AddPage(10013, "What is new?", new QLabel("news"));
    backstage->AddPage(10010, "&Info", new QLabel("info"));
    backstage->AddPage(10012, "&Samples", new QLabel("samples"));
    backstage->AddPage(10014, "Support Us", new QLabel("support"));
    backstage->AddSeparator();
    backstage->AddCommand(57602, "&Exit", "application-exit");
    backstage->SetStartPage(10010);
    ribbon->SetBackstage(backstage);
    window.show();
  }
  ~BackstageFixture() { FlushDeletes(); }

  CommandBars bars;
  ScriptedColors colors;
  QMainWindow window;
  RibbonBar* ribbon;
  Backstage* backstage;
};

}  // namespace

TEST(Backstage, TheFileButtonOpensItOnTheStartPage) {
  BackstageFixture f;
  EXPECT_FALSE(f.backstage->IsOpen());
  EXPECT_EQ(f.ribbon->FileButton()->text(), "File");
  QSignalSpy showing(f.backstage, &Backstage::PageShowing);
  QSignalSpy file(f.ribbon, &RibbonBar::FileButtonClicked);
  QTest::mouseClick(f.ribbon->FileButton(), Qt::LeftButton);
  EXPECT_EQ(file.count(), 1);
  ASSERT_TRUE(f.backstage->IsOpen());
  EXPECT_EQ(f.backstage->geometry(), f.window.rect());
  EXPECT_EQ(f.backstage->CurrentPage(), 10010);
  ASSERT_EQ(showing.count(), 1);
  EXPECT_EQ(showing.at(0).at(0).toInt(), 10010);
  EXPECT_TRUE(f.backstage->Page(10010)->isVisible());
  EXPECT_FALSE(f.backstage->Page(10012)->isVisible());
  EXPECT_TRUE(f.backstage->ItemFor(10010)->isChecked());

  // It covers the window and follows its size.
  f.window.resize(1100, 700);
  EXPECT_EQ(f.backstage->geometry(), f.window.rect());

  // A page's item shows that page, and says so first.
  QTest::mouseClick(f.backstage->ItemFor(10011), Qt::LeftButton);
  EXPECT_EQ(showing.count(), 2);
  EXPECT_EQ(showing.at(1).at(0).toInt(), 10011);
  EXPECT_TRUE(f.backstage->Page(10011)->isVisible());
  EXPECT_FALSE(f.backstage->ItemFor(10010)->isChecked());
  EXPECT_TRUE(f.backstage->ItemFor(10011)->isChecked());
  EXPECT_TRUE(f.backstage->IsOpen());

  // Opening again starts on the start page; Open(id) on another.
  f.backstage->Close();
  f.backstage->Open(10012);
  EXPECT_EQ(f.backstage->CurrentPage(), 10012);
  f.backstage->Close();
  f.backstage->Open(4242);
  EXPECT_EQ(f.backstage->CurrentPage(), 10010);
}

TEST(Backstage, ACommandClosesItAndExecutes) {
  BackstageFixture f;
  ExecutedIds ids(f.bars);
  bool openWhenExecuted = true;
  QObject::connect(&f.bars, &CommandBars::Executed, &f.bars, [&] { openWhenExecuted = f.backstage->IsOpen(); });
  QSignalSpy closed(f.backstage, &Backstage::Closed);
  f.backstage->Open();
  QTest::mouseClick(f.backstage->ItemFor(57604), Qt::LeftButton);
  EXPECT_FALSE(f.backstage->IsOpen());
  EXPECT_FALSE(openWhenExecuted);
  EXPECT_EQ(closed.count(), 1);
  EXPECT_EQ(ids.ids, std::vector<int>{57604});
  // Pages are no commands.
  f.backstage->Open();
  QTest::mouseClick(f.backstage->ItemFor(10012), Qt::LeftButton);
  EXPECT_EQ(ids.ids, std::vector<int>{57604});
  EXPECT_TRUE(f.backstage->IsOpen());
}

TEST(Backstage, EscapeAndTheBackArrowCloseIt) {
  BackstageFixture f;
  ExecutedIds ids(f.bars);
  f.backstage->Open();
  ASSERT_TRUE(f.backstage->IsOpen());
  QTest::keyClick(f.backstage->ItemFor(10010), Qt::Key_Escape);
  EXPECT_FALSE(f.backstage->IsOpen());
  f.backstage->Open();
  QTest::mouseClick(f.backstage->BackButton(), Qt::LeftButton);
  EXPECT_FALSE(f.backstage->IsOpen());
  EXPECT_TRUE(ids.ids.empty());
}

TEST(Backstage, ItsItemsFollowTheirControlsAndTheRibbonsKeysWait) {
  BackstageFixture f;
  ExecutedIds ids(f.bars);
  auto* holder = new Backstage(f.bars, f.window);
  CommandControl& support = holder->AddPage(10014, "Support Us", nullptr);
  CommandControl& save = holder->AddCommand(57603, "&Save");
  save.SetEnabled(false);
  EXPECT_FALSE(holder->ItemFor(57603)->isEnabled());
  support.SetVisible(false);
  EXPECT_TRUE(holder->ItemFor(10014)->isHidden());
  support.SetCaption("&Thanks");
  EXPECT_EQ(holder->ItemFor(10014)->text(), "Thanks");
  delete holder;

  QApplication::setActiveWindow(&f.window);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&f.window));
  // Alt+F opens it; the ribbon's keys wait while it is open, and its own letters work.
  QTest::keyClick(&f.window, Qt::Key_F, Qt::AltModifier);
  ASSERT_TRUE(f.backstage->IsOpen());
  QTest::keyClick(&f.window, Qt::Key_F5);
  QTest::keyClick(&f.window, Qt::Key_V, Qt::AltModifier);
  EXPECT_TRUE(ids.ids.empty());
  EXPECT_EQ(f.ribbon->CurrentTab(), 0);
  QTest::keyClick(&f.window, Qt::Key_P, Qt::AltModifier);
  EXPECT_EQ(f.backstage->CurrentPage(), 10011);
  // Save and Samples share their letter: the key moves between them.
  QTest::keyClick(&f.window, Qt::Key_S, Qt::AltModifier);
  QWidget* first = QApplication::focusWidget();
  QTest::keyClick(&f.window, Qt::Key_S, Qt::AltModifier);
  QWidget* second = QApplication::focusWidget();
  EXPECT_NE(first, second);
  EXPECT_TRUE(first == f.backstage->ItemFor(57603) || first == f.backstage->ItemFor(10012));
  EXPECT_TRUE(second == f.backstage->ItemFor(57603) || second == f.backstage->ItemFor(10012));
  EXPECT_TRUE(ids.ids.empty());
  QTest::keyClick(&f.window, Qt::Key_A, Qt::AltModifier);
  EXPECT_FALSE(f.backstage->IsOpen());
  EXPECT_EQ(ids.ids, std::vector<int>{57604});
  QTest::keyClick(&f.window, Qt::Key_F5);
  EXPECT_EQ(ids.ids, (std::vector<int>{57604, 1023}));
  // A quick access key closes the backstage before its command runs.
  f.ribbon->QuickAccess().AddCommand(57603, "Save", "document-save", "Ctrl+S");
  f.backstage->Open();
  QTest::keyClick(&f.window, Qt::Key_S, Qt::ControlModifier);
  EXPECT_FALSE(f.backstage->IsOpen());
  EXPECT_EQ(ids.ids, (std::vector<int>{57604, 1023, 57603}));
}


TEST(Backstage, TabGoesRoundItsOwnWidgetsOnly) {
  BackstageFixture f;
  QApplication::setActiveWindow(&f.window);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&f.window));
  f.backstage->Open();
  ASSERT_TRUE(f.backstage->isAncestorOf(QApplication::focusWidget()));
  for (int i = 0; i < 30; ++i) {
    QTest::keyClick(QApplication::focusWidget(), i % 3 == 0 ? Qt::Key_Backtab : Qt::Key_Tab);
    ASSERT_TRUE(f.backstage->isAncestorOf(QApplication::focusWidget())) << i;
  }
  // Closed, the keyboard goes back where it was.
  QWidget* before = f.ribbon->FileButton();
  f.backstage->Close();
  before->setFocus();
  f.backstage->Open();
  f.backstage->Close();
  EXPECT_EQ(QApplication::focusWidget(), before);
}
