#include "tools/tables.h"

#include <fmt/format.h>

#include <vector>

#include "tools/tool_error.h"

namespace {

// The calls that take a record, for records whose type only the table's row knows.
template <class Record, WORD (*Call)(LONG, Record*)>
WORD ByPos(LONG position, void* record) {
  return Call(position, static_cast<Record*>(record));
}

template <class Record, WORD (*Call)(Record*)>
WORD ByKey(void* record) {
  return Call(static_cast<Record*>(record));
}

template <class Record, WORD (*Call)(Record*, DWORD)>
WORD Edit(void* record, DWORD mask) {
  return Call(static_cast<Record*>(record), mask);
}

// The fields each table can be filtered and sorted by. The images' unit is left out: the library asks for a
// column there that no database has.
constexpr int kConfigFields[] = {KYODBC_FIELD_KEY, KYODBC_FIELD_DOCTOR_KEY, KYODBC_FIELD_STATION_KEY,
                                 KYODBC_FIELD_SETTING_KEY, KYODBC_FIELD_SETTING};
constexpr int kDiagnosisFields[] = {KYODBC_FIELD_KEY, KYODBC_FIELD_IMAGE_KEY, KYODBC_FIELD_DOCTOR_KEY,
                                    KYODBC_FIELD_DATE, KYODBC_FIELD_REGION};
constexpr int kDoctorFields[] = {KYODBC_FIELD_KEY, KYODBC_FIELD_NAME, KYODBC_FIELD_SERVER_ID};
constexpr int kGroupFields[] = {KYODBC_FIELD_KEY, KYODBC_FIELD_PATIENT_KEY, KYODBC_FIELD_NAME,
                                KYODBC_FIELD_DATE};
constexpr int kImageFields[] = {KYODBC_FIELD_KEY,  KYODBC_FIELD_DOCTOR_KEY, KYODBC_FIELD_PATIENT_KEY,
                                KYODBC_FIELD_NAME, KYODBC_FIELD_DATE,       KYODBC_FIELD_TIME,
                                KYODBC_FIELD_TYPE, KYODBC_FIELD_REGION};
constexpr int kMakroFields[] = {KYODBC_FIELD_KEY, KYODBC_FIELD_IMAGE_KEY, KYODBC_FIELD_NAME,
                                KYODBC_FIELD_DATE};
constexpr int kPatientFields[] = {KYODBC_FIELD_KEY,       KYODBC_FIELD_DOCTOR_KEY, KYODBC_FIELD_NAME,
                                  KYODBC_FIELD_FIRSTNAME, KYODBC_FIELD_BIRTHDAY,   KYODBC_FIELD_EXTERNAL_ID,
                                  KYODBC_FIELD_SERVER_ID, KYODBC_FIELD_SLIDA_ID,   KYODBC_FIELD_SOCIAL_ID,
                                  KYODBC_FIELD_DISPLAY_ID};
constexpr int kPatientDoctorFields[] = {
    KYODBC_FIELD_KEY,       KYODBC_FIELD_DOCTOR_KEY, KYODBC_FIELD_DOCTOR_NAME, KYODBC_FIELD_NAME,
    KYODBC_FIELD_FIRSTNAME, KYODBC_FIELD_BIRTHDAY,   KYODBC_FIELD_EXTERNAL_ID, KYODBC_FIELD_SERVER_ID,
    KYODBC_FIELD_SLIDA_ID,  KYODBC_FIELD_SOCIAL_ID,  KYODBC_FIELD_DISPLAY_ID,  KYODBC_FIELD_LAST_DISPLAY};
constexpr int kStationFields[] = {KYODBC_FIELD_KEY, KYODBC_FIELD_NAME};
constexpr int kTestFields[] = {KYODBC_FIELD_KEY,  KYODBC_FIELD_UNIT_KEY, KYODBC_FIELD_PERSON,
                               KYODBC_FIELD_NAME, KYODBC_FIELD_DATE,     KYODBC_FIELD_TIME,
                               KYODBC_FIELD_TYPE, KYODBC_FIELD_REGION};
constexpr int kUnitFields[] = {KYODBC_FIELD_KEY, KYODBC_FIELD_NAME, KYODBC_FIELD_DATE, KYODBC_FIELD_TYPE};

// clang-format off
const Table kTables[] = {
    {"patients", "patient", "pat", &kPatientColumns, kPatientFields,
     DB_OpenTPat, DB_CloseTPat, DB_SetTPatFilter, DB_SetTPatSortIndex, DB_GetTPatMaxPos,
     ByPos<tagTPATIENT, DB_GetTPatByPos>, ByKey<tagTPATIENT, DB_GetTPat>,
     Edit<tagTPATIENT, DB_EditSelTPat>},
    {"patients-doctor", "patient-doctor", "patex", &kPatientDoctorColumns, kPatientDoctorFields,
     DB_OpenPatEx, DB_ClosePatEx, DB_SetPatExFilter, DB_SetPatExSortIndex, DB_GetPatExMaxPos,
     ByPos<tagTPATIENTEX, DB_GetPatExByPos>, ByKey<tagTPATIENTEX, DB_GetPatEx>,
     nullptr},
    {"doctors", "doctor", "dr", &kDoctorColumns, kDoctorFields,
     DB_OpenTDr, DB_CloseTDr, DB_SetTDrFilter, DB_SetTDrSortIndex, DB_GetTDrMaxPos,
     ByPos<tagTDOCTOR, DB_GetTDrByPos>, ByKey<tagTDOCTOR, DB_GetTDr>,
     Edit<tagTDOCTOR, DB_EditSelTDr>},
    {"images", "image", "img", &kImageColumns, kImageFields,
     DB_OpenTImg, DB_CloseTImg, DB_SetTImgFilter, DB_SetTImgSortIndex, DB_GetTImgMaxPos,
     ByPos<tagTIMAGE, DB_GetTImgByPos>, ByKey<tagTIMAGE, DB_GetTImg>,
     Edit<tagTIMAGE, DB_EditSelTImg>},
    {"makros", "makro", "mak", &kMakroColumns, kMakroFields,
     DB_OpenTMak, DB_CloseTMak, DB_SetTMakFilter, DB_SetTMakSortIndex, DB_GetTMakMaxPos,
     ByPos<tagTMAKRO, DB_GetTMakByPos>, ByKey<tagTMAKRO, DB_GetTMak>,
     Edit<tagTMAKRO, DB_EditSelTMak>},
    {"groups", "group", "grp", &kGroupColumns, kGroupFields,
     DB_OpenTGrp, DB_CloseTGrp, DB_SetTGrpFilter, DB_SetTGrpSortIndex, DB_GetTGrpMaxPos,
     ByPos<tagTGROUP, DB_GetTGrpByPos>, ByKey<tagTGROUP, DB_GetTGrp>,
     Edit<tagTGROUP, DB_EditSelTGrp>},
    {"diagnoses", "diagnosis", "diag", &kDiagnosisColumns, kDiagnosisFields,
     DB_OpenTDiag, DB_CloseTDiag, DB_SetTDiagFilter, DB_SetTDiagSortIndex, DB_GetTDiagMaxPos,
     ByPos<tagTDIAGNOSIS, DB_GetTDiagByPos>, ByKey<tagTDIAGNOSIS, DB_GetTDiag>,
     Edit<tagTDIAGNOSIS, DB_EditSelTDiag>},
    {"stations", "station", "stat", &kStationColumns, kStationFields,
     DB_OpenTStat, DB_CloseTStat, DB_SetTStatFilter, DB_SetTStatSortIndex, DB_GetTStatMaxPos,
     ByPos<tagTSTATION, DB_GetTStatByPos>, ByKey<tagTSTATION, DB_GetTStat>,
     Edit<tagTSTATION, DB_EditSelTStat>},
    {"units", "unit", "unit", &kUnitColumns, kUnitFields,
     DB_OpenTUnit, DB_CloseTUnit, DB_SetTUnitFilter, DB_SetTUnitSortIndex, DB_GetTUnitMaxPos,
     ByPos<tagTUNIT, DB_GetTUnitByPos>, ByKey<tagTUNIT, DB_GetTUnit>,
     Edit<tagTUNIT, DB_EditSelTUnit>},
    {"tests", "test", "tst", &kTestColumns, kTestFields,
     DB_OpenTTest, DB_CloseTTest, DB_SetTTestFilter, DB_SetTTestSortIndex, DB_GetTTestMaxPos,
     ByPos<tagTTEST, DB_GetTTestByPos>, ByKey<tagTTEST, DB_GetTTest>,
     Edit<tagTTEST, DB_EditSelTTest>},
    {"settings", "setting", "cfg", &kConfigColumns, kConfigFields,
     DB_OpenTCfg, DB_CloseTCfg, DB_SetTCfgFilter, DB_SetTCfgSortIndex, DB_GetTCfgMaxPos,
     ByPos<tagTCONFIG, DB_GetTCfgByPos>, ByKey<tagTCONFIG, DB_GetTCfg>,
     Edit<tagTCONFIG, DB_EditSelTCfg>},
};
// clang-format on

std::string Names(const char* Table::*name) {
  std::vector<const char*> names;
  for (const Table& table : kTables) names.push_back(table.*name);
  return fmt::format("{}", fmt::join(names, ", "));
}

}  // namespace

std::span<const Table> Tables() { return kTables; }

const Table& FindTable(std::string_view name) {
  for (const Table& table : kTables) {
    if (name == table.plural || name == table.singular || name == table.other_name) return table;
  }
  throw ToolError(kUsage, fmt::format("there is no table '{}'; there are: {}", name, PluralNames()));
}

std::string PluralNames() { return Names(&Table::plural); }

std::string SingularNames() { return Names(&Table::singular); }
