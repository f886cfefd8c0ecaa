// What people type and paste, turned into the row language before it is compiled.
#include "mathx/RowParser.h"
#include "mathx/TypedInput.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

using mathx::FromTypedInput;

namespace {

struct Case {
  const char* typed;
  const char* row;
};

void ExpectAll(std::initializer_list<Case> cases) {
  for (const Case& c : cases) {
    const QString typed = QString::fromUtf8(c.typed);
    const QString row = QString::fromUtf8(c.row);
    EXPECT_EQ(FromTypedInput(typed).toStdString(), row.toStdString()) << c.typed;
    // The result is a row: converting it again changes nothing.
    EXPECT_EQ(FromTypedInput(row).toStdString(), row.toStdString()) << c.typed;
  }
}

}  // namespace

TEST(TypedInput, BarsAreAbsoluteValuesWhereTheyPairUp) {
  ExpectAll({
      {"|x|", "abs(x)"},
      {"y=|x|", "y=abs(x)"},
      {"|x-1|+|2x|", "abs(x-1)+abs(2x)"},
      {"y=|x-1|+|2x|", "y=abs(x-1)+abs(2x)"},
      {"||x|-1|", "abs(abs(x)-1)"},
      {"|x+|y||", "abs(x+abs(y))"},
      {"2|x|", "2abs(x)"},
      {"|sin(x)|", "abs(sin(x))"},
      {"y=|x|^2", "y=abs(x)^2"},
      {"|x|<1", "abs(x)<1"},
      // Typed so far, the second bar still to come: nothing to pair.
      {"|", "|"},
      {"|x", "|x"},
      {"y=|x-1", "y=|x-1"},
      {"|x|+|", "abs(x)+|"},
  });
}

TEST(TypedInput, TheCharactersOfKeyboardsAndWordProcessors) {
  ExpectAll({
      {"r=2sin(3θ)", "r=2sin(3theta)"},
      {"y=2π", "y=2pi"},
      {"y=√x", "y=sqrt(x)"},
      {"y=√(x+1)", "y=sqrt(x+1)"},
      {"y=√2x", "y=sqrt(2)x"},
      {"y=√12", "y=sqrt(12)"},
      {"y=√π", "y=sqrt(pi)"},
      {"r=√θ", "r=sqrt(theta)"},
      {"y=√", "y=√"},
      {"y=√|x|", "y=sqrt(abs(x))"},
      {"y=|√x|", "y=abs(sqrt(x))"},
      {"y=√sin(x)", "y=sqrt(sin(x))"},
      {"y=√sin(x", "y=√sin(x"},
      {"y=x²", "y=x^2"},
      {"y=x³-x", "y=x^3-x"},
      {"x²+y²=4", "x^2+y^2=4"},
      {"y=2·x", "y=2*x"},
      {"y=2×x", "y=2*x"},
      {"y=x÷2", "y=x/2"},
      {"y=x−1", "y=x-1"},
      {"y≤x", "y<=x"},
      {"y≥x²", "y>=x^2"},
      {"y≠x", "y<>x"},
      {"y=x;0≤x≤3", "y=x;0<=x<=3"},
  });
}

TEST(TypedInput, NamedFunctionsAreTheirGraphs) {
  ExpectAll({
      {"f(x)=x^2", "y=x^2"},
      {"f(x) = x^2", "y=x^2"},
      {"g(x)=2x+1", "y=2x+1"},
      {"h(x)=|x|", "y=abs(x)"},
      {"r(θ)=2sin(3θ)", "r=2sin(3theta)"},
      {"r(theta)=1+cos(theta)", "r=1+cos(theta)"},
      {"f(x)=x²;x>0", "y=x^2;x>0"},
      {"f(x)=", "y="},
  });
}

TEST(TypedInput, PointsBecomeAPointList) {
  ExpectAll({
      {"(1,2)", "[x,y;1,2]"},
      {"(1,2),(3,4)", "[x,y;1,2;3,4]"},
      {"(1, 2), (3, 4)", "[x,y;1,2;3,4]"},
      {"(-1,2.5)", "[x,y;-1,2.5]"},
      {"(0,0),(1,1),(2,4)", "[x,y;0,0;1,1;2,4]"},
      {"[x,y;1,2],(3,4)", "[x,y;1,2;3,4]"},
      {"(π,1)", "[x,y;pi,1]"},
      // No point: a product of brackets, a call, a bracket not closed.
      {"(x+1)*(x-1)", "(x+1)*(x-1)"},
      {"(1,2", "(1,2"},
      {"(1,2,3)", "(1,2,3)"},
      {"y=(1,2)", "y=(1,2)"},
  });
}

TEST(TypedInput, LatexAsTeachersPasteIt) {
  ExpectAll({
      {"\\frac{a}{b}", "(a)/(b)"},
      {"y=\\frac{1}{x}", "y=(1)/(x)"},
      {"y=\\frac{x+1}{x-1}", "y=(x+1)/(x-1)"},
      {"y=\\frac{1}{\\sqrt{x^{2}+1}}", "y=(1)/(sqrt(x^2+1))"},
      {"y=\\frac{\\frac{1}{2}}{x}", "y=((1)/(2))/(x)"},
      {"y=\\frac12", "y=(1)/(2)"},
      {"y=\\frac\\pi2", "y=(pi)/(2)"},
      {"y=e^\\pi", "y=e^pi"},
      {"y=\\sqrt\\pi x", "y=sqrt(pi)x"},
      {"y=\\dfrac{1}{x}", "y=(1)/(x)"},
      {"y=\\sqrt{x}", "y=sqrt(x)"},
      {"y=\\sqrt{\\sqrt{x}}", "y=sqrt(sqrt(x))"},
      {"y=\\sqrt[3]{x}", "y=xroot(x,3)"},
      {"y=\\sqrt[3]{x+1}", "y=xroot(x+1,3)"},
      {"y=x^{2}", "y=x^2"},
      {"y=x^{2}+x^{10}", "y=x^2+x^10"},
      {"y=x^{x+1}", "y=x^(x+1)"},
      {"y=e^{-x}", "y=e^(-x)"},
      {"y=x^\\frac{1}{2}", "y=x^((1)/(2))"},
      {"y=2^{\\frac{1}{2}}", "y=2^((1)/(2))"},
      {"y=\\sin(x)", "y=sin(x)"},
      {"y=\\sin x", "y=sin(x)"},
      {"y=\\sin 2x+1", "y=sin(2x)+1"},
      {"y=\\sin{x}", "y=sin(x)"},
      {"y=\\sin^2 x", "y=sin(x)^2"},
      {"y=\\cos(2\\pi x)", "y=cos(2pi*x)"},
      {"y=\\tan\\theta", "y=tan(theta)"},
      {"y=\\ln(x)", "y=ln(x)"},
      {"y=\\log x", "y=log(x)"},
      {"y=\\arctan(x)", "y=atan(x)"},
      {"y=2\\pi", "y=2pi"},
      {"r=2\\sin(3\\theta)", "r=2sin(3theta)"},
      {"y=2\\cdot x", "y=2*x"},
      {"y=2\\times x", "y=2*x"},
      {"y=x\\div 2", "y=x/2"},
      {"y=\\left(x+1\\right)^{2}", "y=(x+1)^2"},
      {"y=\\left|x\\right|", "y=abs(x)"},
      {"y\\le x", "y<=x"},
      {"y\\ge x", "y>=x"},
      {"y\\leq x", "y<=x"},
      {"y\\neq x", "y<>x"},
      {"$y=x^{2}$", "y=x^2"},
      {"$$y=\\frac{1}{x}$$", "y=(1)/(x)"},
      {"\\(y=\\sqrt{x}\\)", "y=sqrt(x)"},
      {"y=\\{x+1\\}", "y=(x+1)"},
      {"y={x+1}^{2}", "y=(x+1)^2"},
      {"y=\\,x", "y=x"},
      {"f(x)=\\frac{1}{x}", "y=(1)/(x)"},
      {"(\\frac{1}{2},3)", "[x,y;(1)/(2),3]"},
  });
}

// The LaTeX that a row is copied as reads back into that row.
TEST(TypedInput, LatexAsARowIsCopied) {
  ExpectAll({
      {"y=2\\sin\\left(x\\right)", "y=2sin(x)"},
      {"y=\\operatorname{sgn}\\left(x\\right)", "y=sgn(x)"},
      {"y=\\log_{10}\\left(x\\right)", "y=log10(x)"},
      {"y=\\log_{10} x", "y=log10(x)"},
      {"r=2\\sin\\left(3\\theta\\right)", "r=2sin(3theta)"},
      {"y=\\pi\\cdot x", "y=pi*x"},
      {"y=\\theta\\le 2", "y=theta<=2"},
      {"y=x^{2}\\quad\\left\\{0<x<3\\right\\}", "y=x^2;0<x<3"},
      {"y=x\\quad\\left\\{0\\le x\\le 2\\right\\}", "y=x;0<=x<=2"},
      {"y=\\left\\{x+1\\right\\}", "y=(x+1)"},
      {"y=\\gamma+\\delta+\\sigma+\\omega+\\epsilon+\\mu", "y=gamma+delta+sigma+omega+epsilon+meu"},
      {"y=\\chi", "y=c..symb"},
      {"y=x\\bmod 3", "y=x mod 3"},
      {"y=7\\backslash 2", "y=7\\2"},
      {"\\text{show grid}", "command==>[showgrid]"},
      {"show grid", "command==>[showgrid]"},
      {"\\left(1,2\\right),\\left(3,4\\right)", "[x,y;1,2;3,4]"},
      {"\\left[r,\\theta\\right],\\left(2,\\frac{\\pi}{4}\\right)", "[r,theta;2,(pi)/(4)]"},
  });
}

TEST(TypedInput, UnfinishedLatexStaysAsTyped) {
  ExpectAll({
      {"\\", "\\"},
      {"y=\\frac{1}{", "y=\\frac{1}{"},
      {"y=\\frac{1}", "y=\\frac{1}"},
      {"y=\\sqrt", "y=\\sqrt"},
      {"y=\\sqrt[3", "y=\\sqrt[3"},
      {"y=x^{2", "y=x^{2"},
      {"y=x}", "y=x}"},
      {"y=\\sin", "y=\\sin"},
      // A command without a word in the row language: nothing is read, rather than half.
      {"y=\\foo{x}", "y=\\foo{x}"},
      {"y=\\frac{1}{x}+\\infty", "y=\\frac{1}{x}+\\infty"},
  });
}

TEST(TypedInput, RowsComeBackUnchanged) {
  const char* const rows[] = {
      "y=x^2", "x^2+y^2=4", "r=2*sin(3*theta)", "y<x", "a=2", "[x,y;1,2]", "y=abs(x);x>0", "y=2x+1",
      "y=x^2;0<x<3", "y=sqrt(x)", "y=xroot(x,3)", "(x+1)*(x-1)", "[x,y;1,2;3,4]", "[r,theta;1,2]",
      "declare(y=x^2,domain(x,0,3,2))", "command==>[showgrid]", "y=sin(x)cos(x)", "y>=x", "y<=x",
      "y<>x", "x=2", "y=e^x", "y=ln(x)", "r=theta", "y=2pi", "y=x^-2", "y=3\\2", "y=-x", "", " ",
      "y = x + 1", "x^2/4+y^2/9=1", "y=int(x)", "y=x;x>0;x<3", "y=(x+1)/(x-1)", "y=x mod 2",
  };
  for (const char* row : rows) EXPECT_EQ(FromTypedInput(QString::fromUtf8(row)).toStdString(), std::string(row));
}

// What the converter gives is read by the row parser as a formula, not as plain text.
TEST(TypedInput, TheResultsReadAsFormulas) {
  for (const char* typed : {"y=|x-1|+|2x|", "r(θ)=2sin(3θ)", "(1,2),(3,4)", "y=\\frac{1}{\\sqrt{x^{2}+1}}",
                            "y=\\sqrt[3]{x}", "y=√(x+1)", "y≤x²"}) {
    const mathx::MathNode row = mathx::ParseRow(FromTypedInput(QString::fromUtf8(typed)));
    EXPECT_NE(row.kind, mathx::MathNode::Kind::PlainText) << typed;
  }
}

TEST(TypedInput, HostileTextDoesNotCrashAndItsRowStays) {
  QString deep;
  for (int i = 0; i < 500; ++i) deep += QStringLiteral("\\frac{");
  const QStringList texts = {deep, QString(500, u'{') + QString(500, u'}'), QString(300, u'|'), "\\sqrt[\\sqrt[", "$", "$$",
                             "$$$$$$", "\\(\\)", "√√√", "^{}", "\\left", "(,)", ",", "\\θ", "\\(x\\)\\right"};
  for (const QString& text : texts) {
    QString row;
    EXPECT_NO_THROW(row = FromTypedInput(text));
    EXPECT_EQ(FromTypedInput(row), row) << text.left(40).toStdString();
  }
}
