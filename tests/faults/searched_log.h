// What is written while calls fail, searched for patients' values and the password.
#ifndef KYODBC_TESTS_FAULTS_SEARCHED_LOG_H
#define KYODBC_TESTS_FAULTS_SEARCHED_LOG_H

#include <string>

namespace faults {

// The first value or password of the scenarios that the text has; empty when it has none.
std::string SecretIn(const std::string& text);

}  // namespace faults

#endif
