#include "recset/dr_rec.h"

#include "platform/result_codes.h"
#include "recset/column_ops.h"
#include "tables/doctor.h"
#include "tables/record_fields.h"

namespace {

constexpr Column<CDrRec> kColumns[] = {
    {tDrCulIntDrIDPk, Kind::kKey,  &CDrRec::m_lID,      SLOT(tagTDOCTOR, lDrID),   0  },
    {tDrSName,        Kind::kText, &CDrRec::m_strName,  SLOT(tagTDOCTOR, szName),  0x1},
    {tDrSSrvID,       Kind::kText, &CDrRec::m_strSrvID, SLOT(tagTDOCTOR, szSrvID), 0x2},
};

constexpr FieldId kFieldIds[] = {
    {1,  tDrCulIntDrIDPk},
    {3,  tDrCulIntDrIDPk},
    {17, tDrSName       },
    {20, tDrSName       },
    {50, tDrSSrvID      },
};

// Mask bits.
constexpr DWORD kName = 0x1;
constexpr DWORD kSrvID = 0x2;

}  // namespace

CDrRec::CDrRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  HoldRows(keysOnly);
}

CDrRec::~CDrRec() = default;

CString CDrRec::GetDefaultConnect() { return "ODBC;"; }

CString CDrRec::GetDefaultSQL() { return m_strOwner + "TDoctor"; }

void CDrRec::DoFieldExchange(CFieldExchange* exchange) { column::Exchange(*this, kColumns, exchange); }

CString CDrRec::GetFieldName(LONG field, LONG* error) {
  return column::Expression(*this, kFieldIds, " ", field, error);
}

WORD CDrRec::GetRecByPos(tagTDOCTOR* record, LONG* position) {
  if (record == nullptr) return kBadArgument;
  const WORD code = GetByPos(position);
  if (code == kOk) CopyOut(record);
  return code;
}

void CDrRec::CopyOut(tagTDOCTOR* record) const { column::CopyOut(*this, kColumns, record); }

void CDrRec::CopyIn(const tagTDOCTOR* record) { column::CopyIn(*this, kColumns, record); }

BOOL CDrRec::SelectRow(const tagTDOCTOR* record) {
  if (record == nullptr) return FALSE;
  if (record->lDrID != 0) {
    m_strFilter.Format(" ( tDrCulIntDrIDPk = %d ) ", record->lDrID);
    return TRUE;
  }
  if (const CString service = fields::Text(record->szSrvID); !service.IsEmpty()) {
    m_strFilter = " ( tDrSSrvID = " + MakeSQLString(service) + ") ";
    m_dwFieldMask &= ~kSrvID;
    return TRUE;
  }
  const CString name = fields::Text(record->szName);
  if (name.IsEmpty()) return FALSE;
  m_strFilter = " ( tDrSName = " + MakeSQLString(name) + ") ";
  m_dwFieldMask &= ~(kName | kSrvID);
  return TRUE;
}
