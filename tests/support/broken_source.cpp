#include "tests/support/broken_source.h"

#include <strings.h>

#include <algorithm>

namespace support {
namespace {

auto Find(Options& options, const std::string& name) {
  return std::find_if(options.begin(), options.end(), [&name](const auto& option) {
    return strcasecmp(option.first.c_str(), name.c_str()) == 0;
  });
}

}  // namespace

std::string OptionOf(const Options& options, const std::string& name) {
  Options searched = options;
  const auto found = Find(searched, name);
  return found == searched.end() ? std::string() : found->second;
}

bool HasServer(const Practice& practice) {
  return !OptionOf(CurrentKind().SourceOptions(practice.Database()), "Port").empty();
}

BrokenSource::BrokenSource(const Practice& practice, const Options& changes, const std::string& driver)
    : m_home(OdbcHome::Hold()), m_dsn(OdbcHome::FreshName()) {
  const DatabaseKind& kind = CurrentKind();
  Options options = kind.SourceOptions(practice.Database());
  for (const auto& change : changes) {
    const auto found = Find(options, change.first);
    if (found != options.end()) options.erase(found);
    options.push_back(change);
  }
  m_home->AddSource(m_dsn, driver.empty() ? kind.DriverName() : driver, options);
}

BrokenSource::~BrokenSource() { m_home->RemoveSource(m_dsn); }

}  // namespace support
