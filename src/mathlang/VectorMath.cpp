#include "VectorMath.h"

#include <cmath>
#include <limits>

namespace mathlang {

namespace {

double Clean(double r) { return std::isfinite(r) ? r : std::numeric_limits<double>::quiet_NaN(); }

template <double (*F)(double)>
void Each(const double* in, double* out, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) out[i] = Clean(F(in[i]));
}

void ExpScaled(const double* in, double factor, double* out, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) out[i] = Clean(std::exp(in[i] * factor));
}

double Sin(double x) { return std::sin(x); }
double Cos(double x) { return std::cos(x); }
double Log(double x) { return std::log(x); }

double Tan(double x) { return std::sin(x) / std::cos(x); }

const VectorKernels kScalar{Each<Sin>, Each<Cos>, ExpScaled, Each<Log>, Each<Tan>, "scalar"};

}  // namespace

#ifdef QUILLOGRAPH_HAVE_AVX2
const VectorKernels& Avx2KernelTable();    // VectorMathAvx2.cpp, built for AVX2 and FMA
const VectorKernels& Avx512KernelTable();  // VectorMathAvx512.cpp, built for AVX-512
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

bool ProcessorHasAvx512() {
#ifdef QUILLOGRAPH_HAVE_AVX2
  // The check includes whether the system saves the wide registers.
  static const bool supported = ProcessorHasAvx2() && __builtin_cpu_supports("avx512f");
  return supported;
#else
  return false;
#endif
}

const VectorKernels* Avx512Kernels() {
#ifdef QUILLOGRAPH_HAVE_AVX2
  if (ProcessorHasAvx512()) return &Avx512KernelTable();
#endif
  return nullptr;
}

const VectorKernels* Avx2Kernels() {
#ifdef QUILLOGRAPH_HAVE_AVX2
  if (ProcessorHasAvx2()) return &Avx2KernelTable();
#endif
  return nullptr;
}

const VectorKernels& Kernels() {
  static const VectorKernels& chosen = Avx512Kernels() ? *Avx512Kernels() : Avx2Kernels() ? *Avx2Kernels() : kScalar;
  return chosen;
}

}  // namespace mathlang
