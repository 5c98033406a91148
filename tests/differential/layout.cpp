#include "tests/differential/layout.h"

#include <stdexcept>

namespace differential {
namespace {

struct Plain {
  const char* name;
  Kind kind;
  int width;
};

Layout Make(Stem stem, const char* name, const char* table, const std::vector<Plain>& plain) {
  Layout layout{stem, name, table, {}, 0};
  for (std::size_t i = 0; i < plain.size(); ++i) {
    const std::uint32_t bit = i == 0 ? 0 : 1u << (i - 1);
    layout.fields.push_back({plain[i].name, plain[i].kind, plain[i].width, bit, layout.size});
    layout.size += static_cast<std::size_t>(plain[i].width);
  }
  return layout;
}

constexpr Kind kL = Kind::kLong, kF = Kind::kFlag, kW = Kind::kWord, kB = Kind::kByte, kS = Kind::kText,
               kD = Kind::kDate, kT = Kind::kTime;

const std::vector<Plain> kGroup = {
    {"lGrpID",    kL, 4 },
    {"lPatID",    kL, 4 },
    {"szName",    kS, 33},
    {"ts",        kT, 16},
    {"szLoc",     kS, 2 },
    {"szFile",    kS, 48},
    {"wMakNo",    kW, 2 },
    {"szPvwFile", kS, 48},
    {"szPvwLoc",  kS, 2 },
};

const std::vector<Plain> kImage = {
    {"lImgID",      kL, 4 },
    {"lPatID",      kL, 4 },
    {"lUnitID",     kL, 4 },
    {"lDrID",       kL, 4 },
    {"szType",      kS, 5 },
    {"szRegio",     kS, 17},
    {"szName",      kS, 33},
    {"ts",          kT, 16},
    {"szPreg",      kS, 2 },
    {"szOrdType",   kS, 5 },
    {"szOrdRegio",  kS, 17},
    {"szOrdReason", kS, 65},
    {"szArcType",   kS, 5 },
    {"szArcLoc",    kS, 2 },
    {"szArcFile",   kS, 48},
    {"szArcVol",    kS, 11},
    {"dArcOut",     kD, 16},
    {"dArcIn",      kD, 16},
    {"szPvwLoc",    kS, 2 },
    {"szPvwFile",   kS, 48},
    {"szLoc",       kS, 2 },
    {"szFile",      kS, 48},
    {"lMakIDLast",  kL, 4 },
};

const std::vector<Plain> kTest = {
    {"lTstID",    kL, 4   },
    {"lUnitID",   kL, 4   },
    {"szPerson",  kS, 33  },
    {"szType",    kS, 5   },
    {"szRegio",   kS, 17  },
    {"szName",    kS, 33  },
    {"ts",        kT, 16  },
    {"szResult",  kS, 4096},
    {"szArcType", kS, 5   },
    {"szArcLoc",  kS, 2   },
    {"szArcFile", kS, 48  },
    {"szArcVol",  kS, 11  },
    {"dArcOut",   kD, 16  },
    {"dArcIn",    kD, 16  },
    {"szLoc",     kS, 2   },
    {"szFile",    kS, 48  },
};

const std::vector<Plain> kUnit = {
    {"lUnitID",       kL, 4 },
    {"szType",        kS, 3 },
    {"szName",        kS, 23},
    {"dAccept",       kD, 16},
    {"szCtrlUnitSNo", kS, 11},
    {"szSensSNo",     kS, 11},
    {"szGenSNo",      kS, 11},
    {"szTubeSNo",     kS, 11},
    {"szCtrlElemSNo", kS, 11},
    {"szConeSNo",     kS, 11},
    {"szTestBodySNo", kS, 11},
};

const std::vector<Plain> kCompact = {
    {"szName",      kS, 33},
    {"szFirstname", kS, 33},
    {"wYear",       kW, 2 },
    {"byMonth",     kB, 1 },
    {"byDay",       kB, 1 },
    {"wDispYear",   kW, 2 },
    {"byDispMonth", kB, 1 },
    {"byDispDay",   kB, 1 },
    {"szDrName",    kS, 13},
    {"dwID",        kL, 4 },
    {"szIdent",     kS, 21},
    {"bySex",       kB, 1 },
    {"byReserved",  kB, 1 },
};

const std::vector<Plain> kDoctor = {
    {"lDrID",   kL, 4 },
    {"szName",  kS, 33},
    {"szSrvID", kS, 65},
};

const std::vector<Plain> kStation = {
    {"lStatID", kL, 4 },
    {"szName",  kS, 17},
};

const std::vector<Plain> kMakro = {
    {"lMakID", kL, 4 },
    {"lImgID", kL, 4 },
    {"szName", kS, 33},
    {"tsLast", kT, 16},
    {"szFile", kS, 48},
    {"szLoc",  kS, 2 },
    {"wNo",    kW, 2 },
};

const std::vector<Plain> kDiagnosis = {
    {"lDiagID", kL, 4  },
    {"lImgID",  kL, 4  },
    {"lDrID",   kL, 4  },
    {"szRegio", kS, 17 },
    {"ts",      kT, 16 },
    {"szCode",  kS, 33 },
    {"szText",  kS, 256},
};

const std::vector<Plain> kConfig = {
    {"lCfgID",  kL, 4  },
    {"lDrID",   kL, 4  },
    {"lStatID", kL, 4  },
    {"szKey",   kS, 25 },
    {"szSet",   kS, 129},
};

const std::vector<Plain> kPatient = {
    {"lPatID",      kL, 4 },
    {"lDrID",       kL, 4 },
    {"szExtPatID",  kS, 33},
    {"szSrvID",     kS, 65},
    {"szSlidaID",   kS, 21},
    {"szSocID",     kS, 17},
    {"szName",      kS, 33},
    {"szFirstname", kS, 33},
    {"dBirthday",   kD, 16},
    {"szSex",       kS, 2 },
    {"lSelect",     kF, 4 },
    {"dEntry",      kD, 16},
    {"szIDDisp",    kS, 33},
    {"tsLastDisp",  kT, 16},
};

std::vector<Plain> JoinedPatient() {
  std::vector<Plain> fields = kPatient;
  fields.push_back({"szDrName", kS, 33});
  return fields;
}

Layout MakeGroup() {
  Layout group = Make(Stem::kGrp, "TGrp", "TGroup", kGroup);
  // The two preview fields stand the other way round in the mask.
  group.fields[7].bit = 0x80;
  group.fields[8].bit = 0x40;
  return group;
}

// In the order of Stem.
std::vector<Layout> MakeAll() {
  return {
      Make(Stem::kDr, "TDr", "TDoctor", kDoctor),           Make(Stem::kStat, "TStat", "TStation", kStation),
      Make(Stem::kUnit, "TUnit", "TUnit", kUnit),           Make(Stem::kPat, "TPat", "TPatient", kPatient),
      Make(Stem::kPatEx, "PatEx", "", JoinedPatient()),     Make(Stem::kImg, "TImg", "TImage", kImage),
      Make(Stem::kMak, "TMak", "TMakro", kMakro),           MakeGroup(),
      Make(Stem::kDiag, "TDiag", "TDiagnosis", kDiagnosis), Make(Stem::kCfg, "TCfg", "TConfig", kConfig),
      Make(Stem::kTest, "TTest", "TTest", kTest),           Make(Stem::kCompact, "Compact", "", kCompact),
  };
}

const std::vector<Layout>& Layouts() {
  static const std::vector<Layout> layouts = MakeAll();
  return layouts;
}

struct KnownId {
  Stem stem;
  int id;
  const char* field;  // null: the column that the database does not have
};

constexpr KnownId kIds[] = {
    {Stem::kDr,    1,  "lDrID"      },
    {Stem::kDr,    3,  "lDrID"      },
    {Stem::kDr,    17, "szName"     },
    {Stem::kDr,    20, "szName"     },
    {Stem::kDr,    50, "szSrvID"    },
    {Stem::kStat,  1,  "lStatID"    },
    {Stem::kStat,  6,  "lStatID"    },
    {Stem::kStat,  17, "szName"     },
    {Stem::kUnit,  1,  "lUnitID"    },
    {Stem::kUnit,  5,  "lUnitID"    },
    {Stem::kUnit,  17, "szName"     },
    {Stem::kUnit,  23, "szName"     },
    {Stem::kUnit,  33, "dAccept"    },
    {Stem::kUnit,  58, "szType"     },
    {Stem::kPat,   1,  "lPatID"     },
    {Stem::kPat,   3,  "lDrID"      },
    {Stem::kPat,   4,  "lPatID"     },
    {Stem::kPat,   17, "szName"     },
    {Stem::kPat,   19, "szName"     },
    {Stem::kPat,   22, "szFirstname"},
    {Stem::kPat,   33, "dBirthday"  },
    {Stem::kPat,   34, "dBirthday"  },
    {Stem::kPat,   49, "szExtPatID" },
    {Stem::kPat,   50, "szSrvID"    },
    {Stem::kPat,   51, "szSlidaID"  },
    {Stem::kPat,   52, "szSocID"    },
    {Stem::kPat,   53, "szIDDisp"   },
    {Stem::kPatEx, 20, "szDrName"   },
    {Stem::kPatEx, 35, "tsLastDisp" },
    {Stem::kImg,   1,  "lImgID"     },
    {Stem::kImg,   2,  "lImgID"     },
    {Stem::kImg,   3,  "lDrID"      },
    {Stem::kImg,   4,  "lPatID"     },
    {Stem::kImg,   5,  nullptr      },
    {Stem::kImg,   17, "szName"     },
    {Stem::kImg,   24, "szName"     },
    {Stem::kImg,   33, "ts"         },
    {Stem::kImg,   36, "ts"         },
    {Stem::kImg,   58, "szType"     },
    {Stem::kImg,   59, "szRegio"    },
    {Stem::kMak,   1,  "lMakID"     },
    {Stem::kMak,   2,  "lImgID"     },
    {Stem::kMak,   10, "lMakID"     },
    {Stem::kMak,   17, "szName"     },
    {Stem::kMak,   26, "szName"     },
    {Stem::kMak,   33, "tsLast"     },
    {Stem::kGrp,   1,  "lGrpID"     },
    {Stem::kGrp,   4,  "lPatID"     },
    {Stem::kGrp,   9,  "lGrpID"     },
    {Stem::kGrp,   17, "szName"     },
    {Stem::kGrp,   33, "ts"         },
    {Stem::kDiag,  1,  "lDiagID"    },
    {Stem::kDiag,  2,  "lImgID"     },
    {Stem::kDiag,  3,  "lDrID"      },
    {Stem::kDiag,  11, "lDiagID"    },
    {Stem::kDiag,  33, "ts"         },
    {Stem::kDiag,  59, "szRegio"    },
    {Stem::kCfg,   1,  "lCfgID"     },
    {Stem::kCfg,   3,  "lDrID"      },
    {Stem::kCfg,   6,  "lStatID"    },
    {Stem::kCfg,   7,  "lCfgID"     },
    {Stem::kCfg,   42, "szKey"      },
    {Stem::kCfg,   43, "szSet"      },
    {Stem::kTest,  1,  "lTstID"     },
    {Stem::kTest,  5,  "lUnitID"    },
    {Stem::kTest,  8,  "lTstID"     },
    {Stem::kTest,  17, "szName"     },
    {Stem::kTest,  18, "szPerson"   },
    {Stem::kTest,  25, "szName"     },
    {Stem::kTest,  33, "ts"         },
    {Stem::kTest,  36, "ts"         },
    {Stem::kTest,  58, "szType"     },
    {Stem::kTest,  59, "szRegio"    },
};

// The view knows what the patients know, and more.
bool Knows(Stem stem, const KnownId& row) {
  return row.stem == stem || (stem == Stem::kPatEx && row.stem == Stem::kPat);
}

}  // namespace

int Layout::Index(const std::string& field) const {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (field == fields[i].name) return static_cast<int>(i);
  }
  throw std::runtime_error(std::string(name) + " has no field " + field);
}

const Layout& LayoutOf(Stem stem) { return Layouts()[static_cast<std::size_t>(stem)]; }

Stem StemOf(const std::string& name) {
  for (const Layout& layout : Layouts()) {
    if (name == layout.name) return layout.stem;
  }
  throw std::runtime_error("no table " + name);
}

int FieldOfId(Stem stem, int id) {
  for (const KnownId& row : kIds) {
    if (row.id != id || !Knows(stem, row)) continue;
    return row.field == nullptr ? kMissingColumn : LayoutOf(stem).Index(row.field);
  }
  return kUnknownField;
}

std::vector<int> KnownIds(Stem stem) {
  std::vector<int> ids;
  for (const KnownId& row : kIds) {
    if (Knows(stem, row)) ids.push_back(row.id);
  }
  return ids;
}

ValueType TypeOfId(int id) {
  struct Range {
    int first, last;
    ValueType type;
  };
  constexpr Range kRanges[] = {
      {1,  11, ValueType::kInteger},
      {17, 20, ValueType::kText   },
      {22, 26, ValueType::kText   },
      {33, 34, ValueType::kDate   },
      {35, 36, ValueType::kTime   },
      {42, 43, ValueType::kText   },
      {49, 53, ValueType::kText   },
      {58, 59, ValueType::kText   },
  };
  for (const Range& range : kRanges) {
    if (id >= range.first && id <= range.last) return range.type;
  }
  return ValueType::kNone;
}

}  // namespace differential
