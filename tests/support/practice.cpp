#include "tests/support/practice.h"

#include <cstdlib>
#include <stdexcept>

#include "tests/support/records.h"
#include "tests/support/source_names.h"

namespace support {
namespace {

// Practices of one kind have the same options under the same name; servers change with their folder.
std::string KindOf(Tables tables) {
  const char* servers = std::getenv("KYODBC_TEST_SERVERS");
  return CurrentKind().Name() + (tables == Tables::kFullNames ? ", full names, " : ", short names, ") +
         (servers != nullptr ? servers : "");
}

}  // namespace

Practice::Practice(PracticeOptions options)
    : m_home(OdbcHome::Hold()),
      m_dsn(TakeSourceName(KindOf(options.tables))),
      m_folder(m_home->Folder() / m_dsn),
      m_tables(options.tables) {
  const DatabaseKind& kind = CurrentKind();
  if (kind.DriverFile().empty()) throw std::runtime_error("no ODBC driver for " + kind.DriverName());
  std::filesystem::create_directory(m_folder);
  m_database = kind.Acquire(m_folder, m_tables);
  if (options.with_owner) m_owner = kind.Owner(m_database);
  m_home->AddDriver(kind.DriverName(), kind.DriverFile());
  AddSource(m_dsn);
}

Practice::~Practice() {
  for (const std::string& source : m_sources) m_home->RemoveSource(source);
  CurrentKind().Release(m_database, m_tables);
  std::error_code ignored;
  std::filesystem::remove_all(m_folder, ignored);
  GiveSourceNameBack(KindOf(m_tables), m_dsn);
}

void Practice::AddSource(const std::string& name) {
  const DatabaseKind& kind = CurrentKind();
  m_home->AddSource(name, kind.DriverName(), kind.SourceOptions(m_database));
  m_sources.push_back(name);
}

tagDBCONNECT Practice::Parameters() const {
  tagDBCONNECT parameters{};
  SetText(parameters.szDSN, m_dsn);
  SetText(parameters.szUID, CurrentKind().User());
  SetText(parameters.szPWD, CurrentKind().Password());
  SetText(parameters.szOwner, m_owner);
  return parameters;
}

bool Practice::IsTable(const std::string& name) const {
  return name.ends_with("Raw") == (m_tables == Tables::kFullNames);
}

std::string Practice::OtherName(const std::string& name) {
  return name.ends_with("Raw") ? name.substr(0, name.size() - 3) : name + "Raw";
}

}  // namespace support
