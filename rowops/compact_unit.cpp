// Units in the compact record: several texts packed into one field, joined by a separator byte.
#include <string>

#include "platform/result_codes.h"
#include "recset/unit_rec.h"
#include "rowops/compact.h"
#include "rowops/compact_fields.h"

namespace compact {
namespace {

constexpr char kSeparator = '\xBB';
constexpr char kMark = ']';
constexpr char kUnknownType[] = "X?";
constexpr DWORD kAllFields = 0xFFFFFFFF;

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// The bytes of the UTF-8 character at the start of `text`; 1 for a byte that begins none.
std::size_t CharacterLength(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  std::size_t length = 1;
  if (lead >= 0xC2 && lead <= 0xF4) length = lead < 0xE0 ? 2 : (lead < 0xF0 ? 3 : 4);
  if (length > text.size()) return 1;
  for (std::size_t i = 1; i < length; ++i) {
    if (!IsContinuation(text[i])) return 1;
  }
  return length;
}

// The first separator in `text`, or its end. The last byte of a character such as U+00FB has the same value
// and separates nothing.
std::size_t FindSeparator(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size() && text[at] != kSeparator) at += CharacterLength(text.substr(at));
  return at;
}

// Takes the text up to the first separator off the front of `packed`.
std::string_view TakePart(std::string_view* packed) {
  const std::size_t end = FindSeparator(*packed);
  const std::string_view part = packed->substr(0, end);
  packed->remove_prefix(end < packed->size() ? end + 1 : end);
  return part;
}

void PutName(std::string_view packed, tagTUNIT* unit) {
  PutText(unit->szName, TakePart(&packed));
  PutText(unit->szTestBodySNo, packed);
}

void PutElectronics(std::string_view packed, tagTUNIT* unit) {
  PutText(unit->szCtrlUnitSNo, TakePart(&packed));
  PutText(unit->szSensSNo, TakePart(&packed));
  PutText(unit->szGenSNo, packed);
}

void PutControls(std::string_view packed, tagTUNIT* unit) {
  PutText(unit->szCtrlElemSNo, TakePart(&packed));
  PutText(unit->szConeSNo, packed);
}

}  // namespace

tagTUNIT ToUnit(const tagPATIENTCOMPACT& record) {
  tagTUNIT unit{};
  unit.lUnitID = static_cast<LONG>(record.dwID);
  PutText(unit.szType, kUnknownType);
  unit.dAccept = DateOf(record.wYear, record.byMonth, record.byDay);
  PutName(FieldText(record.szName), &unit);
  PutElectronics(FieldText(record.szFirstname), &unit);
  PutText(unit.szTubeSNo, FieldText(record.szDrName));
  // The mark in front is skipped, whatever it is: a zero byte ends nothing there.
  const char* const controls = record.szIdent + 1;
  PutControls({controls, text::FieldLength(controls, sizeof record.szIdent - 1)}, &unit);
  return unit;
}

void FromUnit(const tagTUNIT& unit, tagPATIENTCOMPACT* record) {
  const auto field = [](const auto& text) { return std::string(FieldText(text)); };
  const std::string separator(1, kSeparator);
  tagPATIENTCOMPACT packed{};
  packed.dwID = static_cast<DWORD>(unit.lUnitID);
  packed.wYear = static_cast<WORD>(unit.dAccept.year);
  packed.byMonth = static_cast<BYTE>(unit.dAccept.month);
  packed.byDay = static_cast<BYTE>(unit.dAccept.day);
  PutText(packed.szName, field(unit.szName) + separator + field(unit.szTestBodySNo));
  PutText(packed.szFirstname,
          field(unit.szCtrlUnitSNo) + separator + field(unit.szSensSNo) + separator + field(unit.szGenSNo));
  PutText(packed.szDrName, FieldText(unit.szTubeSNo));
  PutText(packed.szIdent, kMark + field(unit.szCtrlElemSNo) + separator + field(unit.szConeSNo));
  *record = packed;
}

WORD AddUnit(CUnitRec* units, tagPATIENTCOMPACT* record) {
  tagTUNIT unit = ToUnit(*record);
  const WORD code = units->AddRow(&unit);
  if (code == kOk) FromUnit(unit, record);
  return code;
}

WORD EditUnit(CUnitRec* units, tagPATIENTCOMPACT* record) {
  tagTUNIT unit = ToUnit(*record);
  const WORD code = units->EditRow(&unit, kAllFields);
  if (code == kOk) FromUnit(unit, record);
  return code;
}

WORD EditSelectedUnit(CUnitRec* units, const tagPATIENTCOMPACT* record, DWORD mask) {
  tagTUNIT unit = ToUnit(*record);
  return units->EditRow(&unit, mask);
}

WORD DeleteUnit(CUnitRec* units, const tagPATIENTCOMPACT* record) {
  const tagTUNIT unit = ToUnit(*record);
  return units->DeleteRow(&unit);
}

WORD GetUnit(CUnitRec* units, tagPATIENTCOMPACT* record) {
  tagTUNIT unit = ToUnit(*record);
  const WORD code = units->GetRow(&unit);
  if (code == kOk) FromUnit(unit, record);
  return code;
}

WORD GetUnitByPos(CUnitRec* units, tagPATIENTCOMPACT* record, LONG position) {
  tagTUNIT unit{};
  const WORD code = units->GetRecByPos(&unit, &position);
  if (code == kOk) FromUnit(unit, record);
  return code;
}

}  // namespace compact
