// The schema of the embedded database, built into the program.
#ifndef KYODBC_TOOLS_SQLITE_SCHEMA_H
#define KYODBC_TOOLS_SQLITE_SCHEMA_H

#include <filesystem>

// The statements of schema/sqlite.sql.
extern const char* const kSqliteSchema;

// Makes the empty `file` a practice database, in one step or not at all. Throws ToolError.
void ApplySqliteSchema(const std::filesystem::path& file);

#endif
