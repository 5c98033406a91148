// Connecting and closing, settings, compact records, procedures, transactions, and what changes several rows.
#include "frame/dynamic_rec.h"
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

void ReconnectThroughTheView(Answers& answers, const Keys&) {
  answers.Code("open", DB_OpenPatEx(), {3, 30, 31});
  answers.Position("first", DB_MoveToPatExByPos(1));
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
  answers.Code("write", DB_WriteProfileString("Exhausted", "-", kSettingValue), kWrites);
}

void WriteNumber(Answers& answers, const Keys&) {
  answers.Code("write", DB_WriteProfileInt("ExhaustedNumber", "-", 12345), kWrites);
}

void WriteKnownSetting(Answers& answers, const Keys&) {
  answers.Code("write", DB_WriteProfileString("DBMS", "-", "Other"), kWrites);
}

void DeleteSetting(Answers& answers, const Keys&) {
  answers.Code("delete", DB_WriteProfileString("DBMS", "-", ""), kDeletes);
}

// As a careful caller does: commits only what was done whole.
void CommitIf(bool done, Answers& answers) {
  if (done && answers.Code("commit", DB_CommitTransaction(), kTransactions) == 0) {
    return answers.RequireChange();
  }
  answers.Code("rollback", DB_RollbackTransaction(), kTransactions);
  if (!done) answers.RequireChange(false);
}

void SettingsInTransaction(Answers& answers, const Keys&) {
  if (answers.Code("begin", DB_BeginTransaction(), kTransactions) != 0) return;
  const auto write = [&](const char* key, const char* value, Codes allowed) {
    return answers.Code("write", DB_WriteProfileString(key, "-", value), allowed) == 0;
  };
  CommitIf(write("Exhausted", kSettingValue, kWrites) && write("DBMS", "Other", kWrites) &&
               write("DBMS", "", kDeletes),
           answers);
}

tagPATIENTCOMPACT CompactPatient(const char* identifier) {
  tagPATIENTCOMPACT record{};
  support::SetText(record.szName, kCompactName);
  support::SetText(record.szFirstname, kCompactFirstname);
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

void EditSelectedOfCompactPatient(Answers& answers, const Keys& keys) {
  tagPATIENTCOMPACT record = CompactPatient("}EX1");
  record.dwID = static_cast<DWORD>(keys.at("TPat"));
  answers.Code("edit", DB_EditSelPat(&record, KYODBC_MASK_PAT_EXTERNAL_ID | KYODBC_MASK_PAT_SURNAME),
               kWrites);
}

void CompactPatientByPosition(Answers& answers, const Keys&) {
  tagPATIENTCOMPACT record{};
  answers.Code("first", DB_GetPatByPos(&record, 1), {3, 31, 64});
}

void CompactPatientInTransaction(Answers& answers, const Keys& keys) {
  if (answers.Code("begin", DB_BeginTransaction(), kTransactions) != 0) return;
  tagPATIENTCOMPACT added = CompactPatient("SL1");
  tagPATIENTCOMPACT edited = CompactPatient("SL2");
  edited.dwID = static_cast<DWORD>(keys.at("TPat"));
  CommitIf(answers.Code("add", DB_AddNewPat(&added), kAdds) == 0 &&
               answers.Code("edit", DB_EditPat(&edited), kWrites) == 0 &&
               answers.Code("delete", DB_DeletePat(&added), kDeletes) == 0,
           answers);
}

void DeleteCompactPatient(Answers& answers, const Keys& keys) {
  tagPATIENTCOMPACT record = CompactPatient("SL1");
  record.dwID = static_cast<DWORD>(keys.at("TPat"));
  answers.Code("get", DB_GetPat(&record), {1, 3, 21, 31, 52, 64});
  if (answers.Code("delete", DB_DeletePat(&record), kDeletes) == 0) answers.RequireChange();
}

tagPATIENTCOMPACT CompactUnit() {
  tagPATIENTCOMPACT record{};
  support::SetText(record.szName, "Compact7\xBBT1");
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

void EditSelectedOfCompactUnit(Answers& answers, const Keys& keys) {
  tagPATIENTCOMPACT record = CompactUnit();
  record.dwID = static_cast<DWORD>(keys.at("TUnit"));
  answers.Code("edit", DB_EditSelUnit(&record, KYODBC_MASK_UNIT_NAME), kWrites);
}

void CompactUnitByPosition(Answers& answers, const Keys&) {
  tagPATIENTCOMPACT record{};
  answers.Code("first", DB_GetUnitByPos(&record, 1), {3, 31, 64});
}

void DeleteCompactUnit(Answers& answers, const Keys& keys) {
  tagPATIENTCOMPACT record = CompactUnit();
  record.dwID = static_cast<DWORD>(keys.at("TUnit"));
  answers.Code("get", DB_GetUnit(&record), {1, 3, 31, 52, 64, 66});
  if (answers.Code("delete", DB_DeleteUnit(&record), kDeletes) == 0) answers.RequireChange();
}

// A set of the caller's own, which passes exceptions on.
void Procedure(Answers& answers, const Keys&) {
  const auto run = []() -> WORD {
    CDynamicRec set;
    if (!set.ExecuteSProc(kProcedure)) return 3;
    for (; !set.IsEOF(); set.MoveNext()) {
      LONG key = 0;
      CString name;
      set.GetFieldValue(short{0}, key);
      set.GetFieldValue(short{1}, name);
    }
    return 0;
  };
  answers.Code("procedure", CodeOf(run), {3, 31});
}

void OpenPatients(const Keys&) { DB_OpenTPat(); }
void OpenJoined(const Keys&) { DB_OpenPatEx(); }
void OpenUnits(const Keys&) { DB_OpenTUnit(); }

void DeleteSelected(Answers& answers, const Keys&) {
  tagTPATIENT selected{};
  selected.lSelect = 1;
  answers.Code("delete", DB_DeleteTPat(&selected), kDeletes);
}

tagTIMAGE Replacing(const Keys& keys) {
  tagTIMAGE image = Images::Fill(1);
  image.lPatID = keys.at("TPat");
  Images::ChangeText(&image, kChangedTextToo);
  return image;
}

void ReplaceImage(Answers& answers, const Keys& keys) {
  tagTIMAGE image = Replacing(keys);
  answers.Code("replace", DB_AddNewTImg(&image), {1, 3, 6, 8, 31, 52, 64});
}

void ReplaceImageInTransaction(Answers& answers, const Keys& keys) {
  if (answers.Code("begin", DB_BeginTransaction(), kTransactions) != 0) return;
  tagTIMAGE image = Replacing(keys);
  CommitIf(answers.Code("replace", DB_AddNewTImg(&image), {1, 3, 6, 8, 31, 52, 64}) == 0, answers);
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
  family::Stations::ChangeText(&station, kChangedText);
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
  std::vector<Scenario> scenarios;
  const auto add = [&scenarios](const char* name, auto run,
                                void (*prepare)(const Keys&) = nullptr) -> Scenario& {
    return scenarios.emplace_back(Scenario{.name = name, .run = run, .prepare = prepare});
  };
  add("ConnectAndClose", ConnectAndClose).connects = true;
  add("ConnectOpenAndClose", ConnectOpenAndClose).connects = true;
  add("Reconnect", Reconnect, LoseTheConnection);
  add("ReconnectThroughTheView", ReconnectThroughTheView, LoseTheConnection);
  add("Information", Information).runs_statements = false;
  add("ReadSettings", ReadSettings);
  add("WriteNewSetting", WriteNewSetting);
  add("WriteNumber", WriteNumber);
  add("WriteKnownSetting", WriteKnownSetting);
  add("DeleteSetting", DeleteSetting);
  add("SettingsInTransaction", SettingsInTransaction);
  add("AddCompactPatient", AddCompactPatient);
  add("EditCompactPatient", EditCompactPatient);
  add("EditSelectedOfCompactPatient", EditSelectedOfCompactPatient);
  add("DeleteCompactPatient", DeleteCompactPatient);
  add("CompactPatientByPosition", CompactPatientByPosition, OpenJoined);
  add("CompactPatientInTransaction", CompactPatientInTransaction);
  add("AddCompactUnit", AddCompactUnit);
  add("EditCompactUnit", EditCompactUnit);
  add("EditSelectedOfCompactUnit", EditSelectedOfCompactUnit);
  add("DeleteCompactUnit", DeleteCompactUnit);
  add("CompactUnitByPosition", CompactUnitByPosition, OpenUnits);
  add("Procedure", Procedure).passes_exceptions_on = true;
  add("DeleteSelected", DeleteSelected).row_by_row = true;
  add("ReplaceImage", ReplaceImage).derives = true;
  add("ReplaceImageInTransaction", ReplaceImageInTransaction).derives = true;
  add("RollBack", RollBack);
  add("RollBackBesideAnOpenSet", RollBack, OpenPatients);
  add("ChangeAfterTransaction", ChangeAfterTransaction);
  add("ChangeAfterCommit", ChangeAfterCommit);
  add("ChangeAfterRefusedAdd", ChangeAfterRefusedAdd);
  return scenarios;
}

void MakeProcedure(support::RawOdbc& raw) {
  const std::string select = "SELECT tStatCulIntStatIDPk, tStatSName FROM TStation";
  for (const std::string& sql : support::CurrentKind().ProcedureStatements(kProcedure, select)) raw.Exec(sql);
}

std::vector<Scenario> AllScenarios() {
  std::vector<Scenario> scenarios = BrowsingScenarios();
  for (const auto& more : {RowScenarios(), DirectScenarios(), OtherScenarios()}) {
    scenarios.insert(scenarios.end(), more.begin(), more.end());
  }
  return scenarios;
}

}  // namespace faults
