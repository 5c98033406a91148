// The tables as the commands see them: names, fields of the records, and the library's calls.
#ifndef KYODBC_TOOLS_TABLES_H
#define KYODBC_TOOLS_TABLES_H

#include <KyODBC.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "tools/filter_words.h"

// Of keys, positions and pages, which begin with 1.
inline constexpr LONG kHighestNumber = 2147483647;

enum class Format { kKey, kWord, kText, kDate, kTime };

// One field of a plain record. `listed`: short and telling enough for a list. `mask`: its bit in the masks of
// edits; 0 when it cannot be changed.
struct Column {
  const char* title;
  Format format;
  std::size_t offset;
  std::size_t width;
  bool listed;
  DWORD mask;
};

// A table's columns, in record order but for keys of other tables, which come last.
struct TableColumns {
  std::span<const Column> columns;
  std::size_t record_size;
};
extern const TableColumns kConfigColumns;
extern const TableColumns kDiagnosisColumns;
extern const TableColumns kDoctorColumns;
extern const TableColumns kGroupColumns;
extern const TableColumns kImageColumns;
extern const TableColumns kMakroColumns;
extern const TableColumns kPatientColumns;
extern const TableColumns kPatientDoctorColumns;
extern const TableColumns kStationColumns;
extern const TableColumns kTestColumns;
extern const TableColumns kUnitColumns;

// `record` points to a plain record of the table, whose first field is its key.
struct Table {
  const char* plural;
  const char* singular;
  const char* other_name;
  const TableColumns* data;
  FieldIds fields;
  WORD (*open)();
  WORD (*close)();
  WORD (*set_filter)(LONG, LONG, const void*, const void*, const void*, const void*);
  WORD (*set_sort)(LONG);
  WORD (*count)(LONG*);
  WORD (*get_by_pos)(LONG, void* record);
  WORD (*get)(void* record);
  WORD (*edit)(void* record, DWORD mask);  // null for the joined view
};

// All of them.
std::span<const Table> Tables();

// By any of its names. Throws ToolError with the exit code for usage, naming the tables there are.
const Table& FindTable(std::string_view name);

// The names of all tables, for help texts: the plural ones, or the singular ones.
std::string PluralNames();
std::string SingularNames();

// What the field holds, for people; empty for "none".
std::string FieldAsText(const Column& column, const void* record);

#endif
