// What every field id stands for in each of the ten browse sets, and what the sets answer about themselves.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
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

namespace {

struct BrowseSet {
  const char* name;
  const char* table;
  std::function<std::unique_ptr<CKyRecSet>(const char* owner)> make;
  std::map<LONG, std::string> fields;
};

template <class Set>
std::unique_ptr<CKyRecSet> Make(const char* owner) {
  return std::make_unique<Set>(nullptr, owner);
}

const BrowseSet kSets[] = {
    {"Config",
     "TConfig",    Make<CCfgRec>,
     {{1, " tCfgCulIntCfgIDPk"},
      {3, " tCfgCulIntDrIDFk"},
      {6, " tCfgCulIntStatIDFk"},
      {7, " tCfgCulIntCfgIDPk"},
      {42, " tCfgSKey"},
      {43, " tCfgSSet"}}                                                         },
    {"Diagnosis",
     "TDiagnosis", Make<CDiagRec>,
     {{1, " tDiagCulIntDiagIDPk"},
      {2, " tDiagCulIntImgIDFk"},
      {3, " tDiagCulIntDrIDFk"},
      {11, " tDiagCulIntDiagIDPk"},
      {33, " tDiagTs"},
      {59, " tDiagSRegio"}}                                                      },
    {"Doctor",
     "TDoctor",    Make<CDrRec>,
     {{1, " tDrCulIntDrIDPk"},
      {3, " tDrCulIntDrIDPk"},
      {17, " tDrSName"},
      {20, " tDrSName"},
      {50, " tDrSSrvID"}}                                                        },
    {"Group",
     "TGroup",     Make<CGrpRec>,
     {{1, " tGrpCulIntGrpIDPk"},
      {4, " tGrpCulIntPatIDFk"},
      {9, " tGrpCulIntGrpIDPk"},
      {17, " tGrpSName"},
      {33, " tGrpTs"}}                                                           },
    {"Image",
     "TImage",     Make<CImgRec>,
     {{1, " tImgCulIntImgIDPk"},
      {2, " tImgCulIntImgIDPk"},
      {3, " tImgCulIntDrIDFk"},
      {4, " tImgCulIntPatIDFk"},
      {5, " tImgCulIntUnitIDPk"},
      {17, " tImgSName"},
      {24, " tImgSName"},
      {33, " tImgTs"},
      {36, " tImgTs"},
      {58, " tImgSType"},
      {59, " tImgSRegio"}}                                                       },
    {"Makro",
     "TMakro",     Make<CMakRec>,
     {{1, " tMakCulIntMakIDPk"},
      {2, " tMakCulIntImgIDFk"},
      {10, " tMakCulIntMakIDPk"},
      {17, " tMakSName"},
      {26, " tMakSName"},
      {33, " tMakTsLast"}}                                                       },
    {"Patient",
     "TPatient",   Make<CPatRec>,
     {{1, " tPatCulIntPatIDPk"},
      {3, " tPatCulIntDrIDFk"},
      {4, " tPatCulIntPatIDPk"},
      {17, " tPatSName"},
      {19, " tPatSName"},
      {22, " tPatSFirstname"},
      {33, " tPatDBirthday"},
      {34, " tPatDBirthday"},
      {49, " tPatSExtPatID"},
      {50, " tPatSSrvID"},
      {51, " tPatSSlidaID"},
      {52, " tPatSSocID"},
      {53, " tPatSIDDisp"}}                                                      },
    {"Station",
     "TStation",   Make<CStatRec>,
     {{1, "tStatCulIntStatIDPk"}, {6, "tStatCulIntStatIDPk"}, {17, "tStatSName"}}},
    {"Test",
     "TTest",      Make<CTestRec>,
     {{1, "tTstCulIntTstIDPk"},
      {5, "tTstCulIntUnitIDFk"},
      {8, "tTstCulIntTstIDPk"},
      {17, "tTstSName"},
      {18, "tTstSPerson"},
      {25, "tTstSName"},
      {33, "tTstTs"},
      {36, "tTstTs"},
      {58, "tTstSType"},
      {59, "tTstSRegio"}}                                                        },
    {"Unit",
     "TUnit",      Make<CUnitRec>,
     {{1, "tUnitCulIntUnitIDPk"},
      {5, "tUnitCulIntUnitIDPk"},
      {17, "tUnitSName"},
      {23, "tUnitSName"},
      {33, "tUnitDAccept"},
      {58, "tUnitSType"}}                                                        },
};

void PrintTo(const BrowseSet& set, std::ostream* out) { *out << set.name; }

class BrowseSets : public testing::TestWithParam<BrowseSet> {};
INSTANTIATE_TEST_SUITE_P(Tables, BrowseSets, testing::ValuesIn(kSets),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST_P(BrowseSets, EveryFieldIdStandsForItsColumnAndAllOthersAreUnknown) {
  const auto set = GetParam().make(nullptr);
  for (LONG id = -2; id < 256; ++id) {
    const auto known = GetParam().fields.find(id);
    LONG error = 55;
    const CString expression = set->GetFieldName(id, &error);
    if (known != GetParam().fields.end()) {
      EXPECT_EQ(expression, known->second.c_str()) << id;
      EXPECT_EQ(error, 0) << id;
    } else {
      EXPECT_TRUE(expression.IsEmpty()) << id;
      EXPECT_EQ(error, 1) << id;
    }
    EXPECT_EQ(set->GetFieldName(id, nullptr), expression);
  }
}

TEST_P(BrowseSets, TheTableFollowsTheOwnerDirectly) {
  const auto set = GetParam().make("abc.");
  EXPECT_EQ(set->GetDefaultSQL(), CString("abc.") + GetParam().table);
  EXPECT_EQ(set->m_nOpenType, 1u);
}

TEST_P(BrowseSets, TheyConnectThroughOdbc) {
  EXPECT_EQ(GetParam().make(nullptr)->GetDefaultConnect(), "ODBC;");
}

TEST_P(BrowseSets, ASortOnTheOwnKeyIsAlwaysPossible) {
  const auto set = GetParam().make(nullptr);
  EXPECT_EQ(set->SetSortIndex(1), 0);
  EXPECT_EQ(set->m_strSort, GetParam().fields.at(1).c_str());
}

TEST_P(BrowseSets, AFieldOfAnotherTableIsRefusedInFilters) {
  const auto set = GetParam().make(nullptr);
  set->m_strFilter = "before";
  LONG number = 1;
  char text[] = "x";
  for (LONG id = 1; id < 128; ++id) {
    if (GetParam().fields.count(id) != 0) continue;
    void* value = id <= 11 ? static_cast<void*>(&number) : text;
    EXPECT_EQ(set->SetFilter(id, 0, value, nullptr, nullptr, nullptr), 1) << id;
  }
  EXPECT_EQ(set->m_strFilter, "before");
}

}  // namespace
