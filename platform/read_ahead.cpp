#include "platform/read_ahead.h"

#include <algorithm>
#include <utility>

bool ReadAhead::IsInPage(SQLLEN row) const {
  return row >= m_first && row - m_first < static_cast<SQLLEN>(m_given.size());
}

bool ReadAhead::IsAtHand(SQLLEN row, const Moment& now) const {
  return IsInPage(row) && !m_given[static_cast<std::size_t>(row - m_first)] &&
         m_read.changes == now.changes && now.time - m_read.time < kPageLife;
}

SQLLEN ReadAhead::Used() const { return std::count(m_given.begin(), m_given.end(), true); }

void ReadAhead::HavePage(const Range& page, const Moment& then) {
  m_first = page.first;
  m_given.assign(static_cast<std::size_t>(page.rows), false);
  m_read = then;
}

ReadAhead::Range ReadAhead::Visit(SQLLEN row, SQLLEN count, const Moment& now) {
  const SQLLEN step = row - m_visited;
  const bool walks = m_visited != 0 && (step == 1 || step == -1);
  const bool turned = walks && m_direction == -step;
  m_visited = row;
  const SQLLEN wanted = walks && !turned ? Walk(row, step, now) : Jump(walks ? step : 0, turned);
  if (wanted <= 1) return {row, wanted};
  if (m_direction < 0) {
    const SQLLEN first = std::max<SQLLEN>(1, row - wanted + 1);
    return {first, row - first + 1};
  }
  return {row, std::min(count - row + 1, wanted)};
}

// Larger pages the farther it goes. When a page was out of date before it was used up, since the caller works
// on each row for long or changes something, the next one has no more rows than were used.
SQLLEN ReadAhead::Walk(SQLLEN row, SQLLEN step, const Moment& now) {
  m_direction = step;
  ++m_walked;
  if (IsAtHand(row, now)) return 0;
  if (IsInPage(row)) m_ahead = std::max<SQLLEN>(Used(), 1);
  DropPage();
  return std::exchange(m_ahead, std::min(2 * m_ahead, kLargestPage));
}

// A jump counts as the begin of a walk when the jump before was one: a window that scrolls.
SQLLEN ReadAhead::Jump(SQLLEN step, bool turned) {
  const bool window = !turned && m_direction >= 0 && m_walked > 1;
  m_direction = step;
  m_walked = 0;
  m_ahead = kFirstPage;
  return window ? m_ahead : 1;
}
