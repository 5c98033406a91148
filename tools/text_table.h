// Tables on a terminal: columns under each other, whatever the script.
#ifndef KYODBC_TOOLS_TEXT_TABLE_H
#define KYODBC_TOOLS_TEXT_TABLE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// How many columns of a terminal the text takes: wide characters two, combining marks none.
std::size_t DisplayWidth(std::string_view text);

// The text as one harmless line: line ends and tabs become blanks; other control characters, which could
// steer the terminal, and bytes that are no characters become U+FFFD.
std::string Printable(std::string_view text);

// The text, or as much of it as fits into `width` columns with an ellipsis behind it.
std::string Shortened(const std::string& text, std::size_t width);

class TextTable {
 public:
  enum class Align { kLeft, kRight };
  struct Column {
    std::string title;
    Align align = Align::kLeft;
  };

  // Longer cells are shortened to `widest` columns of the terminal.
  explicit TextTable(std::vector<Column> columns, std::size_t widest = 40);

  // Takes one cell for each column.
  void Add(const std::vector<std::string>& cells);
  // Titles, a rule and the rows; each line ends with a line end and without blanks before it. With `bold`,
  // for terminals, the titles stand out.
  std::string Text(bool bold = false) const;

 private:
  std::string Line(const std::vector<std::string>& cells) const;

  std::vector<Column> m_columns;
  std::vector<std::size_t> m_widths;
  std::vector<std::vector<std::string>> m_rows;
  std::size_t m_widest;
};

#endif
