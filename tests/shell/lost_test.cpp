// Connections to a server that are lost while somebody browses.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/shell/shell_case.h"
#include "tests/support/odbc_home.h"
#include "tests/support/records.h"
#include "tests/support/relay.h"
#include "tools/shell/browser.h"
#include "tools/shell/commands.h"

namespace shell_tests {
namespace {

using shell::Browser;
using shell::Key;
using support::Loss;

// The library reaches the practice through a relay.
class Lost : public SixtyPatients {
 protected:
  void SetUp() override {
    support::Options options = support::CurrentKind().SourceOptions(m_practice->Database());
    for (auto& [name, value] : options) {
      if (name != "Port" && name != "PORT") continue;
      m_relay = std::make_unique<support::Relay>(std::stoi(value));
      value = std::to_string(m_relay->Port());
    }
    ASSERT_NE(m_relay, nullptr);
    const std::string source = support::OdbcHome::FreshName();
    support::OdbcHome::Hold()->AddSource(source, support::CurrentKind().DriverName(), options);
    tagDBCONNECT parameters = m_practice->Parameters();
    support::SetText(parameters.szDSN, source);
    ASSERT_EQ(DB_InitDatabase(&parameters), 0);
    m_browser = std::make_unique<Browser>(FindTable("patients"), shell::Words{"name > C", "name"});
    m_browser->Resize(24, 80);
    Press(*m_browser, Key::kDown, 12);
    ASSERT_EQ(NameAtCursor(Main()), "G18");
  }
  void TearDown() override {
    m_browser.reset();
    SixtyPatients::TearDown();
  }
  const shell::Pager& Main() const { return m_browser->Main().pager; }
  bool MessageHas(const std::string& part) const {
    return m_browser->Message().find(part) != std::string::npos;
  }

  std::unique_ptr<support::Relay> m_relay;
  std::unique_ptr<Browser> m_browser;
};

// A jump asks the database whatever has been read ahead.
TEST_F(Lost, AStepConnectsAgainAndIsTakenWithTheSameFilterAndOrder) {
  m_relay->Lose(Loss::kReset);
  Type(*m_browser, "M");
  EXPECT_TRUE(MessageHas("the connection was lost; it was made again")) << m_browser->Message();
  EXPECT_EQ(NameAtCursor(Main()), "M36");
  EXPECT_EQ(Main().OpenedWith().filter, "name > C");
  EXPECT_EQ(Main().OpenedWith().sort, "name");
  EXPECT_EQ(Main().Count(), kPatients - 6);
  Press(*m_browser, Key::kHome);
  EXPECT_EQ(NameAtCursor(Main()), "C06");
}

TEST_F(Lost, RowsThatCannotBeReadAreNotTakenForDeletedOnes) {
  for (const Loss loss : {Loss::kReset, Loss::kFinish}) {
    Press(*m_browser, Key::kHome);
    m_relay->Lose(loss);
    Press(*m_browser, Key::kPageDown);
    for (const std::string& name : Names(Main())) EXPECT_NE(name, "gone");
  }
}

TEST_F(Lost, WithoutAServerNoRowIsTakenForADeletedOne) {
  Press(*m_browser, Key::kHome);
  m_relay->Refuse(true);
  m_relay->Lose(Loss::kReset);
  for (const Key key : {Key::kPageDown, Key::kDown, Key::kEnd, Key::kPageUp}) {
    Press(*m_browser, key);
    for (const std::string& name : Names(Main())) EXPECT_NE(name, "gone");
  }
}

TEST_F(Lost, AReloadConnectsAgainAndStaysOnTheRow) {
  m_relay->Lose(Loss::kReset);
  Type(*m_browser, "r");
  EXPECT_EQ(NameAtCursor(Main()), "G18");
  EXPECT_EQ(Main().Count(), kPatients - 6);
}

TEST_F(Lost, ANewFilterTakesEffectOnTheNewConnection) {
  m_relay->Lose(Loss::kFinish);
  Enter(*m_browser, "f", "name like D%");
  EXPECT_EQ(NameAtCursor(Main()), "D09");
  EXPECT_EQ(Main().Count(), 3);
}

TEST_F(Lost, ImagesComeOnTheNewConnection) {
  Enter(*m_browser, "f", "name like A%");
  Press(*m_browser, Key::kHome);
  Type(*m_browser, "i");
  m_relay->Lose(Loss::kReset);
  m_browser->BringImages();
  EXPECT_EQ(m_browser->Images()->pager.Count(), 5);
  EXPECT_EQ(NameAtCursor(Main()), "A00");
}

TEST_F(Lost, AnotherTableThanThePatientsIsHealedToo) {
  Type(*m_browser, "t");
  Press(*m_browser, Key::kDown, 3);
  Press(*m_browser, Key::kEnter);
  ASSERT_STREQ(Main().Of().plural, "images");
  Press(*m_browser, Key::kDown, 4);
  const LONG key = Main().Here()->Key();
  m_relay->Lose(Loss::kReset);
  Type(*m_browser, "r");
  EXPECT_EQ(Main().Here()->Key(), key);
  EXPECT_EQ(Main().Cursor(), 5);
}

TEST_F(Lost, WithoutAServerTheRowsStayInSightAndReloadTriesAgain) {
  const std::vector<std::string> names = Names(Main());
  m_relay->Refuse(true);
  m_relay->Lose(Loss::kReset);
  Type(*m_browser, "M");
  EXPECT_TRUE(MessageHas("the connection is lost; r tries again")) << m_browser->Message();
  EXPECT_EQ(Names(Main()), names);
  EXPECT_EQ(NameAtCursor(Main()), "G18");
  Press(*m_browser, Key::kPageDown);
  EXPECT_TRUE(MessageHas("there is no connection")) << m_browser->Message();
  Type(*m_browser, "r");
  EXPECT_TRUE(MessageHas("the connection is lost")) << m_browser->Message();
  m_relay->Refuse(false);
  Type(*m_browser, "r");
  EXPECT_EQ(NameAtCursor(Main()), "G18");
  EXPECT_EQ(Names(Main()), names);
  Type(*m_browser, "q");
  EXPECT_TRUE(m_browser->Ended());
}

TEST_F(Lost, LineModeCarriesALineOutOnTheNewConnection) {
  m_browser.reset();
  shell::Commands commands(FindTable("patients"), {"name > C", "name"}, 2);
  m_relay->Lose(Loss::kReset);
  testing::internal::CaptureStdout();
  commands.Answer("jump M");
  commands.Answer("count");
  const std::string printed = testing::internal::GetCapturedStdout();
  EXPECT_NE(printed.find(" M36 "), std::string::npos) << printed;
  EXPECT_TRUE(printed.ends_with("\n54\n")) << printed;
}

TEST_F(Lost, LineModeFailsWithoutAServerAndWorksOnceItIsBack) {
  m_browser.reset();
  shell::Commands commands(FindTable("patients"), {"name > C", "name"}, 2);
  m_relay->Refuse(true);
  m_relay->Lose(Loss::kReset);
  EXPECT_THROW(commands.Answer("reload"), shell::SetError);
  EXPECT_THROW(commands.Answer("reload"), shell::SetError);
  m_relay->Refuse(false);
  testing::internal::CaptureStdout();
  commands.Answer("reload");
  EXPECT_NE(testing::internal::GetCapturedStdout().find(" C06 "), std::string::npos);
}

}  // namespace
}  // namespace shell_tests
