#include "mathlang/Derivative.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

using mathlang::Derivative;

namespace {

QString D(const char* text) { return Derivative(QString::fromUtf8(text)).value_or("<none>"); }

}  // namespace

TEST(Derivative, AsATeacherWritesIt) {
  struct Case { const char* text; const char* derivative; };
  const Case cases[] = {
      {"y=x^3", "3*x^2"},
      {"y=sin(x)", "cos(x)"},
      {"y=sin(x^2)", "2*x*cos(x^2)"},
      {"y=ln(x)", "1/x"},
      {"y=e^x", "e^x"},
      {"y=2x^3-5x+7", "6*x^2-5"},
      {"y=x*sin(x)", "sin(x)+x*cos(x)"},
      {"y=1/x", "-1/x^2"},
      {"y=1/x^3", "-3/x^4"},
      {"y=sqrt(x)", "1/(2*sqrt(x))"},
      {"y=tan(x)", "sec(x)^2"},
      {"y=exp(2x)", "2*exp(2*x)"},
      {"y=(x+1)/(x-1)", "-2/(x-1)^2"},
      {"y=2^x", "2^x*ln(2)"},
      {"y=pi*x^2", "2*pi*x"},
      {"y=x*e^x", "e^x+x*e^x"},
      {"y=(2x+1)^3", "6*(2*x+1)^2"},
      {"y=sqrt(1-x^2)", "-x/sqrt(1-x^2)"},
      {"y=x/3", "1/3"},
      {"y=5", "0"},
      {"y=-x^2", "-2*x"},
      {"y=x^x", "x^x*(ln(x)+1)"},
      {"y=xroot(x,3)", "xroot(x,3)/(3*x)"},
      {"y=xlog(x,2)", "1/(x*ln(2))"},
      {"y=sqr(x)", "1/(2*sqrt(x))"},
      {"x^2+3x-1", "2*x+3"},
  };
  for (const Case& c : cases) EXPECT_EQ(D(c.text), c.derivative) << c.text;
}

TEST(Derivative, ByTheRowsVariable) {
  EXPECT_EQ(D("x=y^2"), "2*y");
  EXPECT_EQ(D("r=sin(q..symb)"), "cos(theta)");
  EXPECT_EQ(D("r=2*theta"), "2");
  EXPECT_EQ(D("x^2"), "2*x");
}

TEST(Derivative, PiecewiseConstantFunctionsGiveZero) {
  for (const char* text : {"y=fix(x)", "y=int(x)", "y=sgn(x)", "y=[x]", "y=fact(x)", "y=rnd", "y=x mod 2", "y=x\\2"}) {
    EXPECT_EQ(D(text), "0") << text;
  }
}

TEST(Derivative, RestrictedRowsKeepTheirCondition) {
  // The dialog puts the text up to the first "=" in front.
  EXPECT_EQ(D("declare(y=x^2,x>0)"), "2*x,x>0)");
  EXPECT_EQ(D("declare(y=x^3,domain(x,0,1,0))"), "3*x^2,domain(x,0,1,0))");
  EXPECT_EQ(D("declare(y=xroot(x,3),x>0 and x<3)"), "xroot(x,3)/(3*x),x>0 and x<3)");
  EXPECT_EQ(D("y=declare(x^3,domain(x,0,1,0))"), "declare(3*x^2,domain(x,0,1,0))");
  EXPECT_EQ(D("declare(x=y^2,y>0)"), "2*y,y>0)");
}

TEST(Derivative, NothingForWhatIsNoFunction) {
  for (const char* text : {"x^2+y^2=1", "y=x*y", "[x,y;1,2]", "[x,y;,]", "command==>[showgrid]", "y=foo(x)", "", "y=",
                           "declare(y=x", "declare(x^2)", "y=x;x>0", "r=r+theta", "y=xroot(2,x)"}) {
    EXPECT_FALSE(Derivative(text).has_value()) << text;
  }
}

TEST(Derivative, NoLeftoversOfTheRules) {
  // No *1, +0, ^1 or double minus in any result.
  const char* texts[] = {"y=x^2*e^x", "y=(x-1)(x+2)(x-3)", "y=sin(x)^2+cos(x)^2", "y=atan(1/x)", "y=x*sqrt(x)",
                         "y=ln((x+1)/(x+2))", "y=exp(-x^2)", "y=tan(x)^2", "y=1/sqrt(x)", "y=x^-2", "y=3^(2x)",
                         "y=sin(x)^x", "y=acosh(x)", "y=asech(x)", "y=acsch(x)", "y=x^1", "y=1*x+0", "y=--x"};
  for (const char* text : texts) {
    const QString d = D(text);
    EXPECT_FALSE(d.contains("*1*") || d.endsWith("*1") || d.contains("*1)") || d.contains("+0") || d.contains("^1)") ||
                 d.endsWith("^1") || d.contains("--") || d.contains("+-") || d == "<none>")
        << text << " -> " << d.toStdString();
  }
  EXPECT_EQ(D("y=x^1"), "1");
  EXPECT_EQ(D("y=1*x+0"), "1");
  EXPECT_EQ(D("y=--x"), "1");
}

TEST(Derivative, ResultsThatWouldRunAwayAreRefused) {
  // A tower's derivative grows with the square of its height: it comes back.
  EXPECT_TRUE(Derivative("y=" + QString("x^").repeated(40) + "x").has_value());
  EXPECT_TRUE(Derivative("y=x^x^x").has_value());
  // Where each level's derivative appears twice, the written result doubles with every level.
  QString doubling = "x";
  for (int level = 0; level < 11; ++level) doubling = "(" + doubling + ")*(" + doubling + "+1)";
  EXPECT_FALSE(Derivative("y=" + doubling).has_value());
  const QString deep = "y=" + QString("sin(").repeated(50) + "x" + QString(50, u')');
  EXPECT_TRUE(Derivative(deep).has_value());
}
