// Time that passes faster: what waits for a time-out of seconds is seen to give up at once.
#ifndef KYODBC_TESTS_FAULTS_HURRIED_CLOCK_H
#define KYODBC_TESTS_FAULTS_HURRIED_CLOCK_H

namespace faults {

// While it lives, every look at the process's steady clock finds it a tenth of a second later than the last.
class HurriedClock {
 public:
  HurriedClock();
  ~HurriedClock();
  HurriedClock(const HurriedClock&) = delete;
  HurriedClock& operator=(const HurriedClock&) = delete;
};

}  // namespace faults

#endif
