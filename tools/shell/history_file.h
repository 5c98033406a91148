// The lines that line mode remembers from one session to the next.
#ifndef KYODBC_TOOLS_SHELL_HISTORY_FILE_H
#define KYODBC_TOOLS_SHELL_HISTORY_FILE_H

#include <filesystem>
#include <string>
#include <vector>

namespace shell {

// KYODBC_HISTORY chooses. Filters and texts to jump to hold patients' names, so that they are kept only when
// asked for.
enum class Remember { kNothing, kCommandsWithoutValues, kAll };

// Throws ToolError for another word than off, commands and all; without one it is commands.
Remember RememberAsAsked();

// A file that only its owner can read, in the folder for such things of the user. What cannot be read or
// written is left out: a browser works without.
class HistoryFile {
 public:
  explicit HistoryFile(Remember remember);

  // The lines of earlier sessions, the oldest first.
  std::vector<std::string> Load();
  void Add(const std::string& line, bool holds_values);

 private:
  Remember m_remember;
  std::filesystem::path m_path;  // empty: there is no place for it
};

}  // namespace shell

#endif
