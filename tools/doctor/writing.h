// Whether a table takes rows and keeps texts as they are.
#ifndef KYODBC_TOOLS_DOCTOR_WRITING_H
#define KYODBC_TOOLS_DOCTOR_WRITING_H

#include <KyODBC.h>

#include <string>

#include "tools/doctor/findings.h"

// Adds a row under `name`, changes and deletes it in a transaction that is taken back. At most the counter of
// new keys moves on. `text_column` takes texts of 255 characters.
void CheckWriting(CDatabase& database, const std::string& name, const std::string& text_column,
                  Findings& findings);

#endif
