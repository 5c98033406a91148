// No password and no patient's value gets where nobody asked for it.
#include <cstring>
#include <filesystem>
#include <sstream>

#include "frame/KyODBCDiag.h"
#include "frame/connection.h"
#include "tests/flat/family.h"
#include "tests/flat/text_fields.h"
#include "tests/hostile/log_file.h"
#include "tests/hostile/own_practice.h"
#include "tests/support/own_memory.h"

namespace hostile {
namespace {

namespace fs = std::filesystem;
using support::SetText;

// In every text field that has the room, and nowhere else.
constexpr char kValue[] = "Zq7Mark";
constexpr char kPassword[] = "Pw7;Mark{9}";
constexpr char kWrongPassword[] = "Pw7;Mark{8}";
constexpr char kPasswordMark[] = "Pw7";
constexpr char kBirthday[] = "1937-11-23";

std::string FileText(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void ExpectNoSecret(const std::string& text, const std::string& where) {
  for (const std::string mark : {kValue, kPasswordMark, "Mark{", kBirthday}) {
    const std::size_t at = text.find(mark);
    EXPECT_EQ(at, std::string::npos) << where << ": ..."
                                     << text.substr(at > 200 ? at - 200 : 0, at == text.npos ? 0 : 300);
  }
}

class Secrets : public support::PracticeTest {
 protected:
  void SetUp() override {
    if (OnPostgresql()) {
      Raw().Exec(std::string("CREATE ROLE marked LOGIN SUPERUSER PASSWORD '") + kPassword + "'");
    }
    if (OnMariadb()) {
      for (const char* user : {"marked@'%'", "marked@localhost"}) {
        Raw().Exec(std::string("CREATE OR REPLACE USER ") + user + " IDENTIFIED BY '" + kPassword + "'");
        Raw().Exec(std::string("GRANT ALL ON *.* TO ") + user);
      }
    }
    const char* temporary = std::getenv("TMPDIR");
    m_before = temporary != nullptr ? temporary : "";
    m_temporary = m_practice.Folder() / "temporary";
    fs::create_directory(m_temporary);
    setenv("TMPDIR", m_temporary.c_str(), 1);
    m_folder_before = fs::current_path();
    fs::current_path(m_temporary);
  }
  void TearDown() override {
    DB_CloseDatabase();
    fs::current_path(m_folder_before);
    m_before.empty() ? unsetenv("TMPDIR") : setenv("TMPDIR", m_before.c_str(), 1);
    // A session of its own: the test may have ended that of Raw.
    if (OnPostgresql()) support::RawOdbc(m_practice).Exec("DROP ROLE marked");
  }
  WORD ConnectMarked(const char* password = kPassword) {
    tagDBCONNECT parameters = m_practice.Parameters();
    SetText(parameters.szUID, "marked");
    SetText(parameters.szPWD, password);
    return Told(DB_InitDatabase(&parameters));
  }

  // Keeps what the library tells of a failure.
  WORD Told(WORD code) {
    tagDBERRORDETAIL detail{};
    if (DB_GetLastErrorDetail(&detail, sizeof detail) == 0) {
      m_told.append(reinterpret_cast<const char*>(&detail), sizeof detail);
    }
    return code;
  }

  template <class Table>
  static typename Table::Record Marked(int n) {
    typename Table::Record record = Table::Fill(n);
    for (const auto& field : family::TextFields<typename Table::Record>()) {
      if (field.width > sizeof kValue + 2) field.Set(&record, kValue + std::to_string(n));
    }
    if constexpr (std::is_same_v<Table, family::Patients>) record.dBirthday = support::Ts(1937, 11, 23);
    return record;
  }

  // Calls that go well and calls that do not, with values that nobody shall see.
  template <class Table>
  void CallTable() {
    auto record = Marked<Table>(1);
    Told(Table::Add(&record));
    Told(Table::Add(&record));
    auto wild = Marked<Table>(2);
    Table::ChangeText(&wild, std::string(kValue) + "\xFF'");
    Told(Table::Add(&wild));
    Told(Table::Edit(&wild));
    for (const LONG id : {17, 18, 19, 22, 42, 43, 49, 50, 58, 59}) {
      Told(Table::Open());
      Told(Table::SetFilter(id, KYODBC_EQUAL, kValue, nullptr, nullptr, nullptr));
      Told(Table::SetFilter(id, KYODBC_LIKE, "Zq7Mark\\", nullptr, nullptr, nullptr));
      Told(
          Table::SetFilter(KYODBC_PACK(id, 0, 0, 0), KYODBC_EQUAL, "Zq7Mark\xFF", nullptr, nullptr, nullptr));
    }
    Told(Table::SetFilter(0, 0, nullptr, nullptr, nullptr, nullptr));
    Told(Table::SetSort(KYODBC_FIELD_KEY));
    auto named = Marked<Table>(1);
    Told(Table::Get(&named));
    Told(Table::EditSel(&named, KYODBC_MASK_ALL));
    named = Marked<Table>(3);
    Told(Table::Get(&named));
    Told(Table::Delete(&named));
    record = Marked<Table>(1);
    Told(Table::Delete(&record));
  }
  void CallAllTables() {
    CallTable<family::Doctors>();
    CallTable<family::Stations>();
    CallTable<family::Units>();
    CallTable<family::Patients>();
    CallTable<family::Images>();
    CallTable<family::Makros>();
    CallTable<family::Groups>();
    CallTable<family::Diagnoses>();
    CallTable<family::Configs>();
    CallTable<family::Tests>();
  }
  void CallOthers() {
    char value[100] = {};
    Told(DB_WriteProfileString(kValue, "-", kValue));
    Told(DB_GetProfileString(kValue, "-", kValue, value, sizeof value, nullptr));
    Told(DB_WriteProfileString("Zq7Mark\xFF", "-", "Zq7Mark\xFF"));
    Told(DB_WriteProfileString("Key", kValue, kValue));
    Told(DB_SetTPatSortIndex(KYODBC_FIELD_NAME));
    Told(DB_OpenTPat());
    Told(static_cast<WORD>(DB_MoveToTPatByString(kValue)));
    Told(static_cast<WORD>(DB_MoveToTPatByString("Zq7Mark\xFF")));
    Told(DB_SetPatExSortIndex(KYODBC_FIELD_NAME));
    Told(DB_OpenPatEx());
    Told(static_cast<WORD>(DB_MoveToPatExByString(kValue)));
    tagPATIENTCOMPACT compact{};
    SetText(compact.szName, kValue);
    SetText(compact.szFirstname, kValue);
    SetText(compact.szDrName, kValue);
    for (WORD (*call)(tagPATIENTCOMPACT*) :
         {DB_AddNewPat, DB_EditPat, DB_GetPat, DB_AddNewUnit, DB_GetUnit}) {
      Told(call(&compact));
    }
    tagTPATIENT impossible = Marked<family::Patients>(4);
    impossible.dBirthday.month = 13;
    Told(DB_AddNewTPat(&impossible));
  }
  // What a database refuses, it repeats in its message.
  void CallWithConstraints() {
    const std::string patients = m_practice.IsTable("TPatient") ? "TPatient" : "TPatientRaw";
    Raw().Exec("DELETE FROM TPatient");
    Raw().Exec("CREATE UNIQUE INDEX only_once ON " + patients + " (tPatSSocID)");
    for (const int n : {5, 6}) {
      tagTPATIENT patient = Marked<family::Patients>(n);
      SetText(patient.szSocID, std::string(kValue) + "!");
      EXPECT_EQ(Told(DB_AddNewTPat(&patient)), n == 5 ? 0 : 6);
    }
    MakeReadOnly("TStation");
    CallTable<family::Stations>();
  }
  void Everything() {
    EXPECT_EQ(ConnectMarked(kWrongPassword), HasServer() ? 30 : 0);
    DB_CloseDatabase();
    ASSERT_EQ(ConnectMarked(), 0);
    EXPECT_EQ(ConnectMarked(), 3);
    CallAllTables();
    EXPECT_EQ(DB_BeginTransaction(), 0);
    CallAllTables();
    DB_RollbackTransaction();
    CallOthers();
    CallWithConstraints();
    if (HasServer()) {
      Server().Kill();
      CallTable<family::Patients>();
      Told(DB_OpenTPat());
      Server().Resume();
      Told(DB_OpenTPat());
    }
    Told(DB_CloseDatabase());
  }
  void ExpectNoSecretInFiles() {
    for (const auto& entry : fs::recursive_directory_iterator(m_temporary)) {
      ExpectNoSecret(FileText(entry.path()), entry.path());
      ExpectNoSecret(entry.path(), "the name of a file");
    }
    for (const char* file : {"/proc/self/comm", "/proc/self/cmdline", "/proc/self/environ"}) {
      ExpectNoSecret(FileText(file), file);
    }
  }
  std::string m_told;
  std::string m_before;
  fs::path m_folder_before;
  fs::path m_temporary;  // the current folder, too
};

TEST_F(Secrets, AreInNoLogOfAnyLevelNoMessageAndNoFile) {
  LogFile log("trace");
  testing::internal::CaptureStderr();
  Everything();
  ExpectNoSecret(testing::internal::GetCapturedStderr(), "standard error");
  const std::string text = log.Text();
  EXPECT_NE(text.find("debug: "), std::string::npos);
  EXPECT_NE(text.find("error: "), std::string::npos);
  ExpectNoSecret(text, "the log");
  EXPECT_NE(m_told, "");
  ExpectNoSecret(m_told, "the detail of an error");
  ExpectNoSecretInFiles();
}

// So that the search above is known to find what it looks for.
TEST_F(Secrets, OfPatientsAreInTheLogWhenTheyAreAskedFor) {
  setenv("KYODBC_LOG_VALUES", "1", 1);
  LogFile log("debug");
  ASSERT_EQ(ConnectMarked(), 0);
  CallTable<family::Patients>();
  unsetenv("KYODBC_LOG_VALUES");
  EXPECT_NE(log.Text().find(kValue), std::string::npos);
  EXPECT_EQ(log.Text().find(kPasswordMark), std::string::npos);
}

TEST_F(Secrets, ThePasswordIsForgottenWithTheConnection) {
  ASSERT_EQ(ConnectMarked(), 0);
  const auto& stored = TheConnection().m_Params.szPWD;
  EXPECT_STREQ(stored, kPassword);
  EXPECT_EQ(DB_CloseDatabase(), 0);
  EXPECT_EQ(std::string(stored, sizeof stored), std::string(sizeof stored, '\0'));
  tagDBCONNECT parameters = m_practice.Parameters();
  SetText(parameters.szDSN, "no such source");
  SetText(parameters.szPWD, kPassword);
  EXPECT_EQ(DB_InitDatabase(&parameters), 3);
  EXPECT_EQ(std::string(stored, sizeof stored), std::string(sizeof stored, '\0'));
}

// The drivers of servers, and the driver manager on the way to them, keep copies of their own.
TEST_F(Secrets, TheStoredPasswordIsTheOnlyCopyThatTheLibraryKeeps) {
  if (HasServer()) return;
  tagDBCONNECT parameters = m_practice.Parameters();
  support::WriteHidden(parameters.szPWD);
  EXPECT_EQ(DB_InitDatabase(&parameters), 0);
  explicit_bzero(&parameters, sizeof parameters);
  const auto stored = reinterpret_cast<std::uintptr_t>(TheConnection().m_Params.szPWD);
  EXPECT_EQ(support::FindHidden(), std::vector{stored});
  EXPECT_EQ(DB_CloseDatabase(), 0);
  EXPECT_EQ(support::FindHidden(), std::vector<std::uintptr_t>());
}

TEST_F(Secrets, TheStoredPasswordIsOnAPageThatNoCoreDumpHas) {
  ASSERT_EQ(ConnectMarked(), 0);
  const auto address = reinterpret_cast<std::uintptr_t>(&TheConnection().m_Params);
  std::istringstream maps(FileText("/proc/self/smaps"));
  std::string line;
  bool here = false;
  std::string flags;
  while (std::getline(maps, line)) {
    // A line that begins with a range of addresses begins the next mapping.
    char* end = nullptr;
    const std::uintptr_t first = std::strtoull(line.c_str(), &end, 16);
    if (*end == '-') here = first <= address && address < std::strtoull(end + 1, nullptr, 16);
    if (here && line.starts_with("VmFlags:")) flags = line + " ";
  }
  EXPECT_NE(flags.find(" dd "), std::string::npos) << flags;
}

}  // namespace
}  // namespace hostile
