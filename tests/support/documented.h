// What is documented to differ between databases, so that a test expects exactly that and nothing else.
#ifndef KYODBC_TESTS_SUPPORT_DOCUMENTED_H
#define KYODBC_TESTS_SUPPORT_DOCUMENTED_H

#include <string>

namespace support {

// The answer of the database in use to the row `difference` of the table "What differs" in docs/databases.md.
// Throws std::runtime_error when the table has no such row, or none for this database.
std::string Documented(const std::string& difference);

}  // namespace support

#endif
