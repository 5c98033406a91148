// Filters and sort orders from packed field ids, and the literals in them.
#include <cstring>
#include <iterator>

#include "platform/result_codes.h"
#include "recset/kyrecset.h"
#include "recset/packed_word.h"

namespace {

enum class ValueType { kNone, kInteger, kText, kDate, kTimestamp };

struct IdRange {
  LONG first, last;
  ValueType type;
};

// The value types of the field ids; ids outside all ranges have none.
constexpr IdRange kValueTypes[] = {
    {1,  11, ValueType::kInteger  },
    {17, 20, ValueType::kText     },
    {22, 26, ValueType::kText     },
    {33, 34, ValueType::kDate     },
    {35, 36, ValueType::kTimestamp},
    {42, 43, ValueType::kText     },
    {49, 53, ValueType::kText     },
    {58, 59, ValueType::kText     },
};

struct Operator {
  LONG code;
  const char* text;
};

constexpr LONG kBetween = 17;

// Every other code means "=".
constexpr Operator kOperators[] = {
    {2,        ">="     },
    {3,        ">"      },
    {4,        "<="     },
    {5,        "<"      },
    {7,        "<>"     },
    {16,       "LIKE"   },
    {kBetween, "BETWEEN"},
};

ValueType TypeOf(LONG field) {
  for (const IdRange& range : kValueTypes) {
    if (field >= range.first && field <= range.last) return range.type;
  }
  return ValueType::kNone;
}

const char* OperatorText(LONG code) {
  for (const Operator& row : kOperators) {
    if (row.code == code) return row.text;
  }
  return "=";
}

CString TextLiteral(const char* text) {
  CString quoted(text);
  quoted.Replace("'", "''");
  return "'" + quoted + "'";
}

CString DateLiteral(const TIMESTAMP_STRUCT& date) {
  CString literal;
  literal.Format("{d '%4d-%02d-%02d'}", date.year, date.month, date.day);
  return literal;
}

CString TimestampLiteral(const TIMESTAMP_STRUCT& time) {
  CString literal;
  literal.Format("{ts '%4d-%02d-%02d %02d:%02d:%02d'}", time.year, time.month, time.day, time.hour,
                 time.minute, time.second);
  return literal;
}

// Values may lie in packed records, so that they are read by copy.
template <class T>
T ValueAt(const void* value) {
  T copy;
  std::memcpy(&copy, value, sizeof copy);
  return copy;
}

CString Literal(ValueType type, const void* value) {
  if (type == ValueType::kText) return TextLiteral(static_cast<const char*>(value));
  if (type == ValueType::kDate) return DateLiteral(ValueAt<TIMESTAMP_STRUCT>(value));
  if (type == ValueType::kTimestamp) return TimestampLiteral(ValueAt<TIMESTAMP_STRUCT>(value));
  CString number;
  number.Format("%d", ValueAt<LONG>(value));
  return number;
}

bool TakesBetween(ValueType type) { return type == ValueType::kDate || type == ValueType::kTimestamp; }

}  // namespace

CString CKyRecSet::MakeSQLString(const char* text) { return TextLiteral(text); }

CString CKyRecSet::MakeSQLDate(const TIMESTAMP_STRUCT* date) {
  return DateLiteral(date != nullptr ? *date : TIMESTAMP_STRUCT{});
}

CString CKyRecSet::MakeSQLTimeStamp(const TIMESTAMP_STRUCT* time) {
  return TimestampLiteral(time != nullptr ? *time : TIMESTAMP_STRUCT{});
}

CString CKyRecSet::FillBaseFilter(const char* first, const char* second) const {
  const char* const texts[] = {first, second};
  std::size_t next = 0;
  CString filled;
  for (const char* place = m_strBaseFilter; *place != '\0'; ++place) {
    if (place[0] == '%' && place[1] == 's') {
      if (next < std::size(texts)) filled += texts[next++];
      ++place;
    } else {
      if (place[0] == '%' && place[1] == '%') ++place;
      filled += *place;
    }
  }
  return filled;
}

WORD CKyRecSet::SetFilter(LONG fields, LONG operators, void* value1, void* value2, void* value3,
                          void* value4) {
  const void* const values[packed::kSlots] = {value1, value2, value3, value4};
  CString clauses = " ((";
  const WORD result = AppendClauses(fields, operators, values, clauses);
  if (result != kOk) {
    if (m_strBaseFilter.IsEmpty()) return result;
    CatchUp();  // with the filter that holds until the next one is accepted
    m_strFilter = FillBaseFilter("", "");
    return result;
  }
  clauses += ")) ";
  m_strFilter = m_strBaseFilter.IsEmpty() ? clauses : FillBaseFilter(" AND", clauses);
  if (IsOpen()) RequeryNow();
  return kOk;
}

// A refused clause does not end the loop: an unknown field behind it still decides the code.
WORD CKyRecSet::AppendClauses(LONG fields, LONG operators, const void* const* values, CString& clauses) {
  WORD result = kOk;
  for (int slot = 0; slot < packed::kSlots && packed::Entry(fields, slot) != 0; ++slot) {
    const LONG field = packed::Entry(fields, slot);
    LONG error = 0;
    const CString column = GetFieldName(field, &error);
    if (error != 0) return static_cast<WORD>(error);
    const ValueType type = TypeOf(field);
    if (type == ValueType::kNone) return kBadArgument;
    const LONG code = packed::Entry(operators, slot);
    if (code == kBetween && !TakesBetween(type)) {
      result = kBadArgument;
      continue;
    }
    // A range takes two values and the slot of the second with it.
    const int last = code == kBetween ? slot + 1 : slot;
    if (last >= packed::kSlots || values[slot] == nullptr || values[last] == nullptr) {
      result = kBadArgument;
      continue;
    }
    if (slot > 0) clauses += packed::Flagged(fields, slot) ? " ) OR (" : " ) AND (";
    clauses += column + " " + OperatorText(code) + " " + Literal(type, values[slot]);
    if (last > slot) clauses += " AND " + Literal(type, values[last]);
    slot = last;
  }
  return result;
}

WORD CKyRecSet::SetSortIndex(LONG sort_index) {
  if (sort_index == m_lSortIndex) return kOk;
  CString sort;
  for (int slot = 0; slot < packed::kSlots; ++slot) {
    const LONG field = packed::Entry(sort_index, slot);
    // The comma stays when the field is not known: callers rely on the database refusing such an order.
    if (!sort.IsEmpty() && field != 0) sort += ",";
    LONG error = 0;
    sort += GetFieldName(field, &error);
    if (error != 0 && sort.IsEmpty()) {
      CatchUp();  // in the order that the rows are in until the next one is accepted
      m_strSort.Empty();
      return static_cast<WORD>(error);
    }
    if (error != 0) break;
    if (packed::Flagged(sort_index, slot)) sort += " DESC";
  }
  m_strSort = sort;
  m_lSortIndex = sort_index;
  if (IsOpen()) RequeryNow();
  return kOk;
}

// The plain name behind ", ", where SetSortIndex has an expression behind ",": callers compare both texts.
WORD CKyRecSet::AddSortCriteria(LONG field, int descending) {
  const CString column = GetFieldName(field);
  if (column.IsEmpty()) return kBadArgument;
  if (!m_strSort.IsEmpty()) m_strSort += ", ";
  m_strSort += column;
  if (descending) m_strSort += " DESC";
  return kOk;
}
