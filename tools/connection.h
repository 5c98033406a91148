// The library's connection to a practice.
#ifndef KYODBC_TOOLS_CONNECTION_H
#define KYODBC_TOOLS_CONNECTION_H

#include "tools/place.h"

// Connected as long as it lives. Throws ToolError when connecting fails.
class Connection {
 public:
  explicit Connection(const Place& place);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
};

// Groups changes into transactions of a few hundred steps, which is what makes loading fast. What was not
// finished is taken back.
class Batches {
 public:
  Batches();
  ~Batches();
  Batches(const Batches&) = delete;
  Batches& operator=(const Batches&) = delete;

  void Step();
  void Finish();

 private:
  static constexpr int kSteps = 400;
  int m_steps = 0;
  bool m_open = false;

  void Begin();
  void Commit();
};

#endif
