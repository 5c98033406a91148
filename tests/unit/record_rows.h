// The ten record classes member by member: the column of each, and the field of the plain record it is copied
// from, in the order that the classes promise. Kept apart from the sources, so that the two check each other.
#ifndef KYODBC_TESTS_UNIT_RECORD_ROWS_H
#define KYODBC_TESTS_UNIT_RECORD_ROWS_H

#include <cstddef>
#include <vector>

#include "tables/config.h"
#include "tables/diagnosis.h"
#include "tables/doctor.h"
#include "tables/group.h"
#include "tables/image.h"
#include "tables/makro.h"
#include "tables/patient.h"
#include "tables/station.h"
#include "tables/test.h"
#include "tables/unit.h"

struct RecordSlot {
  std::size_t offset;
  std::size_t size;  // 0: the plain record lacks the column
};

inline constexpr RecordSlot kNoSlot = {0, 0};

// One member: exactly one of the three pointers is set.
struct Row {
  Row(const char* expected, const char* constant, LONG& member, RecordSlot record_slot)
      : name(expected), column(constant), slot(record_slot), number(&member) {}
  Row(const char* expected, const char* constant, CString& member, RecordSlot record_slot)
      : name(expected), column(constant), slot(record_slot), text(&member) {}
  Row(const char* expected, const char* constant, TIMESTAMP_STRUCT& member, RecordSlot record_slot)
      : name(expected), column(constant), slot(record_slot), time(&member) {}

  const char* name;    // what the column is called
  const char* column;  // what the column's constant holds
  RecordSlot slot;
  LONG* number = nullptr;
  CString* text = nullptr;
  TIMESTAMP_STRUCT* time = nullptr;
};

#define ROW(column, member, slot) Row(#column, column, member, slot)
#define SLOT(field) \
  { offsetof(Record, field), sizeof(Record::field) }

template <class Class>
struct Case;

template <>
struct Case<CTCfgRaw> {
  using Record = tagTCONFIG;
  static constexpr std::size_t kColumns = 7;
  static std::vector<Row> Rows(CTCfgRaw& object) {
    return {
        ROW(tCfgCulIntCfgIDPk, object.m_lCfgID, SLOT(lCfgID)),
        ROW(tCfgCulIntDrIDFk, object.m_lDrID, SLOT(lDrID)),
        ROW(tCfgCulIntStatIDFk, object.m_lStatID, SLOT(lStatID)),
        ROW(tCfgSKey, object.m_strKey, SLOT(szKey)),
        ROW(tCfgSSet, object.m_strSet, SLOT(szSet)),
        ROW(tCfgSAdd, object.m_strAdd, kNoSlot),
        ROW(tCfgSPerson, object.m_strPerson, kNoSlot),
    };
  }
};

template <>
struct Case<CTDiagRaw> {
  using Record = tagTDIAGNOSIS;
  static constexpr std::size_t kColumns = 10;
  static std::vector<Row> Rows(CTDiagRaw& object) {
    return {
        ROW(tDiagCulIntDiagIDPk, object.m_lDiagID, SLOT(lDiagID)),
        ROW(tDiagCulIntImgIDFk, object.m_lImgID, SLOT(lImgID)),
        ROW(tDiagCulIntDrIDFk, object.m_lDrID, SLOT(lDrID)),
        ROW(tDiagSRegio, object.m_strRegio, SLOT(szRegio)),
        ROW(tDiagTs, object.m_ts, SLOT(ts)),
        ROW(tDiagSCode, object.m_strCode, SLOT(szCode)),
        ROW(tDiagSText, object.m_strText, SLOT(szText)),
        ROW(tDiagSResponsible, object.m_strResponsible, kNoSlot),
        ROW(tDiagIntMakID, object.m_lMakID, kNoSlot),
        ROW(tDiagSAdd, object.m_strAdd, kNoSlot),
    };
  }
};

template <>
struct Case<CTDrRaw> {
  using Record = tagTDOCTOR;
  static constexpr std::size_t kColumns = 5;
  static std::vector<Row> Rows(CTDrRaw& object) {
    return {
        ROW(tDrCulIntDrIDPk, object.m_lDrID, SLOT(lDrID)),
        ROW(tDrSSrvID, object.m_strSrvID, SLOT(szSrvID)),
        ROW(tDrSName, object.m_strName, SLOT(szName)),
        ROW(tDrFAct, object.m_bAct, kNoSlot),
        ROW(tDrSAdd, object.m_strAdd, kNoSlot),
    };
  }
};

template <>
struct Case<CTGrpRaw> {
  using Record = tagTGROUP;
  static constexpr std::size_t kColumns = 12;
  static std::vector<Row> Rows(CTGrpRaw& object) {
    return {
        ROW(tGrpCulIntGrpIDPk, object.m_lGrpID, SLOT(lGrpID)),
        ROW(tGrpCulIntPatIDFk, object.m_lPatID, SLOT(lPatID)),
        ROW(tGrpSName, object.m_strName, SLOT(szName)),
        ROW(tGrpTs, object.m_ts, SLOT(ts)),
        ROW(tGrpSLoc, object.m_strLoc, SLOT(szLoc)),
        ROW(tGrpSFile, object.m_strFile, SLOT(szFile)),
        ROW(tGrpUwMakNo, object.m_lMakNo, SLOT(wMakNo)),
        ROW(tGrpSPvwLoc, object.m_strPvwLoc, SLOT(szPvwLoc)),
        ROW(tGrpSPvwFile, object.m_strPvwFile, SLOT(szPvwFile)),
        ROW(tGrpTsLast, object.m_tsLast, kNoSlot),
        ROW(tGrpSResponsible, object.m_strResponsible, kNoSlot),
        ROW(tGrpSAdd, object.m_strAdd, kNoSlot),
    };
  }
};

template <>
struct Case<CTImageRaw> {
  using Record = tagTIMAGE;
  static constexpr std::size_t kColumns = 26;
  static std::vector<Row> Rows(CTImageRaw& object) {
    return {
        ROW(tImgCulIntImgIDPk, object.m_lImgID, SLOT(lImgID)),
        ROW(tImgCulIntPatIDFk, object.m_lPatID, SLOT(lPatID)),
        ROW(tImgCulIntUnitIDFk, object.m_lUnitID, SLOT(lUnitID)),
        ROW(tImgCulIntDrIDFk, object.m_lDrID, SLOT(lDrID)),
        ROW(tImgSType, object.m_strType, SLOT(szType)),
        ROW(tImgSRegio, object.m_strRegio, SLOT(szRegio)),
        ROW(tImgSName, object.m_strName, SLOT(szName)),
        ROW(tImgTs, object.m_ts, SLOT(ts)),
        ROW(tImgSPreg, object.m_strPreg, SLOT(szPreg)),
        ROW(tImgSOrdType, object.m_strOrdType, SLOT(szOrdType)),
        ROW(tImgSOrdRegio, object.m_strOrdRegio, SLOT(szOrdRegio)),
        ROW(tImgSOrdReason, object.m_strOrdReason, SLOT(szOrdReason)),
        ROW(tImgSArcType, object.m_strArcType, SLOT(szArcType)),
        ROW(tImgSArcLoc, object.m_strArcLoc, SLOT(szArcLoc)),
        ROW(tImgSArcFile, object.m_strArcFile, SLOT(szArcFile)),
        ROW(tImgSArcVol, object.m_strArcVol, SLOT(szArcVol)),
        ROW(tImgDArcOut, object.m_dArcOut, SLOT(dArcOut)),
        ROW(tImgDArcIn, object.m_dArcIn, SLOT(dArcIn)),
        ROW(tImgSPvwLoc, object.m_strPvwLoc, SLOT(szPvwLoc)),
        ROW(tImgSPvwFile, object.m_strPvwFile, SLOT(szPvwFile)),
        ROW(tImgSLoc, object.m_strLoc, SLOT(szLoc)),
        ROW(tImgSFile, object.m_strFile, SLOT(szFile)),
        ROW(tImgCulIntMakIDLast, object.m_lMakIDLast, SLOT(lMakIDLast)),
        ROW(tImgSResponsible, object.m_strResponsible, kNoSlot),
        ROW(tImgIntRefImgID, object.m_lRefImgID, kNoSlot),
        ROW(tImgSAdd, object.m_strAdd, kNoSlot),
    };
  }
};

template <>
struct Case<CTMakRaw> {
  using Record = tagTMAKRO;
  static constexpr std::size_t kColumns = 10;
  static std::vector<Row> Rows(CTMakRaw& object) {
    return {
        ROW(tMakCulIntMakIDPk, object.m_lMakID, SLOT(lMakID)),
        ROW(tMakCulIntImgIDFk, object.m_lImgID, SLOT(lImgID)),
        ROW(tMakSName, object.m_strName, SLOT(szName)),
        ROW(tMakTsLast, object.m_tsLast, SLOT(tsLast)),
        ROW(tMakSLoc, object.m_strLoc, SLOT(szLoc)),
        ROW(tMakSFile, object.m_strFile, SLOT(szFile)),
        ROW(tMakUwNo, object.m_lNo, SLOT(wNo)),
        ROW(tMakSAdd, object.m_strAdd, kNoSlot),
        ROW(tMakSRegio, object.m_strRegio, kNoSlot),
        ROW(tMakTsCreate, object.m_tsCreate, kNoSlot),
    };
  }
};

template <>
struct Case<CTPatientRaw> {
  using Record = tagTPATIENT;
  static constexpr std::size_t kColumns = 16;
  static std::vector<Row> Rows(CTPatientRaw& object) {
    return {
        ROW(tPatCulIntPatIDPk, object.m_lPatID, SLOT(lPatID)),
        ROW(tPatCulIntDrIDFk, object.m_lDrID, SLOT(lDrID)),
        ROW(tPatSExtPatID, object.m_strExtPatID, SLOT(szExtPatID)),
        ROW(tPatSSrvID, object.m_strSrvID, SLOT(szSrvID)),
        ROW(tPatSSlidaID, object.m_strSlidaID, SLOT(szSlidaID)),
        ROW(tPatSSocID, object.m_strSocID, SLOT(szSocID)),
        ROW(tPatSName, object.m_strName, SLOT(szName)),
        ROW(tPatSFirstname, object.m_strFirstname, SLOT(szFirstname)),
        ROW(tPatDBirthday, object.m_dBirthday, SLOT(dBirthday)),
        ROW(tPatSSex, object.m_strSex, SLOT(szSex)),
        ROW(tPatDEntry, object.m_dEntry, SLOT(dEntry)),
        ROW(tPatTsLastDisp, object.m_tsLastDisp, SLOT(tsLastDisp)),
        ROW(tPatSIDDisp, object.m_strIDDisp, SLOT(szIDDisp)),
        ROW(tPatFSelect, object.m_bSelect, SLOT(lSelect)),
        ROW(tPatSResponsible, object.m_strResponsible, kNoSlot),
        ROW(tPatSAdd, object.m_strAdd, kNoSlot),
    };
  }
};

template <>
struct Case<CTStatRaw> {
  using Record = tagTSTATION;
  static constexpr std::size_t kColumns = 3;
  static std::vector<Row> Rows(CTStatRaw& object) {
    return {
        ROW(tStatCulIntStatIDPk, object.m_lStatID, SLOT(lStatID)),
        ROW(tStatSName, object.m_strName, SLOT(szName)),
        ROW(tStatSAdd, object.m_strAdd, kNoSlot),
    };
  }
};

template <>
struct Case<CTTestRaw> {
  using Record = tagTTEST;
  static constexpr std::size_t kColumns = 17;
  static std::vector<Row> Rows(CTTestRaw& object) {
    return {
        ROW(tTstCulIntTstIDPk, object.m_lTstID, SLOT(lTstID)),
        ROW(tTstCulIntUnitIDFk, object.m_lUnitID, SLOT(lUnitID)),
        ROW(tTstSPerson, object.m_strPerson, SLOT(szPerson)),
        ROW(tTstSType, object.m_strType, SLOT(szType)),
        ROW(tTstSRegio, object.m_strRegio, SLOT(szRegio)),
        ROW(tTstSName, object.m_strName, SLOT(szName)),
        ROW(tTstTs, object.m_ts, SLOT(ts)),
        ROW(tTstSResult, object.m_strResult, SLOT(szResult)),
        ROW(tTstSLoc, object.m_strLoc, SLOT(szLoc)),
        ROW(tTstSFile, object.m_strFile, SLOT(szFile)),
        ROW(tTstSArcLoc, object.m_strArcLoc, SLOT(szArcLoc)),
        ROW(tTstSArcFile, object.m_strArcFile, SLOT(szArcFile)),
        ROW(tTstSArcVol, object.m_strArcVol, SLOT(szArcVol)),
        ROW(tTstSArcType, object.m_strArcType, SLOT(szArcType)),
        ROW(tTstDArcOut, object.m_dArcOut, SLOT(dArcOut)),
        ROW(tTstDArcIn, object.m_dArcIn, SLOT(dArcIn)),
        ROW(tTstSAdd, object.m_strAdd, kNoSlot),
    };
  }
};

template <>
struct Case<CTUnitRaw> {
  using Record = tagTUNIT;
  static constexpr std::size_t kColumns = 12;
  static std::vector<Row> Rows(CTUnitRaw& object) {
    return {
        ROW(tUnitCulIntUnitIDPk, object.m_lUnitID, SLOT(lUnitID)),
        ROW(tUnitSType, object.m_strType, SLOT(szType)),
        ROW(tUnitSName, object.m_strName, SLOT(szName)),
        ROW(tUnitDAccept, object.m_dAccept, SLOT(dAccept)),
        ROW(tUnitSCtrlUnitSNo, object.m_strCtrlUnitSNo, SLOT(szCtrlUnitSNo)),
        ROW(tUnitSSensSNo, object.m_strSensSNo, SLOT(szSensSNo)),
        ROW(tUnitSGenSNo, object.m_strGenSNo, SLOT(szGenSNo)),
        ROW(tUnitSTubeSNo, object.m_strTubeSNo, SLOT(szTubeSNo)),
        ROW(tUnitSCtrlElemSNo, object.m_strCtrlElemSNo, SLOT(szCtrlElemSNo)),
        ROW(tUnitSConeSNo, object.m_strConeSNo, SLOT(szConeSNo)),
        ROW(tUnitSTestBodySNo, object.m_strTestBodySNo, SLOT(szTestBodySNo)),
        ROW(tUnitSAdd, object.m_strAdd, kNoSlot),
    };
  }
};
#undef ROW
#undef SLOT

#endif
