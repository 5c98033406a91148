#include "recset/test_rec.h"

#include "platform/result_codes.h"
#include "recset/column_ops.h"
#include "recset/key_filter.h"
#include "tables/record_fields.h"
#include "tables/test.h"

namespace {

constexpr Column<CTestRec> kColumns[] = {
    {tTstCulIntTstIDPk,  Kind::kKey,      &CTestRec::m_lID,        SLOT(tagTTEST, lTstID),    0     },
    {tTstCulIntUnitIDFk, Kind::kNumber,   &CTestRec::m_lUnitID,    SLOT(tagTTEST, lUnitID),   0x1   },
    {tTstSPerson,        Kind::kText,     &CTestRec::m_strPerson,  SLOT(tagTTEST, szPerson),  0x2   },
    {tTstTs,             Kind::kTime,     &CTestRec::m_ts,         SLOT(tagTTEST, ts),        0x20  },
    {tTstDArcIn,         Kind::kDay,      &CTestRec::m_dArcIn,     SLOT(tagTTEST, dArcIn),    0x1000},
    {tTstDArcOut,        Kind::kDay,      &CTestRec::m_dArcOut,    SLOT(tagTTEST, dArcOut),   0x800 },
    {tTstSArcType,       Kind::kText,     &CTestRec::m_strArcType, SLOT(tagTTEST, szArcType), 0x80  },
    {tTstSArcFile,       Kind::kText,     &CTestRec::m_strArcFile, SLOT(tagTTEST, szArcFile), 0x200 },
    {tTstSArcLoc,        Kind::kText,     &CTestRec::m_strArcLoc,  SLOT(tagTTEST, szArcLoc),  0x100 },
    {tTstSArcVol,        Kind::kText,     &CTestRec::m_strArcVol,  SLOT(tagTTEST, szArcVol),  0x400 },
    {tTstSFile,          Kind::kText,     &CTestRec::m_strFile,    SLOT(tagTTEST, szFile),    0x4000},
    {tTstSLoc,           Kind::kText,     &CTestRec::m_strLoc,     SLOT(tagTTEST, szLoc),     0x2000},
    {tTstSName,          Kind::kText,     &CTestRec::m_strName,    SLOT(tagTTEST, szName),    0x10  },
    {tTstSRegio,         Kind::kText,     &CTestRec::m_strRegio,   SLOT(tagTTEST, szRegio),   0x8   },
    {tTstSResult,        Kind::kLongText, &CTestRec::m_strResult,  SLOT(tagTTEST, szResult),  0x40  },
    {tTstSType,          Kind::kText,     &CTestRec::m_strType,    SLOT(tagTTEST, szType),    0x4   },
};

constexpr FieldId kFieldIds[] = {
    {1,  tTstCulIntTstIDPk },
    {5,  tTstCulIntUnitIDFk},
    {8,  tTstCulIntTstIDPk },
    {17, tTstSName         },
    {18, tTstSPerson       },
    {25, tTstSName         },
    {33, tTstTs            },
    {36, tTstTs            },
    {58, tTstSType         },
    {59, tTstSRegio        },
};

// Mask bits of the natural key.
constexpr DWORD kNaturalKey = 0x1 | 0x20 | 0x2000;

}  // namespace

CTestRec::CTestRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  HoldRows(keysOnly);
}

CTestRec::~CTestRec() = default;

CString CTestRec::GetDefaultConnect() { return "ODBC;"; }

CString CTestRec::GetDefaultSQL() { return m_strOwner + "TTest"; }

void CTestRec::DoFieldExchange(CFieldExchange* exchange) { column::Exchange(*this, kColumns, exchange); }

CString CTestRec::GetFieldName(LONG field, LONG* error) {
  return column::Expression(*this, kFieldIds, "", field, error);
}

WORD CTestRec::GetRecByPos(tagTTEST* record, LONG* position) {
  if (record == nullptr) return kBadArgument;
  const WORD code = GetByPos(position);
  if (code == kOk) CopyOut(record);
  return code;
}

void CTestRec::CopyOut(tagTTEST* record) const { column::CopyOut(*this, kColumns, record); }

void CTestRec::CopyIn(const tagTTEST* record) { column::CopyIn(*this, kColumns, record); }

BOOL CTestRec::SelectRow(const tagTTEST* record) {
  if (record == nullptr) return FALSE;
  if (record->lTstID != 0) {
    m_strFilter.Format(" (tTstCulIntTstIDPk=%d) ", record->lTstID);
    return TRUE;
  }
  const TIMESTAMP_STRUCT time = fields::Time(&record->ts);
  const CString location = fields::Text(record->szLoc);
  if (record->lUnitID == 0 || !key_filter::HasDate(time) || location != key_filter::kLibraryLocation)
    return FALSE;
  m_strFilter.Format(" (tTstCulIntUnitIDFk=%d) ", record->lUnitID);
  m_strFilter += "AND (tTstTs=" + MakeSQLTimeStamp(&time) + " ) ";
  m_strFilter += "AND (tTstSLoc=" + MakeSQLString(location) + " ) ";
  m_dwFieldMask &= ~kNaturalKey;
  return TRUE;
}
