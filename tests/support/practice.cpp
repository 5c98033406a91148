#include "tests/support/practice.h"

#include <stdexcept>

#include "tests/support/records.h"

namespace support {

Practice::Practice(PracticeOptions options)
    : m_home(OdbcHome::Hold()), m_dsn(OdbcHome::FreshName()), m_folder(m_home->Folder() / m_dsn) {
  const DatabaseKind& kind = CurrentKind();
  if (kind.DriverFile().empty()) throw std::runtime_error("no ODBC driver for " + kind.DriverName());
  if (options.with_owner) m_owner = kind.Owner(m_folder);
  std::filesystem::create_directory(m_folder);
  kind.Create(m_folder, options.tables);
  m_home->AddDriver(kind.DriverName(), kind.DriverFile());
  AddSource(m_dsn);
}

Practice::~Practice() {
  for (const std::string& source : m_sources) m_home->RemoveSource(source);
  CurrentKind().Destroy(m_folder);
  std::error_code ignored;
  std::filesystem::remove_all(m_folder, ignored);
}

void Practice::AddSource(const std::string& name) {
  const DatabaseKind& kind = CurrentKind();
  m_home->AddSource(name, kind.DriverName(), kind.SourceOptions(m_folder));
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

}  // namespace support
