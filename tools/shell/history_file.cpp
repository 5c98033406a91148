#include "tools/shell/history_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string_view>
#include <system_error>

#include "tools/tool_error.h"

namespace shell {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kKeptLines = 500;
constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;

fs::path StateFolder() {
  const char* state = std::getenv("XDG_STATE_HOME");
  if (state != nullptr && *state == '/') return state;
  const char* home = std::getenv("HOME");
  return home != nullptr && *home == '/' ? fs::path(home) / ".local" / "state" : fs::path();
}

void Write(const fs::path& path, const std::string& text, int how) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | how, kOwnerOnly);
  if (file < 0) return;
  // An older file may have been made readable for others.
  if (fchmod(file, kOwnerOnly) == 0) {
    const ssize_t written = write(file, text.data(), text.size());
    static_cast<void>(written);
  }
  close(file);
}

}  // namespace

Remember RememberAsAsked() {
  const char* asked = std::getenv("KYODBC_HISTORY");
  const std::string_view word = asked != nullptr ? asked : "commands";
  if (word == "off") return Remember::kNothing;
  if (word == "commands") return Remember::kCommandsWithoutValues;
  if (word == "all") return Remember::kAll;
  throw ToolError(kUsage, fmt::format("KYODBC_HISTORY is off, commands or all, not '{}'", word));
}

HistoryFile::HistoryFile(Remember remember) : m_remember(remember) {
  const fs::path folder = StateFolder();
  if (remember == Remember::kNothing || folder.empty()) return;
  std::error_code failure;
  fs::create_directories(folder, failure);
  mkdir((folder / "kyodbc").c_str(), S_IRWXU);
  m_path = folder / "kyodbc" / "history";
}

// Shortens the file when it has become much longer than what is kept.
std::vector<std::string> HistoryFile::Load() {
  std::vector<std::string> lines;
  if (m_path.empty()) return lines;
  std::ifstream file(m_path);
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  const bool is_long = lines.size() > 2 * kKeptLines;
  if (lines.size() > kKeptLines) lines.erase(lines.begin(), lines.end() - kKeptLines);
  if (is_long) Write(m_path, fmt::format("{}\n", fmt::join(lines, "\n")), O_TRUNC);
  return lines;
}

void HistoryFile::Add(const std::string& line, bool holds_values) {
  if (m_path.empty() || (holds_values && m_remember != Remember::kAll)) return;
  Write(m_path, line + '\n', O_APPEND);
}

}  // namespace shell
