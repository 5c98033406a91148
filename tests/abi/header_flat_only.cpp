// The chief header for C++ programs that want the flat calls alone.
#define KYODBC_FLAT_ONLY
#include <KyODBC.h>
#include <gtest/gtest.h>

namespace {

// Would clash with the library's class if the header brought it along.
struct CTStatRaw {
  int own = 1;
};

TEST(ChiefHeader, FlatOnlyLeavesTheNamesOfTheClassesToTheCaller) {
  EXPECT_EQ(CTStatRaw().own, 1);
  EXPECT_EQ(DB_IsDatabaseOpen(), 0);
}

}  // namespace
