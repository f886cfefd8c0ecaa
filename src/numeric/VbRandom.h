#pragma once

#include <cstdint>

namespace numeric {

// The classic 24-bit linear congruential generator behind the script language's Rnd: single
// precision values from 0 up to, not including, 1, the same sequence on every start.
class VbRandom {
public:
  // Rnd(argument): a negative argument reseeds from its bits and then steps, 0 repeats the last
  // value, anything else steps.
  float Next(float argument = 1.0f);

private:
  std::uint32_t m_seed = 0x50000;
};

}  // namespace numeric
