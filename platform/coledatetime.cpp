#include "platform/coledatetime.h"

namespace {

bool IsLeapYear(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

int DaysInMonth(int year, int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

bool IsTimeOfDay(int hour, int minute, int second) {
  return hour >= 0 && hour <= 23 && minute >= 0 && minute <= 59 && second >= 0 && second <= 59;
}

}  // namespace

bool IsCalendarDay(int year, int month, int day) {
  if (year < 1 || year > 9999 || month < 1 || month > 12) return false;
  return day >= 1 && day <= DaysInMonth(year, month);
}

COleDateTime::COleDateTime()
    : m_status(valid), m_year(1899), m_month(12), m_day(30), m_hour(0), m_minute(0), m_second(0) {}

COleDateTime::COleDateTime(int year, int month, int day, int hour, int minute, int second) : COleDateTime() {
  SetDateTime(year, month, day, hour, minute, second);
}

int COleDateTime::SetDateTime(int year, int month, int day, int hour, int minute, int second) {
  if (year < 100 || !IsCalendarDay(year, month, day) || !IsTimeOfDay(hour, minute, second)) {
    m_status = invalid;
    return 1;
  }
  m_status = valid;
  m_year = year;
  m_month = month;
  m_day = day;
  m_hour = hour;
  m_minute = minute;
  m_second = second;
  return 0;
}

int COleDateTime::SetDate(int year, int month, int day) { return SetDateTime(year, month, day, 0, 0, 0); }

int COleDateTime::GetYear() const { return m_status == valid ? m_year : -1; }
int COleDateTime::GetMonth() const { return m_status == valid ? m_month : -1; }
int COleDateTime::GetDay() const { return m_status == valid ? m_day : -1; }
int COleDateTime::GetHour() const { return m_status == valid ? m_hour : -1; }
int COleDateTime::GetMinute() const { return m_status == valid ? m_minute : -1; }
int COleDateTime::GetSecond() const { return m_status == valid ? m_second : -1; }

// Months count as 31 days: only the order matters, not the distance.
int64_t COleDateTime::Seconds() const {
  const int64_t days = (int64_t{m_year} * 12 + m_month) * 31 + m_day;
  return ((days * 24 + m_hour) * 60 + m_minute) * 60 + m_second;
}

bool COleDateTime::operator==(const COleDateTime& other) const {
  return m_status == other.m_status && (m_status != valid || Seconds() == other.Seconds());
}

bool COleDateTime::operator!=(const COleDateTime& other) const { return !(*this == other); }

bool COleDateTime::operator<(const COleDateTime& other) const {
  return m_status == valid && other.m_status == valid && Seconds() < other.Seconds();
}

bool COleDateTime::operator>(const COleDateTime& other) const { return other < *this; }

bool COleDateTime::operator<=(const COleDateTime& other) const {
  return m_status == valid && other.m_status == valid && Seconds() <= other.Seconds();
}

bool COleDateTime::operator>=(const COleDateTime& other) const { return other <= *this; }
