// Literals: what a set makes of a text must be one literal, and the same bytes, for a database too.
#include <fuzzer/FuzzedDataProvider.h>
#include <sqlite3.h>

#include <cstring>
#include <string>

#include "fuzz/exact.h"
#include "fuzz/reading.h"
#include "recset/kyrecset.h"

namespace {

using fuzz::Require;

class LiteralSet : public CKyRecSet {
 public:
  LiteralSet() : CKyRecSet(nullptr, "owner.") {}
  using CKyRecSet::MakeSQLDate;
  using CKyRecSet::MakeSQLString;
  using CKyRecSet::MakeSQLTimeStamp;
};

sqlite3* Database() {
  static sqlite3* const database = [] {
    sqlite3* opened = nullptr;
    Require(sqlite3_open(":memory:", &opened) == SQLITE_OK, "no database in memory");
    return opened;
  }();
  return database;
}

// The database must find one literal and nothing behind it.
void CheckInDatabase(const std::string& literal, const std::string& text) {
  const std::string sql = "SELECT " + literal;
  sqlite3_stmt* statement = nullptr;
  const char* tail = nullptr;
  const int prepared =
      sqlite3_prepare_v2(Database(), sql.c_str(), static_cast<int>(sql.size()) + 1, &statement, &tail);
  Require(prepared == SQLITE_OK && *tail == '\0', "the database refuses the literal", literal);
  Require(sqlite3_step(statement) == SQLITE_ROW && sqlite3_column_count(statement) == 1, "no row", literal);
  const auto bytes = static_cast<std::size_t>(sqlite3_column_bytes(statement, 0));
  const void* read = sqlite3_column_blob(statement, 0);
  Require(bytes == text.size() && (bytes == 0 || std::memcmp(read, text.data(), bytes) == 0),
          "the database reads another text", literal);
  sqlite3_finalize(statement);
}

void CheckText(LiteralSet& set, const std::string& text) {
  const auto exact = fuzz::ExactText(text);
  const std::string literal = static_cast<const char*>(set.MakeSQLString(exact.get()));
  std::string_view rest = literal;
  Require(fuzz::TakeText(&rest) == text && rest.empty(), "the literal is not the text", literal);
  CheckInDatabase(literal, text);
}

void CheckTimes(LiteralSet& set, FuzzedDataProvider& input) {
  TIMESTAMP_STRUCT time{};
  if (input.ConsumeData(&time, sizeof time) < sizeof time) return;
  const CString date = set.MakeSQLDate(&time), stamp = set.MakeSQLTimeStamp(&time);
  std::string_view rest(static_cast<const char*>(date));
  fuzz::TakeDate(&rest, time);
  Require(rest.empty(), "text behind a date", rest);
  rest = static_cast<const char*>(stamp);
  fuzz::TakeTimestamp(&rest, time);
  Require(rest.empty(), "text behind a time", rest);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  LiteralSet set;
  CheckTimes(set, input);
  const std::string bytes = input.ConsumeRemainingBytesAsString();
  CheckText(set, fuzz::UpToZero(bytes));
  return 0;
}
