// The programs that come with a database server, and how they reach a practice.
#ifndef KYODBC_TOOLS_DATA_SERVER_PROGRAMS_H
#define KYODBC_TOOLS_DATA_SERVER_PROGRAMS_H

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tools/data/practice_database.h"
#include "tools/process.h"

class ServerPrograms {
 public:
  // For a data source of that database; `database` is connected to it.
  ServerPrograms(const Place& place, const PracticeDatabase& database);

  using Command = std::vector<std::string>;
  using Environment = std::map<std::string, std::string>;

  // pg_dump writes the file itself and sees what the snapshot shows; mariadb-dump writes to its output.
  // Without those schemas: a database of PostgreSQL may hold several practices.
  Command DumpPostgresql(const std::filesystem::path& file, const std::string& snapshot,
                         const std::vector<std::string>& without) const;
  Command DumpMariadb() const;
  // The rows of a dump of PostgreSQL as statements, on its output.
  static Command ReadPostgresql(const std::filesystem::path& file);
  // Runs statements from its input, stops at the first that fails, and forgets what was not committed.
  Command Client() const;

  // Holds the password, which must not stand on a command line.
  const Environment& Variables() const { return m_environment; }

 private:
  Command MariadbOptions() const;

  System m_system;
  std::string m_host;
  std::string m_port;
  std::string m_socket;
  std::string m_database;
  std::string m_user;
  std::vector<std::string> m_encryption;  // options of MariaDB's programs
  Environment m_environment;
};

#endif
