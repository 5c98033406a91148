#include "recset/cfg_rec.h"

#include "platform/result_codes.h"
#include "recset/column_ops.h"
#include "tables/config.h"
#include "tables/record_fields.h"

namespace {

constexpr Column<CCfgRec> kColumns[] = {
    {tCfgCulIntCfgIDPk,  Kind::kKey,    &CCfgRec::m_lID,     SLOT(tagTCONFIG, lCfgID),  0  },
    {tCfgCulIntDrIDFk,   Kind::kNumber, &CCfgRec::m_lDrID,   SLOT(tagTCONFIG, lDrID),   0x1},
    {tCfgCulIntStatIDFk, Kind::kNumber, &CCfgRec::m_lStatID, SLOT(tagTCONFIG, lStatID), 0x2},
    {tCfgSKey,           Kind::kText,   &CCfgRec::m_strKey,  SLOT(tagTCONFIG, szKey),   0x4},
    {tCfgSSet,           Kind::kText,   &CCfgRec::m_strSet,  SLOT(tagTCONFIG, szSet),   0x8},
};

constexpr FieldId kFieldIds[] = {
    {1,  tCfgCulIntCfgIDPk },
    {3,  tCfgCulIntDrIDFk  },
    {6,  tCfgCulIntStatIDFk},
    {7,  tCfgCulIntCfgIDPk },
    {42, tCfgSKey          },
    {43, tCfgSSet          },
};

// Mask bits of the natural key.
constexpr DWORD kNaturalKey = 0x1 | 0x2 | 0x4;

}  // namespace

CCfgRec::CCfgRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  HoldRows(keysOnly);
}

CCfgRec::~CCfgRec() = default;

CString CCfgRec::GetDefaultConnect() { return "ODBC;"; }

CString CCfgRec::GetDefaultSQL() { return m_strOwner + "TConfig"; }

void CCfgRec::DoFieldExchange(CFieldExchange* exchange) { column::Exchange(*this, kColumns, exchange); }

CString CCfgRec::GetFieldName(LONG field, LONG* error) {
  return column::Expression(*this, kFieldIds, " ", field, error);
}

WORD CCfgRec::GetRecByPos(tagTCONFIG* record, LONG* position) {
  if (record == nullptr) return kBadArgument;
  const WORD code = GetByPos(position);
  if (code == kOk) CopyOut(record);
  return code;
}

void CCfgRec::CopyOut(tagTCONFIG* record) const { column::CopyOut(*this, kColumns, record); }

void CCfgRec::CopyIn(const tagTCONFIG* record) { column::CopyIn(*this, kColumns, record); }

BOOL CCfgRec::SelectRow(const tagTCONFIG* record) {
  if (record == nullptr) return FALSE;
  if (record->lCfgID != 0) {
    m_strFilter.Format(" ( tCfgCulIntCfgIDPk = %d ) ", record->lCfgID);
    return TRUE;
  }
  const CString key = fields::Text(record->szKey);
  if (record->lDrID == 0 || record->lStatID == 0 || key.IsEmpty()) return FALSE;
  m_strFilter.Format(" (( tCfgCulIntDrIDFk = %d ) AND ( tCfgCulIntStatIDFk = %d ) AND ( tCfgSKey = ",
                     record->lDrID, record->lStatID);
  m_strFilter += MakeSQLString(key) + " )) ";
  m_dwFieldMask &= ~kNaturalKey;
  return TRUE;
}
