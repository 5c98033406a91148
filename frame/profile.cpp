// Settings: rows of the configuration table, found by doctor, station and key text.
#include <algorithm>
#include <charconv>
#include <cinttypes>
#include <cstdint>
#include <cstring>

#include "frame/KyODBC.h"
#include "frame/flat_call.h"
#include "platform/text.h"
#include "recset/cfg_rec.h"
#include "recset/stat_rec.h"

namespace {

constexpr LONG kDoctor = 1;           // there are no settings per doctor
constexpr LONG kLibraryStation = 1;   // the one named "-"
constexpr DWORD kSettingValue = 0x8;  // mask bit of tCfgSSet
constexpr LONG kValueSize = sizeof(tagTCONFIG::szSet);

template <std::size_t N>
void PutField(char (&field)[N], const char* value) {
  text::BoundedCopy(field, N, value, std::strlen(value));
}

WORD FindStation(const char* name, LONG* key) {
  if (std::strcmp(name, "-") == 0) {
    *key = kLibraryStation;
    return kOk;
  }
  const CDBConnection& connection = TheConnection();
  CStatRec stations(connection.m_pDatabase, connection.Owner());
  tagTSTATION station{};
  PutField(station.szName, name);
  const WORD code = stations.GetRow(&station);
  if (code == kOk) *key = station.lStatID;
  return code;
}

// Fills in what a setting is found by. Returns 0, or why the station was not found.
WORD Describe(const char* key, const char* station, tagTCONFIG* setting) {
  PutField(setting->szKey, key);
  setting->lDrID = kDoctor;
  LONG station_key = 0;
  const WORD code = FindStation(station, &station_key);
  setting->lStatID = station_key;
  return code;
}

// A setting that cannot be read is as good as none.
bool Read(const char* key, const char* station, tagTCONFIG* setting) {
  if (key == nullptr || station == nullptr || Describe(key, station, setting) != kOk) return false;
  const CDBConnection& connection = TheConnection();
  return CCfgRec(connection.m_pDatabase, connection.Owner()).GetRow(setting) == kOk;
}

WORD Write(tagTCONFIG* setting) {
  CDBConnection& connection = TheConnection();
  connection.ReadMarkedSets();
  CCfgRec configs(connection.m_pDatabase, connection.Owner());
  if (setting->szSet[0] == '\0') return configs.DeleteRow(setting);
  const WORD code = configs.EditRow(setting, kSettingValue);
  return code == kNoRow ? configs.AddRow(setting) : code;
}

// `size` is at least 1.
void PutValue(const char* value, char* buffer, LONG size, LONG* length) {
  const std::size_t copied =
      text::BoundedCopy(buffer, static_cast<std::size_t>(size), value, std::strlen(value));
  if (length != nullptr) flat::Put(length, static_cast<LONG>(copied));
}

struct NumberText {
  explicit NumberText(LONG number) { *std::to_chars(text, text + sizeof text, number).ptr = '\0'; }
  char text[16] = {};
};

// Numbers outside the 32 bits become the nearest one inside.
LONG LeadingNumber(const char* text) {
  const std::intmax_t number = std::strtoimax(text, nullptr, 10);
  return static_cast<LONG>(std::clamp<std::intmax_t>(number, INT32_MIN, INT32_MAX));
}

}  // namespace

WORD DB_GetProfileString(const char* key, const char* station, const char* default_text, char* buffer,
                         LONG size, LONG* length) {
  if (default_text == nullptr || buffer == nullptr || size <= 0) {
    // Even a buffer of size 0 is emptied: callers read it without looking at the code.
    if (buffer != nullptr) *buffer = '\0';
    return flat::Answer(kBadArgument);
  }
  const CDatabase* database = TheConnection().m_pDatabase;
  if (database == nullptr) PutValue(default_text, buffer, size, length);
  return flat::Code(database, [&] {
    tagTCONFIG setting{};
    PutValue(Read(key, station, &setting) ? setting.szSet : default_text, buffer, size, length);
    return kOk;
  });
}

WORD DB_WriteProfileString(const char* key, const char* station, const char* value) {
  if (key == nullptr || station == nullptr || value == nullptr) return flat::Answer(kBadArgument);
  return flat::Code(TheConnection().m_pDatabase, [&] {
    tagTCONFIG setting{};
    PutField(setting.szSet, value);
    const WORD code = Describe(key, station, &setting);
    return code == kOk ? Write(&setting) : code;
  });
}

WORD DB_GetProfileInt(const char* key, const char* station, LONG default_value, LONG* value) {
  if (value == nullptr) return flat::Answer(kBadArgument);
  const NumberText default_text(default_value);
  // A failure that leaves the buffer alone hands back the default.
  char buffer[kValueSize] = {};
  std::strcpy(buffer, default_text.text);
  const WORD code = flat::Through(
      [&] { return DB_GetProfileString(key, station, default_text.text, buffer, kValueSize, nullptr); });
  flat::Put(value, LeadingNumber(buffer));
  return code;
}

WORD DB_WriteProfileInt(const char* key, const char* station, LONG value) {
  return flat::Through([&] { return DB_WriteProfileString(key, station, NumberText(value).text); });
}
