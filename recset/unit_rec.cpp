#include "recset/unit_rec.h"

#include "platform/result_codes.h"
#include "recset/column_ops.h"
#include "tables/record_fields.h"
#include "tables/unit.h"

namespace {

constexpr Column<CUnitRec> kColumns[] = {
    {tUnitCulIntUnitIDPk, Kind::kKey,  &CUnitRec::m_lID,            SLOT(tagTUNIT, lUnitID),       0    },
    {tUnitDAccept,        Kind::kDay,  &CUnitRec::m_dAccept,        SLOT(tagTUNIT, dAccept),       0x4  },
    {tUnitSName,          Kind::kText, &CUnitRec::m_strName,        SLOT(tagTUNIT, szName),        0x2  },
    {tUnitSType,          Kind::kText, &CUnitRec::m_strType,        SLOT(tagTUNIT, szType),        0x1  },
    {tUnitSConeSNo,       Kind::kText, &CUnitRec::m_strConeSNo,     SLOT(tagTUNIT, szConeSNo),     0x100},
    {tUnitSCtrlElemSNo,   Kind::kText, &CUnitRec::m_strCtrlElemSNo, SLOT(tagTUNIT, szCtrlElemSNo), 0x80 },
    {tUnitSCtrlUnitSNo,   Kind::kText, &CUnitRec::m_strCtrlUnitSNo, SLOT(tagTUNIT, szCtrlUnitSNo), 0x8  },
    {tUnitSGenSNo,        Kind::kText, &CUnitRec::m_strGenSNo,      SLOT(tagTUNIT, szGenSNo),      0x20 },
    {tUnitSSensSNo,       Kind::kText, &CUnitRec::m_strSensSNo,     SLOT(tagTUNIT, szSensSNo),     0x10 },
    {tUnitSTestBodySNo,   Kind::kText, &CUnitRec::m_strTestBodySNo, SLOT(tagTUNIT, szTestBodySNo), 0x200},
    {tUnitSTubeSNo,       Kind::kText, &CUnitRec::m_strTubeSNo,     SLOT(tagTUNIT, szTubeSNo),     0x40 },
};

constexpr FieldId kFieldIds[] = {
    {1,  tUnitCulIntUnitIDPk},
    {5,  tUnitCulIntUnitIDPk},
    {17, tUnitSName         },
    {23, tUnitSName         },
    {33, tUnitDAccept       },
    {58, tUnitSType         },
};

// Mask bits.
constexpr DWORD kName = 0x2;

}  // namespace

CUnitRec::CUnitRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  HoldRows(keysOnly);
}

CUnitRec::~CUnitRec() = default;

CString CUnitRec::GetDefaultConnect() { return "ODBC;"; }

CString CUnitRec::GetDefaultSQL() { return m_strOwner + "TUnit"; }

void CUnitRec::DoFieldExchange(CFieldExchange* exchange) { column::Exchange(*this, kColumns, exchange); }

CString CUnitRec::GetFieldName(LONG field, LONG* error) {
  return column::Expression(*this, kFieldIds, "", field, error);
}

WORD CUnitRec::GetRecByPos(tagTUNIT* record, LONG* position) {
  if (record == nullptr) return kBadArgument;
  const WORD code = GetByPos(position);
  if (code == kOk) CopyOut(record);
  return code;
}

void CUnitRec::CopyOut(tagTUNIT* record) const { column::CopyOut(*this, kColumns, record); }

void CUnitRec::CopyIn(const tagTUNIT* record) { column::CopyIn(*this, kColumns, record); }

BOOL CUnitRec::SelectRow(const tagTUNIT* record) {
  if (record == nullptr) return FALSE;
  if (record->lUnitID != 0) {
    m_strFilter.Format(" (tUnitCulIntUnitIDPk=%d) ", record->lUnitID);
    return TRUE;
  }
  const CString name = fields::Text(record->szName);
  if (name.IsEmpty()) return FALSE;
  m_strFilter = " (tUnitSName=" + MakeSQLString(name) + ") ";
  m_dwFieldMask &= ~kName;
  return TRUE;
}
