// The part of a set that fits on the screen, and the row the user is at. Reads what it shows and no
// more.
#ifndef KYODBC_TOOLS_SHELL_PAGER_H
#define KYODBC_TOOLS_SHELL_PAGER_H

#include <string>
#include <vector>

#include "tools/shell/row_set.h"

namespace shell {

// A step that fails with SetError leaves page and cursor as they were.
class Pager {
 public:
  explicit Pager(const Table& table);

  const Table& Of() const { return m_set.Of(); }
  const Words& OpenedWith() const { return m_set.OpenedWith(); }
  LONG Count() const { return m_set.Count(); }
  LONG First() const { return m_first; }    // position of the first row shown
  LONG Cursor() const { return m_cursor; }  // position of the user's row; 0 in an empty set
  const std::vector<Row>& Rows() const { return m_rows; }
  const Row* Here() const;  // null in an empty set

  // Stands on the first row. Throws as RowSet::Open does.
  void Open(const Words& words);
  // Reads everything anew and stays on the same row.
  void Reload();
  // How many rows are shown, at least one. The cursor's row stays on the page.
  void ShowRows(LONG rows);

  // Steps end at the first and the last row.
  void Move(LONG delta);
  void MovePages(LONG pages);
  void GoTo(LONG position);
  // False: all rows are before the text, and the cursor is on the last one.
  bool Jump(const std::string& text);

 private:
  enum class Shown { kKept, kReadAgain };
  void Show(LONG first, LONG cursor, Shown shown = Shown::kKept);
  std::vector<Row> Window(LONG first, LONG last, Shown shown);

  RowSet m_set;
  LONG m_page = 1;
  LONG m_first = 1;
  LONG m_cursor = 0;
  std::vector<Row> m_rows;
};

}  // namespace shell

#endif
