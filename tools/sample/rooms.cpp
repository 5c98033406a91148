// Stations with their settings, units with their tests.
#include <fmt/format.h>

#include "tools/record_text.h"
#include "tools/sample/calendar.h"
#include "tools/sample/draw.h"
#include "tools/sample/practice.h"

namespace sample {
namespace {

constexpr int kTestsPerUnit = 12;  // one a month
constexpr int kSettingsPerStation = 3;
constexpr int kDefaultDoctorKey = 1;  // the one that settings belong to

struct UnitModel {
  const char* type;
  const char* name;
};
constexpr UnitModel kModels[] = {
    {"PX", "Panorama" },
    {"IO", "Intraoral"},
    {"CX", "Ceph"     },
    {"3D", "Volume"   },
};

template <std::size_t N>
void SetSerial(char (&field)[N], char part, Draw& draw) {
  SetText(field, fmt::format("{}{:06}", part, draw.Below(1'000'000)));
}

}  // namespace

int Practice::Stations() const { return 3 + m_patients / 1000; }

tagTSTATION Practice::Station(int row) const {
  tagTSTATION station{};
  SetText(station.szName, row == 0 ? "Reception" : fmt::format("X-ray {}", row));
  return station;
}

int Practice::Settings() const { return Stations() * kSettingsPerStation; }

tagTCONFIG Practice::Setting(int row) const {
  constexpr const char* kLanguages[] = {"de", "en", "es", "fr"};
  Draw draw(m_seed, Kind::kSetting, row);
  const int station = 1 + row / kSettingsPerStation;
  tagTCONFIG setting{};
  setting.lDrID = kDefaultDoctorKey;
  setting.lStatID = station;
  switch (row % kSettingsPerStation) {
    case 0:
      SetText(setting.szKey, "Language");
      SetText(setting.szSet, draw.Of(kLanguages));
      break;
    case 1:
      SetText(setting.szKey, "Zoom");
      SetText(setting.szSet, fmt::format("{}", 50 + 25 * draw.Below(7)));
      break;
    default:
      SetText(setting.szKey, "ImageFolder");
      SetText(setting.szSet, fmt::format("\\\\server\\images\\{}", station));
  }
  return setting;
}

int Practice::Units() const { return 3 + m_patients / 1000; }

tagTUNIT Practice::Unit(int row) const {
  Draw draw(m_seed, Kind::kUnit, row);
  const UnitModel& model = kModels[row % static_cast<int>(std::size(kModels))];
  tagTUNIT unit{};
  SetText(unit.szType, model.type);
  SetText(unit.szName, fmt::format("{} {}", model.name, row + 1));
  unit.dAccept = Date(kOpening - std::chrono::days(1 + draw.Below(400)));
  SetSerial(unit.szCtrlUnitSNo, 'C', draw);
  SetSerial(unit.szSensSNo, 'S', draw);
  SetSerial(unit.szGenSNo, 'G', draw);
  SetSerial(unit.szTubeSNo, 'T', draw);
  SetSerial(unit.szCtrlElemSNo, 'E', draw);
  SetSerial(unit.szConeSNo, 'K', draw);
  SetSerial(unit.szTestBodySNo, 'B', draw);
  return unit;
}

int Practice::Tests() const { return Units() * kTestsPerUnit; }

tagTTEST Practice::Test(int row) const {
  constexpr const char* kPersons[] = {"Anna Vogel", "Renée O'Hara", "T. Öztürk", "Kim Berger"};
  Draw draw(m_seed, Kind::kTest, row);
  const int unit = row / kTestsPerUnit;
  const int month = row % kTestsPerUnit;
  tagTTEST test{};
  test.lUnitID = 1 + unit;
  SetText(test.szPerson, draw.Of(kPersons));
  SetText(test.szType, "CONS");
  SetText(test.szRegio, "Test body");
  SetText(test.szName, fmt::format("Constancy {:02}", month + 1));
  test.ts = Date(std::chrono::year(2024) / (month + 1) / (1 + draw.Below(28)));
  test.ts.hour = 7;
  test.ts.minute = static_cast<SQLUSMALLINT>(draw.Below(60));
  SetText(test.szResult,
          fmt::format("Dose {} µGy, limit 120 µGy\nResolution {}.{} Lp/mm\n{}", 80 + draw.Below(50),
                      4 + draw.Below(3), draw.Below(10), draw.OneIn(20) ? "repeat" : "passed"));
  SetText(test.szFile, fmt::format("tests/u{:03}/{:02}.img", unit + 1, month + 1));
  return test;
}

}  // namespace sample
