// SOCI: statements prepared once and kept, values bound to variables.
#include <soci/odbc/soci-odbc.h>
#include <soci/soci.h>

#include <ctime>
#include <memory>
#include <stdexcept>
#include <string>

#include "bench/peer.h"
#include "bench/queries.h"
#include "bench/task.h"

namespace {

using bench::Task;
using soci::into;
using soci::use;
using Patient = bench::PeerPatient<std::tm, std::tm>;

std::string g_source;
std::int64_t g_empty = 0;

soci::statement Bind(soci::details::prepare_temp_type query, Patient& patient) {
  return {(query, into(patient.key), into(patient.doctor), into(patient.external), into(patient.server),
           into(patient.slida), into(patient.social), into(patient.name), into(patient.firstname),
           into(patient.birthday), into(patient.sex), into(patient.selected), into(patient.entry),
           into(patient.display), into(patient.last_display))};
}

// A query of patients, bound to `patient`.
struct Reader {
  Reader(soci::session& session, const std::string& sql) : statement(Bind(session.prepare << sql, patient)) {}
  template <class Parameter>
  Reader(soci::session& session, const std::string& sql, Parameter& parameter)
      : statement(Bind((session.prepare << sql, use(parameter)), patient)) {}
  Patient patient;
  soci::statement statement;
};

void Take(Task& task, const Patient& patient) {
  const auto text = [](const std::string& value) { return value; };
  const auto moment = [](const std::tm& tm) {
    return bench::Moment(tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec);
  };
  task.Take(bench::RecordOf(patient, text, moment));
}

struct State {
  soci::session session{soci::odbc, "DSN=" + g_source};
  int key = 0, number = 0, owner = 0;
  std::string text;
  std::tm time{};
  Patient added;
  Reader by_key{session, bench::kPatientByKey, key};
  Reader by_slida{session, bench::kPatientBySlida, text};
  soci::statement edit{(session.prepare << bench::kEditPatient, use(text), use(key))};
  soci::statement add{(session.prepare << bench::kAddPatient, use(added.doctor), use(added.external),
                       use(added.server), use(added.slida), use(added.social), use(added.name),
                       use(added.firstname), use(added.birthday), use(added.sex), use(added.selected),
                       use(added.entry), use(added.display), use(added.last_display))};
  soci::statement newest{(session.prepare << bench::kNewestImage, into(number), into(time), use(owner))};
  soci::statement count{(session.prepare << bench::kCountPatients, into(number))};
  soci::statement last{(session.prepare << bench::kLastPatient, into(number))};
};
std::unique_ptr<State> g_state;

State& Connected() {
  if (!g_state) g_state = std::make_unique<State>();
  return *g_state;
}

void Require(bool is_there) {
  if (!is_there) throw std::runtime_error("no row");
}

void ConnectAgain(Task& task) {
  g_state.reset();
  for (int i = 0; i < task.count; ++i) {
    soci::session session;
    task.Start();
    session.open(soci::odbc, "DSN=" + g_source);
    task.Stop();
  }
}

void Get(Task& task) {
  State& state = Connected();
  for (int i = 0; i < task.count; ++i) {
    state.key = task.Random(task.rows);
    task.Start();
    Require(state.by_key.statement.execute(true));
    task.Stop();
    if (task.check) Take(task, state.by_key.patient);
  }
}

void EditOne(Task& task, State& state, int number) {
  state.key = task.Random(task.rows);
  state.text = task.NewText(number);
  task.Start();
  Require(state.by_key.statement.execute(true));
  state.edit.execute(true);
  task.Stop();
}

void CheckEdited(Task& task, State& state) {
  if (!task.check) return;
  Require(state.by_key.statement.execute(true));
  task.TakeWritten(state.text, state.by_key.patient.social);
}

void Edit(Task& task) {
  State& state = Connected();
  if (task.embedded) state.session.begin();
  for (int i = 0; i < task.count; ++i) {
    EditOne(task, state, i);
    CheckEdited(task, state);
  }
  if (task.embedded) state.session.rollback();
}

void Fill(Patient& patient, const std::string& identifier) {
  const TIMESTAMP_STRUCT today = bench::Today();
  patient.doctor = 1;
  patient.slida = patient.display = identifier;
  patient.name = "Newcomer";
  patient.firstname = "Nora";
  patient.sex = "f";
  patient.birthday.tm_year = 80;
  patient.birthday.tm_mon = 4;
  patient.birthday.tm_mday = 5;
  patient.entry.tm_year = today.year - 1900;
  patient.entry.tm_mon = today.month - 1;
  patient.entry.tm_mday = today.day;
  patient.last_display = patient.entry;
}

void Add(Task& task) {
  State& state = Connected();
  if (task.embedded) state.session.begin();
  for (int i = 0; i < task.count; ++i) {
    state.text = task.NewIdentifier(i);
    task.Start();
    Fill(state.added, state.text);
    state.add.execute(true);
    Require(state.by_slida.statement.execute(true));
    task.Stop();
    if (task.check) task.TakeWritten(state.text, state.by_slida.patient.display);
  }
  if (task.embedded) state.session.rollback();
}

void Newest(Task& task) {
  State& state = Connected();
  for (int i = 0; i < task.count; ++i) {
    state.owner = task.Random(task.rows / 10);
    task.Start();
    Require(state.newest.execute(true));
    task.Stop();
    task.Take(state.number);
    task.Take(bench::Moment(state.time.tm_year + 1900, state.time.tm_mon + 1, state.time.tm_mday,
                            state.time.tm_hour, state.time.tm_min, state.time.tm_sec));
    task.EndRow();
  }
}

void Number(Task& task, soci::statement& statement) {
  for (int i = 0; i < task.count; ++i) {
    task.Start();
    Require(statement.execute(true));
    task.Stop();
    task.Take(Connected().number);
    task.EndRow();
  }
}

// Runs a query and fetches its first row.
void OpenPatients(Task& task, const std::string& sql, bool whole_row) {
  State& state = Connected();
  for (int i = 0; i < task.count; ++i) {
    std::unique_ptr<Reader> reader;
    task.Start();
    reader = std::make_unique<Reader>(state.session, sql);
    Require(reader->statement.execute(true));
    task.Stop();
    if (!task.check) continue;
    if (whole_row) {
      Take(task, reader->patient);
    } else {
      task.Take(std::string_view(reader->patient.name));
      task.EndRow();
    }
  }
}

struct Image {
  int key = 0, patient = 0, unit = 0, doctor = 0, last_makro = 0;
  std::string type, region, name, preg, order_type, order_region, order_reason, archive_type;
  std::string archive_location, archive_file, archive_volume, preview_location, preview_file, location, file;
  std::tm time{}, out{}, in{};
};

std::unique_ptr<soci::statement> ReadImages(soci::session& session, const char* sql, Image& image) {
  return std::make_unique<soci::statement>(
      (session.prepare << sql, into(image.key), into(image.patient), into(image.unit), into(image.doctor),
       into(image.type), into(image.region), into(image.name), into(image.time), into(image.preg),
       into(image.order_type), into(image.order_region), into(image.order_reason), into(image.archive_type),
       into(image.archive_location), into(image.archive_file), into(image.archive_volume), into(image.out),
       into(image.in), into(image.preview_location), into(image.preview_file), into(image.location),
       into(image.file), into(image.last_makro)));
}

void OpenImages(Task& task, const char* sql, bool is_sorted) {
  State& state = Connected();
  for (int i = 0; i < task.count; ++i) {
    Image image;
    std::unique_ptr<soci::statement> statement;
    task.Start();
    statement = ReadImages(state.session, sql, image);
    Require(statement->execute(true));
    task.Stop();
    if (!is_sorted) {
      task.TakeAnyKey(image.key);
      continue;
    }
    task.Take(image.key);
    task.EndRow();
  }
}

void Walk(Task& task) {
  State& state = Connected();
  int rows = 0;
  task.Start();
  Reader reader(state.session, bench::kPatientsByName);
  reader.statement.execute();
  while (reader.statement.fetch()) {
    ++rows;
    if (task.check) Take(task, reader.patient);
  }
  task.Stop();
  task.Take(rows);
  task.EndRow();
}

void Refilter(Task& task) {
  Task once = task;
  once.count = 1;
  for (int i = 0; i < task.count; ++i) {
    OpenPatients(
        once, std::string(BENCH_PATIENTS " WHERE tPatSName LIKE '") + task.Beginning(i) + "'" BENCH_BY_PERSON,
        true);
  }
  once.count = task.count;
  task = once;
}

void Resort(Task& task) {
  Task once = task;
  once.count = 1;
  for (int i = 0; i < task.count; ++i) {
    OpenPatients(once, i % 2 == 0 ? bench::kPatientsByBirthday : bench::kPatientsByPerson, true);
  }
  once.count = task.count;
  task = once;
}

// Has no positions: the query runs again.
void EditLook(Task& task) {
  State& state = Connected();
  Reader reader(state.session, bench::kPatientsByPerson);
  if (task.embedded) state.session.begin();
  for (int i = 0; i < task.count; ++i) {
    EditOne(task, state, i);
    task.Start();
    Require(reader.statement.execute(true));
    task.Stop();
    CheckEdited(task, state);
  }
  if (task.embedded) state.session.rollback();
}

void MemoryOpen(Task& task) {
  static Image image;
  static std::unique_ptr<soci::statement> statement;
  statement = ReadImages(Connected().session, bench::kImages, image);
  Require(statement->execute(true));
  task.Answer(bench::ResidentMemory() - g_empty);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return 2;
  g_source = arguments[1];
  g_empty = bench::ResidentMemory();
  return bench::Serve({
      {"connect",            ConnectAgain                                                         },
      {"get",                Get                                                                  },
      {"edit",               Edit                                                                 },
      {"add",                Add                                                                  },
      {"newest",             Newest                                                               },
      {"last_id",            [](Task& task) { Number(task, Connected().last); }                   },
      {"count",              [](Task& task) { Number(task, Connected().count); }                  },
      {"open_patients",      [](Task& task) { OpenPatients(task, bench::kPatientsByName, false); }},
      {"open_images",        [](Task& task) { OpenImages(task, bench::kImages, false); }          },
      {"open_images_sorted", [](Task& task) { OpenImages(task, bench::kImagesByTime, true); }     },
      {"walk",               Walk                                                                 },
      {"maxpos",             [](Task& task) { Number(task, Connected().count); }                  },
      {"refilter",           Refilter                                                             },
      {"resort",             Resort                                                               },
      {"edit_look",          EditLook                                                             },
      {"disconnect",         [](Task&) { g_state.reset(); }                                       },
      {"memory_open",        MemoryOpen                                                           },
  });
}
