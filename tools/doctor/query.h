// Questions to the database through the library's own record sets.
#ifndef KYODBC_TOOLS_DOCTOR_QUERY_H
#define KYODBC_TOOLS_DOCTOR_QUERY_H

#include <KyODBC.h>

#include <functional>
#include <string>

// What the database said against the action; empty when it succeeded.
std::string Refusal(const std::function<void()>& action);

// The first column of the first row of a SELECT. Empty when there is no row, when it is NULL, or when the
// query fails.
std::string Answer(CDatabase& database, const std::string& query);

#endif
