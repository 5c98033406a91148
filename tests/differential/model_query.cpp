// Filters and orders: which rows, in which order.
#include <algorithm>

#include "tests/differential/model.h"

namespace differential {
namespace {

constexpr int kOr = 0x80, kDescending = 0x80, kIdBits = 0x7F;
constexpr int kAtLeast = 2, kAbove = 3, kAtMost = 4, kBelow = 5, kOther = 7, kLike = 16, kBetween = 17;

int ByteOf(int word, int i) { return static_cast<int>((static_cast<std::uint32_t>(word) >> (8 * i)) & 0xFF); }

bool Decides(int op, int compared) {
  switch (op) {
    case kAtLeast:
      return compared >= 0;
    case kAbove:
      return compared > 0;
    case kAtMost:
      return compared <= 0;
    case kBelow:
      return compared < 0;
    case kOther:
      return compared != 0;
    default:
      return compared == 0;
  }
}

bool IsMoment(ValueType type) { return type == ValueType::kDate || type == ValueType::kTime; }

}  // namespace

Rows Model::Everything(Stem stem) const {
  if (stem != Stem::kPatEx) return TableOf(stem).rows;
  Rows joined;
  for (const RowPtr& patient : TableOf(Stem::kPat).rows) {
    for (const RowPtr& doctor : TableOf(Stem::kDr).rows) {
      if ((*patient)[1] != (*doctor)[0]) continue;
      Row row = *patient;
      row.push_back((*doctor)[1]);
      joined.push_back(std::make_shared<const Row>(std::move(row)));
    }
  }
  return joined;
}

// Nothing stands for SQL's "unknown".
std::optional<bool> Model::Holds(Stem stem, const Row& row, const Clause& clause) {
  const Cell& cell = row[static_cast<std::size_t>(clause.field)];
  if (IsNull(cell)) return std::nullopt;
  if (clause.op == kLike) {
    const auto* const text = std::get_if<std::string>(&cell);
    const auto* const pattern = std::get_if<std::string>(&clause.value);
    if (text == nullptr || pattern == nullptr) return std::nullopt;  // doubted by CheckLiterals
    return Like(*text, *pattern, m_options.facts.like_ignores_case);
  }
  const Kind kind = LayoutOf(stem).fields[static_cast<std::size_t>(clause.field)].kind;
  const auto against = [&](const Cell& value) {
    const int compared = Compare(cell, value);
    const bool midnight = clause.date_literal && kind == Kind::kTime && compared == 0;
    return midnight && m_options.facts.midnight_after_date ? 1 : compared;
  };
  if (clause.op != kBetween) return Decides(clause.op, against(clause.value));
  return against(clause.value) >= 0 && against(clause.upper) <= 0;
}

// AND binds closer than OR. A row is taken when the whole is true, so "unknown" counts as false throughout.
bool Model::Matches(Stem stem, const Row& row, const Filter& filter) {
  bool any = filter.clauses.empty();
  bool all = true;
  for (std::size_t i = 0; i < filter.clauses.size(); ++i) {
    if (i > 0 && filter.clauses[i].joined_by_or) {
      any = any || all;
      all = true;
    }
    all = Holds(stem, row, filter.clauses[i]).value_or(false) && all;
  }
  return any || all;
}

int Model::CompareForOrder(const Row& left, const Row& right, const Order& order) const {
  for (const SortKey& key : order.keys) {
    const Cell& a = left[static_cast<std::size_t>(key.field)];
    const Cell& b = right[static_cast<std::size_t>(key.field)];
    int compared = 0;
    if (IsNull(a) || IsNull(b)) {
      compared = IsNull(a) == IsNull(b) ? 0 : IsNull(a) == m_options.facts.nulls_last ? 1 : -1;
    } else {
      compared = Compare(a, b);
    }
    if (compared != 0) return key.descending ? -compared : compared;
  }
  return 0;
}

Rows Model::Ordered(Rows rows, const Order& order) {
  std::stable_sort(rows.begin(), rows.end(), [&](const RowPtr& left, const RowPtr& right) {
    return CompareForOrder(*left, *right, order) < 0;
  });
  for (std::size_t i = 1; i < rows.size(); ++i) {
    if (CompareForOrder(*rows[i - 1], *rows[i], order) == 0) Doubt(reason::kNoOrder);
  }
  return rows;
}

// In no order; nothing when the database refuses the filter.
std::optional<Rows> Model::Select(Stem stem, const Filter& filter) {
  if (!Takes(filter)) return std::nullopt;
  Rows selected;
  for (const RowPtr& row : Everything(stem)) {
    if (Matches(stem, *row, filter)) selected.push_back(row);
  }
  return selected;
}

void Model::CheckLiterals(ValueType type, Clause* clause) {
  if (clause->op == kLike && type != ValueType::kText) Doubt(reason::kPatternOfNoText);
  if (clause->op == kLike && type == ValueType::kText &&
      std::get<std::string>(clause->value).find('\\') != std::string::npos) {
    Doubt(reason::kBackslashPattern);
  }
  for (Cell* cell : {&clause->value, &clause->upper}) {
    Time* time = std::get_if<Time>(cell);
    if (time == nullptr) continue;
    if (clause->date_literal) *time = DateOf(*time);
    if (!IsPossible(*time)) Doubt(reason::kImpossibleLiteral);
  }
}

int Model::SetFilter(const Call& call) {
  Filter filter;
  filter.broken = true;  // until a clause is there
  int result = 0;
  for (int i = 0; i < 4; ++i) {
    const int id = ByteOf(call.a, i) & kIdBits;
    if (id == 0) break;
    const int field = FieldOfId(call.stem, id);
    const ValueType type = TypeOfId(id);
    const int op = ByteOf(call.b, i) & kIdBits;
    const bool two = op == kBetween;
    const Cell& value = call.operands[static_cast<std::size_t>(i)];
    if (field == kUnknownField || type == ValueType::kNone) {
      result = 1;
      break;
    }
    if (IsNull(value) || (two && (!IsMoment(type) || i == 3))) {
      result = 1;
      if (two && IsMoment(type)) break;
      continue;
    }
    Clause clause{(ByteOf(call.a, i) & kOr) != 0, field, op, value, {}, type == ValueType::kDate};
    if (two) {
      clause.upper = call.operands[static_cast<std::size_t>(++i)];
      if (IsNull(clause.upper)) result = 1;
    }
    CheckLiterals(type, &clause);
    filter.missing_column = filter.missing_column || field == kMissingColumn;
    filter.broken = false;
    filter.clauses.push_back(clause);
  }
  BrowseSet& set = SetOf(call.stem);
  if (result != 0) {
    if (call.stem == Stem::kPatEx) set.filter = {};
    return result;
  }
  set.filter = filter;
  return set.open && !Requery(call.stem) ? 31 : 0;
}

int Model::SetSort(Stem stem, int index) {
  BrowseSet& set = SetOf(stem);
  if (index == set.sort_index) return 0;
  set.order = {};
  for (int i = 0; i < 4; ++i) {
    const int id = ByteOf(index, i) & kIdBits;
    const int field = FieldOfId(stem, id);
    if (field == kUnknownField) {
      if (i == 0) return 1;
      // A comma was written before the unknown name was looked up.
      set.order.broken = id != 0;
      break;
    }
    set.order.missing_column = set.order.missing_column || field == kMissingColumn;
    set.order.keys.push_back({field, (ByteOf(index, i) & kDescending) != 0});
  }
  set.sort_index = index;
  return set.open && !Requery(stem) ? 31 : 0;
}

}  // namespace differential
