// Browse sets: opening, moving, counting and deleting by position.
#include <algorithm>

#include "tests/differential/model.h"

namespace differential {
namespace {

constexpr int kNowhere = -2;       // as an index: after the last row
constexpr int kSearchable = 0x37;  // a search by text needs a leading field id with one of these bits

int PositionOf(const BrowseSet& set) { return set.current + 1; }

int SizeOf(const BrowseSet& set) { return static_cast<int>(set.rows.size()); }

int KeyOf(const Row& row) { return std::get<int>(row[0]); }

}  // namespace

// The row at a position as a visit shows it; null for none. Sets that hold keys show the row as stored now,
// or none when it is not stored any more; others, as all with an owner prefix, the row as last read.
RowPtr Model::Visible(Stem stem, int position) const {
  const BrowseSet& set = Set(stem);
  if (position < 1 || position > SizeOf(set)) return nullptr;
  const RowPtr& read = set.rows[static_cast<std::size_t>(position - 1)];
  if (m_options.rows_as_read) return read;
  const Rows stored = Everything(stem);
  const auto now = std::find_if(stored.begin(), stored.end(),
                                [&](const RowPtr& row) { return KeyOf(*row) == KeyOf(*read); });
  return now == stored.end() ? nullptr : *now;
}

void Model::Stand(Stem stem, int position) {
  BrowseSet& set = SetOf(stem);
  set.shown = Visible(stem, position);
  set.current = position - 1;
  set.before_first = set.after_last = false;
}

// To the first row from `position` on that is there. False when there is none.
bool Model::Walk(Stem stem, int position, int step) {
  for (; position >= 1 && position <= SizeOf(Set(stem)); position += step) {
    if (Visible(stem, position) == nullptr) continue;
    Stand(stem, position);
    return true;
  }
  return false;
}

void Model::StandOnFirst(Stem stem) {
  if (Walk(stem, 1, 1)) return;
  BrowseSet& set = SetOf(stem);
  set.current = -1;
  set.before_first = set.after_last = true;
}

// Filter and sort stay, and all else of a set that is closed.
void Model::Shut(Stem stem) {
  BrowseSet& set = SetOf(stem);
  if (!set.open) return;
  set.open = false;
  set.rows.clear();
  StandOnFirst(stem);
}

bool Model::Requery(Stem stem) {
  BrowseSet& set = SetOf(stem);
  set.changed = false;
  std::optional<Rows> rows = Takes(set.order) ? Select(stem, set.filter) : std::nullopt;
  if (!rows) {
    set.open = true;  // it fails open, and is closed then
    Shut(stem);
    return false;
  }
  set.rows = Ordered(std::move(*rows), set.order);
  set.open = true;
  StandOnFirst(stem);
  return true;
}

int Model::Open(Stem stem) { return Requery(stem) ? 0 : 31; }

int Model::RequeryIfOpen(Stem stem, int code) {
  if (!Set(stem).open) return code;
  if (code != 0 && m_untold_row && Set(stem).changed) Doubt(reason::kUntoldRow);
  // A set whose filter or order the database refuses is closed: an open one can be read again.
  if (code == 0) Requery(stem);
  if (code == 0) SetOf(stem).changed = true;
  return code;
}

int Model::MoveByPos(Stem stem, int position) {
  BrowseSet& set = SetOf(stem);
  if (Visible(stem, position) == nullptr) {
    set.current = kNowhere;
    set.after_last = true;
    return 0;
  }
  Stand(stem, position);
  return position;
}

// A single step passes over rows that are gone.
int Model::MoveByDelta(Stem stem, int delta) {
  BrowseSet& set = SetOf(stem);
  if (set.before_first || set.after_last) return 0;
  if (delta == 0) return PositionOf(set);
  const std::int64_t target = std::int64_t{set.current} + 1 + delta;
  const bool inside = target >= 1 && target <= SizeOf(set);
  const bool step = delta == 1 || delta == -1;
  const int position = static_cast<int>(inside ? target : 0);
  if (step ? Walk(stem, position, delta) : Visible(stem, position) != nullptr) {
    if (!step) Stand(stem, position);
    return PositionOf(set);
  }
  (delta < 0 ? set.before_first : set.after_last) = true;
  set.current = delta < 0 ? -1 : kNowhere;
  return 0;
}

int Model::MoveByIntID(Stem stem, int key) {
  BrowseSet& set = SetOf(stem);
  if (set.before_first) return 0;
  for (int position = 1; position <= SizeOf(set); ++position) {
    if (KeyOf(*set.rows[static_cast<std::size_t>(position - 1)]) == key &&
        Walk(stem, position, SizeOf(set))) {
      return PositionOf(set);
    }
  }
  StandOnFirst(stem);
  return PositionOf(set);
}

// Whether the leading sort key can be looked up: a text that is not empty, or a date.
bool Model::HasSeekValue(const Row& target) const {
  const std::vector<SortKey>& keys = Set(Stem::kPatEx).order.keys;
  if (keys.empty()) return false;
  const auto field = static_cast<std::size_t>(keys.front().field);
  const Kind kind = LayoutOf(Stem::kPatEx).fields[field].kind;
  if (kind == Kind::kText) return !IsNull(target[field]) && !std::get<std::string>(target[field]).empty();
  return kind == Kind::kDate;
}

// Goes to a visible patient's own place. Without a value to look up the rows are searched as in other sets.
int Model::MoveViewByIntID(int key) {
  BrowseSet& set = SetOf(Stem::kPatEx);
  const Rows joined = Everything(Stem::kPatEx);
  const auto target = std::find_if(joined.begin(), joined.end(),
                                   [key](const RowPtr& row) { return key != 0 && KeyOf(*row) == key; });
  if (target == joined.end()) return 0;
  if (!HasSeekValue(**target)) return MoveByIntID(Stem::kPatEx, key);
  if (!set.open) {
    Doubt(reason::kSearchFromNowhere);
    return 0;
  }
  for (int i = 0; i < SizeOf(set); ++i) {
    if (KeyOf(*set.rows[static_cast<std::size_t>(i)]) != key) continue;
    Stand(Stem::kPatEx, i + 1);
    return i + 1;
  }
  return SeekHidden(**target);
}

// To the row that follows in the order.
int Model::SeekHidden(const Row& target) {
  BrowseSet& set = SetOf(Stem::kPatEx);
  const std::optional<Rows> now = Select(Stem::kPatEx, set.filter);
  const auto holds_null = [&](const RowPtr& row) {
    return std::any_of(set.order.keys.begin(), set.order.keys.end(), [&](const SortKey& key) {
      const Cell& cell = (*row)[static_cast<std::size_t>(key.field)];
      return IsNull(cell) || cell == Cell(std::string());
    });
  };
  const bool certain = now && !now->empty() && std::none_of(now->begin(), now->end(), holds_null) &&
                       !holds_null(std::make_shared<const Row>(target)) &&
                       Ordered(*now, set.order) == set.rows;
  const int position = certain ? CountBefore(target) + 1 : 0;
  if (!certain || position > SizeOf(set)) {
    Doubt(reason::kHiddenPatient);
    return 0;
  }
  Stand(Stem::kPatEx, position);
  return position;
}

// Rows before the target by those sort keys that are texts or dates; a number or a time ends the comparison.
int Model::CountBefore(const Row& target) {
  const Layout& layout = LayoutOf(Stem::kPatEx);
  Order order;
  for (const SortKey& key : Set(Stem::kPatEx).order.keys) {
    const Kind kind = layout.fields[static_cast<std::size_t>(key.field)].kind;
    if (kind != Kind::kText && kind != Kind::kDate) break;
    order.keys.push_back(key);
  }
  int before = 0;
  for (const RowPtr& row : Set(Stem::kPatEx).rows) before += CompareForOrder(*row, target, order) < 0 ? 1 : 0;
  return before;
}

int Model::MoveByString(Stem stem, const Cell& text) {
  BrowseSet& set = SetOf(stem);
  const int id = set.sort_index & 0x7F;
  if ((id & kSearchable) == 0) return 0;
  const int field = FieldOfId(stem, id);
  if (TypeOfId(id) != ValueType::kText) {
    Doubt(reason::kSearchesNoText);
    return 0;
  }
  if (!set.open || set.before_first || set.rows.empty()) {
    Doubt(reason::kSearchFromNowhere);
    return 0;
  }
  const std::optional<Rows> rows = Select(stem, set.filter);
  int smaller = 0;
  for (const RowPtr& row : *rows) {
    const Cell& cell = (*row)[static_cast<std::size_t>(field)];
    smaller += !IsNull(cell) && Compare(cell, text) < 0 ? 1 : 0;
  }
  if (smaller > 0 && MoveByPos(stem, smaller + 1) != 0) return PositionOf(set);
  StandOnFirst(stem);
  return smaller > 0 ? 0 : PositionOf(set);
}

// Without an owner prefix the database counts what it holds now; with one, the rows read are counted.
Answer Model::MaxPos(Stem stem, bool no_output) {
  BrowseSet& set = SetOf(stem);
  if (no_output) return {1, {}};
  int count = 0;
  int result = 0;
  if (!m_options.owner.empty()) {
    if (!set.before_first && set.after_last) Doubt(reason::kCountBehindEnd);
    count = set.before_first ? 0 : SizeOf(set);
  } else {
    const std::optional<Rows> rows = Select(stem, set.filter);
    count = rows ? static_cast<int>(rows->size()) : 0;
    result = rows ? 0 : 31;
  }
  return {result, std::string(reinterpret_cast<const char*>(&count), sizeof count)};
}

int Model::DeleteByPos(Stem stem, int position) {
  BrowseSet& set = SetOf(stem);
  // A row that the set has, but the table has not any more, cannot be deleted.
  if (position != 0 && MoveByPos(stem, position) == 0)
    return position >= 1 && position <= SizeOf(set) ? 8 : 64;
  if (set.before_first || set.after_last) return 64;
  const RowPtr row = set.shown;
  if (FoundByKey(stem, KeyOf(*row)).empty()) {
    if (m_options.full_names_are_tables) Doubt(reason::kGoneRowOfView);
    return 8;
  }
  Erase(stem, KeyOf(*row));
  set.rows.erase(set.rows.begin() + set.current);
  if (!Walk(stem, set.current + 1, 1) && !Walk(stem, SizeOf(set), -1)) StandOnFirst(stem);
  if (stem == Stem::kImg) RefreshLastDisplay(std::get<int>((*row)[1]));
  return 0;
}

// The row at the position, or the current one for 0.
int Model::Show(Stem stem, int position, RowPtr* row) {
  BrowseSet& set = SetOf(stem);
  if (position != 0) MoveByPos(stem, position);
  if (set.before_first || set.after_last) return 64;
  *row = set.shown;
  return 0;
}

}  // namespace differential
