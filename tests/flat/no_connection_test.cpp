// Every exported function without a connection: a defined answer and no crash.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "frame/KyODBC.h"
#include "tests/support/records.h"

namespace {

constexpr LONG kBufferSize = 300;

template <class T>
T* Blank() {
  static T value;
  value = T{};
  return &value;
}

char* Buffer() {
  static char buffer[kBufferSize];
  return buffer;
}

const tagDBCONNECT* UnknownSource() {
  static tagDBCONNECT parameters;
  support::SetText(parameters.szDSN, "no such source");
  return &parameters;
}

template <auto SetFilter>
LONG Filter() {
  return SetFilter(KYODBC_FIELD_KEY, KYODBC_EQUAL, Blank<LONG>(), nullptr, nullptr, nullptr);
}

LONG ReadSetting() {
  return DB_GetProfileString("Key", "-", "default", Buffer(), kBufferSize, Blank<LONG>());
}

struct Call {
  const char* name;
  LONG answer;
  LONG (*run)();
};

void PrintTo(const Call& call, std::ostream* out) { *out << call.name; }

// In the order of the list of exports. Codes are 3, positions and open states 0; what needs no connection
// answers as ever.
// clang-format off
const Call kCalls[] = {
    {"DB_InitDatabase", 3, []() -> LONG { return DB_InitDatabase(UnknownSource()); }},
    {"DB_CloseDatabase", 0, []() -> LONG { return DB_CloseDatabase(); }},
    {"DB_IsDatabaseOpen", 0, []() -> LONG { return DB_IsDatabaseOpen(); }},
    {"DB_GetDatabase", 0, []() -> LONG { return DB_GetDatabase() == nullptr ? 0 : 1; }},
    {"DB_CheckVersion", 1, []() -> LONG { return DB_CheckVersion(261, nullptr); }},
    {"DB_GetInfo", 3, []() -> LONG { return DB_GetInfo(Blank<tagDBINFO>()); }},
    {"DB_GetDBVersion", 0, []() -> LONG { return DB_GetDBVersion(Blank<double>()); }},
    {"DB_GetDBMS", 0, []() -> LONG { return DB_GetDBMS(Buffer(), kBufferSize); }},
    {"DB_GetDBOwner", 0, []() -> LONG { return DB_GetDBOwner(Buffer(), kBufferSize); }},
    {"DB_BeginTransaction", 3, []() -> LONG { return DB_BeginTransaction(); }},
    {"DB_CommitTransaction", 3, []() -> LONG { return DB_CommitTransaction(); }},
    {"DB_RollbackTransaction", 3, []() -> LONG { return DB_RollbackTransaction(); }},
    {"DB_GetProfileString", 3, ReadSetting},
    {"DB_WriteProfileString", 3, []() -> LONG { return DB_WriteProfileString("Key", "-", "value"); }},
    {"DB_GetProfileInt", 3, []() -> LONG { return DB_GetProfileInt("Key", "-", 1, Blank<LONG>()); }},
    {"DB_WriteProfileInt", 3, []() -> LONG { return DB_WriteProfileInt("Key", "-", 1); }},
    {"DB_OpenTDr", 3, []() -> LONG { return DB_OpenTDr(); }},
    {"DB_CloseTDr", 3, []() -> LONG { return DB_CloseTDr(); }},
    {"DB_IsTDrOpen", 0, []() -> LONG { return DB_IsTDrOpen(); }},
    {"DB_GetTDrIndexPos", 0, []() -> LONG { return DB_GetTDrIndexPos(); }},
    {"DB_MoveToTDrByPos", 0, []() -> LONG { return DB_MoveToTDrByPos(1); }},
    {"DB_MoveToTDrByDelta", 0, []() -> LONG { return DB_MoveToTDrByDelta(1); }},
    {"DB_GetTDrMaxPos", 3, []() -> LONG { return DB_GetTDrMaxPos(Blank<LONG>()); }},
    {"DB_SetTDrFilter", 3, Filter<DB_SetTDrFilter>},
    {"DB_SetTDrSortIndex", 3, []() -> LONG { return DB_SetTDrSortIndex(1); }},
    {"DB_GetTDrByPos", 3, []() -> LONG { return DB_GetTDrByPos(1, Blank<tagTDOCTOR>()); }},
    {"DB_DeleteTDrByPos", 3, []() -> LONG { return DB_DeleteTDrByPos(1); }},
    {"DB_AddNewTDr", 3, []() -> LONG { return DB_AddNewTDr(Blank<tagTDOCTOR>()); }},
    {"DB_EditSelTDr", 3, []() -> LONG { return DB_EditSelTDr(Blank<tagTDOCTOR>(), KYODBC_MASK_ALL); }},
    {"DB_EditTDr", 3, []() -> LONG { return DB_EditTDr(Blank<tagTDOCTOR>()); }},
    {"DB_DeleteTDr", 3, []() -> LONG { return DB_DeleteTDr(Blank<tagTDOCTOR>()); }},
    {"DB_GetTDr", 3, []() -> LONG { return DB_GetTDr(Blank<tagTDOCTOR>()); }},
    {"DB_GetNumTDr", 3, []() -> LONG { return DB_GetNumTDr(Blank<LONG>()); }},
    {"DB_GetLastDrID", 3, []() -> LONG { return DB_GetLastDrID(Blank<LONG>()); }},
    {"DB_OpenTStat", 3, []() -> LONG { return DB_OpenTStat(); }},
    {"DB_CloseTStat", 3, []() -> LONG { return DB_CloseTStat(); }},
    {"DB_IsTStatOpen", 0, []() -> LONG { return DB_IsTStatOpen(); }},
    {"DB_GetTStatIndexPos", 0, []() -> LONG { return DB_GetTStatIndexPos(); }},
    {"DB_MoveToTStatByPos", 0, []() -> LONG { return DB_MoveToTStatByPos(1); }},
    {"DB_MoveToTStatByDelta", 0, []() -> LONG { return DB_MoveToTStatByDelta(1); }},
    {"DB_GetTStatMaxPos", 3, []() -> LONG { return DB_GetTStatMaxPos(Blank<LONG>()); }},
    {"DB_SetTStatFilter", 3, Filter<DB_SetTStatFilter>},
    {"DB_SetTStatSortIndex", 3, []() -> LONG { return DB_SetTStatSortIndex(1); }},
    {"DB_GetTStatByPos", 3, []() -> LONG { return DB_GetTStatByPos(1, Blank<tagTSTATION>()); }},
    {"DB_DeleteTStatByPos", 3, []() -> LONG { return DB_DeleteTStatByPos(1); }},
    {"DB_AddNewTStat", 3, []() -> LONG { return DB_AddNewTStat(Blank<tagTSTATION>()); }},
    {"DB_EditSelTStat", 3, []() -> LONG { return DB_EditSelTStat(Blank<tagTSTATION>(), KYODBC_MASK_ALL); }},
    {"DB_EditTStat", 3, []() -> LONG { return DB_EditTStat(Blank<tagTSTATION>()); }},
    {"DB_DeleteTStat", 3, []() -> LONG { return DB_DeleteTStat(Blank<tagTSTATION>()); }},
    {"DB_GetTStat", 3, []() -> LONG { return DB_GetTStat(Blank<tagTSTATION>()); }},
    {"DB_GetNumTStat", 3, []() -> LONG { return DB_GetNumTStat(Blank<LONG>()); }},
    {"DB_GetLastStatID", 3, []() -> LONG { return DB_GetLastStatID(Blank<LONG>()); }},
    {"DB_OpenTUnit", 3, []() -> LONG { return DB_OpenTUnit(); }},
    {"DB_CloseTUnit", 3, []() -> LONG { return DB_CloseTUnit(); }},
    {"DB_IsTUnitOpen", 0, []() -> LONG { return DB_IsTUnitOpen(); }},
    {"DB_GetTUnitIndexPos", 0, []() -> LONG { return DB_GetTUnitIndexPos(); }},
    {"DB_MoveToTUnitByPos", 0, []() -> LONG { return DB_MoveToTUnitByPos(1); }},
    {"DB_MoveToTUnitByDelta", 0, []() -> LONG { return DB_MoveToTUnitByDelta(1); }},
    {"DB_GetTUnitMaxPos", 3, []() -> LONG { return DB_GetTUnitMaxPos(Blank<LONG>()); }},
    {"DB_SetTUnitFilter", 3, Filter<DB_SetTUnitFilter>},
    {"DB_SetTUnitSortIndex", 3, []() -> LONG { return DB_SetTUnitSortIndex(1); }},
    {"DB_GetTUnitByPos", 3, []() -> LONG { return DB_GetTUnitByPos(1, Blank<tagTUNIT>()); }},
    {"DB_DeleteTUnitByPos", 3, []() -> LONG { return DB_DeleteTUnitByPos(1); }},
    {"DB_AddNewTUnit", 3, []() -> LONG { return DB_AddNewTUnit(Blank<tagTUNIT>()); }},
    {"DB_EditSelTUnit", 3, []() -> LONG { return DB_EditSelTUnit(Blank<tagTUNIT>(), KYODBC_MASK_ALL); }},
    {"DB_EditTUnit", 3, []() -> LONG { return DB_EditTUnit(Blank<tagTUNIT>()); }},
    {"DB_DeleteTUnit", 3, []() -> LONG { return DB_DeleteTUnit(Blank<tagTUNIT>()); }},
    {"DB_GetTUnit", 3, []() -> LONG { return DB_GetTUnit(Blank<tagTUNIT>()); }},
    {"DB_GetNumTUnit", 3, []() -> LONG { return DB_GetNumTUnit(Blank<LONG>()); }},
    {"DB_GetLastUnitID", 3, []() -> LONG { return DB_GetLastUnitID(Blank<LONG>()); }},
    {"DB_OpenTPat", 3, []() -> LONG { return DB_OpenTPat(); }},
    {"DB_CloseTPat", 3, []() -> LONG { return DB_CloseTPat(); }},
    {"DB_IsTPatOpen", 0, []() -> LONG { return DB_IsTPatOpen(); }},
    {"DB_GetTPatIndexPos", 0, []() -> LONG { return DB_GetTPatIndexPos(); }},
    {"DB_MoveToTPatByPos", 0, []() -> LONG { return DB_MoveToTPatByPos(1); }},
    {"DB_MoveToTPatByDelta", 0, []() -> LONG { return DB_MoveToTPatByDelta(1); }},
    {"DB_MoveToTPatByIntID", 0, []() -> LONG { return DB_MoveToTPatByIntID(1); }},
    {"DB_MoveToTPatByString", 0, []() -> LONG { return DB_MoveToTPatByString("text"); }},
    {"DB_GetTPatMaxPos", 3, []() -> LONG { return DB_GetTPatMaxPos(Blank<LONG>()); }},
    {"DB_SetTPatFilter", 3, Filter<DB_SetTPatFilter>},
    {"DB_SetTPatSortIndex", 3, []() -> LONG { return DB_SetTPatSortIndex(1); }},
    {"DB_GetTPatByPos", 3, []() -> LONG { return DB_GetTPatByPos(1, Blank<tagTPATIENT>()); }},
    {"DB_DeleteTPatByPos", 3, []() -> LONG { return DB_DeleteTPatByPos(1); }},
    {"DB_AddNewTPat", 3, []() -> LONG { return DB_AddNewTPat(Blank<tagTPATIENT>()); }},
    {"DB_EditSelTPat", 3, []() -> LONG { return DB_EditSelTPat(Blank<tagTPATIENT>(), KYODBC_MASK_ALL); }},
    {"DB_EditTPat", 3, []() -> LONG { return DB_EditTPat(Blank<tagTPATIENT>()); }},
    {"DB_DeleteTPat", 3, []() -> LONG { return DB_DeleteTPat(Blank<tagTPATIENT>()); }},
    {"DB_GetTPat", 3, []() -> LONG { return DB_GetTPat(Blank<tagTPATIENT>()); }},
    {"DB_GetNumTPat", 3, []() -> LONG { return DB_GetNumTPat(Blank<LONG>()); }},
    {"DB_GetLastPatID", 3, []() -> LONG { return DB_GetLastPatID(Blank<LONG>()); }},
    {"DB_OpenPatEx", 3, []() -> LONG { return DB_OpenPatEx(); }},
    {"DB_ClosePatEx", 3, []() -> LONG { return DB_ClosePatEx(); }},
    {"DB_IsPatExOpen", 0, []() -> LONG { return DB_IsPatExOpen(); }},
    {"DB_GetPatExIndexPos", 0, []() -> LONG { return DB_GetPatExIndexPos(); }},
    {"DB_MoveToPatExByPos", 0, []() -> LONG { return DB_MoveToPatExByPos(1); }},
    {"DB_MoveToPatExByDelta", 0, []() -> LONG { return DB_MoveToPatExByDelta(1); }},
    {"DB_MoveToPatExByIntID", 0, []() -> LONG { return DB_MoveToPatExByIntID(1); }},
    {"DB_MoveToPatExByString", 0, []() -> LONG { return DB_MoveToPatExByString("text"); }},
    {"DB_GetPatExMaxPos", 3, []() -> LONG { return DB_GetPatExMaxPos(Blank<LONG>()); }},
    {"DB_SetPatExFilter", 3, Filter<DB_SetPatExFilter>},
    {"DB_SetPatExSortIndex", 3, []() -> LONG { return DB_SetPatExSortIndex(1); }},
    {"DB_GetPatExByPos", 3, []() -> LONG { return DB_GetPatExByPos(1, Blank<tagTPATIENTEX>()); }},
    {"DB_GetPatEx", 3, []() -> LONG { return DB_GetPatEx(Blank<tagTPATIENTEX>()); }},
    {"DB_GetNumPatEx", 3, []() -> LONG { return DB_GetNumPatEx(Blank<LONG>()); }},
    {"DB_OpenTImg", 3, []() -> LONG { return DB_OpenTImg(); }},
    {"DB_CloseTImg", 3, []() -> LONG { return DB_CloseTImg(); }},
    {"DB_IsTImgOpen", 0, []() -> LONG { return DB_IsTImgOpen(); }},
    {"DB_GetTImgIndexPos", 0, []() -> LONG { return DB_GetTImgIndexPos(); }},
    {"DB_MoveToTImgByPos", 0, []() -> LONG { return DB_MoveToTImgByPos(1); }},
    {"DB_MoveToTImgByDelta", 0, []() -> LONG { return DB_MoveToTImgByDelta(1); }},
    {"DB_MoveToTImgByIntID", 0, []() -> LONG { return DB_MoveToTImgByIntID(1); }},
    {"DB_GetTImgMaxPos", 3, []() -> LONG { return DB_GetTImgMaxPos(Blank<LONG>()); }},
    {"DB_SetTImgFilter", 3, Filter<DB_SetTImgFilter>},
    {"DB_SetTImgSortIndex", 3, []() -> LONG { return DB_SetTImgSortIndex(1); }},
    {"DB_GetTImgByPos", 3, []() -> LONG { return DB_GetTImgByPos(1, Blank<tagTIMAGE>()); }},
    {"DB_DeleteTImgByPos", 3, []() -> LONG { return DB_DeleteTImgByPos(1); }},
    {"DB_AddNewTImg", 3, []() -> LONG { return DB_AddNewTImg(Blank<tagTIMAGE>()); }},
    {"DB_EditSelTImg", 3, []() -> LONG { return DB_EditSelTImg(Blank<tagTIMAGE>(), KYODBC_MASK_ALL); }},
    {"DB_EditTImg", 3, []() -> LONG { return DB_EditTImg(Blank<tagTIMAGE>()); }},
    {"DB_DeleteTImg", 3, []() -> LONG { return DB_DeleteTImg(Blank<tagTIMAGE>()); }},
    {"DB_GetTImg", 3, []() -> LONG { return DB_GetTImg(Blank<tagTIMAGE>()); }},
    {"DB_GetNumTImg", 3, []() -> LONG { return DB_GetNumTImg(1, Blank<LONG>()); }},
    {"DB_GetLastImgID", 3, []() -> LONG { return DB_GetLastImgID(Blank<LONG>()); }},
    {"DB_GetLastTImgDate", 3, []() -> LONG { return DB_GetLastTImgDate(1, Blank<LONG>(), nullptr); }},
    {"DB_OpenTMak", 3, []() -> LONG { return DB_OpenTMak(); }},
    {"DB_CloseTMak", 3, []() -> LONG { return DB_CloseTMak(); }},
    {"DB_IsTMakOpen", 0, []() -> LONG { return DB_IsTMakOpen(); }},
    {"DB_GetTMakIndexPos", 0, []() -> LONG { return DB_GetTMakIndexPos(); }},
    {"DB_MoveToTMakByPos", 0, []() -> LONG { return DB_MoveToTMakByPos(1); }},
    {"DB_MoveToTMakByDelta", 0, []() -> LONG { return DB_MoveToTMakByDelta(1); }},
    {"DB_GetTMakMaxPos", 3, []() -> LONG { return DB_GetTMakMaxPos(Blank<LONG>()); }},
    {"DB_SetTMakFilter", 3, Filter<DB_SetTMakFilter>},
    {"DB_SetTMakSortIndex", 3, []() -> LONG { return DB_SetTMakSortIndex(1); }},
    {"DB_GetTMakByPos", 3, []() -> LONG { return DB_GetTMakByPos(1, Blank<tagTMAKRO>()); }},
    {"DB_DeleteTMakByPos", 3, []() -> LONG { return DB_DeleteTMakByPos(1); }},
    {"DB_AddNewTMak", 3, []() -> LONG { return DB_AddNewTMak(Blank<tagTMAKRO>()); }},
    {"DB_EditSelTMak", 3, []() -> LONG { return DB_EditSelTMak(Blank<tagTMAKRO>(), KYODBC_MASK_ALL); }},
    {"DB_EditTMak", 3, []() -> LONG { return DB_EditTMak(Blank<tagTMAKRO>()); }},
    {"DB_DeleteTMak", 3, []() -> LONG { return DB_DeleteTMak(Blank<tagTMAKRO>()); }},
    {"DB_GetTMak", 3, []() -> LONG { return DB_GetTMak(Blank<tagTMAKRO>()); }},
    {"DB_GetNumTMak", 3, []() -> LONG { return DB_GetNumTMak(1, Blank<LONG>()); }},
    {"DB_GetLastMakID", 3, []() -> LONG { return DB_GetLastMakID(Blank<LONG>()); }},
    {"DB_GetLastTMakDate", 3, []() -> LONG { return DB_GetLastTMakDate(1, Blank<LONG>(), nullptr); }},
    {"DB_OpenTGrp", 3, []() -> LONG { return DB_OpenTGrp(); }},
    {"DB_CloseTGrp", 3, []() -> LONG { return DB_CloseTGrp(); }},
    {"DB_IsTGrpOpen", 0, []() -> LONG { return DB_IsTGrpOpen(); }},
    {"DB_GetTGrpIndexPos", 0, []() -> LONG { return DB_GetTGrpIndexPos(); }},
    {"DB_MoveToTGrpByPos", 0, []() -> LONG { return DB_MoveToTGrpByPos(1); }},
    {"DB_MoveToTGrpByDelta", 0, []() -> LONG { return DB_MoveToTGrpByDelta(1); }},
    {"DB_GetTGrpMaxPos", 3, []() -> LONG { return DB_GetTGrpMaxPos(Blank<LONG>()); }},
    {"DB_SetTGrpFilter", 3, Filter<DB_SetTGrpFilter>},
    {"DB_SetTGrpSortIndex", 3, []() -> LONG { return DB_SetTGrpSortIndex(1); }},
    {"DB_GetTGrpByPos", 3, []() -> LONG { return DB_GetTGrpByPos(1, Blank<tagTGROUP>()); }},
    {"DB_DeleteTGrpByPos", 3, []() -> LONG { return DB_DeleteTGrpByPos(1); }},
    {"DB_AddNewTGrp", 3, []() -> LONG { return DB_AddNewTGrp(Blank<tagTGROUP>()); }},
    {"DB_EditSelTGrp", 3, []() -> LONG { return DB_EditSelTGrp(Blank<tagTGROUP>(), KYODBC_MASK_ALL); }},
    {"DB_EditTGrp", 3, []() -> LONG { return DB_EditTGrp(Blank<tagTGROUP>()); }},
    {"DB_DeleteTGrp", 3, []() -> LONG { return DB_DeleteTGrp(Blank<tagTGROUP>()); }},
    {"DB_GetTGrp", 3, []() -> LONG { return DB_GetTGrp(Blank<tagTGROUP>()); }},
    {"DB_GetNumTGrp", 3, []() -> LONG { return DB_GetNumTGrp(1, Blank<LONG>()); }},
    {"DB_GetLastGrpID", 3, []() -> LONG { return DB_GetLastGrpID(Blank<LONG>()); }},
    {"DB_OpenTDiag", 3, []() -> LONG { return DB_OpenTDiag(); }},
    {"DB_CloseTDiag", 3, []() -> LONG { return DB_CloseTDiag(); }},
    {"DB_IsTDiagOpen", 0, []() -> LONG { return DB_IsTDiagOpen(); }},
    {"DB_GetTDiagIndexPos", 0, []() -> LONG { return DB_GetTDiagIndexPos(); }},
    {"DB_MoveToTDiagByPos", 0, []() -> LONG { return DB_MoveToTDiagByPos(1); }},
    {"DB_MoveToTDiagByDelta", 0, []() -> LONG { return DB_MoveToTDiagByDelta(1); }},
    {"DB_GetTDiagMaxPos", 3, []() -> LONG { return DB_GetTDiagMaxPos(Blank<LONG>()); }},
    {"DB_SetTDiagFilter", 3, Filter<DB_SetTDiagFilter>},
    {"DB_SetTDiagSortIndex", 3, []() -> LONG { return DB_SetTDiagSortIndex(1); }},
    {"DB_GetTDiagByPos", 3, []() -> LONG { return DB_GetTDiagByPos(1, Blank<tagTDIAGNOSIS>()); }},
    {"DB_DeleteTDiagByPos", 3, []() -> LONG { return DB_DeleteTDiagByPos(1); }},
    {"DB_AddNewTDiag", 3, []() -> LONG { return DB_AddNewTDiag(Blank<tagTDIAGNOSIS>()); }},
    {"DB_EditSelTDiag", 3, []() -> LONG { return DB_EditSelTDiag(Blank<tagTDIAGNOSIS>(), KYODBC_MASK_ALL); }},
    {"DB_EditTDiag", 3, []() -> LONG { return DB_EditTDiag(Blank<tagTDIAGNOSIS>()); }},
    {"DB_DeleteTDiag", 3, []() -> LONG { return DB_DeleteTDiag(Blank<tagTDIAGNOSIS>()); }},
    {"DB_GetTDiag", 3, []() -> LONG { return DB_GetTDiag(Blank<tagTDIAGNOSIS>()); }},
    {"DB_GetNumTDiag", 3, []() -> LONG { return DB_GetNumTDiag(Blank<LONG>()); }},
    {"DB_GetLastDiagID", 3, []() -> LONG { return DB_GetLastDiagID(Blank<LONG>()); }},
    {"DB_OpenTCfg", 3, []() -> LONG { return DB_OpenTCfg(); }},
    {"DB_CloseTCfg", 3, []() -> LONG { return DB_CloseTCfg(); }},
    {"DB_IsTCfgOpen", 0, []() -> LONG { return DB_IsTCfgOpen(); }},
    {"DB_GetTCfgIndexPos", 0, []() -> LONG { return DB_GetTCfgIndexPos(); }},
    {"DB_MoveToTCfgByPos", 0, []() -> LONG { return DB_MoveToTCfgByPos(1); }},
    {"DB_MoveToTCfgByDelta", 0, []() -> LONG { return DB_MoveToTCfgByDelta(1); }},
    {"DB_GetTCfgMaxPos", 3, []() -> LONG { return DB_GetTCfgMaxPos(Blank<LONG>()); }},
    {"DB_SetTCfgFilter", 3, Filter<DB_SetTCfgFilter>},
    {"DB_SetTCfgSortIndex", 3, []() -> LONG { return DB_SetTCfgSortIndex(1); }},
    {"DB_GetTCfgByPos", 3, []() -> LONG { return DB_GetTCfgByPos(1, Blank<tagTCONFIG>()); }},
    {"DB_DeleteTCfgByPos", 3, []() -> LONG { return DB_DeleteTCfgByPos(1); }},
    {"DB_AddNewTCfg", 3, []() -> LONG { return DB_AddNewTCfg(Blank<tagTCONFIG>()); }},
    {"DB_EditSelTCfg", 3, []() -> LONG { return DB_EditSelTCfg(Blank<tagTCONFIG>(), KYODBC_MASK_ALL); }},
    {"DB_EditTCfg", 3, []() -> LONG { return DB_EditTCfg(Blank<tagTCONFIG>()); }},
    {"DB_DeleteTCfg", 3, []() -> LONG { return DB_DeleteTCfg(Blank<tagTCONFIG>()); }},
    {"DB_GetTCfg", 3, []() -> LONG { return DB_GetTCfg(Blank<tagTCONFIG>()); }},
    {"DB_GetNumTCfg", 3, []() -> LONG { return DB_GetNumTCfg(Blank<LONG>()); }},
    {"DB_GetLastCfgID", 3, []() -> LONG { return DB_GetLastCfgID(Blank<LONG>()); }},
    {"DB_OpenTTest", 3, []() -> LONG { return DB_OpenTTest(); }},
    {"DB_CloseTTest", 3, []() -> LONG { return DB_CloseTTest(); }},
    {"DB_IsTTestOpen", 0, []() -> LONG { return DB_IsTTestOpen(); }},
    {"DB_GetTTestIndexPos", 0, []() -> LONG { return DB_GetTTestIndexPos(); }},
    {"DB_MoveToTTestByPos", 0, []() -> LONG { return DB_MoveToTTestByPos(1); }},
    {"DB_MoveToTTestByDelta", 0, []() -> LONG { return DB_MoveToTTestByDelta(1); }},
    {"DB_GetTTestMaxPos", 3, []() -> LONG { return DB_GetTTestMaxPos(Blank<LONG>()); }},
    {"DB_SetTTestFilter", 3, Filter<DB_SetTTestFilter>},
    {"DB_SetTTestSortIndex", 3, []() -> LONG { return DB_SetTTestSortIndex(1); }},
    {"DB_GetTTestByPos", 3, []() -> LONG { return DB_GetTTestByPos(1, Blank<tagTTEST>()); }},
    {"DB_DeleteTTestByPos", 3, []() -> LONG { return DB_DeleteTTestByPos(1); }},
    {"DB_AddNewTTest", 3, []() -> LONG { return DB_AddNewTTest(Blank<tagTTEST>()); }},
    {"DB_EditSelTTest", 3, []() -> LONG { return DB_EditSelTTest(Blank<tagTTEST>(), KYODBC_MASK_ALL); }},
    {"DB_EditTTest", 3, []() -> LONG { return DB_EditTTest(Blank<tagTTEST>()); }},
    {"DB_DeleteTTest", 3, []() -> LONG { return DB_DeleteTTest(Blank<tagTTEST>()); }},
    {"DB_GetTTest", 3, []() -> LONG { return DB_GetTTest(Blank<tagTTEST>()); }},
    {"DB_GetNumTTest", 3, []() -> LONG { return DB_GetNumTTest(1, Blank<LONG>()); }},
    {"DB_GetLastTestID", 3, []() -> LONG { return DB_GetLastTestID(Blank<LONG>()); }},
    {"DB_GetLastTTestDate", 3, []() -> LONG { return DB_GetLastTTestDate(1, Blank<LONG>(), nullptr); }},
    {"DB_AddNewPat", 3, []() -> LONG { return DB_AddNewPat(Blank<tagPATIENTCOMPACT>()); }},
    {"DB_EditPat", 3, []() -> LONG { return DB_EditPat(Blank<tagPATIENTCOMPACT>()); }},
    {"DB_EditSelPat", 3, []() -> LONG { return DB_EditSelPat(Blank<tagPATIENTCOMPACT>(), KYODBC_MASK_ALL); }},
    {"DB_DeletePat", 3, []() -> LONG { return DB_DeletePat(Blank<tagPATIENTCOMPACT>()); }},
    {"DB_GetPat", 3, []() -> LONG { return DB_GetPat(Blank<tagPATIENTCOMPACT>()); }},
    {"DB_GetPatByPos", 3, []() -> LONG { return DB_GetPatByPos(Blank<tagPATIENTCOMPACT>(), 1); }},
    {"DB_AddNewUnit", 3, []() -> LONG { return DB_AddNewUnit(Blank<tagPATIENTCOMPACT>()); }},
    {"DB_EditUnit", 3, []() -> LONG { return DB_EditUnit(Blank<tagPATIENTCOMPACT>()); }},
    {"DB_EditSelUnit", 3, []() -> LONG { return DB_EditSelUnit(Blank<tagPATIENTCOMPACT>(), 1); }},
    {"DB_DeleteUnit", 3, []() -> LONG { return DB_DeleteUnit(Blank<tagPATIENTCOMPACT>()); }},
    {"DB_GetUnit", 3, []() -> LONG { return DB_GetUnit(Blank<tagPATIENTCOMPACT>()); }},
    {"DB_GetUnitByPos", 3, []() -> LONG { return DB_GetUnitByPos(Blank<tagPATIENTCOMPACT>(), 1); }},
};
// clang-format on

class WithoutConnection : public testing::TestWithParam<Call> {};
INSTANTIATE_TEST_SUITE_P(Calls, WithoutConnection, testing::ValuesIn(kCalls),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_P(WithoutConnection, AnswersWithoutCrashing) {
  EXPECT_EQ(GetParam().run(), GetParam().answer);
  EXPECT_EQ(DB_IsDatabaseOpen(), 0);
}

TEST(WithoutAnyConnection, EveryExportedFunctionIsTried) {
  std::ifstream file(KYODBC_SOURCE_DIR "/frame/exports.txt");
  std::vector<std::string> exported;
  for (std::string line; std::getline(file, line);) {
    if (line.rfind("DB_", 0) == 0) exported.push_back(line.substr(0, line.find_first_of(" \t\r")));
  }
  std::vector<std::string> tried;
  for (const Call& call : kCalls) tried.emplace_back(call.name);
  std::sort(exported.begin(), exported.end());
  std::sort(tried.begin(), tried.end());
  EXPECT_EQ(tried.size(), 228u);
  EXPECT_EQ(tried, exported);
}

TEST(WithoutAnyConnection, RecordsStayAsTheyAre) {
  tagTTEST test{};
  EXPECT_EQ(DB_EditSelTTest(&test, KYODBC_MASK_ALL), 3);
  EXPECT_EQ(test.szPerson[0], '\0');
  tagTGROUP group{};
  EXPECT_EQ(DB_AddNewTGrp(&group), 3);
  EXPECT_EQ(group.szLoc[0], '\0');
  LONG count = 77;
  EXPECT_EQ(DB_GetTPatMaxPos(&count), 3);
  EXPECT_EQ(DB_GetNumTPat(&count), 3);
  EXPECT_EQ(DB_GetLastPatID(&count), 3);
  EXPECT_EQ(DB_GetLastTImgDate(0, &count, nullptr), 3);
  EXPECT_EQ(count, 77);
}

TEST(WithoutAnyConnection, NullArgumentsComeSecond) {
  EXPECT_EQ(DB_GetTStatByPos(1, nullptr), 3);
  EXPECT_EQ(DB_AddNewTStat(nullptr), 3);
  EXPECT_EQ(DB_GetTStatMaxPos(nullptr), 3);
  EXPECT_EQ(DB_GetNumTStat(nullptr), 3);
  EXPECT_EQ(DB_GetNumPatEx(nullptr), 3);
  EXPECT_EQ(DB_AddNewPat(nullptr), 3);
  EXPECT_EQ(DB_MoveToTPatByString(nullptr), 0);
}

}  // namespace
