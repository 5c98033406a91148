// The last flat call that failed, for KyODBCDiag.h.
#ifndef KYODBC_FRAME_LAST_FAILURE_H
#define KYODBC_FRAME_LAST_FAILURE_H

#include "platform/types.h"

namespace flat {

#ifdef NDEBUG

// Nobody looks.
class Entrance {
 public:
  explicit constexpr Entrance(const char*) {}
  constexpr bool Refused(const void* = nullptr) const { return false; }
};

#else

// Holds the library for one thread, calls inside calls included. A second thread is refused, which the log
// tells with the names of both functions; it must then touch nothing.
class Entrance {
 public:
  explicit Entrance(const char* function);
  ~Entrance();
  Entrance(const Entrance&) = delete;
  Entrance& operator=(const Entrance&) = delete;

  // Also when `connected`, the database or browse set that the caller is about to use, is not the
  // connection's any more: another thread has closed it since it was looked up.
  bool Refused(const void* connected = nullptr) const;

 private:
  const char* m_function;
  bool m_refused = false;
  bool m_outermost = false;
};

#endif

// One call of an exported function, from its entry to its answer. Exported functions call each other: only
// the outermost one, which is the one that the caller called, is remembered.
class FlatCall {
 public:
  // `function`: the exported name, in static memory.
  explicit FlatCall(const char* function);
  ~FlatCall();
  FlatCall(const FlatCall&) = delete;
  FlatCall& operator=(const FlatCall&) = delete;

  // Another thread is in the library, or was until just now: the call must touch nothing and answer 31.
  bool Refused(const void* connected = nullptr) const { return m_entrance.Refused(connected); }

  // Hands `code` on. Any but 0 is remembered, with what the database said when that led to this code. A call
  // that is refused answers 31 and is not remembered: what is known belongs to the other thread.
  WORD Answer(WORD code) const;

 private:
  const char* m_function;
  Entrance m_entrance;
};

}  // namespace flat

#endif
