#include "core/SharedState.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

using namespace core;

TEST(SharedState, StartsEmptyAndClean) {
  const SharedState state;
  EXPECT_FALSE(state.MathError);
  EXPECT_FALSE(state.ProjectChanged);
  EXPECT_TRUE(state.ProjectPath.isEmpty());
  for (const auto& token : state.FunctionTokens) EXPECT_TRUE(token.isEmpty());
}

TEST(SharedState, FunctionTokensInFoldingOrder) {
  SharedState state;
  InitTables(state);
  const char* expected[45] = {
      "asinh", "acosh", "atanh", "acsch", "asech", "acoth", "asin", "acos", "atan", "acsc",
      "asec",  "acot",  "sinh",  "cosh",  "tanh",  "csch",  "sech", "coth", "sin",  "cos",
      "tan",   "csc",   "sec",   "cot",   "rnd",   "abs",   "xlog", "sqrt", "sqr",  "log10",
      "ln",    "",      "deg",   "log",   "exp",   "int",   "rho",  "fact", "fix",  "",
      "sgn",   "xroot", "",      "const", "theta"};
  for (int slot = 0; slot < 45; ++slot) EXPECT_EQ(state.FunctionTokens[slot], expected[slot]) << slot;
}

TEST(SharedState, ConstantNamesWithTheirGapsAndSpelling) {
  SharedState state;
  InitTables(state);
  const char* expected[28] = {"a", "b", "c", "d", "f", "g", "h", "", "j", "k", "l", "m", "n", "o",
                              "", "q", "s", "u", "v", "w", "alpha", "beta", "theta", "ldmbda",
                              "phi", "meu", "tau", "rho"};
  for (int slot = 0; slot < 28; ++slot) EXPECT_EQ(state.ConstantNames[slot], expected[slot]) << slot;
  for (const auto& value : state.ConstantValues) EXPECT_TRUE(value.isEmpty());
}

TEST(SharedState, CommandPhrases) {
  SharedState state;
  InitTables(state);
  const char* expected[13] = {"show grid", "show axis", "transparent background", "show outerframe",
                              "show tips", "show numbers", "hide grid", "hide axis",
                              "opaque background", "hide outerframe", "hide tips", "hide numbers",
                              "enter full screen"};
  for (int slot = 0; slot < 13; ++slot) EXPECT_EQ(state.CommandPhrases[slot], expected[slot]) << slot;
}

TEST(SharedState, InitTablesLeavesValuesAndFlagsAlone) {
  SharedState state;
  state.ConstantValues[0] = "2";
  state.MathError = true;
  InitTables(state);
  EXPECT_EQ(state.ConstantValues[0], "2");
  EXPECT_TRUE(state.MathError);
}
