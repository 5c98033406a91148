// What a session leaves in the log.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/log.h"
#include "tests/db/toy_set.h"

namespace {

namespace fs = std::filesystem;
using toys::CodeOf;
using toys::ToySet;

constexpr const char* kName = "Mustermann-Quist";
constexpr const char* kOtherName = "O'Neil-Quist";
constexpr const char* kMarkerPassword = "p4ssw0rd-marker";

class SessionLog : public toys::ToyTest {
 protected:
  SessionLog() : m_file(m_practice.Folder() / "log.txt") { m_database.Close(); }
  ~SessionLog() override {
    for (const char* name : {"KYODBC_LOG", "KYODBC_LOG_FILE", "KYODBC_LOG_VALUES"}) unsetenv(name);
    klog::Reconfigure();
  }
  void Configure(const char* level, const char* values) {
    setenv("KYODBC_LOG", level, 1);
    setenv("KYODBC_LOG_FILE", m_file.c_str(), 1);
    setenv("KYODBC_LOG_VALUES", values, 1);
    klog::Reconfigure();
  }
  // Where a password is asked for it must be the right one; elsewhere any is taken.
  std::string Password() const {
    const std::string asked = support::CurrentKind().Password();
    return asked.empty() ? kMarkerPassword : asked;
  }
  // Everything that sends a name or the password somewhere, also in ways that fail.
  void RunSession() {
    const std::string connect =
        "DSN=" + m_practice.Dsn() + ";UID=" + support::CurrentKind().User() + ";PWD=" + Password();
    CodeOf([&] { m_database.OpenEx(("DSN=NoSuchSource;UID=somebody;PWD=" + Password()).c_str()); });
    m_database.OpenEx(connect.c_str());
    ToySet set(&m_database);
    set.Open();
    set.AddNew();
    set.m_id = 4711001;
    set.m_name = kName;
    set.Update();
    set.m_strFilter = CString("tToyName='") + kName + "' AND tToyId=4711001";
    set.Requery();
    set.Edit();
    set.m_name = kOtherName;
    set.Update();
    set.AddNew();
    set.m_id = 4711001;
    set.m_name = kName;
    Fail([&] { set.Update(); });
    Fail([&] { m_database.ExecuteSQL((std::string("SELECT '") + kName + "' FROM '").c_str()); });
    Fail([&] {
      m_database.ExecuteSQL((std::string("DELETE FROM Toy WHERE tToyName='") + kOtherName + "'").c_str());
    });
    Fail([&] { m_database.ExecuteSQL("DELETE FROM NoSuchTable"); });
    Fail([&] { m_database.ExecuteSQL("SELECT tToyColour FROM Toy"); });
    m_database.Close();
  }
  template <class Action>
  void Fail(Action action) {
    try {
      action();
      ADD_FAILURE() << "nothing was thrown";
    } catch (CDBException* exception) {
      klog::Caught(exception, 31);
    }
  }
  std::string Written() const {
    std::ifstream file(m_file);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }
  bool HasWritten(const std::string& text) const { return Written().find(text) != std::string::npos; }

  fs::path m_file;
};

TEST_F(SessionLog, AtTheFinestLevelItHoldsNeitherPasswordNorValues) {
  Configure("trace", "0");
  RunSession();
  EXPECT_TRUE(HasWritten("SQLDriverConnect"));
  EXPECT_TRUE(HasWritten("INSERT INTO Toy"));
  EXPECT_TRUE(HasWritten("WHERE tToyName='?' AND tToyId=?"));
  for (const char* value : {"Mustermann", "Quist", "Neil", "4711001"}) {
    EXPECT_FALSE(HasWritten(value)) << value << " in\n" << Written();
  }
  EXPECT_FALSE(HasWritten(Password())) << Written();
}

TEST_F(SessionLog, ValuesShowWhenAskedForPasswordsNever) {
  Configure("trace", "1");
  RunSession();
  EXPECT_TRUE(HasWritten(kName));
  EXPECT_FALSE(HasWritten(Password())) << Written();
}

TEST_F(SessionLog, AtErrorLevelMissingTablesAndColumnsAreNamed) {
  Configure("error", "0");
  RunSession();
  EXPECT_NE(toys::LowerCase(Written()).find("nosuchtable"), std::string::npos) << Written();
  EXPECT_NE(toys::LowerCase(Written()).find("ttoycolour"), std::string::npos) << Written();
  EXPECT_TRUE(HasWritten("code 31"));
  EXPECT_TRUE(HasWritten("State:"));
  EXPECT_FALSE(HasWritten("INSERT INTO"));
}

TEST_F(SessionLog, AtDebugEveryStatementIsWrittenEvenOneThatCannotBePrepared) {
  Configure("debug", "0");
  m_database.OpenEx(Connect());
  ToySet set(&m_database);
  set.m_strFilter = "nowhere = 'Quist'";
  EXPECT_NE(CodeOf([&] { set.Open(); }), 0);
  EXPECT_TRUE(HasWritten("WHERE nowhere = '?'")) << Written();
  EXPECT_FALSE(HasWritten("Quist"));
}

TEST_F(SessionLog, WithoutASettingThereIsNone) {
  RunSession();
  EXPECT_FALSE(fs::exists(m_file));
}

}  // namespace
