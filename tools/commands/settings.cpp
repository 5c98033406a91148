// kyodbc set and get: the settings of a station.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <array>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "tools/commands/commands.h"
#include "tools/connection.h"
#include "tools/output.h"
#include "tools/record_text.h"
#include "tools/tool_error.h"

namespace {

constexpr std::size_t kKeyBytes = sizeof(tagTCONFIG::szKey) - 1;
constexpr std::size_t kValueBytes = sizeof(tagTCONFIG::szSet) - 1;
constexpr std::size_t kStationBytes = sizeof(tagTSTATION::szName) - 1;

struct SettingOptions {
  Place place;
  std::string key;
  std::string value;
  std::string station = "-";
};

// The library would cut longer texts silently.
void RequireFit(const std::string& what, const std::string& text, std::size_t most) {
  if (text.size() > most) throw ToolError(kUsage, fmt::format("the {} is longer than {} bytes", what, most));
}

void RequireFit(const SettingOptions& options) {
  if (options.key.empty()) throw ToolError(kUsage, "the key is empty");
  RequireFit("key", options.key, kKeyBytes);
  RequireFit("value", options.value, kValueBytes);
  RequireFit("station", options.station, kStationBytes);
}

void RequireStation(const std::string& name) {
  tagTSTATION station{};
  SetText(station.szName, name);
  Check(DB_GetTStat(&station), fmt::format("looking for the station '{}'", name));
}

void PrintSetting(const SettingOptions& options, const std::string& value) {
  PrintJson({
      {"station", options.station},
      {"key",     options.key    },
      {"value",   value          }
  });
}

void Set(const SettingOptions& options) {
  RequireFit(options);
  const Connection connection(options.place);
  RequireStation(options.station);
  Check(DB_WriteProfileString(options.key.c_str(), options.station.c_str(), options.value.c_str()),
        fmt::format("{} '{}'", options.value.empty() ? "removing" : "storing", options.key));
  if (AsJson()) PrintSetting(options, options.value);
}

std::string Read(const SettingOptions& options, const char* default_text) {
  std::array<char, kValueBytes + 1> buffer{};
  Check(DB_GetProfileString(options.key.c_str(), options.station.c_str(), default_text, buffer.data(),
                            static_cast<LONG>(buffer.size()), nullptr),
        fmt::format("reading '{}'", options.key));
  return buffer.data();
}

// A missing setting is no error to the library, it delivers the default; two defaults tell it from a setting
// that happens to hold the same text.
void Get(const SettingOptions& options) {
  RequireFit(options);
  const Connection connection(options.place);
  RequireStation(options.station);
  const std::string value = Read(options, "");
  if (value.empty() && Read(options, "-") == "-") {
    throw ToolError(kFailed,
                    fmt::format("the station '{}' has no setting '{}'", options.station, options.key));
  }
  AsJson() ? PrintSetting(options, value) : fmt::print("{}\n", value);
}

CLI::App* AddCommand(CLI::App& program, SettingOptions& options, const char* name, const char* help) {
  CLI::App* command = program.add_subcommand(name, help);
  AddPlace(*command, options.place);
  command->add_option("KEY", options.key, fmt::format("The setting's name, up to {} bytes", kKeyBytes))
      ->required();
  command->add_option("--station", options.station, "The station; '-' is for settings of them all")
      ->capture_default_str();
  AddJson(*command);
  return command;
}

}  // namespace

void AddSettings(CLI::App& program, Action& run) {
  const auto options = std::make_shared<SettingOptions>();
  CLI::App* set = AddCommand(program, *options, "set", "Store a setting");
  set->add_option("VALUE", options->value,
                  fmt::format("Its value, up to {} bytes; an empty one removes the setting", kValueBytes))
      ->required();
  set->callback([options, &run] { run = [options] { Set(*options); }; });
  CLI::App* get = AddCommand(program, *options, "get", "Print a setting");
  get->callback([options, &run] { run = [options] { Get(*options); }; });
}
