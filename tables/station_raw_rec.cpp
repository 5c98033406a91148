#include "tables/station_raw_rec.h"

#include "tables/raw_column.h"
#include "tables/raw_rec_worker.h"

namespace {

constexpr RawColumn<CTStatRaw> kColumns[] = {
    {tStatCulIntStatIDPk, Kind::kKey,      &CTStatRaw::m_lStatID, 0                 },
    {tStatSName,          Kind::kText,     &CTStatRaw::m_strName, CStatRawRec::kName},
    {tStatSAdd,           Kind::kLongText, &CTStatRaw::m_strAdd,  CStatRawRec::kAdd },
};

// Mask bits of the natural key.
constexpr DWORD kNaturalKey = CStatRawRec::kName;

}  // namespace

constinit const CRuntimeClass CStatRawRec::classCStatRawRec = {"CStatRawRec", &CKyRecSet::classCKyRecSet};

CStatRawRec::CStatRawRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  SetRowKey(&m_record.m_lStatID);
}

CStatRawRec::~CStatRawRec() = default;

const CRuntimeClass* CStatRawRec::GetRuntimeClass() const { return &classCStatRawRec; }

CString CStatRawRec::GetDefaultSQL() { return m_strOwner + "TStationRaw"; }

void CStatRawRec::DoFieldExchange(CFieldExchange* exchange) {
  column::Exchange(m_record, kColumns, exchange);
}

WORD CStatRawRec::OpenQuery(const CTStatRaw& record) { return RawRecWorker::OpenQuery(*this, record); }

WORD CStatRawRec::Insert(CTStatRaw& record, LONG mask) {
  return RawRecWorker::Insert(*this, record, &CTStatRaw::m_lStatID, mask);
}

WORD CStatRawRec::Edit(CTStatRaw& record, LONG mask) {
  return RawRecWorker::Edit(*this, record, &CTStatRaw::m_lStatID, mask);
}

void CStatRawRec::GetData(CTStatRaw& record) const { record = m_record; }

void CStatRawRec::SetData(const CTStatRaw& record) {
  raw_column::CopySelected(record, kColumns, m_dwFieldMask, &m_record);
}

int CStatRawRec::SetSelectFilter(const CTStatRaw& record) {
  if (record.m_lStatID != 0) {
    m_strFilter.Format(" (tStatCulIntStatIDPk=%d) ", record.m_lStatID);
    return TRUE;
  }
  if (record.m_strName.IsEmpty()) return FALSE;
  m_strFilter = " (tStatSName=" + MakeSQLString(record.m_strName) + ") ";
  m_dwFieldMask &= ~kNaturalKey;
  return TRUE;
}
