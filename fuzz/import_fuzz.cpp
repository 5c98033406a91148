// The import of CSV files: the reader ends, reads each byte once, reads back what is written from its rows;
// and what the import makes of the rows never stops it or leaves a row that the file did not ask for.
#include <fuzzer/FuzzedDataProvider.h>
#include <sys/mman.h>
#include <unistd.h>

#include <sstream>
#include <string>
#include <vector>

#include "fuzz/practice.h"
#include "fuzz/require.h"
#include "tools/commands/import_rows.h"
#include "tools/csv.h"
#include "tools/time_text.h"
#include "tools/tool_error.h"

namespace {

using fuzz::Require;
using Fields = std::vector<std::string>;

std::vector<Fields> ReadAll(const std::string& text, bool* faultless) {
  std::istringstream stream(text);
  CsvReader reader(stream);
  std::vector<Fields> rows;
  *faultless = true;
  int line = 0;
  for (CsvRow row; reader.Next(row);) {
    Require(row.line > line, "a row begins before the one before it");
    line = row.line;
    Require(!row.fields.empty(), "a row without fields");
    if (!row.fault.empty()) *faultless = false;
    rows.push_back(row.fields);
    Require(rows.size() <= text.size(), "more rows than bytes");
  }
  Require(reader.BytesRead() == text.size(), "not every byte was read once", text);
  return rows;
}

std::string Written(const std::vector<Fields>& rows) {
  std::string text;
  for (const Fields& fields : rows) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
      text += i == 0 ? "\"" : ",\"";
      for (const char c : fields[i]) text += c == '"' ? std::string("\"\"") : std::string(1, c);
      text += '"';
    }
    text += "\r\n";
  }
  return text;
}

void CheckReader(const std::string& text) {
  bool faultless = false;
  const std::vector<Fields> rows = ReadAll(text, &faultless);
  if (!faultless) return;
  Require(ReadAll(Written(rows), &faultless) == rows && faultless, "the rows do not read back", text);
}

// What is read as a time is written as the same one.
void CheckTime(const std::string& text) {
  const auto time = ReadTime(text);
  if (!time) return;
  const auto again = ReadTime(TimeText(*time));
  if (TimeText(*time).empty()) return;
  Require(again && TimeText(*again) == TimeText(*time), "a time does not read back", text);
}

class TextFile {
 public:
  explicit TextFile(const std::string& text) : m_file(memfd_create("import", 0)) {
    Require(m_file >= 0 && write(m_file, text.data(), text.size()) == static_cast<ssize_t>(text.size()),
            "no file in memory");
  }
  ~TextFile() { close(m_file); }
  std::string Path() const { return "/proc/self/fd/" + std::to_string(m_file); }

 private:
  int m_file;
};

// The rows that each kind of import may add to.
const char* const kTables[] = {"TDoctor", "TPatient", "TImage"};

void CheckImport(std::size_t chosen, const std::string& text) {
  const ImportKind& kind = ImportKinds()[chosen];
  fuzz::ThePractice().Clean();
  std::string titles;
  for (const std::string& column : kind.columns) titles += (titles.empty() ? "" : ",") + column;
  const TextFile file(titles + "\n" + text);
  CsvTable table(file.Path(), kind.columns);
  int added = 0;
  for (;;) {
    try {
      if (!table.Next()) break;
      CheckTime(table.Field(kind.columns.back()));
      added += kind.store(table).added ? 1 : 0;
    } catch (const RowRejected&) {
    } catch (const ToolError& error) {
      Require(false, error.what(), text);
    }
  }
  Require(fuzz::ThePractice().Added(kTables[chosen]) == added, "another number of rows than was told", text);
  Require(fuzz::ThePractice().CanariesLive(), "a canary row changed", text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const auto what = input.ConsumeIntegralInRange<std::size_t>(0, 9);
  const std::string text = input.ConsumeRemainingBytesAsString();
  CheckReader(text);
  CheckTime(text);
  if (what < 3 && !fuzz::NamesCanary(text)) CheckImport(what, text);
  return 0;
}
