#include "tables/doctor_raw_rec.h"

#include "tables/raw_column.h"
#include "tables/raw_rec_worker.h"

namespace {

constexpr RawColumn<CTDrRaw> kColumns[] = {
    {tDrCulIntDrIDPk, Kind::kKey,      &CTDrRaw::m_lDrID,    0                },
    {tDrSSrvID,       Kind::kText,     &CTDrRaw::m_strSrvID, CDrRawRec::kSrvID},
    {tDrSName,        Kind::kText,     &CTDrRaw::m_strName,  CDrRawRec::kName },
    {tDrFAct,         Kind::kFlag,     &CTDrRaw::m_bAct,     CDrRawRec::kAct  },
    {tDrSAdd,         Kind::kLongText, &CTDrRaw::m_strAdd,   CDrRawRec::kAdd  },
};

}  // namespace

constinit const CRuntimeClass CDrRawRec::classCDrRawRec = {"CDrRawRec", &CKyRecSet::classCKyRecSet};

CDrRawRec::CDrRawRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  SetRowKey(&m_record.m_lDrID);
}

CDrRawRec::~CDrRawRec() = default;

const CRuntimeClass* CDrRawRec::GetRuntimeClass() const { return &classCDrRawRec; }

CString CDrRawRec::GetDefaultSQL() { return m_strOwner + "TDoctorRaw"; }

void CDrRawRec::DoFieldExchange(CFieldExchange* exchange) { column::Exchange(m_record, kColumns, exchange); }

WORD CDrRawRec::OpenQuery(const CTDrRaw& record) { return RawRecWorker::OpenQuery(*this, record); }

WORD CDrRawRec::Insert(CTDrRaw& record, LONG mask) {
  return RawRecWorker::Insert(*this, record, &CTDrRaw::m_lDrID, mask);
}

WORD CDrRawRec::Edit(CTDrRaw& record, LONG mask) {
  return RawRecWorker::Edit(*this, record, &CTDrRaw::m_lDrID, mask);
}

void CDrRawRec::GetData(CTDrRaw& record) const { record = m_record; }

void CDrRawRec::SetData(const CTDrRaw& record) {
  raw_column::CopySelected(record, kColumns, m_dwFieldMask, &m_record);
}

int CDrRawRec::SetSelectFilter(const CTDrRaw& record) {
  if (record.m_lDrID != 0) {
    m_strFilter.Format(" (tDrCulIntDrIDPk=%d) ", record.m_lDrID);
    return TRUE;
  }
  if (!record.m_strSrvID.IsEmpty()) {
    m_strFilter = " (tDrSSrvID=" + MakeSQLString(record.m_strSrvID) + ") ";
    m_dwFieldMask &= ~DWORD{kSrvID};
    return TRUE;
  }
  if (record.m_strName.IsEmpty()) return FALSE;
  m_strFilter = " (tDrSName=" + MakeSQLString(record.m_strName) + ") ";
  // The server identifier, empty in such a record, is not written over.
  m_dwFieldMask &= ~DWORD{kName | kSrvID};
  return TRUE;
}
