// A row copied as LaTeX and as readable text: what a document and a chat get for each kind of row.
#include "mathx/RowExport.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

using mathx::RowExport;

namespace {

struct Case {
  const char* row;
  const char* latex;
  const char* plain;
};

// Every kind of node of a row: calls, roots, bars, powers, quotients built up and on the line,
// products with and without their dot, relations, conditions, point lists, commands.
const Case kCases[] = {
    {"y=2sin(x)+x/2", R"(y=2\sin\left(x\right)+\frac{x}{2})", "y = 2 sin(x) + x/2"},
    {"y=sqrt(abs(x))", R"(y=\sqrt{\left|x\right|})", "y = √|x|"},
    {"r=2sin(3theta)", R"(r=2\sin\left(3\theta\right))", "r = 2 sin(3θ)"},
    {"x^2+y^2=9", R"(x^{2}+y^{2}=9)", "x² + y² = 9"},
    {"a=2", "a=2", "a = 2"},
    {"[x,y;1,2;3,4]", R"(\left(1,2\right),\left(3,4\right))", "(1, 2), (3, 4)"},
    {"y=x^2", R"(y=x^{2})", "y = x²"},
    {"y=x^3-2*x+1", R"(y=x^{3}-2\,x+1)", "y = x³ - 2x + 1"},
    {"y=2x+1", "y=2x+1", "y = 2x + 1"},
    {"y=sin(x)*exp(-x/5)", R"(y=\sin\left(x\right)\exp\left(\frac{-x}{5}\right))", "y = sin(x) exp(-x/5)"},
    {"y=e^(-x^2/2)/sqrt(2*pi)", R"(y=\frac{e^{-x^{2}/2}}{\sqrt{2\,\pi}})", "y = e^(-x²/2)/√(2π)"},
    {"y=abs(x-2)-3", R"(y=\left|x-2\right|-3)", "y = |x - 2| - 3"},
    {"y=(x+1)/(x-1)", R"(y=\frac{x+1}{x-1})", "y = (x + 1)/(x - 1)"},
    {"y=1/x", R"(y=\frac{1}{x})", "y = 1/x"},
    {"y=x/2/3", R"(y=\frac{x}{2}/3)", "y = x/2/3"},
    {"y=sqrt(x^2+1)/(1+abs(x))", R"(y=\frac{\sqrt{x^{2}+1}}{1+\left|x\right|})", "y = √(x² + 1)/(1 + |x|)"},
    {"y=(x^2/sin(2*pi/x))-x/2", R"(y=\left(\frac{x^{2}}{\sin\left(2\,\pi/x\right)}\right)-\frac{x}{2})",
     "y = (x²/sin(2π/x)) - x/2"},
    {"y=xroot(x,3)", R"(y=\sqrt[3]{x})", "y = ∛x"},
    {"y=xroot(x+1,5)", R"(y=\sqrt[5]{x+1})", "y = xroot(x + 1, 5)"},
    {"y=sqrt(x)", R"(y=\sqrt{x})", "y = √x"},
    {"y=tan(x)", R"(y=\tan\left(x\right))", "y = tan(x)"},
    {"y=ln(x)+log(x)+log10(x)", R"(y=\ln\left(x\right)+\log\left(x\right)+\log_{10}\left(x\right))",
     "y = ln(x) + log(x) + log10(x)"},
    {"y=asin(x)", R"(y=\arcsin\left(x\right))", "y = asin(x)"},
    {"y=sgn(x)*fix(x)", R"(y=\operatorname{sgn}\left(x\right)\operatorname{fix}\left(x\right))", "y = sgn(x) fix(x)"},
    {"y=xlog(2,x)", R"(y=\operatorname{xlog}\left(2,x\right))", "y = xlog(2, x)"},
    {"y=x*sin(x)", R"(y=x\sin\left(x\right))", "y = x sin(x)"},
    {"y=sin x", R"(y=\sin{x})", "y = sin x"},
    {"y<=x^2", R"(y\le x^{2})", "y ≤ x²"},
    {"y>=x", R"(y\ge x)", "y ≥ x"},
    {"y<>x", R"(y\ne x)", "y ≠ x"},
    {"y=pi*x", R"(y=\pi\,x)", "y = πx"},
    {"y=2pi", R"(y=2\pi)", "y = 2π"},
    {"y=2*3", R"(y=2\cdot 3)", "y = 2·3"},
    {"y=x!", "y=x!", "y = x!"},
    {"y=-x^2", R"(y=-x^{2})", "y = -x²"},
    {"y=x^(n+1)", R"(y=x^{n+1})", "y = x^(n+1)"},
    {"y=x^4", R"(y=x^{4})", "y = x^4"},
    {"y=2^-x", R"(y=2^{-x})", "y = 2^-x"},
    {"y=e^x", R"(y=e^{x})", "y = e^x"},
    {"y=[x]+1", R"(y=\left[x\right]+1)", "y = [x] + 1"},
    {"y=x mod 3", R"(y=x\bmod 3)", "y = x mod 3"},
    {"y=7\\2", R"(y=7\backslash 2)", "y = 7\\2"},
    {"y=theta", R"(y=\theta)", "y = θ"},
    {"y=alpha*x+beta", R"(y=\alpha\,x+\beta)", "y = αx + β"},
    {"r=2*q..symb", R"(r=2\,\theta)", "r = 2θ"},
    {"x=sin(y)", R"(x=\sin\left(y\right))", "x = sin(y)"},
    {"declare(y=x^2,domain(x,0,3,0))", R"(y=x^{2}\quad\left\{0<x<3\right\})", "y = x², 0 < x < 3"},
    {"declare(y=x,domain(x,0,2,1))", R"(y=x\quad\left\{0\le x\le 2\right\})", "y = x, 0 ≤ x ≤ 2"},
    {"declare(y=x^2,x>0)", R"(y=x^{2}\quad\left\{x>0\right\})", "y = x², x > 0"},
    {"declare(y=x,domain(x,0,1,0) and domain(y,0,1,3))", R"(y=x\quad\left\{0<x<1\text{ and }0\le y<1\right\})",
     "y = x, 0 < x < 1 and 0 ≤ y < 1"},
    {"y=x^2;0<x<3", R"(y=x^{2};\quad 0<x<3)", "y = x²; 0 < x < 3"},
    {"[r,q..symb;2,pi/4;3,pi/2]", R"(\left[r,\theta\right],\left(2,\frac{\pi}{4}\right),\left(3,\frac{\pi}{2}\right))",
     "[r, θ], (2, π/4), (3, π/2)"},
    {"command==>[showgrid]", R"(\text{show grid})", "show grid"},
    {"hello world", "hello world", "hello world"},
    {"", "", ""},
};

TEST(RowExport, LatexOfEachKindOfRow) {
  for (const Case& c : kCases)
    EXPECT_EQ(RowExport::ToLatex(QString::fromUtf8(c.row)), QString::fromUtf8(c.latex)) << c.row;
}

TEST(RowExport, PlainTextOfEachKindOfRow) {
  for (const Case& c : kCases)
    EXPECT_EQ(RowExport::ToPlainText(QString::fromUtf8(c.row)), QString::fromUtf8(c.plain)) << c.row;
}

}  // namespace
