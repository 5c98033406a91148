// The practice as a whole: its version, ping, default rows; and what lies between it and the program.
#ifndef KYODBC_TOOLS_DOCTOR_SESSION_H
#define KYODBC_TOOLS_DOCTOR_SESSION_H

#include <KyODBC.h>

#include <string>

#include "tools/doctor/findings.h"
#include "tools/doctor/source.h"

void CheckPractice(CDatabase& database, const std::string& owner, Findings& findings);
void CheckEncoding(CDatabase& database, const Source& source, Findings& findings);
// Prints whether the connection is encrypted.
void CheckEncryption(CDatabase& database, const Source& source, Findings& findings);

#endif
