// A table on the screen: its rows and its columns.
#ifndef KYODBC_TOOLS_SHELL_PANE_H
#define KYODBC_TOOLS_SHELL_PANE_H

#include "tools/shell/columns.h"
#include "tools/shell/layout.h"
#include "tools/shell/pager.h"

namespace shell {

struct Pane {
  explicit Pane(const Table& table) : pager(table), columns(table) {}

  Pager pager;
  Columns columns;

  // The area without the lines of titles.
  void Fit(const Area& area, int title_lines) {
    columns.Fit(static_cast<std::size_t>(area.width));
    pager.ShowRows(area.height - title_lines);
  }
};

}  // namespace shell

#endif
