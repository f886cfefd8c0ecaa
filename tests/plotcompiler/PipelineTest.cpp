// The pipeline as the insert dialog runs it: typed text through the normaliser into the stored row
// form, and the stored form back to the line that the plot receives.
#include "expression/ExpressionNormaliser.h"
#include "expression/SymbolFolding.h"
#include "plotcompiler/EquationCompiler.h"
#include "plotcompiler/InequalityCompiler.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"
#include "StateSupport.h"

#include <QStringList>

using namespace plotcompiler;

namespace {

struct RoundTrip {
  const char* typed;
  const char* stored;
  const char* line;
};

}  // namespace

TEST(Pipeline, TypedRestrictionsReachThePlotLine) {
  const auto tokens = FunctionTokens();
  const RoundTrip cases[] = {
      {"y=2x;0<x<3", "declare(y=2*x,domain(x,0,3,0))", "y=2*x;0<x<3"},
      {"y=x2;x>0", "declare(y=x^2,x>0)", "y=x^2;x>0"},
      {"r=theta/2;0<theta<2pi", "declare(r=q..symb/2,domain(q..symb,0,2*pi,0))", "r=theta/2;0<theta<2*pi"},
      // The normaliser swallows the star before theta; the row then holds "2q..symb".
      {"r=2*theta;0<theta<2pi", "declare(r=2q..symb,domain(q..symb,0,2*pi,0))", "r=2theta;0<theta<2*pi"},
      {"y=sin(x);0<=x<=pi;-1<y<0", "declare(y=sin(x),(domain(x,0,pi,1)) and (domain(y,-1,0,0)))",
       "y=sin(x);0<=x<=pi;-1<y<0"},
      {"Y = 3X + 1 ; X > 0", "declare(y=3*x+1,x>0)", "y=3*x+1;x>0"},
      {"y=[x];0<x<5", "declare(y=[x^],domain(x,0,5,0))", "y=[x^];0<x<5"},
  };
  for (const auto& c : cases) {
    const QString stored = CompileInequalityRow(expression::NormaliseExpression(tokens, c.typed));
    EXPECT_EQ(stored, c.stored) << c.typed;
    EXPECT_EQ(CompileEquation(stored, false), c.line) << c.typed;
  }
}

TEST(Pipeline, PointListsAndCommandsPassUntouched) {
  const auto tokens = FunctionTokens();
  EXPECT_EQ(CompileInequalityRow(expression::NormaliseExpression(tokens, "[x,y;1,2;3,4]")), "[x,y;1,2;3,4]");
  EXPECT_EQ(CompileEquation("[x,y;1,2;3,4]", false), "[x,y;1,2;3,4]");
  EXPECT_EQ(CompileEquation("[r,q..symb;1,pi]", false), "[r,theta;1,pi]");
  EXPECT_EQ(CompileEquation("[x,y;[1.5],2]", false), "[x,y;fix(1.5),2]");
  EXPECT_EQ(CompileEquation("command==>[showgrid]", true), "command==>[showgrid]");
  EXPECT_EQ(CompileInequalityRow("command==>[showgrid]"), "command==>[showgrid]");
}

TEST(Pipeline, BadInputComesBackFromEveryFunction) {
  const auto tokens = FunctionTokens();
  QStringList texts = {"", "(", ")", "((((", "))))", "[[", "]]", "<~>", "@~@", "##", "```", "&&", "###",
                       "<!?>", "&&&", ";;;", ",,,", "===", "<<<", ">>>", "declare(", "declare)",
                       "domain(", "declare(domain(", "declare(,domain(,,,)and)", "y=declare(,(domain",
                       "declare(y=x,domain(x,0,1,0) and)", "and and", "_ 44_*", "*_ 0_", "_ 99_",
                       QString::fromUtf8("y=\u03b8+\u00e9\u4e2d\U0001F600"), QString("\x01\x02\t\n\r\x7f"),
                       QString(1, QChar(0)), "command", "command==>[", "x^]", "[x^]", "q..symb..symb"};
  texts << QString(100000, u'x') << QString(100000, u'(') << QString("declare(y=x,domain(x,0,1,0))").repeated(3000)
        << QString("sin(").repeated(20000) << QString("0<x<1;").repeated(10000) << QString(",)").repeated(30000);
  for (const QString& text : texts) {
    EXPECT_NO_THROW({
      expression::NormaliseExpression(tokens, text);
      CompileEquation(text, false);
      CompileEquation(text, true);
      CompileInequalityRow(text);
      InequalityToDomain(text);
      DomainToInequality(text);
      expression::FoldTokens(tokens, text);
      expression::UnfoldTokens(tokens, text, true);
      expression::UnfoldTokens(tokens, text, false);
      expression::ReplaceSymbol(tokens, text, "x", "2");
      expression::CountOf(text, "x");
    }) << text.left(40).toStdString();
  }
}
