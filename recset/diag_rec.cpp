#include "recset/diag_rec.h"

#include "platform/result_codes.h"
#include "recset/column_ops.h"
#include "tables/diagnosis.h"

namespace {

constexpr Column<CDiagRec> kColumns[] = {
    {tDiagCulIntDiagIDPk, Kind::kKey,      &CDiagRec::m_lID,      SLOT(tagTDIAGNOSIS, lDiagID), 0   },
    {tDiagCulIntDrIDFk,   Kind::kNumber,   &CDiagRec::m_lDrID,    SLOT(tagTDIAGNOSIS, lDrID),   0x2 },
    {tDiagCulIntImgIDFk,  Kind::kNumber,   &CDiagRec::m_lImgID,   SLOT(tagTDIAGNOSIS, lImgID),  0x1 },
    {tDiagSRegio,         Kind::kText,     &CDiagRec::m_strRegio, SLOT(tagTDIAGNOSIS, szRegio), 0x4 },
    {tDiagSCode,          Kind::kText,     &CDiagRec::m_strCode,  SLOT(tagTDIAGNOSIS, szCode),  0x10},
    {tDiagSText,          Kind::kLongText, &CDiagRec::m_strText,  SLOT(tagTDIAGNOSIS, szText),  0x20},
    {tDiagTs,             Kind::kTime,     &CDiagRec::m_ts,       SLOT(tagTDIAGNOSIS, ts),      0x8 },
};

constexpr FieldId kFieldIds[] = {
    {1,  tDiagCulIntDiagIDPk},
    {2,  tDiagCulIntImgIDFk },
    {3,  tDiagCulIntDrIDFk  },
    {11, tDiagCulIntDiagIDPk},
    {33, tDiagTs            },
    {59, tDiagSRegio        },
};

}  // namespace

CDiagRec::CDiagRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  HoldRows(keysOnly);
}

CDiagRec::~CDiagRec() = default;

CString CDiagRec::GetDefaultConnect() { return "ODBC;"; }

CString CDiagRec::GetDefaultSQL() { return m_strOwner + "TDiagnosis"; }

void CDiagRec::DoFieldExchange(CFieldExchange* exchange) { column::Exchange(*this, kColumns, exchange); }

CString CDiagRec::GetFieldName(LONG field, LONG* error) {
  return column::Expression(*this, kFieldIds, " ", field, error);
}

WORD CDiagRec::GetRecByPos(tagTDIAGNOSIS* record, LONG* position) {
  if (record == nullptr) return kBadArgument;
  const WORD code = GetByPos(position);
  if (code == kOk) CopyOut(record);
  return code;
}

void CDiagRec::CopyOut(tagTDIAGNOSIS* record) const { column::CopyOut(*this, kColumns, record); }

void CDiagRec::CopyIn(const tagTDIAGNOSIS* record) { column::CopyIn(*this, kColumns, record); }

BOOL CDiagRec::SelectRow(const tagTDIAGNOSIS* record) {
  if (record == nullptr) return FALSE;
  if (record->lDiagID == 0) return FALSE;
  m_strFilter.Format(" ( tDiagCulIntDiagIDPk = %d ) ", record->lDiagID);
  return TRUE;
}
