// Records and values: few of each, so that they meet, and many at the limits.
#include <algorithm>

#include "tests/differential/generator.h"

namespace differential {
namespace {

const std::vector<std::string>& Names() {
  static const std::vector<std::string> names = {
      "Meyer", "meyer",  "MEYER", "Meyer ", " Meyer", "Müller",      "Mueller", "O'Neil", "María",
      "M%",    "M_ller", "Zoë",   "Ärzte",  "-",      "back\\slash", "Straße",  "a?b",    "{d '2001-05-06'}",
      "}ext",  "9",      "A",     "B",      "Z",      "a",           "»Q«"};
  return names;
}

const std::vector<std::string>& LongTexts() {
  static const std::vector<std::string> texts = {
      std::string(300, 'x'),
      // Characters of two, three and four bytes, so that widths of every remainder fall inside one.
      [] {
        std::string text = "a";
        for (int i = 0; i < 40; ++i) text += "é";
        return text;
      }(),
      [] {
        std::string text;
        for (int i = 0; i < 40; ++i) text += "日";
        return text;
      }(),
      [] {
        std::string text = "bc";
        for (int i = 0; i < 40; ++i) text += "😀";
        return text;
      }(),
      "'" + std::string(40, '\'')};
  return texts;
}

const std::vector<Time>& Times() {
  static const std::vector<Time> times = {
      {2001, 5,  6,  10, 0,  0 },
      {2001, 5,  6,  0,  0,  0 },
      {2001, 5,  7,  0,  0,  0 },
      {2001, 5,  6,  23, 59, 59},
      {2000, 2,  29, 12, 0,  1 },
      {1880, 1,  1,  0,  0,  0 },
      {1999, 12, 31, 23, 59, 59},
      {1950, 1,  1,  8,  30, 0 },
      {9999, 12, 31, 0,  0,  0 },
      {5,    5,  1,  0,  0,  0 }
  };
  return times;
}

const std::vector<Time>& ImpossibleTimes() {
  static const std::vector<Time> times = {
      {2001, 2,  30, 0, 0, 0},
      {2001, 13, 1,  0, 0, 0},
      {2001, 4,  31, 0, 0, 0},
      {1900, 2,  29, 0, 0, 0}
  };
  return times;
}

}  // namespace

std::string Generator::SomeName() { return Pick(Names()); }

std::string Generator::AnyText() {
  const int what = Below(100);
  if (what < 8) return {};
  if (what < 16) return Pick(LongTexts());
  return SomeName() + (Chance(40) ? std::to_string(Below(6)) : std::string());
}

std::string Generator::TextFor(const Field& field) {
  const std::size_t width = static_cast<std::size_t>(field.width);
  if (width == 2) return Pick(std::vector<std::string>{"", "m", "f", "-", "9", "A", "'"});
  if (width > 300 && Chance(30)) return Cut(Pick(LongTexts()) + std::string(4200, 'r'), width - 1);
  return Cut(AnyText(), width - 1);
}

Time Generator::SomeTime() {
  const int what = Below(100);
  if (what < 6) return {};
  if (what < 9) return Pick(ImpossibleTimes());
  Time time = Pick(Times());
  if (what < 50) time[1] = 1 + Below(12), time[2] = 1 + Below(28);
  return time;
}

int Generator::SomeKey(Stem stem) {
  const Table& table = m_models.back().TableOf(stem);
  if (!table.rows.empty() && Chance(85)) return std::get<int>(Pick(table.rows)->front());
  return Pick(std::vector<int>{0, 1, table.next_key, table.next_key - 1, 99'999, -1});
}

// Which table's key the field holds.
Stem Generator::ReferredBy(Stem stem, const std::string& field) const {
  if (field == "lDrID") return Stem::kDr;
  if (field == "lPatID") return Stem::kPat;
  if (field == "lUnitID") return Stem::kUnit;
  if (field == "lStatID") return Stem::kStat;
  if (field == "lImgID") return Stem::kImg;
  return field == "lMakIDLast" ? Stem::kMak : stem;
}

void Generator::Vary(Packed* record, int field) {
  const Field& shape = record->Shape().fields[static_cast<std::size_t>(field)];
  switch (shape.kind) {
    case Kind::kText: {
      const bool full = shape.width > 2 && shape.width < 100 && Chance(2);
      if (full)
        return record->SetUnterminated(field, std::string(static_cast<std::size_t>(shape.width), 'u'));
      return record->SetText(field, TextFor(shape));
    }
    case Kind::kDate:
    case Kind::kTime:
      return record->SetMoment(field, SomeTime());
    case Kind::kWord:
      return record->SetNumber(field, Pick(std::vector<int>{0, 1, 2, 3, 4, 5, 6, 65535, 32768}));
    case Kind::kFlag:
      return record->SetNumber(field, Chance(85) ? 0 : Pick(std::vector<int>{1, 1, 1, -7, 256}));
    default:
      return record->SetNumber(field, SomeKey(ReferredBy(record->Shape().stem, shape.name)));
  }
}

Packed Generator::FreshRecord(Stem stem) {
  Packed record = Packed::Empty(stem);
  for (std::size_t i = 1; i < record.Shape().fields.size(); ++i) Vary(&record, static_cast<int>(i));
  if (Chance(10)) record.SetNumber(0, SomeKey(stem));
  const bool placed = stem == Stem::kGrp || stem == Stem::kImg || stem == Stem::kTest;
  if (placed && Chance(92)) record.SetText("szLoc", "");
  // Without identifiers, or with one of its own.
  if (stem == Stem::kPat && Chance(80)) {
    record.SetText("szSlidaID", Chance(60) ? "S" + std::to_string(Below(200)) : "");
    if (Chance(60)) record.SetText("szSrvID", "");
  }
  if (stem == Stem::kDr && Chance(60))
    record.SetText("szSrvID", Chance(50) ? "D" + std::to_string(Below(50)) : "");
  return record;
}

// A record that names a row: by its key or by what stands in it.
Packed Generator::StoredRecord(Stem stem) {
  const Stem table = stem == Stem::kPatEx ? Stem::kPat : stem;
  const Rows& rows = m_models.back().TableOf(table).rows;
  if (rows.empty() || Chance(4)) return FreshRecord(stem);
  Packed record = Packed::Empty(stem);
  CopyOut(*Pick(rows), &record);
  if (table == Stem::kPat && Chance(3)) {
    // No key and no natural key: to a deletion this means all selected patients.
    record = Packed::Empty(stem);
    record.SetNumber("lSelect", 1);
    return record;
  }
  if (Chance(35)) record.SetNumber(0, 0);
  if (Chance(4)) record.SetNumber(0, SomeKey(table));
  return record;
}

Packed Generator::CompactPatient() {
  Packed compact = Packed::Empty(Stem::kCompact);
  Packed joined = Packed::Empty(Stem::kPatEx);
  const Rows& patients = m_models.back().TableOf(Stem::kPat).rows;
  if (!patients.empty() && Chance(70)) CopyOut(*Pick(patients), &joined);
  CompactOfJoined(joined, &compact);
  if (Chance(30)) compact.SetNumber("dwID", 0);
  for (const char* field : {"szName", "szFirstname"}) {
    if (Chance(30)) Vary(&compact, compact.Shape().Index(field));
  }
  const Rows& doctors = m_models.back().TableOf(Stem::kDr).rows;
  if (!doctors.empty() && Chance(90)) {
    const Cell& name = Pick(doctors)->at(1);
    compact.SetText("szDrName", IsNull(name) ? std::string() : std::get<std::string>(name));
  }
  if (Chance(40)) {
    compact.SetText("szIdent",
                    Pick(std::vector<std::string>{"}" + SomeName(), "S" + std::to_string(Below(200)), "}", "",
                                                  "}an external identifier", "a Slida identifier of"}));
  }
  if (Chance(30)) {
    const Time birthday = SomeTime();
    compact.SetNumber("wYear", birthday[0]);
    compact.SetNumber("byMonth", birthday[1]);
    compact.SetNumber("byDay", birthday[2]);
  }
  if (Chance(30)) compact.SetNumber("bySex", Below(4));
  if (Chance(30)) compact.SetNumber("byReserved", 77);
  return compact;
}

Packed Generator::CompactUnit() {
  Packed unit = FreshRecord(Stem::kUnit);
  const Rows& units = m_models.back().TableOf(Stem::kUnit).rows;
  if (!units.empty() && Chance(70)) CopyOut(*Pick(units), &unit);
  if (Chance(30)) unit.SetNumber(0, 0);
  if (Chance(40)) Vary(&unit, 2 + Below(9));
  Packed compact = Packed::Empty(Stem::kCompact);
  CompactOfUnit(unit, &compact);
  if (Chance(10)) compact.SetText("szName", SomeName());
  if (Chance(10)) compact.SetText("szIdent", Pick(std::vector<std::string>{"", "]", "?E1", "]only"}));
  return compact;
}

}  // namespace differential
