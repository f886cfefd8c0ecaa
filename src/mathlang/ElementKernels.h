#pragma once

// The element-wise loops of the block evaluator. This header is compiled three times, for the
// baseline processor, for AVX2 and for AVX-512 (ElementKernels.cpp, ElementKernelsAvx2.cpp,
// ElementKernelsAvx512.cpp), and the fastest one the processor supports is chosen at run time.
// Floating-point contraction is off in all, so all give the same numbers.
#include "ExpressionTree.h"

#include <cstddef>

namespace mathlang {

struct ElementKernels {
  // out = a op b for the arithmetic of the line language; a or b may be a constant (pointer null).
  void (*Binary)(NodeKind kind, const double* a, double ca, const double* b, double cb, double* out, std::size_t n);
  // out = a^p for the exponents done by multiplication (2, 3, 4) or the square root (0.5).
  void (*PowerBy)(double p, const double* a, double* out, std::size_t n);
  // out = f(a) for the functions that need no table: Sqrt, Sqr, Abs, Int, Fix, Identity.
  void (*Simple)(Function fn, const double* a, double* out, std::size_t n);
  // out = a * factor, exactly as the product rounds (the negation of a value is exact).
  void (*Scale)(const double* a, double factor, double* out, std::size_t n);
};

const ElementKernels& BaselineElementKernels();
const ElementKernels* Avx2ElementKernels();    // nullptr where the build has no AVX2 variant
const ElementKernels* Avx512ElementKernels();  // nullptr where the build has no AVX-512 variant
const ElementKernels& ChosenElementKernels();

}  // namespace mathlang
