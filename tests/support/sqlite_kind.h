// Practices in SQLite files: one file each, no server.
#ifndef KYODBC_TESTS_SUPPORT_SQLITE_KIND_H
#define KYODBC_TESTS_SUPPORT_SQLITE_KIND_H

#include "tests/support/database_kind.h"

namespace support {

const DatabaseKind& SqliteKindInstance();

}  // namespace support

#endif
