#include "tests/differential/flat_calls.h"

#include <cstring>
#include <functional>
#include <memory>

#include "frame/KyODBC.h"
#include "tests/differential/packed.h"

namespace differential {
namespace {

// Memory of exactly the size it should have, so that a sanitizer sees writes beyond it.
class Memory {
 public:
  explicit Memory(const std::string& bytes) : m_size(bytes.size()), m_bytes(new char[bytes.size()]) {
    std::memcpy(m_bytes.get(), bytes.data(), m_size);
  }
  explicit Memory(std::size_t size) : Memory(std::string(size, kUntouched)) {}
  void* Get() { return m_bytes.get(); }
  template <class T>
  T* As() {
    return reinterpret_cast<T*>(m_bytes.get());
  }
  std::string Bytes() const { return {m_bytes.get(), m_size}; }

 private:
  std::size_t m_size;
  std::unique_ptr<char[]> m_bytes;
};

using OnRecord = std::function<WORD(void*)>;

template <class Record>
OnRecord Take(WORD (*function)(Record*)) {
  return function == nullptr ? OnRecord()
                             : [function](void* record) { return function(static_cast<Record*>(record)); };
}

template <class Record>
std::function<WORD(void*, DWORD)> TakeMask(WORD (*function)(Record*, DWORD)) {
  return [function](void* record, DWORD mask) { return function(static_cast<Record*>(record), mask); };
}

template <class Record>
std::function<WORD(LONG, void*)> Fill(WORD (*function)(LONG, Record*)) {
  return [function](LONG position, void* record) { return function(position, static_cast<Record*>(record)); };
}

// The functions of one browse set; null where it has none.
struct Family {
  Stem stem;
  WORD (*open)();
  WORD (*close)();
  BOOL (*is_open)();
  LONG (*index_pos)();
  LONG (*by_pos)(LONG);
  LONG (*by_delta)(LONG);
  WORD (*filter)(LONG, LONG, const void*, const void*, const void*, const void*);
  WORD (*sort)(LONG);
  WORD (*max_pos)(LONG*);
  std::function<WORD(LONG, void*)> get_by_pos;
  OnRecord get;
  LONG (*by_key)(LONG) = nullptr;
  LONG (*by_string)(const char*) = nullptr;
  WORD (*num)(LONG*) = nullptr;
  WORD (*num_of)(LONG, LONG*) = nullptr;
  WORD (*last_date)(LONG, LONG*, TIMESTAMP_STRUCT*) = nullptr;
};

// The functions that change one table.
struct Changes {
  Stem stem;
  WORD (*delete_by_pos)(LONG);
  OnRecord add;
  OnRecord edit;
  std::function<WORD(void*, DWORD)> edit_sel;
  OnRecord remove;
  WORD (*last_id)(LONG*);
};

// clang-format off
const Family kFamilies[] = {
    {Stem::kDr, DB_OpenTDr, DB_CloseTDr, DB_IsTDrOpen, DB_GetTDrIndexPos, DB_MoveToTDrByPos,
     DB_MoveToTDrByDelta, DB_SetTDrFilter, DB_SetTDrSortIndex, DB_GetTDrMaxPos, Fill(DB_GetTDrByPos),
     Take(DB_GetTDr), nullptr, nullptr, DB_GetNumTDr, nullptr, nullptr},
    {Stem::kStat, DB_OpenTStat, DB_CloseTStat, DB_IsTStatOpen, DB_GetTStatIndexPos, DB_MoveToTStatByPos,
     DB_MoveToTStatByDelta, DB_SetTStatFilter, DB_SetTStatSortIndex, DB_GetTStatMaxPos,
     Fill(DB_GetTStatByPos), Take(DB_GetTStat), nullptr, nullptr, DB_GetNumTStat, nullptr, nullptr},
    {Stem::kUnit, DB_OpenTUnit, DB_CloseTUnit, DB_IsTUnitOpen, DB_GetTUnitIndexPos, DB_MoveToTUnitByPos,
     DB_MoveToTUnitByDelta, DB_SetTUnitFilter, DB_SetTUnitSortIndex, DB_GetTUnitMaxPos,
     Fill(DB_GetTUnitByPos), Take(DB_GetTUnit), nullptr, nullptr, DB_GetNumTUnit, nullptr, nullptr},
    {Stem::kPat, DB_OpenTPat, DB_CloseTPat, DB_IsTPatOpen, DB_GetTPatIndexPos, DB_MoveToTPatByPos,
     DB_MoveToTPatByDelta, DB_SetTPatFilter, DB_SetTPatSortIndex, DB_GetTPatMaxPos, Fill(DB_GetTPatByPos),
     Take(DB_GetTPat), DB_MoveToTPatByIntID, DB_MoveToTPatByString, DB_GetNumTPat, nullptr, nullptr},
    {Stem::kPatEx, DB_OpenPatEx, DB_ClosePatEx, DB_IsPatExOpen, DB_GetPatExIndexPos, DB_MoveToPatExByPos,
     DB_MoveToPatExByDelta, DB_SetPatExFilter, DB_SetPatExSortIndex, DB_GetPatExMaxPos,
     Fill(DB_GetPatExByPos), Take(DB_GetPatEx), DB_MoveToPatExByIntID, DB_MoveToPatExByString,
     DB_GetNumPatEx, nullptr, nullptr},
    {Stem::kImg, DB_OpenTImg, DB_CloseTImg, DB_IsTImgOpen, DB_GetTImgIndexPos, DB_MoveToTImgByPos,
     DB_MoveToTImgByDelta, DB_SetTImgFilter, DB_SetTImgSortIndex, DB_GetTImgMaxPos, Fill(DB_GetTImgByPos),
     Take(DB_GetTImg), DB_MoveToTImgByIntID, nullptr, nullptr, DB_GetNumTImg, DB_GetLastTImgDate},
    {Stem::kMak, DB_OpenTMak, DB_CloseTMak, DB_IsTMakOpen, DB_GetTMakIndexPos, DB_MoveToTMakByPos,
     DB_MoveToTMakByDelta, DB_SetTMakFilter, DB_SetTMakSortIndex, DB_GetTMakMaxPos, Fill(DB_GetTMakByPos),
     Take(DB_GetTMak), nullptr, nullptr, nullptr, DB_GetNumTMak, DB_GetLastTMakDate},
    {Stem::kGrp, DB_OpenTGrp, DB_CloseTGrp, DB_IsTGrpOpen, DB_GetTGrpIndexPos, DB_MoveToTGrpByPos,
     DB_MoveToTGrpByDelta, DB_SetTGrpFilter, DB_SetTGrpSortIndex, DB_GetTGrpMaxPos, Fill(DB_GetTGrpByPos),
     Take(DB_GetTGrp), nullptr, nullptr, nullptr, DB_GetNumTGrp, nullptr},
    {Stem::kDiag, DB_OpenTDiag, DB_CloseTDiag, DB_IsTDiagOpen, DB_GetTDiagIndexPos, DB_MoveToTDiagByPos,
     DB_MoveToTDiagByDelta, DB_SetTDiagFilter, DB_SetTDiagSortIndex, DB_GetTDiagMaxPos,
     Fill(DB_GetTDiagByPos), Take(DB_GetTDiag), nullptr, nullptr, DB_GetNumTDiag, nullptr, nullptr},
    {Stem::kCfg, DB_OpenTCfg, DB_CloseTCfg, DB_IsTCfgOpen, DB_GetTCfgIndexPos, DB_MoveToTCfgByPos,
     DB_MoveToTCfgByDelta, DB_SetTCfgFilter, DB_SetTCfgSortIndex, DB_GetTCfgMaxPos, Fill(DB_GetTCfgByPos),
     Take(DB_GetTCfg), nullptr, nullptr, DB_GetNumTCfg, nullptr, nullptr},
    {Stem::kTest, DB_OpenTTest, DB_CloseTTest, DB_IsTTestOpen, DB_GetTTestIndexPos, DB_MoveToTTestByPos,
     DB_MoveToTTestByDelta, DB_SetTTestFilter, DB_SetTTestSortIndex, DB_GetTTestMaxPos,
     Fill(DB_GetTTestByPos), Take(DB_GetTTest), nullptr, nullptr, nullptr, DB_GetNumTTest,
     DB_GetLastTTestDate},
};

const Changes kChanges[] = {
    {Stem::kDr, DB_DeleteTDrByPos, Take(DB_AddNewTDr), Take(DB_EditTDr), TakeMask(DB_EditSelTDr),
     Take(DB_DeleteTDr), DB_GetLastDrID},
    {Stem::kStat, DB_DeleteTStatByPos, Take(DB_AddNewTStat), Take(DB_EditTStat),
     TakeMask(DB_EditSelTStat), Take(DB_DeleteTStat), DB_GetLastStatID},
    {Stem::kUnit, DB_DeleteTUnitByPos, Take(DB_AddNewTUnit), Take(DB_EditTUnit),
     TakeMask(DB_EditSelTUnit), Take(DB_DeleteTUnit), DB_GetLastUnitID},
    {Stem::kPat, DB_DeleteTPatByPos, Take(DB_AddNewTPat), Take(DB_EditTPat), TakeMask(DB_EditSelTPat),
     Take(DB_DeleteTPat), DB_GetLastPatID},
    {Stem::kImg, DB_DeleteTImgByPos, Take(DB_AddNewTImg), Take(DB_EditTImg), TakeMask(DB_EditSelTImg),
     Take(DB_DeleteTImg), DB_GetLastImgID},
    {Stem::kMak, DB_DeleteTMakByPos, Take(DB_AddNewTMak), Take(DB_EditTMak), TakeMask(DB_EditSelTMak),
     Take(DB_DeleteTMak), DB_GetLastMakID},
    {Stem::kGrp, DB_DeleteTGrpByPos, Take(DB_AddNewTGrp), Take(DB_EditTGrp), TakeMask(DB_EditSelTGrp),
     Take(DB_DeleteTGrp), DB_GetLastGrpID},
    {Stem::kDiag, DB_DeleteTDiagByPos, Take(DB_AddNewTDiag), Take(DB_EditTDiag),
     TakeMask(DB_EditSelTDiag), Take(DB_DeleteTDiag), DB_GetLastDiagID},
    {Stem::kCfg, DB_DeleteTCfgByPos, Take(DB_AddNewTCfg), Take(DB_EditTCfg), TakeMask(DB_EditSelTCfg),
     Take(DB_DeleteTCfg), DB_GetLastCfgID},
    {Stem::kTest, DB_DeleteTTestByPos, Take(DB_AddNewTTest), Take(DB_EditTTest),
     TakeMask(DB_EditSelTTest), Take(DB_DeleteTTest), DB_GetLastTestID},
};
// clang-format on

const Family& FamilyOf(Stem stem) { return kFamilies[static_cast<std::size_t>(stem)]; }

const Changes* ChangesOf(Stem stem) {
  for (const Changes& changes : kChanges) {
    if (changes.stem == stem) return &changes;
  }
  return nullptr;
}

// What a filter's pointers point to.
class Operand {
 public:
  explicit Operand(const Cell& cell) : m_cell(cell) {
    if (const Time* time = std::get_if<Time>(&cell)) {
      m_time.year = static_cast<SQLSMALLINT>((*time)[0]);
      m_time.month = static_cast<SQLUSMALLINT>((*time)[1]);
      m_time.day = static_cast<SQLUSMALLINT>((*time)[2]);
      m_time.hour = static_cast<SQLUSMALLINT>((*time)[3]);
      m_time.minute = static_cast<SQLUSMALLINT>((*time)[4]);
      m_time.second = static_cast<SQLUSMALLINT>((*time)[5]);
    }
  }
  const void* Get() const {
    if (const int* number = std::get_if<int>(&m_cell)) return number;
    if (std::holds_alternative<Time>(m_cell)) return &m_time;
    return Text();
  }
  const char* Text() const {
    const auto* text = std::get_if<std::string>(&m_cell);
    return text == nullptr ? nullptr : text->c_str();
  }

 private:
  const Cell& m_cell;
  TIMESTAMP_STRUCT m_time{};
};

Answer WithNumber(bool null, const std::function<int(LONG*)>& function) {
  if (null) return {function(nullptr), {}};
  Memory number(sizeof(LONG));
  const int result = function(number.As<LONG>());
  return {result, number.Bytes()};
}

Answer WithRecord(const Call& call, const OnRecord& function) {
  if (call.null_first) return {function(nullptr), {}};
  Memory record(call.record.empty() ? Packed(RecordStem(call)).Bytes() : call.record);
  const int result = function(record.Get());
  return {result, record.Bytes()};
}

Answer CallFamily(const Call& call) {
  const Family& family = FamilyOf(call.stem);
  switch (call.verb) {
    case Verb::kOpen:
      return {family.open(), {}};
    case Verb::kClose:
      return {family.close(), {}};
    case Verb::kIsOpen:
      return {family.is_open() != 0 ? 1 : 0, {}};
    case Verb::kIndexPos:
      return {family.index_pos(), {}};
    case Verb::kMoveByPos:
      return {family.by_pos(call.a), {}};
    case Verb::kMoveByDelta:
      return {family.by_delta(call.a), {}};
    case Verb::kMoveByIntID:
      return {family.by_key(call.a), {}};
    case Verb::kMoveByString:
      return {family.by_string(Operand(call.operands[0]).Text()), {}};
    case Verb::kSetFilter: {
      const Operand one(call.operands[0]), two(call.operands[1]), three(call.operands[2]),
          four(call.operands[3]);
      return {family.filter(call.a, call.b, one.Get(), two.Get(), three.Get(), four.Get()), {}};
    }
    case Verb::kSetSort:
      return {family.sort(call.a), {}};
    case Verb::kMaxPos:
      return WithNumber(call.null_first, family.max_pos);
    case Verb::kGetByPos:
      return WithRecord(call, [&](void* record) { return family.get_by_pos(call.a, record); });
    case Verb::kGet:
      return WithRecord(call, family.get);
    case Verb::kGetNum:
      if (family.num != nullptr) return WithNumber(call.null_first, family.num);
      return WithNumber(call.null_first, [&](LONG* count) { return family.num_of(call.a, count); });
    default: {
      Memory key(sizeof(LONG)), time(sizeof(TIMESTAMP_STRUCT));
      const int result = family.last_date(call.a, call.null_first ? nullptr : key.As<LONG>(),
                                          call.null_second ? nullptr : time.As<TIMESTAMP_STRUCT>());
      return {result, key.Bytes() + time.Bytes()};
    }
  }
}

Answer CallChange(const Call& call, const Changes& changes) {
  switch (call.verb) {
    case Verb::kDeleteByPos:
      return {changes.delete_by_pos(call.a), {}};
    case Verb::kAddNew:
      return WithRecord(call, changes.add);
    case Verb::kEdit:
      return WithRecord(call, changes.edit);
    case Verb::kEditSel:
      return WithRecord(call,
                        [&](void* record) { return changes.edit_sel(record, static_cast<DWORD>(call.b)); });
    case Verb::kDelete:
      return WithRecord(call, changes.remove);
    default:
      return WithNumber(call.null_first, changes.last_id);
  }
}

bool IsChange(Verb verb) {
  return verb == Verb::kDeleteByPos || verb == Verb::kAddNew || verb == Verb::kEdit ||
         verb == Verb::kEditSel || verb == Verb::kDelete || verb == Verb::kGetLastID;
}

Answer CallCompact(const Call& call) {
  const auto mask = static_cast<DWORD>(call.b);
  const auto on = [&](auto function) { return WithRecord(call, Take(function)); };
  const auto with_mask = [&](auto function) {
    const auto taken = TakeMask(function);
    return WithRecord(call, [&](void* record) { return taken(record, mask); });
  };
  const auto at = [&](auto function) {
    return WithRecord(
        call, [&](void* record) { return function(static_cast<tagPATIENTCOMPACT*>(record), call.a); });
  };
  switch (call.verb) {
    case Verb::kAddPat:
      return on(DB_AddNewPat);
    case Verb::kEditPat:
      return on(DB_EditPat);
    case Verb::kEditSelPat:
      return with_mask(DB_EditSelPat);
    case Verb::kDeletePat:
      return on(DB_DeletePat);
    case Verb::kGetPat:
      return on(DB_GetPat);
    case Verb::kGetPatByPos:
      return at(DB_GetPatByPos);
    case Verb::kAddUnit:
      return on(DB_AddNewUnit);
    case Verb::kEditUnit:
      return on(DB_EditUnit);
    case Verb::kEditSelUnit:
      return with_mask(DB_EditSelUnit);
    case Verb::kDeleteUnit:
      return on(DB_DeleteUnit);
    case Verb::kGetUnit:
      return on(DB_GetUnit);
    default:
      return at(DB_GetUnitByPos);
  }
}

Answer CallSettings(const Call& call) {
  const Operand key(call.operands[0]), station(call.operands[1]), value(call.operands[2]);
  switch (call.verb) {
    case Verb::kGetString: {
      Memory buffer(static_cast<std::size_t>(std::max(call.a, 1))), length(sizeof(LONG));
      const int result = DB_GetProfileString(key.Text(), station.Text(), value.Text(),
                                             call.null_first ? nullptr : buffer.As<char>(), call.a,
                                             call.null_second ? nullptr : length.As<LONG>());
      return {result, buffer.Bytes() + length.Bytes()};
    }
    case Verb::kWriteString:
      return {DB_WriteProfileString(key.Text(), station.Text(), value.Text()), {}};
    case Verb::kWriteInt:
      return {DB_WriteProfileInt(key.Text(), station.Text(), call.b), {}};
    default: {
      Memory number(sizeof(LONG));
      const int result =
          DB_GetProfileInt(key.Text(), station.Text(), call.b, call.null_first ? nullptr : number.As<LONG>());
      return {result, number.Bytes()};
    }
  }
}

Answer CallInformation(const Call& call) {
  switch (call.verb) {
    case Verb::kIsDatabaseOpen:
      return {DB_IsDatabaseOpen() != 0 ? 1 : 0, {}};
    case Verb::kCheckVersion: {
      Memory version(sizeof(WORD));
      const int result = DB_CheckVersion(static_cast<WORD>(call.a), version.As<WORD>()) != 0 ? 1 : 0;
      return {result, version.Bytes()};
    }
    case Verb::kGetVersion: {
      Memory version(sizeof(double));
      const int result = DB_GetDBVersion(version.As<double>());
      return {result, version.Bytes()};
    }
    default: {
      Memory buffer(static_cast<std::size_t>(call.a));
      char* start = call.null_first ? nullptr : buffer.As<char>();
      const int result =
          call.verb == Verb::kGetDbms ? DB_GetDBMS(start, call.a) : DB_GetDBOwner(start, call.a);
      return {result, buffer.Bytes()};
    }
  }
}

}  // namespace

Answer CallLibrary(const Call& call, const tagDBCONNECT& parameters) {
  switch (call.verb) {
    case Verb::kClock:
      SetProcessClock(call.a);
      return {};
    case Verb::kInit:
      return {DB_InitDatabase(&parameters), {}};
    case Verb::kCloseDatabase:
      return {DB_CloseDatabase(), {}};
    case Verb::kBegin:
      return {DB_BeginTransaction(), {}};
    case Verb::kCommit:
      return {DB_CommitTransaction(), {}};
    case Verb::kRollback:
      return {DB_RollbackTransaction(), {}};
    case Verb::kGetString:
    case Verb::kWriteString:
    case Verb::kGetInt:
    case Verb::kWriteInt:
      return CallSettings(call);
    default:
      break;
  }
  if (call.verb >= Verb::kIsDatabaseOpen) return CallInformation(call);
  if (!NameOf(call.verb).has_stem) return CallCompact(call);
  return IsChange(call.verb) ? CallChange(call, *ChangesOf(call.stem)) : CallFamily(call);
}

bool HasCall(Stem stem, Verb verb) {
  const Family& family = FamilyOf(stem);
  switch (verb) {
    case Verb::kMoveByIntID:
      return family.by_key != nullptr;
    case Verb::kMoveByString:
      return family.by_string != nullptr;
    case Verb::kGetLastDate:
      return family.last_date != nullptr;
    default:
      return !IsChange(verb) || ChangesOf(stem) != nullptr;
  }
}

}  // namespace differential
