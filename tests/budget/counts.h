// Counts of driver calls, and the files they are written down in.
#ifndef KYODBC_TESTS_BUDGET_COUNTS_H
#define KYODBC_TESTS_BUDGET_COUNTS_H

#include <array>
#include <filesystem>
#include <map>
#include <string>

#include "tests/faults/fault_driver.h"

namespace budget {

inline constexpr std::array<const char*, 5> kKinds = {"statements", "prepared", "described", "catalogue",
                                                      "fetches"};
using Counts = std::array<int, kKinds.size()>;

// The calls since the last ResetCounts, in the order of kKinds.
Counts Read(const faults::FaultDriver& driver);

// By work. The file of the database in use lies beside this one.
using Table = std::map<std::string, Counts>;
std::filesystem::path FileOfThisDatabase();
Table Load(const std::filesystem::path& file);  // throws std::runtime_error for a line it does not understand

}  // namespace budget

#endif
