#include "bench/task.h"

#include <cstring>
#include <ctime>
#include <fstream>
#include <iostream>
#include <sstream>

namespace bench {
namespace {

constexpr std::uint64_t kPrime = 1099511628211u;

template <std::size_t N>
std::string_view Text(const char (&field)[N]) {
  return {field, strnlen(field, N)};
}

std::string Perform(const Works& works, const std::string& request) {
  std::istringstream words(request);
  std::string name;
  Task task;
  words >> name >> task.count >> task.salt >> task.rows >> task.check >> task.embedded;
  const auto work = works.find(name);
  if (work == works.end()) return "none";
  try {
    work->second(task);
  } catch (const std::exception& failure) {
    std::string text = failure.what();
    for (char& c : text) {
      if (c == '\n') c = ' ';
    }
    return "error " + text;
  }
  return "ok " + std::to_string(task.Nanoseconds()) + " " + std::to_string(task.Sum());
}

}  // namespace

int Task::Random(int highest) {
  m_random = m_random * 6364136223846793005u + 1442695040888963407u;
  return static_cast<int>((m_random >> 33) % static_cast<std::uint64_t>(highest)) + 1;
}

const char* Task::Beginning(int number) const {
  constexpr const char* kBeginnings[] = {"M%", "S%", "B%", "K%", "H%", "F%"};
  return kBeginnings[(number + salt) % 6];
}

void Task::Take(int number) {
  for (int shift = 0; shift < 32; shift += 8) {
    m_row = (m_row ^ ((static_cast<unsigned>(number) >> shift) & 0xFF)) * kPrime;
  }
}

void Task::Take(std::string_view text) {
  for (const char c : text) m_row = (m_row ^ static_cast<unsigned char>(c)) * kPrime;
  m_row = (m_row ^ 0x100) * kPrime;
}

void Task::Take(const TIMESTAMP_STRUCT& time) {
  for (const int part :
       {int{time.year}, int{time.month}, int{time.day}, int{time.hour}, int{time.minute}, int{time.second}}) {
    Take(part);
  }
}

void Task::Take(const tagTPATIENT& patient) {
  Take(LONG{patient.lPatID});
  Take(LONG{patient.lDrID});
  Take(Text(patient.szExtPatID));
  Take(Text(patient.szSrvID));
  Take(Text(patient.szSlidaID));
  Take(Text(patient.szSocID));
  Take(Text(patient.szName));
  Take(Text(patient.szFirstname));
  Take(TIMESTAMP_STRUCT{patient.dBirthday});
  Take(Text(patient.szSex));
  Take(LONG{patient.lSelect});
  Take(TIMESTAMP_STRUCT{patient.dEntry});
  Take(Text(patient.szIDDisp));
  Take(TIMESTAMP_STRUCT{patient.tsLastDisp});
  EndRow();
}

void Task::TakeWritten(const std::string& expected, std::string_view text) {
  if (text != expected) throw std::runtime_error("found " + std::string(text) + " instead of " + expected);
  Take(1);
  EndRow();
}

void Task::TakeAnyKey(int key) {
  if (key < 1 || key > rows) throw std::runtime_error("no such key: " + std::to_string(key));
  Take(1);
  EndRow();
}

void Task::EndRow() {
  m_sum += m_row;
  m_row = kEmpty;
}

int Serve(const Works& works) {
  std::string request;
  while (std::getline(std::cin, request)) std::cout << Perform(works, request) << std::endl;
  return 0;
}

std::int64_t ResidentMemory() {
  std::ifstream file("/proc/self/statm");
  std::int64_t pages = 0;
  file >> pages >> pages;
  return pages * 4096;
}

TIMESTAMP_STRUCT Today() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  TIMESTAMP_STRUCT today{};
  today.year = static_cast<SQLSMALLINT>(parts.tm_year + 1900);
  today.month = static_cast<SQLUSMALLINT>(parts.tm_mon + 1);
  today.day = static_cast<SQLUSMALLINT>(parts.tm_mday);
  return today;
}

}  // namespace bench
