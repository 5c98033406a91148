// kyodbc list: a page of a table, filtered and sorted.
#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "tools/commands/commands.h"
#include "tools/connection.h"
#include "tools/tables.h"
#include "tools/text_table.h"
#include "tools/tool_error.h"

namespace {

constexpr int kUsualRows = 20;
constexpr int kMostRows = 1'000'000;

struct ListOptions {
  Place place;
  std::string table;
  std::vector<std::string> filters;
  std::string sort = "key";
  LONG page = 1;
  LONG rows = kUsualRows;
};

// What was asked for, in the library's words.
struct Request {
  Filter filter;
  LONG sort = 0;
};

Request ReadRequest(const Table& table, const ListOptions& options) {
  try {
    return {ReadFilter(options.filters, table.fields), ReadSort(options.sort, table.fields)};
  } catch (const WordsError& error) {
    throw ToolError(kUsage, fmt::format("{}: {}", table.plural, error.what()));
  }
}

// Filter and sort go to the closed set, so that it is read once only.
void Open(const Table& table, const Request& request) {
  const Filter& filter = request.filter;
  if (filter.Fields() != 0) {
    Check(table.set_filter(filter.Fields(), filter.Operators(), filter.ValuePointer(0),
                           filter.ValuePointer(1), filter.ValuePointer(2), filter.ValuePointer(3)),
          "filtering");
  }
  Check(table.set_sort(request.sort), "sorting");
  Check(table.open(), fmt::format("opening the {}", table.plural));
}

TextTable EmptyTable(const Table& table) {
  std::vector<TextTable::Column> columns;
  for (const Column& column : table.data->columns) {
    const bool number = column.format == Format::kKey || column.format == Format::kWord;
    if (column.listed)
      columns.push_back({column.title, number ? TextTable::Align::kRight : TextTable::Align::kLeft});
  }
  return TextTable(columns);
}

void AddRow(TextTable& text, const Table& table, LONG position) {
  std::vector<char> record(table.data->record_size);
  Check(table.get_by_pos(position, record.data()), fmt::format("reading row {}", position));
  std::vector<std::string> cells;
  for (const Column& column : table.data->columns) {
    if (column.listed) cells.push_back(FieldAsText(column, record.data()));
  }
  text.Add(cells);
}

void PrintPage(const Table& table, const ListOptions& options, LONG count) {
  const LONG pages = std::max<LONG>(1, (count - 1) / options.rows + 1);
  if (options.page > pages) {
    throw ToolError(kFailed, fmt::format("there is no page {}; there are {} pages of {} rows", options.page,
                                         pages, options.rows));
  }
  const LONG first = (options.page - 1) * options.rows + 1;
  const LONG last = std::min<LONG>(count, first + options.rows - 1);
  TextTable text = EmptyTable(table);
  for (LONG position = first; position <= last; ++position) AddRow(text, table, position);
  fmt::print("{}", text.Text());
  if (count == 0) {
    fmt::print("no {}\n", table.plural);
  } else {
    fmt::print("{} {} to {} of {}, page {} of {}\n", table.plural, first, last, count, options.page, pages);
  }
}

void List(const ListOptions& options) {
  const Table& table = FindTable(options.table);
  const Request request = ReadRequest(table, options);
  const Connection connection(options.place);
  Open(table, request);
  LONG count = 0;
  Check(table.count(&count), fmt::format("counting the {}", table.plural));
  PrintPage(table, options, count);
  Check(table.close(), fmt::format("closing the {}", table.plural));
}

constexpr const char* kFooter =
    "A filter is FIELD OPERATOR VALUE, and up to three more behind 'and' or 'or'; 'and' binds stronger.\n"
    "  operators: = <> < <= > >= like between; like knows % and _; between is for dates: between A and B\n"
    "  values:    numbers; dates as 2001-05-06 or '2001-05-06 10:00:00'; texts, in quotes when they hold "
    "blanks\n"
    "A field that a table does not have is answered with a list of those it has.\n"
    "\n"
    "  kyodbc list PRACTICE patients --filter \"name like M% and birthday >= 1960-01-01\" --sort "
    "name,-birthday\n";

}  // namespace

void AddList(CLI::App& program, Action& run) {
  CLI::App* command = program.add_subcommand("list", "List a table, filtered and sorted, page by page");
  const auto options = std::make_shared<ListOptions>();
  AddPlace(*command, options->place);
  command->add_option("TABLE", options->table, "What to list: " + PluralNames())->required();
  command->add_option("--filter", options->filters, "Rows to list; several are joined by 'and'")
      ->take_all()
      ->allow_extra_args(false);
  command->add_option("--sort", options->sort, "Fields to sort by, up to four; '-' before one: descending")
      ->capture_default_str();
  command->add_option("--page", options->page, "Which page")
      ->capture_default_str()
      ->check(CLI::PositiveNumber);
  command->add_option("--rows", options->rows, "Rows on a page")
      ->capture_default_str()
      ->check(CLI::Range(1, kMostRows));
  command->footer(kFooter);
  command->callback([options, &run] { run = [options] { List(*options); }; });
}
