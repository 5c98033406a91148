// kyodbc list: a page of a table, filtered and sorted.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tools/commands/browse.h"
#include "tools/commands/commands.h"
#include "tools/connection.h"
#include "tools/output.h"
#include "tools/record_json.h"
#include "tools/terminal.h"
#include "tools/text_table.h"
#include "tools/tool_error.h"

namespace {

constexpr int kUsualRows = 20;
constexpr int kMostRows = 1'000'000;

struct ListOptions {
  Place place;
  BrowseOptions browse;
  LONG page = 1;
  LONG rows = kUsualRows;
};

// Where the page lies in all rows; first > last when there are none.
struct Page {
  LONG number = 0;
  LONG pages = 0;
  LONG first = 0;
  LONG last = 0;
};

Page PageOf(const ListOptions& options, LONG count) {
  Page page{options.page, std::max<LONG>(1, (count - 1) / options.rows + 1), 0, 0};
  if (options.page > page.pages) {
    throw ToolError(kFailed, fmt::format("there is no page {}; there are {} pages of {} rows", options.page,
                                         page.pages, options.rows));
  }
  page.first = (options.page - 1) * options.rows + 1;
  page.last = std::min<LONG>(count, page.first + options.rows - 1);
  return page;
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

std::vector<std::string> Cells(const Table& table, const void* record) {
  std::vector<std::string> cells;
  for (const Column& column : table.data->columns) {
    if (column.listed) cells.push_back(FieldAsText(column, record));
  }
  return cells;
}

void PrintPage(const Table& table, Rows& rows, const Page& page) {
  TextTable text = EmptyTable(table);
  for (LONG position = page.first; position <= page.last; ++position)
    text.Add(Cells(table, rows.At(position)));
  fmt::print("{}", text.Text(ShowsColours(stdout)));
  if (rows.Count() == 0) {
    fmt::print("no {}\n", table.plural);
  } else {
    fmt::print("{} {} to {} of {}, page {} of {}\n", table.plural, page.first, page.last, rows.Count(),
               page.number, page.pages);
  }
}

void PrintPageAsJson(const Table& table, Rows& rows, const Page& page) {
  Json list = Json::array();
  for (LONG position = page.first; position <= page.last; ++position)
    list.push_back(RecordAsJson(*table.data, rows.At(position)));
  PrintJson({
      {"table", table.plural},
      {"count", rows.Count()},
      {"page",  page.number },
      {"pages", page.pages  },
      {"rows",  list        }
  });
}

void List(const ListOptions& options) {
  const Table& table = FindTable(options.browse.table);
  const Request request = ReadRequest(table, options.browse);
  const Connection connection(options.place);
  Rows rows(table, request);
  const Page page = PageOf(options, rows.Count());
  AsJson() ? PrintPageAsJson(table, rows, page) : PrintPage(table, rows, page);
}

constexpr const char* kExample =
    "\n"
    "  kyodbc list PRACTICE patients --filter \"name like M% and birthday >= 1960-01-01\" --sort "
    "name,-birthday\n";

}  // namespace

void AddList(CLI::App& program, Action& run) {
  CLI::App* command = program.add_subcommand("list", "List a table, filtered and sorted, page by page");
  const auto options = std::make_shared<ListOptions>();
  AddPlace(*command, options->place);
  AddBrowse(*command, options->browse, "list");
  command->add_option("--page", options->page, "Which page")
      ->capture_default_str()
      ->check(CLI::Range(1, kHighestNumber));
  command->add_option("--rows", options->rows, "Rows on a page")
      ->capture_default_str()
      ->check(CLI::Range(1, kMostRows));
  AddJson(*command);
  command->footer(std::string(kFilterHelp) + kExample);
  command->callback([options, &run] { run = [options] { List(*options); }; });
}
