// The bits of the field masks against the fields of the records, and the packing of words.
#include "frame/field_words.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace {

// Bit n selects the field at index n behind the key.
void ExpectBitsInOrder(const std::vector<int>& bits) {
  for (std::size_t i = 0; i < bits.size(); ++i) EXPECT_EQ(bits[i], 1 << i) << "field " << i;
}

TEST(FieldMasks, BitsFollowTheFieldsOfEveryRecord) {
  ExpectBitsInOrder(
      {KYODBC_MASK_CFG_DOCTOR, KYODBC_MASK_CFG_STATION, KYODBC_MASK_CFG_KEY, KYODBC_MASK_CFG_SETTING});
  ExpectBitsInOrder({KYODBC_MASK_DIAG_IMAGE, KYODBC_MASK_DIAG_DOCTOR, KYODBC_MASK_DIAG_REGION,
                     KYODBC_MASK_DIAG_TIME, KYODBC_MASK_DIAG_CODE, KYODBC_MASK_DIAG_TEXT});
  ExpectBitsInOrder({KYODBC_MASK_DR_NAME, KYODBC_MASK_DR_SERVER_ID});
  ExpectBitsInOrder({KYODBC_MASK_MAK_IMAGE, KYODBC_MASK_MAK_NAME, KYODBC_MASK_MAK_LAST_CHANGE,
                     KYODBC_MASK_MAK_FILE, KYODBC_MASK_MAK_LOCATION, KYODBC_MASK_MAK_ORDINAL});
  ExpectBitsInOrder({KYODBC_MASK_STAT_NAME});
  ExpectBitsInOrder({KYODBC_MASK_UNIT_TYPE, KYODBC_MASK_UNIT_NAME, KYODBC_MASK_UNIT_ACCEPTANCE,
                     KYODBC_MASK_UNIT_CONTROL_UNIT, KYODBC_MASK_UNIT_SENSOR, KYODBC_MASK_UNIT_GENERATOR,
                     KYODBC_MASK_UNIT_TUBE, KYODBC_MASK_UNIT_CONTROL_ELEMENT, KYODBC_MASK_UNIT_CONE,
                     KYODBC_MASK_UNIT_TEST_BODY});
}

TEST(FieldMasks, PatientBitsFollowTheRecord) {
  ExpectBitsInOrder({KYODBC_MASK_PAT_DOCTOR, KYODBC_MASK_PAT_EXTERNAL_ID, KYODBC_MASK_PAT_SERVER_ID,
                     KYODBC_MASK_PAT_SLIDA_ID, KYODBC_MASK_PAT_SOCIAL_ID, KYODBC_MASK_PAT_SURNAME,
                     KYODBC_MASK_PAT_FIRSTNAME, KYODBC_MASK_PAT_BIRTHDAY, KYODBC_MASK_PAT_SEX,
                     KYODBC_MASK_PAT_SELECTED, KYODBC_MASK_PAT_ENTRY, KYODBC_MASK_PAT_DISPLAY_ID,
                     KYODBC_MASK_PAT_LAST_DISPLAY});
}

TEST(FieldMasks, ImageBitsFollowTheRecord) {
  ExpectBitsInOrder({KYODBC_MASK_IMG_PATIENT,
                     KYODBC_MASK_IMG_UNIT,
                     KYODBC_MASK_IMG_DOCTOR,
                     KYODBC_MASK_IMG_TYPE,
                     KYODBC_MASK_IMG_REGION,
                     KYODBC_MASK_IMG_NAME,
                     KYODBC_MASK_IMG_TIME,
                     KYODBC_MASK_IMG_PREG,
                     KYODBC_MASK_IMG_ORDER_TYPE,
                     KYODBC_MASK_IMG_ORDER_REGION,
                     KYODBC_MASK_IMG_ORDER_REASON,
                     KYODBC_MASK_IMG_ARCHIVE_TYPE,
                     KYODBC_MASK_IMG_ARCHIVE_LOCATION,
                     KYODBC_MASK_IMG_ARCHIVE_FILE,
                     KYODBC_MASK_IMG_ARCHIVE_VOLUME,
                     KYODBC_MASK_IMG_ARCHIVE_OUT,
                     KYODBC_MASK_IMG_ARCHIVE_IN,
                     KYODBC_MASK_IMG_PREVIEW_LOCATION,
                     KYODBC_MASK_IMG_PREVIEW_FILE,
                     KYODBC_MASK_IMG_LOCATION,
                     KYODBC_MASK_IMG_FILE,
                     KYODBC_MASK_IMG_LAST_MAKRO});
}

TEST(FieldMasks, TestBitsFollowTheRecord) {
  ExpectBitsInOrder({KYODBC_MASK_TEST_UNIT, KYODBC_MASK_TEST_PERSON, KYODBC_MASK_TEST_TYPE,
                     KYODBC_MASK_TEST_REGION, KYODBC_MASK_TEST_NAME, KYODBC_MASK_TEST_TIME,
                     KYODBC_MASK_TEST_RESULT, KYODBC_MASK_TEST_ARCHIVE_TYPE,
                     KYODBC_MASK_TEST_ARCHIVE_LOCATION, KYODBC_MASK_TEST_ARCHIVE_FILE,
                     KYODBC_MASK_TEST_ARCHIVE_VOLUME, KYODBC_MASK_TEST_ARCHIVE_OUT,
                     KYODBC_MASK_TEST_ARCHIVE_IN, KYODBC_MASK_TEST_LOCATION, KYODBC_MASK_TEST_FILE});
}

TEST(FieldMasks, GroupPreviewLocationComesBeforeThePreviewFileUnlikeInTheRecord) {
  ExpectBitsInOrder({KYODBC_MASK_GRP_PATIENT, KYODBC_MASK_GRP_NAME, KYODBC_MASK_GRP_TIME,
                     KYODBC_MASK_GRP_LOCATION, KYODBC_MASK_GRP_FILE, KYODBC_MASK_GRP_MAKRO_COUNT,
                     KYODBC_MASK_GRP_PREVIEW_LOCATION, KYODBC_MASK_GRP_PREVIEW_FILE});
}

TEST(FieldMasks, AllSelectsEveryBit) { EXPECT_EQ(DWORD{KYODBC_MASK_ALL}, UINT32_MAX); }

TEST(FieldWords, FirstEntryIsTheLowestByte) {
  EXPECT_EQ(KYODBC_PACK(17, 22, 0, 0), 17 + 22 * 256);
  EXPECT_EQ(KYODBC_PACK(1, 2, 3, 4), 0x04030201);
}

TEST(FieldWords, HighestBitOfTheFourthEntryMakesTheWordNegative) {
  EXPECT_EQ(KYODBC_PACK(0, 0, 0, KYODBC_FIELD_NAME | KYODBC_DESCENDING), INT32_MIN + (17 << 24));
}

TEST(FieldWords, OperatorsHaveTheirFixedCodes) {
  EXPECT_EQ(KYODBC_GREATER_EQUAL, 2);
  EXPECT_EQ(KYODBC_GREATER, 3);
  EXPECT_EQ(KYODBC_LESS_EQUAL, 4);
  EXPECT_EQ(KYODBC_LESS, 5);
  EXPECT_EQ(KYODBC_NOT_EQUAL, 7);
  EXPECT_EQ(KYODBC_LIKE, 16);
  EXPECT_EQ(KYODBC_BETWEEN, 17);
}

TEST(FieldWords, KeysAreNumberedFrom1InTheirFixedOrder) {
  const std::vector<int> keys = {
      KYODBC_FIELD_KEY,       KYODBC_FIELD_IMAGE_KEY,   KYODBC_FIELD_DOCTOR_KEY,   KYODBC_FIELD_PATIENT_KEY,
      KYODBC_FIELD_UNIT_KEY,  KYODBC_FIELD_STATION_KEY, KYODBC_FIELD_CONFIG_KEY,   KYODBC_FIELD_TEST_KEY,
      KYODBC_FIELD_GROUP_KEY, KYODBC_FIELD_MAKRO_KEY,   KYODBC_FIELD_DIAGNOSIS_KEY};
  for (std::size_t i = 0; i < keys.size(); ++i) EXPECT_EQ(keys[i], static_cast<int>(i) + 1);
}

}  // namespace
