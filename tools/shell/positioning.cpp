#include "tools/shell/positioning.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace shell {
namespace {

// clang-format off

// One row per table.
constexpr Positioning kPositionings[] = {
    {"patients",        DB_MoveToTPatByPos,  DB_MoveToTPatByDelta,  DB_MoveToTPatByIntID,  DB_MoveToTPatByString,  true},
    {"patients-doctor", DB_MoveToPatExByPos, DB_MoveToPatExByDelta, DB_MoveToPatExByIntID, DB_MoveToPatExByString, true},
    {"doctors",         DB_MoveToTDrByPos,   DB_MoveToTDrByDelta,   nullptr,               nullptr,                false},
    {"images",          DB_MoveToTImgByPos,  DB_MoveToTImgByDelta,  DB_MoveToTImgByIntID,  nullptr,                false},
    {"makros",          DB_MoveToTMakByPos,  DB_MoveToTMakByDelta,  nullptr,               nullptr,                false},
    {"groups",          DB_MoveToTGrpByPos,  DB_MoveToTGrpByDelta,  nullptr,               nullptr,                false},
    {"diagnoses",       DB_MoveToTDiagByPos, DB_MoveToTDiagByDelta, nullptr,               nullptr,                false},
    {"stations",        DB_MoveToTStatByPos, DB_MoveToTStatByDelta, nullptr,               nullptr,                false},
    {"units",           DB_MoveToTUnitByPos, DB_MoveToTUnitByDelta, nullptr,               nullptr,                false},
    {"tests",           DB_MoveToTTestByPos, DB_MoveToTTestByDelta, nullptr,               nullptr,                false},
    {"settings",        DB_MoveToTCfgByPos,  DB_MoveToTCfgByDelta,  nullptr,               nullptr,                false},
};

// clang-format on

}  // namespace

const Positioning& PositioningOf(const Table& table) {
  return *std::find_if(std::begin(kPositionings), std::end(kPositionings),
                       [&](const Positioning& row) { return std::string_view(row.table) == table.plural; });
}

std::vector<const Table*> AllTables() {
  std::vector<const Table*> tables;
  for (const Positioning& row : kPositionings) tables.push_back(&FindTable(row.table));
  return tables;
}

}  // namespace shell
