#include "tools/shell/positioning.h"

#include <KyODBCDiag.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace shell {
namespace {

// clang-format off

// One row per table.
constexpr Positioning kPositionings[] = {
    {"patients",        KYODBC_SET_TPAT,  DB_MoveToTPatByPos,  DB_MoveToTPatByDelta,  DB_MoveToTPatByIntID,  DB_MoveToTPatByString,  true},
    {"patients-doctor", KYODBC_SET_PATEX, DB_MoveToPatExByPos, DB_MoveToPatExByDelta, DB_MoveToPatExByIntID, DB_MoveToPatExByString, true},
    {"doctors",         KYODBC_SET_TDR,   DB_MoveToTDrByPos,   DB_MoveToTDrByDelta,   nullptr,               nullptr,                false},
    {"images",          KYODBC_SET_TIMG,  DB_MoveToTImgByPos,  DB_MoveToTImgByDelta,  DB_MoveToTImgByIntID,  nullptr,                false},
    {"makros",          KYODBC_SET_TMAK,  DB_MoveToTMakByPos,  DB_MoveToTMakByDelta,  nullptr,               nullptr,                false},
    {"groups",          KYODBC_SET_TGRP,  DB_MoveToTGrpByPos,  DB_MoveToTGrpByDelta,  nullptr,               nullptr,                false},
    {"diagnoses",       KYODBC_SET_TDIAG, DB_MoveToTDiagByPos, DB_MoveToTDiagByDelta, nullptr,               nullptr,                false},
    {"stations",        KYODBC_SET_TSTAT, DB_MoveToTStatByPos, DB_MoveToTStatByDelta, nullptr,               nullptr,                false},
    {"units",           KYODBC_SET_TUNIT, DB_MoveToTUnitByPos, DB_MoveToTUnitByDelta, nullptr,               nullptr,                false},
    {"tests",           KYODBC_SET_TTEST, DB_MoveToTTestByPos, DB_MoveToTTestByDelta, nullptr,               nullptr,                false},
    {"settings",        KYODBC_SET_TCFG,  DB_MoveToTCfgByPos,  DB_MoveToTCfgByDelta,  nullptr,               nullptr,                false},
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
