#include "tables/test_raw_rec.h"

#include "recset/key_filter.h"
#include "tables/raw_column.h"
#include "tables/raw_rec_worker.h"

namespace {

// The archive's file name is bound to the member of the file name, not to its own: callers rely on it.
constexpr RawColumn<CTTestRaw> kColumns[] = {
    {tTstCulIntTstIDPk,  Kind::kKey,      &CTTestRaw::m_lTstID,     0                    },
    {tTstCulIntUnitIDFk, Kind::kNumber,   &CTTestRaw::m_lUnitID,    CTestRawRec::kUnitID },
    {tTstSPerson,        Kind::kText,     &CTTestRaw::m_strPerson,  CTestRawRec::kPerson },
    {tTstSType,          Kind::kText,     &CTTestRaw::m_strType,    CTestRawRec::kType   },
    {tTstSRegio,         Kind::kText,     &CTTestRaw::m_strRegio,   CTestRawRec::kRegio  },
    {tTstSName,          Kind::kText,     &CTTestRaw::m_strName,    CTestRawRec::kName   },
    {tTstTs,             Kind::kTime,     &CTTestRaw::m_ts,         CTestRawRec::kTime   },
    {tTstSResult,        Kind::kLongText, &CTTestRaw::m_strResult,  CTestRawRec::kResult },
    {tTstSLoc,           Kind::kText,     &CTTestRaw::m_strLoc,     CTestRawRec::kLoc    },
    {tTstSFile,          Kind::kText,     &CTTestRaw::m_strFile,    CTestRawRec::kFile   },
    {tTstSArcLoc,        Kind::kText,     &CTTestRaw::m_strArcLoc,  CTestRawRec::kArcLoc },
    {tTstSArcFile,       Kind::kText,     &CTTestRaw::m_strFile,    0                    },
    {tTstSArcVol,        Kind::kText,     &CTTestRaw::m_strArcVol,  CTestRawRec::kArcVol },
    {tTstSArcType,       Kind::kText,     &CTTestRaw::m_strArcType, CTestRawRec::kArcType},
    {tTstDArcOut,        Kind::kDay,      &CTTestRaw::m_dArcOut,    CTestRawRec::kArcOut },
    {tTstDArcIn,         Kind::kDay,      &CTTestRaw::m_dArcIn,     CTestRawRec::kArcIn  },
    {tTstSAdd,           Kind::kLongText, &CTTestRaw::m_strAdd,     CTestRawRec::kAdd    },
};

// Mask bits of the natural key. The location is among them although no filter names it: callers rely on a
// test that is found by its time keeping its location.
constexpr DWORD kNaturalKey = CTestRawRec::kUnitID | CTestRawRec::kTime | CTestRawRec::kLoc;

}  // namespace

constinit const CRuntimeClass CTestRawRec::classCTestRawRec = {"CTestRawRec", &CKyRecSet::classCKyRecSet};

CTestRawRec::CTestRawRec() : CKyRecSet(nullptr, "") {
  m_nFields = std::size(kColumns);
  SetRowKey(&m_record.m_lTstID);
}

CTestRawRec::~CTestRawRec() = default;

const CRuntimeClass* CTestRawRec::GetRuntimeClass() const { return &classCTestRawRec; }

CString CTestRawRec::GetDefaultSQL() { return m_strOwner + "TTestRaw"; }

void CTestRawRec::DoFieldExchange(CFieldExchange* exchange) {
  column::Exchange(m_record, kColumns, exchange);
}

WORD CTestRawRec::OpenQuery(const CTTestRaw& record) { return RawRecWorker::OpenQuery(*this, record); }

WORD CTestRawRec::Insert(CTTestRaw& record, LONG mask) {
  return RawRecWorker::Insert(*this, record, &CTTestRaw::m_lTstID, mask);
}

WORD CTestRawRec::Edit(CTTestRaw& record, LONG mask) {
  return RawRecWorker::Edit(*this, record, &CTTestRaw::m_lTstID, mask);
}

void CTestRawRec::GetData(CTTestRaw& record) const { record = m_record; }

void CTestRawRec::SetData(const CTTestRaw& record) {
  raw_column::CopySelected(record, kColumns, m_dwFieldMask, &m_record);
  // Not bound to its column, but copied like every member.
  if ((m_dwFieldMask & kArcFile) != 0) m_record.m_strArcFile = record.m_strArcFile;
}

int CTestRawRec::SetSelectFilter(const CTTestRaw& record) {
  if (record.m_lTstID != 0) {
    m_strFilter.Format(" (tTstCulIntTstIDPk=%d) ", record.m_lTstID);
    return TRUE;
  }
  if (record.m_lUnitID == 0 || !key_filter::HasDate(record.m_ts)) return FALSE;
  m_strFilter.Format(" (tTstCulIntUnitIDFk=%d) ", record.m_lUnitID);
  m_strFilter += "AND (tTstTs=" + MakeSQLTimeStamp(&record.m_ts) + " ) ";
  m_dwFieldMask &= ~kNaturalKey;
  return TRUE;
}
