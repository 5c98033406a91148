// kyodbc show: all fields of one row.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstring>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/connection.h"
#include "tools/output.h"
#include "tools/record_json.h"
#include "tools/tables.h"
#include "tools/text_table.h"
#include "tools/tool_error.h"

namespace {

struct ShowOptions {
  Place place;
  std::string table;
  LONG key = 0;
};

// The lines of the text below each other, indented to stand behind the title.
void PrintField(const std::string& title, const std::string& text, std::size_t title_width) {
  std::size_t start = 0;
  std::string left = title;
  while (start != std::string::npos) {
    const std::size_t end = text.find('\n', start);
    const std::string line = Printable(text.substr(start, end == std::string::npos ? end : end - start));
    fmt::print("{:<{}}  {}\n", left, title_width, line);
    left.clear();
    start = end == std::string::npos ? end : end + 1;
  }
}

void Show(const ShowOptions& options) {
  const Table& table = FindTable(options.table);
  const Connection connection(options.place);
  std::vector<char> record(table.data->record_size);
  std::memcpy(record.data(), &options.key, sizeof options.key);
  Check(table.get(record.data()), fmt::format("reading {} {}", table.singular, options.key));
  if (AsJson()) return PrintJson(RecordAsJson(*table.data, record.data()));
  std::size_t width = 0;
  for (const Column& column : table.data->columns) width = std::max(width, std::strlen(column.title));
  for (const Column& column : table.data->columns) {
    PrintField(column.title, FieldAsText(column, record.data()), width);
  }
}

}  // namespace

void AddShow(CLI::App& program, Action& run) {
  CLI::App* command = program.add_subcommand("show", "Show all fields of one row");
  const auto options = std::make_shared<ShowOptions>();
  AddPlace(*command, options->place);
  command->add_option("TABLE", options->table, "What to show: " + SingularNames())->required();
  command->add_option("KEY", options->key, "Its key")->required()->check(CLI::Range(1, kHighestNumber));
  AddJson(*command);
  command->callback([options, &run] { run = [options] { Show(*options); }; });
}
