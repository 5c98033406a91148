// kyodbc edit: changes fields of one row.
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
#include "tools/interruption.h"
#include "tools/output.h"
#include "tools/record_fields.h"
#include "tools/record_json.h"
#include "tools/terminal.h"
#include "tools/text_table.h"
#include "tools/tool_error.h"

namespace {

struct EditOptions {
  Place place;
  std::string table;
  LONG key = 0;
  std::vector<std::string> changes;
  bool yes = false;
};

using Record = std::vector<char>;

// A field and its new text.
struct Change {
  const Column& column;
  std::string text;
};

Change ReadChange(const Table& table, const std::string& word) {
  const std::size_t equals = word.find('=');
  if (equals == std::string::npos) {
    throw ToolError(kUsage, fmt::format("'{}' is not FIELD=VALUE", word));
  }
  const Column& column = FindColumn(table, word.substr(0, equals));
  if (column.mask == 0) {
    throw ToolError(
        kUsage, fmt::format("'{}' cannot be changed: the library derives or keeps it itself", column.title));
  }
  return {column, word.substr(equals + 1)};
}

std::vector<Change> ReadChanges(const Table& table, const EditOptions& options) {
  if (table.edit == nullptr) {
    throw ToolError(kUsage,
                    fmt::format("a {} is a joined row; edit the patient or the doctor", table.singular));
  }
  std::vector<Change> changes;
  for (const std::string& word : options.changes) {
    const Change change = ReadChange(table, word);
    const auto same = [&](const Change& other) { return &other.column == &change.column; };
    if (std::any_of(changes.begin(), changes.end(), same))
      throw ToolError(kUsage, fmt::format("'{}' is given more than once", change.column.title));
    changes.push_back(change);
  }
  return changes;
}

Record Read(const Table& table, LONG key) {
  Record record(table.data->record_size);
  std::memcpy(record.data(), &key, sizeof key);
  Check(table.get(record.data()), fmt::format("reading {} {}", table.singular, key));
  return record;
}

void PrintLine(const char* sign, Look look, const std::string& text) {
  fmt::print("  {}\n", Coloured(stdout, look, fmt::format("{} {}", sign, Printable(text))));
}

void PrintChanges(const EditOptions& options, const Table& table, const std::vector<Change>& changes,
                  const Record& before, const Record& after) {
  fmt::print("{} {}\n", table.singular, options.key);
  for (const Change& change : changes) {
    fmt::print("{}\n", change.column.title);
    PrintLine("-", Look::kBad, FieldAsText(change.column, before.data()));
    PrintLine("+", Look::kGood, FieldAsText(change.column, after.data()));
  }
}

bool AreEqual(const std::vector<Change>& changes, const Record& one, const Record& other) {
  return std::all_of(changes.begin(), changes.end(), [&](const Change& change) {
    return FieldAsText(change.column, one.data()) == FieldAsText(change.column, other.data());
  });
}

// The row is locked by nobody while the question waits for its answer: what was shown must still be there.
void Store(const Table& table, const EditOptions& options, const std::vector<Change>& changes,
           const Record& before, Record after) {
  if (!AreEqual(changes, before, Read(table, options.key))) {
    throw ToolError(kFailed, "somebody else has changed the row meanwhile; nothing was changed");
  }
  DWORD mask = 0;
  for (const Change& change : changes) mask |= change.column.mask;
  Check(table.edit(after.data(), mask), fmt::format("changing {} {}", table.singular, options.key));
  if (!AreEqual(changes, after, Read(table, options.key))) {
    throw ToolError(kDiffers, "the row was written, but the database does not hold what was written");
  }
}

void PrintResult(const Table& table, const EditOptions& options, const Record& before, bool changed) {
  if (!AsJson()) return fmt::print("{}\n", changed ? "changed" : "nothing to change");
  Json result;
  result["table"] = table.plural;
  result["changed"] = changed;
  result["before"] = RecordAsJson(*table.data, before.data());
  result["after"] = RecordAsJson(*table.data, Read(table, options.key).data());
  PrintJson(result);
}

void Edit(const EditOptions& options) {
  const Interruption interruption;
  const Table& table = FindTable(options.table);
  const std::vector<Change> changes = ReadChanges(table, options);
  const Connection connection(options.place);
  const Record before = Read(table, options.key);
  Record after = before;
  for (const Change& change : changes) SetField(change.column, change.text, after.data());
  const bool changed = !AreEqual(changes, before, after);
  if (changed) {
    if (!AsJson()) PrintChanges(options, table, changes, before, after);
    Confirm("Change it?", options.yes);
    Store(table, options, changes, before, after);
  }
  PrintResult(table, options, before, changed);
}

constexpr const char* kFooter =
    "Fields are named as 'kyodbc show' names them. An empty value empties a text and takes a date away.\n"
    "Only the fields given are written. The library keeps its rules: protected rows stay as they are, and\n"
    "fields that it derives (a patient's display-id and last-display, a makro's date) follow by themselves.\n"
    "\n"
    "  kyodbc edit PRACTICE patient 17 name=Miller birthday=1960-02-29\n";

}  // namespace

void AddEdit(CLI::App& program, Action& run) {
  CLI::App* command =
      program.add_subcommand("edit", "Change fields of one row, after showing them and asking");
  const auto options = std::make_shared<EditOptions>();
  AddPlace(*command, options->place);
  command->add_option("TABLE", options->table, "What to change: " + SingularNames())->required();
  command->add_option("KEY", options->key, "Its key")->required()->check(CLI::Range(1, kHighestNumber));
  command->add_option("FIELD=VALUE", options->changes, "A field and its new value; any number of them")
      ->required();
  AddYes(*command, options->yes);
  AddJson(*command);
  command->footer(kFooter);
  command->callback([options, &run] { run = [options] { Edit(*options); }; });
}
