#include "core/RuntimeError.h"
#include "core/TextFunctions.h"
#include "expression/SymbolFolding.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"
#include "StateSupport.h"

using namespace expression;

TEST(SymbolFolding, TokenFormsCarryTheSlotWithALeadingBlank) {
  EXPECT_EQ(FrontForm(18), "*_ 18_");
  EXPECT_EQ(BackForm(44), "_ 44_*");
  EXPECT_EQ(FrontForm(0), "*_ 0_");
  EXPECT_EQ(BackForm(0), "_ 0_*");
}

TEST(SymbolFolding, EdgeCases) {
  const auto tokens = FunctionTokens();
  EXPECT_EQ(ReplaceSymbol(tokens, "y=exp(x)+x", "x", "2"), "y=exp(2)+2");
  EXPECT_EQ(ReplaceSymbol(tokens, "sqrt(s)", "s", "1"), "sqrt(1)");
  EXPECT_EQ(ReplaceSymbol(tokens, "theta*2", "theta", "1"), "theta*2");
  EXPECT_EQ(FoldTokens(tokens, "sinh(x)"), "*_ 12_(x)");
  EXPECT_EQ(CountOf("1;2;3", ";"), "2");
}

TEST(SymbolFolding, FoldingWalksTheTableInOrder) {
  const auto tokens = FunctionTokens();
  struct Case { const char* text; const char* folded; };
  const Case cases[] = {
      {"sin(x)", "*_ 18_(x)"},
      {"asinh(x)", "*_ 0_(x)"},
      {"sqrt(x)+sqr(x)", "*_ 27_(x)+*_ 28_(x)"},
      {"log10(x)+log(x)", "*_ 29_(x)+*_ 33_(x)"},
      {"xroot(x,3)", "*_ 41_(x,3)"},
      {"rho+theta", "*_ 36_+*_ 44_"},
      {"SIN(x)", "SIN(x)"},
      {"x", "x"},
      {"", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(FoldTokens(tokens, c.text), c.folded) << c.text;
}

TEST(SymbolFolding, UnfoldTakesBothFormsBack) {
  const auto tokens = FunctionTokens();
  EXPECT_EQ(UnfoldTokens(tokens, "*_ 18_(x)", false), "sin(x)");
  EXPECT_EQ(UnfoldTokens(tokens, "_ 18_*(x)", false), "sin(x)");
  EXPECT_EQ(UnfoldTokens(tokens, "*_ 18_*(x)", false), "sin*(x)");  // the front form goes first
  EXPECT_EQ(UnfoldTokens(tokens, "_ 44_", false), "_ 44_");          // neither form: stays bare
}

TEST(SymbolFolding, BackOnlyUnfoldsSlotZeroAlone) {
  const auto tokens = FunctionTokens();
  EXPECT_EQ(UnfoldTokens(tokens, "_ 0_*(x)", true), "asinh(x)");
  EXPECT_EQ(UnfoldTokens(tokens, "_ 18_*(x)", true), "_ 18_*(x)");
  EXPECT_EQ(UnfoldTokens(tokens, "*_ 0_(x)", true), "*_ 0_(x)");
}

TEST(SymbolFolding, FoldAndUnfoldRoundTripTheNames) {
  const auto tokens = FunctionTokens();
  for (const auto& name : tokens) {
    if (name.isEmpty()) continue;
    const QString text = "2*" + name + "(x)+1";
    EXPECT_EQ(UnfoldTokens(tokens, FoldTokens(tokens, text), false), text) << name.toStdString();
  }
}

TEST(SymbolFolding, ReplaceSymbolLeavesFunctionLettersAlone) {
  const auto tokens = FunctionTokens();
  EXPECT_EQ(ReplaceSymbol(tokens, "a*sin(a)", "a", "2"), "2*sin(2)");
  EXPECT_EQ(ReplaceSymbol(tokens, "c*cos(c)+acosh(c)", "c", "3"), "3*cos(3)+acosh(3)");
  EXPECT_EQ(ReplaceSymbol(tokens, "rho*r", "rho", "1"), "rho*r");
  EXPECT_EQ(ReplaceSymbol(tokens, "t*tan(t)", "t", "(1+2)"), "(1+2)*tan((1+2))");
  EXPECT_EQ(ReplaceSymbol(tokens, "y=a*x", "a", ""), "y=*x");
  EXPECT_EQ(ReplaceSymbol(tokens, "a", "", "1"), "a");
}

TEST(SymbolFolding, CountOfCountsWholeOccurrences) {
  EXPECT_EQ(CountOf("", ";"), "0");
  EXPECT_EQ(CountOf("aaaa", "aa"), "2");
  EXPECT_EQ(CountOf("aaa", "aa"), "1");
  EXPECT_EQ(CountOf("0<=x<=3", "<="), "2");
  try {
    CountOf("abc", "");
    ADD_FAILURE() << "an empty what must divide by zero";
  } catch (const core::RuntimeError& e) {
    EXPECT_EQ(e.Number(), core::RuntimeError::DivisionByZero);
  }
}

// The shortcut of ReplaceSymbol for texts without "_" and without the name must give what the
// full fold, replace and unfold gives.
TEST(SymbolFolding, TheShortcutAgreesWithTheFullRoundTrip) {
  const auto tokens = FunctionTokens();
  const QStringList pieces = {"sin", "h", "a", "cos", "x", "(", ")", "*", "q", "sqr", "t", "log", "10",
                              "theta", "rho", "as", "in", "e", "xp", "c", "o", "n", "st", "+", "2", "^"};
  std::uint32_t seed = 12345;
  const auto next = [&seed] { return seed = seed * 1664525u + 1013904223u; };
  for (int round = 0; round < 20000; ++round) {
    QString text;
    const int length = static_cast<int>(next() % 12);
    for (int i = 0; i < length; ++i) text += pieces[static_cast<int>(next() % pieces.size())];
    const QString find = QStringList{"a", "b", "s", "x", "alpha", "q"}[static_cast<int>(next() % 6)];
    const QString full = UnfoldTokens(tokens, core::Replace(FoldTokens(tokens, text), find, "9"), false);
    EXPECT_EQ(ReplaceSymbol(tokens, text, find, "9"), full) << text.toStdString() << " / " << find.toStdString();
  }
}
