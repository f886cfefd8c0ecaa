#pragma once

// The loops themselves; included by the two kernel files, each built for its processor. They
// live in an unnamed namespace: with external linkage the linker would keep one copy of each
// inline function for both files, and the AVX2 table would run the baseline loops.
#include "ElementKernels.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace mathlang::kernels {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The program's failure for whatever is not finite; written so that it vectorises.
inline double Clean(double r) { return r - r == 0 ? r : kNaN; }

template <typename Op>
inline void Apply(const double* a, double ca, const double* b, double cb, double* out, std::size_t n, Op op) {
  if (a && b) {
    for (std::size_t i = 0; i < n; ++i) out[i] = op(a[i], b[i]);
  } else if (a) {
    for (std::size_t i = 0; i < n; ++i) out[i] = op(a[i], cb);
  } else if (b) {
    for (std::size_t i = 0; i < n; ++i) out[i] = op(ca, b[i]);
  } else {
    std::fill(out, out + n, op(ca, cb));
  }
}

inline void Binary(NodeKind kind, const double* a, double ca, const double* b, double cb, double* out, std::size_t n) {
  int exponent = 0;
  switch (kind) {
    case NodeKind::Add: return Apply(a, ca, b, cb, out, n, [](double x, double y) { return Clean(x + y); });
    case NodeKind::Subtract: return Apply(a, ca, b, cb, out, n, [](double x, double y) { return Clean(x - y); });
    case NodeKind::Multiply: return Apply(a, ca, b, cb, out, n, [](double x, double y) { return Clean(x * y); });
    case NodeKind::Divide:
      // Dividing by a power of two is exactly multiplying by its reciprocal, and much cheaper.
      if (a && !b && cb != 0 && std::isfinite(cb) && std::abs(std::frexp(cb, &exponent)) == 0.5) {
        const double reciprocal = 1 / cb;
        return Apply(a, ca, b, cb, out, n, [reciprocal](double x, double) { return Clean(x * reciprocal); });
      }
      return Apply(a, ca, b, cb, out, n, [](double x, double y) { return Clean(x / y); });
    default: return Apply(a, ca, b, cb, out, n, [kind](double x, double y) { return ApplyBinary(kind, x, y); });
  }
}

inline void PowerBy(double p, const double* a, double* out, std::size_t n) {
  if (p == 2) {
    for (std::size_t i = 0; i < n; ++i) out[i] = Clean(a[i] * a[i]);
  } else if (p == 3) {
    for (std::size_t i = 0; i < n; ++i) out[i] = Clean(a[i] * a[i] * a[i]);
  } else if (p == 4) {
    for (std::size_t i = 0; i < n; ++i) out[i] = Clean((a[i] * a[i]) * (a[i] * a[i]));
  } else {
    for (std::size_t i = 0; i < n; ++i) out[i] = std::sqrt(a[i]);
  }
}

inline void Simple(Function fn, const double* a, double* out, std::size_t n) {
  switch (fn) {
    case Function::Sqrt:
    case Function::Sqr:
      for (std::size_t i = 0; i < n; ++i) out[i] = std::sqrt(a[i]);
      break;
    case Function::Abs:
      for (std::size_t i = 0; i < n; ++i) out[i] = std::abs(a[i]);
      break;
    case Function::Int:
      for (std::size_t i = 0; i < n; ++i) out[i] = std::floor(a[i]);
      break;
    case Function::Fix:
      for (std::size_t i = 0; i < n; ++i) out[i] = std::trunc(a[i]);
      break;
    default: std::copy_n(a, n, out); break;
  }
}

inline void Scale(const double* a, double factor, double* out, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) out[i] = a[i] * factor;
}

constexpr ElementKernels kTable{Binary, PowerBy, Simple, Scale};

}  // namespace
}  // namespace mathlang::kernels
