#include "benches/slope/SlopeProgram.h"
#include "benches/slope/SlopeWindow.h"

#include "WaitUntil.h"

#include "core/NumberText.h"
#include "plot2d/PlotWidget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <ostream>
#include <string>

namespace {

// The cases' names for the test list: their texts, with the characters a test name cannot hold
// replaced, so that each run lists them under the same names.
std::string Plain(std::string text) {
  for (char& c : text) {
    if (c == '[' || c == ']' || c == ';' || c == '#' || c == '\\' || c == '"' || c == '$') c = '_';
  }
  return text;
}

template <typename T>
T* Child(const QWidget& window, const char* name) {
  T* child = window.findChild<T*>(QString::fromLatin1(name));
  EXPECT_NE(child, nullptr) << name;
  return child;
}

QString LabelText(const QWidget& window, const char* name) { return Child<QLabel>(window, name)->text(); }

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

struct TypedCase {
  const char* Function;
  const char* X0;
  const char* H;
  QString Secant;
  const char* Tangent;
  const char* Derivative;
};

void PrintTo(const TypedCase& c, std::ostream* os) {
  *os << Plain(std::string(c.Function) + " at " + c.X0 + " step " + c.H);
}

class TypedCases : public ::testing::TestWithParam<TypedCase> {};

TEST_P(TypedCases, TheSlopesShowAsTyped) {
  const TypedCase& c = GetParam();
  slope::SlopeWindow window;
  Type(Child<QLineEdit>(window, "edtFunction"), QString::fromUtf8(c.Function));
  Type(Child<QLineEdit>(window, "edtX0"), QString::fromUtf8(c.X0));
  Type(Child<QLineEdit>(window, "edtH"), QString::fromUtf8(c.H));
  EXPECT_EQ(LabelText(window, "lblSecant"), QStringLiteral("Secant slope (f(x₀+h) − f(x₀)) / h = ") + c.Secant);
  EXPECT_EQ(LabelText(window, "lblTangent"), QStringLiteral("Tangent slope f′(x₀) = ") + QString::fromUtf8(c.Tangent));
  EXPECT_EQ(LabelText(window, "lblDerivative"), QStringLiteral("f′(x) = ") + QString::fromUtf8(c.Derivative));
  EXPECT_TRUE(LabelText(window, "lblMessage").isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Slope, TypedCases,
                         ::testing::Values(TypedCase{"x^2", "1", "0.5", QStringLiteral("2.5"), "2", "2*x"},
                                           TypedCase{"sin(x)", "0", "0.5", core::FormatNumber(std::sin(0.5) / 0.5), "1",
                                                     "cos(x)"},
                                           TypedCase{"x^3", "2", "1", QStringLiteral("19"), "12", "3*x^2"},
                                           TypedCase{"x^2", "pi/2", "1/4",
                                                     core::FormatNumber((std::pow(3.14159265358979 / 2 + 0.25, 2) -
                                                                         std::pow(3.14159265358979 / 2, 2)) /
                                                                        0.25),
                                                     "3.14159265358979", "2*x"}));

TEST(SlopeWindow, OpensOnXSquaredAtOneWithHalfAStep) {
  slope::SlopeWindow window;
  EXPECT_EQ(LabelText(window, "lblSecant"), QStringLiteral("Secant slope (f(x₀+h) − f(x₀)) / h = 2.5"));
  EXPECT_EQ(LabelText(window, "lblTangent"), QStringLiteral("Tangent slope f′(x₀) = 2"));
  EXPECT_EQ(LabelText(window, "lblGap"), QStringLiteral("Secant minus tangent = 0.5"));
  // The curve, the secant and the tangent.
  window.Plot()->Redraw();
  EXPECT_TRUE(window.Plot()->Scene().Problems().isEmpty());
}

struct BadCase {
  const char* Field;
  const char* Text;
  const char* Says;
};

void PrintTo(const BadCase& c, std::ostream* os) { *os << Plain(std::string(c.Field) + " " + c.Text); }

class BadCases : public ::testing::TestWithParam<BadCase> {};

TEST_P(BadCases, SayWhatIsWrongInWords) {
  const BadCase& c = GetParam();
  slope::SlopeWindow window;
  window.show();
  Type(Child<QLineEdit>(window, c.Field), QString::fromUtf8(c.Text));
  const QString message = LabelText(window, "lblMessage");
  EXPECT_TRUE(message.contains(QString::fromUtf8(c.Says))) << message.toStdString();
  EXPECT_TRUE(Child<QLabel>(window, "lblMessage")->isVisible());
  EXPECT_EQ(LabelText(window, "lblSecant"), QStringLiteral("Secant slope: none, see the message below."));
}

INSTANTIATE_TEST_SUITE_P(Slope, BadCases,
                         ::testing::Values(BadCase{"edtFunction", "x^2+y^2=1", "implicit curve has no derivative"},
                                           BadCase{"edtFunction", "(1,2),(3,4)", "list of points"},
                                           BadCase{"edtFunction", "", "Type a function of x"},
                                           BadCase{"edtFunction", "sin(", "cannot be read"},
                                           BadCase{"edtFunction", "zork(x)", "cannot be read"},
                                           BadCase{"edtX0", "abc(", "x₀ cannot be read as a number"},
                                           BadCase{"edtX0", "", "Type a number for x₀"},
                                           BadCase{"edtH", "0", "h must not be 0"},
                                           BadCase{"edtH", "1/0", "h cannot be read as a number"}));

TEST(SlopeWindow, LnIsUndefinedAtZero) {
  slope::SlopeWindow window;
  Type(Child<QLineEdit>(window, "edtX0"), QStringLiteral("0"));
  Type(Child<QLineEdit>(window, "edtFunction"), QStringLiteral("ln(x)"));
  EXPECT_TRUE(LabelText(window, "lblMessage").contains(QStringLiteral("f is not defined at x₀ = 0")));
  EXPECT_EQ(LabelText(window, "lblTangent"), QStringLiteral("Tangent slope: none at this x₀."));
}

TEST(SlopeWindow, AnyTextInAnyFieldLeavesAMessageOrAnAnswer) {
  const char* texts[] = {")(", "=", "y=", "x^", "1e999", "[", "((((((x", "sqrt(-1)", "x/0", "€", "1,2", "r=2"};
  slope::SlopeWindow window;
  window.show();
  for (const char* name : {"edtFunction", "edtX0", "edtH"}) {
    for (const char* text : texts) {
      Type(Child<QLineEdit>(window, name), QString::fromUtf8(text));
      EXPECT_FALSE(LabelText(window, "lblSecant").isEmpty()) << name << " " << text;
    }
    Type(Child<QLineEdit>(window, name), QStringLiteral("1"));
  }
}

TEST(SlopeWindow, TheSliderRunsFromTwoDownToAMillionth) {
  EXPECT_EQ(slope::SlopeWindow::HOfSlider(0), 2);
  EXPECT_EQ(slope::SlopeWindow::HOfSlider(slope::SlopeWindow::kSliderSteps), 1e-6);
  EXPECT_EQ(slope::SlopeWindow::HOfSlider(slope::SlopeWindow::kSliderSteps / 2), 0.00141);
  for (const double h : {1.0, 0.5, 0.1, 0.01, 1e-4, 1e-5}) {
    EXPECT_NEAR(slope::SlopeWindow::HOfSlider(slope::SlopeWindow::SliderOf(h)) / h, 1, 0.02) << h;
  }
  EXPECT_EQ(slope::SlopeWindow::SliderOf(5), 0);
  EXPECT_EQ(slope::SlopeWindow::SliderOf(0), slope::SlopeWindow::kSliderSteps);
}

TEST(SlopeWindow, TheSliderAtItsEndBringsTheSecantToTheTangent) {
  slope::SlopeWindow window;
  auto* slider = Child<QSlider>(window, "sldH");
  slider->setFocus();
  QTest::keyClick(slider, Qt::Key_End);
  EXPECT_EQ(slider->value(), slope::SlopeWindow::kSliderSteps);
  EXPECT_EQ(Child<QLineEdit>(window, "edtH")->text(), QStringLiteral("1E-06"));
  EXPECT_EQ(window.H(), 1e-6);
  EXPECT_TRUE(LabelText(window, "lblSecant").startsWith(QStringLiteral("Secant slope (f(x₀+h) − f(x₀)) / h = 2.00000")))
      << LabelText(window, "lblSecant").toStdString();
}

TEST(SlopeWindow, SlidingHToZeroRunsOnATimerAndStops) {
  slope::SlopeWindow window;
  window.show();
  auto* slider = Child<QSlider>(window, "sldH");
  auto* button = Child<QPushButton>(window, "btnAnimate");
  const int start = slider->value();
  QTest::mouseClick(button, Qt::LeftButton);
  // The click returns at once: the slide goes on in the event loop.
  EXPECT_LT(slider->value(), slope::SlopeWindow::kSliderSteps);
  EXPECT_EQ(button->text(), QStringLiteral("&Stop"));
  ASSERT_TRUE(WaitUntil([&] { return slider->value() == slope::SlopeWindow::kSliderSteps; }, 20000));
  EXPECT_GT(slider->value(), start);
  EXPECT_EQ(button->text(), QStringLiteral("&Slide h to 0"));
  EXPECT_EQ(window.H(), 1e-6);
}

TEST(SlopeWindow, StopHaltsTheSlide) {
  slope::SlopeWindow window;
  window.show();
  auto* slider = Child<QSlider>(window, "sldH");
  auto* button = Child<QPushButton>(window, "btnAnimate");
  QTest::mouseClick(button, Qt::LeftButton);
  ASSERT_TRUE(WaitUntil([&] { return slider->value() > 200; }));
  QTest::mouseClick(button, Qt::LeftButton);
  const int stopped = slider->value();
  QTest::qWait(100);
  EXPECT_EQ(slider->value(), stopped);
  EXPECT_LT(stopped, slope::SlopeWindow::kSliderSteps);
}

void SendMouse(QWidget* widget, QEvent::Type type, QPointF at, Qt::MouseButtons buttons) {
  QMouseEvent event(type, at, widget->mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                    buttons, Qt::NoModifier);
  QApplication::sendEvent(widget, &event);
}

TEST(SlopeWindow, DraggingThePointMovesX0AndTracesTheDerivative) {
  slope::SlopeWindow window;
  window.resize(1200, 760);
  window.show();
  auto* plot = window.Plot();
  ASSERT_TRUE(WaitUntil([&] { return plot->width() > 400; }));
  const auto& scene = plot->Scene();
  const auto pixelOf = [&](double x, double y) { return scene.View().ToPixel(x, y) / scene.DevicePixelRatio(); };
  const auto rangeBefore = scene.XMin();
  ASSERT_EQ(window.Trace().size(), 1u);
  SendMouse(plot, QEvent::MouseButtonPress, pixelOf(1, 1), Qt::LeftButton);
  SendMouse(plot, QEvent::MouseMove, pixelOf(1.5, 1), Qt::LeftButton);
  SendMouse(plot, QEvent::MouseMove, pixelOf(2, 1), Qt::LeftButton);
  SendMouse(plot, QEvent::MouseButtonRelease, pixelOf(2, 1), Qt::NoButton);
  EXPECT_NEAR(window.X0(), 2, 0.02);
  EXPECT_EQ(Child<QLineEdit>(window, "edtX0")->text(), core::FormatNumber(window.X0()));
  ASSERT_EQ(window.Trace().size(), 3u);
  EXPECT_DOUBLE_EQ(window.Trace().back().y(), 2 * window.X0());
  // The drag moved the point, not the view.
  EXPECT_EQ(scene.XMin(), rangeBefore);
  EXPECT_EQ(LabelText(window, "lblTrace"), QStringLiteral("Derivative traced at 3 point(s) (x₀, f′(x₀))."));

  QTest::mouseClick(Child<QPushButton>(window, "btnClearTrace"), Qt::LeftButton);
  EXPECT_TRUE(window.Trace().empty());
  EXPECT_FALSE(Child<QPushButton>(window, "btnClearTrace")->isEnabled());
}

TEST(SlopeWindow, APressAwayFromThePointPansAsUsual) {
  slope::SlopeWindow window;
  window.resize(1200, 760);
  window.show();
  auto* plot = window.Plot();
  const auto& scene = plot->Scene();
  const QPointF far = scene.View().ToPixel(-2, 5) / scene.DevicePixelRatio();
  SendMouse(plot, QEvent::MouseButtonPress, far, Qt::LeftButton);
  SendMouse(plot, QEvent::MouseMove, far + QPointF(60, 0), Qt::LeftButton);
  SendMouse(plot, QEvent::MouseButtonRelease, far + QPointF(60, 0), Qt::NoButton);
  EXPECT_EQ(window.X0(), 1);
}

TEST(SlopeWindow, TheStepButtonsMoveX0ByATenthAndTrace) {
  slope::SlopeWindow window;
  QTest::mouseClick(Child<QPushButton>(window, "btnRight"), Qt::LeftButton);
  EXPECT_EQ(Child<QLineEdit>(window, "edtX0")->text(), QStringLiteral("1.1"));
  QTest::mouseClick(Child<QPushButton>(window, "btnLeft"), Qt::LeftButton);
  QTest::mouseClick(Child<QPushButton>(window, "btnLeft"), Qt::LeftButton);
  EXPECT_EQ(Child<QLineEdit>(window, "edtX0")->text(), QStringLiteral("0.9"));
  ASSERT_EQ(window.Trace().size(), 3u);
  EXPECT_DOUBLE_EQ(window.Trace()[1].y(), 2.2);
  EXPECT_EQ(LabelText(window, "lblTangent"), QStringLiteral("Tangent slope f′(x₀) = 1.8"));
}

TEST(SlopeWindow, ANewFunctionStartsANewTrace) {
  slope::SlopeWindow window;
  window.Sweep(-1, 1, 4);
  EXPECT_EQ(window.Trace().size(), 5u);
  Type(Child<QLineEdit>(window, "edtFunction"), QStringLiteral("sin(x)"));
  ASSERT_EQ(window.Trace().size(), 1u);
  EXPECT_DOUBLE_EQ(window.Trace()[0].y(), std::cos(1.0));
}

TEST(SlopeWindow, EveryControlHasANameAndTheWindowATitle) {
  slope::SlopeWindow window;
  EXPECT_FALSE(window.windowTitle().isEmpty());
  EXPECT_GE(window.minimumWidth(), 800);
  EXPECT_GE(window.minimumHeight(), 500);
  for (QWidget* w : window.findChildren<QWidget*>()) {
    if (w->focusPolicy() & Qt::TabFocus) {
      EXPECT_FALSE(w->accessibleName().isEmpty()) << w->metaObject()->className();
    }
  }
}

struct ArgumentCase {
  QStringList Arguments;
  bool Wanted;
  const char* Problem;
};

void PrintTo(const ArgumentCase& c, std::ostream* os) {
  *os << Plain(c.Arguments.join(QStringLiteral(" ")).toStdString());
}

class ArgumentCases : public ::testing::TestWithParam<ArgumentCase> {};

TEST_P(ArgumentCases, ReadTheCommandLine) {
  const ArgumentCase& c = GetParam();
  QString problem;
  const auto request = benches::ReadPictureRequest(c.Arguments.mid(1), QSize(1200, 760), problem);
  EXPECT_EQ(request.has_value(), c.Wanted);
  EXPECT_EQ(problem, QString::fromUtf8(c.Problem));
}

INSTANTIATE_TEST_SUITE_P(
    Slope, ArgumentCases,
    ::testing::Values(
        ArgumentCase{{"bench"}, false, ""}, ArgumentCase{{"bench", "--picture", "a.png"}, true, ""},
        ArgumentCase{{"bench", "--picture", "a.png", "--size", "800x600"}, true, ""},
        ArgumentCase{{"bench", "--picture"}, false, "--picture needs a value"},
        ArgumentCase{{"bench", "--picture", "a.png", "--size", "big"}, false, "--size wants WxH, such as 1200x760"},
        ArgumentCase{{"bench", "--colour"},
                     false,
                     "unknown argument \"--colour\"; the bench takes --picture FILE [--size WxH]"}));

TEST(SlopePicture, WritesTheWindowAtTheSizeAsked) {
  QTemporaryDir folder;
  benches::PictureRequest request{folder.filePath(QStringLiteral("slope.png")), QSize(1000, 700)};
  EXPECT_EQ(benches::WritePicture(slope::SlopeProgram(), request), QString());
  const QImage picture(request.File);
  ASSERT_FALSE(picture.isNull());
  EXPECT_EQ(picture.size() / picture.devicePixelRatio(), QSize(1000, 700));
  request.File = folder.filePath(QStringLiteral("missing/folder/slope.png"));
  EXPECT_TRUE(benches::WritePicture(slope::SlopeProgram(), request).startsWith(QStringLiteral("cannot write")));
}

}  // namespace
