// Built with -mavx2 -mfma and only called where the processor has both (see VectorMath.cpp).
#include "VectorMath.h"

#include <immintrin.h>
#include <sleef.h>

namespace mathlang {

namespace {

// The program's failure for whatever is not finite: r - r is 0 only for finite r.
__m256d Clean(__m256d r) {
  const __m256d finite = _mm256_cmp_pd(_mm256_sub_pd(r, r), _mm256_setzero_pd(), _CMP_EQ_OQ);
  return _mm256_blendv_pd(_mm256_set1_pd(__builtin_nan("")), r, finite);
}

// Calls F on four values at a time; the last one to three values go through the same function,
// padded, so that every value is computed alike.
template <typename F>
void Each4(const double* in, double* out, std::size_t n, F f) {
  std::size_t i = 0;
  for (; i + 4 <= n; i += 4) _mm256_storeu_pd(out + i, Clean(f(_mm256_loadu_pd(in + i))));
  if (i < n) {
    alignas(32) double tail[4] = {0, 0, 0, 0};
    for (std::size_t j = 0; i + j < n; ++j) tail[j] = in[i + j];
    _mm256_store_pd(tail, Clean(f(_mm256_load_pd(tail))));
    for (std::size_t j = 0; i + j < n; ++j) out[i + j] = tail[j];
  }
}

// glibc's vector functions (libmvec); SLEEF's logarithm, which is the faster of the two there.
extern "C" __m256d _ZGVdN4v_sin(__m256d);
extern "C" __m256d _ZGVdN4v_cos(__m256d);
extern "C" __m256d _ZGVdN4v_tan(__m256d);
extern "C" __m256d _ZGVdN4v_exp(__m256d);

void Sin(const double* in, double* out, std::size_t n) { Each4(in, out, n, _ZGVdN4v_sin); }
void Cos(const double* in, double* out, std::size_t n) { Each4(in, out, n, _ZGVdN4v_cos); }
void Tan(const double* in, double* out, std::size_t n) { Each4(in, out, n, _ZGVdN4v_tan); }
void Log(const double* in, double* out, std::size_t n) { Each4(in, out, n, Sleef_logd4_u35avx2); }

void Exp(const double* in, double factor, double* out, std::size_t n) {
  const __m256d f = _mm256_set1_pd(factor);
  Each4(in, out, n, [f](__m256d x) { return _ZGVdN4v_exp(_mm256_mul_pd(x, f)); });
}

const VectorKernels kAvx2{Sin, Cos, Exp, Log, Tan, "avx2"};

}  // namespace

const VectorKernels& Avx2KernelTable() { return kAvx2; }

}  // namespace mathlang
