// A row in words, as a screen reader speaks it: each kind of row, and every sample row.
#include "SampleRows.h"

#include "mathx/SpokenForm.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

using mathx::SpokenForm;

namespace {

struct Case {
  const char* row;
  const char* spoken;
};

const Case kCases[] = {
    // Relations and plain pieces.
    {"y=2sin(x)+x/2", "y equals 2 sine of x plus x over 2"},
    {"a=2.5", "a equals 2.5"},
    {"y=-x", "y equals minus x"},
    {"x^2+y^2=9", "x squared plus y squared equals 9"},
    {"y<=x", "y is less than or equal to x"},
    {"y>=x", "y is greater than or equal to x"},
    {"y<>x", "y is not equal to x"},
    {"y<x", "y is less than x"},
    {"y>x^2", "y is greater than x squared"},
    {"y=2*x", "y equals 2 times x"},
    {"y=x mod 3", "y equals x mod 3"},
    {"y=x!", "y equals x factorial"},
    {"y=7\\2", "y equals 7 integer divided by 2"},
    {"y=+x", "y equals plus x"},
    {"y=", "y equals blank"},
    // Constants and Greek letters.
    {"pi", "pi"},
    {"y=e", "y equals e"},
    {"y=e^x", "y equals e to the power x"},
    {"y=2pi", "y equals 2 pi"},
    {"r=2cos(3theta)", "r equals 2 cosine of 3 theta"},
    {"r=2*q..symb", "r equals 2 times theta"},
    {"y=alpha*x+beta", "y equals alpha times x plus beta"},
    // Powers: squared, cubed, a power; a long exponent closed where more follows.
    {"y=x^2", "y equals x squared"},
    {"y=x^3", "y equals x cubed"},
    {"y=x^5", "y equals x to the power 5"},
    {"y=-x^2", "y equals minus x squared"},
    {"y=2^-x", "y equals 2 to the power minus x"},
    {"y=x^(n+1)", "y equals x to the power n plus 1"},
    {"y=x^(n+1)-1", "y equals x to the power n plus 1 end power minus 1"},
    {"y=(x+1)^2", "y equals the quantity x plus 1 end quantity squared"},
    // Functions.
    {"y=sin(x)+cos(x)+tan(x)", "y equals sine of x plus cosine of x plus tangent of x"},
    {"y=ln(x)+log(x)", "y equals natural log of x plus log of x"},
    {"y=log10(x)", "y equals log base 10 of x"},
    {"y=exp(x)", "y equals e to the power x"},
    {"y=exp(-x/5)*2", "y equals e to the power minus x over 5 end power times 2"},
    {"y=asin(x)+acos(x)+atan(x)", "y equals inverse sine of x plus inverse cosine of x plus inverse tangent of x"},
    {"y=sinh(x)", "y equals hyperbolic sine of x"},
    {"y=sin(x+1)", "y equals sine of the quantity x plus 1"},
    {"y=sin(x+1)/2", "y equals the fraction sine of the quantity x plus 1 end quantity over 2"},
    {"y=sin(2x)+1", "y equals sine of 2 x plus 1"},
    {"y=sin x", "y equals sine of x"},
    {"y=sin(2x+1)", "y equals sine of the quantity 2 x plus 1"},
    {"y=asin(sin(x))/2", "y equals the fraction inverse sine of sine of x over 2"},
    {"y=ln(abs(x))", "y equals natural log of the absolute value of x"},
    {"y=xlog(2,x)", "y equals log base 2 of x"},
    {"y=[x]+1", "y equals the whole part of x end whole part plus 1"},
    // Roots and bars: closed only where more follows.
    {"y=sqrt(x+1)", "y equals the square root of x plus 1"},
    {"y=sqrt(x)+1", "y equals the square root of x end root plus 1"},
    {"y=xroot(x,3)", "y equals the cube root of x"},
    {"y=xroot(x+1,5)", "y equals the 5th root of x plus 1"},
    {"y=xroot(x,n)", "y equals the root of index n of x"},
    {"y=xroot(x,2)", "y equals the 2nd root of x"},
    {"y=abs(x)", "y equals the absolute value of x"},
    {"y=abs(x-2)-3", "y equals the absolute value of x minus 2 end absolute value minus 3"},
    {"y=sqrt(abs(x))", "y equals the square root of the absolute value of x"},
    // Fractions as the typesetter stacks them.
    {"y=1/x", "y equals 1 over x"},
    {"y=(x+1)/(x-1)", "y equals the fraction x plus 1 over x minus 1"},
    {"y=(x+1)/(x-1)+2", "y equals the fraction x plus 1 over x minus 1 end fraction plus 2"},
    {"y=x^2/2", "y equals the fraction x squared over 2"},
    {"y=sqrt(x^2+1)/(1+abs(x))",
     "y equals the fraction the square root of x squared plus 1 end root over 1 plus the absolute value of x"},
    {"y=x/2/3", "y equals x over 2 divided by 3"},
    {"y=2x+1/x-1", "y equals 2 x plus 1 over x minus 1"},
    // Conditions.
    {"declare(y=x^2,domain(x,0,3,1))", "y equals x squared, for x from 0 to 3"},
    {"declare(y=x^2,domain(x,0,3,0))", "y equals x squared, for x from 0 to 3 excluding both ends"},
    {"declare(y=x,domain(x,0,3,2))", "y equals x, for x from 0 to 3 excluding 0"},
    {"declare(y=x,domain(x,0,3,3))", "y equals x, for x from 0 to 3 excluding 3"},
    {"declare(y=x^2,x>0)", "y equals x squared, where x is greater than 0"},
    {"declare(y=x,domain(x,0,1,0) and domain(y,0,1,1))",
     "y equals x, for x from 0 to 1 excluding both ends and for y from 0 to 1"},
    {"y=x^2;0<x<3", "y equals x squared, where 0 is less than x is less than 3"},
    // Point lists, commands, empty and unreadable rows.
    {"[x,y;1,2;3,4]", "points: 1 comma 2; 3 comma 4"},
    {"[r,q..symb;2,pi/4;3,pi/2]", "points in r and theta: 2 comma pi over 4; 3 comma pi over 2"},
    {"command==>[showgrid]", "show grid"},
    {"command==>[enterfullscreen]", "enter full screen"},
    {"", "empty row"},
    {"   ", "empty row"},
    {"hello world", "hello world"},
};

TEST(SpokenForm, EachKindOfRowInWords) {
  for (const Case& c : kCases) 
    EXPECT_EQ(SpokenForm::OfRow(QString::fromUtf8(c.row)).toStdString(), std::string(c.spoken)) << c.row;
}

// A screen reader would speak a raw symbol by its key name ("caret"), which says nothing of the
// mathematics; brackets belong only to point lists.
TEST(SpokenForm, EverySampleRowInWordsWithoutRawSymbols) {
  const QStringList rows = SampleRows();
  ASSERT_FALSE(rows.isEmpty());
  for (const QString& row : rows) {
    const QString spoken = SpokenForm::OfRow(row);
    EXPECT_FALSE(spoken.trimmed().isEmpty()) << row.toStdString();
    for (const QChar symbol : QStringLiteral("^*/"))
      EXPECT_FALSE(spoken.contains(symbol)) << row.toStdString() << " -> " << spoken.toStdString();
    if (row.startsWith(u'[')) continue;
    for (const QChar bracket : QStringLiteral("()[]{}"))
      EXPECT_FALSE(spoken.contains(bracket)) << row.toStdString() << " -> " << spoken.toStdString();
  }
}

}  // namespace
