// Repeatable chance. Every row of every table has a generator of its own, so that any row can be made alone.
#ifndef KYODBC_TOOLS_SAMPLE_DRAW_H
#define KYODBC_TOOLS_SAMPLE_DRAW_H

#include <cstdint>

namespace sample {

// What the rows are drawn for. The numbers go into the seed: never renumber.
enum class Kind : std::uint64_t {
  kPatient = 1,
  kDoctor = 2,
  kSurname = 3,
  kUnit = 4,
  kImage = 5,
  kMakro = 6,
  kDiagnosis = 7,
  kGroup = 8,
  kTest = 9,
  kSetting = 10,
};

// The splitmix64 generator: small, and the same on every machine, unlike the library's distributions.
class Draw {
 public:
  Draw(std::uint64_t seed, Kind kind, int row) : m_state(seed) {
    m_state = Next() + static_cast<std::uint64_t>(kind);
    m_state = Next() + static_cast<std::uint64_t>(row);
  }

  std::uint64_t Next() {
    m_state += 0x9E3779B97F4A7C15u;
    std::uint64_t mixed = m_state;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
    return mixed ^ (mixed >> 31);
  }

  // 0 to limit-1; limit must be positive.
  int Below(int limit) { return static_cast<int>(Next() % static_cast<std::uint64_t>(limit)); }
  bool OneIn(int times) { return Below(times) == 0; }

  template <class T, int N>
  const T& Of(const T (&choice)[N]) {
    return choice[Below(N)];
  }

 private:
  std::uint64_t m_state;
};

}  // namespace sample

#endif
