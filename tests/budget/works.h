// What is counted: one call of the library, or a few that belong together.
#ifndef KYODBC_TESTS_BUDGET_WORKS_H
#define KYODBC_TESTS_BUDGET_WORKS_H

#include <functional>
#include <string>
#include <vector>

namespace budget {

inline constexpr int kPatients = 300;

struct Work {
  std::string name;
  int target;  // statements it is meant to need; -1: none is set
  std::function<void()> work;
  std::function<void()> before = [] {};  // not counted; done before each time
};

// On a practice that MakeRows has filled. A call that does not answer 0 throws std::runtime_error.
std::vector<Work> Works();

// Patients with one image each.
void MakeRows();

void Require(int code, const char* what);

}  // namespace budget

#endif
