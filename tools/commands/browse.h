// The rows that a command is about: a table, filtered and sorted by the library.
#ifndef KYODBC_TOOLS_COMMANDS_BROWSE_H
#define KYODBC_TOOLS_COMMANDS_BROWSE_H

#include <string>
#include <vector>

#include "tools/command_line.h"
#include "tools/tables.h"

struct BrowseOptions {
  std::string table;
  std::vector<std::string> filters;
  std::string sort = "key";
};

// What was asked for, in the library's words.
struct Request {
  Filter filter;
  LONG sort = 0;
};

// How filters are written, for the end of a command's help.
extern const char* const kFilterHelp;

// The argument TABLE, which is about what the command `does`, and the options --filter and --sort.
void AddBrowse(CLI::App& command, BrowseOptions& options, const std::string& does);

// Throws ToolError with the exit code for usage.
Request ReadRequest(const Table& table, const BrowseOptions& options);

// A table's browse set, open as long as it lives. Needs a connection.
class Rows {
 public:
  Rows(const Table& table, const Request& request);
  ~Rows();
  Rows(const Rows&) = delete;
  Rows& operator=(const Rows&) = delete;

  LONG Count() const { return m_count; }
  // The record at a position from 1; valid until the next call.
  const void* At(LONG position);

 private:
  const Table& m_table;
  LONG m_count = 0;
  std::vector<char> m_record;
};

#endif
