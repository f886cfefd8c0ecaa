#pragma once

#include <cstddef>

namespace plot2d {

// Element-wise maths over arrays, in the fastest form this processor offers: 4-wide AVX2 with
// SLEEF's 1-ULP functions where the processor has AVX2 and FMA, the C library's otherwise. Results
// follow IEEE (an infinity or a NaN may come out); callers map those to the program's NaN.
struct VectorKernels {
  void (*Sin)(const double* in, double* out, std::size_t n);
  void (*Cos)(const double* in, double* out, std::size_t n);
  void (*Exp)(const double* in, double* out, std::size_t n);  // e to the power x
  void (*Log)(const double* in, double* out, std::size_t n);  // natural logarithm
  const char* Name;
};

// Chosen once, on first use, from what the processor supports.
const VectorKernels& Kernels();

// The two implementations, for tests that compare them.
const VectorKernels& ScalarKernels();
// nullptr where the build or the processor has no AVX2.
const VectorKernels* Avx2Kernels();

}  // namespace plot2d
