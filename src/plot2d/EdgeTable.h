#pragma once

#include <QtGlobal>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace plot2d {

// Which crossing each crossed edge of an implicit curve has, by the edge's key (never negative):
// open addressing in one flat array, several times quicker than a general hash for the two
// lookups every leaf makes. It grows as it fills, so the expected count is only a first size.
class EdgeTable {
public:
  explicit EdgeTable(size_t expected) {
    size_t capacity = 64;
    while (capacity < expected) capacity *= 2;
    Reset(capacity);
  }
  // The crossing of the edge, or -1 with the edge noted as having the next one, count.
  int FindOrAdd(qint64 key, int count) {
    for (size_t at = Home(key);; at = (at + 1) & m_mask) {
      Slot& slot = m_slots[at];
      if (slot.Key == key) return slot.Value;
      if (slot.Key < 0) {
        slot = {key, count};
        if (++m_used * 2 > m_slots.size()) Grow();
        return -1;
      }
    }
  }

private:
  struct Slot {
    qint64 Key;
    int Value;
  };
  // Fibonacci hashing: the top bits of the key times the golden ratio.
  size_t Home(qint64 key) const { return static_cast<size_t>((static_cast<std::uint64_t>(key) * 0x9E3779B97F4A7C15ull) >> m_shift); }
  void Reset(size_t capacity) {
    m_slots.assign(capacity, {-1, 0});
    m_mask = capacity - 1;
    m_shift = 64;
    for (size_t c = capacity; c > 1; c /= 2) --m_shift;
  }
  void Grow() {
    std::vector<Slot> old;
    old.swap(m_slots);
    Reset(old.size() * 2);
    for (const Slot& slot : old) {
      if (slot.Key < 0) continue;
      size_t at = Home(slot.Key);
      while (m_slots[at].Key >= 0) at = (at + 1) & m_mask;
      m_slots[at] = slot;
    }
  }
  std::vector<Slot> m_slots;
  size_t m_mask = 0;
  int m_shift = 64;
  size_t m_used = 0;
};

}  // namespace plot2d
