// Which columns of a table fit on a screen, how wide they are, and what stands in them.
#ifndef KYODBC_TOOLS_SHELL_COLUMNS_H
#define KYODBC_TOOLS_SHELL_COLUMNS_H

#include <cstddef>
#include <string>
#include <vector>

#include "tools/shell/row_set.h"

namespace shell {

// What stands in a column of a line of the screen.
struct Cell {
  std::size_t x = 0;
  std::string text;
  std::size_t column = 0;  // which one it is, counted from 0
};

// All columns of a table, those of lists first; one of them is selected. They get as wide as what has been
// seen in them, so that they do not jump when pages turn.
class Columns {
 public:
  explicit Columns(const Table& table);

  void See(const std::vector<Row>& rows);
  // How many columns of the terminal there are.
  void Fit(std::size_t width);

  // Selects the column that many places to the right, or the last or first one.
  void Select(int delta);
  std::size_t Selected() const { return m_selected; }
  const char* SelectedTitle() const { return m_columns[m_selected]->title; }

  std::vector<Cell> Titles() const;
  std::vector<Cell> Line(const Row& row) const;

 private:
  template <class MakeText>
  std::vector<Cell> Cells(MakeText text) const;
  std::size_t Used(std::size_t first, std::size_t last) const;

  std::vector<const Column*> m_columns;
  std::vector<std::size_t> m_widths;
  std::size_t m_width = 80;
  std::size_t m_first = 0;  // the leftmost column shown
  std::size_t m_selected = 0;
};

// All fields of a row, each behind its title, in lines of at most `width` columns of the terminal.
std::vector<std::string> Details(const Table& table, const Row& row, std::size_t width);

// The text in pieces of at most `width` columns of the terminal, at least one.
std::vector<std::string> Wrapped(const std::string& text, std::size_t width);

}  // namespace shell

#endif
