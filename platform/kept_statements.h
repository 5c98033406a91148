// Prepared statements of one connection, kept for the next call that wants the same text: on the servers
// preparing costs more than running, on the embedded database most of a short query's time. A change
// is prepared when it comes a second time: many come only once.
#ifndef KYODBC_PLATFORM_KEPT_STATEMENTS_H
#define KYODBC_PLATFORM_KEPT_STATEMENTS_H

#include <map>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "platform/literals.h"
#include "platform/odbc.h"

struct RowBuffer;

// One statement, prepared for one text.
struct KeptStatement {
  explicit KeptStatement(odbc::Connection& connection) : statement(connection) {}

  odbc::Statement statement;
  std::string text;  // with the types of its values; empty: nothing is prepared
  std::vector<odbc::Parameter> values;
  std::shared_ptr<RowBuffer> row;  // what its columns stay bound to; null: they are bound for one use only
};

// What is known of the columns that a select list gives.
struct ColumnShape {
  SWORD columns = 0;
  std::vector<CODBCFieldInfo> fields;
};

class KeptStatements {
 public:
  enum class Cursor { kNone, kStatic };

  KeptStatements(odbc::Connection& connection, DWORD query_timeout);

  // A statement for `query`: one that was prepared for it before, or a fresh one.
  std::unique_ptr<KeptStatement> Take(const MarkedSQL& query, Cursor cursor);
  // Ends the statement's result and keeps it for the next caller; the one unused longest makes room. Takes no
  // memory: sets give back when they end, also for want of it.
  void GiveBack(std::unique_ptr<KeptStatement> kept);
  // Runs `query` on *kept, which Take gave for it. A statement prepared earlier that the database does not
  // take any more, since a table was changed or the session cleared, is prepared anew, once: it has done
  // nothing.
  RETCODE Run(const MarkedSQL& query, Cursor cursor, std::unique_ptr<KeptStatement>* kept);

  // Statements made from now on end after this time; those kept are dropped.
  void SetQueryTimeout(DWORD seconds);

  // The columns of a select list with its tables, as described before; null when nobody has yet.
  const ColumnShape* FindShape(const CString& select) const;
  void KeepShape(const CString& select, ColumnShape shape) {
    m_shapes[std::string(select.View())] = std::move(shape);
  }
  void ForgetShape(const CString& select) { m_shapes.erase(std::string(select.View())); }

 private:
  std::unique_ptr<KeptStatement> MakeFresh(Cursor cursor);
  RETCODE RunOnce(const MarkedSQL& query, bool direct, KeptStatement* kept);

  odbc::Connection& m_connection;
  DWORD m_query_timeout;
  std::vector<std::unique_ptr<KeptStatement>> m_idle;  // used last in front; never grows in memory
  std::unordered_set<std::string> m_known;             // changes that have run
  std::map<std::string, ColumnShape, std::less<>> m_shapes;
};

#endif
