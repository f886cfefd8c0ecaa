// The block program against the tree's own evaluation of one point at a time, over expressions
// that reach every kernel of the block evaluation (the vector functions, the element loops, the
// negations a constant takes over, the powers done by multiplication) and over values at the
// edges: zero of either sign, tiny and huge numbers, poles, overflow, NaN and the infinities.
#include "mathlang/BlockProgram.h"
#include "mathlang/LineParser.h"
#include "numeric/NumericKernel.h"

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

using namespace mathlang;

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

// The same number: both failures, or within the last bits of the vector functions (the same
// tolerance as the program's own agreement test).
bool SameNumber(double block, double point, double x) {
  if (std::isnan(block) || std::isnan(point)) {
    // From an infinite input the point evaluation may pass an infinity through where the block
    // says NaN, or the other way round: both are no point on the curve.
    if (std::isinf(x) && (std::isinf(block) || std::isinf(point))) return true;
    return std::isnan(block) && std::isnan(point);
  }
  if (block == point) return true;  // infinities of the same sign included
  return std::abs(block - point) <= 1e-12 * std::max(1.0, std::abs(point));
}

std::vector<double> EdgeValues() {
  const double pi = numeric::kPi;
  std::vector<double> xs = {0.0,  -0.0,   1.0,    -1.0,   2.0,     -2.0,   0.5,    -0.5,  3.0,  -3.0,   4.0,
                            1e-9, -1e-9,  1e-300, -1e-300, 4.9e-324, 1e300, -1e300, 1e308, -1e308, 1e102, -1e102,
                            1e103, -1e103, 700,   -700,   709.7,   710,    -745,   1e6,   -1e6, 1e16,   -1e16,
                            pi / 2, -pi / 2, 3 * pi / 2, M_PI_2, -M_PI_2, 3 * M_PI_2, pi, -pi, 2 * pi, M_PI,
                            std::nextafter(M_PI_2, 0.0), std::nextafter(M_PI_2, 4.0),
                            std::numeric_limits<double>::quiet_NaN(), kInf, -kInf};
  for (double x = -12; x <= 12; x += 0.0371) xs.push_back(x);
  return xs;
}

// Every expression reaches a kernel: keep one for each path the block program can take.
const char* const kExpressions[] = {
    // the benchmark's
    "sin(x)*exp(-x/5)", "(x^2/sin(2*pi/x))-x/2", "sqrt(x^2+1)/(1+abs(x))", "x^3-2*x+1", "tan(x)",
    // vector functions, alone and on computed arguments
    "sin(x)", "cos(x)", "exp(x)", "ln(x)", "tan(x)", "exp(x/3)", "cos(x*x)", "ln(abs(x))", "tan(2*x)",
    // negations taken over by a constant, on either side, and one that is not
    "-x/5", "-x*3", "3*-x", "7/-x", "-x/4", "-x/-0.25", "-(x+1)/3", "exp(-x)", "-x+2", "-x", "-(x*x)/0",
    // powers by multiplication and the general power
    "x^2", "x^3", "x^4", "x^0.5", "x^-2", "x^0", "0^x", "x^x", "(-x)^3", "x^1.5", "2^x",
    // the element loops
    "x+1", "1-x", "x*x", "x/3", "3/x", "x/0", "x*1e308*10", "abs(x)", "sqrt(x)", "int(x)", "fix(x)",
    "x\\2", "x mod 3", "sgn(x)", "atn(x)", "x", "2+3",
};

BlockProgram Compile(const ParsedLine& line) { return BlockProgram(line.Tree, line.Right); }

double PointValue(const ParsedLine& line, double x) {
  const double variables[kVariableCount] = {x, 0, 0, 0, 0, 0, 0, 0, 0};
  return line.Tree.EvaluateAt(variables);
}

}  // namespace

TEST(BlockEvaluation, AgreesWithThePointEvaluationOverEdgeValues) {
  const std::vector<double> xs = EdgeValues();
  for (const char* text : kExpressions) {
    const ParsedLine line = ParseExpression(text);
    ASSERT_TRUE(line.Ok()) << text;
    const BlockProgram program = Compile(line);
    std::vector<double> block(xs.size());
    BlockProgram::Inputs inputs{};
    inputs[0] = xs.data();
    program.Evaluate(inputs, xs.size(), block.data());
    int failures = 0;
    for (size_t i = 0; i < xs.size() && failures < 5; ++i) {
      const double point = PointValue(line, xs[i]);
      const bool same = SameNumber(block[i], point, xs[i]);
      failures += same ? 0 : 1;
      EXPECT_TRUE(same) << text << " at x=" << xs[i] << ": block " << block[i] << ", point " << point;
      // One point alone goes through the padded tails of the vector loops.
      EXPECT_TRUE(SameNumber(program.At(xs[i]), point, xs[i])) << text << " alone at x=" << xs[i];
    }
  }
}

// The block result does not depend on where a value lies in the block nor on the length of the
// block: the tails of the 4- and 8-wide loops and the 256-value blocks give the same numbers.
TEST(BlockEvaluation, EveryLengthGivesTheSameNumbers) {
  std::vector<double> xs;
  for (int i = 0; i < 600; ++i) xs.push_back(-9 + 0.0297 * i);
  for (const char* text : {"sin(x)*exp(-x/5)", "tan(x)+ln(abs(x))", "x^3-2*x+1", "sqrt(x^2+1)/(1+abs(x))"}) {
    const ParsedLine line = ParseExpression(text);
    const BlockProgram program = Compile(line);
    std::vector<double> whole(xs.size());
    BlockProgram::Inputs inputs{};
    inputs[0] = xs.data();
    program.Evaluate(inputs, xs.size(), whole.data());
    for (size_t n : {1u, 2u, 3u, 5u, 7u, 9u, 15u, 17u, 255u, 257u, 513u}) {
      for (size_t start : {0u, 1u, 3u, 70u}) {
        std::vector<double> part(n);
        BlockProgram::Inputs shifted{};
        shifted[0] = xs.data() + start;
        program.Evaluate(shifted, n, part.data());
        for (size_t i = 0; i < n; ++i) {
          ASSERT_EQ(part[i], whole[start + i]) << text << " n=" << n << " start=" << start << " i=" << i;
        }
      }
    }
  }
}

// A negation that a constant takes over gives the same bits as the negation done first, as the
// point evaluation does it: products and quotients round alike for either sign.
TEST(BlockEvaluation, NegationsTakenOverByConstantsAreExact) {
  const std::vector<double> xs = EdgeValues();
  for (const char* text : {"-x/5", "-x*3", "3*-x", "7/-x", "-x/4", "-x/-0.25", "-(x+1)/3", "2*-(x*x)"}) {
    const ParsedLine line = ParseExpression(text);
    const BlockProgram program = Compile(line);
    for (double x : xs) {
      const double point = PointValue(line, x);
      const double block = program.At(x);
      if (std::isnan(point)) EXPECT_TRUE(std::isnan(block)) << text << " at " << x;
      else EXPECT_EQ(block, point) << text << " at " << x;
    }
  }
}

// Two variables read from their own arrays, as the implicit curves use them.
TEST(BlockEvaluation, TwoVariablesAgreeWithThePointEvaluation) {
  std::vector<double> xs, ys;
  for (double x = -3; x <= 3; x += 0.0617) {
    for (double y = -3; y <= 3; y += 0.0733) xs.push_back(x), ys.push_back(y);
  }
  for (const char* text : {"x^2+y^2-4", "x*y-1", "sin(x)-y", "-x/3+y^3", "exp(-y/5)*x", "(x^2+y^2)^0.5-2"}) {
    const ParsedLine line = ParseExpression(text);
    ASSERT_TRUE(line.Ok()) << text;
    const BlockProgram program = Compile(line);
    std::vector<double> block(xs.size());
    BlockProgram::Inputs inputs{};
    inputs[0] = xs.data();
    inputs[1] = ys.data();
    program.Evaluate(inputs, xs.size(), block.data());
    for (size_t i = 0; i < xs.size(); ++i) {
      const double variables[kVariableCount] = {xs[i], ys[i], 0, 0, 0, 0, 0, 0, 0};
      const double point = line.Tree.EvaluateAt(variables);
      ASSERT_TRUE(SameNumber(block[i], point, xs[i])) << text << " at " << xs[i] << "," << ys[i];
    }
  }
}
