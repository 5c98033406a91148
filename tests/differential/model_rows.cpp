// Single rows: found by key or natural key, added, edited, deleted, read and counted.
#include <algorithm>

#include "tests/differential/model.h"

namespace differential {
namespace {

constexpr std::uint32_t kAll = 0xFFFFFFFF;
constexpr std::uint32_t kPatientEntry = 0x400, kPatientDisplayId = 0x800, kPatientLastDisplay = 0x1000;
constexpr std::uint32_t kImageTime = 0x40, kMakroTime = 0x4;

bool IsProtectedTable(Stem stem) { return stem == Stem::kDr || stem == Stem::kStat || stem == Stem::kUnit; }

bool IsProtected(Stem stem, const Row& row) {
  if (!IsProtectedTable(stem)) return false;
  const Cell& name = row[static_cast<std::size_t>(LayoutOf(stem).Index("szName"))];
  return row[0] == Cell(1) || name == Cell(std::string("-"));
}

// Groups, images and tests lie at a place that the library gives them.
bool HasPlace(Stem stem) { return stem == Stem::kGrp || stem == Stem::kImg || stem == Stem::kTest; }

// As a set's member reads it.
Cell Read(const Cell& cell, Kind kind) {
  if (!IsNull(cell)) return cell;
  if (kind == Kind::kText) return std::string();
  if (kind == Kind::kDate || kind == Kind::kTime) return Time{};
  return 0;
}

bool IsStorable(const Row& row) {
  return std::all_of(row.begin(), row.end(), [](const Cell& cell) {
    const Time* time = std::get_if<Time>(&cell);
    return time == nullptr || IsPossible(*time);
  });
}

// The field that says to which patient, image or unit a row belongs.
constexpr std::size_t kParent = 1;

std::string Bytes(int number) { return {reinterpret_cast<const char*>(&number), sizeof number}; }

}  // namespace

int NotFound(Stem stem) {
  switch (stem) {
    case Stem::kImg:
      return 65;
    case Stem::kTest:
      return 67;
    case Stem::kUnit:
      return 66;
    case Stem::kPat:
    case Stem::kPatEx:
      return 21;
    default:
      return 64;
  }
}

void CopyOut(const Row& row, Packed* record) {
  for (std::size_t i = 0; i < row.size(); ++i) record->Set(static_cast<int>(i), row[i]);
}

// Bit by bit. In an edit a value that the row reads as already stays as it is stored, so NULL stays NULL.
void Model::CopyIn(Stem stem, const Packed& record, std::uint32_t mask, bool adding, Row* row) const {
  const Layout& layout = LayoutOf(stem);
  for (std::size_t i = 1; i < layout.fields.size(); ++i) {
    const Field& field = layout.fields[i];
    if ((mask & field.bit) == 0) continue;
    Cell value = record.Value(static_cast<int>(i));
    if (!adding && Read((*row)[i], field.kind) == value) continue;
    const Time* time = std::get_if<Time>(&value);
    if (time != nullptr && IsZero(*time)) {
      value = {};
    } else if (time != nullptr && field.kind == Kind::kDate) {
      value = DateOf(*time);
    }
    (*row)[i] = value;
  }
}

bool Model::Insert(Stem stem, Row row) {
  if (!IsStorable(row)) return false;
  Table& table = Stored(stem);
  row[0] = table.next_key++;
  table.rows.push_back(std::make_shared<const Row>(std::move(row)));
  return true;
}

bool Model::Replace(Stem stem, const Row& row) {
  if (!IsStorable(row)) return false;
  for (RowPtr& stored : Stored(stem).rows) {
    if ((*stored)[0] == row[0]) stored = std::make_shared<const Row>(row);
  }
  return true;
}

void Model::Erase(Stem stem, int key) {
  std::erase_if(Stored(stem).rows, [key](const RowPtr& row) { return (*row)[0] == Cell(key); });
}

int Model::AddNew(Stem stem, Packed* record) {
  Packed completed = *record;
  completed.SetNumber(0, 0);
  if (HasPlace(stem)) {
    if (!record->Text("szLoc").empty()) return 1;
    completed.SetText("szLoc", "9");
  }
  Row row(LayoutOf(stem).fields.size());
  CopyIn(stem, completed, kAll, true, &row);
  if (stem == Stem::kMak) row[3] = TimeOf(m_now);
  if (stem == Stem::kPat) DerivePatient(kAll, true, &row);
  if (!IsStorable(row)) return 6;
  std::uint32_t unused = kAll;
  std::optional<Rows> replaced;
  if (stem == Stem::kImg) replaced = Find(stem, completed, &unused);
  for (const RowPtr& old : replaced.value_or(Rows())) Erase(stem, std::get<int>((*old)[0]));
  Insert(stem, row);
  if (stem == Stem::kDiag) return 0;
  *record = completed;
  RowPtr added;
  const int code = FindOne(stem, completed, &unused, &added);
  m_untold_row = code != 0;
  if (code != 0) return code;
  CopyOut(*added, record);
  if (stem == Stem::kImg) RefreshLastDisplay(record->Number("lPatID"));
  return 0;
}

// On the row with the record's fields already in it.
void Model::DerivePatient(std::uint32_t mask, bool adding, Row* row) {
  const Layout& layout = LayoutOf(Stem::kPat);
  const auto cell = [&](const char* name) -> Cell& {
    return (*row)[static_cast<std::size_t>(layout.Index(name))];
  };
  const auto empty = [](const Cell& text) { return IsNull(text) || std::get<std::string>(text).empty(); };
  if (adding) {
    cell("dEntry") = DateOf(TimeOf(m_now));
    cell("tsLastDisp") = cell("dEntry");
  } else if ((mask & kPatientLastDisplay) != 0) {
    const RowPtr newest = Newest(Stem::kImg, std::get<int>((*row)[0]), nullptr);
    const std::size_t time = static_cast<std::size_t>(LayoutOf(Stem::kImg).Index("ts"));
    cell("tsLastDisp") = newest ? (*newest)[time] : cell("dEntry");
  }
  if ((mask & kPatientDisplayId) == 0) return;
  Cell& slida = cell("szSlidaID");
  Cell& external = cell("szExtPatID");
  if (!empty(slida)) {
    cell("szIDDisp") = slida;
    return;
  }
  slida = {};
  cell("szIDDisp") = empty(external) ? Cell(std::string()) : external;
  if (empty(external)) external = {};
}

int Model::EditSel(Stem stem, Packed* record, std::uint32_t mask) {
  if (stem == Stem::kTest && record->Text("szPerson").empty()) record->SetText("szPerson", "?");
  RowPtr found;
  const int code = FindOne(stem, *record, &mask, &found);
  if (code != 0) return code;
  if (IsProtected(stem, *found)) return 8;
  Row row = *found;
  if (stem == Stem::kPat) {
    mask &= ~kPatientEntry;
    if ((mask & (0x2 | 0x8)) != 0) mask |= kPatientDisplayId;
    // These two are derived, never taken from the record.
    CopyIn(stem, *record, mask & ~(kPatientDisplayId | kPatientLastDisplay), false, &row);
    DerivePatient(mask, false, &row);
  } else if (stem == Stem::kMak) {
    CopyIn(stem, *record, mask & ~kMakroTime, false, &row);
    if ((mask & kMakroTime) != 0) row[3] = TimeOf(m_now);
  } else {
    CopyIn(stem, *record, mask, false, &row);
  }
  if (!Replace(stem, row)) return 6;
  record->SetNumber(0, std::get<int>(row[0]));
  if (stem == Stem::kImg && (mask & kImageTime) != 0) RefreshLastDisplay(record->Number("lPatID"));
  return 0;
}

int Model::Delete(Stem stem, const Packed& record) {
  std::uint32_t unused = kAll;
  RowPtr found;
  const int code = FindOne(stem, record, &unused, &found);
  if (code == 1 && stem == Stem::kPat && record.Number("lSelect") != 0) {
    const Rows selected = WithValues(stem, {
                                               {"lSelect", 1}
    });
    for (const RowPtr& row : selected) Erase(stem, std::get<int>((*row)[0]));
    return selected.empty() ? 21 : 0;
  }
  if (code != 0) return code;
  if (IsProtected(stem, *found)) return 8;
  Erase(stem, std::get<int>((*found)[0]));
  if (stem == Stem::kImg) RefreshLastDisplay(record.Number("lPatID"));
  return 0;
}

int Model::Get(Stem stem, Packed* record) {
  if (stem == Stem::kPatEx) return GetJoined(record);
  std::uint32_t unused = kAll;
  RowPtr found;
  const int code = FindOne(stem, *record, &unused, &found);
  if (code == 0) CopyOut(*found, record);
  return code;
}

// An image came, went or moved: its patient was last shown at the time of the newest one.
void Model::RefreshLastDisplay(int patient) {
  if (patient == 0) return;
  Packed record = Packed::Empty(Stem::kPat);
  record.SetNumber("lPatID", patient);
  EditSel(Stem::kPat, &record, kPatientLastDisplay);
}

RowPtr Model::Newest(Stem stem, int parent, bool* tie) const {
  const int time = stem == Stem::kMak ? 3 : LayoutOf(stem).Index("ts");
  const Order order{.keys = {{time, true}}};
  RowPtr newest;
  for (const RowPtr& row : TableOf(stem).rows) {
    if (parent != 0 && (*row)[kParent] != Cell(parent)) continue;
    const int compared = newest ? CompareForOrder(*row, *newest, order) : -1;
    if (tie != nullptr && compared <= 0) *tie = compared == 0;
    if (compared < 0) newest = row;
  }
  return newest;
}

Answer Model::LastDate(const Call& call) {
  Packed none(call.stem);
  const int time = call.stem == Stem::kMak ? 3 : LayoutOf(call.stem).Index("ts");
  std::string key(sizeof(int), kUntouched);
  const std::size_t at = LayoutOf(call.stem).fields[static_cast<std::size_t>(time)].offset;
  bool tie = false;
  const RowPtr newest = Newest(call.stem, call.a, &tie);
  if (newest) {
    if (tie && !call.null_first) Doubt(reason::kNewestTie);
    if (!call.null_first) key = Bytes(std::get<int>((*newest)[0]));
    if (!call.null_second) none.Set(time, (*newest)[static_cast<std::size_t>(time)]);
  }
  return {newest ? 0 : NotFound(call.stem), key + none.Bytes().substr(at, 16)};
}

// Of the table as it is, whatever the set shows.
Answer Model::Count(const Call& call) {
  const bool has_parent = call.stem == Stem::kImg || call.stem == Stem::kMak || call.stem == Stem::kGrp ||
                          call.stem == Stem::kTest;
  if (call.null_first) return {has_parent ? 1 : 0, {}};
  int count = 0;
  for (const RowPtr& row : Everything(call.stem)) {
    count += !has_parent || call.a == 0 || (*row)[kParent] == Cell(call.a);
  }
  return {0, Bytes(count)};
}

// Browse sets that show the change at once.
int Model::AfterChange(Stem stem, int code, std::uint32_t mask, bool editing) {
  code = RequeryIfOpen(stem, code);
  const bool shown_in_view = stem == Stem::kPat || (stem == Stem::kDr && editing && (mask & 1) != 0);
  return shown_in_view ? RequeryIfOpen(Stem::kPatEx, code) : code;
}

}  // namespace differential
