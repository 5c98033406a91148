// The bound columns of a record set: where a fetched row lands, what the members held before a change,
// and what has changed.
#ifndef KYODBC_PLATFORM_ROW_FIELDS_H
#define KYODBC_PLATFORM_ROW_FIELDS_H

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/cfieldinfo.h"
#include "platform/cstring.h"
#include "platform/field_value.h"
#include "platform/odbc.h"
#include "platform/types.h"

class RowSource;
struct ColumnShape;

// A member as an RFX call names it.
struct FieldRef {
  const char* name;
  FieldKind kind;
  void* member;
  int max_length;         // bytes of a text
  bool only_day = false;  // of a date: it has no time of day
};

// Where the columns of a fetched row land. A kept statement stays bound to it.
struct RowBuffer {
  std::vector<std::size_t> layout;  // type and bytes of each column
  std::unique_ptr<char[]> bytes;
  std::vector<SQLLEN> indicators;
};

struct Field {
  CString name;
  FieldKind kind = FieldKind::kLong;
  void* member = nullptr;
  int max_length = 0;
  bool only_day = false;
  CODBCFieldInfo column;  // as described by the driver

  std::size_t offset = 0;    // of the value in the fetch buffer
  std::size_t capacity = 0;  // bytes there; 0: a wide text, read on demand

  bool null = false;        // of the row last copied into the members
  bool nulled = false;      // the caller asked for NULL
  bool forced = false;      // the caller declared the field changed
  bool unassigned = false;  // NULL, and the member was given no value
  bool dirty = false;
  FieldValue before;  // what CancelUpdate gives back
  bool null_before = false;
  FieldValue clean;  // what counts as unchanged
};

class RowFields {
 public:
  // The columns are going to be named: Add for each in order, then EndAdding.
  void BeginAdding(const CString& tables);
  void Add(const FieldRef& ref);
  void EndAdding();
  std::size_t Count() const { return m_fields.size(); }
  Field& At(std::size_t index) { return m_fields[index]; }
  const Field& At(std::size_t index) const { return m_fields[index]; }
  std::vector<Field>& All() { return m_fields; }
  const std::vector<Field>& All() const { return m_fields; }

  // SELECT columns FROM tables, the columns in exchange order.
  const CString& Select();
  const CString& Tables() const { return m_tables; }
  // The columns that the result has, bound or not, when they were described in this state of things; negative
  // when they are to be described.
  SWORD Described(unsigned state) const { return m_state == state ? m_described : SWORD{-1}; }
  // Takes the columns as another set over the same tables has found them; returns how many there are.
  SWORD TakeShape(const ColumnShape& shape, unsigned state);
  // The columns just described, for other sets.
  ColumnShape Shape(SWORD columns, unsigned state);
  // Lays out the buffer for the described columns and binds it. `moves`: more than a row or two will be read.
  RETCODE Bind(RowSource& source, bool moves);

  // Copies column `index` of the fetched row into its member. `row` identifies the row for its own edits.
  RETCODE Load(std::size_t index, RowSource& source, SQLLEN row);
  // Columns wider than the buffer are read on demand.
  bool IsBuffered(std::size_t index) const { return m_fields[index].capacity != 0; }
  // True when the buffer has room for every column that is named.
  bool AllFit() const;
  // True when the buffer holds every column of a result of `columns` columns.
  bool AllAreBuffered(short columns) const;
  // The value that the set's own edit gave the column of the row; null when there was none.
  const FieldValue* Edited(std::size_t index, SQLLEN row) const;
  // What the row holds in the column: its own edit, or what the fetch buffer holds. False when the buffer
  // does not hold all of it.
  bool Held(std::size_t index, SQLLEN row, FieldValue* value) const;

  // AddNew: every field becomes NULL, clean and a value that no caller assigns.
  void BeginAdd();
  // Edit: the members as they are become the clean values.
  void BeginEdit();
  // Decides which fields the pending change writes.
  bool MarkDirty(bool adding);
  // What the pending change writes to the field's column.
  FieldValue Written(const Field& field) const;
  // True when the field is NULL, or will be by the pending change.
  bool IsNull(const Field& field, bool changing) const;
  // Ends a pending change; the members get back what they held before it when `restore` is set.
  void End(bool restore);

  // Values written to a row of the open result; `show` them when the row is visited again.
  void RememberEdit(SQLLEN row, bool show);
  void ForgetEdits() { m_edits.clear(); }

  // The field bound to `member`; null when there is none.
  const Field* Find(const void* member) const;

  // A value to send for the field: a number, a text, a date as the literals write it, or NULL.
  odbc::Parameter MakeParameter(const Field& field, FieldValue value) const;

 private:
  void LoadNull(Field& field);
  RETCODE LoadWideText(Field& field, SQLUSMALLINT column, RowSource& source);
  void LoadBuffered(Field& field);
  void ForgetColumns();
  std::vector<std::size_t> LayOut(std::size_t* size);
  RETCODE BindTo(RowSource& source, std::vector<std::size_t> layout, std::size_t size);
  SQLLEN Indicator(const Field& field) const;
  std::size_t BufferedLength(const Field& field) const;
  bool IsWholeInBuffer(const Field& field) const;

  std::vector<Field> m_fields;
  std::size_t m_added = 0;  // fields named since BeginAdding
  CString m_tables;
  CString m_select;                  // empty: to be made
  SWORD m_described = -1;            // columns of the result
  unsigned m_state = 0;              // of what was known when they were described
  std::shared_ptr<RowBuffer> m_row;  // null: the fields have no place in it yet
  std::string m_wide_text;
  std::map<SQLLEN, std::map<std::size_t, FieldValue>> m_edits;
};

inline bool IsDateType(SWORD type) { return type == SQL_TYPE_DATE || type == SQL_DATE; }
// Dates without a time of day: those named so, and those in a column of such a type.
bool IsDateColumn(const Field& field);

#endif
