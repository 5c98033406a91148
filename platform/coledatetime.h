// A date and time of the years 100 to 9999 to the second, or an invalid or null one.
#ifndef KYODBC_PLATFORM_COLEDATETIME_H
#define KYODBC_PLATFORM_COLEDATETIME_H

#include "types.h"

class KYODBC_API COleDateTime {
 public:
  enum DateTimeStatus { valid = 0, invalid = 1, null = 2 };

  COleDateTime();  // 30 December 1899, 00:00:00, valid
  // As SetDateTime; an invalid one keeps the value of the default.
  COleDateTime(int year, int month, int day, int hour, int minute, int second);

  // Returns 0 and becomes valid, or returns 1 and becomes invalid with the value unchanged. A day that
  // the month does not have, day 0 included, is invalid.
  int SetDateTime(int year, int month, int day, int hour, int minute, int second);
  int SetDate(int year, int month, int day);  // the same at 00:00:00

  DateTimeStatus GetStatus() const { return m_status; }
  void SetStatus(DateTimeStatus status) { m_status = status; }

  // -1 unless the status is valid.
  int GetYear() const;
  int GetMonth() const;
  int GetDay() const;
  int GetHour() const;
  int GetMinute() const;
  int GetSecond() const;

  // Chronological, also before 30 December 1899. With an operand that is not valid the four orderings are
  // false; == is true when both have the same status and, if valid, the same value.
  bool operator==(const COleDateTime& other) const;
  bool operator!=(const COleDateTime& other) const;
  bool operator<(const COleDateTime& other) const;
  bool operator>(const COleDateTime& other) const;
  bool operator<=(const COleDateTime& other) const;
  bool operator>=(const COleDateTime& other) const;

 private:
  int64_t Seconds() const;  // a number that grows with time, for comparing

  DateTimeStatus m_status;
  int m_year, m_month, m_day, m_hour, m_minute, m_second;
};

// True for a day that the Gregorian calendar, taken back to year 1, has in `year` (1 to 9999).
bool IsCalendarDay(int year, int month, int day);

#endif
