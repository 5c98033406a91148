#include "tools/commands/browse.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include "tools/tool_error.h"

const char* const kFilterHelp =
    "A filter is FIELD OPERATOR VALUE, and up to three more behind 'and' or 'or'; 'and' binds stronger.\n"
    "  operators: = <> < <= > >= like between; like knows % and _; between is for dates: between A and B\n"
    "  values:    numbers; dates as 2001-05-06 or '2001-05-06 10:00:00'; texts, in quotes when they hold "
    "blanks\n"
    "A field that a table does not have is answered with a list of those it has.\n";

void AddBrowse(CLI::App& command, BrowseOptions& options, const std::string& does) {
  command.add_option("TABLE", options.table, fmt::format("What to {}: {}", does, PluralNames()))->required();
  command
      .add_option("--filter", options.filters, fmt::format("Rows to {}; several are joined by 'and'", does))
      ->take_all()
      ->allow_extra_args(false);
  command.add_option("--sort", options.sort, "Fields to sort by, up to four; '-' before one: descending")
      ->capture_default_str();
}

Request ReadRequest(const Table& table, const BrowseOptions& options) {
  try {
    return {ReadFilter(options.filters, table.fields), ReadSort(options.sort, table.fields)};
  } catch (const WordsError& error) {
    throw ToolError(kUsage, fmt::format("{}: {}", table.plural, error.what()));
  }
}

// Filter and sort go to the closed set, so that it is read once only.
Rows::Rows(const Table& table, const Request& request) : m_table(table), m_record(table.data->record_size) {
  const Filter& filter = request.filter;
  if (filter.Fields() != 0) {
    Check(table.set_filter(filter.Fields(), filter.Operators(), filter.ValuePointer(0),
                           filter.ValuePointer(1), filter.ValuePointer(2), filter.ValuePointer(3)),
          "filtering");
  }
  Check(table.set_sort(request.sort), "sorting");
  Check(table.open(), fmt::format("opening the {}", table.plural));
  const WORD code = table.count(&m_count);
  if (code != KYODBC_OK) table.close();
  Check(code, fmt::format("counting the {}", table.plural));
}

Rows::~Rows() { m_table.close(); }

const void* Rows::At(LONG position) {
  Check(m_table.get_by_pos(position, m_record.data()), fmt::format("reading row {}", position));
  return m_record.data();
}
