// Rows read ahead: many at once by one statement, then handed out one by one as if each had been fetched.
#ifndef KYODBC_PLATFORM_ROW_PAGE_H
#define KYODBC_PLATFORM_ROW_PAGE_H

#include <memory>
#include <utility>
#include <vector>

#include "platform/odbc.h"

// A column as a record set binds it.
struct BoundColumn {
  SQLUSMALLINT column;
  SWORD c_type;
  void* buffer;
  SQLLEN size;
  SQLLEN* indicator;
};

class RowPage {
 public:
  // `key`: which of the columns holds the row key.
  RowPage(odbc::Connection& connection, DWORD query_timeout, std::vector<BoundColumn> columns,
          std::size_t key);

  odbc::Statement& Statement() { return m_statement; }
  // Runs the query and reads its rows, in place of those before.
  RETCODE Read(const CString& sql, std::size_t expected);
  // Puts the row with that key into the bound buffers. False when the page does not have it.
  bool Give(LONG key) const;

 private:
  // What a fetch brings of one column for several rows.
  struct Block {
    std::vector<char> values;
    std::vector<SQLLEN> indicators;
  };

  RETCODE Bind();
  void TakeRow(std::size_t row);
  std::size_t Length(std::size_t column, SQLLEN indicator) const;

  odbc::Statement m_statement;
  std::vector<BoundColumn> m_columns;
  std::size_t m_key;
  std::vector<Block> m_blocks;
  std::vector<char> m_rows;  // of each row and column the indicator and as many bytes as there are
  std::vector<std::pair<LONG, std::size_t>> m_places;  // by key, where each row begins
};

#endif
