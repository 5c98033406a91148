#include "tests/support/records.h"

#include <cstdio>
#include <ctime>

namespace support {
namespace {

std::time_t Seconds(TIMESTAMP_STRUCT time) {
  std::tm fields{};
  fields.tm_year = time.year - 1900;
  fields.tm_mon = time.month - 1;
  fields.tm_mday = time.day;
  fields.tm_hour = time.hour;
  fields.tm_min = time.minute;
  fields.tm_sec = time.second;
  fields.tm_isdst = -1;
  return std::mktime(&fields);
}

}  // namespace

std::string TimeText(TIMESTAMP_STRUCT time) {
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", time.year, time.month, time.day,
                time.hour, time.minute, time.second);
  std::string result = text;
  if (time.fraction != 0) {
    std::snprintf(text, sizeof text, ".%09u", static_cast<unsigned>(time.fraction));
    result += text;
  }
  return result;
}

TIMESTAMP_STRUCT Now() {
  const std::time_t seconds = std::time(nullptr);
  std::tm fields{};
  localtime_r(&seconds, &fields);
  return Ts(fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min,
            fields.tm_sec);
}

double SecondsBetween(TIMESTAMP_STRUCT from, TIMESTAMP_STRUCT to) {
  return std::difftime(Seconds(to), Seconds(from));
}

}  // namespace support
