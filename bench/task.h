// What a contender is asked to do: a work, how often, on how many rows; and what it answers: the time and a
// sum of what it read.
#ifndef KYODBC_BENCH_TASK_H
#define KYODBC_BENCH_TASK_H

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tables/records.h"

namespace bench {

class Task {
 public:
  int count = 1;       // how often to do it
  int salt = 0;        // makes values that are written new
  int rows = 0;        // patients in the table, and images in theirs: keys 1 to rows
  bool check = false;  // sum what is read; such a run is not timed
  bool embedded =
      false;  // changes belong into a transaction that is rolled back: its end costs more than they do

  // Only what happens between them counts. They may come several times.
  void Start() { m_start = Clock::now(); }
  void Stop() { m_time += Clock::now() - m_start; }
  std::int64_t Nanoseconds() const {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(m_time).count();
  }
  // What is measured is not always a time.
  void Answer(std::int64_t number) { m_time = std::chrono::nanoseconds(number); }

  // The same numbers for every contender: from 1 to `highest`.
  int Random(int highest);
  std::string NewText(int number) const { return "E" + std::to_string(salt) + "-" + std::to_string(number); }
  std::string NewIdentifier(int number) const { return "B" + NewText(number); }
  // One of `highest` ordinary beginnings of surnames.
  const char* Beginning(int number) const;

  // The fields of a row in the order of its columns, then the end of the row. Rows may come in any order.
  void Take(int number);
  void Take(std::string_view text);
  void Take(const TIMESTAMP_STRUCT& time);
  void Take(const tagTPATIENT& patient);
  // A text that this task has written: throws when it is another one.
  void TakeWritten(const std::string& expected, std::string_view text);
  void EndRow();
  // Any row of a result without an order: throws when the key is none of the table.
  void TakeAnyKey(int key);
  std::uint64_t Sum() const { return m_sum; }

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr std::uint64_t kEmpty = 14695981039346656037u;

  Clock::time_point m_start;
  Clock::duration m_time{};
  std::uint64_t m_random = 261;
  std::uint64_t m_row = kEmpty;
  std::uint64_t m_sum = 0;
};

using Works = std::map<std::string, std::function<void(Task&)>>;

// Answers requests on standard input until it ends: "work count salt rows check embedded" with
// "ok nanoseconds sum", "none" for a work that is not offered, or "error text".
int Serve(const Works& works);

// Resident memory of this process in bytes.
std::int64_t ResidentMemory();

TIMESTAMP_STRUCT Today();

}  // namespace bench

#endif
