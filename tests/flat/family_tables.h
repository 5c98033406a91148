// The ten tables' flat calls side by side, so that one set of cases runs for all of them.
#ifndef KYODBC_TESTS_FLAT_FAMILY_TABLES_H
#define KYODBC_TESTS_FLAT_FAMILY_TABLES_H

#include <string>

#include "frame/KyODBC.h"
#include "tests/support/records.h"

namespace family {

// Each struct has the calls of one table; the table under its short name; and Fill, which makes the n-th
// (1 to 60) of a series of records with key 0, natural keys of their own, and every field different from the
// record before. ShownText is the text that ChangeText alters; it belongs to no natural key unless the table
// has nothing else.

inline std::string Digit(int n) { return std::to_string(n % 10); }

struct Doctors {
  using Record = tagTDOCTOR;
  static constexpr char kName[] = "TDr";
  static constexpr char kTable[] = "TDoctor";
  static constexpr char kKeyColumn[] = "tDrCulIntDrIDPk";
  static constexpr char kTextColumn[] = "tDrSName";
  static constexpr WORD kNotFound = 64;
  static constexpr bool kHasNaturalKey = true;
  static constexpr bool kCountIgnoresNull = true;
  static constexpr auto Open = DB_OpenTDr;
  static constexpr auto Close = DB_CloseTDr;
  static constexpr auto IsOpen = DB_IsTDrOpen;
  static constexpr auto IndexPos = DB_GetTDrIndexPos;
  static constexpr auto MoveByPos = DB_MoveToTDrByPos;
  static constexpr auto MoveByDelta = DB_MoveToTDrByDelta;
  static constexpr auto SetFilter = DB_SetTDrFilter;
  static constexpr auto SetSort = DB_SetTDrSortIndex;
  static constexpr auto DeleteByPos = DB_DeleteTDrByPos;
  static constexpr auto GetByPos = DB_GetTDrByPos;
  static constexpr auto MaxPos = DB_GetTDrMaxPos;
  static constexpr auto Add = DB_AddNewTDr;
  static constexpr auto Edit = DB_EditTDr;
  static constexpr auto EditSel = DB_EditSelTDr;
  static constexpr auto Delete = DB_DeleteTDr;
  static constexpr auto Get = DB_GetTDr;
  static constexpr auto Num = DB_GetNumTDr;
  static constexpr auto LastID = DB_GetLastDrID;

  static Record Fill(int n) {
    Record record{};
    support::SetText(record.szName, "Doctor " + std::to_string(n));
    support::SetText(record.szSrvID, "SRV" + std::to_string(n));
    return record;
  }
  static std::string ShownText(const Record& record) { return support::Text(record.szName); }
  static void ChangeText(Record* record, const std::string& text = "changed") {
    support::SetText(record->szName, text);
  }
};

struct Stations {
  using Record = tagTSTATION;
  static constexpr char kName[] = "TStat";
  static constexpr char kTable[] = "TStation";
  static constexpr char kKeyColumn[] = "tStatCulIntStatIDPk";
  static constexpr char kTextColumn[] = "tStatSName";
  static constexpr WORD kNotFound = 64;
  static constexpr bool kHasNaturalKey = true;
  static constexpr bool kCountIgnoresNull = true;
  static constexpr auto Open = DB_OpenTStat;
  static constexpr auto Close = DB_CloseTStat;
  static constexpr auto IsOpen = DB_IsTStatOpen;
  static constexpr auto IndexPos = DB_GetTStatIndexPos;
  static constexpr auto MoveByPos = DB_MoveToTStatByPos;
  static constexpr auto MoveByDelta = DB_MoveToTStatByDelta;
  static constexpr auto SetFilter = DB_SetTStatFilter;
  static constexpr auto SetSort = DB_SetTStatSortIndex;
  static constexpr auto DeleteByPos = DB_DeleteTStatByPos;
  static constexpr auto GetByPos = DB_GetTStatByPos;
  static constexpr auto MaxPos = DB_GetTStatMaxPos;
  static constexpr auto Add = DB_AddNewTStat;
  static constexpr auto Edit = DB_EditTStat;
  static constexpr auto EditSel = DB_EditSelTStat;
  static constexpr auto Delete = DB_DeleteTStat;
  static constexpr auto Get = DB_GetTStat;
  static constexpr auto Num = DB_GetNumTStat;
  static constexpr auto LastID = DB_GetLastStatID;

  static Record Fill(int n) {
    Record record{};
    support::SetText(record.szName, "Station " + std::to_string(n));
    return record;
  }
  static std::string ShownText(const Record& record) { return support::Text(record.szName); }
  static void ChangeText(Record* record, const std::string& text = "changed") {
    support::SetText(record->szName, text);
  }
};

struct Units {
  using Record = tagTUNIT;
  static constexpr char kName[] = "TUnit";
  static constexpr char kTable[] = "TUnit";
  static constexpr char kKeyColumn[] = "tUnitCulIntUnitIDPk";
  static constexpr char kTextColumn[] = "tUnitSTubeSNo";
  static constexpr WORD kNotFound = 66;
  static constexpr bool kHasNaturalKey = true;
  static constexpr bool kCountIgnoresNull = true;
  static constexpr auto Open = DB_OpenTUnit;
  static constexpr auto Close = DB_CloseTUnit;
  static constexpr auto IsOpen = DB_IsTUnitOpen;
  static constexpr auto IndexPos = DB_GetTUnitIndexPos;
  static constexpr auto MoveByPos = DB_MoveToTUnitByPos;
  static constexpr auto MoveByDelta = DB_MoveToTUnitByDelta;
  static constexpr auto SetFilter = DB_SetTUnitFilter;
  static constexpr auto SetSort = DB_SetTUnitSortIndex;
  static constexpr auto DeleteByPos = DB_DeleteTUnitByPos;
  static constexpr auto GetByPos = DB_GetTUnitByPos;
  static constexpr auto MaxPos = DB_GetTUnitMaxPos;
  static constexpr auto Add = DB_AddNewTUnit;
  static constexpr auto Edit = DB_EditTUnit;
  static constexpr auto EditSel = DB_EditSelTUnit;
  static constexpr auto Delete = DB_DeleteTUnit;
  static constexpr auto Get = DB_GetTUnit;
  static constexpr auto Num = DB_GetNumTUnit;
  static constexpr auto LastID = DB_GetLastUnitID;

  static Record Fill(int n) {
    Record record{};
    support::SetText(record.szType, "T" + Digit(n));
    support::SetText(record.szName, "Unit " + std::to_string(n));
    record.dAccept = support::Ts(2001 + n, 3, 4);
    support::SetText(record.szCtrlUnitSNo, "CU" + std::to_string(n));
    support::SetText(record.szSensSNo, "SE" + std::to_string(n));
    support::SetText(record.szGenSNo, "GE" + std::to_string(n));
    support::SetText(record.szTubeSNo, "TU" + std::to_string(n));
    support::SetText(record.szCtrlElemSNo, "CE" + std::to_string(n));
    support::SetText(record.szConeSNo, "CO" + std::to_string(n));
    support::SetText(record.szTestBodySNo, "TB" + std::to_string(n));
    return record;
  }
  static std::string ShownText(const Record& record) { return support::Text(record.szTubeSNo); }
  static void ChangeText(Record* record, const std::string& text = "changed") {
    support::SetText(record->szTubeSNo, text);
  }
};

struct Patients {
  using Record = tagTPATIENT;
  static constexpr char kName[] = "TPat";
  static constexpr char kTable[] = "TPatient";
  static constexpr char kKeyColumn[] = "tPatCulIntPatIDPk";
  static constexpr char kTextColumn[] = "tPatSFirstname";
  static constexpr WORD kNotFound = 21;
  static constexpr bool kHasNaturalKey = true;
  static constexpr bool kCountIgnoresNull = true;
  static constexpr auto Open = DB_OpenTPat;
  static constexpr auto Close = DB_CloseTPat;
  static constexpr auto IsOpen = DB_IsTPatOpen;
  static constexpr auto IndexPos = DB_GetTPatIndexPos;
  static constexpr auto MoveByPos = DB_MoveToTPatByPos;
  static constexpr auto MoveByDelta = DB_MoveToTPatByDelta;
  static constexpr auto SetFilter = DB_SetTPatFilter;
  static constexpr auto SetSort = DB_SetTPatSortIndex;
  static constexpr auto DeleteByPos = DB_DeleteTPatByPos;
  static constexpr auto GetByPos = DB_GetTPatByPos;
  static constexpr auto MaxPos = DB_GetTPatMaxPos;
  static constexpr auto Add = DB_AddNewTPat;
  static constexpr auto Edit = DB_EditTPat;
  static constexpr auto EditSel = DB_EditSelTPat;
  static constexpr auto Delete = DB_DeleteTPat;
  static constexpr auto Get = DB_GetTPat;
  static constexpr auto Num = DB_GetNumTPat;
  static constexpr auto LastID = DB_GetLastPatID;

  static Record Fill(int n) {
    Record record{};
    record.lDrID = 10 + n;
    support::SetText(record.szExtPatID, "EXT" + std::to_string(n));
    support::SetText(record.szSrvID, "SRV" + std::to_string(n));
    support::SetText(record.szSlidaID, "SLIDA" + std::to_string(n));
    support::SetText(record.szSocID, "SOC" + std::to_string(n));
    support::SetText(record.szName, "Surname " + std::to_string(n));
    support::SetText(record.szFirstname, "Firstname " + std::to_string(n));
    record.dBirthday = support::Ts(1950 + n % 50, 1 + n % 12, 1 + n % 28);
    support::SetText(record.szSex, n % 2 == 0 ? "f" : "m");
    record.lSelect = n % 2;
    return record;
  }
  static std::string ShownText(const Record& record) { return support::Text(record.szFirstname); }
  static void ChangeText(Record* record, const std::string& text = "changed") {
    support::SetText(record->szFirstname, text);
  }
};

struct Images {
  using Record = tagTIMAGE;
  static constexpr char kName[] = "TImg";
  static constexpr char kTable[] = "TImage";
  static constexpr char kKeyColumn[] = "tImgCulIntImgIDPk";
  static constexpr char kTextColumn[] = "tImgSName";
  static constexpr WORD kNotFound = 65;
  static constexpr bool kHasNaturalKey = true;
  static constexpr bool kCountIgnoresNull = false;
  static constexpr auto Open = DB_OpenTImg;
  static constexpr auto Close = DB_CloseTImg;
  static constexpr auto IsOpen = DB_IsTImgOpen;
  static constexpr auto IndexPos = DB_GetTImgIndexPos;
  static constexpr auto MoveByPos = DB_MoveToTImgByPos;
  static constexpr auto MoveByDelta = DB_MoveToTImgByDelta;
  static constexpr auto SetFilter = DB_SetTImgFilter;
  static constexpr auto SetSort = DB_SetTImgSortIndex;
  static constexpr auto DeleteByPos = DB_DeleteTImgByPos;
  static constexpr auto GetByPos = DB_GetTImgByPos;
  static constexpr auto MaxPos = DB_GetTImgMaxPos;
  static constexpr auto Add = DB_AddNewTImg;
  static constexpr auto Edit = DB_EditTImg;
  static constexpr auto EditSel = DB_EditSelTImg;
  static constexpr auto Delete = DB_DeleteTImg;
  static constexpr auto Get = DB_GetTImg;
  static WORD Num(LONG* count) { return DB_GetNumTImg(0, count); }
  static constexpr auto LastID = DB_GetLastImgID;

  static Record Fill(int n) {
    Record record{};
    record.lPatID = 100 + n;
    record.lUnitID = 20 + n;
    record.lDrID = 10 + n;
    support::SetText(record.szType, "T" + Digit(n));
    support::SetText(record.szRegio, "R" + std::to_string(n));
    support::SetText(record.szName, "Image " + std::to_string(n));
    record.ts = support::Ts(2001, 5, 6, 10, n / 60, n % 60);
    support::SetText(record.szPreg, Digit(n));
    support::SetText(record.szOrdType, "O" + Digit(n));
    support::SetText(record.szOrdRegio, "OR" + std::to_string(n));
    support::SetText(record.szOrdReason, "Reason " + std::to_string(n));
    support::SetText(record.szArcType, "A" + Digit(n));
    support::SetText(record.szArcLoc, Digit(n));
    support::SetText(record.szArcFile, "arc" + std::to_string(n));
    support::SetText(record.szArcVol, "V" + std::to_string(n));
    record.dArcOut = support::Ts(2002 + n, 1, 2);
    record.dArcIn = support::Ts(2002 + n, 2, 3);
    support::SetText(record.szPvwLoc, Digit(n));
    support::SetText(record.szPvwFile, "pvw" + std::to_string(n));
    support::SetText(record.szFile, "img" + std::to_string(n));
    record.lMakIDLast = 30 + n;
    return record;
  }
  static std::string ShownText(const Record& record) { return support::Text(record.szName); }
  static void ChangeText(Record* record, const std::string& text = "changed") {
    support::SetText(record->szName, text);
  }
};

struct Makros {
  using Record = tagTMAKRO;
  static constexpr char kName[] = "TMak";
  static constexpr char kTable[] = "TMakro";
  static constexpr char kKeyColumn[] = "tMakCulIntMakIDPk";
  static constexpr char kTextColumn[] = "tMakSName";
  static constexpr WORD kNotFound = 64;
  static constexpr bool kHasNaturalKey = true;
  static constexpr bool kCountIgnoresNull = false;
  static constexpr auto Open = DB_OpenTMak;
  static constexpr auto Close = DB_CloseTMak;
  static constexpr auto IsOpen = DB_IsTMakOpen;
  static constexpr auto IndexPos = DB_GetTMakIndexPos;
  static constexpr auto MoveByPos = DB_MoveToTMakByPos;
  static constexpr auto MoveByDelta = DB_MoveToTMakByDelta;
  static constexpr auto SetFilter = DB_SetTMakFilter;
  static constexpr auto SetSort = DB_SetTMakSortIndex;
  static constexpr auto DeleteByPos = DB_DeleteTMakByPos;
  static constexpr auto GetByPos = DB_GetTMakByPos;
  static constexpr auto MaxPos = DB_GetTMakMaxPos;
  static constexpr auto Add = DB_AddNewTMak;
  static constexpr auto Edit = DB_EditTMak;
  static constexpr auto EditSel = DB_EditSelTMak;
  static constexpr auto Delete = DB_DeleteTMak;
  static constexpr auto Get = DB_GetTMak;
  static WORD Num(LONG* count) { return DB_GetNumTMak(0, count); }
  static constexpr auto LastID = DB_GetLastMakID;

  static Record Fill(int n) {
    Record record{};
    record.lImgID = 200 + n;
    support::SetText(record.szName, "Makro " + std::to_string(n));
    record.tsLast = support::Ts(2001, 5, 6);
    support::SetText(record.szFile, "mak" + std::to_string(n));
    support::SetText(record.szLoc, Digit(n));
    record.wNo = static_cast<WORD>(n);
    return record;
  }
  static std::string ShownText(const Record& record) { return support::Text(record.szName); }
  static void ChangeText(Record* record, const std::string& text = "changed") {
    support::SetText(record->szName, text);
  }
};

struct Groups {
  using Record = tagTGROUP;
  static constexpr char kName[] = "TGrp";
  static constexpr char kTable[] = "TGroup";
  static constexpr char kKeyColumn[] = "tGrpCulIntGrpIDPk";
  static constexpr char kTextColumn[] = "tGrpSName";
  static constexpr WORD kNotFound = 64;
  static constexpr bool kHasNaturalKey = true;
  static constexpr bool kCountIgnoresNull = false;
  static constexpr auto Open = DB_OpenTGrp;
  static constexpr auto Close = DB_CloseTGrp;
  static constexpr auto IsOpen = DB_IsTGrpOpen;
  static constexpr auto IndexPos = DB_GetTGrpIndexPos;
  static constexpr auto MoveByPos = DB_MoveToTGrpByPos;
  static constexpr auto MoveByDelta = DB_MoveToTGrpByDelta;
  static constexpr auto SetFilter = DB_SetTGrpFilter;
  static constexpr auto SetSort = DB_SetTGrpSortIndex;
  static constexpr auto DeleteByPos = DB_DeleteTGrpByPos;
  static constexpr auto GetByPos = DB_GetTGrpByPos;
  static constexpr auto MaxPos = DB_GetTGrpMaxPos;
  static constexpr auto Add = DB_AddNewTGrp;
  static constexpr auto Edit = DB_EditTGrp;
  static constexpr auto EditSel = DB_EditSelTGrp;
  static constexpr auto Delete = DB_DeleteTGrp;
  static constexpr auto Get = DB_GetTGrp;
  static WORD Num(LONG* count) { return DB_GetNumTGrp(0, count); }
  static constexpr auto LastID = DB_GetLastGrpID;

  static Record Fill(int n) {
    Record record{};
    record.lPatID = 100 + n;
    support::SetText(record.szName, "Group " + std::to_string(n));
    record.ts = support::Ts(2001, 5, 6, 11, n / 60, n % 60);
    support::SetText(record.szFile, "grp" + std::to_string(n));
    record.wMakNo = static_cast<WORD>(n);
    support::SetText(record.szPvwFile, "pvw" + std::to_string(n));
    support::SetText(record.szPvwLoc, Digit(n));
    return record;
  }
  static std::string ShownText(const Record& record) { return support::Text(record.szName); }
  static void ChangeText(Record* record, const std::string& text = "changed") {
    support::SetText(record->szName, text);
  }
};

struct Diagnoses {
  using Record = tagTDIAGNOSIS;
  static constexpr char kName[] = "TDiag";
  static constexpr char kTable[] = "TDiagnosis";
  static constexpr char kKeyColumn[] = "tDiagCulIntDiagIDPk";
  static constexpr char kTextColumn[] = "tDiagSText";
  static constexpr WORD kNotFound = 64;
  static constexpr bool kHasNaturalKey = false;
  static constexpr bool kCountIgnoresNull = true;
  static constexpr auto Open = DB_OpenTDiag;
  static constexpr auto Close = DB_CloseTDiag;
  static constexpr auto IsOpen = DB_IsTDiagOpen;
  static constexpr auto IndexPos = DB_GetTDiagIndexPos;
  static constexpr auto MoveByPos = DB_MoveToTDiagByPos;
  static constexpr auto MoveByDelta = DB_MoveToTDiagByDelta;
  static constexpr auto SetFilter = DB_SetTDiagFilter;
  static constexpr auto SetSort = DB_SetTDiagSortIndex;
  static constexpr auto DeleteByPos = DB_DeleteTDiagByPos;
  static constexpr auto GetByPos = DB_GetTDiagByPos;
  static constexpr auto MaxPos = DB_GetTDiagMaxPos;
  static constexpr auto Add = DB_AddNewTDiag;
  static constexpr auto Edit = DB_EditTDiag;
  static constexpr auto EditSel = DB_EditSelTDiag;
  static constexpr auto Delete = DB_DeleteTDiag;
  static constexpr auto Get = DB_GetTDiag;
  static constexpr auto Num = DB_GetNumTDiag;
  static constexpr auto LastID = DB_GetLastDiagID;

  static Record Fill(int n) {
    Record record{};
    record.lImgID = 200 + n;
    record.lDrID = 10 + n;
    support::SetText(record.szRegio, "R" + std::to_string(n));
    record.ts = support::Ts(2001, 5, 6, 12, n / 60, n % 60);
    support::SetText(record.szCode, "C" + std::to_string(n));
    support::SetText(record.szText, "Diagnosis " + std::to_string(n));
    return record;
  }
  static std::string ShownText(const Record& record) { return support::Text(record.szText); }
  static void ChangeText(Record* record, const std::string& text = "changed") {
    support::SetText(record->szText, text);
  }
};

struct Configs {
  using Record = tagTCONFIG;
  static constexpr char kName[] = "TCfg";
  static constexpr char kTable[] = "TConfig";
  static constexpr char kKeyColumn[] = "tCfgCulIntCfgIDPk";
  static constexpr char kTextColumn[] = "tCfgSSet";
  static constexpr WORD kNotFound = 64;
  static constexpr bool kHasNaturalKey = true;
  static constexpr bool kCountIgnoresNull = true;
  static constexpr auto Open = DB_OpenTCfg;
  static constexpr auto Close = DB_CloseTCfg;
  static constexpr auto IsOpen = DB_IsTCfgOpen;
  static constexpr auto IndexPos = DB_GetTCfgIndexPos;
  static constexpr auto MoveByPos = DB_MoveToTCfgByPos;
  static constexpr auto MoveByDelta = DB_MoveToTCfgByDelta;
  static constexpr auto SetFilter = DB_SetTCfgFilter;
  static constexpr auto SetSort = DB_SetTCfgSortIndex;
  static constexpr auto DeleteByPos = DB_DeleteTCfgByPos;
  static constexpr auto GetByPos = DB_GetTCfgByPos;
  static constexpr auto MaxPos = DB_GetTCfgMaxPos;
  static constexpr auto Add = DB_AddNewTCfg;
  static constexpr auto Edit = DB_EditTCfg;
  static constexpr auto EditSel = DB_EditSelTCfg;
  static constexpr auto Delete = DB_DeleteTCfg;
  static constexpr auto Get = DB_GetTCfg;
  static constexpr auto Num = DB_GetNumTCfg;
  static constexpr auto LastID = DB_GetLastCfgID;

  static Record Fill(int n) {
    Record record{};
    record.lDrID = 10 + n;
    record.lStatID = 30 + n;
    support::SetText(record.szKey, "Key " + std::to_string(n));
    support::SetText(record.szSet, "Setting " + std::to_string(n));
    return record;
  }
  static std::string ShownText(const Record& record) { return support::Text(record.szSet); }
  static void ChangeText(Record* record, const std::string& text = "changed") {
    support::SetText(record->szSet, text);
  }
};

struct Tests {
  using Record = tagTTEST;
  static constexpr char kName[] = "TTest";
  static constexpr char kTable[] = "TTest";
  static constexpr char kKeyColumn[] = "tTstCulIntTstIDPk";
  static constexpr char kTextColumn[] = "tTstSName";
  static constexpr WORD kNotFound = 67;
  static constexpr bool kHasNaturalKey = true;
  static constexpr bool kCountIgnoresNull = false;
  static constexpr auto Open = DB_OpenTTest;
  static constexpr auto Close = DB_CloseTTest;
  static constexpr auto IsOpen = DB_IsTTestOpen;
  static constexpr auto IndexPos = DB_GetTTestIndexPos;
  static constexpr auto MoveByPos = DB_MoveToTTestByPos;
  static constexpr auto MoveByDelta = DB_MoveToTTestByDelta;
  static constexpr auto SetFilter = DB_SetTTestFilter;
  static constexpr auto SetSort = DB_SetTTestSortIndex;
  static constexpr auto DeleteByPos = DB_DeleteTTestByPos;
  static constexpr auto GetByPos = DB_GetTTestByPos;
  static constexpr auto MaxPos = DB_GetTTestMaxPos;
  static constexpr auto Add = DB_AddNewTTest;
  static constexpr auto Edit = DB_EditTTest;
  static constexpr auto EditSel = DB_EditSelTTest;
  static constexpr auto Delete = DB_DeleteTTest;
  static constexpr auto Get = DB_GetTTest;
  static WORD Num(LONG* count) { return DB_GetNumTTest(0, count); }
  static constexpr auto LastID = DB_GetLastTestID;

  static Record Fill(int n) {
    Record record{};
    record.lUnitID = 20 + n;
    support::SetText(record.szPerson, "Person " + std::to_string(n));
    support::SetText(record.szType, "T" + Digit(n));
    support::SetText(record.szRegio, "R" + std::to_string(n));
    support::SetText(record.szName, "Test " + std::to_string(n));
    record.ts = support::Ts(2001, 5, 6, 13, n / 60, n % 60);
    support::SetText(record.szResult, "Result " + std::to_string(n));
    support::SetText(record.szArcType, "A" + Digit(n));
    support::SetText(record.szArcLoc, Digit(n));
    support::SetText(record.szArcFile, "arc" + std::to_string(n));
    support::SetText(record.szArcVol, "V" + std::to_string(n));
    record.dArcOut = support::Ts(2002 + n, 1, 2);
    record.dArcIn = support::Ts(2002 + n, 2, 3);
    support::SetText(record.szFile, "tst" + std::to_string(n));
    return record;
  }
  static std::string ShownText(const Record& record) { return support::Text(record.szName); }
  static void ChangeText(Record* record, const std::string& text = "changed") {
    support::SetText(record->szName, text);
  }
};

}  // namespace family

#endif
