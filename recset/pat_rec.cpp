#include "recset/pat_rec.h"

#include "platform/result_codes.h"
#include "recset/column_ops.h"
#include "recset/key_filter.h"
#include "tables/patient.h"
#include "tables/record_fields.h"

namespace {

constexpr Column<CPatRec> kColumns[] = {
    {tPatCulIntDrIDFk,  Kind::kNumber, &CPatRec::m_lDrID,        SLOT(tagTPATIENT, lDrID),       0x1   },
    {tPatCulIntPatIDPk, Kind::kKey,    &CPatRec::m_lID,          SLOT(tagTPATIENT, lPatID),      0     },
    {tPatDBirthday,     Kind::kDay,    &CPatRec::m_dBirthday,    SLOT(tagTPATIENT, dBirthday),   0x80  },
    {tPatFSelect,       Kind::kFlag,   &CPatRec::m_bSelect,      SLOT(tagTPATIENT, lSelect),     0x200 },
    {tPatSExtPatID,     Kind::kText,   &CPatRec::m_strExtPatID,  SLOT(tagTPATIENT, szExtPatID),  0x2   },
    {tPatSFirstname,    Kind::kText,   &CPatRec::m_strFirstname, SLOT(tagTPATIENT, szFirstname), 0x40  },
    {tPatSName,         Kind::kText,   &CPatRec::m_strName,      SLOT(tagTPATIENT, szName),      0x20  },
    {tPatSSex,          Kind::kText,   &CPatRec::m_strSex,       SLOT(tagTPATIENT, szSex),       0x100 },
    {tPatSSlidaID,      Kind::kText,   &CPatRec::m_strSlidaID,   SLOT(tagTPATIENT, szSlidaID),   0x8   },
    {tPatSSocID,        Kind::kText,   &CPatRec::m_strSocID,     SLOT(tagTPATIENT, szSocID),     0x10  },
    {tPatSSrvID,        Kind::kText,   &CPatRec::m_strSrvID,     SLOT(tagTPATIENT, szSrvID),     0x4   },
    {tPatDEntry,        Kind::kDay,    &CPatRec::m_dEntry,       SLOT(tagTPATIENT, dEntry),      0x400 },
    {tPatSIDDisp,       Kind::kText,   &CPatRec::m_strIDDisp,    SLOT(tagTPATIENT, szIDDisp),    0x800 },
    {tPatTsLastDisp,    Kind::kTime,   &CPatRec::m_tsLastDisp,   SLOT(tagTPATIENT, tsLastDisp),  0x1000},
};

constexpr FieldId kFieldIds[] = {
    {1,  tPatCulIntPatIDPk},
    {3,  tPatCulIntDrIDFk },
    {4,  tPatCulIntPatIDPk},
    {17, tPatSName        },
    {19, tPatSName        },
    {22, tPatSFirstname   },
    {33, tPatDBirthday    },
    {34, tPatDBirthday    },
    {49, tPatSExtPatID    },
    {50, tPatSSrvID       },
    {51, tPatSSlidaID     },
    {52, tPatSSocID       },
    {53, tPatSIDDisp      },
};

// Mask bits.
constexpr DWORD kExtPatID = 0x2;
constexpr DWORD kSrvID = 0x4;
constexpr DWORD kSlidaID = 0x8;
constexpr DWORD kIDDisp = 0x800;
// What a patient found by name and date of birth keeps of the low eight bits: doctor, external and social
// identifier. Neither the name and date nor the server and Slida identifiers, empty in such a record, are
// written.
constexpr DWORD kKeptByName = 0xFFFFFF00 | 0x1 | 0x2 | 0x10;

// A leading sort key with one of these bits can be searched by a text. It looks like a mask for the wrong
// thing: id 8 is refused and id 4 is not; callers rely on it.
constexpr LONG kSearchableBits = 0x37;

}  // namespace

CPatRec::CPatRec(CDatabase* database, const char* owner) : CKyRecSet(database, owner) {
  m_nFields = std::size(kColumns);
  HoldRows(keysOnly);
}

CPatRec::~CPatRec() = default;

CString CPatRec::GetDefaultConnect() { return "ODBC;"; }

CString CPatRec::GetDefaultSQL() { return m_strOwner + "TPatient"; }

void CPatRec::DoFieldExchange(CFieldExchange* exchange) { column::Exchange(*this, kColumns, exchange); }

CString CPatRec::GetFieldName(LONG field, LONG* error) {
  return column::Expression(*this, kFieldIds, " ", field, error);
}

LONG CPatRec::MoveToSortValue(const char* text) {
  CPatRec counter(m_pDatabase, m_strOwner);
  return MoveBehindLower(counter, text);
}

LONG CPatRec::MoveBehindLower(CPatRec& counter, const char* text) {
  CatchUp();
  const LONG field = m_lSortIndex & 0x7F;
  if ((field & kSearchableBits) == 0 || text == nullptr || !IsOpen()) return 0;
  LONG error = 0;
  const CString column = GetFieldName(field, &error);
  if (error != 0) return 0;
  const CString filter = m_strFilter.IsEmpty() ? CString() : m_strFilter + " AND ";
  counter.m_strFilter = filter + column + "<" + MakeSQLString(text);
  counter.m_strSort = m_strSort;
  LONG lower = 0;
  if (key_filter::CountRows(counter, &lower) != kOk) return 0;
  if (lower > 0) {
    MoveToPos(lower + 1);
  } else if (!(m_bBOF && m_bEOF)) {
    MoveFirst();
  }
  if (!m_bEOF) return GetIndexPos();
  if (!m_bBOF) MoveFirst();
  return 0;
}

WORD CPatRec::GetRecByPos(tagTPATIENT* record, LONG* position) {
  if (record == nullptr) return kBadArgument;
  const WORD code = GetByPos(position);
  if (code == kOk) CopyOut(record);
  return code;
}

void CPatRec::CopyOut(tagTPATIENT* record) const { column::CopyOut(*this, kColumns, record); }

void CPatRec::CopyIn(const tagTPATIENT* record) {
  column::CopyIn(*this, kColumns, record);
  if ((m_dwFieldMask & (kExtPatID | kSlidaID)) != 0) m_dwFieldMask |= kIDDisp;
}

BOOL CPatRec::SelectRow(const tagTPATIENT* record) {
  if (record == nullptr) return FALSE;
  if (record->lPatID != 0) {
    m_strFilter.Format(" (tPatCulIntPatIDPk=%d) ", record->lPatID);
    return TRUE;
  }
  if (const CString slida = fields::Text(record->szSlidaID); !slida.IsEmpty()) {
    m_strFilter = " (tPatSSlidaID=" + MakeSQLString(slida) + " ) ";
    m_dwFieldMask &= ~kSlidaID;
    return TRUE;
  }
  if (const CString service = fields::Text(record->szSrvID); !service.IsEmpty()) {
    m_strFilter = " (tPatSSrvID= " + MakeSQLString(service) + " ) ";
    m_dwFieldMask &= ~(kSrvID | kSlidaID);
    return TRUE;
  }
  return SelectByName(*record);
}

BOOL CPatRec::SelectByName(const tagTPATIENT& record) {
  const CString name = fields::Text(record.szName);
  const CString firstname = fields::Text(record.szFirstname);
  const TIMESTAMP_STRUCT birthday = fields::Time(&record.dBirthday);
  if (name.IsEmpty() || firstname.IsEmpty() || !key_filter::HasDate(birthday)) return FALSE;
  m_strFilter = " ((tPatSName=" + MakeSQLString(name) + ") AND (tPatSFirstname=" + MakeSQLString(firstname) +
                ") AND (tPatDBirthday=" + MakeSQLDate(&birthday) + ")) ";
  m_dwFieldMask &= kKeptByName;
  return TRUE;
}
