// The arguments of each kind of call.
#include <algorithm>

#include "tests/differential/flat_calls.h"
#include "tests/differential/generator.h"

namespace differential {
namespace {

constexpr int kKeyId = 1, kLike = 16, kBetween = 17, kOr = 0x80, kDescending = 0x80;

int Pack(const std::vector<int>& bytes) {
  std::uint32_t word = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) word |= static_cast<std::uint32_t>(bytes[i]) << (8 * i);
  return static_cast<int>(word);
}

bool IsMoment(ValueType type) { return type == ValueType::kDate || type == ValueType::kTime; }

}  // namespace

int Generator::PositionIn(Stem stem) {
  const int rows = static_cast<int>(m_models.back().Set(stem).rows.size());
  if (rows > 0 && Chance(85)) return 1 + Below(rows);
  return Pick(std::vector<int>{0, 0, 1, rows, rows + 1, -1, 1'000'000});
}

Call Generator::Browse(Stem stem, Verb verb) {
  Call call{.verb = verb, .stem = stem};
  switch (verb) {
    case Verb::kMoveByPos:
    case Verb::kDeleteByPos:
    case Verb::kGetByPos:
      call.a = PositionIn(stem);
      break;
    case Verb::kMoveByDelta:
      call.a = Pick(std::vector<int>{1, 1, 1, -1, -1, 0, 2, 3, 5, -2, -3, -5, 40, -40, 2'000'000'000});
      break;
    case Verb::kMoveByIntID:
      call.a = SomeKey(stem == Stem::kImg ? Stem::kImg : Stem::kPat);
      break;
    case Verb::kMoveByString:
      call.operands[0] = AnyText();
      break;
    case Verb::kSetFilter:
      return FilterOf(stem);
    case Verb::kSetSort:
      return SortOf(stem);
    case Verb::kMaxPos:
    case Verb::kGetLastID:
      call.null_first = Chance(2);
      break;
    case Verb::kGetNum: {
      const bool has_parent =
          stem == Stem::kImg || stem == Stem::kMak || stem == Stem::kGrp || stem == Stem::kTest;
      if (has_parent && Chance(80)) call.a = SomeKey(ReferredBy(stem, LayoutOf(stem).fields[1].name));
      call.null_first = Chance(2);
      break;
    }
    case Verb::kGetLastDate:
      if (Chance(80)) call.a = SomeKey(ReferredBy(stem, LayoutOf(stem).fields[1].name));
      call.null_first = Chance(30);
      call.null_second = Chance(20);
      break;
    default:
      break;
  }
  return call;
}

// A value that a row holds, or one like it.
Cell Generator::OperandOf(Stem stem, int id, bool pattern) {
  const int field = FieldOfId(stem, id);
  const Rows& rows =
      stem == Stem::kPatEx ? m_models.back().TableOf(Stem::kPat).rows : m_models.back().TableOf(stem).rows;
  Cell value;
  if (field >= 0 && !rows.empty() && Chance(80)) {
    const Row& row = *Pick(rows);
    if (static_cast<std::size_t>(field) < row.size()) value = row[static_cast<std::size_t>(field)];
  }
  switch (TypeOfId(id)) {
    case ValueType::kInteger:
      return IsNull(value) ? Cell(Below(40)) : value;
    case ValueType::kText: {
      std::string text = IsNull(value) ? AnyText() : std::get<std::string>(value);
      if (!pattern) return text;
      const std::string begin = Cut(text, 1 + static_cast<std::size_t>(Below(4)));
      return Pick(
          std::vector<std::string>{begin + "%", "%" + begin + "%", "_" + begin, begin + "_%", "%", text});
    }
    default:
      return IsNull(value) ? Cell(SomeTime()) : value;
  }
}

Call Generator::FilterOf(Stem stem) {
  Call call{.verb = Verb::kSetFilter, .stem = stem};
  if (Chance(25)) {
    // All rows.
    call.a = kKeyId;
    call.b = 3;
    call.operands[0] = 0;
    return call;
  }
  const std::vector<int> known = KnownIds(stem);
  std::vector<int> ids, operators;
  const std::size_t clauses = 1 + static_cast<std::size_t>(Below(4));
  while (ids.size() < clauses) {
    const int id = Chance(97) ? Pick(known) : Below(128);
    const ValueType type = TypeOfId(id);
    int op = Pick(std::vector<int>{0, 2, 3, 4, 5, 7, 1, 6});
    if (type == ValueType::kText && Chance(50)) op = kLike;
    if (IsMoment(type) && Chance(40)) op = kBetween;
    if (Chance(1)) op = kBetween;
    call.operands[ids.size()] = OperandOf(stem, id, op == kLike);
    if (Chance(1)) call.operands[ids.size()] = {};
    ids.push_back(id + (Chance(40) ? kOr : 0));
    operators.push_back(op);
    if (op == kBetween && ids.size() < 4) {
      call.operands[ids.size()] = OperandOf(stem, id, false);
      ids.push_back(0);
      operators.push_back(0);
    }
  }
  if (Chance(1)) ids.assign(1, 0);
  call.a = Pack(ids);
  call.b = Pack(operators);
  return call;
}

// The key comes last, so that every row has a place of its own.
Call Generator::SortOf(Stem stem) {
  Call call{.verb = Verb::kSetSort, .stem = stem};
  if (Chance(3)) {
    call.a = Pick(std::vector<int>{0, 18, 127, 60});
    return call;
  }
  const std::vector<int> known = KnownIds(stem);
  std::vector<int> ids;
  const bool by_text = (stem == Stem::kPat || stem == Stem::kPatEx) && Chance(70);
  if (by_text) ids.push_back(Pick(std::vector<int>{17, 19, 22, 49, 50, 51, 52, 53}));
  for (int more = Below(3); more > 0; --more) ids.push_back(Pick(known));
  // The column that images do not have closes the set.
  if (stem == Stem::kImg && !Chance(3)) std::erase(ids, 5);
  ids.push_back(kKeyId);
  for (int& id : ids) id += Chance(by_text ? 10 : 35) ? kDescending : 0;
  call.a = Pack(ids);
  return call;
}

Call Generator::Change(Stem stem, Verb verb) {
  Call call{.verb = verb, .stem = stem};
  if (Chance(1)) {
    call.null_first = true;
    return call;
  }
  Packed record = verb == Verb::kAddNew ? FreshRecord(stem) : StoredRecord(stem);
  const int fields = static_cast<int>(record.Shape().fields.size());
  if (verb == Verb::kEdit || verb == Verb::kEditSel) {
    for (int changes = 1 + Below(3); changes > 0; --changes) Vary(&record, 1 + Below(fields - 1));
  }
  call.record = record.Bytes();
  if (verb == Verb::kEditSel) {
    call.b = Chance(40) ? -1 : Chance(70) ? static_cast<int>(m_random() & m_random()) : 1 << Below(fields);
  }
  return call;
}

Call Generator::SettingCall() {
  const std::vector<std::string> keys = {
      "Theme", "Theme ", "Größe", "A key that is longer than 24", "A key that is longer than 24!",
      "O'Key", "",       "DBMS2"};
  const std::vector<std::string> values = {"12",
                                           "12abc",
                                           "-7",
                                           "",
                                           "dark",
                                           "Grüße aus Köln",
                                           "0",
                                           std::string(127, 'v') + "ü",
                                           std::string(140, 'w')};
  Call call{
      .verb = Pick(std::vector<Verb>{Verb::kGetString, Verb::kWriteString, Verb::kGetInt, Verb::kWriteInt})};
  call.operands[0] = Pick(keys);
  std::string station = "-";
  const Rows& stations = m_models.back().TableOf(Stem::kStat).rows;
  if (!stations.empty() && Chance(40)) {
    const Cell& name = Pick(stations)->at(1);
    if (!IsNull(name)) station = std::get<std::string>(name);
  }
  call.operands[1] = Chance(95) ? station : AnyText();
  if (Chance(2)) call.operands[static_cast<std::size_t>(Below(2))] = {};
  if (call.verb == Verb::kGetInt || call.verb == Verb::kWriteInt) {
    call.b = Pick(std::vector<int>{0, 1, -1, 2'147'483'647, 4711});
    call.null_first = call.verb == Verb::kGetInt && Chance(3);
    return call;
  }
  if (!Chance(2)) call.operands[2] = Pick(values);
  if (call.verb == Verb::kGetString) {
    call.a = Pick(std::vector<int>{129, 129, 64, 5, 2, 1, 0});
    call.null_first = Chance(2);
    call.null_second = Chance(20);
  }
  return call;
}

Call Generator::PatientCall() {
  Call call{.verb =
                Pick(std::vector<Verb>{Verb::kAddPat, Verb::kAddPat, Verb::kEditPat, Verb::kEditSelPat,
                                       Verb::kDeletePat, Verb::kGetPat, Verb::kGetPat, Verb::kGetPatByPos})};
  call.stem = Stem::kPat;
  if (call.verb == Verb::kGetPatByPos) {
    call.a = PositionIn(Stem::kPatEx);
    return call;
  }
  if (call.verb == Verb::kEditSelPat) call.b = Chance(40) ? -1 : static_cast<int>(m_random() & 0xFFF);
  call.null_first = Chance(1);
  if (!call.null_first) call.record = CompactPatient().Bytes();
  return call;
}

Call Generator::UnitCall() {
  Call call{.verb = Pick(std::vector<Verb>{Verb::kAddUnit, Verb::kAddUnit, Verb::kEditUnit,
                                           Verb::kEditSelUnit, Verb::kDeleteUnit, Verb::kGetUnit,
                                           Verb::kGetUnit, Verb::kGetUnitByPos})};
  call.stem = Stem::kUnit;
  if (call.verb == Verb::kGetUnitByPos) {
    call.a = PositionIn(Stem::kUnit);
    return call;
  }
  if (call.verb == Verb::kEditSelUnit) call.b = Chance(40) ? -1 : static_cast<int>(m_random() & 0x3FF);
  call.null_first = Chance(1);
  if (!call.null_first) call.record = CompactUnit().Bytes();
  return call;
}

Call Generator::ConnectionCall() {
  const bool pending = m_models.back().InTransaction();
  const int what = Below(100);
  if (what < 55) {
    if (!pending) return {.verb = Chance(90) ? Verb::kBegin : Verb::kCommit};
    return {.verb = Pick(std::vector<Verb>{Verb::kCommit, Verb::kRollback, Verb::kRollback, Verb::kBegin})};
  }
  if (what < 58) return {.verb = Verb::kCloseDatabase};
  if (what < 62) return {.verb = Verb::kInit};
  const Verb verb = Pick(std::vector<Verb>{Verb::kIsDatabaseOpen, Verb::kCheckVersion, Verb::kGetVersion,
                                           Verb::kGetDbms, Verb::kGetOwner});
  if (verb == Verb::kCheckVersion) return {.verb = verb, .a = 258 + Below(8)};
  if (verb == Verb::kGetDbms || verb == Verb::kGetOwner) return {.verb = verb, .a = 1 + Below(12)};
  return {.verb = verb};
}

}  // namespace differential
