// The ten tables as their browse sets must show them, written down a second time: every bound column in its
// order, its field in the plain record, its mask bit. Never derive this from the library's own lists.
#ifndef KYODBC_TESTS_DB_TABLE_LAYOUTS_H
#define KYODBC_TESTS_DB_TABLE_LAYOUTS_H

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "recset/cfg_rec.h"
#include "recset/diag_rec.h"
#include "recset/dr_rec.h"
#include "recset/grp_rec.h"
#include "recset/img_rec.h"
#include "recset/mak_rec.h"
#include "recset/pat_rec.h"
#include "recset/stat_rec.h"
#include "recset/test_rec.h"
#include "recset/unit_rec.h"

namespace layouts {

struct Field {
  const char* column;
  char kind;  // K key, N number, O ordinal, F flag, D date, S date and time, T text, X long text
  std::size_t offset;
  std::size_t size;
  DWORD bit;  // 0: never copied in
};

#define FIELD(record, name) offsetof(record, name), sizeof(record::name)

struct Configs {
  using Set = CCfgRec;
  using Record = tagTCONFIG;
  static constexpr const char* kTable = "TConfig";
  static constexpr Field kFields[] = {
      {"tCfgCulIntCfgIDPk",  'K', FIELD(tagTCONFIG, lCfgID),  0  },
      {"tCfgCulIntDrIDFk",   'N', FIELD(tagTCONFIG, lDrID),   0x1},
      {"tCfgCulIntStatIDFk", 'N', FIELD(tagTCONFIG, lStatID), 0x2},
      {"tCfgSKey",           'T', FIELD(tagTCONFIG, szKey),   0x4},
      {"tCfgSSet",           'T', FIELD(tagTCONFIG, szSet),   0x8},
  };
};

struct Diagnoses {
  using Set = CDiagRec;
  using Record = tagTDIAGNOSIS;
  static constexpr const char* kTable = "TDiagnosis";
  static constexpr Field kFields[] = {
      {"tDiagCulIntDiagIDPk", 'K', FIELD(tagTDIAGNOSIS, lDiagID), 0   },
      {"tDiagCulIntDrIDFk",   'N', FIELD(tagTDIAGNOSIS, lDrID),   0x2 },
      {"tDiagCulIntImgIDFk",  'N', FIELD(tagTDIAGNOSIS, lImgID),  0x1 },
      {"tDiagSRegio",         'T', FIELD(tagTDIAGNOSIS, szRegio), 0x4 },
      {"tDiagSCode",          'T', FIELD(tagTDIAGNOSIS, szCode),  0x10},
      {"tDiagSText",          'X', FIELD(tagTDIAGNOSIS, szText),  0x20},
      {"tDiagTs",             'S', FIELD(tagTDIAGNOSIS, ts),      0x8 },
  };
};

struct Doctors {
  using Set = CDrRec;
  using Record = tagTDOCTOR;
  static constexpr const char* kTable = "TDoctor";
  static constexpr Field kFields[] = {
      {"tDrCulIntDrIDPk", 'K', FIELD(tagTDOCTOR, lDrID),   0  },
      {"tDrSName",        'T', FIELD(tagTDOCTOR, szName),  0x1},
      {"tDrSSrvID",       'T', FIELD(tagTDOCTOR, szSrvID), 0x2},
  };
};

struct Groups {
  using Set = CGrpRec;
  using Record = tagTGROUP;
  static constexpr const char* kTable = "TGroup";
  static constexpr Field kFields[] = {
      {"tGrpCulIntGrpIDPk", 'K', FIELD(tagTGROUP, lGrpID),    0   },
      {"tGrpCulIntPatIDFk", 'N', FIELD(tagTGROUP, lPatID),    0x1 },
      {"tGrpUwMakNo",       'O', FIELD(tagTGROUP, wMakNo),    0x20},
      {"tGrpTs",            'S', FIELD(tagTGROUP, ts),        0x4 },
      {"tGrpSName",         'T', FIELD(tagTGROUP, szName),    0x2 },
      {"tGrpSFile",         'T', FIELD(tagTGROUP, szFile),    0x10},
      {"tGrpSLoc",          'T', FIELD(tagTGROUP, szLoc),     0x8 },
      {"tGrpSPvwLoc",       'T', FIELD(tagTGROUP, szPvwLoc),  0x40},
      {"tGrpSPvwFile",      'T', FIELD(tagTGROUP, szPvwFile), 0x80},
  };
};

struct Images {
  using Set = CImgRec;
  using Record = tagTIMAGE;
  static constexpr const char* kTable = "TImage";
  static constexpr Field kFields[] = {
      {"tImgCulIntImgIDPk",   'K', FIELD(tagTIMAGE, lImgID),      0       },
      {"tImgCulIntDrIDFk",    'N', FIELD(tagTIMAGE, lDrID),       0x4     },
      {"tImgCulIntPatIDFk",   'N', FIELD(tagTIMAGE, lPatID),      0x1     },
      {"tImgCulIntUnitIDFk",  'N', FIELD(tagTIMAGE, lUnitID),     0x2     },
      {"tImgDArcIn",          'D', FIELD(tagTIMAGE, dArcIn),      0x10000 },
      {"tImgDArcOut",         'D', FIELD(tagTIMAGE, dArcOut),     0x8000  },
      {"tImgSArcType",        'T', FIELD(tagTIMAGE, szArcType),   0x800   },
      {"tImgSArcFile",        'T', FIELD(tagTIMAGE, szArcFile),   0x2000  },
      {"tImgSArcLoc",         'T', FIELD(tagTIMAGE, szArcLoc),    0x1000  },
      {"tImgSArcVol",         'T', FIELD(tagTIMAGE, szArcVol),    0x4000  },
      {"tImgSFile",           'T', FIELD(tagTIMAGE, szFile),      0x100000},
      {"tImgSLoc",            'T', FIELD(tagTIMAGE, szLoc),       0x80000 },
      {"tImgSName",           'T', FIELD(tagTIMAGE, szName),      0x20    },
      {"tImgSOrdReason",      'T', FIELD(tagTIMAGE, szOrdReason), 0x400   },
      {"tImgSOrdRegio",       'T', FIELD(tagTIMAGE, szOrdRegio),  0x200   },
      {"tImgSOrdType",        'T', FIELD(tagTIMAGE, szOrdType),   0x100   },
      {"tImgSPreg",           'T', FIELD(tagTIMAGE, szPreg),      0x80    },
      {"tImgSPvwFile",        'T', FIELD(tagTIMAGE, szPvwFile),   0x40000 },
      {"tImgSPvwLoc",         'T', FIELD(tagTIMAGE, szPvwLoc),    0x20000 },
      {"tImgSRegio",          'T', FIELD(tagTIMAGE, szRegio),     0x10    },
      {"tImgSType",           'T', FIELD(tagTIMAGE, szType),      0x8     },
      {"tImgTs",              'S', FIELD(tagTIMAGE, ts),          0x40    },
      {"tImgCulIntMakIDLast", 'N', FIELD(tagTIMAGE, lMakIDLast),  0x200000},
  };
};

// The time of a makro is stamped, never copied in.
struct Makros {
  using Set = CMakRec;
  using Record = tagTMAKRO;
  static constexpr const char* kTable = "TMakro";
  static constexpr Field kFields[] = {
      {"tMakCulIntMakIDPk", 'K', FIELD(tagTMAKRO, lMakID), 0   },
      {"tMakCulIntImgIDFk", 'N', FIELD(tagTMAKRO, lImgID), 0x1 },
      {"tMakSFile",         'T', FIELD(tagTMAKRO, szFile), 0x8 },
      {"tMakSLoc",          'T', FIELD(tagTMAKRO, szLoc),  0x10},
      {"tMakSName",         'T', FIELD(tagTMAKRO, szName), 0x2 },
      {"tMakUwNo",          'O', FIELD(tagTMAKRO, wNo),    0x20},
      {"tMakTsLast",        'S', FIELD(tagTMAKRO, tsLast), 0   },
  };
};

struct Patients {
  using Set = CPatRec;
  using Record = tagTPATIENT;
  static constexpr const char* kTable = "TPatient";
  static constexpr Field kFields[] = {
      {"tPatCulIntDrIDFk",  'N', FIELD(tagTPATIENT, lDrID),       0x1   },
      {"tPatCulIntPatIDPk", 'K', FIELD(tagTPATIENT, lPatID),      0     },
      {"tPatDBirthday",     'D', FIELD(tagTPATIENT, dBirthday),   0x80  },
      {"tPatFSelect",       'F', FIELD(tagTPATIENT, lSelect),     0x200 },
      {"tPatSExtPatID",     'T', FIELD(tagTPATIENT, szExtPatID),  0x2   },
      {"tPatSFirstname",    'T', FIELD(tagTPATIENT, szFirstname), 0x40  },
      {"tPatSName",         'T', FIELD(tagTPATIENT, szName),      0x20  },
      {"tPatSSex",          'T', FIELD(tagTPATIENT, szSex),       0x100 },
      {"tPatSSlidaID",      'T', FIELD(tagTPATIENT, szSlidaID),   0x8   },
      {"tPatSSocID",        'T', FIELD(tagTPATIENT, szSocID),     0x10  },
      {"tPatSSrvID",        'T', FIELD(tagTPATIENT, szSrvID),     0x4   },
      {"tPatDEntry",        'D', FIELD(tagTPATIENT, dEntry),      0x400 },
      {"tPatSIDDisp",       'T', FIELD(tagTPATIENT, szIDDisp),    0x800 },
      {"tPatTsLastDisp",    'S', FIELD(tagTPATIENT, tsLastDisp),  0x1000},
  };
};

struct Stations {
  using Set = CStatRec;
  using Record = tagTSTATION;
  static constexpr const char* kTable = "TStation";
  static constexpr Field kFields[] = {
      {"tStatCulIntStatIDPk", 'K', FIELD(tagTSTATION, lStatID), 0  },
      {"tStatSName",          'T', FIELD(tagTSTATION, szName),  0x1},
  };
};

struct Tests {
  using Set = CTestRec;
  using Record = tagTTEST;
  static constexpr const char* kTable = "TTest";
  static constexpr Field kFields[] = {
      {"tTstCulIntTstIDPk",  'K', FIELD(tagTTEST, lTstID),    0     },
      {"tTstCulIntUnitIDFk", 'N', FIELD(tagTTEST, lUnitID),   0x1   },
      {"tTstSPerson",        'T', FIELD(tagTTEST, szPerson),  0x2   },
      {"tTstTs",             'S', FIELD(tagTTEST, ts),        0x20  },
      {"tTstDArcIn",         'D', FIELD(tagTTEST, dArcIn),    0x1000},
      {"tTstDArcOut",        'D', FIELD(tagTTEST, dArcOut),   0x800 },
      {"tTstSArcType",       'T', FIELD(tagTTEST, szArcType), 0x80  },
      {"tTstSArcFile",       'T', FIELD(tagTTEST, szArcFile), 0x200 },
      {"tTstSArcLoc",        'T', FIELD(tagTTEST, szArcLoc),  0x100 },
      {"tTstSArcVol",        'T', FIELD(tagTTEST, szArcVol),  0x400 },
      {"tTstSFile",          'T', FIELD(tagTTEST, szFile),    0x4000},
      {"tTstSLoc",           'T', FIELD(tagTTEST, szLoc),     0x2000},
      {"tTstSName",          'T', FIELD(tagTTEST, szName),    0x10  },
      {"tTstSRegio",         'T', FIELD(tagTTEST, szRegio),   0x8   },
      {"tTstSResult",        'X', FIELD(tagTTEST, szResult),  0x40  },
      {"tTstSType",          'T', FIELD(tagTTEST, szType),    0x4   },
  };
};

struct Units {
  using Set = CUnitRec;
  using Record = tagTUNIT;
  static constexpr const char* kTable = "TUnit";
  static constexpr Field kFields[] = {
      {"tUnitCulIntUnitIDPk", 'K', FIELD(tagTUNIT, lUnitID),       0    },
      {"tUnitDAccept",        'D', FIELD(tagTUNIT, dAccept),       0x4  },
      {"tUnitSName",          'T', FIELD(tagTUNIT, szName),        0x2  },
      {"tUnitSType",          'T', FIELD(tagTUNIT, szType),        0x1  },
      {"tUnitSConeSNo",       'T', FIELD(tagTUNIT, szConeSNo),     0x100},
      {"tUnitSCtrlElemSNo",   'T', FIELD(tagTUNIT, szCtrlElemSNo), 0x80 },
      {"tUnitSCtrlUnitSNo",   'T', FIELD(tagTUNIT, szCtrlUnitSNo), 0x8  },
      {"tUnitSGenSNo",        'T', FIELD(tagTUNIT, szGenSNo),      0x20 },
      {"tUnitSSensSNo",       'T', FIELD(tagTUNIT, szSensSNo),     0x10 },
      {"tUnitSTestBodySNo",   'T', FIELD(tagTUNIT, szTestBodySNo), 0x200},
      {"tUnitSTubeSNo",       'T', FIELD(tagTUNIT, szTubeSNo),     0x40 },
  };
};

using AllTables =
    testing::Types<Configs, Diagnoses, Doctors, Groups, Images, Makros, Patients, Stations, Tests, Units>;

// Names the instances of a typed suite by their table.
struct TableName {
  template <class Layout>
  static std::string GetName(int) {
    return Layout::kTable;
  }
};

}  // namespace layouts

#endif
