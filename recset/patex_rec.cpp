#include "recset/patex_rec.h"

#include <cstring>

#include "platform/field_access.h"
#include "platform/log.h"
#include "platform/result_codes.h"
#include "recset/column_ops.h"
#include "recset/key_filter.h"
#include "recset/packed_word.h"

namespace {

// The view is read only: no row has a mask bit.
constexpr Column<CPatExRec> kColumns[] = {
    {"tp.tPatCulIntPatIDPk", Kind::kKey,    &CPatExRec::m_lID,          SLOT(tagTPATIENTEX, lPatID),      0},
    {"tp.tPatCulIntDrIDFk",  Kind::kNumber, &CPatExRec::m_lDrID,        SLOT(tagTPATIENTEX, lDrID),       0},
    {"td.tDrSName",          Kind::kText,   &CPatExRec::m_strDrName,    SLOT(tagTPATIENTEX, szDrName),    0},
    {"tp.tPatDBirthday",     Kind::kDay,    &CPatExRec::m_dBirthday,    SLOT(tagTPATIENTEX, dBirthday),   0},
    {"tp.tPatFSelect",       Kind::kFlag,   &CPatExRec::m_bSelect,      SLOT(tagTPATIENTEX, lSelect),     0},
    {"tp.tPatSExtPatID",     Kind::kText,   &CPatExRec::m_strExtPatID,  SLOT(tagTPATIENTEX, szExtPatID),  0},
    {"tp.tPatSFirstname",    Kind::kText,   &CPatExRec::m_strFirstname, SLOT(tagTPATIENTEX, szFirstname), 0},
    {"tp.tPatSName",         Kind::kText,   &CPatExRec::m_strName,      SLOT(tagTPATIENTEX, szName),      0},
    {"tp.tPatSSex",          Kind::kText,   &CPatExRec::m_strSex,       SLOT(tagTPATIENTEX, szSex),       0},
    {"tp.tPatSSocID",        Kind::kText,   &CPatExRec::m_strSocID,     SLOT(tagTPATIENTEX, szSocID),     0},
    {"tp.tPatSSrvID",        Kind::kText,   &CPatExRec::m_strSrvID,     SLOT(tagTPATIENTEX, szSrvID),     0},
    {"tp.tPatSSlidaID",      Kind::kText,   &CPatExRec::m_strSlidaID,   SLOT(tagTPATIENTEX, szSlidaID),   0},
    {"tp.tPatDEntry",        Kind::kDay,    &CPatExRec::m_dEntry,       SLOT(tagTPATIENTEX, dEntry),      0},
    {"tp.tPatSIDDisp",       Kind::kText,   &CPatExRec::m_strIDDisp,    SLOT(tagTPATIENTEX, szIDDisp),    0},
    {"tp.tPatTsLastDisp",    Kind::kTime,   &CPatExRec::m_tsLastDisp,   SLOT(tagTPATIENTEX, tsLastDisp),  0},
};

constexpr LONG kDoctorName = 20;
constexpr LONG kLastDisplay = 35;

// The sort keys that a row can be sought by; exactly one member of each row is set.
struct SeekValue {
  LONG id;
  CString CPatExRec::*text;
  TIMESTAMP_STRUCT CPatExRec::*date;
};
constexpr SeekValue kSeekValues[] = {
    {17,          &CPatExRec::m_strName,      nullptr                },
    {19,          &CPatExRec::m_strName,      nullptr                },
    {kDoctorName, &CPatExRec::m_strDrName,    nullptr                },
    {22,          &CPatExRec::m_strFirstname, nullptr                },
    {33,          nullptr,                    &CPatExRec::m_dBirthday},
    {34,          nullptr,                    &CPatExRec::m_dBirthday},
    {49,          &CPatExRec::m_strExtPatID,  nullptr                },
    {50,          &CPatExRec::m_strSrvID,     nullptr                },
    {51,          &CPatExRec::m_strSlidaID,   nullptr                },
    {52,          &CPatExRec::m_strSocID,     nullptr                },
    {53,          &CPatExRec::m_strIDDisp,    nullptr                },
};

}  // namespace

CPatExRec::CPatExRec(CDatabase* database, const char* owner) : CPatRec(database, owner) {
  m_nFields = std::size(kColumns);
  m_strBaseFilter = "(td.tDrCulIntDrIDPk=tp.tPatCulIntDrIDFk%s%s)";
  // Without it the view would pair every patient with every doctor.
  m_strFilter = FillBaseFilter("", "");
  HoldRows(keysOnly, m_strFilter);
}

CPatExRec::~CPatExRec() = default;

CString CPatExRec::GetDefaultSQL() { return m_strOwner + "TDoctor td, " + m_strOwner + "TPatient tp"; }

void CPatExRec::DoFieldExchange(CFieldExchange* exchange) { column::Exchange(*this, kColumns, exchange); }

CString CPatExRec::GetFieldName(LONG field, LONG* error) {
  if (field != kDoctorName && field != kLastDisplay) return CPatRec::GetFieldName(field, error);
  if (error != nullptr) *error = 0;
  return field == kDoctorName ? "td.tDrSName" : "tp.tPatTsLastDisp";
}

WORD CPatExRec::GetNum(LONG* count) {
  if (count == nullptr) return kOk;
  *count = 0;
  CPatExRec all(m_pDatabase, m_strOwner);
  return key_filter::CountRows(all, count);
}

LONG CPatExRec::MoveToSortValue(const char* text) {
  CPatExRec counter(m_pDatabase, m_strOwner);
  return MoveBehindLower(counter, text);
}

WORD CPatExRec::GetRecByPos(tagTPATIENTEX* record, LONG* position) {
  if (record == nullptr) return kBadArgument;
  const WORD code = GetByPos(position);
  if (code == kOk) CopyOut(record);
  return code;
}

void CPatExRec::CopyOut(tagTPATIENTEX* record) const { column::CopyOut(*this, kColumns, record); }

WORD CPatExRec::GetJoinedRow(tagTPATIENTEX* record) {
  if (record == nullptr) return kBadArgument;
  tagTPATIENT patient;
  std::memcpy(&patient, record, sizeof patient);
  CPatExRec row(m_pDatabase, m_strOwner);
  const WORD code = row.OpenOn(patient);
  if (code == kOk) row.CopyOut(record);
  return code;
}

// Opens the view on the one patient that the record describes.
WORD CPatExRec::OpenOn(const tagTPATIENT& patient) {
  if (!SelectRow(&patient)) return kBadArgument;
  m_strFilter = FillBaseFilter(")AND(", m_strFilter);
  HoldRows(fewRows);
  if (!Open(m_nOpenType, nullptr, none)) return kNotOpened;
  if (const std::optional<bool> only = FieldAccess::IsOnOnlyRow(*this)) return *only ? kOk : kNotUnique;
  const WORD code = IsUniqueRecord();
  return code == kNoRow ? kPatientNotFound : code;
}

LONG CPatExRec::MoveToIntID(LONG id) {
  try {
    return SeekKey(id);
  } catch (CDBException* exception) {
    klog::Caught(exception, kDbException);
    return GetIndexPos();
  }
}

LONG CPatExRec::SeekKey(LONG id) {
  CatchUp();
  tagTPATIENT patient{};
  patient.lPatID = id;
  CPatExRec target(m_pDatabase, m_strOwner);
  if (!IsOpen() || target.OpenOn(patient) != kOk) return 0;
  const Seek seek = SeekRow(target);
  if (seek.before.IsEmpty()) return CPatRec::MoveToIntID(id);
  if (const LONG found = FindKey(id); found > 0 && MoveToPos(found) != 0) return found;
  LONG before = 0;
  if (CountWhere(seek.before, &before) != kOk) return 0;
  const LONG first = before + 1;
  if (MoveToPos(first) != 0 && m_lID == id) return first;
  return StepToKey(id, first, seek.equal);
}

// The database, not the texts as read, decides what is equal: it may ignore case or trailing blanks. Where it
// puts NULLs differs too, so that rows may have been counted that come after the patient: whether the view
// holds the patient at all, only reading tells then.
LONG CPatExRec::StepToKey(LONG id, LONG first, const CString& equal) {
  LONG rows = 0;
  if (CountWhere(equal, &rows) == kOk) {
    for (LONG position = first + 1; position < first + rows && MoveToPos(position) != 0; ++position) {
      if (m_lID == id) return position;
    }
  }
  const LONG found = CPatRec::MoveToIntID(id);
  return m_lID == id ? found : MoveToPos(first);
}

// Compares key by key, as the sort order does: (a<x OR a IS NULL) OR (a=x AND (b>y OR b IS NULL)). It ends at
// the first key without a value, for what comes behind that key says nothing about the rows in between; the
// rows that are equal up to there are then searched for the patient.
CPatExRec::Seek CPatExRec::SeekRow(const CPatExRec& target) {
  Seek seek;
  for (int slot = 0; slot < packed::kSlots; ++slot) {
    const LONG field = packed::Entry(m_lSortIndex, slot);
    LONG error = 0;
    const CString column = GetFieldName(field, &error);
    const CString literal = error == 0 ? target.SeekLiteral(field) : CString();
    if (literal.IsEmpty()) break;
    const char* comparison = packed::Flagged(m_lSortIndex, slot) ? ">" : "<";
    const CString before = "(" + column + comparison + literal + " OR " + column + " IS NULL)";
    const CString equal = column + "=" + literal;
    seek.before = slot == 0 ? before : seek.before + " OR (" + seek.equal + " AND " + before + ")";
    seek.equal = slot == 0 ? equal : seek.equal + " AND " + equal;
  }
  return seek;
}

// The current row's value of a sort key; empty for keys that cannot be sought by and for empty values.
CString CPatExRec::SeekLiteral(LONG field) const {
  for (const SeekValue& value : kSeekValues) {
    if (value.id != field) continue;
    if (value.text != nullptr) {
      const CString& text = this->*value.text;
      return text.IsEmpty() ? CString() : MakeSQLString(text);
    }
    const TIMESTAMP_STRUCT& date = this->*value.date;
    return key_filter::HasDate(date) ? MakeSQLDate(&date) : CString();
  }
  return CString();
}

// Counts the rows of the view's filter that meet a further condition.
WORD CPatExRec::CountWhere(const CString& condition, LONG* count) {
  CPatExRec counter(m_pDatabase, m_strOwner);
  counter.m_strFilter =
      m_strFilter.IsEmpty() ? "(" + condition + ")" : m_strFilter + " AND (" + condition + ")";
  counter.m_strSort = m_strSort;
  return key_filter::CountRows(counter, count);
}
