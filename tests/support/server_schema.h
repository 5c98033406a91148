// The schema files of the server databases, statement by statement.
#ifndef KYODBC_TESTS_SUPPORT_SERVER_SCHEMA_H
#define KYODBC_TESTS_SUPPORT_SERVER_SCHEMA_H

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/database_kind.h"

namespace support {

// The statements of a schema file, whose paragraphs are one statement each. For kFullNames the two names of
// every table change places, so that the full name is the table.
std::vector<std::string> SchemaStatements(const std::filesystem::path& file, Tables tables);

}  // namespace support

#endif
