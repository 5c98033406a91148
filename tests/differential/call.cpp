#include "tests/differential/call.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace differential {
namespace {

constexpr VerbName kNames[] = {
    {Verb::kOpen,           "Open",           "DB_Open%s",              true },
    {Verb::kClose,          "Close",          "DB_Close%s",             true },
    {Verb::kIsOpen,         "IsOpen",         "DB_Is%sOpen",            true },
    {Verb::kIndexPos,       "IndexPos",       "DB_Get%sIndexPos",       true },
    {Verb::kMoveByPos,      "MoveByPos",      "DB_MoveTo%sByPos",       true },
    {Verb::kMoveByDelta,    "MoveByDelta",    "DB_MoveTo%sByDelta",     true },
    {Verb::kMoveByIntID,    "MoveByIntID",    "DB_MoveTo%sByIntID",     true },
    {Verb::kMoveByString,   "MoveByString",   "DB_MoveTo%sByString",    true },
    {Verb::kSetFilter,      "SetFilter",      "DB_Set%sFilter",         true },
    {Verb::kSetSort,        "SetSort",        "DB_Set%sSortIndex",      true },
    {Verb::kDeleteByPos,    "DeleteByPos",    "DB_Delete%sByPos",       true },
    {Verb::kGetByPos,       "GetByPos",       "DB_Get%sByPos",          true },
    {Verb::kMaxPos,         "MaxPos",         "DB_Get%sMaxPos",         true },
    {Verb::kAddNew,         "AddNew",         "DB_AddNew%s",            true },
    {Verb::kEdit,           "Edit",           "DB_Edit%s",              true },
    {Verb::kEditSel,        "EditSel",        "DB_EditSel%s",           true },
    {Verb::kDelete,         "Delete",         "DB_Delete%s",            true },
    {Verb::kGet,            "Get",            "DB_Get%s",               true },
    {Verb::kGetNum,         "GetNum",         "DB_GetNum%s",            true },
    {Verb::kGetLastID,      "GetLastID",      "DB_GetLast%tID",         true },
    {Verb::kGetLastDate,    "GetLastDate",    "DB_GetLast%sDate",       true },
    {Verb::kBegin,          "Begin",          "DB_BeginTransaction",    false},
    {Verb::kCommit,         "Commit",         "DB_CommitTransaction",   false},
    {Verb::kRollback,       "Rollback",       "DB_RollbackTransaction", false},
    {Verb::kGetString,      "GetString",      "DB_GetProfileString",    false},
    {Verb::kWriteString,    "WriteString",    "DB_WriteProfileString",  false},
    {Verb::kGetInt,         "GetInt",         "DB_GetProfileInt",       false},
    {Verb::kWriteInt,       "WriteInt",       "DB_WriteProfileInt",     false},
    {Verb::kAddPat,         "AddPat",         "DB_AddNewPat",           false},
    {Verb::kEditPat,        "EditPat",        "DB_EditPat",             false},
    {Verb::kEditSelPat,     "EditSelPat",     "DB_EditSelPat",          false},
    {Verb::kDeletePat,      "DeletePat",      "DB_DeletePat",           false},
    {Verb::kGetPat,         "GetPat",         "DB_GetPat",              false},
    {Verb::kGetPatByPos,    "GetPatByPos",    "DB_GetPatByPos",         false},
    {Verb::kAddUnit,        "AddUnit",        "DB_AddNewUnit",          false},
    {Verb::kEditUnit,       "EditUnit",       "DB_EditUnit",            false},
    {Verb::kEditSelUnit,    "EditSelUnit",    "DB_EditSelUnit",         false},
    {Verb::kDeleteUnit,     "DeleteUnit",     "DB_DeleteUnit",          false},
    {Verb::kGetUnit,        "GetUnit",        "DB_GetUnit",             false},
    {Verb::kGetUnitByPos,   "GetUnitByPos",   "DB_GetUnitByPos",        false},
    {Verb::kInit,           "Init",           "DB_InitDatabase",        false},
    {Verb::kCloseDatabase,  "CloseDatabase",  "DB_CloseDatabase",       false},
    {Verb::kIsDatabaseOpen, "IsDatabaseOpen", "DB_IsDatabaseOpen",      false},
    {Verb::kCheckVersion,   "CheckVersion",   "DB_CheckVersion",        false},
    {Verb::kGetVersion,     "GetVersion",     "DB_GetDBVersion",        false},
    {Verb::kGetDbms,        "GetDbms",        "DB_GetDBMS",             false},
    {Verb::kGetOwner,       "GetOwner",       "DB_GetDBOwner",          false},
    {Verb::kClock,          "Clock",          "",                       false},
};

bool Between(Verb verb, Verb first, Verb last) { return verb >= first && verb <= last; }

}  // namespace

const VerbName& NameOf(Verb verb) {
  return *std::find_if(std::begin(kNames), std::end(kNames),
                       [verb](const VerbName& name) { return name.verb == verb; });
}

Verb VerbOf(const std::string& word) {
  for (const VerbName& name : kNames) {
    if (word == name.word) return name.verb;
  }
  throw std::runtime_error("no such call: " + word);
}

std::string FunctionName(const Call& call) {
  std::string function = NameOf(call.verb).function;
  const std::size_t at = function.find('%');
  if (at == std::string::npos) return function;
  const std::string stem = LayoutOf(call.stem).name;
  return function.replace(at, 2, function[at + 1] == 't' ? stem.substr(1) : stem);
}

Stem RecordStem(const Call& call) {
  return Between(call.verb, Verb::kAddPat, Verb::kGetUnitByPos) ? Stem::kCompact : call.stem;
}

bool TakesRecord(Verb verb) {
  return Between(verb, Verb::kAddNew, Verb::kGet) || Between(verb, Verb::kAddPat, Verb::kGetPat) ||
         Between(verb, Verb::kAddUnit, Verb::kGetUnit);
}

bool FillsRecord(Verb verb) {
  return verb == Verb::kGetByPos || verb == Verb::kGetPatByPos || verb == Verb::kGetUnitByPos;
}

bool ReturnsCode(Verb verb) {
  return verb != Verb::kIsOpen && !Between(verb, Verb::kIndexPos, Verb::kMoveByString) &&
         verb != Verb::kIsDatabaseOpen && verb != Verb::kCheckVersion && verb != Verb::kClock;
}

}  // namespace differential
