// Built with -mavx512f and only called where the processor has AVX-512 (see VectorMath.cpp):
// eight values a call instead of four halves the cost of the transcendental functions.
#include "VectorMath.h"

#include <immintrin.h>
#include <sleef.h>

namespace mathlang {

namespace {

// The program's failure for whatever is not finite: r - r is 0 only for finite r.
__m512d Clean(__m512d r) {
  const __mmask8 finite = _mm512_cmp_pd_mask(_mm512_sub_pd(r, r), _mm512_setzero_pd(), _CMP_EQ_OQ);
  return _mm512_mask_blend_pd(finite, _mm512_set1_pd(__builtin_nan("")), r);
}

// Calls F on eight values at a time; the last one to seven go through the same function, padded
// with zeros, so that every value is computed alike. The failures are mapped in a second loop:
// glibc's functions set a mask register in a way that waits for its last value, and the mask of
// a mapping in the same loop would chain every call to the one before, where they could overlap
// (that made the exponential twice as slow).
template <typename F>
void Each8(const double* in, double* out, std::size_t n, F f) {
  std::size_t i = 0;
  for (; i + 8 <= n; i += 8) _mm512_storeu_pd(out + i, f(_mm512_loadu_pd(in + i)));
  const __mmask8 rest = static_cast<__mmask8>((1u << (n - i)) - 1);
  if (i < n) _mm512_mask_storeu_pd(out + i, rest, f(_mm512_maskz_loadu_pd(rest, in + i)));
  for (i = 0; i + 8 <= n; i += 8) _mm512_storeu_pd(out + i, Clean(_mm512_loadu_pd(out + i)));
  if (i < n) _mm512_mask_storeu_pd(out + i, rest, Clean(_mm512_maskz_loadu_pd(rest, out + i)));
}

// glibc's vector functions (libmvec); SLEEF's logarithm, which is the faster of the two there.
extern "C" __m512d _ZGVeN8v_sin(__m512d);
extern "C" __m512d _ZGVeN8v_cos(__m512d);
extern "C" __m512d _ZGVeN8v_tan(__m512d);
extern "C" __m512d _ZGVeN8v_exp(__m512d);

void Sin(const double* in, double* out, std::size_t n) { Each8(in, out, n, _ZGVeN8v_sin); }
void Cos(const double* in, double* out, std::size_t n) { Each8(in, out, n, _ZGVeN8v_cos); }
void Tan(const double* in, double* out, std::size_t n) { Each8(in, out, n, _ZGVeN8v_tan); }
void Log(const double* in, double* out, std::size_t n) { Each8(in, out, n, Sleef_logd8_u35avx512f); }

void Exp(const double* in, double factor, double* out, std::size_t n) {
  const __m512d f = _mm512_set1_pd(factor);
  Each8(in, out, n, [f](__m512d x) { return _ZGVeN8v_exp(_mm512_mul_pd(x, f)); });
}

const VectorKernels kAvx512{Sin, Cos, Exp, Log, Tan, "avx512"};

}  // namespace

const VectorKernels& Avx512KernelTable() { return kAvx512; }

}  // namespace mathlang
