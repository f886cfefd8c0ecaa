#include "benches/trigon/TrigGraph.h"
#include "benches/trigon/TrigonWindow.h"
#include "benches/trigon/UnitCircle.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTest>

#include <cmath>
#include <memory>
#include <numbers>

namespace trigon {
namespace {

class TrigonWindowTest : public ::testing::Test {
protected:
  void SetUp() override {
    window = std::make_unique<TrigonWindow>();
    window->resize(1100, 720);
    window->show();
    QApplication::processEvents();
  }

  void Type(const QString& text) {
    window->AngleField()->setText(text);
    window->AngleField()->setFocus();
    QTest::keyClick(window->AngleField(), Qt::Key_Return);
  }

  QPointF OnCircle(double degrees) const {
    const double a = degrees * std::numbers::pi / 180;
    return window->Circle()->ToWidget(std::cos(a), std::sin(a));
  }

  void Mouse(QEvent::Type type, QPointF at, Qt::MouseButtons buttons) {
    QMouseEvent event(type, at, window->Circle()->mapToGlobal(at), Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(window->Circle(), &event);
  }

  std::unique_ptr<TrigonWindow> window;
};

TEST_F(TrigonWindowTest, TypedAnglesInEachUnit) {
  const struct {
    const char* Text;
    int Unit;  // 0 degrees, 1 radians
    double Degrees;
  } cases[] = {
      {"pi/6", 0, 30},     {"3pi/4", 0, 135},  {"π/3", 0, 60},      {"2*pi/3", 1, 120}, {"45", 0, 45},
      {"45°", 1, 45},      {"60 deg", 1, 60},  {"pi", 0, 180},      {"390", 0, 30},     {"-30", 0, 330},
      {"-pi/2", 0, 270},   {"1 rad", 0, 180 / 3.14159265358979},    {"2", 1, 360 / 3.14159265358979},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Text);
    window->UnitBox()->setCurrentIndex(c.Unit);
    Type(QString::fromUtf8(c.Text));
    EXPECT_NEAR(window->Circle()->Angle(), c.Degrees, 1e-9);
    EXPECT_FALSE(window->Message()->text().contains(u"not an angle"));
  }
}

TEST_F(TrigonWindowTest, TypedPiOverSixIsThirtyDegreesExactly) {
  Type(QStringLiteral("pi/6"));
  EXPECT_EQ(window->Circle()->Angle(), 30);
  EXPECT_EQ(window->AngleText()->text(), QStringLiteral("θ = 30° = π/6 rad"));
  EXPECT_EQ(window->SinText()->text(), QStringLiteral("sin θ = 1/2  ≈ 0.500000"));
  EXPECT_EQ(window->CosText()->text(), QStringLiteral("cos θ = √3/2  ≈ 0.866025"));
  EXPECT_EQ(window->TanText()->text(), QStringLiteral("tan θ = 1/√3  ≈ 0.577350"));
}

TEST_F(TrigonWindowTest, BadTextSaysSoInWordsAndKeepsTheAngle) {
  Type(QStringLiteral("pi/4"));
  for (const char* text : {"abc", "pi/", "1/0", "°", "rad", "sqr(-1)", "1e300", "))", "3pi/4pi/"}) {
    SCOPED_TRACE(text);
    Type(QString::fromUtf8(text));
    EXPECT_EQ(window->Circle()->Angle(), 45);
    EXPECT_FALSE(window->Message()->text().isEmpty());
    EXPECT_TRUE(window->Message()->styleSheet().contains(u"#b00020"));
  }
  Type(QStringLiteral("60"));
  EXPECT_FALSE(window->Message()->styleSheet().contains(u"#b00020"));
}

TEST_F(TrigonWindowTest, StrangeTextsNeverCrash) {
  const QString texts[] = {QString(500, u'('), QStringLiteral("1e308*1e308"), QStringLiteral("fact(1000)"),
                           QStringLiteral("\u00E9\u4E2D"), QStringLiteral("pi pi"), QStringLiteral("1e-300"),
                           QStringLiteral("-0"), QStringLiteral("0/0"), QStringLiteral("°°"), QStringLiteral("radrad")};
  for (int unit : {0, 1}) {
    window->UnitBox()->setCurrentIndex(unit);
    for (const QString& text : texts) {
      SCOPED_TRACE(text.left(20).toStdString());
      Type(text);
      EXPECT_FALSE(window->Message()->text().isEmpty());
      const double angle = window->Circle()->Angle();
      EXPECT_TRUE(angle >= 0 && angle < 360);
      QApplication::processEvents();
    }
  }
}

TEST_F(TrigonWindowTest, TanAtNinetyIsUndefined) {
  for (double degrees : {90.0, 270.0}) {
    window->Circle()->SetAngle(degrees);
    EXPECT_EQ(window->TanText()->text(), QStringLiteral("tan θ is undefined (cos θ = 0)"));
    EXPECT_FALSE(window->Graph(2)->PointInWidget().has_value());
    EXPECT_TRUE(window->Graph(0)->PointInWidget().has_value());
  }
  window->Circle()->SetAngle(89);
  EXPECT_TRUE(window->TanText()->text().startsWith(u"tan θ ≈ 57.28"));
}

TEST_F(TrigonWindowTest, ExactValuesShowAtEverySpecialAngle) {
  const struct {
    int Degrees;
    const char* Sin;
    const char* Cos;
  } cases[] = {{0, "sin θ = 0", "cos θ = 1"},
               {45, "sin θ = √2/2  ≈ 0.707107", "cos θ = √2/2  ≈ 0.707107"},
               {150, "sin θ = 1/2  ≈ 0.500000", "cos θ = -√3/2  ≈ -0.866025"},
               {180, "sin θ = 0", "cos θ = -1"},
               {300, "sin θ = -√3/2  ≈ -0.866025", "cos θ = 1/2  ≈ 0.500000"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Degrees);
    window->Circle()->SetAngle(c.Degrees);
    EXPECT_EQ(window->SinText()->text(), QString::fromUtf8(c.Sin));
    EXPECT_EQ(window->CosText()->text(), QString::fromUtf8(c.Cos));
  }
  window->Circle()->SetAngle(20);
  EXPECT_EQ(window->SinText()->text(), QStringLiteral("sin θ ≈ 0.342020"));
}

TEST_F(TrigonWindowTest, DraggingThePointMovesTheAngle) {
  window->Circle()->SetAngle(0);
  Mouse(QEvent::MouseButtonPress, OnCircle(0), Qt::LeftButton);
  for (int d = 10; d <= 120; d += 10) Mouse(QEvent::MouseMove, OnCircle(d), Qt::LeftButton);
  EXPECT_EQ(window->Circle()->Angle(), 120);
  Mouse(QEvent::MouseButtonRelease, OnCircle(120), Qt::NoButton);
  EXPECT_EQ(window->AngleField()->text(), QStringLiteral("120°"));
  EXPECT_EQ(window->CosText()->text(), QStringLiteral("cos θ = -1/2  ≈ -0.500000"));
  // A move with the button up no longer turns it.
  Mouse(QEvent::MouseMove, OnCircle(200), Qt::NoButton);
  EXPECT_EQ(window->Circle()->Angle(), 120);
}

TEST_F(TrigonWindowTest, DraggingIntoTheLowerHalfGoesPastOneEighty) {
  Mouse(QEvent::MouseButtonPress, OnCircle(170), Qt::LeftButton);
  Mouse(QEvent::MouseMove, OnCircle(225), Qt::LeftButton);
  EXPECT_EQ(window->Circle()->Angle(), 225);
  EXPECT_EQ(window->TanText()->text(), QStringLiteral("tan θ = 1"));
  Mouse(QEvent::MouseButtonRelease, OnCircle(225), Qt::NoButton);
}

TEST_F(TrigonWindowTest, ArrowKeysStepByOneAndShiftByFifteen) {
  window->Circle()->SetAngle(0);
  window->Circle()->setFocus();
  QTest::keyClick(window->Circle(), Qt::Key_Right);
  EXPECT_EQ(window->Circle()->Angle(), 1);
  QTest::keyClick(window->Circle(), Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(window->Circle()->Angle(), 16);
  QTest::keyClick(window->Circle(), Qt::Key_Left, Qt::ShiftModifier);
  QTest::keyClick(window->Circle(), Qt::Key_Down);
  EXPECT_EQ(window->Circle()->Angle(), 0);
  QTest::keyClick(window->Circle(), Qt::Key_Left);
  EXPECT_EQ(window->Circle()->Angle(), 359);
}

TEST_F(TrigonWindowTest, TheGraphsPointsFollowTheAngle) {
  window->Circle()->SetAngle(90);
  const auto top = window->Graph(0)->PointInWidget();
  window->Circle()->SetAngle(270);
  const auto bottom = window->Graph(0)->PointInWidget();
  ASSERT_TRUE(top && bottom);
  EXPECT_GT(bottom->x(), top->x());
  EXPECT_LT(top->y(), bottom->y());
  // y = 1 and y = -1 lie as far above the axis as below it.
  EXPECT_NEAR(top->y() + bottom->y(), window->Graph(0)->height(), 1e-6);
  EXPECT_TRUE(window->Graph(0)->Scene().Problems().isEmpty());
  EXPECT_TRUE(window->Graph(2)->Scene().Problems().isEmpty());
}

TEST_F(TrigonWindowTest, EveryControlIsNamedAndReachable) {
  EXPECT_FALSE(window->windowTitle().isEmpty());
  EXPECT_GE(window->minimumWidth(), 800);
  for (QWidget* w : window->findChildren<QWidget*>()) {
    if (w->focusPolicy() & Qt::TabFocus) {
      EXPECT_FALSE(w->accessibleName().isEmpty()) << w->metaObject()->className();
    }
  }
  window->AngleField()->setFocus();
  QTest::keyClick(window->AngleField(), Qt::Key_Tab);
  QTest::keyClick(window->UnitBox(), Qt::Key_Tab);
  EXPECT_TRUE(window->Circle()->hasFocus());
}

}  // namespace
}  // namespace trigon
