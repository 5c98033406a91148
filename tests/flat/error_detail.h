// The last failure, as tests read it.
#ifndef KYODBC_TESTS_FLAT_ERROR_DETAIL_H
#define KYODBC_TESTS_FLAT_ERROR_DETAIL_H

#include <gtest/gtest.h>

#include <string>

#include "frame/KyODBCDiag.h"
#include "tests/support/records.h"

struct Failure {
  int code = 0;
  std::string function;
  std::string state;
  int native = 0;
  int records = 0;
  std::string message;
};

inline Failure LastFailure() {
  tagDBERRORDETAIL detail{};
  EXPECT_EQ(DB_GetLastErrorDetail(&detail, sizeof detail), 0);
  EXPECT_EQ(support::Val(detail.dwSize), sizeof detail);
  return {detail.wCode,    support::Text(detail.szFunction), support::Text(detail.szState), detail.lNative,
          detail.lRecords, support::Text(detail.szMessage)};
}

// That it was the library itself that refused.
inline void ExpectOwnRefusal(const Failure& failure, int code, const std::string& function) {
  EXPECT_EQ(failure.function, function);
  EXPECT_EQ(failure.code, code) << function;
  EXPECT_EQ(failure.state, "") << function;
  EXPECT_EQ(failure.native, 0) << function;
  EXPECT_EQ(failure.records, 0) << function;
  EXPECT_NE(failure.message, "") << function;
}

// That the database refused, and told why.
inline void ExpectRefusalByDatabase(const Failure& failure, int code, const std::string& function) {
  EXPECT_EQ(failure.function, function);
  EXPECT_EQ(failure.code, code) << function;
  EXPECT_EQ(failure.state.size(), 5u) << function;
  EXPECT_NE(failure.native, 0) << function;
  EXPECT_GE(failure.records, 1) << function;
  EXPECT_NE(failure.message, "") << function;
}

#endif
