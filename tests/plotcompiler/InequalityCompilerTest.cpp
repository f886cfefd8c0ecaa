#include "plotcompiler/InequalityCompiler.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

using namespace plotcompiler;

namespace {

struct Case {
  const char* text;
  const char* row;
};

void ExpectAll(std::initializer_list<Case> cases) {
  for (const auto& c : cases) {
    EXPECT_EQ(CompileInequalityRow(QString::fromUtf8(c.text)), QString::fromUtf8(c.row)) << c.text;
  }
}

}  // namespace

TEST(InequalityCompiler, EdgeCases) {
  ExpectAll({
      {"y=x;x<3", "declare(y=x,x<3)"},
      {"y=x;0<x<3", "declare(y=x,domain(x,0,3,0))"},
      {"y=x;0<=x<3", "declare(y=x,domain(x,0,3,3))"},
      {"y=x;0<x<=3", "declare(y=x,domain(x,0,3,2))"},
      {"y=x;0<=x<=3", "declare(y=x,domain(x,0,3,1))"},
      {"y=x;0<x<3;1<y<2", "declare(y=x,(domain(x,0,3,0)) and (domain(y,1,2,0)))"},
      {"y=x", "y=x"},
      {"[x,y;1,2;3,4]", "[x,y;1,2;3,4]"},
      {"y=x;x=3", ""},
  });
  EXPECT_EQ(InequalityToDomain("x>0"), "x>0");
}

TEST(InequalityCompiler, PlainComparisons) {
  ExpectAll({
      {"y=x;x>0", "declare(y=x,x>0)"},
      {"y=x;x<=3", "declare(y=x,x<=3)"},
      // "=<" is turned round in the condition, but the variable is read from the text as typed.
      {"y=x;x=<3", "declare(y=x,x=<=3)"},
      {"y=x;x>=-1", "declare(y=x,x>=-1)"},
      {"y=x^2;y<4", "declare(y=x^2,y<4)"},
  });
}

TEST(InequalityCompiler, ChainsAreNotTurnedRound) {
  ExpectAll({
      {"y=x;3>x>0", "declare(y=x,domain(x,3,0,0))"},
      {"y=x;-1<x<1", "declare(y=x,domain(x,-1,1,0))"},
  });
}

TEST(InequalityCompiler, SeveralConditions) {
  ExpectAll({
      {"y=x;x>0;0<y<1", "declare(y=x,(x>0) and (domain(y,0,1,0)))"},
      {"y=x;0<x<1;0<=y<=1;x>y", "declare(y=x,(domain(x,0,1,0)) and (domain(y,0,1,1)) and (x>y))"},
  });
}

TEST(InequalityCompiler, SymbolsGoBackToTheEditorsSpelling) {
  ExpectAll({
      {"r=theta;0<theta<pi", "declare(r=q..symb,domain(q..symb,0,pi,0))"},
      {"r=_ 44_;0<_ 44_<pi", "declare(r=q..symb,domain(q..symb,0,pi,0))"},
      {"y=alpha*x;x>beta", "declare(y=a..symb*x,x>b..symb)"},
      {"y=lamda+lambda+meu+tau+phi+rho+_ 36_", "y=l..symb+l..symb+m..symb+t..symb+f..symb+r..symb+r..symb"},
  });
}

TEST(InequalityCompiler, CommandsAndBracketedRows) {
  ExpectAll({
      {"command==>[showgrid]", "command==>[showgrid]"},
      {"command;x<3", "command;x<3"},
      {"(y=x;x<3)", "declare(y=x,x<3)"},
      {"(y=x)", "y=x"},
      {"((x+1))", "(x+1)"},
      // Brackets that only start and end the text are no brackets round it.
      {"(x+1)*(x-1)", "(x+1)*(x-1)"},
      {"(2+cos(v))cos*(u)", "(2+cos(v))cos*(u)"},
      {"(x^2+1)/(x-1)", "(x^2+1)/(x-1)"},
      {"(x", "(x"},
      {"", ""},
      {";", ""},
      {"y=x;", ""},
  });
}

TEST(InequalityCompiler, InequalityToDomain) {
  struct Case { const char* text; const char* domain; };
  const Case cases[] = {
      {"0<x<3", "domain(x,0,3,0)"},
      {"0<=x<=3", "domain(x,0,3,1)"},
      {"0<x<=3", "domain(x,0,3,2)"},
      {"0<=x<3", "domain(x,0,3,3)"},
      {"x>0", "x>0"},
      {"x<0", "x<0"},
      {"0<x<3>", "0<x<3>"},
      {"0<x<3>>", "domain(x,0,3>>,0)"},
      {"", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(InequalityToDomain(c.text), c.domain) << c.text;
}
