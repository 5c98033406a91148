// What of a set of rows to read when one of them is visited: the row alone after a jump, a page of rows on a
// walk. Rows read ahead are out of date after a moment, or when the connection has changed something.
#ifndef KYODBC_PLATFORM_READ_AHEAD_H
#define KYODBC_PLATFORM_READ_AHEAD_H

#include <chrono>
#include <vector>

#include "platform/types.h"

class ReadAhead {
 public:
  using Clock = std::chrono::steady_clock;

  static constexpr SQLLEN kFirstPage = 64;  // more than a window shows
  static constexpr SQLLEN kLargestPage = 1024;
  static constexpr std::chrono::milliseconds kPageLife{250};

  // What to read, `rows` of them from `first` on. None: the row is at hand.
  struct Range {
    SQLLEN first = 0;
    SQLLEN rows = 0;
  };
  // When something is known or asked: the time, and how many changes the connection has made until then.
  struct Moment {
    Clock::time_point time;
    unsigned changes = 0;
  };

  void Forget() { *this = ReadAhead(); }
  SQLLEN Visited() const { return m_visited; }  // 0 for none

  // Visits `row` of `count` without pages.
  void VisitAlone(SQLLEN row) { m_visited = row; }
  // Visits `row` of `count`, one walk or jump after the other, and tells what has to be read for it.
  Range Visit(SQLLEN row, SQLLEN count, const Moment& now);

  // A page is going to be read: the one before is not there any more.
  void BeginPage() { DropPage(); }
  // The page is there, as it was at `then`.
  void HavePage(const Range& page, const Moment& then);
  // Hands the row of the page out: a second visit reads it again.
  void Give(SQLLEN row) { m_given[static_cast<std::size_t>(row - m_first)] = true; }

 private:
  void DropPage() { m_given.clear(); }
  bool IsInPage(SQLLEN row) const;
  bool IsAtHand(SQLLEN row, const Moment& now) const;
  SQLLEN Used() const;
  SQLLEN Walk(SQLLEN row, SQLLEN step, const Moment& now);
  SQLLEN Jump(SQLLEN step, bool turned);

  SQLLEN m_visited = 0;         // the row visited last
  SQLLEN m_direction = 0;       // of the walk, 0 after a jump
  SQLLEN m_walked = 0;          // rows since the last jump
  SQLLEN m_ahead = kFirstPage;  // rows to read when the walk needs more

  SQLLEN m_first = 0;         // of the page
  std::vector<bool> m_given;  // for each row of the page
  Moment m_read;
};

#endif
