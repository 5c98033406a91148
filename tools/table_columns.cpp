#include <cstring>

#include "tools/record_text.h"
#include "tools/tables.h"
#include "tools/time_text.h"

// Where a field lies: the language has no other way to say it in a list.
#define KYODBC_PLACE(record, field) offsetof(record, field), sizeof(record::field)

namespace {

constexpr bool kListed = true;
constexpr bool kShown = false;

// clang-format off

// One row per field: title, format, place in the record, whether lists have it. Titles are the words of
// filters where a field can be filtered by.
constexpr Column kConfig[] = {
    {"key",     Format::kKey,  KYODBC_PLACE(tagTCONFIG, lCfgID),  kListed},
    {"setting", Format::kText, KYODBC_PLACE(tagTCONFIG, szKey),   kListed},
    {"value",   Format::kText, KYODBC_PLACE(tagTCONFIG, szSet),   kListed},
    {"station", Format::kKey,  KYODBC_PLACE(tagTCONFIG, lStatID), kListed},
    {"doctor",  Format::kKey,  KYODBC_PLACE(tagTCONFIG, lDrID),   kListed},
};

constexpr Column kDiagnosis[] = {
    {"key",    Format::kKey,  KYODBC_PLACE(tagTDIAGNOSIS, lDiagID), kListed},
    {"date",   Format::kTime, KYODBC_PLACE(tagTDIAGNOSIS, ts),      kListed},
    {"region", Format::kText, KYODBC_PLACE(tagTDIAGNOSIS, szRegio), kListed},
    {"code",   Format::kText, KYODBC_PLACE(tagTDIAGNOSIS, szCode),  kListed},
    {"text",   Format::kText, KYODBC_PLACE(tagTDIAGNOSIS, szText),  kListed},
    {"image",  Format::kKey,  KYODBC_PLACE(tagTDIAGNOSIS, lImgID),  kListed},
    {"doctor", Format::kKey,  KYODBC_PLACE(tagTDIAGNOSIS, lDrID),   kListed},
};

constexpr Column kDoctor[] = {
    {"key",       Format::kKey,  KYODBC_PLACE(tagTDOCTOR, lDrID),   kListed},
    {"name",      Format::kText, KYODBC_PLACE(tagTDOCTOR, szName),  kListed},
    {"server-id", Format::kText, KYODBC_PLACE(tagTDOCTOR, szSrvID), kListed},
};

constexpr Column kGroup[] = {
    {"key",              Format::kKey,  KYODBC_PLACE(tagTGROUP, lGrpID),    kListed},
    {"name",             Format::kText, KYODBC_PLACE(tagTGROUP, szName),    kListed},
    {"date",             Format::kTime, KYODBC_PLACE(tagTGROUP, ts),        kListed},
    {"location",         Format::kText, KYODBC_PLACE(tagTGROUP, szLoc),     kShown},
    {"file",             Format::kText, KYODBC_PLACE(tagTGROUP, szFile),    kListed},
    {"makros",           Format::kWord, KYODBC_PLACE(tagTGROUP, wMakNo),    kListed},
    {"preview-location", Format::kText, KYODBC_PLACE(tagTGROUP, szPvwLoc),  kShown},
    {"preview-file",     Format::kText, KYODBC_PLACE(tagTGROUP, szPvwFile), kShown},
    {"patient",          Format::kKey,  KYODBC_PLACE(tagTGROUP, lPatID),    kListed},
};

constexpr Column kImage[] = {
    {"key",              Format::kKey,  KYODBC_PLACE(tagTIMAGE, lImgID),      kListed},
    {"time",             Format::kTime, KYODBC_PLACE(tagTIMAGE, ts),          kListed},
    {"type",             Format::kText, KYODBC_PLACE(tagTIMAGE, szType),      kListed},
    {"region",           Format::kText, KYODBC_PLACE(tagTIMAGE, szRegio),     kListed},
    {"name",             Format::kText, KYODBC_PLACE(tagTIMAGE, szName),      kListed},
    {"preg",             Format::kText, KYODBC_PLACE(tagTIMAGE, szPreg),      kShown},
    {"order-type",       Format::kText, KYODBC_PLACE(tagTIMAGE, szOrdType),   kShown},
    {"order-region",     Format::kText, KYODBC_PLACE(tagTIMAGE, szOrdRegio),  kShown},
    {"order-reason",     Format::kText, KYODBC_PLACE(tagTIMAGE, szOrdReason), kShown},
    {"archive-type",     Format::kText, KYODBC_PLACE(tagTIMAGE, szArcType),   kShown},
    {"archive-location", Format::kText, KYODBC_PLACE(tagTIMAGE, szArcLoc),    kShown},
    {"archive-file",     Format::kText, KYODBC_PLACE(tagTIMAGE, szArcFile),   kShown},
    {"archive-volume",   Format::kText, KYODBC_PLACE(tagTIMAGE, szArcVol),    kShown},
    {"archive-out",      Format::kDate, KYODBC_PLACE(tagTIMAGE, dArcOut),     kShown},
    {"archive-in",       Format::kDate, KYODBC_PLACE(tagTIMAGE, dArcIn),      kShown},
    {"preview-location", Format::kText, KYODBC_PLACE(tagTIMAGE, szPvwLoc),    kShown},
    {"preview-file",     Format::kText, KYODBC_PLACE(tagTIMAGE, szPvwFile),   kShown},
    {"location",         Format::kText, KYODBC_PLACE(tagTIMAGE, szLoc),       kShown},
    {"file",             Format::kText, KYODBC_PLACE(tagTIMAGE, szFile),      kShown},
    {"last-makro",       Format::kKey,  KYODBC_PLACE(tagTIMAGE, lMakIDLast),  kShown},
    {"patient",          Format::kKey,  KYODBC_PLACE(tagTIMAGE, lPatID),      kListed},
    {"doctor",           Format::kKey,  KYODBC_PLACE(tagTIMAGE, lDrID),       kListed},
    {"unit",             Format::kKey,  KYODBC_PLACE(tagTIMAGE, lUnitID),     kListed},
};

constexpr Column kMakro[] = {
    {"key",      Format::kKey,  KYODBC_PLACE(tagTMAKRO, lMakID), kListed},
    {"name",     Format::kText, KYODBC_PLACE(tagTMAKRO, szName), kListed},
    {"date",     Format::kTime, KYODBC_PLACE(tagTMAKRO, tsLast), kListed},
    {"file",     Format::kText, KYODBC_PLACE(tagTMAKRO, szFile), kListed},
    {"location", Format::kText, KYODBC_PLACE(tagTMAKRO, szLoc),  kShown},
    {"number",   Format::kWord, KYODBC_PLACE(tagTMAKRO, wNo),    kListed},
    {"image",    Format::kKey,  KYODBC_PLACE(tagTMAKRO, lImgID), kListed},
};

constexpr Column kPatient[] = {
    {"key",          Format::kKey,  KYODBC_PLACE(tagTPATIENT, lPatID),      kListed},
    {"name",         Format::kText, KYODBC_PLACE(tagTPATIENT, szName),      kListed},
    {"firstname",    Format::kText, KYODBC_PLACE(tagTPATIENT, szFirstname), kListed},
    {"birthday",     Format::kDate, KYODBC_PLACE(tagTPATIENT, dBirthday),   kListed},
    {"sex",          Format::kText, KYODBC_PLACE(tagTPATIENT, szSex),       kListed},
    {"display-id",   Format::kText, KYODBC_PLACE(tagTPATIENT, szIDDisp),    kListed},
    {"slida-id",     Format::kText, KYODBC_PLACE(tagTPATIENT, szSlidaID),   kShown},
    {"external-id",  Format::kText, KYODBC_PLACE(tagTPATIENT, szExtPatID),  kShown},
    {"server-id",    Format::kText, KYODBC_PLACE(tagTPATIENT, szSrvID),     kShown},
    {"social-id",    Format::kText, KYODBC_PLACE(tagTPATIENT, szSocID),     kShown},
    {"selected",     Format::kKey,  KYODBC_PLACE(tagTPATIENT, lSelect),     kShown},
    {"entry",        Format::kDate, KYODBC_PLACE(tagTPATIENT, dEntry),      kShown},
    {"last-display", Format::kTime, KYODBC_PLACE(tagTPATIENT, tsLastDisp),  kListed},
    {"doctor",       Format::kKey,  KYODBC_PLACE(tagTPATIENT, lDrID),       kListed},
};

constexpr Column kPatientDoctor[] = {
    {"key",          Format::kKey,  KYODBC_PLACE(tagTPATIENTEX, lPatID),      kListed},
    {"name",         Format::kText, KYODBC_PLACE(tagTPATIENTEX, szName),      kListed},
    {"firstname",    Format::kText, KYODBC_PLACE(tagTPATIENTEX, szFirstname), kListed},
    {"birthday",     Format::kDate, KYODBC_PLACE(tagTPATIENTEX, dBirthday),   kListed},
    {"sex",          Format::kText, KYODBC_PLACE(tagTPATIENTEX, szSex),       kListed},
    {"doctor",       Format::kText, KYODBC_PLACE(tagTPATIENTEX, szDrName),    kListed},
    {"display-id",   Format::kText, KYODBC_PLACE(tagTPATIENTEX, szIDDisp),    kListed},
    {"slida-id",     Format::kText, KYODBC_PLACE(tagTPATIENTEX, szSlidaID),   kShown},
    {"external-id",  Format::kText, KYODBC_PLACE(tagTPATIENTEX, szExtPatID),  kShown},
    {"server-id",    Format::kText, KYODBC_PLACE(tagTPATIENTEX, szSrvID),     kShown},
    {"social-id",    Format::kText, KYODBC_PLACE(tagTPATIENTEX, szSocID),     kShown},
    {"selected",     Format::kKey,  KYODBC_PLACE(tagTPATIENTEX, lSelect),     kShown},
    {"entry",        Format::kDate, KYODBC_PLACE(tagTPATIENTEX, dEntry),      kShown},
    {"last-display", Format::kTime, KYODBC_PLACE(tagTPATIENTEX, tsLastDisp),  kListed},
    {"doctor-key",   Format::kKey,  KYODBC_PLACE(tagTPATIENTEX, lDrID),       kShown},
};

constexpr Column kStation[] = {
    {"key",  Format::kKey,  KYODBC_PLACE(tagTSTATION, lStatID), kListed},
    {"name", Format::kText, KYODBC_PLACE(tagTSTATION, szName),  kListed},
};

constexpr Column kTest[] = {
    {"key",              Format::kKey,  KYODBC_PLACE(tagTTEST, lTstID),    kListed},
    {"person",           Format::kText, KYODBC_PLACE(tagTTEST, szPerson),  kListed},
    {"type",             Format::kText, KYODBC_PLACE(tagTTEST, szType),    kListed},
    {"region",           Format::kText, KYODBC_PLACE(tagTTEST, szRegio),   kListed},
    {"name",             Format::kText, KYODBC_PLACE(tagTTEST, szName),    kListed},
    {"time",             Format::kTime, KYODBC_PLACE(tagTTEST, ts),        kListed},
    {"result",           Format::kText, KYODBC_PLACE(tagTTEST, szResult),  kListed},
    {"archive-type",     Format::kText, KYODBC_PLACE(tagTTEST, szArcType), kShown},
    {"archive-location", Format::kText, KYODBC_PLACE(tagTTEST, szArcLoc),  kShown},
    {"archive-file",     Format::kText, KYODBC_PLACE(tagTTEST, szArcFile), kShown},
    {"archive-volume",   Format::kText, KYODBC_PLACE(tagTTEST, szArcVol),  kShown},
    {"archive-out",      Format::kDate, KYODBC_PLACE(tagTTEST, dArcOut),   kShown},
    {"archive-in",       Format::kDate, KYODBC_PLACE(tagTTEST, dArcIn),    kShown},
    {"location",         Format::kText, KYODBC_PLACE(tagTTEST, szLoc),     kShown},
    {"file",             Format::kText, KYODBC_PLACE(tagTTEST, szFile),    kShown},
    {"unit",             Format::kKey,  KYODBC_PLACE(tagTTEST, lUnitID),   kListed},
};

constexpr Column kUnit[] = {
    {"key",             Format::kKey,  KYODBC_PLACE(tagTUNIT, lUnitID),       kListed},
    {"type",            Format::kText, KYODBC_PLACE(tagTUNIT, szType),        kListed},
    {"name",            Format::kText, KYODBC_PLACE(tagTUNIT, szName),        kListed},
    {"date",            Format::kDate, KYODBC_PLACE(tagTUNIT, dAccept),       kListed},
    {"control-unit",    Format::kText, KYODBC_PLACE(tagTUNIT, szCtrlUnitSNo), kListed},
    {"sensor",          Format::kText, KYODBC_PLACE(tagTUNIT, szSensSNo),     kListed},
    {"generator",       Format::kText, KYODBC_PLACE(tagTUNIT, szGenSNo),      kShown},
    {"tube",            Format::kText, KYODBC_PLACE(tagTUNIT, szTubeSNo),     kListed},
    {"control-element", Format::kText, KYODBC_PLACE(tagTUNIT, szCtrlElemSNo), kShown},
    {"cone",            Format::kText, KYODBC_PLACE(tagTUNIT, szConeSNo),     kShown},
    {"test-body",       Format::kText, KYODBC_PLACE(tagTUNIT, szTestBodySNo), kShown},
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
