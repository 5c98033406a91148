// A database file of SQLite through SQLite itself: its online backup, and whole rows past ODBC.
#ifndef KYODBC_TOOLS_DATA_SQLITE_FILE_H
#define KYODBC_TOOLS_DATA_SQLITE_FILE_H

#include <sqlite3.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "tools/data/dump_rows.h"

class SqliteFile {
 public:
  // Must exist. Throws ToolError when it cannot be opened.
  explicit SqliteFile(const std::filesystem::path& file);

  // From here on it shows its rows as they are now, until it is closed.
  void BeginSnapshot();
  // Makes the target equal to this file, in one transaction of the target: others who have it open see its
  // old rows or the new ones, and an end in the middle leaves the old ones. Calls `progress` with the pages
  // done and all pages; what that throws ends the copying.
  void CopyTo(SqliteFile& target, const std::function<void(int done, int all)>& progress);
  // For a file that is thrown away when it is not finished: nothing is written beside it while it is filled.
  void UseNoFilesBeside() { Execute("PRAGMA journal_mode = MEMORY"); }
  // In one file, without the side files that a journal of the other kind needs.
  void UseSingleFile() { Execute("PRAGMA journal_mode = DELETE"); }

  // Throws ToolError when SQLite finds the file damaged.
  void RequireSound();
  // Calls `row_read` after each row.
  Checksums Sums(const std::vector<Shape>& shapes, const std::function<void()>& row_read);

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
  };
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

  void Execute(const char* sql);
  Statement Prepare(const std::string& sql);
  bool Step(const Statement& statement);
  [[noreturn]] void Fail() const;

  std::string m_name;
  std::unique_ptr<sqlite3, Close> m_database;
};

#endif
