#include "tables/diagnosis_raw_rec.h"

#include "tables/raw_column.h"
#include "tables/raw_rec_worker.h"

namespace {

constexpr RawColumn<CTDiagRaw> kColumns[] = {
    {tDiagCulIntDiagIDPk, Kind::kKey,      &CTDiagRaw::m_lDiagID,        0                        },
    {tDiagCulIntImgIDFk,  Kind::kNumber,   &CTDiagRaw::m_lImgID,         CDiagRawRec::kImgID      },
    {tDiagCulIntDrIDFk,   Kind::kNumber,   &CTDiagRaw::m_lDrID,          CDiagRawRec::kDrID       },
    {tDiagSRegio,         Kind::kText,     &CTDiagRaw::m_strRegio,       CDiagRawRec::kRegio      },
    {tDiagTs,             Kind::kTime,     &CTDiagRaw::m_ts,             CDiagRawRec::kTime       },
    {tDiagSCode,          Kind::kText,     &CTDiagRaw::m_strCode,        CDiagRawRec::kCode       },
    {tDiagSText,          Kind::kLongText, &CTDiagRaw::m_strText,        CDiagRawRec::kText       },
    {tDiagSResponsible,   Kind::kText,     &CTDiagRaw::m_strResponsible, CDiagRawRec::kResponsible},
    {tDiagIntMakID,       Kind::kNumber,   &CTDiagRaw::m_lMakID,         CDiagRawRec::kMakID      },
    {tDiagSAdd,           Kind::kLongText, &CTDiagRaw::m_strAdd,         CDiagRawRec::kAdd        },
};

// Mask bits of the natural key.
constexpr DWORD kNaturalKey = CDiagRawRec::kImgID;

}  // namespace

constinit const CRuntimeClass CDiagRawRec::classCDiagRawRec = {"CDiagRawRec", &CKyRecSet::classCKyRecSet};

CDiagRawRec::CDiagRawRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  SetRowKey(&m_record.m_lDiagID);
}

CDiagRawRec::~CDiagRawRec() = default;

const CRuntimeClass* CDiagRawRec::GetRuntimeClass() const { return &classCDiagRawRec; }

CString CDiagRawRec::GetDefaultSQL() { return m_strOwner + "TDiagnosisRaw"; }

void CDiagRawRec::DoFieldExchange(CFieldExchange* exchange) {
  column::Exchange(m_record, kColumns, exchange);
}

WORD CDiagRawRec::OpenQuery(const CTDiagRaw& record) { return RawRecWorker::OpenQuery(*this, record); }

WORD CDiagRawRec::Insert(CTDiagRaw& record, LONG mask) {
  return RawRecWorker::Insert(*this, record, &CTDiagRaw::m_lDiagID, mask);
}

WORD CDiagRawRec::Edit(CTDiagRaw& record, LONG mask) {
  return RawRecWorker::Edit(*this, record, &CTDiagRaw::m_lDiagID, mask);
}

void CDiagRawRec::GetData(CTDiagRaw& record) const { record = m_record; }

void CDiagRawRec::SetData(const CTDiagRaw& record) {
  raw_column::CopySelected(record, kColumns, m_dwFieldMask, &m_record);
}

int CDiagRawRec::SetSelectFilter(const CTDiagRaw& record) {
  if (record.m_lDiagID != 0) {
    m_strFilter.Format(" ( tDiagCulIntDiagIDPk = %d ) ", record.m_lDiagID);
    return TRUE;
  }
  if (record.m_lImgID == 0) return FALSE;
  m_strFilter.Format(" ( tDiagCulIntImgIDFk = %d ) ", record.m_lImgID);
  m_dwFieldMask &= ~kNaturalKey;
  return TRUE;
}
