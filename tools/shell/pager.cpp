#include "tools/shell/pager.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace shell {

Pager::Pager(const Table& table) : m_set(table) {}

const Row* Pager::Here() const {
  const LONG index = m_cursor - m_first;
  if (m_cursor == 0 || index < 0 || index >= std::ssize(m_rows)) return nullptr;
  return &m_rows[static_cast<std::size_t>(index)];
}

void Pager::Open(const Words& words) {
  m_set.Open(words);
  Show(1, 1, Shown::kReadAgain);
}

void Pager::Reload() {
  const Row* here = Here();
  const LONG cursor = ReopenAtKey(m_set, here != nullptr ? here->Key() : 0, m_cursor);
  Show(m_first + cursor - m_cursor, cursor, Shown::kReadAgain);
}

void Pager::ShowRows(LONG rows) {
  m_page = std::max<LONG>(1, rows);
  Show(m_first, m_cursor);
}

void Pager::Move(LONG delta) { Show(m_first, m_cursor + delta); }

void Pager::MovePages(LONG pages) { Show(m_first + pages * m_page, m_cursor + pages * m_page); }

void Pager::GoTo(LONG position) { Show(m_first, position); }

bool Pager::Jump(const std::string& text) {
  const LONG found = m_set.PositionOfText(text);
  const LONG cursor = found > 0 ? found : Count();
  Show(cursor, cursor);
  return found > 0;
}

// Takes any numbers: the cursor is brought into the set, and the page to the cursor and full where it can be.
void Pager::Show(LONG first, LONG cursor, Shown shown) {
  cursor = std::clamp<LONG>(cursor, std::min<LONG>(1, Count()), Count());
  first = std::clamp<LONG>(first, cursor - m_page + 1, cursor);
  first = std::max<LONG>(1, std::min(first, Count() - m_page + 1));
  std::vector<Row> rows = Window(first, std::min(Count(), first + m_page - 1), shown);
  m_rows = std::move(rows);
  m_first = first;
  m_cursor = cursor;
}

// Rows that are shown and kept are not read.
std::vector<Row> Pager::Window(LONG first, LONG last, Shown shown) {
  const auto kept = [this, shown](LONG position) {
    return shown == Shown::kKept && !m_rows.empty() && position >= m_rows.front().position &&
           position <= m_rows.back().position;
  };
  std::vector<Row> rows;
  for (LONG position = first; position <= last;) {
    if (kept(position)) {
      rows.push_back(m_rows[static_cast<std::size_t>(position - m_rows.front().position)]);
      ++position;
      continue;
    }
    LONG end = position;
    while (end < last && !kept(end + 1)) ++end;
    for (Row& row : m_set.Read(position, end)) rows.push_back(std::move(row));
    position = end + 1;
  }
  return rows;
}

}  // namespace shell
