#include "tests/hostile/filter_fields.h"

namespace hostile {
namespace {

#define KYODBC_BROWSE_SET(name, record) \
  DB_Open##name, DB_Set##name##Filter, DB_Get##name##MaxPos, KeyAt<record, Get<record, DB_Get##name##ByPos>>

template <class Record, auto GetByPos>
WORD Get(LONG position, Record* record) {
  return GetByPos(position, record);
}

const std::vector<BrowseSet> kSets = {
    {"TDoctor",
     "tDrCulIntDrIDPk",                                                                    {{17, "tDrSName"}, {20, "tDrSName"}, {50, "tDrSSrvID"}},
     KYODBC_BROWSE_SET(TDr,                                                                                                                                                                                             tagTDOCTOR)   },
    {"TStation",                                                    "tStatCulIntStatIDPk", {{17, "tStatSName"}},                                                                               KYODBC_BROWSE_SET(TStat, tagTSTATION)  },
    {"TUnit",
     "tUnitCulIntUnitIDPk",                                                                {{17, "tUnitSName"}, {23, "tUnitSName"}, {58, "tUnitSType"}},
     KYODBC_BROWSE_SET(TUnit,                                                                                                                                                                                           tagTUNIT)     },
    {"TPatient",
     "tPatCulIntPatIDPk",                                                                  {{17, "tPatSName"},
      {19, "tPatSName"},
      {22, "tPatSFirstname"},
      {49, "tPatSExtPatID"},
      {50, "tPatSSrvID"},
      {51, "tPatSSlidaID"},
      {52, "tPatSSocID"},
      {53, "tPatSIDDisp"}},
     KYODBC_BROWSE_SET(TPat,                                                                                                                                                                                            tagTPATIENT)  },
    {"TPatient JOIN TDoctor ON tDrCulIntDrIDPk = tPatCulIntDrIDFk",
     "tPatCulIntPatIDPk",                                                                  {{17, "tPatSName"},
      {19, "tPatSName"},
      {20, "tDrSName"},
      {22, "tPatSFirstname"},
      {49, "tPatSExtPatID"},
      {50, "tPatSSrvID"},
      {51, "tPatSSlidaID"},
      {52, "tPatSSocID"},
      {53, "tPatSIDDisp"}},
     KYODBC_BROWSE_SET(PatEx,                                                                                                                                                                                           tagTPATIENTEX)},
    {"TImage",
     "tImgCulIntImgIDPk",                                                                  {{17, "tImgSName"}, {24, "tImgSName"}, {58, "tImgSType"}, {59, "tImgSRegio"}},
     KYODBC_BROWSE_SET(TImg,                                                                                                                                                                                            tagTIMAGE)    },
    {"TMakro",
     "tMakCulIntMakIDPk",                                                                  {{17, "tMakSName"}, {26, "tMakSName"}},
     KYODBC_BROWSE_SET(TMak,                                                                                                                                                                                            tagTMAKRO)    },
    {"TGroup",                                                      "tGrpCulIntGrpIDPk",   {{17, "tGrpSName"}},                                                                                KYODBC_BROWSE_SET(TGrp,  tagTGROUP)    },
    {"TDiagnosis",                                                  "tDiagCulIntDiagIDPk", {{59, "tDiagSRegio"}},                                                                              KYODBC_BROWSE_SET(TDiag, tagTDIAGNOSIS)},
    {"TConfig",
     "tCfgCulIntCfgIDPk",                                                                  {{42, "tCfgSKey"}, {43, "tCfgSSet"}},
     KYODBC_BROWSE_SET(TCfg,                                                                                                                                                                                            tagTCONFIG)   },
    {"TTest",
     "tTstCulIntTstIDPk",                                                                  {{17, "tTstSName"}, {18, "tTstSPerson"}, {25, "tTstSName"}, {58, "tTstSType"}, {59, "tTstSRegio"}},
     KYODBC_BROWSE_SET(TTest,                                                                                                                                                                                           tagTTEST)     },
};

#undef KYODBC_BROWSE_SET

}  // namespace

const std::vector<BrowseSet>& BrowseSets() { return kSets; }

}  // namespace hostile
