// Random compact records, and what they say.
#ifndef KYODBC_TESTS_FLAT_COMPACT_ROUND_TRIP_H
#define KYODBC_TESTS_FLAT_COMPACT_ROUND_TRIP_H

#include <random>
#include <string>
#include <vector>

#include "frame/KyODBC.h"
#include "tests/flat/texts.h"
#include "tests/support/records.h"

namespace compact {

inline constexpr unsigned kSeed = 20010506;
inline constexpr int kRecords = 100;

// Single bytes, and characters of two bytes and more.
inline const std::string kBytes = "abZ07 '\\%}]?";
inline const std::vector<std::string> kCharacters = {"\xC3\xBB",        "\xC2\xBB",     "\xC3\xBC",
                                                     "\xE2\x82\xAC",    "\xEF\xBB\xBB", "\xF0\x9D\x84\x9E",
                                                     "\xF0\xBB\xBB\xBB"};

// Draws the same records in every run.
class Draw {
 public:
  int Number(int lowest, int highest) { return std::uniform_int_distribution(lowest, highest)(m_engine); }
  bool OneIn(int n) { return Number(1, n) == 1; }
  // Up to `most` bytes; characters of every length, those with the byte 0xBB among them.
  std::string Words(int most) {
    const int size = Number(0, most);
    std::string text;
    while (static_cast<int>(text.size()) < size)
      text += OneIn(2) ? kBytes.substr(Below(kBytes.size()), 1) : Of(kCharacters);
    return texts::Cut(text, static_cast<std::size_t>(most));
  }
  // A text that no other has, of up to `most` bytes.
  std::string Unique(int most) {
    const std::string number = std::to_string(++m_unique);
    return number + "." + Words(most - static_cast<int>(number.size()) - 1);
  }
  // None in some cases.
  TIMESTAMP_STRUCT Day(bool given) {
    if (!given && OneIn(5)) return {};
    return support::Ts(Number(1801, 2100), Number(1, 12), Number(1, 28));
  }
  template <class T>
  const T& Of(const std::vector<T>& list) {
    return list[Below(list.size())];
  }

 private:
  std::size_t Below(std::size_t count) {
    return static_cast<std::size_t>(Number(0, static_cast<int>(count) - 1));
  }

  std::mt19937 m_engine{kSeed};
  int m_unique = 0;
};

inline void SetDay(tagPATIENTCOMPACT* record, const TIMESTAMP_STRUCT& day) {
  record->wYear = static_cast<WORD>(day.year);
  record->byMonth = static_cast<BYTE>(day.month);
  record->byDay = static_cast<BYTE>(day.day);
}

// Everything that a record says.
inline std::string Said(const tagPATIENTCOMPACT& record) {
  std::string said;
  for (const std::string& text : {support::Text(record.szName), support::Text(record.szFirstname),
                                  support::Text(record.szDrName), support::Text(record.szIdent)})
    said += text + "|";
  for (const int number :
       {record.wYear + 0, record.byMonth + 0, record.byDay + 0, record.wDispYear + 0, record.byDispMonth + 0,
        record.byDispDay + 0, record.bySex + 0, record.byReserved + 0})
    said += std::to_string(number) + "|";
  return said + std::to_string(support::Val(record.dwID));
}

// What a function must not take into account.
inline void FillRest(Draw* draw, tagPATIENTCOMPACT* record) {
  record->wDispYear = static_cast<WORD>(draw->Number(0, 65535));
  record->byDispMonth = static_cast<BYTE>(draw->Number(0, 255));
  record->byDispDay = static_cast<BYTE>(draw->Number(0, 255));
  record->byReserved = static_cast<BYTE>(draw->Number(0, 255));
}

}  // namespace compact

#endif
