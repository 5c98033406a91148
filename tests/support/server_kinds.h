// Practices on the throw-away servers that tests/support/servers has started; KYODBC_TEST_SERVERS names the
// folder it was given.
#ifndef KYODBC_TESTS_SUPPORT_SERVER_KINDS_H
#define KYODBC_TESTS_SUPPORT_SERVER_KINDS_H

#include "tests/support/database_kind.h"

namespace support {

const DatabaseKind& PostgresqlKindInstance();
const DatabaseKind& MariadbKindInstance();

}  // namespace support

#endif
