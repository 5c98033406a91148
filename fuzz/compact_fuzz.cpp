// The compact record into the plain one and back, for patients and units: every text ends inside its field,
// nothing comes from outside the record, and a second time round nothing changes.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstring>
#include <string>

#include "fuzz/exact.h"
#include "fuzz/require.h"
#include "rowops/compact.h"
#include "tests/differential/model.h"
#include "tools/record_text.h"

namespace {

using differential::Kind;
using differential::Stem;
using fuzz::Require;

// The record of the program that is one of the tests' kind, whose fields are known by name.
template <class Record>
differential::Packed Named(Stem stem, const Record& record) {
  return {stem, std::string(reinterpret_cast<const char*>(&record), sizeof record)};
}

template <class Record>
std::unique_ptr<Record> Consume(FuzzedDataProvider& input) {
  auto record = std::make_unique<Record>();
  input.ConsumeData(record.get(), sizeof(Record));
  return record;
}

// A byte of half a character before a separator may make another character with it.
bool HasWholeCharacters(const differential::Packed& record) {
  for (const differential::Field& field : record.Shape().fields) {
    const char* start = record.Bytes().data() + field.offset;
    const std::string_view text(start, strnlen(start, static_cast<std::size_t>(field.width)));
    if (field.kind == Kind::kText && !IsUtf8(text)) return false;
  }
  return true;
}

void RequireTerminated(const differential::Packed& record) {
  for (const differential::Field& field : record.Shape().fields) {
    if (field.kind != Kind::kText) continue;
    const std::string bytes = record.Bytes().substr(field.offset, static_cast<std::size_t>(field.width));
    Require(bytes.find('\0') != std::string::npos, field.name, bytes);
  }
}

// Field by field: bytes behind the end of a text do not count.
void RequireSame(const differential::Packed& one, const differential::Packed& other, const char* what) {
  for (std::size_t i = 0; i < one.Shape().fields.size(); ++i) {
    const int field = static_cast<int>(i);
    if (one.Value(field) == other.Value(field)) continue;
    std::fprintf(stderr, "field %s\n", one.Shape().fields[i].name);
    Require(false, what, one.Bytes());
  }
}

void CheckPatient(const tagPATIENTCOMPACT& given) {
  const tagTPATIENTEX joined = compact::ToPatient(given);
  const auto named = Named(Stem::kPatEx, joined);
  RequireTerminated(named);
  tagPATIENTCOMPACT back;
  std::memset(&back, 0x55, sizeof back);
  compact::FromPatient(joined, &back);
  RequireTerminated(Named(Stem::kCompact, back));
  if (!HasWholeCharacters(Named(Stem::kCompact, given))) return;
  // A field without an end is cut between characters: compared only where it ends.
  for (const differential::Field& field : Named(Stem::kCompact, given).Shape().fields) {
    const char* start = reinterpret_cast<const char*>(&given) + field.offset;
    const auto width = static_cast<std::size_t>(field.width);
    if (field.kind == Kind::kText && strnlen(start, width) == width) return;
  }
  // A sex that is neither 1 nor 2 comes back as 0, and the reserved byte too.
  tagPATIENTCOMPACT expected = given;
  if (expected.bySex > 2) expected.bySex = 0;
  expected.byReserved = 0;
  if (expected.szIdent[0] == '\0') std::strcpy(expected.szIdent, "}");
  RequireSame(Named(Stem::kCompact, expected), Named(Stem::kCompact, back), "a patient came back otherwise");
}

void CheckJoined(const tagTPATIENTEX& given) {
  tagPATIENTCOMPACT packed;
  std::memset(&packed, 0x55, sizeof packed);
  compact::FromPatient(given, &packed);
  RequireTerminated(Named(Stem::kCompact, packed));
  tagPATIENTCOMPACT again;
  std::memset(&again, 0x55, sizeof again);
  compact::FromPatient(compact::ToPatient(packed), &again);
  RequireSame(Named(Stem::kCompact, packed), Named(Stem::kCompact, again), "a patient changes twice");
  tagTPATIENT patient;
  std::memcpy(&patient, &given, sizeof patient);
  tagPATIENTCOMPACT written = again;
  std::memset(written.szDrName, 'd', sizeof written.szDrName);
  written.byReserved = 7;
  compact::FromWrittenPatient(patient, &written);
  const bool kept = written.byReserved == 7 && written.szDrName[sizeof written.szDrName - 1] == 'd';
  Require(kept, "the doctor's name or the reserved byte was written");
}

void CheckUnit(const tagPATIENTCOMPACT& given) {
  const tagTUNIT unit = compact::ToUnit(given);
  RequireTerminated(Named(Stem::kUnit, unit));
  tagPATIENTCOMPACT packed;
  std::memset(&packed, 0x55, sizeof packed);
  compact::FromUnit(unit, &packed);
  RequireTerminated(Named(Stem::kCompact, packed));
  const auto named = Named(Stem::kUnit, unit), again = Named(Stem::kUnit, compact::ToUnit(packed));
  if (HasWholeCharacters(named)) RequireSame(named, again, "a unit changes twice");
}

void CheckPlainUnit(const tagTUNIT& given) {
  tagPATIENTCOMPACT packed;
  std::memset(&packed, 0x55, sizeof packed);
  compact::FromUnit(given, &packed);
  RequireTerminated(Named(Stem::kCompact, packed));
  RequireTerminated(Named(Stem::kUnit, compact::ToUnit(packed)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const auto packed = Consume<tagPATIENTCOMPACT>(input);
  CheckPatient(*packed);
  CheckUnit(*packed);
  CheckJoined(*Consume<tagTPATIENTEX>(input));
  CheckPlainUnit(*Consume<tagTUNIT>(input));
  return 0;
}
