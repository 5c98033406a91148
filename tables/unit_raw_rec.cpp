#include "tables/unit_raw_rec.h"

#include "tables/raw_column.h"
#include "tables/raw_rec_worker.h"

namespace {

constexpr RawColumn<CTUnitRaw> kColumns[] = {
    {tUnitCulIntUnitIDPk, Kind::kKey,      &CTUnitRaw::m_lUnitID,        0                        },
    {tUnitSType,          Kind::kText,     &CTUnitRaw::m_strType,        CUnitRawRec::kType       },
    {tUnitSName,          Kind::kText,     &CTUnitRaw::m_strName,        CUnitRawRec::kName       },
    {tUnitDAccept,        Kind::kDay,      &CTUnitRaw::m_dAccept,        CUnitRawRec::kAccept     },
    {tUnitSCtrlUnitSNo,   Kind::kText,     &CTUnitRaw::m_strCtrlUnitSNo, CUnitRawRec::kCtrlUnitSNo},
    {tUnitSSensSNo,       Kind::kText,     &CTUnitRaw::m_strSensSNo,     CUnitRawRec::kSensSNo    },
    {tUnitSGenSNo,        Kind::kText,     &CTUnitRaw::m_strGenSNo,      CUnitRawRec::kGenSNo     },
    {tUnitSTubeSNo,       Kind::kText,     &CTUnitRaw::m_strTubeSNo,     CUnitRawRec::kTubeSNo    },
    {tUnitSCtrlElemSNo,   Kind::kText,     &CTUnitRaw::m_strCtrlElemSNo, CUnitRawRec::kCtrlElemSNo},
    {tUnitSConeSNo,       Kind::kText,     &CTUnitRaw::m_strConeSNo,     CUnitRawRec::kConeSNo    },
    {tUnitSTestBodySNo,   Kind::kText,     &CTUnitRaw::m_strTestBodySNo, CUnitRawRec::kTestBodySNo},
    {tUnitSAdd,           Kind::kLongText, &CTUnitRaw::m_strAdd,         CUnitRawRec::kAdd        },
};

// Mask bits of the natural key.
constexpr DWORD kNaturalKey = CUnitRawRec::kName;

}  // namespace

constinit const CRuntimeClass CUnitRawRec::classCUnitRawRec = {"CUnitRawRec", &CKyRecSet::classCKyRecSet};

CUnitRawRec::CUnitRawRec() : CKyRecSet(nullptr, "") {
  m_nFields = std::size(kColumns);
  SetRowKey(&m_record.m_lUnitID);
}

CUnitRawRec::~CUnitRawRec() = default;

const CRuntimeClass* CUnitRawRec::GetRuntimeClass() const { return &classCUnitRawRec; }

CString CUnitRawRec::GetDefaultSQL() { return m_strOwner + "TUnitRaw"; }

void CUnitRawRec::DoFieldExchange(CFieldExchange* exchange) {
  column::Exchange(m_record, kColumns, exchange);
}

WORD CUnitRawRec::OpenQuery(const CTUnitRaw& record) { return RawRecWorker::OpenQuery(*this, record); }

WORD CUnitRawRec::Insert(CTUnitRaw& record, LONG mask) {
  return RawRecWorker::Insert(*this, record, &CTUnitRaw::m_lUnitID, mask);
}

WORD CUnitRawRec::Edit(CTUnitRaw& record, LONG mask) {
  return RawRecWorker::Edit(*this, record, &CTUnitRaw::m_lUnitID, mask);
}

void CUnitRawRec::GetData(CTUnitRaw& record) const { record = m_record; }

void CUnitRawRec::SetData(const CTUnitRaw& record) {
  raw_column::CopySelected(record, kColumns, m_dwFieldMask, &m_record);
}

int CUnitRawRec::SetSelectFilter(const CTUnitRaw& record) {
  if (record.m_lUnitID != 0) {
    m_strFilter.Format(" (tUnitCulIntUnitIDPk=%d) ", record.m_lUnitID);
    return TRUE;
  }
  if (record.m_strName.IsEmpty()) return FALSE;
  m_strFilter = " (tUnitSName=" + MakeSQLString(record.m_strName) + ") ";
  m_dwFieldMask &= ~kNaturalKey;
  return TRUE;
}
