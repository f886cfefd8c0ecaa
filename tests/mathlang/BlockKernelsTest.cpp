// The kernels of the block evaluation, each processor's build against the baseline one: the
// element loops must give the same bits everywhere, the vector functions the C library's values
// to the last few bits, and both the program's NaN for whatever is not finite.
#include "mathlang/ElementKernels.h"
#include "mathlang/VectorMath.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

using namespace mathlang;

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// An odd length, so that every loop has a tail; edge values among ordinary ones.
std::vector<double> Values() {
  std::vector<double> v = {0.0, -0.0, 1.0, -1.0, 1e-300, -1e-300, 4.9e-324, 1e300, -1e300, 1e154, -1e103,
                           0.5, 3.0,  kNaN, kInf, -kInf,  700,     -745,    710,      1e16,  M_PI_2};
  for (double x = -20; x <= 20; x += 0.173) v.push_back(x);
  return v;
}

bool SameBits(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
  return std::memcmp(&a, &b, sizeof a) == 0;
}

std::vector<std::pair<const char*, const ElementKernels*>> FastElementKernels() {
  std::vector<std::pair<const char*, const ElementKernels*>> tables;
  if (Avx2ElementKernels()) tables.emplace_back("avx2", Avx2ElementKernels());
  if (Avx512ElementKernels()) tables.emplace_back("avx512", Avx512ElementKernels());
  return tables;
}

std::vector<const VectorKernels*> FastVectorKernels() {
  std::vector<const VectorKernels*> tables;
  if (Avx2Kernels()) tables.push_back(Avx2Kernels());
  if (Avx512Kernels()) tables.push_back(Avx512Kernels());
  return tables;
}

void ExpectSameBits(const std::vector<double>& fast, const std::vector<double>& base, const char* what) {
  for (size_t i = 0; i < base.size(); ++i) {
    ASSERT_TRUE(SameBits(fast[i], base[i])) << what << " at " << i << ": " << fast[i] << " vs " << base[i];
  }
}

}  // namespace

// Each processor's build really is its own code: the linker once kept the baseline loops for all.
TEST(BlockKernels, EachProcessorHasItsOwnLoops) {
  const ElementKernels& base = BaselineElementKernels();
  for (const auto& [name, table] : FastElementKernels()) {
    EXPECT_NE(table->Binary, base.Binary) << name;
    EXPECT_NE(table->PowerBy, base.PowerBy) << name;
    EXPECT_NE(table->Simple, base.Simple) << name;
  }
  if (ProcessorHasAvx2()) {
    EXPECT_NE(&Kernels(), &ScalarKernels());
  }
}

TEST(BlockKernels, ElementLoopsGiveTheBaselinesBits) {
  const std::vector<double> a = Values();
  std::vector<double> b(a.rbegin(), a.rend());
  const size_t n = a.size();
  std::vector<double> fast(n), base(n);
  const ElementKernels& reference = BaselineElementKernels();
  const NodeKind kinds[] = {NodeKind::Add,    NodeKind::Subtract,      NodeKind::Multiply, NodeKind::Divide,
                            NodeKind::Power,  NodeKind::IntegerDivide, NodeKind::Modulo,   NodeKind::Less,
                            NodeKind::Equal,  NodeKind::And};
  for (const auto& [name, table] : FastElementKernels()) {
    SCOPED_TRACE(name);
    for (NodeKind kind : kinds) {
      for (double constant : {3.0, -4.0, 0.25, 0.0, 5.0}) {
        table->Binary(kind, a.data(), 0, b.data(), 0, fast.data(), n);
        reference.Binary(kind, a.data(), 0, b.data(), 0, base.data(), n);
        ExpectSameBits(fast, base, "array op array");
        table->Binary(kind, a.data(), 0, nullptr, constant, fast.data(), n);
        reference.Binary(kind, a.data(), 0, nullptr, constant, base.data(), n);
        ExpectSameBits(fast, base, "array op constant");
        table->Binary(kind, nullptr, constant, b.data(), 0, fast.data(), n);
        reference.Binary(kind, nullptr, constant, b.data(), 0, base.data(), n);
        ExpectSameBits(fast, base, "constant op array");
      }
    }
    for (double p : {2.0, 3.0, 4.0, 0.5}) {
      table->PowerBy(p, a.data(), fast.data(), n);
      reference.PowerBy(p, a.data(), base.data(), n);
      ExpectSameBits(fast, base, "power");
    }
    for (Function fn : {Function::Sqrt, Function::Abs, Function::Int, Function::Fix, Function::Identity}) {
      table->Simple(fn, a.data(), fast.data(), n);
      reference.Simple(fn, a.data(), base.data(), n);
      ExpectSameBits(fast, base, "function");
    }
    table->Scale(a.data(), -1.0, fast.data(), n);
    reference.Scale(a.data(), -1.0, base.data(), n);
    ExpectSameBits(fast, base, "scale");
  }
}

TEST(BlockKernels, VectorFunctionsAgreeWithTheCLibraryAndFailAsNaN) {
  std::vector<double> in = Values();
  for (double x = -50; x <= 50; x += 0.0137) in.push_back(x);
  std::vector<double> positive;
  for (double x = 1e-6; x <= 1e6; x *= 1.37) positive.push_back(x);
  positive.insert(positive.end(), {0.0, -1.0, kInf, kNaN, 4.9e-324});
  using Unary = void (*)(const double*, double*, std::size_t);
  for (const VectorKernels* table : FastVectorKernels()) {
    SCOPED_TRACE(table->Name);
    const std::pair<Unary, Unary> unary[] = {{table->Sin, ScalarKernels().Sin},
                                             {table->Cos, ScalarKernels().Cos},
                                             {table->Tan, ScalarKernels().Tan}};
    std::vector<double> fast(in.size()), slow(in.size());
    const auto compare = [&](const std::vector<double>& x) {
      for (size_t i = 0; i < x.size(); ++i) {
        if (std::isnan(slow[i])) ASSERT_TRUE(std::isnan(fast[i])) << x[i];
        else ASSERT_NEAR(fast[i], slow[i], 2e-15 * std::max(1.0, std::abs(slow[i]))) << x[i];
      }
    };
    for (const auto& [vector, scalar] : unary) {
      vector(in.data(), fast.data(), in.size());
      scalar(in.data(), slow.data(), in.size());
      compare(in);
    }
    for (double factor : {1.0, -0.2, std::log(2.71828182845905)}) {
      table->Exp(in.data(), factor, fast.data(), in.size());
      ScalarKernels().Exp(in.data(), factor, slow.data(), in.size());
      compare(in);
    }
    fast.resize(positive.size());
    slow.resize(positive.size());
    table->Log(positive.data(), fast.data(), positive.size());
    ScalarKernels().Log(positive.data(), slow.data(), positive.size());
    compare(positive);
  }
}

// The results never hold an infinity, a value does not depend on its neighbours in the call, and
// the loops write the values asked for and no more.
TEST(BlockKernels, VectorFunctionsFailAsNaNAndIgnoreTheirNeighbours) {
  const double in[] = {1000, -kInf, kInf, kNaN, 1e300, 0.0, -1.0, 710, 2, 3, 4, 5, 6, 7, 8, 9, 10};
  const size_t n = std::size(in);
  for (const VectorKernels* table : {&ScalarKernels(), Avx2Kernels(), Avx512Kernels()}) {
    if (!table) continue;
    SCOPED_TRACE(table->Name);
    double whole[std::size(in)];
    table->Exp(in, 1.0, whole, n);
    EXPECT_TRUE(std::isnan(whole[0]));  // overflow
    EXPECT_EQ(whole[1], 0.0);
    EXPECT_TRUE(std::isnan(whole[2]));
    table->Log(in, whole, n);
    EXPECT_TRUE(std::isnan(whole[2]) && std::isnan(whole[5]) && std::isnan(whole[6]));  // ln of inf, 0, -1
    for (auto f : {table->Sin, table->Cos, table->Tan, table->Log}) {
      f(in, whole, n);
      for (size_t i = 0; i < n; ++i) EXPECT_FALSE(std::isinf(whole[i])) << i;
      for (size_t start = 0; start < n; ++start) {
        for (size_t length = 1; start + length <= n; ++length) {
          double part[std::size(in) + 8];
          std::fill(std::begin(part), std::end(part), -123.0);
          f(in + start, part, length);
          for (size_t i = 0; i < length; ++i) ASSERT_TRUE(SameBits(part[i], whole[start + i])) << start << "+" << i;
          // Nothing is written past the end, not even by the padded tail.
          for (size_t i = length; i < std::size(part); ++i) ASSERT_EQ(part[i], -123.0) << start << "+" << i;
        }
      }
    }
  }
}
