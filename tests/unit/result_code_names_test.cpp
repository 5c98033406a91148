// Result codes have names for logs and the debugger.
#include "frame/result_code_names.h"

#include <gtest/gtest.h>

#include "platform/result_codes.h"

namespace {

TEST(ResultCodeNames, EveryCodeHasItsConstantsName) {
  EXPECT_STREQ(ResultCodeName(KYODBC_OK), "KYODBC_OK");
  EXPECT_STREQ(ResultCodeName(KYODBC_BAD_ARGUMENT), "KYODBC_BAD_ARGUMENT");
  EXPECT_STREQ(ResultCodeName(KYODBC_NOT_OPENED), "KYODBC_NOT_OPENED");
  EXPECT_STREQ(ResultCodeName(KYODBC_DB_EXCEPTION), "KYODBC_DB_EXCEPTION");
  EXPECT_STREQ(ResultCodeName(KYODBC_TEST_NOT_FOUND), "KYODBC_TEST_NOT_FOUND");
  for (const WORD code : {0, 1, 3, 4, 5, 6, 8, 14, 21, 30, 31, 52, 55, 56, 57, 64, 65, 66, 67, 99}) {
    EXPECT_EQ(std::string(ResultCodeName(code)).rfind("KYODBC_", 0), 0u) << code;
  }
}

TEST(ResultCodeNames, OtherNumbersAreUnknown) {
  EXPECT_STREQ(ResultCodeName(2), "unknown code");
  EXPECT_STREQ(ResultCodeName(65535), "unknown code");
}

}  // namespace
