// What becomes of exceptions at the border of the library.
#include "frame/flat_call.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "platform/cdbexception.h"
#include "recset/dr_rec.h"
#include "recset/stat_rec.h"
#include "recset/unit_rec.h"
#include "tests/support/fixtures.h"

namespace {

const int kConnected = 0;

[[noreturn]] void ThrowDatabaseException() { AfxThrowDBException(SQL_ERROR, nullptr, SQL_NULL_HSTMT); }

struct Thrown {
  const char* name;
  void (*raise)();
  WORD code;
};

// GoogleTest would print the bytes, also those between the members.
void PrintTo(const Thrown& thrown, std::ostream* out) { *out << thrown.name; }

const Thrown kThrown[] = {
    {"DatabaseException",  [] { ThrowDatabaseException(); },                   31},
    {"FrameworkException", [] { throw new CException; },                       31},
    {"OutOfMemory",        [] { throw std::bad_alloc(); },                     14},
    {"StandardException",  [] { throw std::runtime_error("something else"); }, 31},
    {"AnyOther",           [] { throw 42; },                                   31},
};

class ExceptionAtTheBorder : public testing::TestWithParam<Thrown> {};
INSTANTIATE_TEST_SUITE_P(Kinds, ExceptionAtTheBorder, testing::ValuesIn(kThrown),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_P(ExceptionAtTheBorder, BecomesACode) {
  const auto call = []() -> WORD {
    GetParam().raise();
    return 0;
  };
  EXPECT_EQ(flat::Code(&kConnected, call), GetParam().code);
}

TEST_P(ExceptionAtTheBorder, BecomesPositionZero) {
  const auto call = []() -> LONG {
    GetParam().raise();
    return 5;
  };
  EXPECT_EQ(flat::Position(&kConnected, call), 0);
}

TEST(FlatCalls, WithoutAConnectionTheCallIsNotMade) {
  bool called = false;
  EXPECT_EQ(flat::Code(nullptr, [&]() -> WORD { return called = true, WORD{0}; }), 3);
  EXPECT_EQ(flat::CodeWith(nullptr, nullptr, [&]() -> WORD { return called = true, WORD{0}; }), 3);
  EXPECT_EQ(flat::Position(nullptr, [&]() -> LONG { return called = true, 5; }), 0);
  EXPECT_FALSE(called);
}

TEST(FlatCalls, WithoutAnArgumentTheCallIsNotMade) {
  bool called = false;
  EXPECT_EQ(flat::CodeWith(&kConnected, nullptr, [&]() -> WORD { return called = true, WORD{0}; }), 1);
  EXPECT_FALSE(called);
}

TEST(FlatCalls, ANumberIsHandedOutOnSuccessOnly) {
  LONG number = 77;
  EXPECT_EQ(flat::Number(&kConnected, &number, [](LONG* out) -> WORD { return *out = 5, WORD{6}; }), 6);
  EXPECT_EQ(number, 77);
  EXPECT_EQ(flat::Number(&kConnected, &number, [](LONG* out) -> WORD { return *out = 5, WORD{0}; }), 0);
  EXPECT_EQ(number, 5);
}

// A set that does not do as it is told.
class StubbornSet : public CStatRec {
 public:
  StubbornSet() : CStatRec(nullptr, nullptr) {}
  BOOL Open(UINT type, const char* sql, DWORD options) override {
    return obeys ? CStatRec::Open(type, sql, options) : 0;
  }
  void Close() override {
    if (throws) throw new CException;
    if (obeys) CStatRec::Close();
  }
  bool obeys = true;
  bool throws = false;
};

class StubbornSets : public support::ConnectedTest {};

TEST_F(StubbornSets, ASetThatDoesNotOpenGives3) {
  StubbornSet set;
  set.obeys = false;
  EXPECT_EQ(flat::Open(&set), 3);
}

TEST_F(StubbornSets, ASetThatStaysOpenGives4) {
  StubbornSet set;
  ASSERT_EQ(flat::Open(&set), 0);
  set.obeys = false;
  EXPECT_EQ(flat::Close(&set), 4);
  set.obeys = true;
  EXPECT_EQ(flat::Close(&set), 0);
}

TEST_F(StubbornSets, ASetThatCannotBeClosedGives4AndTheRestStaysAsItWas) {
  CDBConnection connection;
  connection.m_pDr = new CDrRec(nullptr, nullptr);
  auto* set = new StubbornSet;
  connection.m_pStat = set;
  connection.m_pUnit = new CUnitRec(nullptr, nullptr);
  ASSERT_EQ(flat::Open(set), 0);
  set->throws = true;
  EXPECT_EQ(connection.CloseAll(), 4);
  EXPECT_EQ(connection.m_pDr, nullptr);
  EXPECT_EQ(connection.m_pStat, set);
  EXPECT_NE(connection.m_pUnit, nullptr);
  set->throws = false;
  EXPECT_EQ(connection.CloseAll(), 0);
  EXPECT_EQ(connection.m_pUnit, nullptr);
}

}  // namespace
