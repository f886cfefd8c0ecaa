#include "benches/abacus/AbacusProgram.h"
#include "benches/abacus/AbacusWindow.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

namespace {

using abacus::AbacusWindow;

class AbacusWindowTest : public ::testing::Test {
protected:
  AbacusWindowTest() {
    window.CopyText = [this](const QString& text) { copied = text; };
    window.show();
  }

  void Type(const QString& text) {
    window.Input()->clear();
    QTest::keyClicks(window.Input(), text);
    QTest::keyClick(window.Input(), Qt::Key_Return);
  }

  AbacusWindow window;
  QString copied;
};

TEST_F(AbacusWindowTest, EnterEvaluatesIntoTheHistory) {
  Type(QStringLiteral("2+3*4"));
  EXPECT_EQ(window.Result()->text(), QStringLiteral("= 14"));
  ASSERT_EQ(window.History()->count(), 1);
  EXPECT_EQ(window.History()->item(0)->text(), QStringLiteral("2+3*4 = 14"));
  EXPECT_TRUE(window.Input()->text().isEmpty());
}

TEST_F(AbacusWindowTest, AFailureIsSaidInWordsAndKeepsTheText) {
  Type(QStringLiteral("1/0"));
  EXPECT_EQ(window.Result()->text(), QStringLiteral("Cannot compute: division by zero"));
  EXPECT_EQ(window.Input()->text(), QStringLiteral("1/0"));
  EXPECT_EQ(window.History()->count(), 0);
  Type(QStringLiteral("q"));
  EXPECT_EQ(window.Result()->text(), QStringLiteral("Unknown name: q"));
}

TEST_F(AbacusWindowTest, DegreesMakeSinOf30AHalf) {
  QTest::mouseClick(window.DegreesButton(), Qt::LeftButton);
  ASSERT_TRUE(window.DegreesButton()->isChecked());
  Type(QStringLiteral("sin(30)"));
  EXPECT_EQ(window.Result()->text(), QStringLiteral("= 0.5"));
  QTest::mouseClick(window.RadiansButton(), Qt::LeftButton);
  Type(QStringLiteral("sin(30)"));
  EXPECT_EQ(window.Result()->text(), QStringLiteral("= -0.988031624092862"));
}

TEST_F(AbacusWindowTest, AnsTakesTheLastAnswer) {
  Type(QStringLiteral("6*7"));
  Type(QStringLiteral("ans/2"));
  EXPECT_EQ(window.Result()->text(), QStringLiteral("= 21"));
  EXPECT_EQ(window.History()->item(1)->text(), QStringLiteral("ans/2 = 21"));
}

TEST_F(AbacusWindowTest, EnterOnAHistoryLinePutsItBackAndCtrlCCopiesIt) {
  Type(QStringLiteral("sqrt(2)"));
  Type(QStringLiteral("1/4"));
  window.History()->setFocus();
  window.History()->setCurrentRow(0);
  QTest::keyClick(window.History(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(copied, QStringLiteral("sqrt(2) = 1.4142135623731"));
  QTest::keyClick(window.History(), Qt::Key_Return);
  EXPECT_EQ(window.Input()->text(), QStringLiteral("sqrt(2)"));
}

TEST_F(AbacusWindowTest, ADoubleClickPutsALineBackAndCopyCopiesTheCurrentOne) {
  Type(QStringLiteral("10-3"));
  Type(QStringLiteral("2^10"));
  QListWidget* history = window.History();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  QCoreApplication::processEvents();  // the list lays its items out later
  const QRect first = history->visualItemRect(history->item(0));
  ASSERT_TRUE(first.isValid());
  // A double-click starts with a press, as a person's does.
  QTest::mousePress(history->viewport(), Qt::LeftButton, {}, first.center());
  QTest::mouseRelease(history->viewport(), Qt::LeftButton, {}, first.center());
  QTest::mouseDClick(history->viewport(), Qt::LeftButton, {}, first.center());
  EXPECT_EQ(window.Input()->text(), QStringLiteral("10-3"));
  history->setCurrentRow(1);
  QTest::mouseClick(window.CopyButton(), Qt::LeftButton);
  EXPECT_EQ(copied, QStringLiteral("2^10 = 1024"));
}

TEST_F(AbacusWindowTest, UpAndDownInTheInputStepThroughTheHistory) {
  Type(QStringLiteral("1+1"));
  Type(QStringLiteral("2+2"));
  Type(QStringLiteral("3+3"));
  QTest::keyClick(window.Input(), Qt::Key_Up);
  EXPECT_EQ(window.Input()->text(), QStringLiteral("3+3"));
  QTest::keyClick(window.Input(), Qt::Key_Up);
  QTest::keyClick(window.Input(), Qt::Key_Up);
  QTest::keyClick(window.Input(), Qt::Key_Up);
  EXPECT_EQ(window.Input()->text(), QStringLiteral("1+1"));
  QTest::keyClick(window.Input(), Qt::Key_Down);
  EXPECT_EQ(window.Input()->text(), QStringLiteral("2+2"));
}

TEST_F(AbacusWindowTest, EveryControlHasAName) {
  for (QWidget* child : window.findChildren<QWidget*>()) {
    if (child->focusPolicy() == Qt::NoFocus || qobject_cast<QLabel*>(child)) continue;
    if (child->parentWidget() && child->parentWidget()->inherits("QAbstractScrollArea")) continue;
    EXPECT_FALSE(child->accessibleName().isEmpty()) << child->metaObject()->className();
  }
  EXPECT_FALSE(window.windowTitle().isEmpty());
  EXPECT_GE(window.minimumWidth(), 400);
}

TEST(AbacusProgram, PictureIsWrittenAtTheAskedSize) {
  QTemporaryDir dir;
  const QString file = dir.filePath(QStringLiteral("abacus.png"));
  ASSERT_EQ(abacus::RunAbacus({QStringLiteral("--picture"), file, QStringLiteral("--size"), QStringLiteral("600x540")}), 0);
  const QImage picture(file);
  ASSERT_FALSE(picture.isNull());
  EXPECT_EQ(picture.size() / picture.devicePixelRatio(), QSize(600, 540));
}

TEST(AbacusProgram, BadArgumentsAreRefused) {
  EXPECT_EQ(abacus::RunAbacus({QStringLiteral("--size"), QStringLiteral("big")}), 2);
  EXPECT_EQ(abacus::RunAbacus({QStringLiteral("--picture")}), 2);
  EXPECT_EQ(abacus::RunAbacus({QStringLiteral("--what")}), 2);
}

}  // namespace
