// A connection of its own to a practice, beside the library's one: for commands that work with two
// practices at once, or with whole rows and their keys.
#ifndef KYODBC_TOOLS_DATA_PRACTICE_DATABASE_H
#define KYODBC_TOOLS_DATA_PRACTICE_DATABASE_H

#include <KyODBC.h>

#include <memory>
#include <string>

#include "tools/password.h"
#include "tools/place.h"

enum class System { kSqlite, kPostgresql, kMariadb };

// "SQLite", "PostgreSQL" or "MariaDB", as the practice's setting DBMS has it.
const char* NameOf(System system);

class PracticeDatabase {
 public:
  // Connects. Throws ToolError when that fails.
  explicit PracticeDatabase(const Place& place, const PasswordOf& whose = {});
  // Another connection to the same database.
  enum class Another { kConnection };
  PracticeDatabase(const PracticeDatabase& other, Another another);
  ~PracticeDatabase();
  PracticeDatabase(const PracticeDatabase&) = delete;
  PracticeDatabase& operator=(const PracticeDatabase&) = delete;

  System Kind() const { return m_system; }
  CDatabase& Connection() { return *m_database; }
  // The table's name with what stands before it.
  std::string Name(const std::string& table) const { return m_owner + table; }
  const std::string& Owner() const { return m_owner; }
  // Without the point behind it: a schema, on MariaDB a database. Empty: the connection's own.
  std::string OwnerName() const { return m_owner.substr(0, m_owner.find_last_not_of('.') + 1); }
  // As given or asked for; empty when the data source has them itself.
  const std::string& User() const { return m_user; }
  const std::string& Password() const { return m_password; }
  // What tells this database from others.
  const std::string& Identity() const { return m_identity; }

  // Runs a statement. Throws ToolError that names what was being done and how the database refused, without
  // its words, which may hold values of rows.
  void Execute(const std::string& sql, const std::string& doing);
  // The first column of the first row; empty when there is no row or it is NULL.
  std::string Answer(const std::string& sql, const std::string& doing);
  LONG Number(const std::string& sql, const std::string& doing);

  // From here on this connection sees the rows as they are now, whatever others change.
  void BeginSnapshot();
  void EndSnapshot();

 private:
  void Open();

  std::unique_ptr<CDatabase> m_database;
  System m_system = System::kSqlite;
  std::string m_owner;
  std::string m_user;
  std::string m_password;
  std::string m_connect;
  std::string m_what;
  std::string m_identity;
  bool m_snapshot = false;
};

// Changes that become visible together: rolled back unless committed.
class Changes {
 public:
  explicit Changes(PracticeDatabase& database);
  ~Changes();
  Changes(const Changes&) = delete;
  Changes& operator=(const Changes&) = delete;

  void Commit();

 private:
  CDatabase& m_database;
  bool m_open = true;
};

// Gives a CDBException as a ToolError.
class CDBException;
[[noreturn]] void ThrowRefused(CDBException* exception, const std::string& doing);

#endif
