#include "expression/ExpressionNormaliser.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"
#include "StateSupport.h"

using namespace expression;

namespace {

QString Normalise(const QString& text) { return NormaliseExpression(FunctionTokens(), text); }

struct Case {
  const char* input;
  const char* expected;
};

void ExpectAll(std::initializer_list<Case> cases) {
  for (const auto& c : cases) EXPECT_EQ(Normalise(QString::fromUtf8(c.input)), QString::fromUtf8(c.expected)) << c.input;
}

}  // namespace

TEST(ExpressionNormaliser, WhatTheChainYields) {
  ExpectAll({
      {"2x", "2*x"},
      {"x2", "x^2"},
      {"3x^2", "3*x^2"},
      {"2(x+1)", "2*(x+1)"},
      {"(x+1)(x-1)", "(x+1)*(x-1)"},
      {"2pi+1", "2*pi+1"},
      {"xpi", "x*pi"},
      {"x^-2", "x^-2"},
      {"sin(2x)", "sin(2*x)"},
      {"ln(x)+1", "ln(x)+1"},
      {"2sin(x)", "2sin*(x)"},
      {"2*sin(x)", "2sin*(x)"},
      {"sin(x)cos(x)", "sin(x)cos*(x)"},
      {"theta", "_ 44_"},
      {"rho+1", "_ 36_+1"},
      {"[x]", "[x^]"},
  });
}

TEST(ExpressionNormaliser, EdgeCases) {
  ExpectAll({
      {"", ""},
      {"SIN(X)", "sin(x)"},
      {"e^x", "e^x"},
      {"1 000", "1000"},
      {"y<2x", "y<2*x"},
      {"0<x<3", "0<x<3"},
  });
}

TEST(ExpressionNormaliser, MoreThatUsersType) {
  ExpectAll({
      {"x", "x"},
      {"pi", "pi"},
      {"2", "2"},
      {"x^2+1", "x^2+1"},
      {"-x", "-x"},
      {"1/x", "1/x"},
      {"x*x", "x*x"},
      {"xx", "x*x"},
      {"(x)", "(x)"},
      {"sqrt(x)", "sqrt(x)"},
      {"y=2x+1", "y=2*x+1"},
      {"2^x", "2^x"},
      {"x^(1/2)", "x^(1/2)"},
      {"asinh(x)", "asinh(x)"},
      // Slot 0 is the one back form that the back-only unfold takes, so asinh keeps its star.
      {"2asinh(x)", "2*asinh(x)"},
      {"3\\2", "3\\2"},
      {"[x,y;1,2]", "[x,y;1,2]"},
      {"x;2", "x;2"},
      {"sin(1)*2", "sin(1)*2"},
      {"2*sin(1)", "2sin*(1)"},
      {"theta+1", "_ 44_+1"},
      // theta is no atom of the chain: no star is put before it, and a typed one is swallowed.
      {"2theta", "2theta"},
      {"2*theta", "2theta"},
      {"declare(y=x,x>0)", "declare*(y=x,x>0)"},
  });
}

TEST(ExpressionNormaliser, PrivateMarkersTypedByAUserDoNotCrash) {
  for (const char* text : {"<~>", "@~@", "##", "```", "<!?>", "&&&", "^-", "^^^", "***", "x^-"}) {
    EXPECT_NO_THROW(Normalise(text)) << text;
  }
  EXPECT_EQ(Normalise("&&&"), "deg");
}

// A square root after a factor comes out as a call the engine can make; the sine of the tables
// above keeps the form their rows pin.
TEST(ExpressionNormaliser, SquareRootsAfterAFactorStayCalls) {
  ExpectAll({
      {"2*sqrt(2)", "2*sqrt(2)"},
      {"2sqrt(2)", "2*sqrt(2)"},
      {"sqrt(2)", "sqrt(2)"},
      {"sqrt(2)*2", "sqrt(2)*2"},
      {"(1+1)sqrt(2)", "(1+1)*sqrt(2)"},
      {"1+sqrt(x)", "1+sqrt(x)"},
      {"y=2sqrt(x)", "y=2*sqrt(x)"},
      {"2sqr(9)", "2*sqr(9)"},
      {"sqrt(sqrt(16))", "sqrt(sqrt(16))"},
      {"xsqrt(2)", "x*sqrt(2)"},
      {"pisqrt(2)", "pi*sqrt(2)"},
      // A longer word that ends in one of the names is not one of them.
      {"foosqrt(2)", "foosqrt*(2)"},
  });
}
