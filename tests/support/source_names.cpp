#include "tests/support/source_names.h"

#include <map>
#include <vector>

#include "tests/support/odbc_home.h"

namespace support {
namespace {

std::vector<std::string>& FreeNames(const std::string& kind) {
  static std::map<std::string, std::vector<std::string>> free_names;
  return free_names[kind];
}

}  // namespace

std::string TakeSourceName(const std::string& kind) {
  std::vector<std::string>& names = FreeNames(kind);
  if (names.empty()) return OdbcHome::FreshName();
  std::string name = names.back();
  names.pop_back();
  return name;
}

void GiveSourceNameBack(const std::string& kind, const std::string& name) { FreeNames(kind).push_back(name); }

}  // namespace support
