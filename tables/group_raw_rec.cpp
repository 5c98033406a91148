#include "tables/group_raw_rec.h"

#include "recset/key_filter.h"
#include "tables/raw_column.h"
#include "tables/raw_rec_worker.h"

namespace {

constexpr RawColumn<CTGrpRaw> kColumns[] = {
    {tGrpCulIntGrpIDPk, Kind::kKey,      &CTGrpRaw::m_lGrpID,         0                       },
    {tGrpCulIntPatIDFk, Kind::kNumber,   &CTGrpRaw::m_lPatID,         CGrpRawRec::kPatID      },
    {tGrpSName,         Kind::kText,     &CTGrpRaw::m_strName,        CGrpRawRec::kName       },
    {tGrpTs,            Kind::kTime,     &CTGrpRaw::m_ts,             CGrpRawRec::kTime       },
    {tGrpSLoc,          Kind::kText,     &CTGrpRaw::m_strLoc,         CGrpRawRec::kLoc        },
    {tGrpSFile,         Kind::kText,     &CTGrpRaw::m_strFile,        CGrpRawRec::kFile       },
    {tGrpUwMakNo,       Kind::kNumber,   &CTGrpRaw::m_lMakNo,         CGrpRawRec::kMakNo      },
    {tGrpSPvwLoc,       Kind::kText,     &CTGrpRaw::m_strPvwLoc,      CGrpRawRec::kPvwLoc     },
    {tGrpSPvwFile,      Kind::kText,     &CTGrpRaw::m_strPvwFile,     CGrpRawRec::kPvwFile    },
    {tGrpTsLast,        Kind::kTime,     &CTGrpRaw::m_tsLast,         CGrpRawRec::kTimeLast   },
    {tGrpSResponsible,  Kind::kText,     &CTGrpRaw::m_strResponsible, CGrpRawRec::kResponsible},
    {tGrpSAdd,          Kind::kLongText, &CTGrpRaw::m_strAdd,         CGrpRawRec::kAdd        },
};

}  // namespace

constinit const CRuntimeClass CGrpRawRec::classCGrpRawRec = {"CGrpRawRec", &CKyRecSet::classCKyRecSet};

CGrpRawRec::CGrpRawRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  SetRowKey(&m_record.m_lGrpID);
}

CGrpRawRec::~CGrpRawRec() = default;

const CRuntimeClass* CGrpRawRec::GetRuntimeClass() const { return &classCGrpRawRec; }

CString CGrpRawRec::GetDefaultSQL() { return m_strOwner + "TGroupRaw"; }

void CGrpRawRec::DoFieldExchange(CFieldExchange* exchange) { column::Exchange(m_record, kColumns, exchange); }

WORD CGrpRawRec::OpenQuery(const CTGrpRaw& record) { return RawRecWorker::OpenQuery(*this, record); }

WORD CGrpRawRec::Insert(CTGrpRaw& record, LONG mask) {
  return RawRecWorker::Insert(*this, record, &CTGrpRaw::m_lGrpID, mask);
}

WORD CGrpRawRec::Edit(CTGrpRaw& record, LONG mask) {
  return RawRecWorker::Edit(*this, record, &CTGrpRaw::m_lGrpID, mask);
}

void CGrpRawRec::GetData(CTGrpRaw& record) const { record = m_record; }

void CGrpRawRec::SetData(const CTGrpRaw& record) {
  raw_column::CopySelected(record, kColumns, m_dwFieldMask, &m_record);
}

int CGrpRawRec::SetSelectFilter(const CTGrpRaw& record) {
  if (record.m_lGrpID != 0) {
    m_strFilter.Format(" ( tGrpCulIntGrpIDPk = %d ) ", record.m_lGrpID);
    return TRUE;
  }
  if (record.m_lPatID == 0) return FALSE;
  m_strFilter.Format(" ( tGrpCulIntPatIDFK = %d ) ", record.m_lPatID);
  m_dwFieldMask &= ~DWORD{kPatID};
  if (!record.m_strName.IsEmpty()) NarrowBy("( tGrpSName = ", MakeSQLString(record.m_strName), kName);
  if (key_filter::HasDate(record.m_ts)) NarrowBy("( tGrpTS = ", MakeSQLTimeStamp(&record.m_ts), kTime);
  if (key_filter::HasDate(record.m_tsLast)) {
    NarrowBy("( tGrpTsLast = ", MakeSQLTimeStamp(&record.m_tsLast), kTimeLast);
  }
  return TRUE;
}

void CGrpRawRec::NarrowBy(const char* condition, const CString& value, Field field) {
  m_strFilter += CString(" AND ") + condition + value + " ) ";
  m_dwFieldMask &= ~static_cast<DWORD>(field);
}

short CGrpRawRec::GetIntFieldID(LONG bit) {
  for (short column = 1; column < static_cast<short>(std::size(kColumns)); ++column) {
    if (bit == 1 << (column - 1)) return column;
  }
  return -1;
}
