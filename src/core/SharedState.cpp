#include "SharedState.h"

namespace core {

namespace {

// The order is what makes folding work: "asinh" must be folded before "sinh" and "sin",
// "sqrt" before "sqr", "log10" before "log". "rho" and "theta" are no functions but must survive
// the replacement of single letters too. Slots 31, 39 and 42 are unused.
const FunctionTokenTable kFunctionTokens = {
    "asinh", "acosh", "atanh", "acsch", "asech", "acoth", "asin",  "acos",  "atan",
    "acsc",  "asec",  "acot",  "sinh",  "cosh",  "tanh",  "csch",  "sech",  "coth",
    "sin",   "cos",   "tan",   "csc",   "sec",   "cot",   "rnd",   "abs",   "xlog",
    "sqrt",  "sqr",   "log10", "ln",    "",      "deg",   "log",   "exp",   "int",
    "rho",   "fact",  "fix",   "",      "sgn",   "xroot", "",      "const", "theta"};

// Single letters first, the Greek names last, so that substitution from the top down takes the
// long names before their letters. Slot 23's spelling keeps "lambda" from being a constant.
const ConstantTable kConstantNames = {
    "a", "b", "c", "d", "f", "g", "h", "",      "j",    "k",     "l",      "m",   "n",   "o",
    "",  "q", "s", "u", "v", "w", "alpha", "beta", "theta", "ldmbda", "phi", "meu", "tau", "rho"};

const CommandPhraseTable kCommandPhrases = {
    "show grid", "show axis",   "transparent background", "show outerframe", "show tips",
    "show numbers", "hide grid", "hide axis", "opaque background", "hide outerframe",
    "hide tips", "hide numbers", "enter full screen"};

}  // namespace

void InitTables(SharedState& state) {
  state.FunctionTokens = kFunctionTokens;
  state.ConstantNames = kConstantNames;
  state.CommandPhrases = kCommandPhrases;
}

}  // namespace core
