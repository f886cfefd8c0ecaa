#include "render/Adler32.h"

#include <gtest/gtest.h>

#include <zlib.h>

#include <cstdint>
#include <random>
#include <vector>

using render::Adler32;

namespace {

std::uint32_t Zlibs(std::uint32_t adler, const std::vector<unsigned char>& bytes, std::size_t from, std::size_t length) {
  return static_cast<std::uint32_t>(adler32(adler, bytes.data() + from, static_cast<uInt>(length)));
}

}  // namespace

// zlib's own sum is the reference: every length around the sixteen-byte steps and the blocks after
// which the sums are reduced, from every alignment, from a fresh start and from sums under way.
TEST(Adler32, SumsAsZlibDoes) {
  std::vector<unsigned char> bytes(40000);
  std::mt19937 random(7);
  for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(random());
  const std::size_t lengths[] = {0, 1, 2, 15, 16, 17, 31, 32, 33, 100, 5551, 5552, 5553, 5567, 5568, 11104, 11105, 39990};
  const std::uint32_t starts[] = {1, 0, 0xfff0fff0u, 0x12345678u, 65520u << 16 | 65520u};
  for (std::size_t length : lengths) {
    for (std::size_t from = 0; from < 4; ++from) {
      for (std::uint32_t start : starts) {
        EXPECT_EQ(Adler32(start, bytes.data() + from, length), Zlibs(start, bytes, from, length))
            << "length " << length << " from " << from << " start " << start;
      }
    }
  }
}

// The largest bytes make the largest sums: they must not overflow between reductions.
TEST(Adler32, LargestBytesDoNotOverflow) {
  const std::vector<unsigned char> bytes(100000, 0xff);
  for (std::size_t length : {5552u, 5568u, 100000u}) {
    EXPECT_EQ(Adler32(65520u << 16 | 65520u, bytes.data(), length), Zlibs(65520u << 16 | 65520u, bytes, 0, length));
  }
}

TEST(Adler32, NothingLeavesTheSumAsItWas) {
  EXPECT_EQ(Adler32(1, nullptr, 0), 1u);
  EXPECT_EQ(Adler32(0x00080007u, nullptr, 0), 0x00080007u);
}
