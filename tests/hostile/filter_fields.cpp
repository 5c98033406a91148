#include "tests/hostile/filter_fields.h"

namespace hostile {
namespace {

#define KYODBC_BROWSE_SET(name, record) \
  DB_Open##name, DB_Set##name##Filter, DB_Get##name##MaxPos, KeyAt<record, Get<record, DB_Get##name##ByPos>>

template <class Record, auto GetByPos>
WORD Get(LONG position, Record* record) {
  return GetByPos(position, record);
}

using Fields = std::vector<TextField>;

const Fields kDoctor = {
    {17, "tDrSName" },
    {20, "tDrSName" },
    {50, "tDrSSrvID"}
};
const Fields kStation = {
    {17, "tStatSName"}
};
const Fields kUnit = {
    {17, "tUnitSName"},
    {23, "tUnitSName"},
    {58, "tUnitSType"}
};
const Fields kPatient = {
    {17, "tPatSName"     },
    {19, "tPatSName"     },
    {22, "tPatSFirstname"},
    {49, "tPatSExtPatID" },
    {50, "tPatSSrvID"    },
    {51, "tPatSSlidaID"  },
    {52, "tPatSSocID"    },
    {53, "tPatSIDDisp"   }
};
const Fields kImage = {
    {17, "tImgSName" },
    {24, "tImgSName" },
    {58, "tImgSType" },
    {59, "tImgSRegio"}
};
const Fields kMakro = {
    {17, "tMakSName"},
    {26, "tMakSName"}
};
const Fields kGroup = {
    {17, "tGrpSName"}
};
const Fields kDiagnosis = {
    {59, "tDiagSRegio"}
};
const Fields kConfig = {
    {42, "tCfgSKey"},
    {43, "tCfgSSet"}
};
const Fields kTest = {
    {17, "tTstSName"  },
    {18, "tTstSPerson"},
    {25, "tTstSName"  },
    {58, "tTstSType"  },
    {59, "tTstSRegio" }
};

Fields WithDoctor(Fields fields) {
  fields.push_back({20, "tDrSName"});
  return fields;
}

constexpr const char* kJoined = "TPatient JOIN TDoctor ON tDrCulIntDrIDPk = tPatCulIntDrIDFk";

const std::vector<BrowseSet> kSets = {
    {"TDoctor",    "tDrCulIntDrIDPk",     kDoctor,              KYODBC_BROWSE_SET(TDr,   tagTDOCTOR)   },
    {"TStation",   "tStatCulIntStatIDPk", kStation,             KYODBC_BROWSE_SET(TStat, tagTSTATION)  },
    {"TUnit",      "tUnitCulIntUnitIDPk", kUnit,                KYODBC_BROWSE_SET(TUnit, tagTUNIT)     },
    {"TPatient",   "tPatCulIntPatIDPk",   kPatient,             KYODBC_BROWSE_SET(TPat,  tagTPATIENT)  },
    {kJoined,      "tPatCulIntPatIDPk",   WithDoctor(kPatient), KYODBC_BROWSE_SET(PatEx, tagTPATIENTEX)},
    {"TImage",     "tImgCulIntImgIDPk",   kImage,               KYODBC_BROWSE_SET(TImg,  tagTIMAGE)    },
    {"TMakro",     "tMakCulIntMakIDPk",   kMakro,               KYODBC_BROWSE_SET(TMak,  tagTMAKRO)    },
    {"TGroup",     "tGrpCulIntGrpIDPk",   kGroup,               KYODBC_BROWSE_SET(TGrp,  tagTGROUP)    },
    {"TDiagnosis", "tDiagCulIntDiagIDPk", kDiagnosis,           KYODBC_BROWSE_SET(TDiag, tagTDIAGNOSIS)},
    {"TConfig",    "tCfgCulIntCfgIDPk",   kConfig,              KYODBC_BROWSE_SET(TCfg,  tagTCONFIG)   },
    {"TTest",      "tTstCulIntTstIDPk",   kTest,                KYODBC_BROWSE_SET(TTest, tagTTEST)     },
};

#undef KYODBC_BROWSE_SET

}  // namespace

const std::vector<BrowseSet>& BrowseSets() { return kSets; }

}  // namespace hostile
