// Servers that demand encryption, and workstations that want to know whom they talk to.
#include "tests/accounts/scripts.h"
#include "tests/support/broken_source.h"

namespace accounts {
namespace {

namespace fs = std::filesystem;

class Encryption : public Scripts {
 protected:
  void SetUp() override {
    m_certificates = m_practice.Folder() / "certificates";
    ASSERT_TRUE(Run("tls-certificates.sh " + m_certificates.string() + " localhost"));
    ASSERT_TRUE(Run("tls-certificates.sh " + (m_certificates / "strange").string() + " localhost"));
    ASSERT_TRUE(MakeAccount());
    const std::string files = Certificate("localhost.crt") + " " + Certificate("localhost.key");
    if (OnPostgresql()) {
      ASSERT_TRUE(Run("postgresql-tls.sh " + m_practice.Database() + " " + files));
    } else {
      ASSERT_TRUE(Run("mariadb-tls.sh " + files + " " + Certificate("practice-ca.crt") + " " +
                      Options().string() + " " + (Server().Folder() / "mariadb/data").string()));
      Restart();
    }
  }
  void TearDown() override {
    DB_CloseDatabase();
    if (OnMariadb()) {
      std::ofstream(Options()) << "";
      Restart();
    } else {
      // The administrator of the other tests comes without encryption.
      Take("hostnossl");
    }
    Scripts::TearDown();
  }
  static fs::path Options() { return Server().Folder() / "mariadb/my.cnf"; }
  static void Restart() {
    Server().Halt();
    Server().Resume();
  }
  // Takes the lines that begin so out of the rules of who may connect.
  static void Take(const std::string& beginning) {
    const fs::path rules = Server().Folder() / "postgresql/data/pg_hba.conf";
    std::ifstream file(rules);
    std::string kept;
    for (std::string line; std::getline(file, line);) {
      if (!line.starts_with(beginning)) kept += line + "\n";
    }
    file.close();
    std::ofstream(rules) << kept;
    Restart();
  }
  std::string Certificate(const std::string& name) const { return (m_certificates / name).string(); }

  // A data source as a workstation has it, that trusts the authority, which must vouch for the server's name.
  WORD ConnectTrusting(const std::string& authority, const std::string& host = "localhost") {
    const support::BrokenSource source(
        m_practice, OnPostgresql() ? support::Options{{"Servername", host},
                                                      {"SSLmode", "verify-full"},
                                                      {"pqopt", "sslrootcert=" + authority}}
                                   : support::Options{{"SERVER", host},
                                                      {"TCPIP", "1"},
                                                      {"FORCETLS", "1"},
                                                      {"SSLCA", authority},
                                                      {"SSLVERIFY", "1"}});
    return ConnectAs("xray", kPassword, source.Dsn());
  }

  fs::path m_certificates;
};

TEST_F(Encryption, IsDemandedByTheServer) {
  EXPECT_NE(ConnectAs("xray", kPassword), 0);
  EXPECT_EQ(ConnectTrusting(Certificate("practice-ca.crt")), 0);
  EXPECT_EQ(DB_OpenTStat(), 0);
}

TEST_F(Encryption, NeedsAServerThatTheAuthorityVouchesFor) {
  EXPECT_NE(ConnectTrusting(Certificate("strange/practice-ca.crt")), 0);
  EXPECT_NE(ConnectTrusting(Certificate("practice-ca.crt"), "127.0.0.1"), 0);
  EXPECT_EQ(ConnectTrusting(Certificate("practice-ca.crt")), 0);
}

// Of two nodes of a cluster one comes to the other as its client.
TEST_F(Encryption, CertificatesServeBothEndsOfAConnection) {
  for (const char* purpose : {"sslserver", "sslclient"}) {
    const std::string line = "openssl verify -purpose " + std::string(purpose) + " -CAfile " +
                             Certificate("practice-ca.crt") + " " + Certificate("localhost.crt") +
                             " >/dev/null 2>&1";
    EXPECT_EQ(std::system(line.c_str()), 0) << purpose;
  }
}

TEST_F(Encryption, KeysAreForTheirOwnerOnly) {
  for (const char* key : {"localhost.key", "practice-ca.key"}) {
    EXPECT_EQ(fs::status(Certificate(key)).permissions() & fs::perms(077), fs::perms::none) << key;
  }
}

}  // namespace
}  // namespace accounts
