// The text fields of the plain records, each with the column it is stored in.
#ifndef KYODBC_TESTS_FLAT_TEXT_FIELDS_H
#define KYODBC_TESTS_FLAT_TEXT_FIELDS_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include "tests/flat/family_tables.h"

namespace family {

struct TextField {
  const char* column;
  std::size_t offset;
  std::size_t width;  // with the zero byte

  template <class Record>
  void Set(Record* record, const std::string& text) const {
    char* field = reinterpret_cast<char*>(record) + offset;
    std::memset(field, 0, width);
    std::memcpy(field, text.data(), std::min(text.size(), width - 1));
  }
  template <class Record>
  std::string Get(const Record& record) const {
    const char* field = reinterpret_cast<const char*>(&record) + offset;
    return {field, strnlen(field, width)};
  }
};

#define KYODBC_TEXT_FIELD(column, field) \
  { column, offsetof(Record, field), sizeof(Record::field) }

// The display identifier of a patient is left out: the library derives it.
template <class Record>
std::vector<TextField> TextFields();

template <>
inline std::vector<TextField> TextFields<tagTDOCTOR>() {
  using Record = tagTDOCTOR;
  return {
      KYODBC_TEXT_FIELD("tDrSName", szName),
      KYODBC_TEXT_FIELD("tDrSSrvID", szSrvID),
  };
}

template <>
inline std::vector<TextField> TextFields<tagTSTATION>() {
  using Record = tagTSTATION;
  return {
      KYODBC_TEXT_FIELD("tStatSName", szName),
  };
}

template <>
inline std::vector<TextField> TextFields<tagTUNIT>() {
  using Record = tagTUNIT;
  return {
      KYODBC_TEXT_FIELD("tUnitSType", szType),
      KYODBC_TEXT_FIELD("tUnitSName", szName),
      KYODBC_TEXT_FIELD("tUnitSCtrlUnitSNo", szCtrlUnitSNo),
      KYODBC_TEXT_FIELD("tUnitSSensSNo", szSensSNo),
      KYODBC_TEXT_FIELD("tUnitSGenSNo", szGenSNo),
      KYODBC_TEXT_FIELD("tUnitSTubeSNo", szTubeSNo),
      KYODBC_TEXT_FIELD("tUnitSCtrlElemSNo", szCtrlElemSNo),
      KYODBC_TEXT_FIELD("tUnitSConeSNo", szConeSNo),
      KYODBC_TEXT_FIELD("tUnitSTestBodySNo", szTestBodySNo),
  };
}

template <>
inline std::vector<TextField> TextFields<tagTPATIENT>() {
  using Record = tagTPATIENT;
  return {
      KYODBC_TEXT_FIELD("tPatSExtPatID", szExtPatID), KYODBC_TEXT_FIELD("tPatSSrvID", szSrvID),
      KYODBC_TEXT_FIELD("tPatSSlidaID", szSlidaID),   KYODBC_TEXT_FIELD("tPatSSocID", szSocID),
      KYODBC_TEXT_FIELD("tPatSName", szName),         KYODBC_TEXT_FIELD("tPatSFirstname", szFirstname),
      KYODBC_TEXT_FIELD("tPatSSex", szSex),
  };
}

template <>
inline std::vector<TextField> TextFields<tagTIMAGE>() {
  using Record = tagTIMAGE;
  return {
      KYODBC_TEXT_FIELD("tImgSType", szType),           KYODBC_TEXT_FIELD("tImgSRegio", szRegio),
      KYODBC_TEXT_FIELD("tImgSName", szName),           KYODBC_TEXT_FIELD("tImgSPreg", szPreg),
      KYODBC_TEXT_FIELD("tImgSOrdType", szOrdType),     KYODBC_TEXT_FIELD("tImgSOrdRegio", szOrdRegio),
      KYODBC_TEXT_FIELD("tImgSOrdReason", szOrdReason), KYODBC_TEXT_FIELD("tImgSArcType", szArcType),
      KYODBC_TEXT_FIELD("tImgSArcLoc", szArcLoc),       KYODBC_TEXT_FIELD("tImgSArcFile", szArcFile),
      KYODBC_TEXT_FIELD("tImgSArcVol", szArcVol),       KYODBC_TEXT_FIELD("tImgSPvwLoc", szPvwLoc),
      KYODBC_TEXT_FIELD("tImgSPvwFile", szPvwFile),     KYODBC_TEXT_FIELD("tImgSLoc", szLoc),
      KYODBC_TEXT_FIELD("tImgSFile", szFile),
  };
}

template <>
inline std::vector<TextField> TextFields<tagTMAKRO>() {
  using Record = tagTMAKRO;
  return {
      KYODBC_TEXT_FIELD("tMakSName", szName),
      KYODBC_TEXT_FIELD("tMakSFile", szFile),
      KYODBC_TEXT_FIELD("tMakSLoc", szLoc),
  };
}

template <>
inline std::vector<TextField> TextFields<tagTGROUP>() {
  using Record = tagTGROUP;
  return {
      KYODBC_TEXT_FIELD("tGrpSName", szName),     KYODBC_TEXT_FIELD("tGrpSLoc", szLoc),
      KYODBC_TEXT_FIELD("tGrpSFile", szFile),     KYODBC_TEXT_FIELD("tGrpSPvwFile", szPvwFile),
      KYODBC_TEXT_FIELD("tGrpSPvwLoc", szPvwLoc),
  };
}

template <>
inline std::vector<TextField> TextFields<tagTDIAGNOSIS>() {
  using Record = tagTDIAGNOSIS;
  return {
      KYODBC_TEXT_FIELD("tDiagSRegio", szRegio),
      KYODBC_TEXT_FIELD("tDiagSCode", szCode),
      KYODBC_TEXT_FIELD("tDiagSText", szText),
  };
}

template <>
inline std::vector<TextField> TextFields<tagTCONFIG>() {
  using Record = tagTCONFIG;
  return {
      KYODBC_TEXT_FIELD("tCfgSKey", szKey),
      KYODBC_TEXT_FIELD("tCfgSSet", szSet),
  };
}

template <>
inline std::vector<TextField> TextFields<tagTTEST>() {
  using Record = tagTTEST;
  return {
      KYODBC_TEXT_FIELD("tTstSPerson", szPerson), KYODBC_TEXT_FIELD("tTstSType", szType),
      KYODBC_TEXT_FIELD("tTstSRegio", szRegio),   KYODBC_TEXT_FIELD("tTstSName", szName),
      KYODBC_TEXT_FIELD("tTstSResult", szResult), KYODBC_TEXT_FIELD("tTstSArcType", szArcType),
      KYODBC_TEXT_FIELD("tTstSArcLoc", szArcLoc), KYODBC_TEXT_FIELD("tTstSArcFile", szArcFile),
      KYODBC_TEXT_FIELD("tTstSArcVol", szArcVol), KYODBC_TEXT_FIELD("tTstSLoc", szLoc),
      KYODBC_TEXT_FIELD("tTstSFile", szFile),
  };
}

#undef KYODBC_TEXT_FIELD

}  // namespace family

#endif
