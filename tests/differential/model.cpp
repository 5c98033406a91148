// Which part of the model answers which call; connection, transactions and information.
#include "tests/differential/model.h"

#include <ctime>

namespace differential {
namespace {

constexpr int kNoConnection = 3;
constexpr int kInterfaceVersion = 261;

std::string Bytes(int number) { return {reinterpret_cast<const char*>(&number), sizeof number}; }

std::string BytesOf(double number) { return {reinterpret_cast<const char*>(&number), sizeof number}; }

// A call that writes a number, a key and time, or a record, and fails before it does.
std::string Untouched(const Call& call) {
  if (TakesRecord(call.verb)) return call.null_first ? std::string() : call.record;
  if (FillsRecord(call.verb)) return call.null_first ? std::string() : Packed(RecordStem(call)).Bytes();
  if (call.verb == Verb::kGetLastDate) return std::string(sizeof(int) + 16, kUntouched);
  const bool counts =
      call.verb == Verb::kMaxPos || call.verb == Verb::kGetNum || call.verb == Verb::kGetLastID;
  return std::string(counts && !call.null_first ? sizeof(int) : 0, kUntouched);
}

// Calls that show or need where an open set stands.
bool Looks(Verb verb) {
  return verb == Verb::kIndexPos || verb == Verb::kMoveByPos || verb == Verb::kMoveByDelta ||
         verb == Verb::kMoveByIntID || verb == Verb::kMoveByString || verb == Verb::kDeleteByPos ||
         verb == Verb::kGetByPos;
}

}  // namespace

Time TimeOf(int seconds) {
  const std::time_t time = seconds;
  std::tm parts{};
  gmtime_r(&time, &parts);
  return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}

Model::Model(const ModelOptions& options) : m_options(options) {
  Insert(Stem::kDr, {{}, std::string("-"), {}});
  Insert(Stem::kStat, {{}, std::string("-")});
  Row unit(LayoutOf(Stem::kUnit).fields.size());
  unit[1] = unit[2] = std::string("-");
  Insert(Stem::kUnit, unit);
  Insert(Stem::kCfg, {{}, 1, 1, std::string("DBVersion"), std::string("4.0")});
  Insert(Stem::kCfg, {{}, 1, 1, std::string("DBMS"), std::string("Practice")});
}

int Model::Initialise() {
  m_known_owner = m_options.owner;
  if (m_connected) return kNoConnection;
  m_connected = true;
  m_sets = {};
  const std::string version = Setting(std::string("DBVersion"), std::string("-"), "0.0");
  if (version != "4.0" && version != "0.0") Doubt(reason::kChangedVersion);
  m_has_version = version == "4.0";
  m_dbms = Setting(std::string("DBMS"), std::string("-"), "Unknown");
  return 0;
}

int Model::CloseConnection() {
  if (m_saved) EndTransaction(false);
  m_connected = false;
  m_sets = {};
  return 0;
}

// Sets keep the rows they have read. Keys given away in a transaction that is rolled back are not given
// again.
int Model::EndTransaction(bool keep) {
  if (!m_saved) return 1;
  for (std::size_t i = 0; i < m_tables.size() && !keep; ++i) m_tables[i].rows = (*m_saved)[i].rows;
  m_saved.reset();
  return 0;
}

// a: size of the buffer.
Answer Model::GetText(const Call& call, const std::string& text) const {
  std::string buffer(static_cast<std::size_t>(call.a), kUntouched);
  if (call.null_first) return {1, buffer};
  const std::string cut = Cut(text, buffer.size() - 1);
  buffer.replace(0, cut.size() + 1, cut + '\0');
  return {text.size() >= buffer.size() ? 1 : 0, buffer};
}

Answer Model::Run(const Call& call) {
  m_untold_row = false;
  switch (call.verb) {
    case Verb::kClock:
      m_now = call.a;
      return {};
    case Verb::kInit:
      return {Initialise(), {}};
    case Verb::kCloseDatabase:
      return {CloseConnection(), {}};
    case Verb::kIsDatabaseOpen:
      return {m_connected ? 1 : 0, {}};
    case Verb::kCheckVersion:
      return {call.a <= kInterfaceVersion ? 1 : 0, Bytes(kInterfaceVersion).substr(0, 2)};
    case Verb::kGetVersion:
      return {0, BytesOf(m_has_version ? 4.0 : 0.0)};
    case Verb::kGetDbms:
      return GetText(call, m_dbms);
    case Verb::kGetOwner:
      return GetText(call, m_known_owner);
    case Verb::kGetString:
      return GetString(call);
    case Verb::kGetInt:
      return GetInt(call);
    case Verb::kWriteString:
      return {WriteString(call.operands[0], call.operands[1], call.operands[2]), {}};
    case Verb::kWriteInt:
      return {WriteString(call.operands[0], call.operands[1], std::to_string(call.b)), {}};
    default:
      break;
  }
  if (!m_connected) return RunUnconnected(call);
  switch (call.verb) {
    case Verb::kBegin:
      if (m_saved) return {1, {}};
      m_saved = m_tables;
      return {};
    case Verb::kCommit:
      return {EndTransaction(true), {}};
    case Verb::kRollback:
      return {EndTransaction(false), {}};
    default:
      return NameOf(call.verb).has_stem ? RunTable(call) : RunCompact(call);
  }
}

Answer Model::RunUnconnected(const Call& call) {
  if (call.verb == Verb::kEditSel || call.verb == Verb::kEdit || call.null_first)
    Doubt(reason::kRecordUnconnected);
  return {ReturnsCode(call.verb) ? kNoConnection : 0, Untouched(call)};
}

Answer Model::RunCompact(const Call& call) {
  if (call.null_first) return {1, {}};
  Packed record = FillsRecord(call.verb) ? Packed(Stem::kCompact) : Packed(Stem::kCompact, call.record);
  const bool unit = call.verb >= Verb::kAddUnit;
  const int code = unit ? RunUnit(call, &record) : RunPatient(call, &record);
  return {code, record.Bytes()};
}

Answer Model::RunTable(const Call& call) {
  BrowseSet& set = SetOf(call.stem);
  if ((TakesRecord(call.verb) || FillsRecord(call.verb)) && call.null_first) return {1, {}};
  Packed record =
      FillsRecord(call.verb) || call.record.empty() ? Packed(call.stem) : Packed(call.stem, call.record);
  const auto with_record = [&](int code) -> Answer { return {code, record.Bytes()}; };
  if (Looks(call.verb)) set.changed = false;
  const auto mask = call.verb == Verb::kEdit ? 0xFFFFFFFF : static_cast<std::uint32_t>(call.b);
  switch (call.verb) {
    case Verb::kOpen:
      return {Open(call.stem), {}};
    case Verb::kClose:
      Shut(call.stem);
      return {};
    case Verb::kIsOpen:
      return {set.open ? 1 : 0, {}};
    case Verb::kIndexPos:
      return {set.current + 1, {}};
    case Verb::kMoveByPos:
      return {MoveByPos(call.stem, call.a), {}};
    case Verb::kMoveByDelta:
      return {MoveByDelta(call.stem, call.a), {}};
    case Verb::kMoveByIntID:
      return {call.stem == Stem::kPatEx ? MoveViewByIntID(call.a) : MoveByIntID(call.stem, call.a), {}};
    case Verb::kMoveByString:
      return {MoveByString(call.stem, call.operands[0]), {}};
    case Verb::kSetFilter:
      return {SetFilter(call), {}};
    case Verb::kSetSort:
      return {SetSort(call.stem, call.a), {}};
    case Verb::kDeleteByPos:
      return {DeleteByPos(call.stem, call.a), {}};
    case Verb::kMaxPos:
      return MaxPos(call.stem, call.null_first);
    case Verb::kGetByPos: {
      RowPtr row;
      const int code = Show(call.stem, call.a, &row);
      if (code == 0) CopyOut(*row, &record);
      return with_record(code);
    }
    case Verb::kAddNew:
      return with_record(AfterChange(call.stem, AddNew(call.stem, &record), 0, false));
    case Verb::kEdit:
    case Verb::kEditSel:
      return with_record(AfterChange(call.stem, EditSel(call.stem, &record, mask), mask, true));
    case Verb::kDelete:
      return with_record(AfterChange(call.stem, Delete(call.stem, record), 0, false));
    case Verb::kGet:
      return with_record(Get(call.stem, &record));
    case Verb::kGetNum:
      return Count(call);
    case Verb::kGetLastDate:
      return LastDate(call);
    default: {
      if (call.null_first) return {1, {}};
      const Rows& rows = TableOf(call.stem).rows;
      return {0, Bytes(rows.empty() ? 0 : std::get<int>(rows.back()->front()))};
    }
  }
}

}  // namespace differential
