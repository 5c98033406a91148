// A practice on a server that belongs to this program alone, so that its modes can be changed.
#ifndef KYODBC_TESTS_HOSTILE_OWN_PRACTICE_H
#define KYODBC_TESTS_HOSTILE_OWN_PRACTICE_H

#include <string>
#include <vector>

#include "tests/support/own_server.h"

namespace hostile {

bool OnPostgresql();
bool OnMariadb();
bool HasServer();
support::OwnServer& Server();  // only with HasServer

// KYODBC_TEST_ROUNDS and KYODBC_TEST_SEED.
int Rounds();
unsigned Seed();

// What an administrator can make the default of every session. The statements are for a session with all
// rights; the first mode is the server as it comes.
struct Mode {
  std::string name;
  std::vector<std::string> statements;
  std::vector<std::string> proofs;  // queries that answer 1 in a session begun afterwards
};
std::vector<Mode> Modes();

}  // namespace hostile

#endif
