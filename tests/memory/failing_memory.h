// Memory of this program that runs out when it is told to.
#ifndef KYODBC_TESTS_MEMORY_FAILING_MEMORY_H
#define KYODBC_TESTS_MEMORY_FAILING_MEMORY_H

namespace memory {

enum class Failing { kOne, kAllBehind };

// From now on the allocation `number` (from 1) fails, or all from it on, and those before are counted.
void FailAt(int number, Failing failing);
// Nothing fails any more. Returns the number of allocations since FailAt.
int StopFailing();
// Whether one has failed since FailAt.
bool HasFailed();

// While it lives, allocations are not counted and do not fail: work of the test itself.
class Spared {
 public:
  Spared();
  ~Spared();
  Spared(const Spared&) = delete;
  Spared& operator=(const Spared&) = delete;

 private:
  bool m_was_armed;
};

// What is allocated and not yet freed.
int Live();

}  // namespace memory

#endif
