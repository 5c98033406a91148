// Browsing by the library beside a bare ODBC program that does the same, on the same rows in one run.
// Both sides read the same positions into the same record; the sums of what they read must agree before
// any time counts.
#include <cstdlib>
#include <cstring>
#include <random>
#include <stdexcept>
#include <vector>

#include <fmt/format.h>

#include "bench/measure.h"
#include "bench/raw_browse.h"
#include "frame/KyODBC.h"
#include "tests/support/practice.h"

namespace {

constexpr LONG kPatients = 20000;
constexpr int kReads = 10000;
constexpr int kRounds = 7;

void Require(WORD code, const char* what) {
  if (code != 0) throw std::runtime_error(fmt::format("{} gave {}", what, code));
}

tagTPATIENT MakePatient(LONG number) {
  tagTPATIENT patient = {};
  fmt::format_to_n(patient.szName, sizeof patient.szName - 1, "Name{:05}", (number * 7919) % kPatients);
  fmt::format_to_n(patient.szFirstname, sizeof patient.szFirstname - 1, "First{}", number % 97);
  fmt::format_to_n(patient.szSlidaID, sizeof patient.szSlidaID - 1, "S{}", number);
  patient.lDrID = 1;
  patient.dBirthday.year = static_cast<SQLSMALLINT>(1930 + number % 90);
  patient.dBirthday.month = 5;
  patient.dBirthday.day = 6;
  return patient;
}

void FillPractice() {
  Require(DB_BeginTransaction(), "begin");
  for (LONG number = 0; number < kPatients; ++number) {
    tagTPATIENT patient = MakePatient(number);
    Require(DB_AddNewTPat(&patient), "add");
  }
  Require(DB_CommitTransaction(), "commit");
}

// A number that depends on every byte of the record.
unsigned Sum(const tagTPATIENT& patient, unsigned sum) {
  unsigned char bytes[sizeof patient];
  std::memcpy(bytes, &patient, sizeof patient);
  for (const unsigned char byte : bytes) sum = sum * 31 + byte;
  return sum;
}

std::vector<LONG> RandomPositions() {
  std::mt19937 generator(261);
  std::uniform_int_distribution<LONG> position(1, kPatients);
  std::vector<LONG> positions(kReads);
  for (LONG& each : positions) each = position(generator);
  return positions;
}

unsigned ReadRaw(bench::RawPatients& raw, const std::vector<LONG>& positions) {
  unsigned sum = 0;
  for (const LONG position : positions) {
    tagTPATIENT patient = {};
    raw.Read(position, &patient);
    sum = Sum(patient, sum);
  }
  return sum;
}

unsigned ReadLibrary(const std::vector<LONG>& positions) {
  unsigned sum = 0;
  for (const LONG position : positions) {
    tagTPATIENT patient = {};
    Require(DB_GetTPatByPos(position, &patient), "read");
    sum = Sum(patient, sum);
  }
  return sum;
}

void Run() {
  support::Practice practice;
  tagDBCONNECT parameters = practice.Parameters();
  Require(DB_InitDatabase(&parameters), "connect");
  FillPractice();
  bench::RawPatients raw(practice.Dsn());
  raw.Open();
  Require(DB_OpenTPat(), "open");
  const std::vector<LONG> positions = RandomPositions();
  if (ReadRaw(raw, positions) != ReadLibrary(positions))
    throw std::runtime_error("the two sides read different rows");
  bench::PrintHeader();
  bench::Compare({fmt::format("{} random reads by position", kReads), [&] { ReadRaw(raw, positions); },
                  [&] { ReadLibrary(positions); }},
                 kRounds);
  raw.Close();
  Require(DB_CloseTPat(), "close");
  bench::Compare({fmt::format("open {} patients", kPatients),
                  [&] {
                    raw.Open();
                    raw.Close();
                  },
                  [] {
                    Require(DB_OpenTPat(), "open");
                    Require(DB_CloseTPat(), "close");
                  }},
                 kRounds);
  Require(DB_CloseDatabase(), "disconnect");
}

}  // namespace

int main() {
  try {
    Run();
    return EXIT_SUCCESS;
  } catch (const std::exception& failure) {
    fmt::print(stderr, "{}\n", failure.what());
    return EXIT_FAILURE;
  }
}
