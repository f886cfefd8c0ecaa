#include "VectorMath.h"

#include <cmath>

namespace mathlang {

namespace {

template <double (*F)(double)>
void Each(const double* in, double* out, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) out[i] = F(in[i]);
}

double Sin(double x) { return std::sin(x); }
double Cos(double x) { return std::cos(x); }
double Exp(double x) { return std::exp(x); }
double Log(double x) { return std::log(x); }

double Tan(double x) { return std::sin(x) / std::cos(x); }

const VectorKernels kScalar{Each<Sin>, Each<Cos>, Each<Exp>, Each<Log>, Each<Tan>, "scalar"};

}  // namespace

#ifdef QUILLOGRAPH_HAVE_AVX2
const VectorKernels& Avx2KernelTable();  // VectorMathAvx2.cpp, built for AVX2 and FMA
#endif

const VectorKernels& ScalarKernels() { return kScalar; }

bool ProcessorHasAvx2() {
#ifdef QUILLOGRAPH_HAVE_AVX2
  static const bool supported = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
  return supported;
#else
  return false;
#endif
}

const VectorKernels* Avx2Kernels() {
#ifdef QUILLOGRAPH_HAVE_AVX2
  if (ProcessorHasAvx2()) return &Avx2KernelTable();
#endif
  return nullptr;
}

const VectorKernels& Kernels() {
  static const VectorKernels& chosen = Avx2Kernels() ? *Avx2Kernels() : kScalar;
  return chosen;
}

}  // namespace mathlang
