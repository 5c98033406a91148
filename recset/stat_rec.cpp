#include "recset/stat_rec.h"

#include "platform/result_codes.h"
#include "recset/column_ops.h"
#include "tables/record_fields.h"
#include "tables/station.h"

namespace {

constexpr Column<CStatRec> kColumns[] = {
    {tStatCulIntStatIDPk, Kind::kKey,  &CStatRec::m_lID,     SLOT(tagTSTATION, lStatID), 0  },
    {tStatSName,          Kind::kText, &CStatRec::m_strName, SLOT(tagTSTATION, szName),  0x1},
};

constexpr FieldId kFieldIds[] = {
    {1,  tStatCulIntStatIDPk},
    {6,  tStatCulIntStatIDPk},
    {17, tStatSName         },
};

// Mask bits.
constexpr DWORD kName = 0x1;

}  // namespace

CStatRec::CStatRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  HoldRows(keysOnly);
}

CStatRec::~CStatRec() = default;

CString CStatRec::GetDefaultConnect() { return "ODBC;"; }

CString CStatRec::GetDefaultSQL() { return m_strOwner + "TStation"; }

void CStatRec::DoFieldExchange(CFieldExchange* exchange) { column::Exchange(*this, kColumns, exchange); }

CString CStatRec::GetFieldName(LONG field, LONG* error) {
  return column::Expression(*this, kFieldIds, "", field, error);
}

WORD CStatRec::GetRecByPos(tagTSTATION* record, LONG* position) {
  if (record == nullptr) return kBadArgument;
  const WORD code = GetByPos(position);
  if (code == kOk) CopyOut(record);
  return code;
}

void CStatRec::CopyOut(tagTSTATION* record) const { column::CopyOut(*this, kColumns, record); }

void CStatRec::CopyIn(const tagTSTATION* record) { column::CopyIn(*this, kColumns, record); }

BOOL CStatRec::SelectRow(const tagTSTATION* record) {
  if (record == nullptr) return FALSE;
  if (record->lStatID != 0) {
    m_strFilter.Format(" (tStatCulIntStatIDPk=%d) ", record->lStatID);
    return TRUE;
  }
  const CString name = fields::Text(record->szName);
  if (name.IsEmpty()) return FALSE;
  m_strFilter = " (tStatSName=" + MakeSQLString(name) + ") ";
  m_dwFieldMask &= ~kName;
  return TRUE;
}
