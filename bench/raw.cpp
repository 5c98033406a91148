// Bare ODBC, as a patient programmer writes it: bound columns, a static cursor where rows are positioned,
// prepared statements that are kept. What all others are held against.
#include <cstring>
#include <memory>
#include <optional>
#include <string>

#include "bench/queries.h"
#include "bench/raw_statements.h"
#include "bench/task.h"

namespace {

using bench::Connection;
using bench::NumberQuery;
using bench::PatientReader;
using bench::Statement;
using bench::Task;

constexpr int kPage = 50;

std::string g_source;
std::int64_t g_empty = 0;  // memory of the process before it did anything

// Everything that is kept between works.
struct State {
  Connection connection{g_source};
  bench::ByKey by_key{connection};
  bench::Editor editor{connection};
  bench::Adder adder{connection};
  bench::NewestImage newest{connection};
  NumberQuery count{connection, bench::kCountPatients};
  NumberQuery last{connection, bench::kLastPatient};
  std::optional<PatientReader> patients;
};
std::unique_ptr<State> g_state;

State& Connected() {
  if (!g_state) g_state = std::make_unique<State>();
  return *g_state;
}

void Require(bool is_there) {
  if (!is_there) throw std::runtime_error("no row");
}

PatientReader& OpenSet(State& state) {
  if (!state.patients) {
    state.patients.emplace(state.connection, true);
    state.patients->statement.Execute(bench::kPatientsByPerson);
    Require(state.patients->statement.Fetch(SQL_FETCH_FIRST, 1));
  }
  return *state.patients;
}

void ConnectAgain(Task& task) {
  g_state.reset();
  for (int i = 0; i < task.count; ++i) {
    std::optional<Connection> connection;
    task.Start();
    connection.emplace(g_source);
    task.Stop();
  }
}

void Get(Task& task) {
  State& state = Connected();
  for (int i = 0; i < task.count; ++i) {
    tagTPATIENT patient;
    const int key = task.Random(task.rows);
    task.Start();
    Require(state.by_key.Read(key, &patient));
    task.Stop();
    if (task.check) task.Take(patient);
  }
}

// Finds the row, as every program must that answers for what it changed, and writes it.
void EditOne(Task& task, State& state, int number, int key) {
  tagTPATIENT patient;
  const std::string text = task.NewText(number);
  task.Start();
  Require(state.by_key.Read(key, &patient));
  std::strcpy(state.editor.text, text.c_str());
  state.editor.key = key;
  state.editor.statement.Execute();
  task.Stop();
}

void CheckEdited(Task& task, State& state, int number, int key) {
  if (!task.check) return;
  tagTPATIENT patient;
  Require(state.by_key.Read(key, &patient));
  task.TakeWritten(task.NewText(number), patient.szSocID);
}

void Edit(Task& task) {
  State& state = Connected();
  if (task.embedded) state.connection.Begin();
  for (int i = 0; i < task.count; ++i) {
    const int key = task.Random(task.rows);
    EditOne(task, state, i, key);
    CheckEdited(task, state, i, key);
  }
  if (task.embedded) state.connection.Rollback();
}

// `whole`: on a server each row and its reading back are a transaction, so that there are both or neither.
void AddRows(Task& task, bool whole) {
  State& state = Connected();
  bench::Adder& adder = state.adder;
  const bool transaction = whole && !task.embedded;
  if (task.embedded) state.connection.Begin();
  for (int i = 0; i < task.count; ++i) {
    const std::string identifier = task.NewIdentifier(i);
    tagTPATIENT patient;
    task.Start();
    if (transaction) state.connection.Begin();
    adder.row.Fill(identifier);
    adder.insert.Execute();
    adder.reader.statement.Execute();
    Require(adder.reader.statement.Fetch());
    adder.reader.row.CopyTo(&patient);
    adder.reader.statement.CloseRows();
    if (transaction) state.connection.Commit();
    task.Stop();
    if (task.check) task.TakeWritten(identifier, patient.szIDDisp);
  }
  if (task.embedded) state.connection.Rollback();
}

void Add(Task& task) { AddRows(task, false); }

void AddWhole(Task& task) { AddRows(task, true); }

void Newest(Task& task) {
  bench::NewestImage& newest = Connected().newest;
  for (int i = 0; i < task.count; ++i) {
    newest.patient = task.Random(task.rows / 10);
    task.Start();
    newest.statement.Execute();
    Require(newest.statement.Fetch());
    newest.statement.CloseRows();
    task.Stop();
    task.Take(newest.key);
    task.Take(newest.time);
    task.EndRow();
  }
}

void ReadNumber(Task& task, NumberQuery& query, int more = 0) {
  task.Start();
  query.statement.Execute();
  Require(query.statement.Fetch());
  query.statement.CloseRows();
  task.Stop();
  task.Take(query.number + more);
  task.EndRow();
}

void Count(Task& task) {
  State& state = Connected();
  for (int i = 0; i < task.count; ++i) ReadNumber(task, state.count);
}

void LastKey(Task& task) {
  State& state = Connected();
  for (int i = 0; i < task.count; ++i) ReadNumber(task, state.last);
}

// Runs a query, fetches the first row and leaves it to `take`.
template <class Take>
void OpenOnce(Task& task, Statement& statement, const char* sql, Take take) {
  task.Start();
  statement.Execute(sql);
  Require(statement.Fetch(SQL_FETCH_FIRST, 1));
  task.Stop();
  take();
  statement.CloseRows();
}

void OpenPatients(Task& task) {
  PatientReader reader(Connected().connection, true);
  for (int i = 0; i < task.count; ++i) {
    OpenOnce(task, reader.statement, bench::kPatientsByName, [&] {
      if (!task.check) return;
      task.Take(std::string_view(reader.row.name));
      task.EndRow();
    });
  }
}

void OpenImages(Task& task, const char* sql, bool is_sorted) {
  const auto row = std::make_unique<bench::ImageRow>();
  Statement statement(Connected().connection, true);
  row->Bind(statement);
  for (int i = 0; i < task.count; ++i) {
    OpenOnce(task, statement, sql, [&] {
      if (!is_sorted) return task.TakeAnyKey(row->key);
      task.Take(row->key);
      task.EndRow();
    });
  }
}

void OpenImagesAsTheyStand(Task& task) { OpenImages(task, bench::kImages, false); }

void OpenImagesByTime(Task& task) { OpenImages(task, bench::kImagesByTime, true); }

// `sql_of` gives the query of the nth time.
template <class SqlOf>
void OpenKeys(Task& task, SqlOf sql_of) {
  SQLINTEGER key = 0;
  Statement statement(Connected().connection, true);
  statement.Column(1, SQL_C_SLONG, &key, 0);
  for (int i = 0; i < task.count; ++i) {
    const std::string sql = sql_of(i);
    OpenOnce(task, statement, sql.c_str(), [] {});
  }
}

void OpenPatientKeys(Task& task) {
  OpenKeys(task, [](int) { return bench::kPatientKeysByName; });
}

void OpenImageKeys(Task& task) {
  OpenKeys(task, [](int) { return bench::kImageKeys; });
}

void OpenImageKeysByTime(Task& task) {
  OpenKeys(task, [](int) { return bench::kImageKeysByTime; });
}

void Walk(Task& task) {
  PatientReader reader(Connected().connection, true);
  int rows = 0;
  task.Start();
  reader.statement.Execute(bench::kPatientsByName);
  while (reader.statement.Fetch(SQL_FETCH_NEXT, 1)) {
    tagTPATIENT patient;
    reader.row.CopyTo(&patient);
    ++rows;
    if (task.check) task.Take(patient);
  }
  task.Stop();
  task.Take(rows);
  task.EndRow();
}

void ReadAt(PatientReader& reader, int position, tagTPATIENT* patient) {
  Require(reader.statement.Fetch(SQL_FETCH_ABSOLUTE, position));
  reader.row.CopyTo(patient);
}

void Positions(Task& task) {
  PatientReader& reader = OpenSet(Connected());
  for (int i = 0; i < task.count; ++i) {
    const int position = task.Random(task.rows);
    tagTPATIENT patient;
    task.Start();
    ReadAt(reader, position, &patient);
    task.Stop();
    if (task.check) task.Take(patient);
  }
}

void Jump(Task& task) {
  PatientReader& reader = OpenSet(Connected());
  for (int i = 0; i < task.count; ++i) {
    int position = task.Random(task.rows - kPage);
    tagTPATIENT page[kPage];
    task.Start();
    for (tagTPATIENT& patient : page) ReadAt(reader, position++, &patient);
    task.Stop();
    for (const tagTPATIENT& patient : page) {
      if (task.check) task.Take(patient);
    }
  }
}

void Sequence(Task& task) {
  PatientReader& reader = OpenSet(Connected());
  const int from = task.rows / 2;
  for (int i = 0; i < task.count; ++i) {
    tagTPATIENT patient;
    task.Start();
    ReadAt(reader, from + i, &patient);
    task.Stop();
    if (task.check) task.Take(patient);
  }
}

void TakeRow(Task& task, const PatientReader& reader) {
  if (!task.check) return;
  tagTPATIENT patient;
  reader.row.CopyTo(&patient);
  task.Take(patient);
}

std::string Filtered(const Task& task, const char* select, int number) {
  return std::string(select) + " WHERE (tPatSName LIKE '" + task.Beginning(number) + "')" BENCH_BY_PERSON;
}

void Refilter(Task& task) {
  PatientReader reader(Connected().connection, true);
  for (int i = 0; i < task.count; ++i) {
    OpenOnce(task, reader.statement, Filtered(task, BENCH_PATIENTS, i).c_str(),
             [&] { TakeRow(task, reader); });
  }
}

void RefilterKeys(Task& task) {
  OpenKeys(task, [&](int number) { return Filtered(task, BENCH_PATIENT_KEYS, number); });
}

void Resort(Task& task) {
  PatientReader reader(Connected().connection, true);
  for (int i = 0; i < task.count; ++i) {
    OpenOnce(task, reader.statement, i % 2 == 0 ? bench::kPatientsByBirthday : bench::kPatientsByPerson,
             [&] { TakeRow(task, reader); });
  }
}

void ResortKeys(Task& task) {
  OpenKeys(task, [](int number) {
    return number % 2 == 0 ? bench::kPatientKeysByBirthday : bench::kPatientKeysByPerson;
  });
}

void EditLook(Task& task) {
  State& state = Connected();
  PatientReader& reader = OpenSet(state);
  if (task.embedded) state.connection.Begin();
  for (int i = 0; i < task.count; ++i) {
    const int key = task.Random(task.rows);
    EditOne(task, state, i, key);
    tagTPATIENT patient;
    task.Start();
    reader.statement.Execute(bench::kPatientsByPerson);
    ReadAt(reader, 1, &patient);
    task.Stop();
    CheckEdited(task, state, i, key);
  }
  if (task.embedded) state.connection.Rollback();
}

// The same as a program does it that keeps only the keys of the rows.
void EditLookKeys(Task& task) {
  State& state = Connected();
  SQLINTEGER key = 0;
  Statement keys(state.connection, true);
  keys.Column(1, SQL_C_SLONG, &key, 0);
  if (task.embedded) state.connection.Begin();
  for (int i = 0; i < task.count; ++i) {
    EditOne(task, state, i, task.Random(task.rows));
    tagTPATIENT patient;
    OpenOnce(task, keys, bench::kPatientKeysByPerson, [] {});
    task.Start();
    Require(state.by_key.Read(key, &patient));
    task.Stop();
  }
  if (task.embedded) state.connection.Rollback();
}

// The position of a row is the number of rows before it, and one.
void SeekImage(Task& task) {
  NumberQuery query(Connected().connection, "SELECT COUNT(*) FROM TImage WHERE tImgCulIntImgIDPk<?");
  query.statement.Parameter(1, &query.key);
  for (int i = 0; i < task.count; ++i) {
    query.key = task.Random(task.rows);
    ReadNumber(task, query, 1);
  }
}

void SeekJoined(Task& task) {
  NumberQuery query(Connected().connection,
                    "SELECT COUNT(*) FROM TPatient p, TPatient q, TDoctor d WHERE q.tPatCulIntPatIDPk=? AND "
                    "d.tDrCulIntDrIDPk=p.tPatCulIntDrIDFk AND (p.tPatSName,p.tPatSFirstname,p.tPatDBirthday)<"
                    "(q.tPatSName,q.tPatSFirstname,q.tPatDBirthday)");
  query.statement.Parameter(1, &query.key);
  for (int i = 0; i < task.count; ++i) {
    query.key = task.Random(task.rows);
    ReadNumber(task, query, 1);
  }
}

void SeekText(Task& task) {
  NumberQuery query(Connected().connection, "SELECT COUNT(*) FROM TPatient WHERE tPatSName<?");
  query.statement.Parameter(1, query.text, bench::kText - 1);
  for (int i = 0; i < task.count; ++i) {
    std::strcpy(query.text, std::string(1, task.Beginning(i)[0]).c_str());
    ReadNumber(task, query, 1);
  }
}

// Takes back what the works "add" have left. Belongs to no measurement.
void CleanUp(Task& task) {
  Statement statement(Connected().connection, false);
  const std::string sql = "DELETE FROM TPatient WHERE tPatCulIntPatIDPk>" + std::to_string(task.rows);
  try {
    statement.Execute(sql.c_str());
  } catch (const std::exception&) {
    // "No data" when there was nothing to take back.
  }
}

void Close(Task&) {
  if (g_state) g_state->patients.reset();
}

void MemoryOpen(Task& task) {
  static bench::ImageRow row{};
  static std::optional<Statement> statement;
  statement.emplace(Connected().connection, true);
  row.Bind(*statement);
  statement->Execute(bench::kImages);
  Require(statement->Fetch(SQL_FETCH_FIRST, 1));
  task.Answer(bench::ResidentMemory() - g_empty);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return 2;
  g_source = arguments[1];
  g_empty = bench::ResidentMemory();
  return bench::Serve({
      {"connect",                 ConnectAgain                  },
      {"get",                     Get                           },
      {"edit",                    Edit                          },
      {"add",                     Add                           },
      {"add_whole",               AddWhole                      },
      {"newest",                  Newest                        },
      {"last_id",                 LastKey                       },
      {"count",                   Count                         },
      {"open_patients",           OpenPatients                  },
      {"open_patients_keys",      OpenPatientKeys               },
      {"open_images",             OpenImagesAsTheyStand         },
      {"open_images_sorted",      OpenImagesByTime              },
      {"open_images_keys",        OpenImageKeys                 },
      {"open_images_sorted_keys", OpenImageKeysByTime           },
      {"walk",                    Walk                          },
      {"positions",               Positions                     },
      {"jump",                    Jump                          },
      {"sequence",                Sequence                      },
      {"maxpos",                  Count                         },
      {"refilter",                Refilter                      },
      {"refilter_keys",           RefilterKeys                  },
      {"resort",                  Resort                        },
      {"resort_keys",             ResortKeys                    },
      {"edit_open",               Edit                          },
      {"edit_look",               EditLook                      },
      {"edit_look_keys",          EditLookKeys                  },
      {"seek_image",              SeekImage                     },
      {"seek_joined",             SeekJoined                    },
      {"seek_text",               SeekText                      },
      {"close",                   Close                         },
      {"disconnect",              [](Task&) { g_state.reset(); }},
      {"clean_up",                CleanUp                       },
      {"memory_open",             MemoryOpen                    },
  });
}
