#include "benches/chain/ChainProgram.h"
#include "benches/chain/ChainWindow.h"

#include "plot2d/PlotWidget.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <set>

namespace {

using chain::ChainRule;
using chain::ChainWindow;

template <typename T>
T* Child(const QWidget& window, const QString& name) {
  T* child = window.findChild<T*>(name);
  EXPECT_NE(child, nullptr) << name.toStdString();
  return child;
}

QString StepText(const QWidget& window, int step) {
  return Child<QLabel>(window, QStringLiteral("lblText") + ChainWindow::StepKey(step))->text();
}

QString LabelText(const QWidget& window, const char* name) {
  return Child<QLabel>(window, QString::fromLatin1(name))->text();
}

void Type(QLineEdit* field, const QString& text) {
  field->selectAll();
  QTest::keyClick(field, Qt::Key_Delete);
  // Qt's test keyboard knows ASCII alone; other characters come as typed text.
  for (const QChar c : text) {
    if (c.unicode() < 128)
      QTest::keyClick(field, c.toLatin1());
    else
      field->insert(QString(c));
  }
}

std::set<int> DrawnRows(const ChainWindow& window) {
  std::set<int> rows;
  for (const auto& curve : window.Plot()->Scene().LastDrawing().Curves) rows.insert(curve.Row);
  return rows;
}

TEST(ChainWindow, ShowsEveryStepOfSinOfXSquared) {
  ChainWindow window;
  Type(Child<QLineEdit>(window, QStringLiteral("edtF")), QStringLiteral("sin(x)"));
  Type(Child<QLineEdit>(window, QStringLiteral("edtG")), QStringLiteral("x^2"));
  EXPECT_EQ(StepText(window, ChainRule::Composition), QStringLiteral("f(g(x)) = sin((x^2))"));
  EXPECT_EQ(StepText(window, ChainRule::InnerSlope), QStringLiteral("g′(x) = 2*x"));
  EXPECT_EQ(StepText(window, ChainRule::OuterSlope), QStringLiteral("f′(x) = cos(x)"));
  EXPECT_EQ(StepText(window, ChainRule::OuterAtInner), QStringLiteral("f′(g(x)) = cos((x^2))"));
  EXPECT_EQ(StepText(window, ChainRule::Product), QStringLiteral("g′(x)·f′(g(x)) = (2*x)*(cos((x^2)))"));
  EXPECT_EQ(LabelText(window, "lblDirect"), QStringLiteral("Our derivative of f(g(x)) taken at once: 2*x*cos(x^2)"));
  EXPECT_EQ(LabelText(window, "lblCheck"),
            QStringLiteral(
                "Checked at x = -1.7, -0.9, -0.3, 0.4, 1.1: agrees to 1e-9 with the central difference of f(g(x))."));
  EXPECT_TRUE(LabelText(window, "lblMessage").isEmpty());
  for (int step = 0; step < ChainRule::kStepCount; ++step) {
    const auto* typeset = Child<QLabel>(window, QStringLiteral("lblTypeset") + ChainWindow::StepKey(step));
    EXPECT_FALSE(typeset->pixmap().isNull()) << step;
    EXPECT_GT(typeset->pixmap().width(), 20) << step;
  }
}

TEST(ChainWindow, TheCubeOfALine) {
  ChainWindow window;
  Type(Child<QLineEdit>(window, QStringLiteral("edtF")), QStringLiteral("x^3"));
  Type(Child<QLineEdit>(window, QStringLiteral("edtG")), QStringLiteral("2x+1"));
  EXPECT_EQ(StepText(window, ChainRule::Composition), QStringLiteral("f(g(x)) = (2x+1)^3"));
  EXPECT_EQ(StepText(window, ChainRule::Product), QStringLiteral("g′(x)·f′(g(x)) = 2*(3*(2x+1)^2)"));
  EXPECT_TRUE(window.Check().Agrees);
}

TEST(ChainWindow, TheCheckboxesShowAndHideEachStepsCurve) {
  ChainWindow window;
  window.show();
  EXPECT_EQ(DrawnRows(window), (std::set<int>{1, 5}));
  Child<QCheckBox>(window, QStringLiteral("chkInnerSlope"))->click();
  EXPECT_EQ(DrawnRows(window), (std::set<int>{1, 2, 5}));
  Child<QCheckBox>(window, QStringLiteral("chkComposition"))->click();
  Child<QCheckBox>(window, QStringLiteral("chkOuterSlope"))->click();
  Child<QCheckBox>(window, QStringLiteral("chkOuterAtInner"))->click();
  EXPECT_EQ(DrawnRows(window), (std::set<int>{2, 3, 4, 5}));
  for (const auto& curve : window.Plot()->Scene().LastDrawing().Curves) {
    EXPECT_EQ(curve.Color, plot2d::Plot::ColorOf(ChainWindow::StepColor(curve.Row - 1))) << curve.Row;
  }
}

TEST(ChainWindow, UnknownNamesGiveAMessageAndNoSteps) {
  ChainWindow window;
  window.show();
  Type(Child<QLineEdit>(window, QStringLiteral("edtG")), QStringLiteral("zork(x)"));
  EXPECT_TRUE(LabelText(window, "lblMessage").startsWith(QStringLiteral("g cannot be read")))
      << LabelText(window, "lblMessage").toStdString();
  EXPECT_TRUE(Child<QLabel>(window, QStringLiteral("lblMessage"))->isVisible());
  EXPECT_EQ(StepText(window, ChainRule::Product), QStringLiteral("g′(x)·f′(g(x)): not found"));
  EXPECT_TRUE(LabelText(window, "lblCheck").isEmpty());
  EXPECT_TRUE(DrawnRows(window).empty());
}

TEST(ChainWindow, ADisagreementIsSaidInWords) {
  ChainWindow window;
  Type(Child<QLineEdit>(window, QStringLiteral("edtF")), QStringLiteral("int(x)"));
  Type(Child<QLineEdit>(window, QStringLiteral("edtG")), QStringLiteral("x+0.7"));
  EXPECT_TRUE(LabelText(window, "lblCheck").contains(QStringLiteral("but the central difference of f(g(x)) gives")));
  EXPECT_FALSE(window.Check().Agrees);
}

TEST(ChainWindow, AnyTextInEitherFieldLeavesAMessageOrSteps) {
  const char* texts[] = {")(",       "=",   "y=", "x^",  "1e999", "[",    "((((((x",
                         "sqrt(-1)", "x/0", "€",  "1,2", "r=2",   "xxxx", "x mod 0"};
  ChainWindow window;
  window.show();
  for (const char* name : {"edtF", "edtG"}) {
    for (const char* text : texts) {
      Type(Child<QLineEdit>(window, QString::fromLatin1(name)), QString::fromUtf8(text));
      EXPECT_TRUE(!LabelText(window, "lblMessage").isEmpty() || !LabelText(window, "lblCheck").isEmpty())
          << name << " " << text;
    }
    Type(Child<QLineEdit>(window, QString::fromLatin1(name)), QStringLiteral("x"));
  }
}

TEST(ChainWindow, EveryControlHasANameAndTheWindowATitle) {
  ChainWindow window;
  EXPECT_FALSE(window.windowTitle().isEmpty());
  EXPECT_GE(window.minimumWidth(), 800);
  EXPECT_GE(window.minimumHeight(), 500);
  for (QWidget* w : window.findChildren<QWidget*>()) {
    if (w->focusPolicy() & Qt::TabFocus) {
      EXPECT_FALSE(w->accessibleName().isEmpty())
          << w->metaObject()->className() << " " << w->objectName().toStdString();
    }
  }
}

TEST(ChainPicture, WritesTheWindowAtTheSizeAsked) {
  QTemporaryDir folder;
  benches::PictureRequest request{folder.filePath(QStringLiteral("chain.png")), QSize(1100, 720)};
  EXPECT_EQ(benches::WritePicture(chain::ChainProgram(), request), QString());
  const QImage picture(request.File);
  ASSERT_FALSE(picture.isNull());
  EXPECT_EQ(picture.size() / picture.devicePixelRatio(), QSize(1100, 720));
  request.File = folder.filePath(QStringLiteral("missing/folder/chain.png"));
  EXPECT_TRUE(benches::WritePicture(chain::ChainProgram(), request).startsWith(QStringLiteral("cannot write")));
  QString problem;
  EXPECT_FALSE(benches::ReadPictureRequest({}, QSize(1280, 820), problem).has_value());
  EXPECT_TRUE(problem.isEmpty());
  EXPECT_TRUE(benches::ReadPictureRequest({"--picture", "a.png", "--size", "900x600"}, QSize(1280, 820), problem).has_value());
  EXPECT_FALSE(benches::ReadPictureRequest({"--size", "0x0"}, QSize(1280, 820), problem).has_value());
  EXPECT_EQ(problem, QStringLiteral("--size wants WxH, such as 1280x820"));
}

}  // namespace
