// Where the ODBC driver for SQLite is installed.
#ifndef KYODBC_TOOLS_ODBC_DRIVER_H
#define KYODBC_TOOLS_ODBC_DRIVER_H

#include <string>

// The full path. Throws ToolError when it is not installed.
std::string FindSqliteDriver();

#endif
