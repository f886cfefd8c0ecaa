#pragma once

#include <cstddef>

namespace mathlang {

// Element-wise maths over arrays, in the fastest form this processor offers: 4-wide AVX2 where
// the processor has AVX2 and FMA (glibc's vector functions, and SLEEF's logarithm, all within a
// few units in the last place), the C library's one value at a time otherwise. Results follow
// IEEE (an infinity or a NaN may come out); callers map those to the program's NaN.
struct VectorKernels {
  void (*Sin)(const double* in, double* out, std::size_t n);
  void (*Cos)(const double* in, double* out, std::size_t n);
  void (*Exp)(const double* in, double* out, std::size_t n);  // e to the power x
  void (*Log)(const double* in, double* out, std::size_t n);  // natural logarithm
  void (*Tan)(const double* in, double* out, std::size_t n);  // sin/cos
  const char* Name;
};

// Chosen once, on first use, from what the processor supports.
const VectorKernels& Kernels();

// Whether this build has AVX2 kernels and the processor can run them.
bool ProcessorHasAvx2();

// The two implementations, for tests that compare them.
const VectorKernels& ScalarKernels();
// nullptr where the build or the processor has no AVX2.
const VectorKernels* Avx2Kernels();

}  // namespace mathlang
