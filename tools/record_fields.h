// Writing fields of plain records from texts.
#ifndef KYODBC_TOOLS_RECORD_FIELDS_H
#define KYODBC_TOOLS_RECORD_FIELDS_H

#include <string>

#include "tools/tables.h"

// The column with that title. Throws ToolError with the exit code for usage, naming those there are.
const Column& FindColumn(const Table& table, const std::string& title);

// Puts the text into the field, the reverse of FieldAsText. Throws ToolError with the exit code for usage
// when it does not fit or is no such value.
void SetField(const Column& column, const std::string& text, void* record);

#endif
