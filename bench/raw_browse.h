// The patients browsed by a bare ODBC program: bound columns, a static cursor, no library in between. It is
// what the library's own times are held against.
#ifndef KYODBC_BENCH_RAW_BROWSE_H
#define KYODBC_BENCH_RAW_BROWSE_H

#include <sql.h>
#include <sqlext.h>

#include <array>
#include <string>

#include "tables/records.h"

namespace bench {

class RawPatients {
 public:
  explicit RawPatients(const std::string& dsn);
  ~RawPatients();
  RawPatients(const RawPatients&) = delete;
  RawPatients& operator=(const RawPatients&) = delete;

  // Runs the query and stands on the first row.
  void Open();
  void Close();
  // Fetches the row at a position counted from 1 and copies it into the record.
  void Read(SQLLEN position, tagTPATIENT* record);

 private:
  static constexpr std::size_t kTexts = 8;
  static constexpr std::size_t kTextSize = 1021;

  void Bind(SQLUSMALLINT column, SQLSMALLINT type, void* buffer, SQLLEN size);
  void Fetch(SQLUSMALLINT type, SQLLEN row);

  SQLHENV m_environment = SQL_NULL_HENV;
  SQLHDBC m_connection = SQL_NULL_HDBC;
  SQLHSTMT m_statement = SQL_NULL_HSTMT;
  SQLINTEGER m_doctor = 0, m_key = 0, m_selected = 0;
  TIMESTAMP_STRUCT m_birthday = {}, m_entry = {}, m_last_display = {};
  std::array<std::array<char, kTextSize>, kTexts> m_texts = {};
  std::array<SQLLEN, 15> m_indicators = {};
};

}  // namespace bench

#endif
