// A date and time as ODBC carries it, with comparison and a value for "no date".
#ifndef KYODBC_RECSET_DBTIMESTAMP_H
#define KYODBC_RECSET_DBTIMESTAMP_H

#include "../platform/coledatetime.h"
#include "../platform/types.h"

// The value class for date and timestamp columns. year, month (1 to 12), day (1 to 31), hour, minute,
// second and fraction (billionths of a second) are inherited; nothing checks their ranges.
//
// "No date" is 1880-01-01 00:00:00, fraction 0: rows written with it carry that date, not a NULL. Nothing
// turns the all-zero timestamp, which a record set reads from and writes as NULL, into it or back.
//
// The object has 24 bytes, the plain structure at offset 8, because its destructor is virtual: never
// copy it by size, cast it by address or place it in a packed record. Bind, store and pass the plain
// structure; the conversion to `const TIMESTAMP_STRUCT&` is implicit.
class KYODBC_API CDBTimeStamp : public tagTIMESTAMP_STRUCT {
 public:
  virtual ~CDBTimeStamp();  // stays the first and only virtual operation

  CDBTimeStamp();  // no date
  CDBTimeStamp(const TIMESTAMP_STRUCT& value);
  CDBTimeStamp(const CDBTimeStamp& value);
  CDBTimeStamp(const COleDateTime& value);

  // Copy all seven fields.
  CDBTimeStamp& operator=(const TIMESTAMP_STRUCT& value);
  CDBTimeStamp& operator=(const CDBTimeStamp& value);
  // Takes date and time to the second, with fraction 0; a value whose status is not valid gives no date.
  CDBTimeStamp& operator=(const COleDateTime& value);

  // The comparisons return 1 or 0.
  //
  // Equality looks at the fraction, ordering does not, and "less" is "neither greater nor equal". So two
  // values that differ only in the fraction are each less than the other. The same holds for unequal
  // values of which one is no date and time of the years 100 to 9999 (month 0, 30 February, all zero):
  // nothing is greater than such a value, and it is greater than nothing. Callers rely on both; do not
  // sort by these.
  int operator==(const CDBTimeStamp& other) const;  // all seven fields are equal
  int operator>(const CDBTimeStamp& other) const;
  int operator<(const CDBTimeStamp& other) const;

  int IsNull() const;  // 1 for no date, else 0; the all-zero timestamp is not null in this sense
};

static_assert(sizeof(CDBTimeStamp) == 24);

#endif
