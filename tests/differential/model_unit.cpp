// Units in the compact record, whose texts are packed and set apart by a byte.
#include "tests/differential/model.h"

namespace differential {
namespace {

constexpr char kSeparator = '\xBB';

// A byte of that value inside a character is no separator.
std::size_t FindSeparator(const std::string& text) {
  for (std::size_t at = 0; at < text.size(); at += CharacterAt(text, at)) {
    if (text[at] == kSeparator) return at;
  }
  return std::string::npos;
}

// The text up to the first separator, which is taken off with it.
std::string TakePart(std::string* rest) {
  const std::size_t at = FindSeparator(*rest);
  std::string part = rest->substr(0, at);
  *rest = at == std::string::npos ? std::string() : rest->substr(at + 1);
  return part;
}

}  // namespace

Packed UnitOf(const Packed& compact) {
  Packed unit = Packed::Empty(Stem::kUnit);
  unit.SetNumber("lUnitID", compact.Number("dwID"));
  unit.SetText("szType", "X?");
  std::string name = compact.Text("szName");
  unit.SetText("szName", TakePart(&name));
  unit.SetText("szTestBodySNo", name);
  std::string numbers = compact.Text("szFirstname");
  unit.SetText("szCtrlUnitSNo", TakePart(&numbers));
  unit.SetText("szSensSNo", TakePart(&numbers));
  unit.SetText("szGenSNo", numbers);
  unit.SetText("szTubeSNo", compact.Text("szDrName"));
  std::string ident = compact.Text("szIdent", 1);
  unit.SetText("szCtrlElemSNo", TakePart(&ident));
  unit.SetText("szConeSNo", ident);
  unit.SetMoment("dAccept",
                 {compact.Number("wYear"), compact.Number("byMonth"), compact.Number("byDay"), 0, 0, 0});
  return unit;
}

// Everything that is no text is zero, and so are the bytes behind the texts.
void CompactOfUnit(const Packed& unit, Packed* compact) {
  *compact = Packed(Stem::kCompact, std::string(compact->Bytes().size(), '\0'));
  compact->SetText("szName", unit.Text("szName") + kSeparator + unit.Text("szTestBodySNo"));
  compact->SetText("szFirstname", unit.Text("szCtrlUnitSNo") + kSeparator + unit.Text("szSensSNo") +
                                      kSeparator + unit.Text("szGenSNo"));
  compact->SetText("szDrName", unit.Text("szTubeSNo"));
  compact->SetText("szIdent", "]" + unit.Text("szCtrlElemSNo") + kSeparator + unit.Text("szConeSNo"));
  const Time accepted = unit.Moment("dAccept");
  compact->SetNumber("wYear", accepted[0]);
  compact->SetNumber("byMonth", accepted[1]);
  compact->SetNumber("byDay", accepted[2]);
  compact->SetNumber("dwID", unit.Number("lUnitID"));
}

int Model::RunUnit(const Call& call, Packed* record) {
  Packed unit = UnitOf(*record);
  int code = 0;
  bool changes = true, gives_back = true;
  switch (call.verb) {
    case Verb::kAddUnit:
      code = AddNew(Stem::kUnit, &unit);
      break;
    case Verb::kEditUnit:
      code = EditSel(Stem::kUnit, &unit, 0xFFFFFFFF);
      break;
    case Verb::kEditSelUnit:
      code = EditSel(Stem::kUnit, &unit, static_cast<std::uint32_t>(call.b));
      gives_back = false;
      break;
    case Verb::kDeleteUnit:
      code = Delete(Stem::kUnit, unit);
      gives_back = false;
      break;
    case Verb::kGetUnit:
      code = Get(Stem::kUnit, &unit);
      changes = false;
      break;
    default: {
      RowPtr row;
      code = Show(Stem::kUnit, call.a, &row);
      if (code == 0) CopyOut(*row, &unit);
      changes = false;
    }
  }
  if (code == 0 && gives_back) CompactOfUnit(unit, record);
  return changes ? RequeryIfOpen(Stem::kUnit, code) : code;
}

}  // namespace differential
