// A table's browse set: filtered and sorted by the words of `kyodbc list`, and read row by row where somebody
// looks.
#ifndef KYODBC_TOOLS_SHELL_ROW_SET_H
#define KYODBC_TOOLS_SHELL_ROW_SET_H

#include <string>
#include <vector>

#include "tools/filter_words.h"
#include "tools/shell/positioning.h"
#include "tools/tables.h"
#include "tools/tool_error.h"

namespace shell {

// The library could not do it: the connection is lost, or the database refuses.
class SetError : public ToolError {
 public:
  SetError(WORD code, const std::string& doing);
};

// Throws SetError unless `code` is 0.
void CheckSet(WORD code, const std::string& doing);

// A filter and a sort order as people write them. An empty filter lets all rows pass.
struct Words {
  std::string filter;
  std::string sort = "key";
};

// The order in which people look for something in the table.
Words UsualWords(const Table& table);

// A row as it was read. Without a record somebody has deleted it since the set was opened.
struct Row {
  LONG position = 0;
  std::vector<char> record;

  bool Gone() const { return record.empty(); }
  LONG Key() const;  // 0 for a row that is gone
};

// There is one browse set for each table, so there must be one object only for each at a time. After a
// SetError the set may be closed; Heal and Open bring it back.
class RowSet {
 public:
  explicit RowSet(const Table& table);
  ~RowSet();
  RowSet(const RowSet&) = delete;
  RowSet& operator=(const RowSet&) = delete;

  const Table& Of() const { return m_table; }
  const Words& OpenedWith() const { return m_words; }
  LONG Count() const { return m_count; }

  // Reads the set anew. Throws WordsError when the words make no sense here, and nothing has changed then;
  // and SetError, and OpenedWith stays as it was.
  void Open(const Words& words);

  // Reads the set anew as it was opened last, also when the connection has been lost since. Where the row
  // with the key is then; 0: nowhere. Throws SetError.
  LONG OpenAtKey(LONG key);

  // The rows at these positions, one for each.
  std::vector<Row> Read(LONG first, LONG last);

  // Where the row with the key is, looked for at `near` first; 0: nowhere.
  LONG PositionOfKey(LONG key, LONG near);
  // The first row that is not before `text` in the order; 0: all are. Throws WordsError where the library
  // does not jump: in other tables, and in orders that do not begin with a text, ascending.
  LONG PositionOfText(const std::string& text);

 private:
  void CountRows();
  void SetWords(const Filter& filter, LONG sort);
  // Throws SetError when the last call did not find a row, but for another reason than that there is none.
  void CheckGone() const;
  LONG Moved(LONG position) const;
  Row Current(LONG position) const;
  LONG KeyAt(LONG position) const;
  std::string Reading() const;

  const Table& m_table;
  const Positioning& m_positioning;
  Words m_words;
  LONG m_count = 0;
};

// Restores a lost connection, which closes all sets. Throws SetError when that fails.
void Heal();

// Opens the set again as it was and tells where the row with `key`, last seen at `position`, is now. When
// it is gone: the nearest position that there is; 0 in an empty set.
LONG ReopenAtKey(RowSet& set, LONG key, LONG position);

}  // namespace shell

#endif
