// Qt SQL: queries prepared once and kept, forward only except where rows are positioned.
#include <QCoreApplication>
#include <QDateTime>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <memory>
#include <stdexcept>
#include <string>

#include "bench/peer.h"
#include "bench/queries.h"
#include "bench/task.h"

namespace {

using bench::Task;
using Patient = bench::PeerPatient<QDate, QDateTime, QString>;

constexpr int kPage = 50;

QString g_source;
std::int64_t g_empty = 0;

void Require(bool is_right, const QSqlQuery& query) {
  if (!is_right) throw std::runtime_error("no row: " + query.lastError().text().toStdString());
}

std::unique_ptr<QSqlQuery> Prepared(const QSqlDatabase& database, const char* sql) {
  auto query = std::make_unique<QSqlQuery>(database);
  query->setForwardOnly(true);
  Require(query->prepare(sql), *query);
  return query;
}

class Session {
 public:
  Session() : m_database(QSqlDatabase::addDatabase("QODBC", "bench")) {
    m_database.setDatabaseName(g_source);
    if (!m_database.open()) throw std::runtime_error(m_database.lastError().text().toStdString());
  }
  ~Session() {
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase("bench");
  }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  QSqlDatabase& Database() { return m_database; }

 private:
  QSqlDatabase m_database;
};

struct State {
  Session session;
  QSqlDatabase& database = session.Database();
  std::unique_ptr<QSqlQuery> by_key = Prepared(database, bench::kPatientByKey);
  std::unique_ptr<QSqlQuery> by_slida = Prepared(database, bench::kPatientBySlida);
  std::unique_ptr<QSqlQuery> edit = Prepared(database, bench::kEditPatient);
  std::unique_ptr<QSqlQuery> add = Prepared(database, bench::kAddPatient);
  std::unique_ptr<QSqlQuery> newest = Prepared(database, bench::kNewestImage);
  std::unique_ptr<QSqlQuery> count = Prepared(database, bench::kCountPatients);
  std::unique_ptr<QSqlQuery> last = Prepared(database, bench::kLastPatient);
  std::unique_ptr<QSqlQuery> patients;
};
std::unique_ptr<State> g_state;

State& Connected() {
  if (!g_state) g_state = std::make_unique<State>();
  return *g_state;
}

Patient Read(const QSqlQuery& query) {
  Patient patient;
  patient.key = query.value(0).toInt();
  patient.doctor = query.value(1).toInt();
  patient.external = query.value(2).toString();
  patient.server = query.value(3).toString();
  patient.slida = query.value(4).toString();
  patient.social = query.value(5).toString();
  patient.name = query.value(6).toString();
  patient.firstname = query.value(7).toString();
  patient.birthday = query.value(8).toDate();
  patient.sex = query.value(9).toString();
  patient.selected = query.value(10).toInt();
  patient.entry = query.value(11).toDate();
  patient.display = query.value(12).toString();
  patient.last_display = query.value(13).toDateTime();
  return patient;
}

TIMESTAMP_STRUCT MomentOf(const QDateTime& time) {
  return bench::Moment(time.date().year(), time.date().month(), time.date().day(), time.time().hour(),
                       time.time().minute(), time.time().second());
}

struct Moments {
  TIMESTAMP_STRUCT operator()(const QDate& date) const {
    return bench::Moment(date.year(), date.month(), date.day());
  }
  TIMESTAMP_STRUCT operator()(const QDateTime& time) const { return MomentOf(time); }
};

void Take(Task& task, const Patient& patient) {
  task.Take(bench::RecordOf(
      patient, [](const QString& text) { return text.toStdString(); }, Moments()));
}

Patient ReadByKey(State& state, int key) {
  state.by_key->bindValue(0, key);
  Require(state.by_key->exec() && state.by_key->next(), *state.by_key);
  Patient patient = Read(*state.by_key);
  state.by_key->finish();
  return patient;
}

void ConnectAgain(Task& task) {
  g_state.reset();
  for (int i = 0; i < task.count; ++i) {
    std::unique_ptr<Session> session;
    task.Start();
    session = std::make_unique<Session>();
    task.Stop();
  }
}

void Get(Task& task) {
  State& state = Connected();
  for (int i = 0; i < task.count; ++i) {
    const int key = task.Random(task.rows);
    task.Start();
    const Patient patient = ReadByKey(state, key);
    task.Stop();
    if (task.check) Take(task, patient);
  }
}

void EditOne(Task& task, State& state, int number, int key) {
  const QString text = QString::fromStdString(task.NewText(number));
  task.Start();
  ReadByKey(state, key);
  state.edit->bindValue(0, text);
  state.edit->bindValue(1, key);
  Require(state.edit->exec(), *state.edit);
  task.Stop();
}

void CheckEdited(Task& task, State& state, int number, int key) {
  if (task.check) task.TakeWritten(task.NewText(number), ReadByKey(state, key).social.toStdString());
}

void Edit(Task& task) {
  State& state = Connected();
  if (task.embedded) state.database.transaction();
  for (int i = 0; i < task.count; ++i) {
    const int key = task.Random(task.rows);
    EditOne(task, state, i, key);
    CheckEdited(task, state, i, key);
  }
  if (task.embedded) state.database.rollback();
}

void BindNew(QSqlQuery& query, const QString& identifier) {
  const QDate today = QDate::currentDate();
  const QVariant values[] = {1,
                             "",
                             "",
                             identifier,
                             "",
                             "Newcomer",
                             "Nora",
                             QDate(1980, 5, 5),
                             "f",
                             0,
                             today,
                             identifier,
                             QDateTime(today, QTime(0, 0))};
  int number = 0;
  for (const QVariant& value : values) query.bindValue(number++, value);
}

void Add(Task& task) {
  State& state = Connected();
  if (task.embedded) state.database.transaction();
  for (int i = 0; i < task.count; ++i) {
    const QString identifier = QString::fromStdString(task.NewIdentifier(i));
    task.Start();
    BindNew(*state.add, identifier);
    Require(state.add->exec(), *state.add);
    state.by_slida->bindValue(0, identifier);
    Require(state.by_slida->exec() && state.by_slida->next(), *state.by_slida);
    const Patient patient = Read(*state.by_slida);
    state.by_slida->finish();
    task.Stop();
    if (task.check) task.TakeWritten(task.NewIdentifier(i), patient.display.toStdString());
  }
  if (task.embedded) state.database.rollback();
}

void Newest(Task& task) {
  QSqlQuery& query = *Connected().newest;
  for (int i = 0; i < task.count; ++i) {
    const int patient = task.Random(task.rows / 10);
    task.Start();
    query.bindValue(0, patient);
    Require(query.exec() && query.next(), query);
    const int key = query.value(0).toInt();
    const QDateTime time = query.value(1).toDateTime();
    query.finish();
    task.Stop();
    task.Take(key);
    task.Take(MomentOf(time));
    task.EndRow();
  }
}

void Number(Task& task, QSqlQuery& query) {
  for (int i = 0; i < task.count; ++i) {
    task.Start();
    Require(query.exec() && query.next(), query);
    const int number = query.value(0).toInt();
    query.finish();
    task.Stop();
    task.Take(number);
    task.EndRow();
  }
}

// Runs a query, which can be positioned afterwards, and stands on its first row.
void Open(QSqlQuery& query, const QString& sql) { Require(query.exec(sql) && query.first(), query); }

void OpenPatients(Task& task) {
  State& state = Connected();
  for (int i = 0; i < task.count; ++i) {
    QSqlQuery query(state.database);
    task.Start();
    Open(query, bench::kPatientsByName);
    task.Stop();
    if (!task.check) continue;
    task.Take(query.value(6).toString().toStdString());
    task.EndRow();
  }
}

void OpenImages(Task& task, const char* sql, bool is_sorted) {
  State& state = Connected();
  for (int i = 0; i < task.count; ++i) {
    QSqlQuery query(state.database);
    task.Start();
    Open(query, sql);
    task.Stop();
    if (!is_sorted) {
      task.TakeAnyKey(query.value(0).toInt());
      continue;
    }
    task.Take(query.value(0).toInt());
    task.EndRow();
  }
}

void Walk(Task& task) {
  QSqlQuery query(Connected().database);
  query.setForwardOnly(true);
  int rows = 0;
  task.Start();
  Require(query.exec(bench::kPatientsByName), query);
  while (query.next()) {
    const Patient patient = Read(query);
    ++rows;
    if (task.check) Take(task, patient);
  }
  task.Stop();
  task.Take(rows);
  task.EndRow();
}

QSqlQuery& OpenSet(State& state) {
  if (!state.patients) {
    state.patients = std::make_unique<QSqlQuery>(state.database);
    Open(*state.patients, bench::kPatientsByPerson);
  }
  return *state.patients;
}

Patient ReadAt(QSqlQuery& query, int position) {
  Require(query.seek(position - 1), query);
  return Read(query);
}

void Positions(Task& task) {
  QSqlQuery& query = OpenSet(Connected());
  for (int i = 0; i < task.count; ++i) {
    const int position = task.Random(task.rows);
    task.Start();
    const Patient patient = ReadAt(query, position);
    task.Stop();
    if (task.check) Take(task, patient);
  }
}

void Jump(Task& task) {
  QSqlQuery& query = OpenSet(Connected());
  for (int i = 0; i < task.count; ++i) {
    int position = task.Random(task.rows - kPage);
    Patient page[kPage];
    task.Start();
    for (Patient& patient : page) patient = ReadAt(query, position++);
    task.Stop();
    for (const Patient& patient : page) {
      if (task.check) Take(task, patient);
    }
  }
}

void Sequence(Task& task) {
  QSqlQuery& query = OpenSet(Connected());
  for (int i = 0; i < task.count; ++i) {
    task.Start();
    const Patient patient = ReadAt(query, task.rows / 2 + i);
    task.Stop();
    if (task.check) Take(task, patient);
  }
}

void EditLook(Task& task) {
  State& state = Connected();
  QSqlQuery& query = OpenSet(state);
  if (task.embedded) state.database.transaction();
  for (int i = 0; i < task.count; ++i) {
    const int key = task.Random(task.rows);
    EditOne(task, state, i, key);
    task.Start();
    Open(query, bench::kPatientsByPerson);
    Read(query);
    task.Stop();
    CheckEdited(task, state, i, key);
  }
  if (task.embedded) state.database.rollback();
}

void OpenOther(Task& task, const QString& sql) {
  QSqlQuery query(Connected().database);
  task.Start();
  Open(query, sql);
  task.Stop();
  if (task.check) Take(task, Read(query));
}

void Refilter(Task& task) {
  for (int i = 0; i < task.count; ++i) {
    OpenOther(task,
              QString(BENCH_PATIENTS " WHERE tPatSName LIKE '") + task.Beginning(i) + "'" BENCH_BY_PERSON);
  }
}

void Resort(Task& task) {
  for (int i = 0; i < task.count; ++i) {
    OpenOther(task, i % 2 == 0 ? bench::kPatientsByBirthday : bench::kPatientsByPerson);
  }
}

void MemoryOpen(Task& task) {
  static QSqlQuery query;
  query = QSqlQuery(Connected().database);
  Open(query, bench::kImages);
  task.Answer(bench::ResidentMemory() - g_empty);
  query = QSqlQuery();
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return 2;
  const QCoreApplication application(count, arguments);
  g_source = arguments[1];
  g_empty = bench::ResidentMemory();
  const int code = bench::Serve({
      {"connect",            ConnectAgain                                                    },
      {"get",                Get                                                             },
      {"edit",               Edit                                                            },
      {"add",                Add                                                             },
      {"newest",             Newest                                                          },
      {"last_id",            [](Task& task) { Number(task, *Connected().last); }             },
      {"count",              [](Task& task) { Number(task, *Connected().count); }            },
      {"open_patients",      OpenPatients                                                    },
      {"open_images",        [](Task& task) { OpenImages(task, bench::kImages, false); }     },
      {"open_images_sorted", [](Task& task) { OpenImages(task, bench::kImagesByTime, true); }},
      {"walk",               Walk                                                            },
      {"positions",          Positions                                                       },
      {"jump",               Jump                                                            },
      {"sequence",           Sequence                                                        },
      {"maxpos",             [](Task& task) { Number(task, *Connected().count); }            },
      {"edit_look",          EditLook                                                        },
      {"refilter",           Refilter                                                        },
      {"resort",             Resort                                                          },
      {"disconnect",         [](Task&) { g_state.reset(); }                                  },
      {"memory_open",        MemoryOpen                                                      },
  });
  g_state.reset();
  return code;
}
