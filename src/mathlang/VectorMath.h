#pragma once

#include <cstddef>

namespace mathlang {

// Element-wise maths over arrays, in the fastest form this processor offers: 8-wide AVX-512 or
// 4-wide AVX2 where the processor has them (glibc's vector functions, and SLEEF's logarithm, all
// within a few units in the last place), the C library's one value at a time otherwise. Whatever is not
// finite comes out as the program's failure, NaN, in the same pass, so that the block is walked
// once per function.
struct VectorKernels {
  void (*Sin)(const double* in, double* out, std::size_t n);
  void (*Cos)(const double* in, double* out, std::size_t n);
  // e to the power (x * factor): the program's exp is a power of the 15-digit e, whose logarithm
  // the caller passes; the product is rounded to double before the exponential.
  void (*Exp)(const double* in, double factor, double* out, std::size_t n);
  void (*Log)(const double* in, double* out, std::size_t n);  // natural logarithm
  void (*Tan)(const double* in, double* out, std::size_t n);  // sin/cos
  const char* Name;
};

// Chosen once, on first use, from what the processor supports.
const VectorKernels& Kernels();

// Whether this build has AVX2 (AVX-512) kernels and the processor can run them.
bool ProcessorHasAvx2();
bool ProcessorHasAvx512();

// The implementations, for tests that compare them.
const VectorKernels& ScalarKernels();
// nullptr where the build or the processor has no AVX2 (AVX-512).
const VectorKernels* Avx2Kernels();
const VectorKernels* Avx512Kernels();

}  // namespace mathlang
