// Result codes are part of the interface: their numbers never change.
#include "platform/result_codes.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

TEST(ResultCodes, NumbersAreFixed) {
  EXPECT_EQ(kOk, 0);
  EXPECT_EQ(kBadArgument, 1);
  EXPECT_EQ(kNotOpened, 3);
  EXPECT_EQ(kCloseFailed, 4);
  EXPECT_EQ(kCountFailed, 5);
  EXPECT_EQ(kWriteFailed, 6);
  EXPECT_EQ(kDeleteFailed, 8);
  EXPECT_EQ(kOutOfMemory, 14);
  EXPECT_EQ(kPatientNotFound, 21);
  EXPECT_EQ(kConnectFailed, 30);
  EXPECT_EQ(kDbException, 31);
  EXPECT_EQ(kNotUnique, 52);
  EXPECT_EQ(kNoTransactions, 55);
  EXPECT_EQ(kSchemaTooOld, 56);
  EXPECT_EQ(kReconnected, 57);
  EXPECT_EQ(kNoRow, 64);
  EXPECT_EQ(kImageNotFound, 65);
  EXPECT_EQ(kUnitNotFound, 66);
  EXPECT_EQ(kTestNotFound, 67);
  EXPECT_EQ(kSetsNotCreated, 99);
}

TEST(ResultCodes, AreUnsignedAndHave16Bits) {
  EXPECT_EQ(sizeof(kOk), 2u);
  EXPECT_TRUE(std::is_unsigned_v<decltype(kOk)>);
}

}  // namespace
