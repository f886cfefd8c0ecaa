#include "benches/area/AreaPlot.h"
#include "benches/area/AreaWindow.h"
#include "benches/area/ErrorPlot.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>
#include <QTest>

#include <memory>

namespace area {
namespace {

class AreaWindowTest : public ::testing::Test {
protected:
  void SetUp() override {
    window = std::make_unique<AreaWindow>();
    window->resize(1150, 720);
    window->show();
    QApplication::processEvents();
  }

  void Enter(QLineEdit* field, const QString& text) {
    field->setFocus();
    field->setText(text);
    QTest::keyClick(field, Qt::Key_Return);
  }

  void Choose(Rule rule) { window->RuleBox()->setCurrentIndex(static_cast<int>(rule)); }

  bool Problem() const { return window->Message()->styleSheet().contains(u"#b00020"); }

  std::unique_ptr<AreaWindow> window;
};

TEST_F(AreaWindowTest, OpensOnTheSquareWithFourMidpointPieces) {
  EXPECT_FALSE(Problem());
  ASSERT_TRUE(window->Sum().has_value());
  EXPECT_EQ(*window->Sum(), 0.328125);
  EXPECT_EQ(window->SumText()->text(), QStringLiteral("Sum (midpoint rule, n = 4) = 0.328125"));
  EXPECT_EQ(window->IntegralText()->text(), QStringLiteral("Integral of f from 0 to 1 = 0.333333333333333"));
  EXPECT_EQ(window->ErrorText()->text(), QStringLiteral("Error = sum − integral = -0.00520833"));
  EXPECT_EQ(window->Plot()->Pieces().size(), 4u);
  EXPECT_TRUE(window->Plot()->Scene().Problems().isEmpty());
}

TEST_F(AreaWindowTest, EveryRuleThroughTheWindow) {
  const struct {
    Rule Which;
    const char* Text;
  } cases[] = {{Rule::Left, "Sum (left rule, n = 4) = 0.21875"},
               {Rule::Right, "Sum (right rule, n = 4) = 0.46875"},
               {Rule::Midpoint, "Sum (midpoint rule, n = 4) = 0.328125"},
               {Rule::Trapezoid, "Sum (trapezoid rule, n = 4) = 0.34375"},
               {Rule::Simpson, "Sum (Simpson rule, n = 4) = 0.333333333333333"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Text);
    Choose(c.Which);
    EXPECT_EQ(window->SumText()->text(), QString::fromUtf8(c.Text));
  }
  EXPECT_EQ(*window->Sum(), 1.0 / 3);
  // The quadrature's 1/3 may stand a last bit away from the double nearest 1/3.
  EXPECT_NEAR(*window->Sum() - *window->Integral(), 0, 1e-16);
}

TEST_F(AreaWindowTest, SimpsonWithAnOddCountSaysItUsesTheNextEven) {
  Choose(Rule::Simpson);
  window->CountBox()->setValue(5);
  EXPECT_EQ(window->CountSlider()->value(), 5);
  EXPECT_TRUE(window->Message()->text().contains(u"needs an even n: n = 5 is odd, and the sum uses n = 6"));
  EXPECT_TRUE(window->SumText()->text().contains(u"n = 6"));
  EXPECT_EQ(window->Plot()->Pieces().size(), 3u);  // three parabola strips of two pieces each
  Choose(Rule::Left);
  EXPECT_FALSE(window->Message()->text().contains(u"even"));
  EXPECT_EQ(window->Plot()->Pieces().size(), 5u);
}

TEST_F(AreaWindowTest, TheSliderAndTheBoxMoveTogether) {
  window->CountSlider()->setFocus();
  QTest::keyClick(window->CountSlider(), Qt::Key_Right);
  EXPECT_EQ(window->CountBox()->value(), 5);
  window->CountBox()->setValue(1000);
  EXPECT_EQ(window->CountSlider()->value(), 1000);
  EXPECT_EQ(window->Plot()->Pieces().size(), 1000u);
  EXPECT_NEAR(*window->Sum(), 1.0 / 3, 1e-6);
}

TEST_F(AreaWindowTest, TypedFunctionAndBoundsWithPi) {
  Enter(window->FunctionField(), QStringLiteral("sin(x)"));
  Enter(window->ToField(), QStringLiteral("pi"));
  EXPECT_FALSE(Problem()) << window->Message()->text().toStdString();
  ASSERT_TRUE(window->Integral().has_value());
  EXPECT_NEAR(*window->Integral(), 2, 1e-13);  // the program's pi has 15 digits
  EXPECT_EQ(window->Errors()->Legend().size(), 5);
  EXPECT_TRUE(window->Errors()->Legend()[4].startsWith(u"Simpson: slope −4.0")) << window->Errors()->Legend()[4].toStdString();
  EXPECT_TRUE(window->OrderNote()->text().contains(u"f(a) = f(b)"));
  Enter(window->ToField(), QStringLiteral("pi/2"));
  EXPECT_TRUE(window->Errors()->Legend()[0].startsWith(u"left: slope −1.0")) << window->Errors()->Legend()[0].toStdString();
  EXPECT_TRUE(window->OrderNote()->text().isEmpty());
}

TEST_F(AreaWindowTest, BadInputSaysSoInWordsAndNeverCrashes) {
  const struct {
    QLineEdit* (AreaWindow::*Field)() const;
    const char* Text;
    const char* Said;
  } cases[] = {
      {&AreaWindow::FunctionField, "x^", "cannot be read"},
      {&AreaWindow::FunctionField, "", "Type a function"},
      {&AreaWindow::FunctionField, "y=x", "no \u201C=\u201D"},
      {&AreaWindow::FunctionField, "t+x", "uses another variable"},
      {&AreaWindow::FromField, "abc", "a = \u201Cabc\u201D is not a number"},
      {&AreaWindow::ToField, "", "b = \u201C\u201D is not a number"},
      {&AreaWindow::ToField, "1/0", "is not a number"},
      {&AreaWindow::ToField, "-1", "needs a < b"},
      {&AreaWindow::FunctionField, "sqr(x-0.5)", "has no value somewhere"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Text);
    Enter((window.get()->*c.Field)(), QString::fromUtf8(c.Text));
    EXPECT_TRUE(Problem());
    EXPECT_TRUE(window->Message()->text().contains(QString::fromUtf8(c.Said))) << window->Message()->text().toStdString();
    EXPECT_FALSE(window->Sum().has_value());
    EXPECT_TRUE(window->Plot()->Pieces().empty());
    // The rule and n still move without harm while the inputs are wrong.
    Choose(Rule::Simpson);
    window->CountBox()->setValue(7);
    Choose(Rule::Midpoint);
    // Put the field right again for the next case.
    Enter((window.get()->*c.Field)(), (c.Field == &AreaWindow::FunctionField) ? QStringLiteral("x^2")
                                      : (c.Field == &AreaWindow::FromField)   ? QStringLiteral("0")
                                                                              : QStringLiteral("1"));
    EXPECT_FALSE(Problem()) << window->Message()->text().toStdString();
  }
}

TEST_F(AreaWindowTest, ASampleWhereFIsUndefined) {
  Enter(window->FunctionField(), QStringLiteral("1/(x-0.5)"));
  // The quadrature meets no sample at 0.5 exactly, but the pole makes the area undefined or the
  // sum unusable: either way the window says so in words.
  Choose(Rule::Left);
  window->CountBox()->setValue(2);
  EXPECT_TRUE(Problem());
  EXPECT_FALSE(window->Sum().has_value());
}

TEST_F(AreaWindowTest, AnImproperIntegralWithASampleOnThePole) {
  // ln has no value at 0, but its area from 0 to 1 is -1: the midpoint rule never samples 0, the
  // left rule does.
  Enter(window->FunctionField(), QStringLiteral("ln(x)"));
  EXPECT_FALSE(Problem()) << window->Message()->text().toStdString();
  EXPECT_NEAR(*window->Integral(), -1, 1e-9);
  EXPECT_TRUE(window->Sum().has_value());
  Choose(Rule::Left);
  EXPECT_FALSE(window->Sum().has_value());
  EXPECT_EQ(window->SumText()->text(), QStringLiteral("Sum: f has no value at one of the left rule's sample points."));
  EXPECT_TRUE(window->Message()->text().startsWith(u"Choose another rule, n or interval"));
  Choose(Rule::Right);
  EXPECT_FALSE(Problem());
  EXPECT_TRUE(window->Sum().has_value());
}

TEST_F(AreaWindowTest, StrangeTextsInEveryFieldNeverCrash) {
  const QString texts[] = {QStringLiteral("x^1e308"), QStringLiteral("1e308*x*x"), QStringLiteral("fact(1000)"),
                           QStringLiteral("(((((((x)))))))"), QString(500, u'('), QStringLiteral("π"),
                           QStringLiteral("\u00E9\u4E2D"), QStringLiteral("1e-300"), QStringLiteral("-1e12"),
                           QStringLiteral("0/0"), QStringLiteral("x x x")};
  for (QLineEdit* field : {window->FunctionField(), window->FromField(), window->ToField()}) {
    for (const QString& text : texts) {
      SCOPED_TRACE(text.left(20).toStdString());
      Enter(field, text);
      EXPECT_FALSE(window->Message()->text().isEmpty());
      window->CountBox()->setValue(999);
      Choose(Rule::Simpson);
      window->CountBox()->setValue(3);
      Choose(Rule::Midpoint);
      QApplication::processEvents();
    }
    Enter(window->FunctionField(), QStringLiteral("x^2"));
    Enter(window->FromField(), QStringLiteral("0"));
    Enter(window->ToField(), QStringLiteral("1"));
    EXPECT_FALSE(Problem());
  }
}

TEST_F(AreaWindowTest, EveryControlIsNamedAndReachable) {
  EXPECT_FALSE(window->windowTitle().isEmpty());
  EXPECT_GE(window->minimumWidth(), 800);
  for (QWidget* w : window->findChildren<QWidget*>()) {
    if ((w->focusPolicy() & Qt::TabFocus) && !qobject_cast<QAbstractSpinBox*>(w->parentWidget())) {
      EXPECT_FALSE(w->accessibleName().isEmpty()) << w->metaObject()->className();
    }
  }
  window->FunctionField()->setFocus();
  QWidget* expected[] = {window->FromField(), window->ToField(), window->RuleBox(), window->CountSlider(),
                         window->CountBox()};
  for (QWidget* next : expected) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), next) << next->accessibleName().toStdString();
  }
}

}  // namespace
}  // namespace area
