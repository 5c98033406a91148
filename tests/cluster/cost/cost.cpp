// What single-row calls and browsing cost on a cluster, beside the single server: both run at once, and
// take turns.
//
// usage: KYODBC_TEST_DB=mariadb|postgresql kyodbc_cluster_cost [TURNS]
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "frame/KyODBC.h"
#include "tests/cluster/a_cluster.h"
#include "tests/support/database_kind.h"
#include "tests/support/odbc_home.h"
#include "tests/support/practice.h"
#include "tests/support/raw_odbc.h"
#include "tests/support/records.h"

namespace {

constexpr int kCallsOfATurn = 40;
constexpr int kPatients = 500;

void Need(WORD code, const char* what) {
  if (code != 0) throw std::runtime_error(std::string(what) + " gave " + std::to_string(code));
}

// A way to reach a practice, and what was measured there: microseconds of each call, by what it does.
struct Target {
  std::string name;
  tagDBCONNECT parameters;
  std::function<void()> prepare;  // before a turn
  LONG patient = 0;
  std::map<std::string, std::vector<double>> times;
};

tagTPATIENT Patient(int number) {
  tagTPATIENT patient{};
  patient.lDrID = 1;
  support::SetText(patient.szName, "Patient" + std::to_string(number));
  support::SetText(patient.szFirstname, "First");
  patient.dBirthday = support::Ts(1970, 1, 2);
  return patient;
}

template <class Call>
void Measure(Target& target, const char* what, Call call) {
  const auto begin = std::chrono::steady_clock::now();
  Need(call(), what);
  target.times[what].push_back(
      std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - begin).count());
}

WORD Walk() {
  Need(DB_OpenTPat(), "DB_OpenTPat");
  LONG rows = 0;
  Need(DB_GetTPatMaxPos(&rows), "DB_GetTPatMaxPos");
  if (rows < kPatients) throw std::runtime_error("only " + std::to_string(rows) + " patients");
  tagTPATIENT patient{};
  for (LONG position = 1; position <= kPatients; ++position) {
    Need(DB_GetTPatByPos(position, &patient), "DB_GetTPatByPos");
  }
  return DB_CloseTPat();
}

void Turn(Target& target, int turn) {
  target.prepare();
  Need(DB_InitDatabase(&target.parameters), "DB_InitDatabase");
  const bool first = target.patient == 0;
  for (int number = 0; first && number < kPatients; ++number) {
    tagTPATIENT patient = Patient(number);
    Need(DB_AddNewTPat(&patient), "DB_AddNewTPat");
    if (number == kPatients / 2) target.patient = patient.lPatID;
  }
  for (int call = 0; call < kCallsOfATurn; ++call) {
    tagTPATIENT patient{};
    patient.lPatID = target.patient;
    LONG newest = 0;
    Measure(target, "get", [&] { return DB_GetTPat(&patient); });
    support::SetText(patient.szFirstname, std::to_string(turn) + "." + std::to_string(call));
    Measure(target, "edit", [&] { return DB_EditSelTPat(&patient, 1 << 6); });
    tagTSTATION station{};
    support::SetText(station.szName, std::to_string(turn) + "." + std::to_string(call));
    Measure(target, "add", [&] { return DB_AddNewTStat(&station); });
    Measure(target, "newest", [&] { return DB_GetLastPatID(&newest); });
  }
  Measure(target, "browse", Walk);
  Need(DB_CloseDatabase(), "DB_CloseDatabase");
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

tagDBCONNECT Parameters(const support::Practice& practice, const support::Options& options) {
  const std::string source = support::OdbcHome::FreshName();
  support::OdbcHome::Hold()->AddSource(source, support::CurrentKind().DriverName(), options);
  tagDBCONNECT parameters = practice.Parameters();
  support::SetText(parameters.szDSN, source);
  return parameters;
}

void Print(const std::vector<Target>& targets) {
  std::printf("%-44s", "median, microseconds (times the single server)");
  for (const char* what : {"get", "edit", "add", "newest", "browse"}) std::printf(" %16s", what);
  std::printf("\n");
  for (const Target& target : targets) {
    std::printf("%-46s", target.name.c_str());
    for (const char* what : {"get", "edit", "add", "newest", "browse"}) {
      const double here = Median(target.times.at(what));
      std::printf(" %8.0f (%4.2f)", here, here / Median(targets[0].times.at(what)));
    }
    std::printf("\n");
  }
}

// A practice of its own for each target: what another one adds would make its sets longer.
struct Place {
  explicit Place(const cluster::Cluster* nodes = nullptr)
      : options(support::CurrentKind().SourceOptions(practice.Database())) {
    if (nodes != nullptr) options = nodes->Source(options);
  }

  support::Practice practice;
  support::Options options;
};

Target TargetAt(
    const char* name, const Place& place, std::function<void()> prepare = [] {}) {
  return {name, Parameters(place.practice, place.options), std::move(prepare), 0, {}};
}

std::function<void()> SetsSyncWait(const Place& place, const char* value) {
  std::string connection = "DRIVER=" + support::CurrentKind().DriverFile();
  for (const auto& [name, option] : place.options)
    connection.append(";").append(name).append("=").append(option);
  connection += ";UID=practice;PWD=secret";
  return [=] { support::RawOdbc(connection).Exec(std::string("SET GLOBAL wsrep_sync_wait = ") + value); };
}

void CommitsWhen(Place& place, const char* commit) {
  place.options.emplace_back("ConnSettings", std::string("SET+synchronous_commit+%3D+") + commit);
}

void Run(int turns) {
  const bool postgresql = std::string(support::CurrentKind().Name()) == "PostgreSQL";
  const support::OwnServer server(postgresql ? "postgresql" : "mariadb");
  const Place alone;
  std::unique_ptr<cluster::Cluster> nodes;
  if (postgresql) {
    nodes = std::make_unique<cluster::Standby>();
  } else {
    nodes = std::make_unique<cluster::Galera>();
  }
  Place strict(nodes.get());
  Place loose(nodes.get());
  std::vector<Target> targets{TargetAt("single server", alone)};
  if (postgresql) {
    CommitsWhen(strict, "remote_apply");
    CommitsWhen(loose, "on");
    targets.push_back(TargetAt("synchronous standby, remote_apply", strict));
    targets.push_back(TargetAt("synchronous standby, on (its disk)", loose));
  } else {
    targets.push_back(TargetAt("Galera behind HAProxy", strict, SetsSyncWait(strict, "1")));
    targets.push_back(TargetAt("Galera, wsrep-sync-wait = 0", loose, SetsSyncWait(loose, "0")));
  }
  for (int turn = 0; turn < turns; ++turn) {
    for (Target& target : targets) Turn(target, turn);
  }
  Print(targets);
  std::fflush(stdout);
  std::_Exit(0);  // the practices end with their servers
}

}  // namespace

int main(int arguments, char** values) {
  try {
    Run(arguments > 1 ? static_cast<int>(std::strtol(values[1], nullptr, 10)) : 20);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
  }
  return 1;
}
