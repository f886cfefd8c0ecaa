// Built with -mavx2 -mfma and only called where the processor has both (see VectorMath.cpp).
#include "VectorMath.h"

#include <immintrin.h>
#include <sleef.h>

namespace mathlang {

namespace {

template <__m256d (*F)(__m256d)>
void Each4(const double* in, double* out, std::size_t n) {
  std::size_t i = 0;
  for (; i + 4 <= n; i += 4) _mm256_storeu_pd(out + i, F(_mm256_loadu_pd(in + i)));
  if (i < n) {
    // The last one to three values go through the same function, padded, so that every value
    // is computed alike.
    alignas(32) double tail[4] = {0, 0, 0, 0};
    for (std::size_t j = 0; i + j < n; ++j) tail[j] = in[i + j];
    _mm256_store_pd(tail, F(_mm256_load_pd(tail)));
    for (std::size_t j = 0; i + j < n; ++j) out[i + j] = tail[j];
  }
}

// glibc's vector functions (libmvec); SLEEF's logarithm, which is the faster of the two there.
extern "C" __m256d _ZGVdN4v_sin(__m256d);
extern "C" __m256d _ZGVdN4v_cos(__m256d);
extern "C" __m256d _ZGVdN4v_tan(__m256d);
extern "C" __m256d _ZGVdN4v_exp(__m256d);

__m256d Sin(__m256d x) { return _ZGVdN4v_sin(x); }
__m256d Cos(__m256d x) { return _ZGVdN4v_cos(x); }
__m256d Tan(__m256d x) { return _ZGVdN4v_tan(x); }
__m256d Exp(__m256d x) { return _ZGVdN4v_exp(x); }
__m256d Log(__m256d x) { return Sleef_logd4_u35avx2(x); }

const VectorKernels kAvx2{Each4<Sin>, Each4<Cos>, Each4<Exp>, Each4<Log>, Each4<Tan>, "avx2"};

}  // namespace

const VectorKernels& Avx2KernelTable() { return kAvx2; }

}  // namespace mathlang
