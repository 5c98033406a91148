#include "tables/makro_raw_rec.h"

#include "platform/local_time.h"
#include "tables/raw_column.h"
#include "tables/raw_rec_worker.h"

namespace {

constexpr RawColumn<CTMakRaw> kColumns[] = {
    {tMakCulIntMakIDPk, Kind::kKey,      &CTMakRaw::m_lMakID,   0                      },
    {tMakCulIntImgIDFk, Kind::kNumber,   &CTMakRaw::m_lImgID,   CMakRawRec::kImgID     },
    {tMakSName,         Kind::kText,     &CTMakRaw::m_strName,  CMakRawRec::kName      },
    {tMakTsLast,        Kind::kTime,     &CTMakRaw::m_tsLast,   CMakRawRec::kTimeLast  },
    {tMakSLoc,          Kind::kText,     &CTMakRaw::m_strLoc,   CMakRawRec::kLoc       },
    {tMakSFile,         Kind::kText,     &CTMakRaw::m_strFile,  CMakRawRec::kFile      },
    {tMakUwNo,          Kind::kNumber,   &CTMakRaw::m_lNo,      CMakRawRec::kNo        },
    {tMakSAdd,          Kind::kLongText, &CTMakRaw::m_strAdd,   CMakRawRec::kAdd       },
    {tMakSRegio,        Kind::kText,     &CTMakRaw::m_strRegio, CMakRawRec::kRegio     },
    {tMakTsCreate,      Kind::kTime,     &CTMakRaw::m_tsCreate, CMakRawRec::kTimeCreate},
};

// Mask bits of the natural key.
constexpr DWORD kNaturalKey = CMakRawRec::kImgID | CMakRawRec::kNo;

}  // namespace

constinit const CRuntimeClass CMakRawRec::classCMakRawRec = {"CMakRawRec", &CKyRecSet::classCKyRecSet};

CMakRawRec::CMakRawRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  SetRowKey(&m_record.m_lMakID);
}

CMakRawRec::~CMakRawRec() = default;

const CRuntimeClass* CMakRawRec::GetRuntimeClass() const { return &classCMakRawRec; }

CString CMakRawRec::GetDefaultSQL() { return m_strOwner + "TMakroRaw"; }

void CMakRawRec::DoFieldExchange(CFieldExchange* exchange) { column::Exchange(m_record, kColumns, exchange); }

WORD CMakRawRec::OpenQuery(const CTMakRaw& record) { return RawRecWorker::OpenQuery(*this, record); }

WORD CMakRawRec::Insert(CTMakRaw& record, LONG mask) {
  return RawRecWorker::Insert(*this, record, &CTMakRaw::m_lMakID, mask);
}

WORD CMakRawRec::Edit(CTMakRaw& record, LONG mask) {
  return RawRecWorker::Edit(*this, record, &CTMakRaw::m_lMakID, mask, [this] {
    m_dwFieldMask ^= kTimeLast;  // stamped when the caller gives no time of its own
    Refresh();
  });
}

void CMakRawRec::GetData(CTMakRaw& record) const { record = m_record; }

void CMakRawRec::SetData(const CTMakRaw& record) {
  raw_column::CopySelected(record, kColumns, m_dwFieldMask, &m_record);
}

int CMakRawRec::SetSelectFilter(const CTMakRaw& record) {
  if (record.m_lMakID != 0) {
    m_strFilter.Format(" (tMakCulIntMakIDPk=%d) ", record.m_lMakID);
    return TRUE;
  }
  if (record.m_lImgID == 0 || record.m_lNo == 0) return FALSE;
  m_strFilter.Format(" ((tMakCulIntImgIDFk=%d) AND (tMakUwNo=%d))", record.m_lImgID, record.m_lNo);
  m_dwFieldMask &= ~kNaturalKey;
  return TRUE;
}

WORD CMakRawRec::Refresh() {
  const WORD refused = RawRecWorker::RequireSchema();
  if (refused != kOk) return refused;
  if ((m_dwFieldMask & kTimeLast) != 0) m_record.m_tsLast = LocalNow();
  return kOk;
}
