#include "tables/config_raw_rec.h"

#include "tables/raw_column.h"
#include "tables/raw_rec_worker.h"

namespace {

constexpr RawColumn<CTCfgRaw> kColumns[] = {
    {tCfgCulIntCfgIDPk,  Kind::kKey,      &CTCfgRaw::m_lCfgID,    0                  },
    {tCfgCulIntDrIDFk,   Kind::kNumber,   &CTCfgRaw::m_lDrID,     CCfgRawRec::kDrID  },
    {tCfgCulIntStatIDFk, Kind::kNumber,   &CTCfgRaw::m_lStatID,   CCfgRawRec::kStatID},
    {tCfgSKey,           Kind::kText,     &CTCfgRaw::m_strKey,    CCfgRawRec::kKey   },
    {tCfgSSet,           Kind::kText,     &CTCfgRaw::m_strSet,    CCfgRawRec::kSet   },
    {tCfgSAdd,           Kind::kLongText, &CTCfgRaw::m_strAdd,    CCfgRawRec::kAdd   },
    {tCfgSPerson,        Kind::kText,     &CTCfgRaw::m_strPerson, CCfgRawRec::kPerson},
};

// Mask bits of the natural key.
constexpr DWORD kNaturalKey = CCfgRawRec::kDrID | CCfgRawRec::kStatID | CCfgRawRec::kKey;

}  // namespace

constinit const CRuntimeClass CCfgRawRec::classCCfgRawRec = {"CCfgRawRec", &CKyRecSet::classCKyRecSet};

CCfgRawRec::CCfgRawRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  SetRowKey(&m_record.m_lCfgID);
}

CCfgRawRec::~CCfgRawRec() = default;

const CRuntimeClass* CCfgRawRec::GetRuntimeClass() const { return &classCCfgRawRec; }

CString CCfgRawRec::GetDefaultSQL() { return m_strOwner + "TConfigRaw"; }

void CCfgRawRec::DoFieldExchange(CFieldExchange* exchange) { column::Exchange(m_record, kColumns, exchange); }

WORD CCfgRawRec::OpenQuery(const CTCfgRaw& record) { return RawRecWorker::OpenQuery(*this, record); }

WORD CCfgRawRec::Insert(CTCfgRaw& record, LONG mask) {
  return RawRecWorker::Insert(*this, record, &CTCfgRaw::m_lCfgID, mask);
}

WORD CCfgRawRec::Edit(CTCfgRaw& record, LONG mask) {
  return RawRecWorker::Edit(*this, record, &CTCfgRaw::m_lCfgID, mask);
}

void CCfgRawRec::GetData(CTCfgRaw& record) const { record = m_record; }

void CCfgRawRec::SetData(const CTCfgRaw& record) {
  raw_column::CopySelected(record, kColumns, m_dwFieldMask, &m_record);
}

int CCfgRawRec::SetSelectFilter(const CTCfgRaw& record) {
  if (record.m_lCfgID != 0) {
    m_strFilter.Format(" ( tCfgCulIntCfgIDPk = %d ) ", record.m_lCfgID);
    return TRUE;
  }
  if (record.m_lDrID == 0 || record.m_lStatID == 0 || record.m_strKey.IsEmpty()) return FALSE;
  m_strFilter.Format(" (( tCfgCulIntDrIDFk = %d ) AND ( tCfgCulIntStatIDFk = %d ) AND ( tCfgSKey = %s )) ",
                     record.m_lDrID, record.m_lStatID, MakeSQLString(record.m_strKey));
  m_dwFieldMask &= ~kNaturalKey;
  return TRUE;
}
