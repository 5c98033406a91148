// The names that the people of a sample practice are given.
#ifndef KYODBC_TOOLS_SAMPLE_NAMES_H
#define KYODBC_TOOLS_SAMPLE_NAMES_H

#include <span>

namespace sample {

// All fit the record fields for names, 32 bytes.
std::span<const char* const> Surnames();

// Those in front, which contain what a database text may stumble over: quotes, backslashes, the wildcards of
// filters, other scripts, and a name that fills its field. The first patients are given these.
inline constexpr int kOddSurnames = 12;

struct Firstname {
  const char* name;
  const char* sex;  // "m", "f" or "-"
};
std::span<const Firstname> Firstnames();

}  // namespace sample

#endif
