#include "tools/csv.h"

namespace {

constexpr int kEnd = std::istream::traits_type::eof();

// A lone empty field would be an empty line, which readers leave out.
std::string Quoted(const std::string& field, bool alone) {
  if (field.find_first_of(",\"\r\n") == std::string::npos && !(alone && field.empty())) return field;
  std::string quoted = "\"";
  for (const char c : field) {
    if (c == '"') quoted += c;
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace

std::string CsvLine(const std::vector<std::string>& fields) {
  std::string line;
  for (const std::string& field : fields) {
    if (&field != &fields.front()) line += ',';
    line += Quoted(field, fields.size() == 1);
  }
  return line + '\n';
}

CsvReader::CsvReader(std::istream& input) : m_input(input) {
  constexpr unsigned char kMark[] = {0xEF, 0xBB, 0xBF};
  for (const unsigned char byte : kMark) {
    if (m_input.peek() != byte) return;
    Get();
  }
}

int CsvReader::Get() {
  const int c = m_input.get();
  if (c != kEnd) ++m_bytes;
  return c;
}

bool CsvReader::Next(CsvRow& row) {
  row.fault.clear();
  do {
    row.fields.clear();
    row.line = m_line;
    if (m_input.peek() == kEnd) return false;
    m_row_ended = false;
    while (!m_row_ended) ReadField(row);
  } while (row.fault.empty() && row.fields.size() == 1 && row.fields.front().empty());
  return true;
}

// Whether `c`, just read, ends the row. Takes the LF behind a CR as well.
bool CsvReader::TakeLineEnd(int c) {
  if (c == '\r' && m_input.peek() == '\n') c = Get();
  if (c == '\n') ++m_line;
  m_row_ended = c == '\n' || c == kEnd;
  return m_row_ended;
}

void CsvReader::ReadField(CsvRow& row) {
  std::string& field = row.fields.emplace_back();
  if (m_input.peek() == '"') return ReadQuoted(row, field);
  for (int c = Get(); !TakeLineEnd(c) && c != ','; c = Get()) {
    if (c == '"' && row.fault.empty()) row.fault = "a quote inside a field that does not begin with one";
    field += static_cast<char>(c);
  }
}

void CsvReader::ReadQuoted(CsvRow& row, std::string& field) {
  Get();
  for (int c = Get(); c != '"' || m_input.peek() == '"'; c = Get()) {
    if (c == kEnd) {
      row.fault = "a quote that is never closed";
      m_row_ended = true;
      return;
    }
    if (c == '"') Get();
    if (c == '\n') ++m_line;
    field += static_cast<char>(c);
  }
  const int after = Get();
  if (TakeLineEnd(after) || after == ',') return;
  if (row.fault.empty()) row.fault = "text behind a closing quote";
  SkipLine();
}

void CsvReader::SkipLine() {
  while (!TakeLineEnd(Get())) {
  }
}
