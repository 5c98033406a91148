// Records with any bytes into the adds and edits of every table: the code is one of the known, the row reads
// back, it can be deleted again, and no other row changes.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstring>
#include <string>

#include "frame/KyODBC.h"
#include "fuzz/practice.h"
#include "fuzz/require.h"
#include "tests/differential/flat_calls.h"
#include "tests/differential/packed.h"
#include "tools/record_text.h"

namespace {

using differential::Answer;
using differential::Kind;
using differential::Packed;
using differential::Stem;
using differential::Verb;
using fuzz::Require;

// Keys of canaries and default rows are moved away from them; parents' too, which adds bring up to date.
Packed ConsumeRecord(FuzzedDataProvider& input, Stem stem) {
  std::string bytes = input.ConsumeBytesAsString(differential::LayoutOf(stem).size);
  bytes.resize(differential::LayoutOf(stem).size);
  Packed record(stem, bytes);
  for (std::size_t i = 0; i < record.Shape().fields.size(); ++i) {
    const int field = static_cast<int>(i);
    if (record.Shape().fields[i].kind != Kind::kLong) continue;
    const int key = record.Number(field);
    if (key > 0 && key <= fuzz::CanaryPractice::kLastKey) record.SetNumber(field, key + 50'000);
  }
  return record;
}

Answer Call(Verb verb, const Packed& record, int mask = -1) {
  return differential::CallLibrary(
      {.verb = verb, .stem = record.Shape().stem, .b = mask, .record = record.Bytes()}, {});
}

void RequireKnown(int code) {
  for (const int known : {0, 1, 6, 8, 21, 52, 64, 65, 66, 67}) {
    if (code == known) return;
  }
  Require(false, "an unknown code", std::to_string(code));
}

// Fields that the library fills or derives.
bool IsGiven(const std::string& name) {
  return name == "szLoc" || name == "szIDDisp" || name == "dEntry" || name == "tsLastDisp" ||
         name == "tsLast" || name == "ts" || name == "szSex";
}

// The texts and numbers of `asked` that `mask` selects are in the row.
void RequireStored(const Packed& asked, std::uint32_t mask, const Packed& row) {
  for (std::size_t i = 1; i < asked.Shape().fields.size(); ++i) {
    const differential::Field& shape = asked.Shape().fields[i];
    const int field = static_cast<int>(i);
    if ((shape.bit & mask) == 0 || IsGiven(shape.name)) continue;
    if (shape.kind == Kind::kText) {
      const auto room = static_cast<std::size_t>(shape.width);
      const std::string whole(asked.Bytes().data() + shape.offset,
                              strnlen(asked.Bytes().data() + shape.offset, room));
      if (!IsUtf8(whole)) continue;
      Require(row.Text(field) == whole.substr(0, FittingBytes(whole, room - 1)), shape.name, whole);
    } else if (shape.kind == Kind::kLong || shape.kind == Kind::kFlag || shape.kind == Kind::kWord) {
      Require(row.Value(field) == asked.Value(field), shape.name, std::to_string(row.Number(field)));
    }
  }
}

Packed ReadBack(Stem stem, int key) {
  Packed wanted = Packed::Empty(stem);
  wanted.SetNumber(0, key);
  const Answer answer = Call(Verb::kGet, wanted);
  Require(answer.result == 0, "an added row cannot be read", std::to_string(answer.result));
  return {stem, answer.memory};
}

void CheckEdit(FuzzedDataProvider& input, Stem stem, int key, const std::string& table) {
  Packed change = ConsumeRecord(input, stem);
  if (fuzz::NamesCanary(change.Bytes())) return;
  const bool by_key = input.ConsumeIntegralInRange(0, 3) > 0;
  change.SetNumber(0, by_key ? key : 0);
  const int mask = input.ConsumeBool() ? -1 : input.ConsumeIntegral<int>();
  const Answer edited = Call(Verb::kEditSel, change, mask);
  RequireKnown(edited.result);
  Require(fuzz::ThePractice().Added(table) == 1, "an edit changed the number of rows");
  if (edited.result == 0 && by_key) {
    RequireStored(change, static_cast<std::uint32_t>(mask), ReadBack(stem, key));
  }
}

void CheckAdd(FuzzedDataProvider& input, Stem stem) {
  const std::string table = differential::LayoutOf(stem).table;
  Packed asked = ConsumeRecord(input, stem);
  if (fuzz::NamesCanary(asked.Bytes())) return;
  const Answer added = Call(Verb::kAddNew, asked);
  RequireKnown(added.result);
  const int rows = fuzz::ThePractice().Added(table);
  Require(rows == 1 || added.result != 0, "an added row is missing", table);
  // The row stays when it cannot be told by its natural key.
  const bool may_stay = added.result == 1 || added.result == 52 || added.result == 64;
  Require(rows == 0 || (rows == 1 && (added.result == 0 || may_stay)), "a refused add left rows", table);
  if (rows == 0) return;
  const int key = fuzz::ThePractice().NewestKey(table);
  const bool tells_key = added.result == 0 && stem != Stem::kDiag;
  Require(!tells_key || Packed(stem, added.memory).Number(0) == key, "another key", table);
  RequireStored(asked, ~0u, ReadBack(stem, key));
  CheckEdit(input, stem, key, table);
  Packed gone = Packed::Empty(stem);
  gone.SetNumber(0, key);
  const int removed = Call(Verb::kDelete, gone).result;
  // A row may have been named "-", and those are kept.
  Require(removed == 0 || removed == 8, "an added row cannot be deleted", std::to_string(removed));
  if (removed == 0) Require(fuzz::ThePractice().Added(table) == 0, "a deleted row is there", table);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  fuzz::ThePractice().Clean();
  const auto chosen = input.ConsumeIntegralInRange<std::size_t>(0, std::size(differential::kTables) - 1);
  CheckAdd(input, differential::kTables[chosen]);
  fuzz::ThePractice().Clean();
  Require(fuzz::ThePractice().CanariesLive(), "a canary row changed");
  return 0;
}
