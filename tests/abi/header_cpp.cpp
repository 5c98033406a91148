// The chief header as a C++ program sees it: types of the functions, and the exported classes with it.
#include <KyODBC.h>
#include <gtest/gtest.h>

#include <type_traits>

namespace {

template <class Expected, class Function>
constexpr bool Is(Function*) {
  return std::is_same_v<Expected, Function>;
}

using Filter = WORD(LONG, LONG, const void*, const void*, const void*, const void*);

static_assert(Is<WORD()>(DB_OpenTPat) && Is<BOOL()>(DB_IsTPatOpen) && Is<LONG()>(DB_GetTPatIndexPos));
static_assert(Is<LONG(LONG)>(DB_MoveToTImgByIntID) && Is<LONG(const char*)>(DB_MoveToPatExByString));
static_assert(Is<Filter>(DB_SetTCfgFilter) && Is<Filter>(DB_SetPatExFilter));
static_assert(Is<WORD(LONG)>(DB_SetTGrpSortIndex) && Is<WORD(LONG*)>(DB_GetTMakMaxPos));
static_assert(Is<WORD(LONG, tagTSTATION*)>(DB_GetTStatByPos));
static_assert(Is<WORD(LONG, tagTPATIENTEX*)>(DB_GetPatExByPos));
static_assert(Is<WORD(tagTIMAGE*)>(DB_AddNewTImg) && Is<WORD(tagTTEST*, DWORD)>(DB_EditSelTTest));
static_assert(Is<WORD(LONG*)>(DB_GetNumTDr) && Is<WORD(LONG, LONG*)>(DB_GetNumTTest));
static_assert(Is<WORD(LONG*)>(DB_GetLastDiagID));
static_assert(Is<WORD(LONG, LONG*, TIMESTAMP_STRUCT*)>(DB_GetLastTMakDate));
static_assert(Is<CDatabase*()>(DB_GetDatabase) && Is<WORD(const tagDBCONNECT*)>(DB_InitDatabase));
static_assert(Is<BOOL(WORD, WORD*)>(DB_CheckVersion) && Is<WORD(double*)>(DB_GetDBVersion));
static_assert(Is<WORD(tagPATIENTCOMPACT*, LONG)>(DB_GetPatByPos));
static_assert(Is<WORD(const char*, const char*, const char*, char*, LONG, LONG*)>(DB_GetProfileString));

// Complete types: the header brings the exported classes along.
static_assert(std::is_base_of_v<CRecordset, CKyRecSet> && std::is_base_of_v<CObject, CDatabase>);
static_assert(std::is_base_of_v<TIMESTAMP_STRUCT, CDBTimeStamp>);
template <class... Classes>
constexpr bool kHaveVirtualDestructors = (std::has_virtual_destructor_v<Classes> && ...);
static_assert(kHaveVirtualDestructors<CTCfgRaw, CTDiagRaw, CTDrRaw, CTGrpRaw, CTImageRaw, CTMakRaw,
                                      CTPatientRaw, CTStatRaw, CTTestRaw, CTUnitRaw>);
template <class... Classes>
constexpr bool kAreRecordSets = (std::is_base_of_v<CKyRecSet, Classes> && ...);
static_assert(kAreRecordSets<CCfgRawRec, CDiagRawRec, CDrRawRec, CGrpRawRec, CImgRawRec, CMakRawRec,
                             CPatientRawRec, CStatRawRec, CTestRawRec, CUnitRawRec, CDynamicRec>);

TEST(ChiefHeader, InterfaceVersionOfHeaderAndLibraryIs261) {
  WORD version = 0;
  EXPECT_TRUE(DB_CheckVersion(KYODBC_INTERFACE_VERSION, &version));
  EXPECT_EQ(version, 261);
  EXPECT_EQ(KYODBC_INTERFACE_VERSION, 261);
}

TEST(ChiefHeader, RecordClassesOfTheLibraryWorkForCallers) {
  tagTSTATION record{};
  record.lStatID = 7;
  record.szName[0] = 'S';
  CTStatRaw station;
  station.CopyFrom(record);
  const CTStatRaw copy(station);
  EXPECT_EQ(copy.m_lStatID, 7);
  EXPECT_STREQ(copy.m_strName, "S");
}

}  // namespace
