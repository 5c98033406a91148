#include "tools/data/server_programs.h"

#include <fmt/format.h>

#include "tools/data/shape.h"
#include "tools/doctor/source.h"
#include "tools/tool_error.h"

namespace {

std::string First(const Source& source, std::initializer_list<const char*> keys) {
  for (const char* key : keys) {
    std::string value = source.Option(key);
    if (!value.empty()) return value;
  }
  return {};
}

struct PqVariable {
  const char* option;
  const char* name;
};
constexpr PqVariable kPqVariables[] = {
    {"sslrootcert", "PGSSLROOTCERT"},
    {"sslcert",     "PGSSLCERT"    },
    {"sslkey",      "PGSSLKEY"     },
    {"sslcrl",      "PGSSLCRL"     },
};

struct MariadbOption {
  const char* of_driver;
  const char* of_programs;
};
constexpr MariadbOption kMariadbOptions[] = {
    {"SSLCA",     "--ssl-ca"    },
    {"SSLCAPATH", "--ssl-capath"},
    {"SSLCERT",   "--ssl-cert"  },
    {"SSLKEY",    "--ssl-key"   },
};

// "sslrootcert=/etc/ca.crt keepalives_idle=10": what of it a program of PostgreSQL takes from its
// environment.
std::string PqOption(const std::string& options, const std::string& name) {
  std::size_t at = options.find(name + "=");
  while (at != std::string::npos && at > 0 && options[at - 1] != ' ' && options[at - 1] != '{')
    at = options.find(name + "=", at + 1);
  if (at == std::string::npos) return {};
  const std::size_t start = at + name.size() + 1;
  return options.substr(start, options.find_first_of(" }", start) - start);
}

void AddIfGiven(std::vector<std::string>& command, const std::string& option, const std::string& value) {
  if (!value.empty()) command.push_back(option + "=" + value);
}

}  // namespace

ServerPrograms::ServerPrograms(const Place& place, const PracticeDatabase& database)
    : m_system(database.Kind()) {
  const Source source = FindSource(SourceOf(place).value());
  m_host = First(source, {"Servername", "SERVER"});
  m_port = First(source, {"Port"});
  m_socket = First(source, {"SOCKET"});
  m_database = First(source, {"Database"});
  m_user = database.User().empty() ? First(source, {"Username", "UserName", "USER", "UID"}) : database.User();
  const std::string password =
      database.Password().empty() ? First(source, {"Password", "PASSWORD", "PWD"}) : database.Password();
  if (m_system == System::kPostgresql) {
    m_environment["PGPASSWORD"] = password;
    m_environment["PGAPPNAME"] = "kyodbc";
    if (!source.Option("SSLmode").empty()) m_environment["PGSSLMODE"] = source.Option("SSLmode");
    for (const PqVariable& variable : kPqVariables) {
      const std::string value = PqOption(source.Option("pqopt"), variable.option);
      if (!value.empty()) m_environment[variable.name] = value;
    }
    return;
  }
  // Here the owner is the database.
  if (!database.Owner().empty()) m_database = database.OwnerName();
  m_environment["MYSQL_PWD"] = password;
  if (!source.Option("FORCETLS").empty() || !source.Option("SSLCA").empty()) m_encryption = {"--ssl"};
  for (const MariadbOption& option : kMariadbOptions)
    AddIfGiven(m_encryption, option.of_programs, source.Option(option.of_driver));
  if (source.Option("SSLVERIFY") == "1") m_encryption.emplace_back("--ssl-verify-server-cert");
}

ServerPrograms::Command ServerPrograms::DumpPostgresql(const std::filesystem::path& file,
                                                       const std::string& snapshot,
                                                       const std::vector<std::string>& without) const {
  Command command = {"pg_dump", "--format=custom", "--no-password", "--file=" + file.string(),
                     "--snapshot=" + snapshot};
  // With --schema it would be the schema's making too, which stands in the way where there is one already.
  for (const std::string& schema : without) command.push_back("--exclude-schema=" + schema);
  AddIfGiven(command, "--host", m_host);
  AddIfGiven(command, "--port", m_port);
  AddIfGiven(command, "--username", m_user);
  AddIfGiven(command, "--dbname", m_database);
  return command;
}

ServerPrograms::Command ServerPrograms::ReadPostgresql(const std::filesystem::path& file) {
  Command command = {"pg_restore", "--data-only", "--file=-"};
  for (const char* table : kTableNames) {
    command.push_back("--table=" + Lower(table));
    command.push_back("--table=" + Lower(table) + "raw");
  }
  command.push_back(file.string());
  return command;
}

ServerPrograms::Command ServerPrograms::MariadbOptions() const {
  Command options = {"--default-character-set=utf8mb4"};
  AddIfGiven(options, "--host", m_host);
  AddIfGiven(options, "--port", m_port);
  AddIfGiven(options, "--socket", m_socket);
  AddIfGiven(options, "--user", m_user);
  options.insert(options.end(), m_encryption.begin(), m_encryption.end());
  return options;
}

ServerPrograms::Command ServerPrograms::DumpMariadb() const {
  Command command = {"mariadb-dump",      "--no-defaults",    "--single-transaction", "--routines",
                     "--complete-insert", "--no-tablespaces", "--skip-lock-tables"};
  const Command options = MariadbOptions();
  command.insert(command.end(), options.begin(), options.end());
  command.push_back(m_database);
  return command;
}

ServerPrograms::Command ServerPrograms::Client() const {
  if (m_system == System::kPostgresql) {
    Command command = {"psql", "-X", "-q", "-o", "/dev/null", "-v", "ON_ERROR_STOP=1", "--no-password"};
    AddIfGiven(command, "--host", m_host);
    AddIfGiven(command, "--port", m_port);
    AddIfGiven(command, "--username", m_user);
    AddIfGiven(command, "--dbname", m_database);
    return command;
  }
  Command command = {"mariadb", "--no-defaults", "--batch", "--skip-column-names", "--unbuffered"};
  const Command options = MariadbOptions();
  command.insert(command.end(), options.begin(), options.end());
  command.push_back(m_database);
  return command;
}
