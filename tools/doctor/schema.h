// The practice's tables: that they are there, and that they can be written to, by both of their names.
#ifndef KYODBC_TOOLS_DOCTOR_SCHEMA_H
#define KYODBC_TOOLS_DOCTOR_SCHEMA_H

#include <KyODBC.h>

#include <string>

#include "tools/doctor/findings.h"

// `owner` stands before every name, with its point; empty for none. What is written is taken back.
void CheckSchema(CDatabase& database, const std::string& owner, Findings& findings);

#endif
