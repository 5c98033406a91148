#include "tests/loss/loss_test_base.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <thread>

#include "tests/support/odbc_home.h"

namespace loss {
namespace {

using support::CurrentKind;

std::unique_ptr<support::OwnServer> the_server;

std::string KindName() {
  const char* chosen = std::getenv("KYODBC_TEST_DB");
  return chosen != nullptr ? chosen : "";
}

class ServerForAllTests : public testing::Environment {
 public:
  void SetUp() override { the_server = std::make_unique<support::OwnServer>(KindName()); }
  void TearDown() override { the_server.reset(); }
};

[[maybe_unused]] const testing::Environment* const kServer =
    testing::AddGlobalTestEnvironment(new ServerForAllTests);

support::Options Through(int port, support::Options options) {
  for (auto& [name, value] : options) {
    if (name == "Port" || name == "PORT") value = std::to_string(port);
  }
  return options;
}

}  // namespace

std::unique_ptr<support::Practice> LossTest::m_practice;

support::OwnServer& Server() { return *the_server; }

bool OnPostgresql() { return KindName() == "postgresql"; }

int Rounds() {
  const char* rounds = std::getenv("KYODBC_TEST_ROUNDS");
  return rounds != nullptr ? std::max(1, std::stoi(rounds)) : 1;
}

tagTPATIENT Patient(const std::string& name, const std::string& first_name) {
  tagTPATIENT patient{};
  patient.lDrID = 1;
  support::SetText(patient.szName, name);
  support::SetText(patient.szFirstname, first_name);
  support::SetText(patient.szSex, "f");
  patient.dBirthday = support::Ts(1970, 1, 2);
  return patient;
}

void LossTest::SetUpTestSuite() { m_practice = std::make_unique<support::Practice>(); }

void LossTest::TearDownTestSuite() { m_practice.reset(); }

void LossTest::SetUp() {
  m_relay = std::make_unique<support::Relay>(Server().Port());
  m_source = support::OdbcHome::FreshName();
  support::Options options = Through(m_relay->Port(), CurrentKind().SourceOptions(m_practice->Database()));
  for (const auto& more : MoreOptions()) options.push_back(more);
  support::OdbcHome::Hold()->AddSource(m_source, CurrentKind().DriverName(), options);
  Raw().Exec("DELETE FROM TPatient");
  Raw().Exec("DELETE FROM TImage");
  Raw().Exec("DELETE FROM TStation WHERE tStatCulIntStatIDPk > 1");
  ASSERT_EQ(Connect(), 0);
  tagTPATIENT patient = Patient("Lost", "Before");
  ASSERT_EQ(DB_AddNewTPat(&patient), 0);
  m_patient = patient.lPatID;
}

void LossTest::TearDown() {
  EXPECT_EQ(DB_CloseDatabase(), 0);
  DropRaw();
  m_relay.reset();
  support::OdbcHome::Hold()->RemoveSource(m_source);
  Server().Resume();
}

WORD LossTest::Connect() {
  tagDBCONNECT parameters = m_practice->Parameters();
  support::SetText(parameters.szDSN, m_source);
  return DB_InitDatabase(&parameters);
}

support::RawOdbc& LossTest::Raw() {
  if (!m_raw) m_raw = std::make_unique<support::RawOdbc>(*m_practice);
  return *m_raw;
}

void LossTest::EndSession() {
  for (const int port : m_relay->PortsAtServer()) {
    const std::string number = std::to_string(port);
    if (OnPostgresql()) {
      Raw().Query("SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity WHERE client_port = " +
                  number);
    } else {
      Raw().Exec("KILL " + Raw().Text("SELECT id FROM information_schema.processlist WHERE host LIKE '%:" +
                                      number + "'"));
    }
  }
}

void LossTest::WaitForEndOf(const std::vector<int>& ports) {
  for (const int port : ports) {
    const std::string number = std::to_string(port);
    const std::string sessions =
        OnPostgresql()
            ? "SELECT COUNT(*) FROM pg_stat_activity WHERE client_port = " + number
            : "SELECT COUNT(*) FROM information_schema.processlist WHERE host LIKE '%:" + number + "'";
    const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (Raw().Number(sessions) != 0) {
      ASSERT_LT(std::chrono::steady_clock::now(), patience) << "the server keeps the session";
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
  }
}

void LossTest::ExpectHealed() {
  EXPECT_EQ(DB_OpenTPat(), 0);
  tagTPATIENT patient{};
  EXPECT_EQ(DB_GetTPatByPos(1, &patient), 0);
  EXPECT_EQ(support::Text(patient.szName), "Lost");
  EXPECT_EQ(DB_OpenPatEx(), 0);
  tagTPATIENTEX joined{};
  EXPECT_EQ(DB_GetPatExByPos(1, &joined), 0);
  EXPECT_EQ(support::Text(joined.szName), "Lost");
  for (WORD (*open)() : {DB_OpenTDr, DB_OpenTStat, DB_OpenTUnit, DB_OpenTImg, DB_OpenTMak, DB_OpenTGrp,
                         DB_OpenTDiag, DB_OpenTCfg, DB_OpenTTest}) {
    EXPECT_EQ(open(), 0);
  }
  tagTSTATION station{};
  EXPECT_EQ(DB_GetTStatByPos(1, &station), 0);
  EXPECT_EQ(support::Text(station.szName), "-");
  EXPECT_EQ(DB_CommitTransaction(), 1);
  EXPECT_EQ(DB_RollbackTransaction(), 1);
}

}  // namespace loss
