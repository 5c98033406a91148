// Which rows a record names: by its key, else by a natural key of its table.
#include <algorithm>

#include "tests/differential/model.h"

namespace differential {
namespace {

// Counts when all its fields are given. A row found that way keeps those fields: their bits are cleared.
struct NaturalKey {
  Stem stem;
  std::vector<const char*> fields;
  std::uint32_t cleared;
};

// The keys of one table in the order in which they are tried.
const std::vector<NaturalKey>& NaturalKeys() {
  static const std::vector<NaturalKey> keys = {
      {Stem::kDr,   {"szSrvID"},                            0x2    },
      {Stem::kDr,   {"szName"},                             0x3    },
      {Stem::kStat, {"szName"},                             0x1    },
      {Stem::kUnit, {"szName"},                             0x2    },
      {Stem::kPat,  {"szSlidaID"},                          0x8    },
      {Stem::kPat,  {"szSrvID"},                            0xC    },
      {Stem::kPat,  {"szName", "szFirstname", "dBirthday"}, 0xEC   },
      {Stem::kImg,  {"lPatID", "ts", "szLoc"},              0x80041},
      {Stem::kMak,  {"lImgID", "wNo"},                      0x21   },
      {Stem::kGrp,  {"lPatID", "ts", "szLoc"},              0xD    },
      {Stem::kCfg,  {"lDrID", "lStatID", "szKey"},          0x7    },
      {Stem::kTest, {"lUnitID", "ts", "szLoc"},             0x2021 },
  };
  return keys;
}

bool IsGiven(const Packed& record, const std::string& field) {
  // Only where the library itself puts rows are they found again.
  if (field == "szLoc") return record.Text("szLoc") == "9";
  const Cell value = record.Value(record.Shape().Index(field));
  if (const int* number = std::get_if<int>(&value)) return *number != 0;
  if (const auto* text = std::get_if<std::string>(&value)) return !text->empty();
  const Time& time = std::get<Time>(value);
  return time[0] != 0 && time[1] != 0 && time[2] != 0;
}

}  // namespace

Rows Model::WithValues(Stem stem, const std::vector<std::pair<const char*, Cell>>& values) const {
  Rows found;
  for (const RowPtr& row : TableOf(stem).rows) {
    const bool all = std::all_of(values.begin(), values.end(), [&](const auto& value) {
      return (*row)[static_cast<std::size_t>(LayoutOf(stem).Index(value.first))] == value.second;
    });
    if (all) found.push_back(row);
  }
  return found;
}

Rows Model::FoundByKey(Stem stem, int key) const {
  return WithValues(stem, {
                              {LayoutOf(stem).fields[0].name, key}
  });
}

// Nothing when the record names no row.
std::optional<Rows> Model::Find(Stem stem, const Packed& record, std::uint32_t* mask) {
  if (record.Number(0) != 0) return FoundByKey(stem, record.Number(0));
  for (const NaturalKey& key : NaturalKeys()) {
    const auto given = [&](const char* field) { return IsGiven(record, field); };
    if (key.stem != stem || !std::all_of(key.fields.begin(), key.fields.end(), given)) continue;
    *mask &= ~key.cleared;
    std::vector<std::pair<const char*, Cell>> values;
    for (const char* field : key.fields) {
      const int index = record.Shape().Index(field);
      Cell value = record.Value(index);
      Time* time = std::get_if<Time>(&value);
      if (time != nullptr && LayoutOf(stem).fields[static_cast<std::size_t>(index)].kind == Kind::kDate) {
        *time = DateOf(*time);
      }
      if (time != nullptr && !IsPossible(*time)) Doubt(reason::kImpossibleLiteral);
      values.emplace_back(field, value);
    }
    return WithValues(stem, values);
  }
  return std::nullopt;
}

int Model::FindOne(Stem stem, const Packed& record, std::uint32_t* mask, RowPtr* row) {
  const std::optional<Rows> rows = Find(stem, record, mask);
  if (!rows) return 1;
  if (rows->size() != 1) return rows->empty() ? NotFound(stem) : 52;
  *row = rows->front();
  return 0;
}

}  // namespace differential
