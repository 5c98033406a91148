// The ten direct-access sets side by side, so that one set of cases runs for all of them.
#ifndef KYODBC_TESTS_FLAT_RAW_TABLES_H
#define KYODBC_TESTS_FLAT_RAW_TABLES_H

#include "tests/flat/raw_member.h"

namespace raw {

// Each struct has a table's set and record class, the columns of its full name in binding order, each with
// its bit in the field mask (-1: the key) and its member of the record class; the mask bits of the natural
// key that MakeRecord fills in (kNatural), the mask bits whose fields an edit derives instead of copying them
// (kDerived), the number of fields that the plain record has besides its key (kPlainFields), and the flat
// calls of the table. Written down a second time; never derive it from the library's own lists.

struct Configs {
  using Set = CCfgRawRec;
  using Record = CTCfgRaw;
  using Plain = tagTCONFIG;
  static constexpr char kShortName[] = "TConfig";
  static constexpr DWORD kNatural = 0x1 | 0x2 | 0x4;
  static constexpr DWORD kDerived = 0;
  static constexpr int kPlainFields = 4;
  static constexpr auto Get = DB_GetTCfg;
  static constexpr auto EditSel = DB_EditSelTCfg;
  static Set MakeSet() { return Set(nullptr, nullptr); }
  static void Adapt(Record*) {}
  static constexpr Member<Record> kMembers[] = {
      {"tCfgCulIntCfgIDPk",  'N', -1, &CTCfgRaw::m_lCfgID   },
      {"tCfgCulIntDrIDFk",   'N', 0,  &CTCfgRaw::m_lDrID    },
      {"tCfgCulIntStatIDFk", 'N', 1,  &CTCfgRaw::m_lStatID  },
      {"tCfgSKey",           'T', 2,  &CTCfgRaw::m_strKey   },
      {"tCfgSSet",           'T', 3,  &CTCfgRaw::m_strSet   },
      {"tCfgSAdd",           'X', 4,  &CTCfgRaw::m_strAdd   },
      {"tCfgSPerson",        'T', 5,  &CTCfgRaw::m_strPerson},
  };
};

struct Diagnoses {
  using Set = CDiagRawRec;
  using Record = CTDiagRaw;
  using Plain = tagTDIAGNOSIS;
  static constexpr char kShortName[] = "TDiagnosis";
  static constexpr DWORD kNatural = 0x1;
  static constexpr DWORD kDerived = 0;
  static constexpr int kPlainFields = 6;
  static constexpr auto Get = DB_GetTDiag;
  static constexpr auto EditSel = DB_EditSelTDiag;
  static Set MakeSet() { return Set(nullptr, nullptr); }
  static void Adapt(Record*) {}
  static constexpr Member<Record> kMembers[] = {
      {"tDiagCulIntDiagIDPk", 'N', -1, &CTDiagRaw::m_lDiagID       },
      {"tDiagCulIntImgIDFk",  'N', 0,  &CTDiagRaw::m_lImgID        },
      {"tDiagCulIntDrIDFk",   'N', 1,  &CTDiagRaw::m_lDrID         },
      {"tDiagSRegio",         'T', 2,  &CTDiagRaw::m_strRegio      },
      {"tDiagTs",             'S', 3,  &CTDiagRaw::m_ts            },
      {"tDiagSCode",          'T', 4,  &CTDiagRaw::m_strCode       },
      {"tDiagSText",          'X', 5,  &CTDiagRaw::m_strText       },
      {"tDiagSResponsible",   'T', 6,  &CTDiagRaw::m_strResponsible},
      {"tDiagIntMakID",       'N', 7,  &CTDiagRaw::m_lMakID        },
      {"tDiagSAdd",           'X', 8,  &CTDiagRaw::m_strAdd        },
  };
};

struct Doctors {
  using Set = CDrRawRec;
  using Record = CTDrRaw;
  using Plain = tagTDOCTOR;
  static constexpr char kShortName[] = "TDoctor";
  static constexpr DWORD kNatural = 0x2;
  static constexpr DWORD kDerived = 0;
  static constexpr int kPlainFields = 2;
  static constexpr auto Get = DB_GetTDr;
  static constexpr auto EditSel = DB_EditSelTDr;
  static Set MakeSet() { return Set(nullptr, nullptr); }
  static void Adapt(Record*) {}
  static constexpr Member<Record> kMembers[] = {
      {"tDrCulIntDrIDPk", 'N', -1, &CTDrRaw::m_lDrID   },
      {"tDrSSrvID",       'T', 1,  &CTDrRaw::m_strSrvID},
      {"tDrSName",        'T', 0,  &CTDrRaw::m_strName },
      {"tDrFAct",         'F', 2,  &CTDrRaw::m_bAct    },
      {"tDrSAdd",         'X', 3,  &CTDrRaw::m_strAdd  },
  };
};

struct Groups {
  using Set = CGrpRawRec;
  using Record = CTGrpRaw;
  using Plain = tagTGROUP;
  static constexpr char kShortName[] = "TGroup";
  static constexpr DWORD kNatural = 0x1 | 0x2 | 0x4 | 0x100;
  static constexpr DWORD kDerived = 0;
  static constexpr int kPlainFields = 8;
  static constexpr auto Get = DB_GetTGrp;
  static constexpr auto EditSel = DB_EditSelTGrp;
  static Set MakeSet() { return Set(nullptr, nullptr); }
  static void Adapt(Record*) {}
  static constexpr Member<Record> kMembers[] = {
      {"tGrpCulIntGrpIDPk", 'N', -1, &CTGrpRaw::m_lGrpID        },
      {"tGrpCulIntPatIDFk", 'N', 0,  &CTGrpRaw::m_lPatID        },
      {"tGrpSName",         'T', 1,  &CTGrpRaw::m_strName       },
      {"tGrpTs",            'S', 2,  &CTGrpRaw::m_ts            },
      {"tGrpSLoc",          'T', 3,  &CTGrpRaw::m_strLoc        },
      {"tGrpSFile",         'T', 4,  &CTGrpRaw::m_strFile       },
      {"tGrpUwMakNo",       'N', 5,  &CTGrpRaw::m_lMakNo        },
      {"tGrpSPvwLoc",       'T', 7,  &CTGrpRaw::m_strPvwLoc     },
      {"tGrpSPvwFile",      'T', 6,  &CTGrpRaw::m_strPvwFile    },
      {"tGrpTsLast",        'S', 8,  &CTGrpRaw::m_tsLast        },
      {"tGrpSResponsible",  'T', 9,  &CTGrpRaw::m_strResponsible},
      {"tGrpSAdd",          'X', 10, &CTGrpRaw::m_strAdd        },
  };
};

struct Images {
  using Set = CImgRawRec;
  using Record = CTImageRaw;
  using Plain = tagTIMAGE;
  static constexpr char kShortName[] = "TImage";
  static constexpr DWORD kNatural = 0x1 | 0x40 | 0x80000 | 0x100000;
  static constexpr DWORD kDerived = 0;
  static constexpr int kPlainFields = 22;
  static constexpr auto Get = DB_GetTImg;
  static constexpr auto EditSel = DB_EditSelTImg;
  static Set MakeSet() { return Set(nullptr, nullptr); }
  static void Adapt(Record* record) { record->m_strLoc = "9"; }
  static constexpr Member<Record> kMembers[] = {
      {"tImgCulIntImgIDPk",   'N', -1, &CTImageRaw::m_lImgID        },
      {"tImgCulIntPatIDFk",   'N', 0,  &CTImageRaw::m_lPatID        },
      {"tImgCulIntUnitIDFk",  'N', 1,  &CTImageRaw::m_lUnitID       },
      {"tImgCulIntDrIDFk",    'N', 2,  &CTImageRaw::m_lDrID         },
      {"tImgSType",           'T', 3,  &CTImageRaw::m_strType       },
      {"tImgSRegio",          'T', 4,  &CTImageRaw::m_strRegio      },
      {"tImgSName",           'T', 5,  &CTImageRaw::m_strName       },
      {"tImgTs",              'S', 6,  &CTImageRaw::m_ts            },
      {"tImgSPreg",           'T', 7,  &CTImageRaw::m_strPreg       },
      {"tImgSOrdType",        'T', 8,  &CTImageRaw::m_strOrdType    },
      {"tImgSOrdRegio",       'T', 9,  &CTImageRaw::m_strOrdRegio   },
      {"tImgSOrdReason",      'T', 10, &CTImageRaw::m_strOrdReason  },
      {"tImgSLoc",            'T', 19, &CTImageRaw::m_strLoc        },
      {"tImgSFile",           'T', 20, &CTImageRaw::m_strFile       },
      {"tImgSPvwLoc",         'T', 17, &CTImageRaw::m_strPvwLoc     },
      {"tImgSPvwFile",        'T', 18, &CTImageRaw::m_strPvwFile    },
      {"tImgSArcLoc",         'T', 12, &CTImageRaw::m_strArcLoc     },
      {"tImgSArcFile",        'T', 13, &CTImageRaw::m_strArcFile    },
      {"tImgSArcType",        'T', 11, &CTImageRaw::m_strArcType    },
      {"tImgSArcVol",         'T', 14, &CTImageRaw::m_strArcVol     },
      {"tImgDArcOut",         'D', 15, &CTImageRaw::m_dArcOut       },
      {"tImgDArcIn",          'D', 16, &CTImageRaw::m_dArcIn        },
      {"tImgCulIntMakIDLast", 'N', 21, &CTImageRaw::m_lMakIDLast    },
      {"tImgSResponsible",    'T', 22, &CTImageRaw::m_strResponsible},
      {"tImgIntRefImgID",     'N', 23, &CTImageRaw::m_lRefImgID     },
      {"tImgSAdd",            'X', 24, &CTImageRaw::m_strAdd        },
  };
};

struct Makros {
  using Set = CMakRawRec;
  using Record = CTMakRaw;
  using Plain = tagTMAKRO;
  static constexpr char kShortName[] = "TMakro";
  static constexpr DWORD kNatural = 0x1 | 0x20;
  static constexpr DWORD kDerived = 0x4;
  static constexpr int kPlainFields = 6;
  static constexpr auto Get = DB_GetTMak;
  static constexpr auto EditSel = DB_EditSelTMak;
  static Set MakeSet() { return Set(nullptr, nullptr); }
  static void Adapt(Record*) {}
  static constexpr Member<Record> kMembers[] = {
      {"tMakCulIntMakIDPk", 'N', -1, &CTMakRaw::m_lMakID  },
      {"tMakCulIntImgIDFk", 'N', 0,  &CTMakRaw::m_lImgID  },
      {"tMakSName",         'T', 1,  &CTMakRaw::m_strName },
      {"tMakTsLast",        'S', 2,  &CTMakRaw::m_tsLast  },
      {"tMakSLoc",          'T', 4,  &CTMakRaw::m_strLoc  },
      {"tMakSFile",         'T', 3,  &CTMakRaw::m_strFile },
      {"tMakUwNo",          'N', 5,  &CTMakRaw::m_lNo     },
      {"tMakSAdd",          'X', 6,  &CTMakRaw::m_strAdd  },
      {"tMakSRegio",        'T', 7,  &CTMakRaw::m_strRegio},
      {"tMakTsCreate",      'S', 8,  &CTMakRaw::m_tsCreate},
  };
};

struct Patients {
  using Set = CPatientRawRec;
  using Record = CTPatientRaw;
  using Plain = tagTPATIENT;
  static constexpr char kShortName[] = "TPatient";
  static constexpr DWORD kNatural = 0x8;
  static constexpr DWORD kDerived = 0x400 | 0x800 | 0x1000;
  static constexpr int kPlainFields = 13;
  static constexpr auto Get = DB_GetTPat;
  static constexpr auto EditSel = DB_EditSelTPat;
  static Set MakeSet() { return Set(nullptr, nullptr); }
  static void Adapt(Record* record) { record->m_strIDDisp = record->m_strSlidaID; }
  static constexpr Member<Record> kMembers[] = {
      {"tPatCulIntPatIDPk", 'N', -1, &CTPatientRaw::m_lPatID        },
      {"tPatCulIntDrIDFk",  'N', 0,  &CTPatientRaw::m_lDrID         },
      {"tPatSExtPatID",     'T', 1,  &CTPatientRaw::m_strExtPatID   },
      {"tPatSSrvID",        'T', 2,  &CTPatientRaw::m_strSrvID      },
      {"tPatSSlidaID",      'T', 3,  &CTPatientRaw::m_strSlidaID    },
      {"tPatSSocID",        'T', 4,  &CTPatientRaw::m_strSocID      },
      {"tPatSName",         'T', 5,  &CTPatientRaw::m_strName       },
      {"tPatSFirstname",    'T', 6,  &CTPatientRaw::m_strFirstname  },
      {"tPatDBirthday",     'D', 7,  &CTPatientRaw::m_dBirthday     },
      {"tPatSSex",          'T', 8,  &CTPatientRaw::m_strSex        },
      {"tPatDEntry",        'D', 10, &CTPatientRaw::m_dEntry        },
      {"tPatTsLastDisp",    'S', 12, &CTPatientRaw::m_tsLastDisp    },
      {"tPatSIDDisp",       'T', 11, &CTPatientRaw::m_strIDDisp     },
      {"tPatFSelect",       'F', 9,  &CTPatientRaw::m_bSelect       },
      {"tPatSResponsible",  'T', 13, &CTPatientRaw::m_strResponsible},
      {"tPatSAdd",          'X', 14, &CTPatientRaw::m_strAdd        },
  };
};

struct Stations {
  using Set = CStatRawRec;
  using Record = CTStatRaw;
  using Plain = tagTSTATION;
  static constexpr char kShortName[] = "TStation";
  static constexpr DWORD kNatural = 0x1;
  static constexpr DWORD kDerived = 0;
  static constexpr int kPlainFields = 1;
  static constexpr auto Get = DB_GetTStat;
  static constexpr auto EditSel = DB_EditSelTStat;
  static Set MakeSet() { return Set(nullptr, nullptr); }
  static void Adapt(Record*) {}
  static constexpr Member<Record> kMembers[] = {
      {"tStatCulIntStatIDPk", 'N', -1, &CTStatRaw::m_lStatID},
      {"tStatSName",          'T', 0,  &CTStatRaw::m_strName},
      {"tStatSAdd",           'X', 1,  &CTStatRaw::m_strAdd },
  };
};

struct Tests {
  using Set = CTestRawRec;
  using Record = CTTestRaw;
  using Plain = tagTTEST;
  static constexpr char kShortName[] = "TTest";
  static constexpr DWORD kNatural = 0x1 | 0x20 | 0x2000;
  static constexpr DWORD kDerived = 0;
  static constexpr int kPlainFields = 15;
  static constexpr auto Get = DB_GetTTest;
  static constexpr auto EditSel = DB_EditSelTTest;
  static Set MakeSet() { return Set(); }
  static void Adapt(Record*) {}
  // Both columns of file names belong to the member of the first: the archive's has no bit of its own.
  static constexpr Member<Record> kMembers[] = {
      {"tTstCulIntTstIDPk",  'N', -1, &CTTestRaw::m_lTstID    },
      {"tTstCulIntUnitIDFk", 'N', 0,  &CTTestRaw::m_lUnitID   },
      {"tTstSPerson",        'T', 1,  &CTTestRaw::m_strPerson },
      {"tTstSType",          'T', 2,  &CTTestRaw::m_strType   },
      {"tTstSRegio",         'T', 3,  &CTTestRaw::m_strRegio  },
      {"tTstSName",          'T', 4,  &CTTestRaw::m_strName   },
      {"tTstTs",             'S', 5,  &CTTestRaw::m_ts        },
      {"tTstSResult",        'X', 6,  &CTTestRaw::m_strResult },
      {"tTstSLoc",           'T', 13, &CTTestRaw::m_strLoc    },
      {"tTstSFile",          'T', 14, &CTTestRaw::m_strFile   },
      {"tTstSArcLoc",        'T', 8,  &CTTestRaw::m_strArcLoc },
      {"tTstSArcFile",       'T', 14, &CTTestRaw::m_strFile   },
      {"tTstSArcVol",        'T', 10, &CTTestRaw::m_strArcVol },
      {"tTstSArcType",       'T', 7,  &CTTestRaw::m_strArcType},
      {"tTstDArcOut",        'D', 11, &CTTestRaw::m_dArcOut   },
      {"tTstDArcIn",         'D', 12, &CTTestRaw::m_dArcIn    },
      {"tTstSAdd",           'X', 15, &CTTestRaw::m_strAdd    },
  };
};

struct Units {
  using Set = CUnitRawRec;
  using Record = CTUnitRaw;
  using Plain = tagTUNIT;
  static constexpr char kShortName[] = "TUnit";
  static constexpr DWORD kNatural = 0x2;
  static constexpr DWORD kDerived = 0;
  static constexpr int kPlainFields = 10;
  static constexpr auto Get = DB_GetTUnit;
  static constexpr auto EditSel = DB_EditSelTUnit;
  static Set MakeSet() { return Set(); }
  static void Adapt(Record*) {}
  static constexpr Member<Record> kMembers[] = {
      {"tUnitCulIntUnitIDPk", 'N', -1, &CTUnitRaw::m_lUnitID       },
      {"tUnitSType",          'T', 0,  &CTUnitRaw::m_strType       },
      {"tUnitSName",          'T', 1,  &CTUnitRaw::m_strName       },
      {"tUnitDAccept",        'D', 2,  &CTUnitRaw::m_dAccept       },
      {"tUnitSCtrlUnitSNo",   'T', 3,  &CTUnitRaw::m_strCtrlUnitSNo},
      {"tUnitSSensSNo",       'T', 4,  &CTUnitRaw::m_strSensSNo    },
      {"tUnitSGenSNo",        'T', 5,  &CTUnitRaw::m_strGenSNo     },
      {"tUnitSTubeSNo",       'T', 6,  &CTUnitRaw::m_strTubeSNo    },
      {"tUnitSCtrlElemSNo",   'T', 7,  &CTUnitRaw::m_strCtrlElemSNo},
      {"tUnitSConeSNo",       'T', 8,  &CTUnitRaw::m_strConeSNo    },
      {"tUnitSTestBodySNo",   'T', 9,  &CTUnitRaw::m_strTestBodySNo},
      {"tUnitSAdd",           'X', 10, &CTUnitRaw::m_strAdd        },
  };
};

using AllTables =
    testing::Types<Configs, Diagnoses, Doctors, Groups, Images, Makros, Patients, Stations, Tests, Units>;

}  // namespace raw

#endif
