// Poco Data: statements made once and kept, values bound to variables; many rows come by the thousand into
// vectors.
#include <Poco/Data/Date.h>
#include <Poco/Data/ODBC/Connector.h>
#include <Poco/Data/Session.h>
#include <Poco/Data/Statement.h>
#include <Poco/DateTime.h>
#include <Poco/Exception.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/peer.h"
#include "bench/queries.h"
#include "bench/task.h"

namespace {

using bench::Task;
using Poco::Data::Date;
using Poco::Data::Statement;
using Poco::Data::Keywords::into;
using Poco::Data::Keywords::limit;
using Poco::Data::Keywords::use;
using Patient = bench::PeerPatient<Date, Poco::DateTime>;

constexpr int kRowsAtOnce = 1000;

std::string g_source;
std::int64_t g_empty = 0;

}  // namespace

namespace Poco::Data {

// How this library reads a class of the program's own: one column after another.
template <>
class TypeHandler<Patient> {
 public:
  static std::size_t size() { return 14; }
  static void extract(std::size_t position, Patient& patient, const Patient& none,
                      AbstractExtractor::Ptr extractor) {
    TypeHandler<int>::extract(position++, patient.key, none.key, extractor);
    TypeHandler<int>::extract(position++, patient.doctor, none.doctor, extractor);
    TypeHandler<std::string>::extract(position++, patient.external, none.external, extractor);
    TypeHandler<std::string>::extract(position++, patient.server, none.server, extractor);
    TypeHandler<std::string>::extract(position++, patient.slida, none.slida, extractor);
    TypeHandler<std::string>::extract(position++, patient.social, none.social, extractor);
    TypeHandler<std::string>::extract(position++, patient.name, none.name, extractor);
    TypeHandler<std::string>::extract(position++, patient.firstname, none.firstname, extractor);
    TypeHandler<Date>::extract(position++, patient.birthday, none.birthday, extractor);
    TypeHandler<std::string>::extract(position++, patient.sex, none.sex, extractor);
    TypeHandler<int>::extract(position++, patient.selected, none.selected, extractor);
    TypeHandler<Date>::extract(position++, patient.entry, none.entry, extractor);
    TypeHandler<std::string>::extract(position++, patient.display, none.display, extractor);
    TypeHandler<DateTime>::extract(position++, patient.last_display, none.last_display, extractor);
  }
  static void prepare(std::size_t position, const Patient& none, AbstractPreparator::Ptr preparator) {
    TypeHandler<int>::prepare(position++, none.key, preparator);
    TypeHandler<int>::prepare(position++, none.doctor, preparator);
    for (int text = 0; text < 6; ++text) TypeHandler<std::string>::prepare(position++, none.name, preparator);
    TypeHandler<Date>::prepare(position++, none.birthday, preparator);
    TypeHandler<std::string>::prepare(position++, none.sex, preparator);
    TypeHandler<int>::prepare(position++, none.selected, preparator);
    TypeHandler<Date>::prepare(position++, none.entry, preparator);
    TypeHandler<std::string>::prepare(position++, none.display, preparator);
    TypeHandler<DateTime>::prepare(position++, none.last_display, preparator);
  }
};

}  // namespace Poco::Data

namespace {

struct Moments {
  TIMESTAMP_STRUCT operator()(const Date& date) const {
    return bench::Moment(date.year(), date.month(), date.day());
  }
  TIMESTAMP_STRUCT operator()(const Poco::DateTime& time) const {
    return bench::Moment(time.year(), time.month(), time.day(), time.hour(), time.minute(), time.second());
  }
};

void Take(Task& task, const Patient& patient) {
  task.Take(bench::RecordOf(
      patient, [](const std::string& text) { return text; }, Moments()));
}

struct State {
  State() {
    by_key << bench::kPatientByKey, into(patient), use(key);
    by_slida << bench::kPatientBySlida, into(patient), use(text);
    edit << bench::kEditPatient, use(text), use(key);
    add << bench::kAddPatient, use(added.doctor), use(added.external), use(added.server), use(added.slida),
        use(added.social), use(added.name), use(added.firstname), use(added.birthday), use(added.sex),
        use(added.selected), use(added.entry), use(added.display), use(added.last_display);
    newest << bench::kNewestImage, into(number), into(time), use(owner);
    count << bench::kCountPatients, into(number);
    last << bench::kLastPatient, into(number);
  }
  Poco::Data::Session session{"ODBC", "DSN=" + g_source};
  int key = 0, number = 0, owner = 0;
  std::string text;
  Poco::DateTime time;
  Patient patient, added;
  Statement by_key{session}, by_slida{session}, edit{session}, add{session}, newest{session};
  Statement count{session}, last{session};
};
std::unique_ptr<State> g_state;

State& Connected() {
  if (!g_state) g_state = std::make_unique<State>();
  return *g_state;
}

void Require(std::size_t rows) {
  if (rows == 0) throw std::runtime_error("no row");
}

void ConnectAgain(Task& task) {
  g_state.reset();
  for (int i = 0; i < task.count; ++i) {
    std::unique_ptr<Poco::Data::Session> session;
    task.Start();
    session = std::make_unique<Poco::Data::Session>("ODBC", "DSN=" + g_source);
    task.Stop();
  }
}

void Get(Task& task) {
  State& state = Connected();
  for (int i = 0; i < task.count; ++i) {
    state.key = task.Random(task.rows);
    task.Start();
    Require(state.by_key.execute());
    task.Stop();
    if (task.check) Take(task, state.patient);
  }
}

void EditOne(Task& task, State& state, int number) {
  state.key = task.Random(task.rows);
  state.text = task.NewText(number);
  task.Start();
  Require(state.by_key.execute());
  state.edit.execute();
  task.Stop();
}

void CheckEdited(Task& task, State& state) {
  if (!task.check) return;
  Require(state.by_key.execute());
  task.TakeWritten(state.text, state.patient.social);
}

void BeginEmbedded(const Task& task, State& state) {
  if (!task.embedded) return;
  state.session.setFeature("autoCommit", false);
  state.session.begin();
}

void EndEmbedded(const Task& task, State& state) {
  if (!task.embedded) return;
  state.session.rollback();
  state.session.setFeature("autoCommit", true);
}

void Edit(Task& task) {
  State& state = Connected();
  BeginEmbedded(task, state);
  for (int i = 0; i < task.count; ++i) {
    EditOne(task, state, i);
    CheckEdited(task, state);
  }
  EndEmbedded(task, state);
}

void Fill(Patient& patient, const std::string& identifier) {
  const TIMESTAMP_STRUCT today = bench::Today();
  patient.doctor = 1;
  patient.slida = patient.display = identifier;
  patient.name = "Newcomer";
  patient.firstname = "Nora";
  patient.sex = "f";
  patient.birthday = Date(1980, 5, 5);
  patient.entry = Date(today.year, today.month, today.day);
  patient.last_display = Poco::DateTime(today.year, today.month, today.day);
}

void Add(Task& task) {
  State& state = Connected();
  BeginEmbedded(task, state);
  for (int i = 0; i < task.count; ++i) {
    state.text = task.NewIdentifier(i);
    task.Start();
    Fill(state.added, state.text);
    state.add.execute();
    Require(state.by_slida.execute());
    task.Stop();
    if (task.check) task.TakeWritten(state.text, state.patient.display);
  }
  EndEmbedded(task, state);
}

void Newest(Task& task) {
  State& state = Connected();
  for (int i = 0; i < task.count; ++i) {
    state.owner = task.Random(task.rows / 10);
    task.Start();
    Require(state.newest.execute());
    task.Stop();
    task.Take(state.number);
    task.Take(Moments()(state.time));
    task.EndRow();
  }
}

void Number(Task& task, Statement& statement) {
  for (int i = 0; i < task.count; ++i) {
    task.Start();
    Require(statement.execute());
    task.Stop();
    task.Take(Connected().number);
    task.EndRow();
  }
}

// Runs a query and fetches its first row.
Patient First(Task& task, const std::string& sql) {
  Patient patient;
  Statement statement(Connected().session);
  task.Start();
  statement << sql, into(patient), limit(1);
  Require(statement.execute());
  task.Stop();
  return patient;
}

void OpenPatients(Task& task) {
  for (int i = 0; i < task.count; ++i) {
    const Patient patient = First(task, bench::kPatientsByName);
    if (!task.check) continue;
    task.Take(std::string_view(patient.name));
    task.EndRow();
  }
}

void Walk(Task& task) {
  Statement statement(Connected().session);
  std::vector<Patient> patients;
  int rows = 0;
  task.Start();
  statement << bench::kPatientsByName, into(patients), limit(kRowsAtOnce);
  while (!statement.done()) {
    patients.clear();
    statement.execute();
    for (const Patient& patient : patients) {
      ++rows;
      if (task.check) Take(task, patient);
    }
  }
  task.Stop();
  task.Take(rows);
  task.EndRow();
}

void TakeFirst(Task& task, const std::string& sql) {
  const Patient patient = First(task, sql);
  if (task.check) Take(task, patient);
}

void Refilter(Task& task) {
  for (int i = 0; i < task.count; ++i) {
    TakeFirst(task, std::string(BENCH_PATIENTS " WHERE tPatSName LIKE '") + task.Beginning(i) +
                        "'" BENCH_BY_PERSON);
  }
}

void Resort(Task& task) {
  for (int i = 0; i < task.count; ++i) {
    TakeFirst(task, i % 2 == 0 ? bench::kPatientsByBirthday : bench::kPatientsByPerson);
  }
}

// Positions are those of rows in memory: the query runs again.
void EditLook(Task& task) {
  State& state = Connected();
  BeginEmbedded(task, state);
  for (int i = 0; i < task.count; ++i) {
    EditOne(task, state, i);
    First(task, bench::kPatientsByPerson);
    CheckEdited(task, state);
  }
  EndEmbedded(task, state);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return 2;
  g_source = arguments[1];
  g_empty = bench::ResidentMemory();
  Poco::Data::ODBC::Connector::registerConnector();
  const int code = bench::Serve({
      {"connect",       ConnectAgain                                       },
      {"get",           Get                                                },
      {"edit",          Edit                                               },
      {"add",           Add                                                },
      {"newest",        Newest                                             },
      {"last_id",       [](Task& task) { Number(task, Connected().last); } },
      {"count",         [](Task& task) { Number(task, Connected().count); }},
      {"open_patients", OpenPatients                                       },
      {"walk",          Walk                                               },
      {"maxpos",        [](Task& task) { Number(task, Connected().count); }},
      {"refilter",      Refilter                                           },
      {"resort",        Resort                                             },
      {"edit_look",     EditLook                                           },
      {"disconnect",    [](Task&) { g_state.reset(); }                     },
  });
  g_state.reset();
  return code;
}
