#include "recset/img_rec.h"

#include "platform/cdbexception.h"
#include "platform/log.h"
#include "platform/result_codes.h"
#include "recset/column_ops.h"
#include "recset/key_filter.h"
#include "recset/upcalls.h"
#include "tables/image.h"
#include "tables/record_fields.h"

namespace {

constexpr Column<CImgRec> kColumns[] = {
    {tImgCulIntImgIDPk,   Kind::kKey,    &CImgRec::m_lID,          SLOT(tagTIMAGE, lImgID),      0       },
    {tImgCulIntDrIDFk,    Kind::kNumber, &CImgRec::m_lDrID,        SLOT(tagTIMAGE, lDrID),       0x4     },
    {tImgCulIntPatIDFk,   Kind::kNumber, &CImgRec::m_lPatID,       SLOT(tagTIMAGE, lPatID),      0x1     },
    {tImgCulIntUnitIDFk,  Kind::kNumber, &CImgRec::m_lUnitID,      SLOT(tagTIMAGE, lUnitID),     0x2     },
    {tImgDArcIn,          Kind::kDay,    &CImgRec::m_dArcIn,       SLOT(tagTIMAGE, dArcIn),      0x10000 },
    {tImgDArcOut,         Kind::kDay,    &CImgRec::m_dArcOut,      SLOT(tagTIMAGE, dArcOut),     0x8000  },
    {tImgSArcType,        Kind::kText,   &CImgRec::m_strArcType,   SLOT(tagTIMAGE, szArcType),   0x800   },
    {tImgSArcFile,        Kind::kText,   &CImgRec::m_strArcFile,   SLOT(tagTIMAGE, szArcFile),   0x2000  },
    {tImgSArcLoc,         Kind::kText,   &CImgRec::m_strArcLoc,    SLOT(tagTIMAGE, szArcLoc),    0x1000  },
    {tImgSArcVol,         Kind::kText,   &CImgRec::m_strArcVol,    SLOT(tagTIMAGE, szArcVol),    0x4000  },
    {tImgSFile,           Kind::kText,   &CImgRec::m_strFile,      SLOT(tagTIMAGE, szFile),      0x100000},
    {tImgSLoc,            Kind::kText,   &CImgRec::m_strLoc,       SLOT(tagTIMAGE, szLoc),       0x80000 },
    {tImgSName,           Kind::kText,   &CImgRec::m_strName,      SLOT(tagTIMAGE, szName),      0x20    },
    {tImgSOrdReason,      Kind::kText,   &CImgRec::m_strOrdReason, SLOT(tagTIMAGE, szOrdReason), 0x400   },
    {tImgSOrdRegio,       Kind::kText,   &CImgRec::m_strOrdRegio,  SLOT(tagTIMAGE, szOrdRegio),  0x200   },
    {tImgSOrdType,        Kind::kText,   &CImgRec::m_strOrdType,   SLOT(tagTIMAGE, szOrdType),   0x100   },
    {tImgSPreg,           Kind::kText,   &CImgRec::m_strPreg,      SLOT(tagTIMAGE, szPreg),      0x80    },
    {tImgSPvwFile,        Kind::kText,   &CImgRec::m_strPvwFile,   SLOT(tagTIMAGE, szPvwFile),   0x40000 },
    {tImgSPvwLoc,         Kind::kText,   &CImgRec::m_strPvwLoc,    SLOT(tagTIMAGE, szPvwLoc),    0x20000 },
    {tImgSRegio,          Kind::kText,   &CImgRec::m_strRegio,     SLOT(tagTIMAGE, szRegio),     0x10    },
    {tImgSType,           Kind::kText,   &CImgRec::m_strType,      SLOT(tagTIMAGE, szType),      0x8     },
    {tImgTs,              Kind::kTime,   &CImgRec::m_ts,           SLOT(tagTIMAGE, ts),          0x40    },
    {tImgCulIntMakIDLast, Kind::kNumber, &CImgRec::m_lMakIDLast,   SLOT(tagTIMAGE, lMakIDLast),  0x200000},
};

// Id 5 names a column that images do not have: callers rely on such filters and sorts failing.
constexpr FieldId kFieldIds[] = {
    {1,  tImgCulIntImgIDPk   },
    {2,  tImgCulIntImgIDPk   },
    {3,  tImgCulIntDrIDFk    },
    {4,  tImgCulIntPatIDFk   },
    {5,  "tImgCulIntUnitIDPk"},
    {17, tImgSName           },
    {24, tImgSName           },
    {33, tImgTs              },
    {36, tImgTs              },
    {58, tImgSType           },
    {59, tImgSRegio          },
};

// Mask bits of the natural key.
constexpr DWORD kNaturalKey = 0x1 | 0x40 | 0x80000;

}  // namespace

CImgRec::CImgRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  HoldRows(keysOnly);
}

CImgRec::~CImgRec() = default;

CString CImgRec::GetDefaultConnect() { return "ODBC;"; }

CString CImgRec::GetDefaultSQL() { return m_strOwner + "TImage"; }

void CImgRec::DoFieldExchange(CFieldExchange* exchange) { column::Exchange(*this, kColumns, exchange); }

CString CImgRec::GetFieldName(LONG field, LONG* error) {
  return column::Expression(*this, kFieldIds, " ", field, error);
}

// The patient is remembered before the delete: afterwards the members hold the following row.
WORD CImgRec::DeleteByPos(LONG position) {
  LONG patient = 0;
  try {
    const WORD found = GetByPos(&position);
    if (found != kOk) return IsGone(position) ? kDeleteFailed : found;
    patient = m_lPatID;
  } catch (CDBException* exception) {
    return klog::Caught(exception, kDeleteFailed);
  }
  const WORD deleted = CKyRecSet::DeleteByPos(0);
  if (deleted == kOk) upcalls::RefreshLastDisplay(m_pDatabase, m_strOwner, patient);
  return deleted;
}

WORD CImgRec::GetRecByPos(tagTIMAGE* record, LONG* position) {
  if (record == nullptr) return kBadArgument;
  const WORD code = GetByPos(position);
  if (code == kOk) CopyOut(record);
  return code;
}

void CImgRec::CopyOut(tagTIMAGE* record) const { column::CopyOut(*this, kColumns, record); }

void CImgRec::CopyIn(const tagTIMAGE* record) { column::CopyIn(*this, kColumns, record); }

BOOL CImgRec::SelectRow(const tagTIMAGE* record) {
  if (record == nullptr) return FALSE;
  if (record->lImgID != 0) {
    m_strFilter.Format(" (tImgCulIntImgIDPk=%d) ", record->lImgID);
    return TRUE;
  }
  const TIMESTAMP_STRUCT time = fields::Time(&record->ts);
  const CString location = fields::Text(record->szLoc);
  if (record->lPatID == 0 || !key_filter::HasDate(time) || location != key_filter::kLibraryLocation)
    return FALSE;
  m_strFilter.Format(" (tImgCulIntPatIDFK=%d) ", record->lPatID);
  m_strFilter += "AND (tImgTS=" + MakeSQLTimeStamp(&time) + " ) ";
  m_strFilter += "AND (tImgSLoc=" + MakeSQLString(location) + " ) ";
  m_dwFieldMask &= ~kNaturalKey;
  return TRUE;
}
