// What is done while calls fail: a row for each kind of work with the library.
#ifndef KYODBC_TESTS_FAULTS_SCENARIO_H
#define KYODBC_TESTS_FAULTS_SCENARIO_H

#include <initializer_list>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "frame/KyODBC.h"
#include "platform/cdbexception.h"
#include "tests/support/raw_odbc.h"

namespace faults {

// Takes no memory: in some tests there is none.
using Codes = std::initializer_list<WORD>;

// The answers of one run.
class Answers {
 public:
  // Notes a code that one of `allowed` must be, and returns it. 0 is allowed everywhere.
  WORD Code(const char* call, WORD code, Codes allowed);
  // Notes a position, of which 0 is a failure.
  LONG Position(const char* call, LONG position);

  // Notes what a call has given out.
  void Number(const char* what, LONG number);

  // Whatever the other answers, the change must be in the database, or must not be.
  void RequireChange(bool change = true) { m_required = change; }

  // The one change of the scenario, an edit or a delete, gave this code: any but 0 tells that nothing has
  // changed, as long as nobody lies to the library.
  void TellsWhetherChanged(WORD code) { m_told_unchanged = code != 0; }
  bool ToldUnchanged() const { return m_told_unchanged; }

  bool MayBeBefore() const { return m_required ? !*m_required : !m_all_well; }
  bool MayBeAfter() const { return !m_required || *m_required; }
  bool AllWell() const { return m_all_well; }
  const std::string& NotAllowed() const { return m_not_allowed; }  // empty: all codes were allowed
  const std::string& Text() const { return m_text; }               // all answers, for a reader

 private:
  bool m_all_well = true;
  std::optional<bool> m_required;
  bool m_told_unchanged = false;
  std::string m_not_allowed;
  std::string m_text;
};

// Keys of the rows that each table has from the start, by the table's short name in function names.
using Keys = std::map<std::string, LONG>;

// What scenarios write, besides the records of the series that they add: no log may have it.
inline constexpr char kChangedText[] = "Changed7";
inline constexpr char kChangedTextToo[] = "Replaces7";
inline constexpr char kCompactName[] = "Compact7";
inline constexpr char kCompactFirstname[] = "Clara7";
inline constexpr char kDirectText[] = "Direct7";
inline constexpr char kSettingValue[] = "Setting value 7";

struct Scenario {
  std::string name;
  void (*run)(Answers& answers, const Keys& keys);
  void (*prepare)(const Keys& keys) = nullptr;  // before calls fail
  bool passes_exceptions_on = false;            // works with a set of the caller's own
  bool connects = false;                        // starts without a connection
  bool derives = false;                         // the patient's last display may lag behind
  bool row_by_row = false;                      // changes several rows, each by itself
  bool runs_statements = true;                  // without any, nothing can be still executing
};

// GoogleTest would print the bytes, also those between the members.
inline void PrintTo(const Scenario& scenario, std::ostream* out) { *out << scenario.name; }

std::vector<Scenario> BrowsingScenarios();
std::vector<Scenario> RowScenarios();
std::vector<Scenario> DirectScenarios();
std::vector<Scenario> OtherScenarios();
std::vector<Scenario> AllScenarios();

// Adds the rows that the scenarios work on, one in each table, to an empty practice that is connected.
Keys AddRows();

// What callers' own sets run; it has a row.
inline constexpr char kProcedure[] = "exhausted_list";
void MakeProcedure(support::RawOdbc& raw);

// Sets that callers hold themselves pass exceptions on.
template <class Work>
WORD CodeOf(Work work) {
  try {
    return work();
  } catch (CDBException* exception) {
    exception->Delete();
    return 31;
  }
}

}  // namespace faults

#endif
