// Rows as JSON objects.
#ifndef KYODBC_TOOLS_RECORD_JSON_H
#define KYODBC_TOOLS_RECORD_JSON_H

#include "tools/json.h"
#include "tools/tables.h"

// Keys and counts are numbers, "no date" is null, everything else a text as FieldAsText gives it.
Json FieldAsJson(const Column& column, const void* record);

// All fields by their titles.
Json RecordAsJson(const TableColumns& columns, const void* record);

#endif
