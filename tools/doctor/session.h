// The practice as a whole: its version, ping, default rows; and what lies between it and the program.
#ifndef KYODBC_TOOLS_DOCTOR_SESSION_H
#define KYODBC_TOOLS_DOCTOR_SESSION_H

#include <KyODBC.h>

#include <string>
#include <vector>

#include "tools/doctor/findings.h"
#include "tools/doctor/source.h"

// What is to be known about the driver, the schema and the connection, good or bad.
using Facts = std::vector<std::string>;
Facts FactsOf(CDatabase& database, const Source& source);

void CheckAbilities(CDatabase& database, Findings& findings);
void CheckPractice(CDatabase& database, const std::string& owner, Findings& findings);
void CheckEncoding(CDatabase& database, const Source& source, Findings& findings);
void CheckEncryption(CDatabase& database, const Source& source, Findings& findings);

#endif
