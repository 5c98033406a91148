#include "tools/shell/commands.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <optional>
#include <utility>

#include "tools/shell/columns.h"
#include "tools/text_table.h"

namespace shell {
namespace {

constexpr std::size_t kDetailsWidth = 100;
constexpr LONG kMostImages = 1000;
constexpr const char* kImagesSort = "-time,-key";

struct Line {
  std::string word;
  std::string text;
};

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

Line Split(const std::string& line) {
  const std::string text = Trimmed(line);
  const std::size_t blank = text.find_first_of(" \t");
  if (blank == std::string::npos) return {text, {}};
  return {text.substr(0, blank), Trimmed(text.substr(blank))};
}

LONG Number(const std::string& text) {
  LONG number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < 1) {
    throw WordsError(fmt::format("'{}' is no number from 1 on", text));
  }
  return number;
}

// With the number of each row before it, by which other commands name it.
void PrintRows(const Table& table, const std::vector<Row>& rows) {
  std::vector<const Column*> listed;
  std::vector<TextTable::Column> titles = {
      {"row", TextTable::Align::kRight}
  };
  for (const Column& column : table.data->columns) {
    if (!column.listed) continue;
    const bool number = column.format == Format::kKey || column.format == Format::kWord;
    listed.push_back(&column);
    titles.push_back({column.title, number ? TextTable::Align::kRight : TextTable::Align::kLeft});
  }
  TextTable text(titles);
  for (const Row& row : rows) {
    std::vector<std::string> cells = {std::to_string(row.position)};
    for (const Column* column : listed) {
      cells.push_back(row.Gone() ? "(deleted)" : FieldAsText(*column, row.record.data()));
    }
    text.Add(cells);
  }
  fmt::print("{}", text.Text());
}

}  // namespace

// One row per command. `with_values`: what stands behind it can be a value of the practice.
struct Commands::Command {
  const char* word;
  const char* arguments;
  const char* help;
  bool with_values;
  void (Commands::*run)(const std::string& text);
};

const Commands::Command Commands::kCommands[] = {
    {"tables", "",        "the tables there are",                                            false, &Commands::Tables   },
    {"open",   "TABLE",   "open another table",                                              false, &Commands::OpenTable},
    {"filter", "[WORDS]", "filter, as kyodbc list --filter; without words: all rows",        true,
     &Commands::Filter                                                                                                  },
    {"sort",   "[WORDS]", "sort, as kyodbc list --sort; without words: the usual order",     false,
     &Commands::Sort                                                                                                    },
    {"page",   "[N]",     "print page N, or this page again",                                false, &Commands::Page     },
    {"next",   "",        "print the next page",                                             false, &Commands::Next     },
    {"prev",   "",        "print the page before",                                           false, &Commands::Previous },
    {"goto",   "N",       "print from row N on",                                             false, &Commands::GoTo     },
    {"jump",   "TEXT",    "print from the first row on whose sort field is not before TEXT", true,
     &Commands::Jump                                                                                                    },
    {"rows",   "N",       "print N rows at a time",                                          false, &Commands::Rows     },
    {"show",   "[N]",     "all fields of row N, or of the first row printed",                false, &Commands::Show     },
    {"images", "[N]",     "the images of the patient in row N",                              false, &Commands::Images   },
    {"count",  "",        "how many rows pass the filter",                                   false, &Commands::Count    },
    {"reload", "",        "read everything again and print this page",                       false, &Commands::Reload   },
    {"help",   "",        "this list",                                                       false, &Commands::Help     },
    {"quit",   "",        "end",                                                             false, &Commands::Quit     },
};

const Commands::Command* Commands::Find(const std::string& word) {
  const auto found = std::find_if(std::begin(kCommands), std::end(kCommands),
                                  [&word](const Command& command) { return word == command.word; });
  return found == std::end(kCommands) ? nullptr : found;
}

bool Commands::IsFreeOfValues(const std::string& line) {
  const Command* command = Find(Split(line).word);
  return command != nullptr && !command->with_values;
}

Commands::Commands(const Table& table, const Words& words, LONG rows)
    : m_set(std::make_unique<RowSet>(table)), m_rows(rows) {
  m_set->Open(words);
}

std::string Commands::Prompt() const { return fmt::format("{}> ", m_set->Of().plural); }

void Commands::Answer(const std::string& line) {
  try {
    return Execute(line);
  } catch (const SetError&) {
    Restore();
  }
  try {
    Execute(line);
  } catch (const SetError&) {
    Restore();
    throw;
  }
}

void Commands::Execute(const std::string& line) {
  const auto [word, text] = Split(line);
  if (word.empty() || word.front() == '#') return;
  const Command* command = Find(word);
  if (command == nullptr) throw WordsError(fmt::format("there is no command '{}'; help lists them", word));
  if (*command->arguments == '\0' && !text.empty()) {
    throw WordsError(fmt::format("{} takes nothing behind it", word));
  }
  (this->*command->run)(text);
}

// The same filter, the same order and the same first row.
void Commands::Restore() {
  Heal();
  m_first = std::max<LONG>(1, ReopenAtKey(*m_set, m_first_key, m_first));
}

void Commands::PrintFrom(LONG first) {
  const LONG count = m_set->Count();
  if (first > std::max<LONG>(1, count)) throw WordsError(fmt::format("there are {} rows only", count));
  const LONG last = count - first < m_rows ? count : first + m_rows - 1;
  const std::vector<Row> rows = m_set->Read(first, last);
  m_first = first;
  m_first_key = rows.empty() ? 0 : rows.front().Key();
  PrintRows(m_set->Of(), rows);
  if (rows.empty()) {
    fmt::print("no {}\n", m_set->Of().plural);
  } else {
    fmt::print("{} {} to {} of {}\n", m_set->Of().plural, first, last, count);
  }
}

void Commands::Open(const Words& words) {
  m_set->Open(words);
  PrintFrom(1);
}

void Commands::Tables(const std::string&) {
  for (const Table* table : AllTables()) {
    fmt::print("{} {}\n", table == &m_set->Of() ? '*' : ' ', table->plural);
  }
}

void Commands::OpenTable(const std::string& text) {
  const Table& table = FindTable(text);
  if (&table != &m_set->Of()) {
    auto next = std::make_unique<RowSet>(table);
    next->Open(UsualWords(table));
    m_set = std::move(next);
    return PrintFrom(1);
  }
  Open(UsualWords(table));
}

void Commands::Filter(const std::string& text) { Open({text, m_set->OpenedWith().sort}); }

void Commands::Sort(const std::string& text) {
  Open({m_set->OpenedWith().filter, text.empty() ? UsualWords(m_set->Of()).sort : text});
}

void Commands::Page(const std::string& text) {
  if (text.empty()) return PrintFrom(m_first);
  const LONG page = Number(text);
  const LONG pages = std::max<LONG>(1, (m_set->Count() - 1) / m_rows + 1);
  if (page > pages) throw WordsError(fmt::format("there is no page {}; there are {}", page, pages));
  PrintFrom((page - 1) * m_rows + 1);
}

void Commands::Next(const std::string&) {
  if (m_set->Count() - m_first < m_rows) throw WordsError("this is the last page");
  PrintFrom(m_first + m_rows);
}

void Commands::Previous(const std::string&) {
  if (m_first == 1) throw WordsError("this is the first page");
  PrintFrom(std::max<LONG>(1, m_first - m_rows));
}

void Commands::GoTo(const std::string& text) { PrintFrom(Number(text)); }

void Commands::Jump(const std::string& text) {
  const LONG found = m_set->PositionOfText(text);
  if (found == 0) throw WordsError(fmt::format("nothing from '{}' on", text));
  PrintFrom(found);
}

void Commands::Rows(const std::string& text) {
  m_rows = Number(text);
  PrintFrom(m_first);
}

LONG Commands::RowNumber(const std::string& text) const { return text.empty() ? m_first : Number(text); }

Row Commands::RowAt(const std::string& text) {
  const LONG number = RowNumber(text);
  Row row = m_set->Read(number, number).front();
  if (row.Gone()) throw WordsError(fmt::format("there is no row {}", number));
  return row;
}

void Commands::Show(const std::string& text) {
  for (const std::string& line : Details(m_set->Of(), RowAt(text), kDetailsWidth)) fmt::print("{}\n", line);
}

void Commands::Images(const std::string& text) {
  if (PositioningOf(m_set->Of()).move_to_text == nullptr) throw WordsError("images belong to patients");
  const Row patient = RowAt(text);
  RowSet images(FindTable("images"));
  images.Open({fmt::format("patient = {}", patient.Key()), kImagesSort});
  PrintRows(images.Of(), images.Read(1, std::min(images.Count(), kMostImages)));
  fmt::print("{} images of patient {}\n", images.Count(), patient.Key());
}

void Commands::Count(const std::string&) { fmt::print("{}\n", m_set->Count()); }

void Commands::Reload(const std::string&) {
  m_first = std::max<LONG>(1, ReopenAtKey(*m_set, m_first_key, m_first));
  PrintFrom(m_first);
}

void Commands::Help(const std::string&) {
  for (const Command& command : kCommands) {
    fmt::print("{:<16}{}\n", fmt::format("{} {}", command.word, command.arguments), command.help);
  }
}

void Commands::Quit(const std::string&) { m_ended = true; }

Completion Commands::Complete(const std::string& before_cursor) const {
  const std::size_t start = before_cursor.find_first_not_of(' ');
  const std::size_t blank = before_cursor.find(' ', std::min(start, before_cursor.size()));
  std::vector<std::string> words;
  if (blank == std::string::npos) {
    for (const Command& command : kCommands) words.emplace_back(command.word);
    return CompleteWord(before_cursor, words);
  }
  const std::string word = before_cursor.substr(start, blank - start);
  const std::string text = before_cursor.substr(blank + 1);
  Completion completion;
  if (word == "open") {
    for (const Table* table : AllTables()) words.emplace_back(table->plural);
    completion = CompleteWord(text, words);
  } else if (word == "filter") {
    completion = CompleteFilter(text, m_set->Of().fields);
  } else if (word == "sort") {
    completion = CompleteSort(text, m_set->Of().fields);
  }
  completion.start += blank + 1;
  return completion;
}

}  // namespace shell
