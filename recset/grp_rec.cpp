#include "recset/grp_rec.h"

#include "platform/result_codes.h"
#include "recset/column_ops.h"
#include "recset/key_filter.h"
#include "tables/group.h"
#include "tables/record_fields.h"

namespace {

constexpr Column<CGrpRec> kColumns[] = {
    {tGrpCulIntGrpIDPk, Kind::kKey,     &CGrpRec::m_lID,        SLOT(tagTGROUP, lGrpID),    0   },
    {tGrpCulIntPatIDFk, Kind::kNumber,  &CGrpRec::m_lPatID,     SLOT(tagTGROUP, lPatID),    0x1 },
    {tGrpUwMakNo,       Kind::kOrdinal, &CGrpRec::m_nMakNo,     SLOT(tagTGROUP, wMakNo),    0x20},
    {tGrpTs,            Kind::kTime,    &CGrpRec::m_ts,         SLOT(tagTGROUP, ts),        0x4 },
    {tGrpSName,         Kind::kText,    &CGrpRec::m_strName,    SLOT(tagTGROUP, szName),    0x2 },
    {tGrpSFile,         Kind::kText,    &CGrpRec::m_strFile,    SLOT(tagTGROUP, szFile),    0x10},
    {tGrpSLoc,          Kind::kText,    &CGrpRec::m_strLoc,     SLOT(tagTGROUP, szLoc),     0x8 },
    {tGrpSPvwLoc,       Kind::kText,    &CGrpRec::m_strPvwLoc,  SLOT(tagTGROUP, szPvwLoc),  0x40},
    {tGrpSPvwFile,      Kind::kText,    &CGrpRec::m_strPvwFile, SLOT(tagTGROUP, szPvwFile), 0x80},
};

constexpr FieldId kFieldIds[] = {
    {1,  tGrpCulIntGrpIDPk},
    {4,  tGrpCulIntPatIDFk},
    {9,  tGrpCulIntGrpIDPk},
    {17, tGrpSName        },
    {33, tGrpTs           },
};

// Mask bits of the natural key.
constexpr DWORD kNaturalKey = 0x1 | 0x4 | 0x8;

}  // namespace

CGrpRec::CGrpRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  HoldRows(keysOnly);
}

CGrpRec::~CGrpRec() = default;

CString CGrpRec::GetDefaultConnect() { return "ODBC;"; }

CString CGrpRec::GetDefaultSQL() { return m_strOwner + "TGroup"; }

void CGrpRec::DoFieldExchange(CFieldExchange* exchange) { column::Exchange(*this, kColumns, exchange); }

CString CGrpRec::GetFieldName(LONG field, LONG* error) {
  return column::Expression(*this, kFieldIds, " ", field, error);
}

WORD CGrpRec::GetRecByPos(tagTGROUP* record, LONG* position) {
  if (record == nullptr) return kBadArgument;
  const WORD code = GetByPos(position);
  if (code == kOk) CopyOut(record);
  return code;
}

void CGrpRec::CopyOut(tagTGROUP* record) const { column::CopyOut(*this, kColumns, record); }

void CGrpRec::CopyIn(const tagTGROUP* record) { column::CopyIn(*this, kColumns, record); }

BOOL CGrpRec::SelectRow(const tagTGROUP* record) {
  if (record == nullptr) return FALSE;
  if (record->lGrpID != 0) {
    m_strFilter.Format(" ( tGrpCulIntGrpIDPk = %d ) ", record->lGrpID);
    return TRUE;
  }
  const TIMESTAMP_STRUCT time = fields::Time(&record->ts);
  const CString location = fields::Text(record->szLoc);
  if (record->lPatID == 0 || !key_filter::HasDate(time) || location != key_filter::kLibraryLocation)
    return FALSE;
  m_strFilter.Format(" (tGrpCulIntPatIDFK=%d) ", record->lPatID);
  m_strFilter += "AND (tGrpTS=" + MakeSQLTimeStamp(&time) + " ) ";
  m_strFilter += "AND (tGrpSLoc=" + MakeSQLString(location) + " ) ";
  m_dwFieldMask &= ~kNaturalKey;
  return TRUE;
}
