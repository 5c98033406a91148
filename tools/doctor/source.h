// A data source as the driver manager's files describe it.
#ifndef KYODBC_TOOLS_DOCTOR_SOURCE_H
#define KYODBC_TOOLS_DOCTOR_SOURCE_H

#include <string>

#include "tools/doctor/findings.h"

enum class DriverKind { kSqlite, kPostgresql, kMariadb, kOther };

struct Source {
  std::string name;
  std::string driver;       // as odbc.ini names it
  std::string driver_file;  // empty when the data source or its driver is not configured
  DriverKind kind = DriverKind::kOther;

  // Empty when it is not set. The driver of PostgreSQL takes what the data source leaves open from its own
  // section of odbcinst.ini.
  std::string Option(const char* key) const;
};

Source FindSource(const std::string& name);

// The data source without a driver, options that break things, and the driver manager's trace.
void CheckSource(const Source& source, Findings& findings);

#endif
