// A practice whose administrator runs the scripts of schema/.
#ifndef KYODBC_TESTS_ACCOUNTS_SCRIPTS_H
#define KYODBC_TESTS_ACCOUNTS_SCRIPTS_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/hostile/own_practice.h"
#include "tests/support/fixtures.h"

namespace accounts {

inline const std::string kSchema = std::string(KYODBC_SOURCE_DIR) + "/schema/";
inline constexpr char kPassword[] = "it's; a \"pass\\word\" $(x) `y`";

using hostile::OnMariadb;
using hostile::OnPostgresql;
using hostile::Server;
using support::SetText;

class Scripts : public support::PracticeTest {
 protected:
  // Runs a script as the server's administrator. False when it fails.
  bool Run(const std::string& command, const std::string& input = {}) {
    const std::filesystem::path file = m_practice.Folder() / "input";
    std::ofstream(file) << input << "\n";
    std::string reach;
    if (OnPostgresql()) {
      reach = "PGHOST=127.0.0.1 PGPORT=" + std::to_string(Server().Port()) +
              " PGUSER=practice PGPASSWORD=secret ";
    }
    const std::string line = reach + kSchema + command + " <'" + file.string() + "' >/dev/null 2>&1";
    return std::system(line.c_str()) == 0;
  }
  static std::string Client() {
    return OnMariadb() ? " --no-defaults -S " + (Server().Folder() / "mariadb/socket").string() + " -u root"
                       : "";
  }
  bool MakeAccount(const std::string& options = {}, const std::string& password = kPassword) {
    const std::string script = OnMariadb() ? "mariadb-accounts.sh --without-tls " : "postgresql-accounts.sh ";
    return Run(script + options + " " + m_practice.Database() + " xray" + Client(), password);
  }
  void TearDown() override {
    DB_CloseDatabase();
    if (!OnPostgresql()) return;
    support::RawOdbc admin(m_practice);
    if (admin.Number("SELECT COUNT(*) FROM pg_roles WHERE rolname = 'xray'") == 0) return;
    admin.Exec("DROP OWNED BY xray");
    admin.Exec("DROP ROLE xray");
  }

  WORD ConnectAs(const char* user, const char* password, const std::string& source = {}) {
    tagDBCONNECT parameters = m_practice.Parameters();
    if (!source.empty()) SetText(parameters.szDSN, source);
    SetText(parameters.szUID, user);
    SetText(parameters.szPWD, password);
    DB_CloseDatabase();
    return DB_InitDatabase(&parameters);
  }
};

}  // namespace accounts

#endif
