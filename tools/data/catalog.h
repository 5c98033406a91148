// The shapes of a practice's tables, as its database tells them.
#ifndef KYODBC_TOOLS_DATA_CATALOG_H
#define KYODBC_TOOLS_DATA_CATALOG_H

#include <string>
#include <vector>

#include "tools/data/practice_database.h"
#include "tools/data/shape.h"

// Throws ToolError when the table cannot be read or has no key.
Shape ShapeOf(PracticeDatabase& database, const std::string& table);
// The schema of PostgreSQL that the practice's tables are in, as it is written in SQL. Throws ToolError.
std::string SchemaOf(PracticeDatabase& database);
// The others of the database, which may be those of other practices.
std::vector<std::string> OtherSchemas(PracticeDatabase& database);
// Of all tables.
std::vector<Shape> ShapesOf(PracticeDatabase& database);

#endif
