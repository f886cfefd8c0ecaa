// A row copied as LaTeX and pasted back into the insert dialog is the row it was: the same text
// where the dialog writes it so, and the same values everywhere.
#include "SampleRows.h"

#include "mathlang/LineParser.h"
#include "mathx/RowExport.h"
#include "mathx/RowLexer.h"
#include "mathx/RowNames.h"
#include "mathx/TypedInput.h"
#include "plotcompiler/EquationCompiler.h"
#include "plotcompiler/InequalityCompiler.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <array>
#include <cmath>

using mathx::FromTypedInput;
using mathx::RowExport;

namespace {

QString RoundTrip(const QString& row) { return FromTypedInput(RowExport::ToLatex(row)); }

struct Case {
  const char* row;
  const char* back;  // what the insert dialog makes of the LaTeX
};

// Where the text comes back otherwise, the dialog writes a fraction's parts in brackets and a
// product without its star; a condition comes back behind ";", as the user types one.
const Case kCases[] = {
    {"y=2sin(x)+x/2", "y=2sin(x)+(x)/(2)"},
    {"y=sqrt(abs(x))", "y=sqrt(abs(x))"},
    {"r=2sin(3theta)", "r=2sin(3theta)"},
    {"x^2+y^2=9", "x^2+y^2=9"},
    {"a=2", "a=2"},
    {"[x,y;1,2;3,4]", "[x,y;1,2;3,4]"},
    {"y=x^3-2*x+1", "y=x^3-2x+1"},
    {"y=sin(x)*exp(-x/5)", "y=sin(x)exp((-x)/(5))"},
    {"y=e^(-x^2/2)/sqrt(2*pi)", "y=(e^(-x^2/2))/(sqrt(2pi))"},
    {"y=abs(x-2)-3", "y=abs(x-2)-3"},
    {"y=(x+1)/(x-1)", "y=(x+1)/(x-1)"},
    {"y=x/2/3", "y=(x)/(2)/3"},
    {"y=sqrt(x^2+1)/(1+abs(x))", "y=(sqrt(x^2+1))/(1+abs(x))"},
    {"y=(x^2/sin(2*pi/x))-x/2", "y=((x^2)/(sin(2pi/x)))-(x)/(2)"},
    {"y=xroot(x,3)", "y=xroot(x,3)"},
    {"y=sqrt(x)", "y=sqrt(x)"},
    {"y=ln(x)+log(x)+log10(x)", "y=ln(x)+log(x)+log10(x)"},
    {"y=asin(x)+acos(x)+atan(x)", "y=asin(x)+acos(x)+atan(x)"},
    {"y=sgn(x)*fix(x)", "y=sgn(x)fix(x)"},
    {"y=xlog(2,x)", "y=xlog(2,x)"},
    {"y=x*sin(x)", "y=x*sin(x)"},
    {"y=sin x", "y=sin(x)"},
    {"y<=x^2", "y<=x^2"},
    {"y>=x", "y>=x"},
    {"y<>x", "y<>x"},
    {"y=pi*x", "y=pix"},
    {"y=2pi", "y=2pi"},
    {"y=2*3", "y=2*3"},
    {"y=x!", "y=x!"},
    {"y=-x^2", "y=-x^2"},
    {"y=x^(n+1)", "y=x^(n+1)"},
    {"y=2^-x", "y=2^(-x)"},
    {"y=[x]+1", "y=[x]+1"},
    {"y=x mod 3", "y=x mod 3"},
    {"y=7\\2", "y=7\\2"},
    {"y=theta+sigma", "y=theta+sigma"},
    {"y=alpha*x+beta", "y=alphax+beta"},
    {"r=2*q..symb", "r=2theta"},
    {"r=theta*x", "r=thetax"},
    {"x=sin(y)", "x=sin(y)"},
    {"declare(y=x^2,domain(x,0,3,0))", "y=x^2;0<x<3"},
    {"declare(y=x,domain(x,0,2,1))", "y=x;0<=x<=2"},
    {"declare(y=x^2,x>0)", "y=x^2;x>0"},
    {"declare(y=x,domain(x,0,1,0) and domain(y,0,1,3))", "y=x;0<x<1;0<=y<1"},
    {"declare(y=a*exp(-k*x),x>=0)", "y=a*exp(-kx);x>=0"},
    {"y=x^2;0<x<3", "y=x^2;0<x<3"},
    {"[x,y;pi/2,sin(1)]", "[x,y;(pi)/(2),sin(1)]"},
    {"[r,q..symb;2,pi/4;3,pi/2]", "[r,theta;2,(pi)/(4);3,(pi)/(2)]"},
    {"command==>[showgrid]", "command==>[showgrid]"},
    {"command==>[enterfullscreen]", "command==>[enterfullscreen]"},
};

// What a row means: its stored form compiled into a function line and evaluated at a few points,
// or, for the rows that are no function line (point lists, commands), each cell of it evaluated.
// Values that fail are NaN on both sides alike.
std::vector<double> ValuesOf(const mathlang::ParsedLine& parsed) {
  static const std::array<std::array<double, 2>, 4> points = {{{0.7, -1.3}, {2.1, 0.4}, {-3.3, 2.9}, {1.25, 5.5}}};
  std::vector<double> values{double(parsed.Form)};
  for (const int root : {parsed.Left, parsed.Right, parsed.Condition}) {
    if (root < 0) {
      values.push_back(-1.0);
      continue;
    }
    mathlang::ExpressionTree tree = parsed.Tree;
    tree.SetRoot(root);
    for (const auto& [x, y] : points) {
      const double variables[mathlang::kVariableCount] = {x, y, 0.3, x - y, std::hypot(x, y), 0.5, 0.2, 0.1, 0.9};
      values.push_back(tree.EvaluateAt(variables));
    }
  }
  return values;
}

// The constants of the rows (a, k, ...) given values, so that rows that use them can be
// evaluated: every single letter of a run of letters that is no variable, and no part of a
// function's or a Greek letter's name, as the row parser splits the run.
QString WithConstants(const QString& row) {
  static const QString variables = QStringLiteral("xytre");
  QString out;
  qsizetype at = 0;
  for (const mathx::RowToken& token : mathx::LexRow(row)) {
    out += row.mid(at, token.begin - at);
    at = token.end;
    if (token.kind != mathx::RowToken::Kind::Name || token.text == u"and" || token.text == u"or" || token.text == u"mod") {
      out += token.text;
      continue;
    }
    for (qsizetype i = 0; i < token.text.size();) {
      qsizetype best = 1;
      for (const QStringList* names : {&mathx::FunctionNames(), &mathx::GreekNames()})
        for (const QString& name : *names)
          if (name.size() > best && QStringView(token.text).mid(i).startsWith(name)) best = name.size();
      const QString piece = token.text.mid(i, best);
      const bool constant = best == 1 && !variables.contains(piece);
      out += constant ? QStringLiteral("(1.%1)").arg(piece[0].unicode() - u'a' + 10) : piece;
      i += best;
    }
  }
  return out + row.mid(at);
}

std::vector<double> Meaning(const QString& row) {
  const QString stored = plotcompiler::CompileInequalityRow(WithConstants(row));
  if (!stored.startsWith(u'[')) {
    const mathlang::ParsedLine line = mathlang::ParseLine(plotcompiler::CompileEquation(stored, false));
    if (line.Ok()) return ValuesOf(line);
    return {};
  }
  std::vector<double> values;
  for (const QString& cell : stored.mid(1, stored.size() - 2).split(QRegularExpression(QStringLiteral("[;,]")))) {
    const mathlang::ParsedLine expression = mathlang::ParseExpression(cell);
    const std::vector<double> cellValues = expression.Ok() ? ValuesOf(expression) : std::vector<double>{-2.0};
    values.insert(values.end(), cellValues.begin(), cellValues.end());
  }
  return values;
}

::testing::AssertionResult MeansTheSame(const QString& row, const QString& back) {
  const std::vector<double> before = Meaning(row);
  const std::vector<double> after = Meaning(back);
  // Rows that are no line at all (display commands) must come back as they were.
  if (before.empty() || after.empty()) {
    if (plotcompiler::CompileInequalityRow(row) == plotcompiler::CompileInequalityRow(back))
      return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "not the same row: " << plotcompiler::CompileInequalityRow(row).toStdString()
                                         << " against " << plotcompiler::CompileInequalityRow(back).toStdString();
  }
  if (before.size() != after.size()) return ::testing::AssertionFailure() << "not the same shape";
  for (size_t i = 0; i < before.size(); ++i) {
    const bool same = (std::isnan(before[i]) && std::isnan(after[i])) ||
                      std::abs(before[i] - after[i]) <= 1e-9 * std::max(1.0, std::abs(before[i]));
    if (!same) return ::testing::AssertionFailure() << "value " << i << ": " << before[i] << " against " << after[i];
  }
  return ::testing::AssertionSuccess();
}

TEST(RowRoundTrip, TheDialogReadsTheLatexBackIntoTheseRows) {
  for (const Case& c : kCases) EXPECT_EQ(RoundTrip(QString::fromUtf8(c.row)), QString::fromUtf8(c.back)) << c.row;
}

TEST(RowRoundTrip, TheRowsOfTheTableMeanWhatTheyMeant) {
  for (const Case& c : kCases) {
    const QString row = QString::fromUtf8(c.row);
    EXPECT_TRUE(MeansTheSame(row, RoundTrip(row))) << c.row << " came back as " << RoundTrip(row).toStdString();
  }
}

TEST(RowRoundTrip, EverySampleRowMeansWhatItMeant) {
  const QStringList rows = SampleRows();
  ASSERT_GT(rows.size(), 100);
  int evaluated = 0;
  for (const QString& row : rows) {
    EXPECT_TRUE(MeansTheSame(row, RoundTrip(row))) << row.toStdString() << "\n came back as "
                                                   << RoundTrip(row).toStdString();
    if (!Meaning(row).empty()) ++evaluated;
  }
  // Compared by value, all but the display commands.
  EXPECT_GE(evaluated, rows.size() - 5);
}

// The comparison can tell rows apart: a changed number, a lost condition, a lost command.
TEST(RowRoundTrip, TheComparisonSeesAChangedRow) {
  EXPECT_FALSE(MeansTheSame("y=2sin(x)+x/2", "y=2sin(x)+x/3"));
  EXPECT_FALSE(MeansTheSame("declare(y=x^2,domain(x,0,3,0))", "y=x^2"));
  EXPECT_FALSE(MeansTheSame("[x,y;1,2;3,4]", "[x,y;1,2;3,5]"));
  EXPECT_FALSE(MeansTheSame("command==>[showgrid]", "show grid"));
}

}  // namespace
