// kyodbc bench: how fast a practice answers.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cstring>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tools/commands/browse.h"
#include "tools/commands/commands.h"
#include "tools/connection.h"
#include "tools/interruption.h"
#include "tools/output.h"
#include "tools/progress.h"
#include "tools/terminal.h"
#include "tools/text_table.h"
#include "tools/tool_error.h"

namespace {

constexpr int kUsualRounds = 5;
constexpr LONG kMostWalked = 10'000;
constexpr LONG kMostRead = 500;

struct BenchOptions {
  Place place;
  int rounds = kUsualRounds;
};

// In microseconds; of a walk and of reading by key for one row.
struct Measured {
  const Table* table;
  LONG rows = 0;
  double open = 0;
  double walk = 0;
  double get = 0;
};

double MicrosecondsOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

// Half of the measurements took longer: a single disturbance does not count.
double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

Request ByKey(const Table& table) { return ReadRequest(table, BrowseOptions{table.plural, {}, "key"}); }

std::vector<LONG> Walk(Rows& rows) {
  std::vector<LONG> keys;
  for (LONG position = 1; position <= std::min(rows.Count(), kMostWalked); ++position) {
    LONG key = 0;
    std::memcpy(&key, rows.At(position), sizeof key);
    keys.push_back(key);
  }
  return keys;
}

// Keys from all over the table, in an order that no read-ahead foresees.
void Get(const Table& table, const std::vector<LONG>& keys) {
  constexpr std::size_t kStride = 7919;
  std::vector<char> record(table.data->record_size);
  for (LONG i = 0; i < kMostRead; ++i) {
    const LONG key = keys[static_cast<std::size_t>(i) * kStride % keys.size()];
    std::fill(record.begin(), record.end(), char{0});
    std::memcpy(record.data(), &key, sizeof key);
    Check(table.get(record.data()), fmt::format("reading {} {}", table.singular, key));
  }
}

Measured Measure(const Table& table, int rounds, Progress& progress) {
  Measured measured{&table};
  std::vector<double> open;
  std::vector<double> walk;
  std::vector<double> get;
  for (int round = 0; round < rounds; ++round) {
    std::unique_ptr<Rows> rows;
    open.push_back(MicrosecondsOf([&] { rows = std::make_unique<Rows>(table, ByKey(table)); }));
    measured.rows = rows->Count();
    std::vector<LONG> keys;
    const double walked = MicrosecondsOf([&] { keys = Walk(*rows); });
    rows.reset();
    if (!keys.empty()) {
      walk.push_back(walked / static_cast<double>(keys.size()));
      get.push_back(MicrosecondsOf([&] { Get(table, keys); }) / kMostRead);
    }
    progress.Step();
  }
  measured.open = Median(open);
  if (!walk.empty()) measured.walk = Median(walk);
  if (!get.empty()) measured.get = Median(get);
  return measured;
}

void Print(const std::vector<Measured>& all) {
  constexpr auto kRight = TextTable::Align::kRight;
  TextTable text({
      {"table",          {}    },
      {"rows",           kRight},
      {"open, ms",       kRight},
      {"walk, us a row", kRight},
      {"get by key, us", kRight}
  });
  for (const Measured& measured : all) {
    text.Add({measured.table->plural, std::to_string(measured.rows),
              fmt::format("{:.2f}", measured.open / 1000),
              measured.rows == 0 ? "-" : fmt::format("{:.1f}", measured.walk),
              measured.rows == 0 ? "-" : fmt::format("{:.1f}", measured.get)});
  }
  fmt::print("{}", text.Text(ShowsColours(stdout)));
}

void PrintAsJson(const std::vector<Measured>& all) {
  Json list = Json::array();
  for (const Measured& measured : all) {
    list.push_back({
        {"table",                 measured.table->plural},
        {"rows",                  measured.rows         },
        {"open_microseconds",     measured.open         },
        {"walk_microseconds_row", measured.walk         },
        {"get_microseconds",      measured.get          }
    });
  }
  PrintJson(list);
}

void Bench(const BenchOptions& options) {
  const Interruption interruption;
  const Connection connection(options.place);
  std::vector<Measured> all;
  {
    Progress progress("measuring", Tables().size() * static_cast<std::size_t>(options.rounds));
    for (const Table& table : Tables()) all.push_back(Measure(table, options.rounds, progress));
  }
  AsJson() ? PrintAsJson(all) : Print(all);
}

constexpr const char* kFooter =
    "Nothing is changed. Each figure is the median of the rounds: opening a table sorted by key and "
    "counting\n"
    "it, walking through up to 10,000 rows of it, reading 500 rows by their keys. They hold for this "
    "machine,\n"
    "this network and this moment; compare only what was measured together.\n";

}  // namespace

void AddBench(CLI::App& program, Action& run) {
  CLI::App* command =
      program.add_subcommand("bench", "Measure how fast a practice answers, without changing it");
  const auto options = std::make_shared<BenchOptions>();
  AddPlace(*command, options->place);
  command->add_option("--rounds", options->rounds, "How often each is measured")
      ->capture_default_str()
      ->check(CLI::Range(1, 1000));
  AddJson(*command);
  command->footer(kFooter);
  command->callback([options, &run] { run = [options] { Bench(*options); }; });
}
