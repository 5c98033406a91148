// What is left of a password in memory once the driver has it.
#include <cstring>

#include "tests/scripted/play_set.h"
#include "tests/support/own_memory.h"

namespace {

using scripted::Catch;
using scripted::PlayTest;
using scripted::TheScript;

class PasswordInMemory : public PlayTest {
 protected:
  PasswordInMemory() {
    TheScript().ini = {
        {"odbc.ini/my/Driver",   "/lib/libmaodbc.so"     },
        {"odbc.ini/pg/Driver",   "/lib/psqlodbcw.so"     },
        {"odbc.ini/lite/Driver", "/lib/libsqlite3odbc.so"},
    };
  }

  // What the played driver and the caller keep is overwritten; the rest is the library's.
  static std::size_t CopiesAfterConnecting(CDatabase* database, const char* begin, const char* end) {
    char connect[200] = {};
    std::strcpy(connect, begin);
    support::WriteHidden(connect + std::strlen(connect));
    std::strcat(connect, end);
    EXPECT_FALSE(support::FindHidden().empty());
    Catch([&] { database->OpenEx(connect); });
    explicit_bzero(connect, sizeof connect);
    std::string& given = TheScript().connection_string;
    explicit_bzero(given.data(), given.size());
    return support::FindHidden().size();
  }

  // Every road that a connection string takes: of each driver, in braces or not, with or without the prefix.
  static void ExpectNoCopy() {
    for (const char* begin :
         {"DSN=my;UID=u;PWD=", "ODBC;DSN=pg;PWD=", "DSN=lite;UID=u;PWD={}}", "DSN=any;PWD={a;b}}"}) {
      CDatabase database;
      const char* end = std::strchr(begin, '{') != nullptr ? "}" : "";
      EXPECT_EQ(CopiesAfterConnecting(&database, begin, end), 0u) << begin;
    }
  }
};

TEST_F(PasswordInMemory, IsNotThereAfterAConnectionWasMade) { ExpectNoCopy(); }

TEST_F(PasswordInMemory, IsNotThereAfterAConnectionWasRefused) {
  TheScript().Answer("SQLDriverConnect",
                     {
                         SQL_ERROR, SQL_ERROR, SQL_ERROR, SQL_ERROR
  },
                     {{"28000", 1045}});
  ExpectNoCopy();
}

}  // namespace
