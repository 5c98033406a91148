// Makes random scripts whose calls mostly find rows: it follows them in models of all databases.
#ifndef KYODBC_TESTS_DIFFERENTIAL_GENERATOR_H
#define KYODBC_TESTS_DIFFERENTIAL_GENERATOR_H

#include <optional>
#include <random>
#include <string>
#include <vector>

#include "tests/differential/model.h"

namespace differential {

class Generator {
 public:
  // At least one model.
  Generator(unsigned seed, const std::vector<ModelOptions>& databases);

  // So many flat calls, the same for the same seed and databases, of which none comes to something that
  // cannot be foretold. To be asked for once.
  Script Make(std::size_t calls);

 private:
  // Adds the call if it can be foretold, and, unless `any`, if it is not likely to be dull.
  bool Try(const Call& call, bool any, Script* script);
  Call Next();
  Call NextOfTable(Stem stem);
  Call Preparation();

  // generator_calls.cpp
  Call Browse(Stem stem, Verb verb);
  Call FilterOf(Stem stem);
  Cell OperandOf(Stem stem, int id, bool pattern);
  Call SortOf(Stem stem);
  Call Change(Stem stem, Verb verb);
  Call SettingCall();
  Call PatientCall();
  Call UnitCall();
  Call ConnectionCall();
  int PositionIn(Stem stem);

  // generator_records.cpp
  Packed FreshRecord(Stem stem);
  Packed StoredRecord(Stem stem);
  void Vary(Packed* record, int field);
  Packed CompactPatient();
  Packed CompactUnit();
  std::string TextFor(const Field& field);
  std::string AnyText();
  std::string SomeName();
  Time SomeTime();
  int SomeKey(Stem stem);
  Stem ReferredBy(Stem stem, const std::string& field) const;

  int Below(int count);  // 0 to count-1
  bool Chance(int percent) { return Below(100) < percent; }
  template <class T>
  const T& Pick(const std::vector<T>& from) {
    return from[static_cast<std::size_t>(Below(static_cast<int>(from.size())))];
  }

  std::mt19937 m_random;
  std::vector<Model> m_models;
  std::optional<Call> m_forced;  // what must come next, such as an order after a refused one
  std::size_t m_calls = 0;       // made, without settings of the clock
  int m_now = 1'000'000'000;
};

}  // namespace differential

#endif
