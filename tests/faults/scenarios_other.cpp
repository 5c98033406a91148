// Connecting and closing, settings, compact records, direct access, procedures, and what changes several
// rows.
#include "frame/dynamic_rec.h"
#include "platform/cdbexception.h"
#include "tables/station_raw_rec.h"
#include "tests/faults/connection.h"
#include "tests/faults/scenario.h"
#include "tests/flat/family_tables.h"

namespace faults {
namespace {

using family::Images;
using family::Patients;

const Codes kConnects = {3, 4, 14, 30, 31, 99};
const Codes kAdds = {1, 3, 6, 31, 52, 64};
const Codes kWrites = {3, 6, 21, 31, 52, 64, 66};
const Codes kDeletes = {3, 8, 21, 31, 52, 64, 66};
const Codes kTransactions = {1, 3};

void ConnectAndClose(Answers& answers, const Keys&) {
  // What failed to close can be closed again.
  if (answers.Code("connect", Connect(), kConnects) != 0) return;
  if (answers.Code("close", DB_CloseDatabase(), {4}) != 0) DB_CloseDatabase();
}

void ConnectOpenAndClose(Answers& answers, const Keys&) {
  answers.Code("connect", Connect(), kConnects);
  answers.Code("open", DB_OpenTPat(), {3, 30, 31});
  answers.Code("open", DB_OpenTImg(), {3, 31});
  answers.Code("close", DB_CloseDatabase(), {4});
}

void LoseTheConnection(const Keys&) { TheFaultDriver().LoseConnections(); }

void Reconnect(Answers& answers, const Keys&) {
  answers.Code("open", DB_OpenTPat(), {3, 30, 31});
  answers.Code("open", DB_OpenTDr(), {3, 31});
}

void Information(Answers& answers, const Keys&) {
  tagDBINFO info{};
  char text[100] = {};
  double version = 0;
  answers.Code("info", DB_GetInfo(&info), {1, 3, 5, 31});
  answers.Code("version", DB_GetDBVersion(&version), {3, 31});
  answers.Code("system", DB_GetDBMS(text, sizeof text), {1, 3, 31});
}

void ReadSettings(Answers& answers, const Keys&) {
  char text[100] = {};
  LONG number = 0;
  answers.Code("text", DB_GetProfileString("DBVersion", "-", "none", text, sizeof text, nullptr), {3, 31});
  answers.Code("number", DB_GetProfileInt("Missing", "-", 1, &number), {3, 31});
}

void WriteNewSetting(Answers& answers, const Keys&) {
  answers.Code("write", DB_WriteProfileString("Exhausted", "-", "value"), kWrites);
}

void WriteKnownSetting(Answers& answers, const Keys&) {
  answers.Code("write", DB_WriteProfileString("DBMS", "-", "Other"), kWrites);
}

void DeleteSetting(Answers& answers, const Keys&) {
  answers.Code("delete", DB_WriteProfileString("DBMS", "-", ""), kDeletes);
}

tagPATIENTCOMPACT CompactPatient(const char* identifier) {
  tagPATIENTCOMPACT record{};
  support::SetText(record.szName, "Compact");
  support::SetText(record.szFirstname, "Clara");
  record.wYear = 1961;
  record.byMonth = record.byDay = 3;
  support::SetText(record.szDrName, "Doctor 1");
  support::SetText(record.szIdent, identifier);
  return record;
}

void AddCompactPatient(Answers& answers, const Keys&) {
  tagPATIENTCOMPACT record = CompactPatient("SL1");
  answers.Code("add", DB_AddNewPat(&record), kAdds);
}

void EditCompactPatient(Answers& answers, const Keys& keys) {
  tagPATIENTCOMPACT record = CompactPatient("SL1");
  record.dwID = static_cast<DWORD>(keys.at("TPat"));
  answers.Code("edit", DB_EditPat(&record), kWrites);
}

void DeleteCompactPatient(Answers& answers, const Keys& keys) {
  tagPATIENTCOMPACT record = CompactPatient("SL1");
  record.dwID = static_cast<DWORD>(keys.at("TPat"));
  answers.Code("get", DB_GetPat(&record), {1, 3, 21, 31, 52, 64});
  if (answers.Code("delete", DB_DeletePat(&record), kDeletes) == 0) answers.RequireChange();
}

tagPATIENTCOMPACT CompactUnit() {
  tagPATIENTCOMPACT record{};
  support::SetText(record.szName, "Compact\xBBT1");
  support::SetText(record.szFirstname, "C1\xBBS1");
  record.wYear = 1999;
  record.byMonth = record.byDay = 3;
  return record;
}

void AddCompactUnit(Answers& answers, const Keys&) {
  tagPATIENTCOMPACT record = CompactUnit();
  answers.Code("add", DB_AddNewUnit(&record), kAdds);
}

void EditCompactUnit(Answers& answers, const Keys& keys) {
  tagPATIENTCOMPACT record = CompactUnit();
  record.dwID = static_cast<DWORD>(keys.at("TUnit"));
  answers.Code("edit", DB_EditUnit(&record), kWrites);
}

void DeleteCompactUnit(Answers& answers, const Keys& keys) {
  tagPATIENTCOMPACT record = CompactUnit();
  record.dwID = static_cast<DWORD>(keys.at("TUnit"));
  answers.Code("get", DB_GetUnit(&record), {1, 3, 31, 52, 64, 66});
  if (answers.Code("delete", DB_DeleteUnit(&record), kDeletes) == 0) answers.RequireChange();
}

// Sets that callers hold themselves pass exceptions on.
template <class Work>
WORD CodeOf(Work work) {
  try {
    return work();
  } catch (CDBException* exception) {
    exception->Delete();
    return 31;
  }
}

void DirectInsert(Answers& answers, const Keys&) {
  CStatRawRec set(DB_GetDatabase(), "");
  CTStatRaw station;
  station.m_strName = "Direct";
  answers.Code("insert", CodeOf([&] { return set.Insert(station, -1); }), {1, 3, 6, 31, 52, 64});
}

void DirectReadAndEdit(Answers& answers, const Keys& keys) {
  CStatRawRec set(DB_GetDatabase(), "");
  CTStatRaw station;
  station.m_lStatID = keys.at("TStat");
  answers.Code("read", CodeOf([&] { return set.OpenQuery(station); }), {3, 31});
  station.m_strName = "Edited";
  answers.Code("edit", CodeOf([&] { return set.Edit(station, -1); }), {3, 6, 31, 52, 64});
}

void Procedure(Answers& answers, const Keys&) {
  const auto run = [] {
    CDynamicRec set;
    return WORD{set.ExecuteSProc("spky_ping") ? WORD{0} : WORD{3}};
  };
  answers.Code("procedure", CodeOf(run), {3, 31});
}

void OpenPatients(const Keys&) { DB_OpenTPat(); }
void OpenImages(const Keys&) { DB_OpenTImg(); }

void DeletePatientByPosition(Answers& answers, const Keys&) {
  answers.Code("delete", DB_DeleteTPatByPos(1), kDeletes);
}

void DeleteImageByPosition(Answers& answers, const Keys&) {
  answers.Code("delete", DB_DeleteTImgByPos(1), kDeletes);
}

void DeleteSelected(Answers& answers, const Keys&) {
  tagTPATIENT selected{};
  selected.lSelect = 1;
  answers.Code("delete", DB_DeleteTPat(&selected), kDeletes);
}

tagTIMAGE Replacing(const Keys& keys) {
  tagTIMAGE image = Images::Fill(1);
  image.lPatID = keys.at("TPat");
  Images::ChangeText(&image, "replaces");
  return image;
}

void ReplaceImage(Answers& answers, const Keys& keys) {
  tagTIMAGE image = Replacing(keys);
  answers.Code("replace", DB_AddNewTImg(&image), {1, 3, 6, 8, 31, 52, 64});
}

void ReplaceImageInTransaction(Answers& answers, const Keys& keys) {
  if (answers.Code("begin", DB_BeginTransaction(), kTransactions) != 0) return;
  tagTIMAGE image = Replacing(keys);
  const bool done = answers.Code("replace", DB_AddNewTImg(&image), {1, 3, 6, 8, 31, 52, 64}) == 0;
  if (done && answers.Code("commit", DB_CommitTransaction(), kTransactions) == 0) {
    return answers.RequireChange();
  }
  answers.Code("rollback", DB_RollbackTransaction(), kTransactions);
  if (!done) answers.RequireChange(false);
}

void RollBack(Answers& answers, const Keys&) {
  if (answers.Code("begin", DB_BeginTransaction(), kTransactions) != 0) return;
  tagTPATIENT patient = Patients::Fill(9);
  answers.Code("add", DB_AddNewTPat(&patient), kAdds);
  answers.Code("rollback", DB_RollbackTransaction(), kTransactions);
}

// A change after a transaction is stored at once, whatever became of the transaction.
void RequireLaterChange(Answers& answers, const Keys& keys) {
  tagTSTATION station = family::Stations::Fill(1);
  station.lStatID = keys.at("TStat");
  family::Stations::ChangeText(&station);
  if (answers.Code("edit", DB_EditTStat(&station), kWrites) == 0) answers.RequireChange();
}

void ChangeAfterTransaction(Answers& answers, const Keys& keys) {
  answers.Code("begin", DB_BeginTransaction(), kTransactions);
  answers.Code("rollback", DB_RollbackTransaction(), kTransactions);
  RequireLaterChange(answers, keys);
}

void ChangeAfterCommit(Answers& answers, const Keys& keys) {
  answers.Code("begin", DB_BeginTransaction(), kTransactions);
  answers.Code("commit", DB_CommitTransaction(), kTransactions);
  RequireLaterChange(answers, keys);
}

// Each attempt to add a patient is a transaction of its own, which ends with the attempt.
void ChangeAfterRefusedAdd(Answers& answers, const Keys& keys) {
  constexpr WORD kRefused = 6;
  tagTPATIENT patient = Patients::Fill(9);
  patient.dBirthday = {2001, 2, 30, 0, 0, 0, 0};
  const WORD code = DB_AddNewTPat(&patient);
  answers.Code("add", code == kRefused ? WORD{0} : code, kAdds);
  RequireLaterChange(answers, keys);
}

}  // namespace

std::vector<Scenario> OtherScenarios() {
  return {
      {"ConnectAndClose",         ConnectAndClose,                            nullptr, true},
      {"ConnectOpenAndClose",                     ConnectOpenAndClose,                                                               nullptr, true},
      {"Reconnect",Reconnect,LoseTheConnection},
      {.name = "Information",                         .run = Information,                                                         .runs_statements = false},
      {"ReadSettings",        ReadSettings                                                                                           },
      {"WriteNewSetting",WriteNewSetting},
      {"WriteKnownSetting",            WriteKnownSetting                                  },
      {"DeleteSetting",         DeleteSetting                                                     },
      {"AddCompactPatient",       AddCompactPatient                    },
      {"EditCompactPatient",           EditCompactPatient                               },
      {"DeleteCompactPatient",       DeleteCompactPatient                         },
      {"AddCompactUnit",      AddCompactUnit                   },
      {"EditCompactUnit",    EditCompactUnit                   },
      {"DeleteCompactUnit",          DeleteCompactUnit                                },
      {"DirectInsert",         DirectInsert                                },
      {"DirectReadAndEdit",       DirectReadAndEdit                      },
      {"Procedure",            Procedure                                 },
      {"DeletePatientByPosition",       DeletePatientByPosition,                          OpenPatients},
      {"DeleteImageByPosition",               DeleteImageByPosition,                                     OpenImages, false, true},
      {"DeleteSelected", DeleteSelected,              nullptr, false, false, true},
      {"ReplaceImage",                         ReplaceImage,                                             nullptr, false, true},
      {"ReplaceImageInTransaction",               ReplaceImageInTransaction,                nullptr, false, true},
      {"RollBack",                         RollBack                                                   },
      {"ChangeAfterTransaction",                  ChangeAfterTransaction                                         },
      {"ChangeAfterCommit",                     ChangeAfterCommit                                                              },
      {"ChangeAfterRefusedAdd",ChangeAfterRefusedAdd},
  };
}

std::vector<Scenario> AllScenarios() {
  std::vector<Scenario> scenarios = BrowsingScenarios();
  for (const auto& more : {RowScenarios(), OtherScenarios()}) {
    scenarios.insert(scenarios.end(), more.begin(), more.end());
  }
  return scenarios;
}

}  // namespace faults
