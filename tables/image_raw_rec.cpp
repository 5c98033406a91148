#include "tables/image_raw_rec.h"

#include "recset/key_filter.h"
#include "tables/raw_column.h"
#include "tables/raw_rec_worker.h"

namespace {

constexpr RawColumn<CTImageRaw> kColumns[] = {
    {tImgCulIntImgIDPk,   Kind::kKey,      &CTImageRaw::m_lImgID,         0                       },
    {tImgCulIntPatIDFk,   Kind::kNumber,   &CTImageRaw::m_lPatID,         CImgRawRec::kPatID      },
    {tImgCulIntUnitIDFk,  Kind::kNumber,   &CTImageRaw::m_lUnitID,        CImgRawRec::kUnitID     },
    {tImgCulIntDrIDFk,    Kind::kNumber,   &CTImageRaw::m_lDrID,          CImgRawRec::kDrID       },
    {tImgSType,           Kind::kText,     &CTImageRaw::m_strType,        CImgRawRec::kType       },
    {tImgSRegio,          Kind::kText,     &CTImageRaw::m_strRegio,       CImgRawRec::kRegio      },
    {tImgSName,           Kind::kText,     &CTImageRaw::m_strName,        CImgRawRec::kName       },
    {tImgTs,              Kind::kTime,     &CTImageRaw::m_ts,             CImgRawRec::kTime       },
    {tImgSPreg,           Kind::kText,     &CTImageRaw::m_strPreg,        CImgRawRec::kPreg       },
    {tImgSOrdType,        Kind::kText,     &CTImageRaw::m_strOrdType,     CImgRawRec::kOrdType    },
    {tImgSOrdRegio,       Kind::kText,     &CTImageRaw::m_strOrdRegio,    CImgRawRec::kOrdRegio   },
    {tImgSOrdReason,      Kind::kText,     &CTImageRaw::m_strOrdReason,   CImgRawRec::kOrdReason  },
    {tImgSLoc,            Kind::kText,     &CTImageRaw::m_strLoc,         CImgRawRec::kLoc        },
    {tImgSFile,           Kind::kText,     &CTImageRaw::m_strFile,        CImgRawRec::kFile       },
    {tImgSPvwLoc,         Kind::kText,     &CTImageRaw::m_strPvwLoc,      CImgRawRec::kPvwLoc     },
    {tImgSPvwFile,        Kind::kText,     &CTImageRaw::m_strPvwFile,     CImgRawRec::kPvwFile    },
    {tImgSArcLoc,         Kind::kText,     &CTImageRaw::m_strArcLoc,      CImgRawRec::kArcLoc     },
    {tImgSArcFile,        Kind::kText,     &CTImageRaw::m_strArcFile,     CImgRawRec::kArcFile    },
    {tImgSArcType,        Kind::kText,     &CTImageRaw::m_strArcType,     CImgRawRec::kArcType    },
    {tImgSArcVol,         Kind::kText,     &CTImageRaw::m_strArcVol,      CImgRawRec::kArcVol     },
    {tImgDArcOut,         Kind::kDay,      &CTImageRaw::m_dArcOut,        CImgRawRec::kArcOut     },
    {tImgDArcIn,          Kind::kDay,      &CTImageRaw::m_dArcIn,         CImgRawRec::kArcIn      },
    {tImgCulIntMakIDLast, Kind::kNumber,   &CTImageRaw::m_lMakIDLast,     CImgRawRec::kMakIDLast  },
    {tImgSResponsible,    Kind::kText,     &CTImageRaw::m_strResponsible, CImgRawRec::kResponsible},
    {tImgIntRefImgID,     Kind::kNumber,   &CTImageRaw::m_lRefImgID,      CImgRawRec::kRefImgID   },
    {tImgSAdd,            Kind::kLongText, &CTImageRaw::m_strAdd,         CImgRawRec::kAdd        },
};

}  // namespace

constinit const CRuntimeClass CImgRawRec::classCImgRawRec = {"CImgRawRec", &CKyRecSet::classCKyRecSet};

CImgRawRec::CImgRawRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  SetRowKey(&m_record.m_lImgID);
}

CImgRawRec::~CImgRawRec() = default;

const CRuntimeClass* CImgRawRec::GetRuntimeClass() const { return &classCImgRawRec; }

CString CImgRawRec::GetDefaultSQL() { return m_strOwner + "TImageRaw"; }

void CImgRawRec::DoFieldExchange(CFieldExchange* exchange) { column::Exchange(m_record, kColumns, exchange); }

WORD CImgRawRec::OpenQuery(const CTImageRaw& record) { return RawRecWorker::OpenQuery(*this, record); }

WORD CImgRawRec::Insert(CTImageRaw& record, LONG mask) {
  return RawRecWorker::Insert(*this, record, &CTImageRaw::m_lImgID, mask);
}

WORD CImgRawRec::Edit(CTImageRaw& record, LONG mask) {
  return RawRecWorker::Edit(*this, record, &CTImageRaw::m_lImgID, mask);
}

void CImgRawRec::GetData(CTImageRaw& record) const { record = m_record; }

void CImgRawRec::SetData(const CTImageRaw& record) {
  raw_column::CopySelected(record, kColumns, m_dwFieldMask, &m_record);
}

int CImgRawRec::SetSelectFilter(const CTImageRaw& record) {
  if (record.m_lImgID != 0) {
    m_strFilter.Format(" (tImgCulIntImgIDPk=%d) ", record.m_lImgID);
    return TRUE;
  }
  if (record.m_lPatID != 0 && key_filter::HasDate(record.m_ts) &&
      record.m_strLoc == key_filter::kLibraryLocation) {
    SelectByTime(record);
    return TRUE;
  }
  if (record.m_lRefImgID == 0) return FALSE;
  if (record.m_lPatID != 0) {
    m_strFilter.Format(" (tImgCulIntPatIDFK=%d) AND (tImgIntRefImgID=%d)", record.m_lPatID,
                       record.m_lRefImgID);
    m_dwFieldMask &= ~DWORD{kPatID | kRefImgID};
    return TRUE;
  }
  m_strFilter.Format(" (tImgIntRefImgID=%d)", record.m_lRefImgID);
  m_dwFieldMask &= ~DWORD{kRefImgID};
  return TRUE;
}

void CImgRawRec::SelectByTime(const CTImageRaw& record) {
  m_strFilter.Format(" (tImgCulIntPatIDFK=%d) AND (tImgTS=%s) AND (tImgSLoc=%s)", record.m_lPatID,
                     MakeSQLTimeStamp(&record.m_ts), MakeSQLString(record.m_strLoc));
  m_dwFieldMask &= ~DWORD{kPatID | kTime | kLoc};
  if (record.m_strFile.IsEmpty()) return;
  // The one text that is not quoted: callers rely on passing it as it shall stand between the quotes.
  m_strFilter.Format("%s AND (tImgSFile='%s')", m_strFilter, record.m_strFile);
  m_dwFieldMask &= ~DWORD{kFile};
}
