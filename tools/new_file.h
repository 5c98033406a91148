// A file that is there whole or not at all.
#ifndef KYODBC_TOOLS_NEW_FILE_H
#define KYODBC_TOOLS_NEW_FILE_H

#include <filesystem>
#include <string_view>

// Written beside its place under another name, which only its owner can read, and put in place by Finish;
// removed when that is not reached.
class NewFile {
 public:
  // Throws ToolError when there is a file of that name already, or when none can be made.
  explicit NewFile(const std::filesystem::path& file);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  // Where the file is until Finish, for programs that write it themselves.
  const std::filesystem::path& Temporary() const { return m_temporary; }
  void Write(std::string_view text);
  // On the disk and in its place. Throws ToolError when that fails.
  void Finish();

 private:
  std::filesystem::path m_file;
  std::filesystem::path m_temporary;
  int m_descriptor = -1;
  bool m_finished = false;
};

#endif
