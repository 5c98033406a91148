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

class RowFields;
struct RowBuffer;

// One statement, made for one text.
struct KeptStatement {
  explicit KeptStatement(odbc::Connection& connection) : statement(connection) {}

  CString Sql() const { return CString(text.substr(0, sql_length)); }

  odbc::Statement statement;
  bool is_static = false;      // with a cursor that can be positioned
  bool prepared = false;       // and has run
  bool once = false;           // not for the next caller
  std::string text;            // the statement, the kind of its cursor, the types of its values
  std::size_t sql_length = 0;  // of the statement alone
  std::vector<odbc::Parameter> values;
  // What the driver knows of the values; they are bound again when one of these has changed.
  struct Bound {
    const void* value = nullptr;
    SQLULEN size = 0;
    std::size_t length = 0;
    SWORD digits = 0;
    bool operator==(const Bound&) const = default;
  };
  std::vector<Bound> bound;
  std::shared_ptr<RowBuffer> row;  // what its columns stay bound to; null: they are bound for one use only
};

// What is known of the columns that a select list gives.
struct ColumnShape {
  SWORD columns = 0;
  std::vector<CODBCFieldInfo> fields;
};

// To find out whether a fault has to do with kept statements and the ways of holding rows, all sets can be
// made to do without: KYODBC_PLAIN_STATEMENTS.
bool WorksPlainly();

class KeptStatements {
 public:
  enum class Cursor { kNone, kStatic };

  // `forgets_indexes` is what dialect.h tells of the database.
  KeptStatements(odbc::Connection& connection, DWORD query_timeout, bool forgets_indexes);
  ~KeptStatements();

  // A statement for `query`: one that was prepared for it before, or a fresh one.
  std::unique_ptr<KeptStatement> Take(const MarkedSQL& query, Cursor cursor);
  // The same for a query that an index may answer by itself: a fresh one where indexes are forgotten.
  std::unique_ptr<KeptStatement> TakeForIndex(const MarkedSQL& query);
  // Ends the statement's result and keeps it for the next caller; the one unused longest makes room. Takes no
  // memory: sets give back when they end, also for want of it.
  void GiveBack(std::unique_ptr<KeptStatement> kept);
  // Runs *kept, which Take gave for a query like this one, with its values. A statement prepared earlier that
  // the database does not take any more, since a table was changed or the session cleared, is prepared anew,
  // once: it has done nothing.
  RETCODE Run(const MarkedSQL& query, std::unique_ptr<KeptStatement>* kept);
  // The same once more with the values that are in *kept now.
  RETCODE RunAgain(std::unique_ptr<KeptStatement>* kept);

  // Statements made from now on end after this time; those kept are dropped.
  void SetQueryTimeout(DWORD seconds);

  // The columns of a select list with its tables, as described before; null when nobody has yet.
  const ColumnShape* FindShape(const CString& select) const;
  void KeepShape(const CString& select, ColumnShape shape) {
    m_shapes[std::string(select.View())] = std::move(shape);
  }
  // Another number whenever what is known of columns may have become wrong, and for each connection.
  unsigned State() const { return m_state; }

  // The fields of a set over these tables that has ended, with all that is known of them; null for none.
  std::unique_ptr<RowFields> TakeFields(const CString& tables);
  // For the next set over the same tables. Takes no memory.
  void GiveBackFields(std::unique_ptr<RowFields> fields);

 private:
  std::unique_ptr<KeptStatement> MakeFresh(bool is_static);
  std::unique_ptr<KeptStatement> MakeFor(const MarkedSQL& query, bool is_static);
  RETCODE RunOnce(KeptStatement* kept, bool direct);
  void NoteStale();

  odbc::Connection& m_connection;
  DWORD m_query_timeout;
  const bool m_forgets_indexes;
  std::vector<std::unique_ptr<KeptStatement>> m_idle;  // used last at the end; never grows in memory
  std::unordered_set<std::string> m_known;             // changes that have run
  std::map<std::string, ColumnShape, std::less<>> m_shapes;
  unsigned m_state;
  std::vector<std::unique_ptr<RowFields>> m_fields;  // as m_idle
};

#endif
