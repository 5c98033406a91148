#include "bench/raw_browse.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace bench {
namespace {

constexpr const char* kQuery =
    "SELECT tPatCulIntDrIDFk,tPatCulIntPatIDPk,tPatDBirthday,tPatFSelect,tPatSExtPatID,tPatSFirstname,"
    "tPatSName,tPatSSex,tPatSSlidaID,tPatSSocID,tPatSSrvID,tPatDEntry,tPatSIDDisp,tPatTsLastDisp FROM "
    "TPatient";

void Require(SQLRETURN code, const char* what) {
  if (!SQL_SUCCEEDED(code)) throw std::runtime_error(std::string("bare ODBC failed: ") + what);
}

void CopyText(char* field, std::size_t size, const char* text) {
  const std::size_t length = std::min(std::strlen(text), size - 1);
  std::memcpy(field, text, length);
  field[length] = '\0';
}

}  // namespace

RawPatients::RawPatients(const std::string& dsn) {
  Require(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &m_environment), "environment");
  Require(SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0),
          "version");
  Require(SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection), "connection");
  std::string text = "DSN=" + dsn;
  Require(SQLDriverConnect(m_connection, nullptr, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS, nullptr,
                           0, nullptr, SQL_DRIVER_NOPROMPT),
          "connect");
  Require(SQLAllocHandle(SQL_HANDLE_STMT, m_connection, &m_statement), "statement");
  SQLSetStmtAttr(m_statement, SQL_ATTR_CURSOR_TYPE, reinterpret_cast<SQLPOINTER>(SQL_CURSOR_STATIC), 0);
  Bind(1, SQL_C_SLONG, &m_doctor, 0);
  Bind(2, SQL_C_SLONG, &m_key, 0);
  Bind(3, SQL_C_TYPE_TIMESTAMP, &m_birthday, 0);
  Bind(4, SQL_C_SLONG, &m_selected, 0);
  constexpr SQLUSMALLINT kTextColumns[kTexts] = {5, 6, 7, 8, 9, 10, 11, 13};
  for (std::size_t index = 0; index < kTexts; ++index) {
    Bind(kTextColumns[index], SQL_C_CHAR, m_texts[index].data(), kTextSize);
  }
  Bind(12, SQL_C_TYPE_TIMESTAMP, &m_entry, 0);
  Bind(14, SQL_C_TYPE_TIMESTAMP, &m_last_display, 0);
}

RawPatients::~RawPatients() {
  SQLFreeHandle(SQL_HANDLE_STMT, m_statement);
  SQLDisconnect(m_connection);
  SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
  SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
}

void RawPatients::Bind(SQLUSMALLINT column, SQLSMALLINT type, void* buffer, SQLLEN size) {
  Require(SQLBindCol(m_statement, column, type, buffer, size, &m_indicators[column]), "bind");
}

void RawPatients::Open() {
  std::string query = kQuery;
  Require(SQLExecDirect(m_statement, reinterpret_cast<SQLCHAR*>(query.data()), SQL_NTS), "execute");
  Fetch(SQL_FETCH_FIRST, 1);
}

void RawPatients::Close() { SQLFreeStmt(m_statement, SQL_CLOSE); }

void RawPatients::Fetch(SQLUSMALLINT type, SQLLEN row) {
  SQLULEN fetched = 0;
  SQLUSMALLINT status = 0;
  Require(SQLExtendedFetch(m_statement, type, row, &fetched, &status), "fetch");
}

void RawPatients::Read(SQLLEN position, tagTPATIENT* record) {
  Fetch(SQL_FETCH_ABSOLUTE, position);
  record->lPatID = m_key;
  record->lDrID = m_doctor;
  CopyText(record->szExtPatID, sizeof record->szExtPatID, m_texts[0].data());
  CopyText(record->szFirstname, sizeof record->szFirstname, m_texts[1].data());
  CopyText(record->szName, sizeof record->szName, m_texts[2].data());
  CopyText(record->szSex, sizeof record->szSex, m_texts[3].data());
  CopyText(record->szSlidaID, sizeof record->szSlidaID, m_texts[4].data());
  CopyText(record->szSocID, sizeof record->szSocID, m_texts[5].data());
  CopyText(record->szSrvID, sizeof record->szSrvID, m_texts[6].data());
  CopyText(record->szIDDisp, sizeof record->szIDDisp, m_texts[7].data());
  record->dBirthday = m_birthday;
  record->lSelect = m_selected;
  record->dEntry = m_entry;
  record->tsLastDisp = m_last_display;
}

}  // namespace bench
