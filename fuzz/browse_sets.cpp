#include "fuzz/browse_sets.h"

#include "recset/cfg_rec.h"
#include "recset/diag_rec.h"
#include "recset/dr_rec.h"
#include "recset/grp_rec.h"
#include "recset/img_rec.h"
#include "recset/mak_rec.h"
#include "recset/pat_rec.h"
#include "recset/patex_rec.h"
#include "recset/stat_rec.h"
#include "recset/test_rec.h"
#include "recset/unit_rec.h"

namespace fuzz {
namespace {

template <class Set>
std::unique_ptr<CKyRecSet> Make() {
  return std::make_unique<Set>(nullptr, "owner.");
}

constexpr std::unique_ptr<CKyRecSet> (*kMakers[kBrowseSets])() = {
    Make<CCfgRec>, Make<CDiagRec>, Make<CDrRec>,   Make<CGrpRec>,  Make<CImgRec>,   Make<CMakRec>,
    Make<CPatRec>, Make<CStatRec>, Make<CTestRec>, Make<CUnitRec>, Make<CPatExRec>,
};

}  // namespace

std::unique_ptr<CKyRecSet> MakeBrowseSet(std::size_t kind) { return kMakers[kind](); }

}  // namespace fuzz
