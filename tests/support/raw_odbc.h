// A thin ODBC client of the tests' own, so that what the library did is read past the library.
#ifndef KYODBC_TESTS_SUPPORT_RAW_ODBC_H
#define KYODBC_TESTS_SUPPORT_RAW_ODBC_H

#include <sql.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/practice.h"

namespace support {

// What one column holds, as text; nothing for NULL.
using Value = std::optional<std::string>;
using Row = std::vector<Value>;

// All values, one behind the other.
std::string TextOf(const std::vector<Row>& rows);

// One connection. Every statement commits at once. Failures throw std::runtime_error with the SQLSTATE and
// the message.
class RawOdbc {
 public:
  explicit RawOdbc(const Practice& practice);
  explicit RawOdbc(const std::string& connection_string);
  ~RawOdbc();
  RawOdbc(const RawOdbc&) = delete;
  RawOdbc& operator=(const RawOdbc&) = delete;

  void Exec(const std::string& sql);
  std::vector<Row> Query(const std::string& sql);
  // Like Query, for one parameter marker "?" or more, bound as texts.
  std::vector<Row> Query(const std::string& sql, const std::vector<std::string>& parameters);

  Value Scalar(const std::string& sql);      // first column of the first row; throws when there is none
  int Number(const std::string& sql);        // the same as a number; NULL throws
  std::string Text(const std::string& sql);  // the same as a text; NULL throws
  int Count(const std::string& table, const std::string& condition = "1=1");

 private:
  SQLHENV m_environment = SQL_NULL_HENV;
  SQLHDBC m_connection = SQL_NULL_HDBC;
};

}  // namespace support

#endif
