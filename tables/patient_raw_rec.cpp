#include "tables/patient_raw_rec.h"

#include "platform/local_time.h"
#include "recset/key_filter.h"
#include "recset/upcalls.h"
#include "tables/raw_column.h"
#include "tables/raw_rec_worker.h"

namespace {

constexpr RawColumn<CTPatientRaw> kColumns[] = {
    {tPatCulIntPatIDPk, Kind::kKey,      &CTPatientRaw::m_lPatID,         0                           },
    {tPatCulIntDrIDFk,  Kind::kNumber,   &CTPatientRaw::m_lDrID,          CPatientRawRec::kDrID       },
    {tPatSExtPatID,     Kind::kText,     &CTPatientRaw::m_strExtPatID,    CPatientRawRec::kExtPatID   },
    {tPatSSrvID,        Kind::kText,     &CTPatientRaw::m_strSrvID,       CPatientRawRec::kSrvID      },
    {tPatSSlidaID,      Kind::kText,     &CTPatientRaw::m_strSlidaID,     CPatientRawRec::kSlidaID    },
    {tPatSSocID,        Kind::kText,     &CTPatientRaw::m_strSocID,       CPatientRawRec::kSocID      },
    {tPatSName,         Kind::kText,     &CTPatientRaw::m_strName,        CPatientRawRec::kName       },
    {tPatSFirstname,    Kind::kText,     &CTPatientRaw::m_strFirstname,   CPatientRawRec::kFirstname  },
    {tPatDBirthday,     Kind::kDay,      &CTPatientRaw::m_dBirthday,      CPatientRawRec::kBirthday   },
    {tPatSSex,          Kind::kText,     &CTPatientRaw::m_strSex,         CPatientRawRec::kSex        },
    {tPatDEntry,        Kind::kDay,      &CTPatientRaw::m_dEntry,         CPatientRawRec::kEntry      },
    {tPatTsLastDisp,    Kind::kTime,     &CTPatientRaw::m_tsLastDisp,     CPatientRawRec::kLastDisp   },
    {tPatSIDDisp,       Kind::kText,     &CTPatientRaw::m_strIDDisp,      CPatientRawRec::kIDDisp     },
    {tPatFSelect,       Kind::kFlag,     &CTPatientRaw::m_bSelect,        CPatientRawRec::kSelect     },
    {tPatSResponsible,  Kind::kText,     &CTPatientRaw::m_strResponsible, CPatientRawRec::kResponsible},
    {tPatSAdd,          Kind::kLongText, &CTPatientRaw::m_strAdd,         CPatientRawRec::kAdd        },
};

}  // namespace

constinit const CRuntimeClass CPatientRawRec::classCPatientRawRec = {"CPatientRawRec",
                                                                     &CKyRecSet::classCKyRecSet};

CPatientRawRec::CPatientRawRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  SetRowKey(&m_record.m_lPatID);
}

CPatientRawRec::~CPatientRawRec() = default;

const CRuntimeClass* CPatientRawRec::GetRuntimeClass() const { return &classCPatientRawRec; }

CString CPatientRawRec::GetDefaultSQL() { return m_strOwner + "TPatientRaw"; }

void CPatientRawRec::DoFieldExchange(CFieldExchange* exchange) {
  column::Exchange(m_record, kColumns, exchange);
}

WORD CPatientRawRec::OpenQuery(const CTPatientRaw& record) { return RawRecWorker::OpenQuery(*this, record); }

WORD CPatientRawRec::Insert(CTPatientRaw& record, LONG mask) {
  return RawRecWorker::Insert(*this, record, &CTPatientRaw::m_lPatID, mask, [this] {
    m_dwFieldMask &= ~DWORD{kLastDisp};  // a new patient has no images: the caller's time stays
    Refresh();
  });
}

WORD CPatientRawRec::Edit(CTPatientRaw& record, LONG mask) {
  return RawRecWorker::Edit(*this, record, &CTPatientRaw::m_lPatID, mask & ~kEntry, [this] { Refresh(); });
}

void CPatientRawRec::GetData(CTPatientRaw& record) const { record = m_record; }

void CPatientRawRec::SetData(const CTPatientRaw& record) {
  raw_column::CopySelected(record, kColumns, m_dwFieldMask, &m_record);
}

int CPatientRawRec::SetSelectFilter(const CTPatientRaw& record) {
  const WORD refused = RawRecWorker::RequireSchema();
  if (refused != kOk) return refused;
  if (record.m_lPatID != 0) {
    m_strFilter.Format(" (tPatCulIntPatIDPk=%d) ", record.m_lPatID);
    return TRUE;
  }
  if (!record.m_strSlidaID.IsEmpty()) {
    m_strFilter = " (tPatSSlidaID=" + MakeSQLString(record.m_strSlidaID) + ") ";
    m_dwFieldMask &= ~DWORD{kSlidaID};
    return TRUE;
  }
  if (!record.m_strSrvID.IsEmpty()) {
    m_strFilter = " (tPatSSrvID=" + MakeSQLString(record.m_strSrvID) + ") ";
    m_dwFieldMask &= ~DWORD{kSrvID | kSlidaID};
    return TRUE;
  }
  return SelectByName(record);
}

int CPatientRawRec::SelectByName(const CTPatientRaw& record) {
  if (record.m_strName.IsEmpty() || record.m_strFirstname.IsEmpty() ||
      !key_filter::HasDate(record.m_dBirthday)) {
    return FALSE;
  }
  m_strFilter = " ((tPatSName=" + MakeSQLString(record.m_strName) +
                ") AND (tPatSFirstname=" + MakeSQLString(record.m_strFirstname) +
                ") AND (tPatDBirthday=" + MakeSQLDate(&record.m_dBirthday) + ")";
  // The server and Slida identifiers, empty in such a record, are not written over.
  m_dwFieldMask &= ~DWORD{kSrvID | kSlidaID | kName | kFirstname | kBirthday};
  if (record.m_lDrID != 0) {
    m_strFilter.AppendFormat(" AND (tPatCulIntDrIDFk = %d)", record.m_lDrID);
    m_dwFieldMask &= ~DWORD{kDrID};
  }
  if (!record.m_strIDDisp.IsEmpty()) {
    m_strFilter.AppendFormat(" AND (tPatSIDDisp = %s)", MakeSQLString(record.m_strIDDisp));
    m_dwFieldMask &= ~DWORD{kIDDisp};
  }
  m_strFilter += ") ";
  return TRUE;
}

// While a row is added, a member that nothing was assigned to holds a text that stands for that.
bool CPatientRawRec::HasText(CString& member) {
  return !member.IsEmpty() && (!IsFieldNull(&member) || IsFieldDirty(&member));
}

WORD CPatientRawRec::Refresh() {
  const WORD refused = RawRecWorker::RequireSchema();
  if (refused != kOk) return refused;
  if ((m_dwFieldMask & kEntry) != 0) m_record.m_dEntry = LocalToday();
  if ((m_dwFieldMask & kLastDisp) != 0 &&
      upcalls::NewestImage(upcalls::LibraryDatabase(), nullptr, m_record.m_lPatID, nullptr,
                           &m_record.m_tsLastDisp) != kOk) {
    m_record.m_tsLastDisp = m_record.m_dEntry;
  }
  if ((m_dwFieldMask & kIDDisp) != 0) RefreshDisplayID();
  return kOk;
}

void CPatientRawRec::RefreshDisplayID() {
  if (HasText(m_record.m_strSlidaID)) {
    m_record.m_strIDDisp = m_record.m_strSlidaID;
  } else if (HasText(m_record.m_strExtPatID)) {
    m_record.m_strIDDisp = m_record.m_strExtPatID;
    m_record.m_strSlidaID.Empty();
  } else {
    m_record.m_strIDDisp.Empty();
    SetFieldNull(&m_record.m_strSlidaID);
    SetFieldNull(&m_record.m_strExtPatID);
  }
}
