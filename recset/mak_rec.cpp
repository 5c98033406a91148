#include "recset/mak_rec.h"

#include "platform/local_time.h"
#include "platform/result_codes.h"
#include "recset/column_ops.h"
#include "tables/makro.h"
#include "tables/record_fields.h"

namespace {

constexpr Column<CMakRec> kColumns[] = {
    {tMakCulIntMakIDPk, Kind::kKey,     &CMakRec::m_lID,     SLOT(tagTMAKRO, lMakID), 0   },
    {tMakCulIntImgIDFk, Kind::kNumber,  &CMakRec::m_lImgID,  SLOT(tagTMAKRO, lImgID), 0x1 },
    {tMakSFile,         Kind::kText,    &CMakRec::m_strFile, SLOT(tagTMAKRO, szFile), 0x8 },
    {tMakSLoc,          Kind::kText,    &CMakRec::m_strLoc,  SLOT(tagTMAKRO, szLoc),  0x10},
    {tMakSName,         Kind::kText,    &CMakRec::m_strName, SLOT(tagTMAKRO, szName), 0x2 },
    {tMakUwNo,          Kind::kOrdinal, &CMakRec::m_nNo,     SLOT(tagTMAKRO, wNo),    0x20},
    {tMakTsLast,        Kind::kTime,    &CMakRec::m_tsLast,  SLOT(tagTMAKRO, tsLast), 0   },
};

constexpr FieldId kFieldIds[] = {
    {1,  tMakCulIntMakIDPk},
    {2,  tMakCulIntImgIDFk},
    {10, tMakCulIntMakIDPk},
    {17, tMakSName        },
    {26, tMakSName        },
    {33, tMakTsLast       },
};

// Mask bits of the natural key.
constexpr DWORD kNaturalKey = 0x1 | 0x20;
constexpr DWORD kLastChange = 0x4;

}  // namespace

CMakRec::CMakRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  HoldRows(keysOnly);
}

CMakRec::~CMakRec() = default;

CString CMakRec::GetDefaultConnect() { return "ODBC;"; }

CString CMakRec::GetDefaultSQL() { return m_strOwner + "TMakro"; }

void CMakRec::DoFieldExchange(CFieldExchange* exchange) { column::Exchange(*this, kColumns, exchange); }

CString CMakRec::GetFieldName(LONG field, LONG* error) {
  return column::Expression(*this, kFieldIds, " ", field, error);
}

WORD CMakRec::GetRecByPos(tagTMAKRO* record, LONG* position) {
  if (record == nullptr) return kBadArgument;
  const WORD code = GetByPos(position);
  if (code == kOk) CopyOut(record);
  return code;
}

void CMakRec::CopyOut(tagTMAKRO* record) const { column::CopyOut(*this, kColumns, record); }

void CMakRec::CopyIn(const tagTMAKRO* record) {
  column::CopyIn(*this, kColumns, record);
  if ((m_dwFieldMask & kLastChange) != 0) m_tsLast = LocalNow();
}

BOOL CMakRec::SelectRow(const tagTMAKRO* record) {
  if (record == nullptr) return FALSE;
  if (record->lMakID != 0) {
    m_strFilter.Format(" (tMakCulIntMakIDPk=%d) ", record->lMakID);
    return TRUE;
  }
  if (record->lImgID == 0 || record->wNo == 0) return FALSE;
  m_strFilter.Format(" ((tMakCulIntImgIDFk=%d) AND  (tMakUwNo=%d))", record->lImgID, record->wNo);
  m_dwFieldMask &= ~kNaturalKey;
  return TRUE;
}
