#include "VbRandom.h"

#include <cstring>

namespace numeric {

float VbRandom::Next(float argument) {
  if (argument < 0) {
    std::uint32_t bits = 0;
    std::memcpy(&bits, &argument, sizeof bits);
    m_seed = (bits + (bits >> 24)) & 0xFFFFFF;
  }
  if (argument != 0) m_seed = (m_seed * 0x43FD43FDu + 0xC39EC3u) & 0xFFFFFF;
  return static_cast<float>(m_seed) / 16777216.0f;
}

}  // namespace numeric
