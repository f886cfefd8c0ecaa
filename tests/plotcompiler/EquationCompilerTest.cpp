#include "plotcompiler/EquationCompiler.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

using namespace plotcompiler;

namespace {

struct Case {
  const char* text;
  bool bare;
  const char* line;
};

void ExpectAll(std::initializer_list<Case> cases) {
  for (const auto& c : cases) {
    EXPECT_EQ(CompileEquation(QString::fromUtf8(c.text), c.bare), QString::fromUtf8(c.line))
        << c.text << (c.bare ? " (bare)" : "");
  }
}

}  // namespace

TEST(EquationCompiler, EdgeCases) {
  ExpectAll({
      {"y=x^2", false, "y=x^2"},
      {"y=x^2", true, "x^2"},
      {"y=[x]+1", false, "y=fix(x)+1"},
      {"[x,y;1,2]", false, "[x,y;1,2]"},
      {"[x]+[x]", false, "[x)+fix(x]"},
      {"command==>[showgrid]", false, "command==>[showgrid]"},
      {"declare(y=x,domain(x,0,2,1))", false, "y=x;0<=x<=2"},
      {"declare(y=x,x>0)", false, "y=x;x>0"},
      {"declare(y=x,domain(x,0,1,0) and domain(y,0,1,3))", false, "y=x;0<x<1;0<=y<1"},
      {"r=2*q..symb", false, "r=2*theta"},
      {"r=2*q..symb", true, "2*x"},
  });
}

TEST(EquationCompiler, RowFormsOfThePlotLanguage) {
  ExpectAll({
      {"[x,y;1,2]", false, "[x,y;1,2]"},
      {"y=[x]", false, "y=fix(x)"},
      {"command==>[hidegrid]", false, "command==>[hidegrid]"},
      {"declare(y=x,domain(x,0,1,0) and domain(y,0,1,1))", false, "y=x;0<x<1;0<=y<=1"},
      {"declare(y=x^2,x>0 and x<3)", false, "y=x^2;x>0 and x<3"},
      {"declare(y=x^2,x>0)", false, "y=x^2;x>0"},
      {"y=declare(x^2,x>0)", false, "y=x^2;x>0"},
      {"declare(y=x^2,domain(x,0,3,0))", false, "y=x^2;0<x<3"},
      {"y=declare(x^2,domain(x,0,3,0))", false, "y=x^2;0<x<3"},
      {"declare(y=a*x,domain(x,0,q..symb,3))", false, "y=a*x;0<=x<theta"},
  });
}

TEST(EquationCompiler, GreekSymbolsAreSpelledOut) {
  ExpectAll({
      {"y=a..symb*x", false, "y=alpha*x"},
      {"y=b..symb+f..symb", false, "y=beta+phi"},
      {"y=f..var..symb", false, "y=phi"},
      {"y=t..symb*m..symb", false, "y=tau*meu"},
      {"y=l..symb+r..symb", false, "y=lambda+rho"},
      {"r=q..symb", false, "r=theta"},
      {"r=q..symb", true, "x"},
      {"r=theta", false, "r=theta"},
      {"y=varho", false, "y=symb"},
  });
}

TEST(EquationCompiler, BareRemovesEveryLeftSide) {
  ExpectAll({
      {"x=sin(y)", true, "sin(y)"},
      {"r=1+theta", true, "1+theta"},
      {"sin(x)", true, "sin(x)"},
      {"y=x;x=2", true, "x;2"},
      {"[x,y;1,2]", true, "[x,y;1,2]"},
      // Without its left side the text starts with "[": the outer-bracket rule takes the last
      // character for the list's end.
      {"y=[x]+1", true, "[x)+]"},
      // "y=" goes before the restriction is cut apart, and the left side with it.
      {"declare(y=x,x>0)", true, "=x;x>0"},
  });
}

TEST(EquationCompiler, FormsWithThetaAndBrackets) {
  ExpectAll({
      // Form A protects theta while it cuts and gives it back before returning.
      {"declare(r=q..symb,domain(q..symb,0,pi,1))", false, "r=theta;0<=theta<=pi"},
      // Form A returns before the bracket steps: "[x]" stays.
      {"declare(y=[x],domain(x,0,1,0))", false, "y=[x];0<x<1"},
      // Form B goes through them.
      {"declare(y=[x],x>0)", false, "y=fix(x);x>0"},
      // The domain forms in brackets that the inequality compiler writes.
      {"declare(y=x,(domain(x,0,3,0)) and (domain(y,1,2,0)))", false, "y=x;0<x<3;1<y<2"},
      {"y=declare(x,domain(x,0,1,0))", false, "y=x;0<x<1"},
      {"y=declare(x,domain(x,0,1,0) and domain(y,0,2,1))", false, "y=x;0<x<1;0<=y<=2"},
      {"y=declare(x,(domain(x,0,1,0)) and (domain(y,0,2,1)))", false, "y=x;0<x<1;0<=y<=2"},
      // The comma of a function inside the expression is not the separator.
      {"declare(y=xroot(x,3),x>0)", false, "y=xroot(x,3);x>0"},
      {"y=declare(xlog(2,x),x>1)", false, "y=xlog(2,x);x>1"},
      // The normaliser's "[x^]" is closed.
      {"y=[x^]", false, "y=fix(x)"},
  });
}

TEST(EquationCompiler, MalformedRestrictionsComeBackWithoutFailing) {
  ExpectAll({
      // No "=": the left side stays empty.
      {"declare(x^2,x>0)", false, "=x^2;x>0"},
      // No comma: the whole rest is the condition.
      {"declare(y=x^2)", false, "y=;x^2"},
      // Bounds outside 0 to 3 give an empty condition.
      {"declare(y=x,domain(x,0,3,7))", false, "y=x;"},
      // Too few fields: the piece cannot be read and the condition stays empty.
      {"declare(y=x,domain(x,0))", false, "y=x;"},
      {"declare(y=x,domain(x,0) and domain(y,0,1,0))", false, "y=x;domain(x,0) ;0<y<1"},
      {"declare", false, "=;"},
      {"declare(", false, "=;("},
      {"y=declare", false, "y=;"},
      {"[", false, "#]"},
      {"]", false, ")"},
      {"", false, ""},
      {"", true, ""},
  });
}

TEST(EquationCompiler, MarkersTypedByAUserTakeTheirMeaning) {
  ExpectAll({
      // The compiler's own marks are plain replacements: typed, they turn into what they hold.
      {"y=@~@", false, "y=theta"},
      {"y=##x&&", false, "y=[x]"},
      {"y=###", false, "y=command"},
      // A typed "###" reads as "command" and so keeps the brackets.
      {"y=[x]+###", false, "y=[x]+command"},
      {"y=<~>x", false, "y=<~>x"},
  });
}

TEST(EquationCompiler, GreekSymbolsThroughEveryForm) {
  ExpectAll({
      {"declare(y=a..symb*x,domain(x,b..symb,q..symb,2))", false, "y=alpha*x;beta<x<=theta"},
      {"declare(r=q..symb,q..symb<pi)", false, "r=theta;theta<pi"},
      {"r=declare(q..symb,domain(q..symb,0,2*pi,1))", false, "r=theta;0<=theta<=2*pi"},
      {"r=declare(q..symb,domain(q..symb,0,2*pi,1))", true, "x;0<=x<=2*pi"},
      {"declare(y=l..symb*x,domain(x,0,1,0) and domain(y,m..symb,t..symb,1))", false,
       "y=lambda*x;0<x<1;meu<=y<=tau"},
      {"[r,q..symb;1,pi/2]", false, "[r,theta;1,pi/2]"},
  });
}

TEST(EquationCompiler, DomainToInequality) {
  struct Case { const char* text; const char* chain; };
  const Case cases[] = {
      {"domain(x,0,3,0)", "0<x<3"},
      {"domain(x,0,3,1)", "0<=x<=3"},
      {"domain(x,0,3,2)", "0<x<=3"},
      {"domain(x,0,3,3)", "0<=x<3"},
      {"domain(x,0,3,7)", ""},
      {" (domain(x,1,2,3)) ", "1<=x<2"},
      {"x>0", "x>0"},
      {"", ""},
      {"domain(x,0)", ""},
      {"domain", ""},
      {"domain(x,-pi,pi,1)", "-pi<=x<=pi"},
  };
  for (const auto& c : cases) EXPECT_EQ(DomainToInequality(c.text), c.chain) << c.text;
  EXPECT_FALSE(TryDomainToInequality("domain(x,0)").has_value());
  EXPECT_EQ(TryDomainToInequality("domain(x,0,3,9)"), QString(""));
}
