#include "Adler32.h"

#include <algorithm>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace render {

namespace {

constexpr std::uint64_t kBase = 65521;  // the largest prime below 2^16
// The most bytes whose sums, from sums below kBase, stay in 32 bits (zlib's NMAX); a multiple of 16.
constexpr std::size_t kBlock = 5552;

struct Sums {
  std::uint64_t S1;
  std::uint64_t S2;
};

void Bytewise(Sums& sums, const unsigned char* data, std::size_t length) {
  while (length > 0) {
    const std::size_t n = std::min(length, kBlock);
    for (std::size_t i = 0; i < n; ++i) {
      sums.S1 += data[i];
      sums.S2 += sums.S1;
    }
    sums.S1 %= kBase;
    sums.S2 %= kBase;
    data += n;
    length -= n;
  }
}

#if defined(__SSE2__)
std::uint64_t LaneSum(__m128i lanes) {
  alignas(16) std::uint32_t values[4];
  _mm_store_si128(reinterpret_cast<__m128i*>(values), lanes);
  return std::uint64_t{values[0]} + values[1] + values[2] + values[3];
}

// Whole blocks of 16 bytes: over a block of n bytes, S1 grows by the bytes' sum and S2 by n times
// the old S1 and each byte times the number of bytes from it to the block's end, counted in 16-byte
// steps (16 times the running S1 before each step) and within each step (weights 16 to 1).
// Returns how many bytes it took.
std::size_t Sixteenwise(Sums& sums, const unsigned char* data, std::size_t length) {
  const __m128i zero = _mm_setzero_si128();
  const __m128i lowWeights = _mm_setr_epi16(16, 15, 14, 13, 12, 11, 10, 9);
  const __m128i highWeights = _mm_setr_epi16(8, 7, 6, 5, 4, 3, 2, 1);
  std::size_t taken = 0;
  while (length - taken >= 16) {
    const std::size_t n = std::min(length - taken, kBlock) & ~std::size_t{15};
    __m128i byteSums = zero, runningSums = zero, weighted = zero;
    for (std::size_t i = taken; i < taken + n; i += 16) {
      const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(data + i));
      runningSums = _mm_add_epi32(runningSums, byteSums);
      byteSums = _mm_add_epi32(byteSums, _mm_sad_epu8(bytes, zero));
      weighted = _mm_add_epi32(weighted, _mm_madd_epi16(_mm_unpacklo_epi8(bytes, zero), lowWeights));
      weighted = _mm_add_epi32(weighted, _mm_madd_epi16(_mm_unpackhi_epi8(bytes, zero), highWeights));
    }
    sums.S2 = (sums.S2 + n * sums.S1 + 16 * LaneSum(runningSums) + LaneSum(weighted)) % kBase;
    sums.S1 = (sums.S1 + LaneSum(byteSums)) % kBase;
    taken += n;
  }
  return taken;
}
#endif

}  // namespace

std::uint32_t Adler32(std::uint32_t adler, const unsigned char* data, std::size_t length) {
  Sums sums{adler & 0xffffu, adler >> 16};
#if defined(__SSE2__)
  const std::size_t taken = Sixteenwise(sums, data, length);
  data += taken;
  length -= taken;
#endif
  Bytewise(sums, data, length);
  return static_cast<std::uint32_t>(sums.S2 << 16 | sums.S1);
}

}  // namespace render
