#include <cstring>

#include "tools/record_text.h"
#include "tools/tables.h"
#include "tools/time_text.h"

// Where a field lies: the language has no other way to say it in a list.
#define KYODBC_PLACE(record, field) offsetof(record, field), sizeof(record::field)

namespace {

constexpr bool kListed = true;
constexpr bool kShown = false;
constexpr DWORD kNever = 0;  // the library derives the field or keeps it

// clang-format off

// One row per field: title, format, place in the record, whether lists have it, bit for edits. Titles are the
// words of filters where a field can be filtered by.
constexpr Column kConfig[] = {
    {"key",     Format::kKey,  KYODBC_PLACE(tagTCONFIG, lCfgID),  kListed, kNever},
    {"setting", Format::kText, KYODBC_PLACE(tagTCONFIG, szKey),   kListed, KYODBC_MASK_CFG_KEY},
    {"value",   Format::kText, KYODBC_PLACE(tagTCONFIG, szSet),   kListed, KYODBC_MASK_CFG_SETTING},
    {"station", Format::kKey,  KYODBC_PLACE(tagTCONFIG, lStatID), kListed, KYODBC_MASK_CFG_STATION},
    {"doctor",  Format::kKey,  KYODBC_PLACE(tagTCONFIG, lDrID),   kListed, KYODBC_MASK_CFG_DOCTOR},
};

constexpr Column kDiagnosis[] = {
    {"key",    Format::kKey,  KYODBC_PLACE(tagTDIAGNOSIS, lDiagID), kListed, kNever},
    {"date",   Format::kTime, KYODBC_PLACE(tagTDIAGNOSIS, ts),      kListed, KYODBC_MASK_DIAG_TIME},
    {"region", Format::kText, KYODBC_PLACE(tagTDIAGNOSIS, szRegio), kListed, KYODBC_MASK_DIAG_REGION},
    {"code",   Format::kText, KYODBC_PLACE(tagTDIAGNOSIS, szCode),  kListed, KYODBC_MASK_DIAG_CODE},
    {"text",   Format::kText, KYODBC_PLACE(tagTDIAGNOSIS, szText),  kListed, KYODBC_MASK_DIAG_TEXT},
    {"image",  Format::kKey,  KYODBC_PLACE(tagTDIAGNOSIS, lImgID),  kListed, KYODBC_MASK_DIAG_IMAGE},
    {"doctor", Format::kKey,  KYODBC_PLACE(tagTDIAGNOSIS, lDrID),   kListed, KYODBC_MASK_DIAG_DOCTOR},
};

constexpr Column kDoctor[] = {
    {"key",       Format::kKey,  KYODBC_PLACE(tagTDOCTOR, lDrID),   kListed, kNever},
    {"name",      Format::kText, KYODBC_PLACE(tagTDOCTOR, szName),  kListed, KYODBC_MASK_DR_NAME},
    {"server-id", Format::kText, KYODBC_PLACE(tagTDOCTOR, szSrvID), kListed, KYODBC_MASK_DR_SERVER_ID},
};

constexpr Column kGroup[] = {
    {"key",              Format::kKey,  KYODBC_PLACE(tagTGROUP, lGrpID),    kListed, kNever},
    {"name",             Format::kText, KYODBC_PLACE(tagTGROUP, szName),    kListed, KYODBC_MASK_GRP_NAME},
    {"date",             Format::kTime, KYODBC_PLACE(tagTGROUP, ts),        kListed, KYODBC_MASK_GRP_TIME},
    {"location",         Format::kText, KYODBC_PLACE(tagTGROUP, szLoc),     kShown, KYODBC_MASK_GRP_LOCATION},
    {"file",             Format::kText, KYODBC_PLACE(tagTGROUP, szFile),    kListed, KYODBC_MASK_GRP_FILE},
    {"makros",           Format::kWord, KYODBC_PLACE(tagTGROUP, wMakNo),    kListed, KYODBC_MASK_GRP_MAKRO_COUNT},
    {"preview-location", Format::kText, KYODBC_PLACE(tagTGROUP, szPvwLoc),  kShown, KYODBC_MASK_GRP_PREVIEW_LOCATION},
    {"preview-file",     Format::kText, KYODBC_PLACE(tagTGROUP, szPvwFile), kShown, KYODBC_MASK_GRP_PREVIEW_FILE},
    {"patient",          Format::kKey,  KYODBC_PLACE(tagTGROUP, lPatID),    kListed, KYODBC_MASK_GRP_PATIENT},
};

constexpr Column kImage[] = {
    {"key",              Format::kKey,  KYODBC_PLACE(tagTIMAGE, lImgID),      kListed, kNever},
    {"time",             Format::kTime, KYODBC_PLACE(tagTIMAGE, ts),          kListed, KYODBC_MASK_IMG_TIME},
    {"type",             Format::kText, KYODBC_PLACE(tagTIMAGE, szType),      kListed, KYODBC_MASK_IMG_TYPE},
    {"region",           Format::kText, KYODBC_PLACE(tagTIMAGE, szRegio),     kListed, KYODBC_MASK_IMG_REGION},
    {"name",             Format::kText, KYODBC_PLACE(tagTIMAGE, szName),      kListed, KYODBC_MASK_IMG_NAME},
    {"preg",             Format::kText, KYODBC_PLACE(tagTIMAGE, szPreg),      kShown, KYODBC_MASK_IMG_PREG},
    {"order-type",       Format::kText, KYODBC_PLACE(tagTIMAGE, szOrdType),   kShown, KYODBC_MASK_IMG_ORDER_TYPE},
    {"order-region",     Format::kText, KYODBC_PLACE(tagTIMAGE, szOrdRegio),  kShown, KYODBC_MASK_IMG_ORDER_REGION},
    {"order-reason",     Format::kText, KYODBC_PLACE(tagTIMAGE, szOrdReason), kShown, KYODBC_MASK_IMG_ORDER_REASON},
    {"archive-type",     Format::kText, KYODBC_PLACE(tagTIMAGE, szArcType),   kShown, KYODBC_MASK_IMG_ARCHIVE_TYPE},
    {"archive-location", Format::kText, KYODBC_PLACE(tagTIMAGE, szArcLoc),    kShown, KYODBC_MASK_IMG_ARCHIVE_LOCATION},
    {"archive-file",     Format::kText, KYODBC_PLACE(tagTIMAGE, szArcFile),   kShown, KYODBC_MASK_IMG_ARCHIVE_FILE},
    {"archive-volume",   Format::kText, KYODBC_PLACE(tagTIMAGE, szArcVol),    kShown, KYODBC_MASK_IMG_ARCHIVE_VOLUME},
    {"archive-out",      Format::kDate, KYODBC_PLACE(tagTIMAGE, dArcOut),     kShown, KYODBC_MASK_IMG_ARCHIVE_OUT},
    {"archive-in",       Format::kDate, KYODBC_PLACE(tagTIMAGE, dArcIn),      kShown, KYODBC_MASK_IMG_ARCHIVE_IN},
    {"preview-location", Format::kText, KYODBC_PLACE(tagTIMAGE, szPvwLoc),    kShown, KYODBC_MASK_IMG_PREVIEW_LOCATION},
    {"preview-file",     Format::kText, KYODBC_PLACE(tagTIMAGE, szPvwFile),   kShown, KYODBC_MASK_IMG_PREVIEW_FILE},
    {"location",         Format::kText, KYODBC_PLACE(tagTIMAGE, szLoc),       kShown, KYODBC_MASK_IMG_LOCATION},
    {"file",             Format::kText, KYODBC_PLACE(tagTIMAGE, szFile),      kShown, KYODBC_MASK_IMG_FILE},
    {"last-makro",       Format::kKey,  KYODBC_PLACE(tagTIMAGE, lMakIDLast),  kShown, KYODBC_MASK_IMG_LAST_MAKRO},
    {"patient",          Format::kKey,  KYODBC_PLACE(tagTIMAGE, lPatID),      kListed, KYODBC_MASK_IMG_PATIENT},
    {"doctor",           Format::kKey,  KYODBC_PLACE(tagTIMAGE, lDrID),       kListed, KYODBC_MASK_IMG_DOCTOR},
    {"unit",             Format::kKey,  KYODBC_PLACE(tagTIMAGE, lUnitID),     kListed, KYODBC_MASK_IMG_UNIT},
};

constexpr Column kMakro[] = {
    {"key",      Format::kKey,  KYODBC_PLACE(tagTMAKRO, lMakID), kListed, kNever},
    {"name",     Format::kText, KYODBC_PLACE(tagTMAKRO, szName), kListed, KYODBC_MASK_MAK_NAME},
    {"date",     Format::kTime, KYODBC_PLACE(tagTMAKRO, tsLast), kListed, kNever},
    {"file",     Format::kText, KYODBC_PLACE(tagTMAKRO, szFile), kListed, KYODBC_MASK_MAK_FILE},
    {"location", Format::kText, KYODBC_PLACE(tagTMAKRO, szLoc),  kShown, KYODBC_MASK_MAK_LOCATION},
    {"number",   Format::kWord, KYODBC_PLACE(tagTMAKRO, wNo),    kListed, KYODBC_MASK_MAK_ORDINAL},
    {"image",    Format::kKey,  KYODBC_PLACE(tagTMAKRO, lImgID), kListed, KYODBC_MASK_MAK_IMAGE},
};

constexpr Column kPatient[] = {
    {"key",          Format::kKey,  KYODBC_PLACE(tagTPATIENT, lPatID),      kListed, kNever},
    {"name",         Format::kText, KYODBC_PLACE(tagTPATIENT, szName),      kListed, KYODBC_MASK_PAT_SURNAME},
    {"firstname",    Format::kText, KYODBC_PLACE(tagTPATIENT, szFirstname), kListed, KYODBC_MASK_PAT_FIRSTNAME},
    {"birthday",     Format::kDate, KYODBC_PLACE(tagTPATIENT, dBirthday),   kListed, KYODBC_MASK_PAT_BIRTHDAY},
    {"sex",          Format::kText, KYODBC_PLACE(tagTPATIENT, szSex),       kListed, KYODBC_MASK_PAT_SEX},
    {"display-id",   Format::kText, KYODBC_PLACE(tagTPATIENT, szIDDisp),    kListed, kNever},
    {"slida-id",     Format::kText, KYODBC_PLACE(tagTPATIENT, szSlidaID),   kShown, KYODBC_MASK_PAT_SLIDA_ID},
    {"external-id",  Format::kText, KYODBC_PLACE(tagTPATIENT, szExtPatID),  kShown, KYODBC_MASK_PAT_EXTERNAL_ID},
    {"server-id",    Format::kText, KYODBC_PLACE(tagTPATIENT, szSrvID),     kShown, KYODBC_MASK_PAT_SERVER_ID},
    {"social-id",    Format::kText, KYODBC_PLACE(tagTPATIENT, szSocID),     kShown, KYODBC_MASK_PAT_SOCIAL_ID},
    {"selected",     Format::kKey,  KYODBC_PLACE(tagTPATIENT, lSelect),     kShown, KYODBC_MASK_PAT_SELECTED},
    {"entry",        Format::kDate, KYODBC_PLACE(tagTPATIENT, dEntry),      kShown, kNever},
    {"last-display", Format::kTime, KYODBC_PLACE(tagTPATIENT, tsLastDisp),  kListed, kNever},
    {"doctor",       Format::kKey,  KYODBC_PLACE(tagTPATIENT, lDrID),       kListed, KYODBC_MASK_PAT_DOCTOR},
};

constexpr Column kPatientDoctor[] = {
    {"key",          Format::kKey,  KYODBC_PLACE(tagTPATIENTEX, lPatID),      kListed, kNever},
    {"name",         Format::kText, KYODBC_PLACE(tagTPATIENTEX, szName),      kListed, kNever},
    {"firstname",    Format::kText, KYODBC_PLACE(tagTPATIENTEX, szFirstname), kListed, kNever},
    {"birthday",     Format::kDate, KYODBC_PLACE(tagTPATIENTEX, dBirthday),   kListed, kNever},
    {"sex",          Format::kText, KYODBC_PLACE(tagTPATIENTEX, szSex),       kListed, kNever},
    {"doctor",       Format::kText, KYODBC_PLACE(tagTPATIENTEX, szDrName),    kListed, kNever},
    {"display-id",   Format::kText, KYODBC_PLACE(tagTPATIENTEX, szIDDisp),    kListed, kNever},
    {"slida-id",     Format::kText, KYODBC_PLACE(tagTPATIENTEX, szSlidaID),   kShown, kNever},
    {"external-id",  Format::kText, KYODBC_PLACE(tagTPATIENTEX, szExtPatID),  kShown, kNever},
    {"server-id",    Format::kText, KYODBC_PLACE(tagTPATIENTEX, szSrvID),     kShown, kNever},
    {"social-id",    Format::kText, KYODBC_PLACE(tagTPATIENTEX, szSocID),     kShown, kNever},
    {"selected",     Format::kKey,  KYODBC_PLACE(tagTPATIENTEX, lSelect),     kShown, kNever},
    {"entry",        Format::kDate, KYODBC_PLACE(tagTPATIENTEX, dEntry),      kShown, kNever},
    {"last-display", Format::kTime, KYODBC_PLACE(tagTPATIENTEX, tsLastDisp),  kListed, kNever},
    {"doctor-key",   Format::kKey,  KYODBC_PLACE(tagTPATIENTEX, lDrID),       kShown, kNever},
};

constexpr Column kStation[] = {
    {"key",  Format::kKey,  KYODBC_PLACE(tagTSTATION, lStatID), kListed, kNever},
    {"name", Format::kText, KYODBC_PLACE(tagTSTATION, szName),  kListed, KYODBC_MASK_STAT_NAME},
};

constexpr Column kTest[] = {
    {"key",              Format::kKey,  KYODBC_PLACE(tagTTEST, lTstID),    kListed, kNever},
    {"person",           Format::kText, KYODBC_PLACE(tagTTEST, szPerson),  kListed, KYODBC_MASK_TEST_PERSON},
    {"type",             Format::kText, KYODBC_PLACE(tagTTEST, szType),    kListed, KYODBC_MASK_TEST_TYPE},
    {"region",           Format::kText, KYODBC_PLACE(tagTTEST, szRegio),   kListed, KYODBC_MASK_TEST_REGION},
    {"name",             Format::kText, KYODBC_PLACE(tagTTEST, szName),    kListed, KYODBC_MASK_TEST_NAME},
    {"time",             Format::kTime, KYODBC_PLACE(tagTTEST, ts),        kListed, KYODBC_MASK_TEST_TIME},
    {"result",           Format::kText, KYODBC_PLACE(tagTTEST, szResult),  kListed, KYODBC_MASK_TEST_RESULT},
    {"archive-type",     Format::kText, KYODBC_PLACE(tagTTEST, szArcType), kShown, KYODBC_MASK_TEST_ARCHIVE_TYPE},
    {"archive-location", Format::kText, KYODBC_PLACE(tagTTEST, szArcLoc),  kShown, KYODBC_MASK_TEST_ARCHIVE_LOCATION},
    {"archive-file",     Format::kText, KYODBC_PLACE(tagTTEST, szArcFile), kShown, KYODBC_MASK_TEST_ARCHIVE_FILE},
    {"archive-volume",   Format::kText, KYODBC_PLACE(tagTTEST, szArcVol),  kShown, KYODBC_MASK_TEST_ARCHIVE_VOLUME},
    {"archive-out",      Format::kDate, KYODBC_PLACE(tagTTEST, dArcOut),   kShown, KYODBC_MASK_TEST_ARCHIVE_OUT},
    {"archive-in",       Format::kDate, KYODBC_PLACE(tagTTEST, dArcIn),    kShown, KYODBC_MASK_TEST_ARCHIVE_IN},
    {"location",         Format::kText, KYODBC_PLACE(tagTTEST, szLoc),     kShown, KYODBC_MASK_TEST_LOCATION},
    {"file",             Format::kText, KYODBC_PLACE(tagTTEST, szFile),    kShown, KYODBC_MASK_TEST_FILE},
    {"unit",             Format::kKey,  KYODBC_PLACE(tagTTEST, lUnitID),   kListed, KYODBC_MASK_TEST_UNIT},
};

constexpr Column kUnit[] = {
    {"key",             Format::kKey,  KYODBC_PLACE(tagTUNIT, lUnitID),       kListed, kNever},
    {"type",            Format::kText, KYODBC_PLACE(tagTUNIT, szType),        kListed, KYODBC_MASK_UNIT_TYPE},
    {"name",            Format::kText, KYODBC_PLACE(tagTUNIT, szName),        kListed, KYODBC_MASK_UNIT_NAME},
    {"date",            Format::kDate, KYODBC_PLACE(tagTUNIT, dAccept),       kListed, KYODBC_MASK_UNIT_ACCEPTANCE},
    {"control-unit",    Format::kText, KYODBC_PLACE(tagTUNIT, szCtrlUnitSNo), kListed, KYODBC_MASK_UNIT_CONTROL_UNIT},
    {"sensor",          Format::kText, KYODBC_PLACE(tagTUNIT, szSensSNo),     kListed, KYODBC_MASK_UNIT_SENSOR},
    {"generator",       Format::kText, KYODBC_PLACE(tagTUNIT, szGenSNo),      kShown, KYODBC_MASK_UNIT_GENERATOR},
    {"tube",            Format::kText, KYODBC_PLACE(tagTUNIT, szTubeSNo),     kListed, KYODBC_MASK_UNIT_TUBE},
    {"control-element", Format::kText, KYODBC_PLACE(tagTUNIT, szCtrlElemSNo), kShown, KYODBC_MASK_UNIT_CONTROL_ELEMENT},
    {"cone",            Format::kText, KYODBC_PLACE(tagTUNIT, szConeSNo),     kShown, KYODBC_MASK_UNIT_CONE},
    {"test-body",       Format::kText, KYODBC_PLACE(tagTUNIT, szTestBodySNo), kShown, KYODBC_MASK_UNIT_TEST_BODY},
};
// clang-format on

template <class T>
T ValueAt(const char* place) {
  T value;
  std::memcpy(&value, place, sizeof value);
  return value;
}

}  // namespace

const TableColumns kConfigColumns = {kConfig, sizeof(tagTCONFIG)};
const TableColumns kDiagnosisColumns = {kDiagnosis, sizeof(tagTDIAGNOSIS)};
const TableColumns kDoctorColumns = {kDoctor, sizeof(tagTDOCTOR)};
const TableColumns kGroupColumns = {kGroup, sizeof(tagTGROUP)};
const TableColumns kImageColumns = {kImage, sizeof(tagTIMAGE)};
const TableColumns kMakroColumns = {kMakro, sizeof(tagTMAKRO)};
const TableColumns kPatientColumns = {kPatient, sizeof(tagTPATIENT)};
const TableColumns kPatientDoctorColumns = {kPatientDoctor, sizeof(tagTPATIENTEX)};
const TableColumns kStationColumns = {kStation, sizeof(tagTSTATION)};
const TableColumns kTestColumns = {kTest, sizeof(tagTTEST)};
const TableColumns kUnitColumns = {kUnit, sizeof(tagTUNIT)};

std::string FieldAsText(const Column& column, const void* record) {
  const char* place = static_cast<const char*>(record) + column.offset;
  switch (column.format) {
    case Format::kKey:
      return std::to_string(ValueAt<LONG>(place));
    case Format::kWord:
      return std::to_string(ValueAt<WORD>(place));
    case Format::kDate:
      return DateText(ValueAt<TIMESTAMP_STRUCT>(place));
    case Format::kTime:
      return TimeText(ValueAt<TIMESTAMP_STRUCT>(place));
    default:
      return std::string(FieldText(place, column.width));
  }
}
