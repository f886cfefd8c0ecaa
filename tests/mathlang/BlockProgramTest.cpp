#include "expression/ScriptEvaluation.h"
#include "mathlang/BlockProgram.h"
#include "mathlang/LineParser.h"
#include "mathlang/VectorMath.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <cmath>
#include <vector>

using namespace mathlang;

namespace {

BlockProgram Compile(const QString& text) {
  const ParsedLine line = ParseExpression(text);
  EXPECT_TRUE(line.Ok()) << text.toStdString() << ": " << line.Error.toStdString();
  return BlockProgram(line.Tree, line.Right);
}

bool SameNumber(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
  return std::abs(a - b) <= 1e-12 * std::max(1.0, std::abs(b));
}

}  // namespace

// The program's engine with its Math, as EvaluateExpression uses it: NaN where it fails.
class ScriptReference {
public:
  ScriptReference() : m_evaluation(m_state, m_engine) {
    core::InitTables(m_state);
    expression::StartScriptEngine(m_engine, m_state);
    m_engine.ExecuteStatement("pi=3.14159265358979");
    m_engine.ExecuteStatement("e=2.71828182845905");
  }

  // The script language's reading of text, which agrees with the plot's for these texts (the
  // normaliser in front of EvaluateExpression swallows the star of "*exp(").
  double Script(const char* text, double x) {
    m_state.MathError = false;
    try {
      m_engine.ExecuteStatement(QStringLiteral("x=") + QString::number(x, 'g', 17));
      const double v = m_engine.Eval(text).ToDouble();
      return m_state.MathError ? NAN : v;
    } catch (const core::RuntimeError&) {
      return NAN;
    }
  }

  // EvaluateExpression's reading, normaliser included.
  double Typed(const char* text, double x) {
    const double v = m_evaluation.EvaluateWith(text, "x", x);
    return m_state.MathError ? NAN : v;
  }

private:
  core::SharedState m_state;
  script::ScriptControl m_engine;
  expression::ScriptEvaluation m_evaluation;
};

// What the plot draws and what the program computes for points must agree, so that computed
// points lie on drawn curves.
TEST(BlockProgram, AgreesWithTheProgramsEvaluation) {
  ScriptReference reference;
  const char* texts[] = {"sin(x)*exp(-x/5)", "x^3-2*x+1", "sqrt(x^2+1)/(1+abs(x))", "tan(x)", "ln(x)",
                         "asinh(x)", "fact(x)", "xroot(x,3)", "int(x)", "fix(x)", "sgn(x)", "acos(x/10)", "cot(x)",
                         "sec(x)", "2^x", "x^-2", "cos(x)^2", "sqrt(x)", "1/x", "(x^2/sin(2*pi/x))-x/2",
                         "exp(x)", "x\\2", "atn(x)", "log(x)", "sinh(x)", "acosh(x)", "atanh(x/4)", "deg(x)",
                         "xlog(x,2)", "abs(x)^0.5", "(x-1)*(x+1)", "e^x", "pi*x",
                         // functions of computed arguments, whose results may share the argument's register
                         "tan(2*x)", "sin(x*x)+cos(x/3)", "exp(x/2)*ln(x*x)", "tan(x*x)-sqrt(abs(x)*2)", "acos(sin(x))"};
  std::vector<double> xs;
  for (double x = -6; x <= 6; x += 0.173) xs.push_back(x);
  xs.insert(xs.end(), {0, 1, -1, 2, 100, -100, 1e-9, 700, 720});
  for (const char* text : texts) {
    const BlockProgram program = Compile(text);
    std::vector<double> out(xs.size());
    BlockProgram::Inputs inputs{};
    inputs[0] = xs.data();
    program.Evaluate(inputs, xs.size(), out.data());
    for (size_t i = 0; i < xs.size(); ++i) {
      const double wanted = reference.Script(text, xs[i]);
      EXPECT_TRUE(SameNumber(out[i], wanted)) << text << " at x=" << xs[i] << ": " << out[i] << " vs " << wanted;
    }
  }
}

// Texts as a user types them, through the normaliser on one side and the plot's parser on the
// other.
TEST(BlockProgram, AgreesWithEvaluateExpressionOnTypedText) {
  ScriptReference reference;
  for (const char* text : {"2x+1", "x2", "3x^2-2x", "(x+1)(x-1)", "2pi*x", "sin(2x)", "sqrt(x)", "x^-2", "[x]"}) {
    const BlockProgram program = Compile(text);
    for (double x = -3; x <= 3; x += 0.25) {
      const double wanted = reference.Typed(text, x);
      if (text == std::string("[x]")) continue;  // the normaliser's "[x^]" does not evaluate
      EXPECT_TRUE(SameNumber(program.At(x), wanted)) << text << " at x=" << x << ": " << program.At(x) << " vs " << wanted;
    }
  }
}

TEST(BlockProgram, BlocksOfAnyLengthAndConstantResults) {
  const BlockProgram program = Compile("x*2+1");
  std::vector<double> xs(1000);
  for (size_t i = 0; i < xs.size(); ++i) xs[i] = static_cast<double>(i);
  std::vector<double> out(xs.size());
  BlockProgram::Inputs inputs{};
  inputs[0] = xs.data();
  program.Evaluate(inputs, xs.size(), out.data());
  for (size_t i = 0; i < xs.size(); ++i) ASSERT_EQ(out[i], 2 * xs[i] + 1);
  EXPECT_EQ(Compile("2+3").At(0), 5);
  EXPECT_EQ(Compile("x").At(7), 7);
  EXPECT_EQ(Compile("lambda").At(7), 0);
  EXPECT_TRUE(std::isnan(Compile("1/0").At(0)));
}

TEST(BlockProgram, FailuresAreNaNNeverInfinities) {
  const std::pair<const char*, double> cases[] = {{"1/x", 0},     {"ln(x)", 0},    {"ln(x)", -1},   {"x^-1", 0},
                                                  {"exp(x)", 1000}, {"sqrt(x)", -1}, {"log10(x)", 0}, {"x*1e308*10", 1},
                                                  {"fact(x)", 171}, {"asin(x)", 2}};
  for (const auto& [text, x] : cases) {
    const double v = Compile(text).At(x);
    EXPECT_TRUE(std::isnan(v)) << text << " at " << x << " gave " << v;
  }
}

TEST(BlockProgram, VectorKernelsAgreeWithTheCLibrary) {
  const VectorKernels* avx2 = Avx2Kernels();
  if (!avx2) GTEST_SKIP() << "no AVX2 here";
  std::vector<double> in;
  for (double x = -50; x <= 50; x += 0.0137) in.push_back(x);
  std::vector<double> fast(in.size());
  std::vector<double> slow(in.size());
  // A few units in the last place at most.
  for (auto [vector, scalar] : {std::pair{avx2->Sin, ScalarKernels().Sin}, std::pair{avx2->Cos, ScalarKernels().Cos},
                                std::pair{avx2->Tan, ScalarKernels().Tan}}) {
    vector(in.data(), fast.data(), in.size());
    scalar(in.data(), slow.data(), in.size());
    for (size_t i = 0; i < in.size(); ++i) ASSERT_NEAR(fast[i], slow[i], 2e-15 * std::max(1.0, std::abs(slow[i])));
  }
  avx2->Exp(in.data(), 1.0, fast.data(), in.size());
  ScalarKernels().Exp(in.data(), 1.0, slow.data(), in.size());
  for (size_t i = 0; i < in.size(); ++i) ASSERT_NEAR(fast[i], slow[i], 2e-15 * std::max(1.0, std::abs(slow[i])));
  std::vector<double> positive;
  for (double x = 1e-6; x <= 1e6; x *= 1.37) positive.push_back(x);
  fast.resize(positive.size());
  slow.resize(positive.size());
  avx2->Log(positive.data(), fast.data(), positive.size());
  ScalarKernels().Log(positive.data(), slow.data(), positive.size());
  for (size_t i = 0; i < positive.size(); ++i) ASSERT_NEAR(fast[i], slow[i], 2e-15 * std::max(1.0, std::abs(slow[i])));
}
