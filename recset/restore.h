// Puts a changed value back at the end of a scope, also when an exception passes.
#ifndef KYODBC_RECSET_RESTORE_H
#define KYODBC_RECSET_RESTORE_H

template <class T>
class Restore {
 public:
  explicit Restore(T& value) : m_value(value), m_saved(value) {}
  Restore(const Restore&) = delete;
  Restore& operator=(const Restore&) = delete;
  ~Restore() { PutBack(); }

  // Puts the value back now; the end of the scope does so again.
  void PutBack() { m_value = m_saved; }

 private:
  T& m_value;
  const T m_saved;
};

#endif
