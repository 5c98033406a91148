// Settings: rows of the configuration table, found by the names of their key and station.
#include <algorithm>
#include <cstdlib>

#include "tests/differential/model.h"

namespace differential {
namespace {

constexpr std::uint32_t kSettingBit = 0x8;
constexpr int kLibraryDoctor = 1;
constexpr std::size_t kNumberBuffer = 129;

std::string TextOf(const Cell& cell) { return std::get<std::string>(cell); }

}  // namespace

int Model::StationKey(const std::string& name, int* key) {
  if (name == "-") {
    *key = 1;
    return 0;
  }
  Packed station = Packed::Empty(Stem::kStat);
  station.SetText("szName", name);
  const int code = Get(Stem::kStat, &station);
  if (code == 0) *key = station.Number(0);
  return code;
}

std::string Model::Setting(const Cell& key, const Cell& station, const std::string& fallback) {
  int station_key = 0;
  if (IsNull(key) || IsNull(station) || StationKey(TextOf(station), &station_key) != 0) return fallback;
  Packed entry = Packed::Empty(Stem::kCfg);
  entry.SetNumber("lDrID", kLibraryDoctor);
  entry.SetNumber("lStatID", station_key);
  entry.SetText("szKey", TextOf(key));
  return Get(Stem::kCfg, &entry) == 0 ? entry.Text("szSet") : fallback;
}

// Operands: key, station, default. a: size of the buffer. null_first: no buffer; null_second: no length.
Answer Model::GetString(const Call& call) {
  std::string buffer(static_cast<std::size_t>(std::max(call.a, 1)), kUntouched);
  std::string length(sizeof(int), kUntouched);
  if (call.null_first) return {1, buffer + length};
  if (IsNull(call.operands[2]) || call.a < 1) {
    buffer[0] = '\0';
    return {1, buffer + length};
  }
  const std::string fallback = TextOf(call.operands[2]);
  const std::string text = m_connected ? Setting(call.operands[0], call.operands[1], fallback) : fallback;
  const std::string cut = Cut(text, buffer.size() - 1);
  buffer.replace(0, cut.size() + 1, cut + '\0');
  const int count = static_cast<int>(cut.size());
  if (!call.null_second) length.assign(reinterpret_cast<const char*>(&count), sizeof count);
  return {m_connected ? 0 : 3, buffer + length};
}

int Model::WriteString(const Cell& key, const Cell& station, const Cell& value) {
  if (IsNull(key) || IsNull(station) || IsNull(value)) return 1;
  if (!m_connected) return 3;
  Packed entry = Packed::Empty(Stem::kCfg);
  entry.SetText("szKey", TextOf(key));
  entry.SetText("szSet", TextOf(value));
  int station_key = 0;
  const int code = StationKey(TextOf(station), &station_key);
  if (code != 0) return code;
  entry.SetNumber("lStatID", station_key);
  entry.SetNumber("lDrID", kLibraryDoctor);
  if (TextOf(value).empty()) return Delete(Stem::kCfg, entry);
  const int edited = EditSel(Stem::kCfg, &entry, kSettingBit);
  return edited == 64 ? AddNew(Stem::kCfg, &entry) : edited;
}

// Operands: key, station. b: the default.
Answer Model::GetInt(const Call& call) {
  if (call.null_first) return {1, std::string(sizeof(int), kUntouched)};
  const std::string fallback = std::to_string(call.b);
  const std::string text = m_connected ? Setting(call.operands[0], call.operands[1], fallback) : fallback;
  const int number = static_cast<int>(std::strtol(Cut(text, kNumberBuffer - 1).c_str(), nullptr, 10));
  return {m_connected ? 0 : 3, std::string(reinterpret_cast<const char*>(&number), sizeof number)};
}

}  // namespace differential
